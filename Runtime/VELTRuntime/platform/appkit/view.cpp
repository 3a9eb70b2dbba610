#include "VELTRuntime/platform/appkit/view.h"

#include "VELTRuntime/platform/appkit/accessibility/names.h"
#include "VELTRuntime/platform/appkit/accessibility/view_roles.h"
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/containers/scroll_view.h"
#include "VELTRuntime/platform/appkit/containers/scrolling.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/printing/print_operation.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/view_widget.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/drop_elements.h"
#include "VELTRuntime/platform/object/exception.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

using velt::Ref;

NSView::NSView() { velt::requireApplicationObject("a view"); }

NSView::NSView(NSRect frame) : NSView() { frame_ = frame; }

NSView::~NSView() {
    NSView::dissolve();
    if (!widget_) return;
    if (!velt::isMainThread()) {
        velt::RunLoop::main().perform([widget = widget_] { velt::letGo(*widget); });
        return;
    }
    velt::letGo(*widget_);
}

void NSView::dissolve() {
    // The subviews' widgets are left in this one's, which is about to end: most of them end with it.
    if (widget_ && !subviews_.empty()) velt::willGo(*widget_);
    for (const Ref<NSView>& view : subviews_) {
        if (!view) continue;
        view->superview_ = nullptr;
        view->moveToWindow(nullptr);
    }
    velt::dropAll(subviews_);
    setNextKeyView(nullptr);
    NSResponder::dissolve();
}

// Geometry.

NSRect NSView::bounds() const { return hasOwnBounds_ ? bounds_ : NSRect{{0, 0}, frame_.size}; }

void NSView::setFrame(NSRect frame) {
    const NSSize before = bounds().size;
    const NSSize oldSize = frame_.size;
    const bool resized = oldSize.width != frame.size.width || oldSize.height != frame.size.height;
    if (resized && hasOwnBounds_) {
        // The scale stays.
        if (oldSize.width > 0) bounds_.size.width *= frame.size.width / oldSize.width;
        if (oldSize.height > 0) bounds_.size.height *= frame.size.height / oldSize.height;
    }
    frame_ = frame;
    if (superview_) superview_->placeSubview(*this);
    if (resized) sizeChanged(before);
    if (superview_) superview_->subviewMoved(*this);
    velt::namesMayHaveChanged();
}

void NSView::setBounds(NSRect bounds) {
    bounds_ = bounds;
    hasOwnBounds_ = true;
    placeSubviews();
    changed();
}

void NSView::sizeChanged(NSSize before) {
    const NSSize now = bounds().size;
    if (autoresizesSubviews_) {
        // A view's frame may be set by a program while its neighbours are being resized.
        const std::vector<Ref<NSView>> views = subviews_;
        for (const Ref<NSView>& view : views) {
            if (view->autoresizingMask_ == 0) continue;
            view->setFrame(velt::resizedFrame(view->frame_, before, now, view->autoresizingMask_));
        }
    }
    placeSubviews();
    changed();
}

// The tree.

id NSView::superview() const { return id(static_cast<NSObject*>(superview_)); }
id NSView::window() const { return id(static_cast<NSObject*>(window_)); }

id NSView::subviews() const {
    Ref<NSMutableArray> views = velt::make<NSMutableArray>();
    for (const Ref<NSView>& view : subviews_) views->append(view);
    return views;
}

bool NSView::isDescendantOf(const NSView* view) const {
    for (const NSView* at = this; at; at = at->superview_) {
        if (at == view) return true;
    }
    return false;
}

void NSView::adopt(NSView& view, std::size_t place) {
    if (isDescendantOf(&view)) {
        velt::raise(velt::kInvalidArgumentException,
                    "'" + isa().name() + "' addSubview:: the view lies within the other one");
    }
    const Ref<NSView> kept(&view);
    view.removeFromSuperview();
    view.superview_ = this;
    subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(std::min(place, subviews_.size())), kept);
    view.moveToWindow(window_);
    placeSubview(view);
    subviewsChanged();
    velt::namesMayHaveChanged();
}

void NSView::addSubview(NSView* view) {
    if (view) adopt(*view, subviews_.size());
}

void NSView::detach(NSView& view) {
    view.superview_ = nullptr;
    view.moveToWindow(nullptr);
    if (view.widget_ && velt::isMainThread()) {
        view.widget_->hide();
        view.widget_->setParent(nullptr);
    }
}

void NSView::removeFromSuperview() {
    if (!superview_) return;
    const Ref<NSView> kept(this);
    const Ref<NSView> held(superview_);
    std::vector<Ref<NSView>>& views = held->subviews_;
    views.erase(
        std::find_if(views.begin(), views.end(), [this](const Ref<NSView>& view) { return view.get() == this; }));
    held->detach(*this);
    held->subviewsChanged();
    velt::namesMayHaveChanged();
}

