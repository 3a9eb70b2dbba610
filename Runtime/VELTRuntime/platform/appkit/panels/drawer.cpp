#include "VELTRuntime/platform/appkit/panels/drawer.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/panel.h"
#include "VELTRuntime/platform/appkit/panels/frame_animation.h"
#include "VELTRuntime/platform/appkit/screen.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/values/string.h"

#include <QFrame>
#include <QMainWindow>
#include <QVariantAnimation>
#include <QWindow>
#include <algorithm>

using velt::Edge;
using velt::LeaderChange;
using velt::Ref;

namespace velt {

/// What the drawer's view lies on. The drawer is always laid out at its full size; its window shows the part that is
/// out.
class DrawerBoard final : public NSView {
protected:
    std::unique_ptr<QWidget> makeWidget() override {
        auto board = std::make_unique<QFrame>();
        board->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Plain));
        board->setAutoFillBackground(true);
        return board;
    }
};

class DrawerWindow final : public NSPanel {
    VELT_OBJECT(DrawerWindow, NSPanel)
public:
    DrawerWindow() : NSPanel({}, 0) {
        setHidesOnDeactivate(false);
        setReleasedWhenClosed(false);
        setContentView(make<DrawerBoard>().get());
        as<NSView>(contentView())->setAutoresizesSubviews(false);
    }
    bool endsProgramWhenLast() const override { return false; }
};

}  // namespace velt

NSDrawer::NSDrawer(NSSize contentSize, long preferredEdge) : contentSize_(contentSize) {
    velt::requireApplicationObject("a drawer");
    setPreferredEdge(preferredEdge);
    edge_ = preferred_;
    window_ = velt::make<velt::DrawerWindow>();
    setContentView(nullptr);
}

NSDrawer::~NSDrawer() { NSDrawer::dissolve(); }

void NSDrawer::dissolve() {
    follow(nullptr);
    if (auto* animation = std::exchange(animation_, nullptr)) {
        animation->disconnect();
        animation->deleteLater();
    }
    if (window_ && velt::isMainThread()) window_->orderOut(nil);
    NSResponder::dissolve();
}

NSWindow* NSDrawer::parent() const {
    return velt::is<NSWindow>(parentWindow_) ? velt::as<NSWindow>(parentWindow_) : nullptr;
}

void NSDrawer::setParentWindow(NSWindow* window) {
    if (window == parent()) return;
    const bool wasOut = state_ != Closed;
    if (animation_) animation_->stop();
    hide();
    part_ = 0;
    state_ = Closed;
    parentWindow_ = velt::boxResult(window);
    follow(window);
    place();
    if (wasOut) tell("drawerDidClose:", "NSDrawerDidCloseNotification");
}

void NSDrawer::setContentView(NSView* view) {
    if (contentView_ && contentView_.get() == view) return;
    if (contentView_) contentView_->removeFromSuperview();
    contentView_ = view ? Ref<NSView>(view) : velt::make<NSView>();
    velt::as<NSView>(window_->contentView())->addSubview(contentView_.get());
    place();
}

void NSDrawer::setContentSize(NSSize size) {
    contentSize_ = {std::clamp(size.width, minSize_.width, std::max(minSize_.width, maxSize_.width)),
                    std::clamp(size.height, minSize_.height, std::max(minSize_.height, maxSize_.height))};
    place();
}
void NSDrawer::setMinContentSize(NSSize size) {
    minSize_ = size;
    setContentSize(contentSize_);
}
void NSDrawer::setMaxContentSize(NSSize size) {
    maxSize_ = size;
    setContentSize(contentSize_);
}
void NSDrawer::setPreferredEdge(long edge) {
    if (edge < 0 || edge > static_cast<long>(Edge::Top)) return;
    preferred_ = static_cast<Edge>(edge);
    if (state_ != Closed) return;
    edge_ = preferred_;
    if (window_) place();
}
void NSDrawer::setLeadingOffset(double offset) {
    leading_ = offset;
    place();
}
void NSDrawer::setTrailingOffset(double offset) {
    trailing_ = offset;
    place();
}

// Its place.

NSSize NSDrawer::fullSize() const {
    const NSWindow* window = parent();
    if (!window) return contentSize_;
    return velt::drawerSize(edge_, velt::contentRectForFrame(window->frame(), window->styleMask()), contentSize_,
                            leading_, trailing_);
}

/// A closed drawer's window has the size that it will have.
void NSDrawer::place() {
    const NSWindow* window = parent();
    const NSSize size = fullSize();
    if (!window) {
        window_->setFrame({window_->frame().origin, size});
    } else {
        const NSRect content = velt::contentRectForFrame(window->frame(), window->styleMask());
        const double part = state_ == Closed ? 1 : part_;
        window_->setFrame(velt::drawerRect(edge_, window->frame(), content, size, leading_, trailing_, part));
    }
    layOut();
}

/// The view is seen from its outer end on, as it slides out.
void NSDrawer::layOut() {
    const NSSize size = fullSize(), seen = window_->frame().size;
    NSPoint origin{};
    if (edge_ == Edge::Right) origin.x = seen.width - size.width;
    if (edge_ == Edge::Top) origin.y = seen.height - size.height;
    contentView_->setFrame({origin, size});
}

// Opening and closing.

void NSDrawer::show() {
    NSWindow* leader = parent();
    if (!leader || !leader->isVisible() || window_->isVisible()) return;
    QWidget& widget = window_->widget();
    widget.winId();
    leader->widget().winId();
    widget.windowHandle()->setTransientParent(leader->widget().windowHandle());
    window_->orderFront(nil);
}