void NSView::replaceSubview(NSView* old, NSView* with) {
    const auto found = std::find_if(subviews_.begin(), subviews_.end(),
                                    [old](const Ref<NSView>& view) { return old && view.get() == old; });
    if (found == subviews_.end() || !with || with == old) return;
    const auto place = static_cast<std::size_t>(found - subviews_.begin());
    const Ref<NSView> kept(old);
    old->removeFromSuperview();
    adopt(*with, place);
    // The widgets in front of it come to the front again.
    for (std::size_t i = place + 1; i < subviews_.size(); ++i) {
        if (subviews_[i]->widget_) subviews_[i]->widget_->raise();
    }
}

id NSView::viewWithTag(long tag) {
    if (this->tag() == tag) return id(static_cast<NSObject*>(this));
    for (const Ref<NSView>& view : subviews_) {
        if (id found = view->viewWithTag(tag); !found.isNil()) return found;
    }
    return nil;
}

void NSView::moveToWindow(NSWindow* window) {
    if (window_ == window) return;
    if (window_) window_->viewLeaves(*this);
    window_ = window;
    for (const Ref<NSView>& view : subviews_) view->moveToWindow(window);
}

id NSView::ownNextResponder() const { return superview_ ? superview() : window(); }

// Looks.

void NSView::setHidden(bool hidden) {
    if (hidden_ == hidden) return;
    hidden_ = hidden;
    if (!superview_) return;
    superview_->placeSubview(*this);
    superview_->subviewsChanged();
    velt::namesMayHaveChanged();
}

bool NSView::isHiddenOrHasHiddenAncestor() const {
    for (const NSView* at = this; at; at = at->superview_) {
        if (at->hidden_) return true;
    }
    return false;
}

void NSView::setToolTip(const id& text) {
    toolTip_ = text;
    changed();
}

void NSView::setFocusRingType(unsigned long type) {
    focusRingType_ = type;
    changed();
}

void NSView::setNeedsDisplay(bool flag) {
    if (flag && widget_) widget_->update();
}

void NSView::draw(QPainter& painter, NSRect dirty) {
    const velt::GraphicsContext context(painter);
    const NSRect own = bounds();
    if (own.size.width <= 0 || own.size.height <= 0) return;
    const double sx = frame_.size.width / own.size.width, sy = frame_.size.height / own.size.height;
    if (isFlipped()) {
        painter.scale(sx, sy);
    } else {
        painter.translate(0, frame_.size.height);
        painter.scale(sx, -sy);
    }
    painter.translate(-own.origin.x, -own.origin.y);
    NSRect part{{own.origin.x + dirty.origin.x / sx, 0}, {dirty.size.width / sx, dirty.size.height / sy}};
    const double top = dirty.origin.y / sy;
    part.origin.y = isFlipped() ? own.origin.y + top : own.origin.y + own.size.height - top - part.size.height;
    velt::send(id(static_cast<NSObject*>(this)), VELT_SELECTOR("drawRect:"), VELT_ID(part));
}

// The keyboard.

id NSView::nextKeyView() const { return nextKeyView_; }
id NSView::previousKeyView() const { return id(static_cast<NSObject*>(previousKeyView_)); }

void NSView::setNextKeyView(NSView* view) {
    // Several views may have the same next one; the last that was given it is the one before it.
    NSView* before = velt::is<NSView>(nextKeyView_) ? velt::as<NSView>(nextKeyView_) : nullptr;
    if (before && before->previousKeyView_ == this) before->previousKeyView_ = nullptr;
    nextKeyView_ = id(static_cast<NSObject*>(view));
    if (view) view->previousKeyView_ = this;
}

bool NSView::canBecomeKeyView() const {
    if (!window_ || isHiddenOrHasHiddenAncestor()) return false;
    return VELT_CBOOL(
        velt::send(id(static_cast<NSObject*>(const_cast<NSView*>(this))), VELT_SELECTOR("acceptsFirstResponder")));
}

// The widget.

QWidget& NSView::widget() {
    if (widget_) return *widget_;
    widget_ = makeWidget().release();
    velt::setViewOf(*widget_, this);
    // Within its place from the start: a widget without one is a window, and moving it tells it everything anew.
    if (superview_ && superview_->widget_) widget_->setParent(&superview_->container());
    syncWidget(*widget_);
    for (const Ref<NSView>& view : subviews_) placeSubview(*view);
    return *widget_;
}

std::unique_ptr<QWidget> NSView::makeWidget() {
    velt::installViewRoles();
    return std::make_unique<velt::ViewWidget>();
}

void NSView::syncWidget(QWidget& widget) {
    widget.setToolTip(velt::qtText(toolTip_));
    const bool takesKeys =
        VELT_CBOOL(velt::send(id(static_cast<NSObject*>(this)), VELT_SELECTOR("acceptsFirstResponder")));
    widget.setFocusPolicy(takesKeys ? Qt::StrongFocus : Qt::NoFocus);
    widget.setMouseTracking(window_ && window_->acceptsMouseMovedEvents());
    widget.update();
}

void NSView::changed() {
    if (!widget_) return;
    syncWidget(*widget_);
    velt::namesMayHaveChanged();
}

void NSView::placeSubviews() {
    if (!widget_) return;
    for (const Ref<NSView>& view : subviews_) placeSubview(*view);
}