void NSDrawer::hide() { window_->orderOut(nil); }

bool NSDrawer::allowed(std::string_view selector) {
    const velt::Selector asks = velt::Selector::named(selector);
    return !velt::respondsTo(delegate_, asks) || VELT_CBOOL(velt::send(delegate_, asks, velt::boxResult(this)));
}

void NSDrawer::tell(std::string_view selector, std::string_view notification) {
    velt::tellDelegateAndObservers(delegate_, selector, notification, velt::boxResult(this));
}

void NSDrawer::openOnEdge(long edge) {
    if (edge >= 0 && edge <= static_cast<long>(Edge::Top)) openAt(static_cast<Edge>(edge), false);
}

void NSDrawer::openAt(Edge edge, bool choose) {
    const Ref<NSDrawer> kept(this);
    NSWindow* window = parent();
    if (!window || state_ == Open || state_ == Opening || !allowed("drawerShouldOpen:")) return;
    if (choose) {
        const NSRect content = velt::contentRectForFrame(window->frame(), window->styleMask());
        const NSSize size = velt::drawerSize(preferred_, content, contentSize_, leading_, trailing_);
        edge = velt::roomyEdge(preferred_, window->frame(), content, size, leading_, trailing_,
                               velt::visibleScreenFrame());
    }
    // One that is just closing comes out again where it is.
    if (state_ == Closed) edge_ = edge;
    tell("drawerWillOpen:", "NSDrawerWillOpenNotification");
    state_ = Opening;
    place();
    show();
    slide(1);
}

void NSDrawer::close() {
    const Ref<NSDrawer> kept(this);
    if (state_ == Closed || state_ == Closing || !allowed("drawerShouldClose:")) return;
    tell("drawerWillClose:", "NSDrawerWillCloseNotification");
    state_ = Closing;
    slide(0);
}

void NSDrawer::toggle(const id&) {
    if (state_ == Open || state_ == Opening) {
        close();
    } else {
        open();
    }
}

void NSDrawer::slide(double target) {
    if (animation_) animation_->stop();
    const int time = window_->isVisible() ? velt::animationTime() : 0;
    if (time == 0) {
        part_ = target;
        return arrive();
    }
    if (!animation_) {
        animation_ = new QVariantAnimation;
        QObject::connect(animation_, &QVariantAnimation::valueChanged, animation_, [this](const QVariant& value) {
            velt::runReported([&] {
                part_ = value.toDouble();
                place();
            });
        });
        QObject::connect(animation_, &QVariantAnimation::finished, animation_,
                         [this] { velt::runReported([this] { arrive(); }); });
    }
    animation_->setStartValue(part_);
    animation_->setEndValue(target);
    animation_->setDuration(time);
    animation_->setEasingCurve(QEasingCurve::OutCubic);
    animation_->start();
}

void NSDrawer::arrive() {
    const Ref<NSDrawer> kept(this);
    if (state_ == Opening) {
        part_ = 1;
        state_ = Open;
        place();
        tell("drawerDidOpen:", "NSDrawerDidOpenNotification");
    } else if (state_ == Closing) {
        hide();
        part_ = 0;
        state_ = Closed;
        place();
        tell("drawerDidClose:", "NSDrawerDidCloseNotification");
    }
}

void NSDrawer::leaderChanged(LeaderChange change) {
    switch (change) {
    case LeaderChange::Moved: return place();
    case LeaderChange::Shown:
        if (state_ != Closed) show();
        return;
    case LeaderChange::Hidden:
    case LeaderChange::Closed: return hide();
    case LeaderChange::Gone: return;
    }
}

void NSDrawer::describe(velt::ClassBuilder<NSDrawer>& c) {
    c.property("parentWindow", &NSDrawer::parentWindow, &NSDrawer::setParentWindow)
        .property("contentView", &NSDrawer::contentView, &NSDrawer::setContentView)
        .property("contentSize", &NSDrawer::contentSize, &NSDrawer::setContentSize)
        .property("minContentSize", &NSDrawer::minContentSize, &NSDrawer::setMinContentSize)
        .property("maxContentSize", &NSDrawer::maxContentSize, &NSDrawer::setMaxContentSize)
        .property("preferredEdge", &NSDrawer::preferredEdge, &NSDrawer::setPreferredEdge)
        .property("leadingOffset", &NSDrawer::leadingOffset, &NSDrawer::setLeadingOffset)
        .property("trailingOffset", &NSDrawer::trailingOffset, &NSDrawer::setTrailingOffset)
        .property("delegate", &NSDrawer::delegate, &NSDrawer::setDelegate)
        .property("edge", &NSDrawer::edge)
        .property("state", &NSDrawer::state)
        .method("open", &NSDrawer::open)
        .method("close", &NSDrawer::close)
        .method("openOnEdge:", &NSDrawer::openOnEdge)
        .method("toggle:", &NSDrawer::toggle)
        .method("open:",
                [](const id& self, const id*) {
                    velt::as<NSDrawer>(self)->open();
                    return id();
                })
        .method("close:",
                [](const id& self, const id*) {
                    velt::as<NSDrawer>(self)->close();
                    return id();
                })
        .owns(&NSDrawer::parentWindow_)
        .owns(&NSDrawer::delegate_)
        .owns(&NSDrawer::contentView_)
        .owns(&NSDrawer::window_);
}