void NSView::placeSubview(NSView& view) {
    if (!widget_) return;
    QWidget& shown = view.widget();
    QWidget& within = container();
    if (shown.parentWidget() != &within) shown.setParent(&within);
    // Edges are rounded, not sizes: views that meet in the program's coordinates meet on the screen.
    const NSRect own = bounds();
    const double sx = own.size.width != 0 ? frame_.size.width / own.size.width : 1;
    const double sy = own.size.height != 0 ? frame_.size.height / own.size.height : 1;
    const double left = (view.frame_.origin.x - own.origin.x) * sx, width = view.frame_.size.width * sx;
    const double bottom = (view.frame_.origin.y - own.origin.y) * sy, height = view.frame_.size.height * sy;
    const double top = isFlipped() ? bottom : frame_.size.height - bottom - height;
    const auto edge = [](double value) { return static_cast<int>(std::lround(std::clamp(value, -1e6, 1e6))); };
    const int x = edge(left), y = edge(top);
    shown.setGeometry(x, y, edge(left + width) - x, edge(top + height) - y);
    // Within a parent that is not shown yet it waits for that, as all of the toolkit's widgets do.
    if (shown.isHidden() != view.hidden_) shown.setVisible(!view.hidden_);
}

void NSView::visitOwned(velt::OwnedVisitor& visitor) {
    for (Ref<NSView>& view : subviews_) visitor.visit(view);
    NSResponder::visitOwned(visitor);
}

void NSView::describe(velt::ClassBuilder<NSView>& c) {
    c.property("frame", &NSView::frame, &NSView::setFrame)
        .property("bounds", &NSView::bounds, &NSView::setBounds)
        .property("autoresizingMask", &NSView::autoresizingMask, &NSView::setAutoresizingMask)
        .property("autoresizesSubviews", &NSView::autoresizesSubviews, &NSView::setAutoresizesSubviews)
        .flag("hidden", &NSView::isHidden, &NSView::setHidden)
        .property("toolTip", &NSView::toolTip, &NSView::setToolTip)
        .property("focusRingType", &NSView::focusRingType, &NSView::setFocusRingType)
        .property("nextKeyView", &NSView::nextKeyView, &NSView::setNextKeyView)
        .property("previousKeyView", &NSView::previousKeyView)
        .property("superview", &NSView::superview)
        .property("subviews", &NSView::subviews)
        .property("window", &NSView::window)
        .property("tag", &NSView::tag)
        .method("isHiddenOrHasHiddenAncestor", &NSView::isHiddenOrHasHiddenAncestor)
        .method("menuForEvent:", &NSView::menuForEvent)
        .method("isFlipped", &NSView::isFlipped)
        .method("setFrameOrigin:", &NSView::setFrameOrigin)
        .method("setFrameSize:", &NSView::setFrameSize)
        .method("setNeedsDisplay:", &NSView::setNeedsDisplay)
        .method("drawRect:", &NSView::drawRect)
        .method("addSubview:", &NSView::addSubview)
        .method("removeFromSuperview", &NSView::removeFromSuperview)
        .method("replaceSubview:with:", &NSView::replaceSubview)
        .method("viewWithTag:", &NSView::viewWithTag)
        .method("convertPoint:toView:", &NSView::convertPointToView)
        .method("convertPoint:fromView:", &NSView::convertPointFromView)
        .method("convertSize:toView:", &NSView::convertSizeToView)
        .method("convertRect:toView:", &NSView::convertRectToView)
        .method("convertRect:fromView:", &NSView::convertRectFromView)
        .method("isDescendantOf:",
                [](const id& self, const id* a) {
                    return VELT_ID(static_cast<BOOL>(velt::as<NSView>(self)->isDescendantOf(velt::to<NSView>(a[0]))));
                })
        .method("display",
                [](const id& self, const id*) {
                    velt::as<NSView>(self)->setNeedsDisplay(true);
                    return nil;
                })
        .method("enclosingScrollView",
                [](const id& self, const id*) {
                    return id(static_cast<NSObject*>(velt::enclosingScrollView(*velt::as<NSView>(self))));
                })
        .method("visibleRect",
                [](const id& self, const id*) { return VELT_ID(velt::visibleRect(*velt::as<NSView>(self))); })
        .method("scrollPoint:",
                [](const id& self, const id* a) {
                    velt::scrollPoint(*velt::as<NSView>(self), VELT_CNSPOINT(a[0]));
                    return nil;
                })
        .method("scrollRectToVisible:",
                [](const id& self, const id* a) {
                    return VELT_ID(
                        static_cast<BOOL>(velt::scrollRectToVisible(*velt::as<NSView>(self), VELT_CNSRECT(a[0]))));
                })
        .method("drawPageBorderWithSize:", [](const id&, const id*) { return id(); })
        .method("print:",
                [](const id& self, const id*) {
                    const id info = NSPrintInfo::sharedPrintInfo().copy();
                    velt::make<NSPrintOperation>(*velt::as<NSView>(self), *velt::as<NSPrintInfo>(info))->runOperation();
                    return id();
                })
        .owns(&NSView::toolTip_)
        .owns(&NSView::nextKeyView_);
}
