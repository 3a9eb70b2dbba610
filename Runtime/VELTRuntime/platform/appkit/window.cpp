#include "VELTRuntime/platform/appkit/window.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/menus/menu_bar.h"
#include "VELTRuntime/platform/appkit/panel.h"
#include "VELTRuntime/platform/appkit/panels/window_follower.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/screen.h"
#include "VELTRuntime/platform/appkit/toolbars/toolbar.h"
#include "VELTRuntime/platform/appkit/view_widget.h"
#include "VELTRuntime/platform/appkit/window_widget.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/object/id_of.h"
#include "VELTRuntime/platform/object/setting.h"

#include <QApplication>
#include <QImage>
#include <QLayout>
#include <QStyle>
#include <QToolBar>
#include <algorithm>
#include <cmath>

using velt::Ref;
using velt::WindowWidget;

namespace {

constexpr unsigned long kUsualStyle =
    velt::kTitledWindow | velt::kClosableWindow | velt::kMiniaturizableWindow | velt::kResizableWindow;

/// The toolkit's display in memory, which has no order of windows and says so at every attempt.
bool isInMemory() { return QGuiApplication::platformName() == QLatin1String("offscreen"); }

/// What stands above the content of a window that is not shown yet.
int heightOfBars(const QMainWindow& window) {
    int height = window.menuWidget() ? window.menuWidget()->sizeHint().height() : 0;
    for (const QToolBar* bar : window.findChildren<QToolBar*>(Qt::FindDirectChildrenOnly)) {
        if (!bar->isHidden()) height += bar->sizeHint().height();
    }
    return height;
}

QSize limit(NSSize content) {
    const auto extent = [](double value) { return static_cast<int>(std::clamp(std::round(value), 0.0, 16777215.0)); };
    return {extent(content.width), extent(content.height)};
}

}  // namespace

NSWindow::NSWindow() : NSWindow(NSRect{}, kUsualStyle) {}

NSWindow::NSWindow(NSRect contentRect, unsigned long styleMask)
    : frame_(velt::frameRectForContent(contentRect, styleMask)), styleMask_(styleMask),
      title_(velt::string(u"Window")) {
    velt::requireApplicationObject("a window");
    contentView_ = velt::make<NSView>(NSRect{{0, 0}, contentRect.size});
    contentView_->moveToWindow(this);
}

NSWindow::~NSWindow() { NSWindow::dissolve(); }

void NSWindow::dissolve() {
    if (velt::is<NSToolbar>(toolbar_) && velt::as<NSToolbar>(toolbar_)->windowPointer() == this) {
        velt::as<NSToolbar>(toolbar_)->windowGone();
    }
    velt::tellFollowers(*this, velt::LeaderChange::Gone);
    if (contentView_) contentView_->moveToWindow(nullptr);
    if (widget_) {
        auto* widget = static_cast<WindowWidget*>(std::exchange(widget_, nullptr));
        widget->forget();
        if (velt::isMainThread()) {
            if (contentView_ && contentView_->existingWidget()) {
                contentView_->existingWidget()->hide();
                contentView_->existingWidget()->setParent(nullptr);
            }
            widget->hide();
        }
        widget->deleteLater();
    }
    NSResponder::dissolve();
}

// Rectangles.

void NSWindow::setFrame(NSRect frame) {
    frame.size.width = std::clamp(frame.size.width, minSize_.width, std::max(minSize_.width, maxSize_.width));
    frame.size.height = std::clamp(frame.size.height, minSize_.height, std::max(minSize_.height, maxSize_.height));
    const NSRect before = std::exchange(frame_, frame);
    placed_ = true;
    contentView_->setFrame({{0, 0}, velt::contentRectForFrame(frame_, styleMask_).size});
    placeWidget();
    velt::tellFollowers(*this, velt::LeaderChange::Moved);
    if (before.size.width != frame.size.width || before.size.height != frame.size.height) {
        tell("windowDidResize:", "NSWindowDidResizeNotification");
    }
    if (before.origin.x != frame.origin.x || before.origin.y != frame.origin.y) {
        tell("windowDidMove:", "NSWindowDidMoveNotification");
    }
}

void NSWindow::setContentSize(NSSize size) {
    // The upper left corner stays.
    NSRect frame = velt::frameRectForContent({frame_.origin, size}, styleMask_);
    frame.origin.y += frame_.size.height - frame.size.height;
    setFrame(frame);
}

void NSWindow::setMinSize(NSSize size) {
    minSize_ = size;
    syncLimits();
}
void NSWindow::setMaxSize(NSSize size) {
    maxSize_ = size;
    syncLimits();
}
NSSize NSWindow::contentMinSize() const { return velt::contentRectForFrame({{}, minSize_}, styleMask_).size; }
NSSize NSWindow::contentMaxSize() const { return velt::contentRectForFrame({{}, maxSize_}, styleMask_).size; }
void NSWindow::setContentMinSize(NSSize size) { setMinSize(velt::frameRectForContent({{}, size}, styleMask_).size); }
void NSWindow::setContentMaxSize(NSSize size) { setMaxSize(velt::frameRectForContent({{}, size}, styleMask_).size); }

void NSWindow::setStyleMask(unsigned long mask) {
    if (mask == styleMask_) return;
    const NSRect content = velt::contentRectForFrame(frame_, styleMask_);
    styleMask_ = mask;
    frame_ = velt::frameRectForContent(content, mask);
    if (widget_) syncFlags();
}

double NSWindow::minFrameWidthWithTitle(const id& title, unsigned long mask) const {
    if (!(mask & velt::kTitledWindow)) return 0;
    constexpr double kButton = 24, kMargin = 16;
    int buttons = 0;
    for (const unsigned long button : {velt::kClosableWindow, velt::kMiniaturizableWindow, velt::kResizableWindow}) {
        if (mask & button) ++buttons;
    }
    const QFontMetricsF metrics(QApplication::font("QMdiSubWindowTitleBar"));
    return std::ceil(metrics.horizontalAdvance(velt::qtText(title)) + kButton * buttons + kMargin);
}

NSPoint NSWindow::convertBaseToScreen(NSPoint point) const {
    return {point.x + frame_.origin.x, point.y + frame_.origin.y};
}
NSPoint NSWindow::convertScreenToBase(NSPoint point) const {
    return {point.x - frame_.origin.x, point.y - frame_.origin.y};
}

NSPoint NSWindow::basePointOf(const QWidget& widget, NSPoint point) const {
    if (!widget_) return point;
    const QPointF within = widget.mapTo(widget_->centralWidget(), QPointF(point.x, point.y));
    return {within.x(), widget_->centralWidget()->height() - within.y()};
}

// Looks.

void NSWindow::setTitle(const id& title) {
    title_ = title;
    syncTitle();
}
void NSWindow::setDocumentEdited(bool flag) {
    documentEdited_ = flag;
    syncTitle();
}
void NSWindow::syncTitle() {
    if (!widget_) return;
    // The toolkit puts the desktop's sign for changes in the place of "[*]", and halves what is there twice.
    const QString place = QStringLiteral("[*]");
    QString text = velt::qtText(title_).replace(place, place + place);
    if (documentEdited_) text += place;
    // A title without the place is not to be seen while there are changes.
    if (!documentEdited_) widget_->setWindowModified(false);
    widget_->setWindowTitle(text);
    if (documentEdited_) widget_->setWindowModified(true);
}
void NSWindow::setAlphaValue(double alpha) {
    alpha_ = std::clamp(alpha, 0.0, 1.0);
    if (widget_) widget_->setWindowOpacity(alpha_);
}
void NSWindow::setBackgroundColor(const id& color) {
    backgroundColor_ = color;
    syncWidget();
}
void NSWindow::setOpaque(bool flag) {
    opaque_ = flag;
    syncWidget();
}
void NSWindow::setHasShadow(bool flag) {
    hasShadow_ = flag;
    if (widget_) syncFlags();
}
void NSWindow::setShowsResizeIndicator(bool flag) {
    showsResizeIndicator_ = flag;
    syncWidget();
}
void NSWindow::setDocumentIcon(const id& image) {
    documentIcon_ = image;
    syncWidget();
}
void NSWindow::setAcceptsMouseMovedEvents(bool flag) {
    acceptsMouseMoved_ = flag;
    if (!widget_) return;
    for (QWidget* widget : widget_->findChildren<QWidget*>()) {
        if (velt::viewOf(widget)) widget->setMouseTracking(flag);
    }
}
void NSWindow::setAllowsToolTipsWhenApplicationIsInactive(bool flag) {
    toolTipsWhenInactive_ = flag;
    if (widget_) widget_->setAttribute(Qt::WA_AlwaysShowToolTips, flag);
}

// Showing.

bool NSWindow::isVisible() const { return widget_ && widget_->isVisible() && !widget_->isMinimized(); }
bool NSWindow::isOpen() const {
    return widget_ && (widget_->isVisible() || NSApplication::sharedApplication().hasPutAway(*this));
}
bool NSWindow::isKeyWindow() const { return widget_ && widget_->isActiveWindow(); }
bool NSWindow::isMainWindow() const { return isKeyWindow() && !isPanel(); }
bool NSWindow::isMiniaturized() const { return widget_ && widget_->isMinimized(); }
bool NSWindow::isZoomed() const { return widget_ && widget_->isMaximized(); }

void NSWindow::show(bool activate) {
    QMainWindow& shown = widget();
    if (!placed_) placeWidget();
    shown.setAttribute(Qt::WA_ShowWithoutActivating, !activate);
    if (!shown.isVisible()) {
        if (initialFirstResponder_.isNil()) recalculateKeyViewLoop();
        velt::showMainMenu(*this);
        shown.show();
        NSApplication::sharedApplication().windowOpens(*this);
        velt::tellFollowers(*this, velt::LeaderChange::Shown);
        if (firstResponder() == velt::idOf(this)) makeFirstResponder(velt::firstKeyView(*this));
    } else if (shown.isMinimized()) {
        shown.showNormal();
    }
    if (!isInMemory()) shown.raise();  // nothing lies above another window there
    if (activate) makeKeyWindow();
}

void NSWindow::makeKeyAndOrderFront(const id&) { show(true); }
void NSWindow::orderFront(const id&) { show(false); }
void NSWindow::orderFrontRegardless() { show(false); }
void NSWindow::orderBack(const id&) {
    show(false);
    if (!isInMemory()) widget().lower();
}
void NSWindow::orderOut(const id&) {
    if (!isOpen()) return;
    const Ref<NSWindow> kept(this);
    widget_->hide();
    velt::tellFollowers(*this, velt::LeaderChange::Hidden);
    NSApplication::sharedApplication().windowCloses(*this);
}

void NSWindow::makeKeyWindow() {
    if (!widget_ || !widget_->isVisible()) return;
    widget_->activateWindow();
    // Nobody tells again of a window that was hidden and shown within one event: it had the keyboard all the time.
    const bool isSilent = QGuiApplication::focusWindow() == widget_->windowHandle();
    if (isSilent && !widget_->isActiveWindow()) QApplication::setActiveWindow(widget_);
}

void NSWindow::center() {
    const NSRect screen = velt::visibleScreenFrame();
    // A little above the middle, where the eye looks for it.
    const double x = screen.origin.x + (screen.size.width - frame_.size.width) / 2;
    const double y = screen.origin.y + (screen.size.height - frame_.size.height) * 2 / 3;
    setFrameOrigin({std::round(x), std::round(y)});
}

void NSWindow::zoom(const id&) {
    QMainWindow& shown = widget();
    if (shown.isMaximized()) {
        shown.showNormal();
    } else {
        shown.showMaximized();
    }
}
void NSWindow::miniaturize(const id&) { widget().showMinimized(); }
void NSWindow::deminiaturize(const id&) {
    if (widget_ && widget_->isMinimized()) widget_->showNormal();
}

bool NSWindow::mayClose() {
    static const velt::Selector asks = velt::Selector::named("windowShouldClose:");
    const id asked = delegate_.isNil() ? velt::idOf(this) : delegate_;
    return !velt::respondsTo(asked, asks) || VELT_CBOOL(velt::send(asked, asks, velt::idOf(this)));
}

void NSWindow::performClose(const id&) {
    if ((styleMask_ & velt::kClosableWindow) && mayClose()) close();
}

void NSWindow::close() {
    const Ref<NSWindow> kept(this);
    const bool wasOpen = isOpen();
    tell("windowWillClose:", "NSWindowWillCloseNotification");
    if (!wasOpen) return;
    widget_->hide();
    velt::tellFollowers(*this, velt::LeaderChange::Closed);
    NSApplication::sharedApplication().windowCloses(*this);
}

void NSWindow::displayIfNeeded() {
    if (widget_ && widget_->isVisible()) widget_->repaint();
}

// Contents.

void NSWindow::setContentView(NSView* view) {
    if (view == contentView_.get()) return;
    Ref<NSView> next = view ? Ref<NSView>(view) : velt::make<NSView>();
    next->removeFromSuperview();
    if (contentView_) {
        contentView_->moveToWindow(nullptr);
        if (QWidget* widget = contentView_->existingWidget()) {
            widget->hide();
            widget->setParent(nullptr);
        }
    }
    contentView_ = next;
    contentView_->moveToWindow(this);
    contentView_->setFrame({{0, 0}, velt::contentRectForFrame(frame_, styleMask_).size});
    syncWidget();
}

// The widget.

QMainWindow& NSWindow::widget() {
    if (widget_) return *widget_;
    widget_ = new WindowWidget(*this);
    syncFlags();
    syncWidget();
    syncLimits();
    placeWidget();
    return *widget_;
}

void NSWindow::syncFlags() {
    Qt::WindowFlags flags = isPanel() ? Qt::Tool : Qt::Window;
    if (isSheet()) {
        flags = Qt::Dialog | Qt::FramelessWindowHint;
    } else if (styleMask_ & velt::kTitledWindow) {
        flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
        if (styleMask_ & velt::kClosableWindow) flags |= Qt::WindowCloseButtonHint;
        if (styleMask_ & velt::kMiniaturizableWindow) flags |= Qt::WindowMinimizeButtonHint;
        if (styleMask_ & velt::kResizableWindow) flags |= Qt::WindowMaximizeButtonHint;
    } else {
        flags |= Qt::FramelessWindowHint;
    }
    if (!hasShadow_) flags |= Qt::NoDropShadowWindowHint;
    const auto* panel = dynamic_cast<const NSPanel*>(this);
    if (panel && panel->isFloatingPanel()) flags |= Qt::WindowStaysOnTopHint;
    const bool wasVisible = widget_->isVisible();
    widget_->setWindowFlags(flags);  // hides it
    if (wasVisible) widget_->show();
    syncLimits();
}

void NSWindow::syncLimits() {
    if (!widget_) return;
    QWidget* content = widget_->centralWidget();
    const NSSize now = velt::contentRectForFrame(frame_, styleMask_).size;
    if (styleMask_ & velt::kResizableWindow) {
        content->setMinimumSize(limit(contentMinSize()));
        content->setMaximumSize(limit(contentMaxSize()));
    } else {
        content->setFixedSize(limit(now));
    }
}

void NSWindow::syncWidget() {
    if (!widget_) return;
    syncTitle();
    widget_->setWindowOpacity(alpha_);
    widget_->setAttribute(Qt::WA_TranslucentBackground, !opaque_);
    widget_->setAttribute(Qt::WA_AlwaysShowToolTips, toolTipsWhenInactive_);
    if (velt::is<NSColor>(backgroundColor_)) {
        QPalette palette = widget_->palette();
        palette.setColor(QPalette::Window, velt::qtColor(*velt::as<NSColor>(backgroundColor_)));
        widget_->setPalette(palette);
        widget_->setAutoFillBackground(true);
    } else if (widget_->testAttribute(Qt::WA_SetPalette)) {
        widget_->setPalette(QPalette());
    }
    if (velt::is<NSImage>(documentIcon_)) {
        widget_->setWindowIcon(QIcon(QPixmap::fromImage(velt::as<NSImage>(documentIcon_)->picture())));
    } else if (widget_->testAttribute(Qt::WA_SetWindowIcon)) {
        widget_->setWindowIcon(QIcon());
    }
    QWidget& content = contentView_->widget();
    if (content.parentWidget() != widget_->centralWidget()) content.setParent(widget_->centralWidget());
    content.setGeometry(widget_->centralWidget()->rect());
    content.setVisible(!contentView_->isHidden());
}

void NSWindow::placeWidget() {
    if (!widget_) return;
    setWidgetGeometry();
    // The holder may have been laid out at once, while its reports were not wanted.
    QWidget* shown = contentView_->existingWidget();
    if (shown && widget_->isVisible()) shown->setGeometry(widget_->centralWidget()->rect());
}

void NSWindow::setWidgetGeometry() {
    const velt::Setting placing(placing_, true);
    // A menu bar and toolbars are above the content, outside of the frame's arithmetic.
    const int extra = widget_->isVisible() ? std::max(0, widget_->height() - widget_->centralWidget()->height())
                                           : heightOfBars(*widget_);
    syncLimits();
    // What the content may be limits the window at once, not only when its layout is looked at next.
    widget_->layout()->activate();
    const NSRect content = velt::contentRectForFrame(frame_, styleMask_);
    const int height = static_cast<int>(std::lround(content.size.height)) + extra;
    const int top = static_cast<int>(std::lround(velt::mainScreenHeight() - content.origin.y)) - height;
    // The toolkit never shows what has no size; a window without content is its title bar.
    const QRect rect(static_cast<int>(std::lround(content.origin.x)), top,
                     std::max(1, static_cast<int>(std::lround(content.size.width))), std::max(1, height));
    if (placed_) {
        widget_->setGeometry(rect);
    } else {
        widget_->resize(rect.size());
    }
}

void NSWindow::changeBar(const std::function<void(QMainWindow&)>& change) {
    QMainWindow& shown = widget();
    {
        const velt::Setting placing(placing_, true);
        change(shown);
        shown.layout()->activate();
    }
    placeWidget();
}

void NSWindow::geometryChanged() {
    if (!widget_ || !widget_->isVisible() || placing_) return;
    const Ref<NSWindow> kept(this);
    const QRect client = widget_->geometry();
    QSize content = widget_->centralWidget()->size();
    const NSSize wanted = velt::contentRectForFrame(frame_, styleMask_).size;
    if (content.width() == 1 && wanted.width <= 0) content.setWidth(0);
    if (content.height() == 1 && wanted.height <= 0) content.setHeight(0);
    NSRect next{{static_cast<double>(client.x()), velt::mainScreenHeight() - client.y() - client.height()},
                {static_cast<double>(content.width()), static_cast<double>(content.height())}};
    next = velt::frameRectForContent(next, styleMask_);
    const NSRect before = std::exchange(frame_, next);
    placed_ = true;
    if (QWidget* widget = contentView_->existingWidget()) widget->setGeometry(widget_->centralWidget()->rect());
    velt::tellFollowers(*this, velt::LeaderChange::Moved);
    const bool resized = before.size.width != next.size.width || before.size.height != next.size.height;
    if (resized) {
        contentView_->setFrame({{0, 0}, velt::contentRectForFrame(frame_, styleMask_).size});
        tell("windowDidResize:", "NSWindowDidResizeNotification");
    }
    if (before.origin.x != next.origin.x || before.origin.y != next.origin.y) {
        tell("windowDidMove:", "NSWindowDidMoveNotification");
    }
}

void NSWindow::activationChanged(bool active) {
    if (active == wasKey_) return;
    wasKey_ = active;
    const Ref<NSWindow> kept(this);
    if (active) {
        NSApplication::sharedApplication().windowBecomesKey(*this);
        tell("windowDidBecomeKey:", "NSWindowDidBecomeKeyNotification");
    } else {
        tell("windowDidResignKey:", "NSWindowDidResignKeyNotification");
    }
}

void NSWindow::stateChanged() {
    const bool miniaturized = isMiniaturized();
    if (std::exchange(wasMiniaturized_, miniaturized) == miniaturized) return;
    velt::tellFollowers(*this, miniaturized ? velt::LeaderChange::Hidden : velt::LeaderChange::Shown);
    if (miniaturized) {
        tell("windowDidMiniaturize:", "NSWindowDidMiniaturizeNotification");
    } else {
        tell("windowDidDeminiaturize:", "NSWindowDidDeminiaturizeNotification");
    }
}

void NSWindow::tell(std::string_view delegateSelector, std::string_view notification) {
    velt::tellDelegateAndObservers(delegate_, delegateSelector, notification, velt::idOf(this));
}

id NSWindow::ownNextResponder() const { return nil; }

void NSWindow::describe(velt::ClassBuilder<NSWindow>& c) {
    c.property("frame", &NSWindow::frame, &NSWindow::setFrame)
        .property("title", &NSWindow::title, &NSWindow::setTitle)
        .property("styleMask", &NSWindow::styleMask, &NSWindow::setStyleMask)
        .property("minSize", &NSWindow::minSize, &NSWindow::setMinSize)
        .property("maxSize", &NSWindow::maxSize, &NSWindow::setMaxSize)
        .property("contentMinSize", &NSWindow::contentMinSize, &NSWindow::setContentMinSize)
        .property("contentMaxSize", &NSWindow::contentMaxSize, &NSWindow::setContentMaxSize)
        .property("alphaValue", &NSWindow::alphaValue, &NSWindow::setAlphaValue)
        .property("backgroundColor", &NSWindow::backgroundColor, &NSWindow::setBackgroundColor)
        .property("contentView", &NSWindow::contentView, &NSWindow::setContentView)
        .property("initialFirstResponder", &NSWindow::initialFirstResponder, &NSWindow::setInitialFirstResponder)
        .property("defaultButtonCell", &NSWindow::defaultButtonCell, &NSWindow::setDefaultButtonCell)
        .property("delegate", &NSWindow::delegate, &NSWindow::setDelegate)
        .property("toolbar", &NSWindow::toolbar, &NSWindow::setToolbar)
        .property("documentIcon", &NSWindow::documentIcon, &NSWindow::setDocumentIcon)
        .flag("documentEdited", &NSWindow::isDocumentEdited, &NSWindow::setDocumentEdited)
        .flag("releasedWhenClosed", &NSWindow::isReleasedWhenClosed, &NSWindow::setReleasedWhenClosed)
        .property("showsToolbarButton", &NSWindow::showsToolbarButton, &NSWindow::setShowsToolbarButton)
        .property("showsResizeIndicator", &NSWindow::showsResizeIndicator, &NSWindow::setShowsResizeIndicator)
        .property("canHide", &NSWindow::canHide, &NSWindow::setCanHide)
        .property("hasShadow", &NSWindow::hasShadow, &NSWindow::setHasShadow)
        .property("hidesOnDeactivate", &NSWindow::hidesOnDeactivate, &NSWindow::setHidesOnDeactivate)
        .flag("movableByWindowBackground", &NSWindow::isMovableByWindowBackground,
              &NSWindow::setMovableByWindowBackground)
        .property("acceptsMouseMovedEvents", &NSWindow::acceptsMouseMovedEvents, &NSWindow::setAcceptsMouseMovedEvents)
        .property("allowsToolTipsWhenApplicationIsInactive", &NSWindow::allowsToolTipsWhenApplicationIsInactive,
                  &NSWindow::setAllowsToolTipsWhenApplicationIsInactive)
        .flag("opaque", &NSWindow::isOpaque, &NSWindow::setOpaque)
        .method("isVisible", &NSWindow::isVisible)
        .method("isKeyWindow", &NSWindow::isKeyWindow)
        .method("isMainWindow", &NSWindow::isMainWindow)
        .method("isMiniaturized", &NSWindow::isMiniaturized)
        .method("isZoomed", &NSWindow::isZoomed)
        .method("makeKeyAndOrderFront:", &NSWindow::makeKeyAndOrderFront)
        .method("orderFront:", &NSWindow::orderFront)
        .method("orderBack:", &NSWindow::orderBack)
        .method("orderOut:", &NSWindow::orderOut)
        .method("orderFrontRegardless", &NSWindow::orderFrontRegardless)
        .method("makeKeyWindow", &NSWindow::makeKeyWindow)
        .method("makeMainWindow", &NSWindow::makeMainWindow)
        .method("center", &NSWindow::center)
        .method("zoom:", &NSWindow::zoom)
        .method("miniaturize:", &NSWindow::miniaturize)
        .method("deminiaturize:", &NSWindow::deminiaturize)
        .method("close", &NSWindow::close)
        .method("performClose:", &NSWindow::performClose)
        .method("displayIfNeeded", &NSWindow::displayIfNeeded)
        .method("setFrameOrigin:", &NSWindow::setFrameOrigin)
        .method("setContentSize:", &NSWindow::setContentSize)
        .method("minFrameWidthWithTitle:styleMask:", &NSWindow::minFrameWidthWithTitle)
        .method("convertBaseToScreen:", &NSWindow::convertBaseToScreen)
        .method("convertScreenToBase:", &NSWindow::convertScreenToBase)
        .method("firstResponder", &NSWindow::firstResponder)
        .method("makeFirstResponder:", &NSWindow::makeFirstResponder)
        .method("disableKeyEquivalentForDefaultButtonCell", &NSWindow::disableKeyEquivalentForDefaultButtonCell)
        .method("enableKeyEquivalentForDefaultButtonCell", &NSWindow::enableKeyEquivalentForDefaultButtonCell)
        .method("recalculateKeyViewLoop", &NSWindow::recalculateKeyViewLoop)
        .method("selectNextKeyView:", &NSWindow::selectNextKeyView)
        .method("selectPreviousKeyView:", &NSWindow::selectPreviousKeyView)
        .method("selectKeyViewFollowingView:", &NSWindow::selectKeyViewFollowingView)
        .method("selectKeyViewPrecedingView:", &NSWindow::selectKeyViewPrecedingView)
        .method("runToolbarCustomizationPalette:",
                [](const id& self, const id* sender) {
                    const id bar = velt::as<NSWindow>(self)->toolbar();
                    const velt::Selector asked = velt::Selector::named("runCustomizationPalette:");
                    if (velt::respondsTo(bar, asked)) velt::send(bar, asked, sender[0]);
                    return id();
                })
        .method("toggleToolbarShown:",
                [](const id& self, const id*) {
                    const id bar = velt::as<NSWindow>(self)->toolbar();
                    if (velt::is<NSToolbar>(bar)) {
                        velt::as<NSToolbar>(bar)->setVisible(!velt::as<NSToolbar>(bar)->isVisible());
                    }
                    return id();
                })
        .method("setFrame:display:",
                [](const id& self, const id* a) {
                    velt::as<NSWindow>(self)->setFrame(VELT_CNSRECT(a[0]));
                    return id();
                })
        .method("setFrame:display:animate:",
                [](const id& self, const id* a) {
                    NSWindow& window = *velt::as<NSWindow>(self);
                    const NSRect frame = VELT_CNSRECT(a[0]);
                    if (VELT_CBOOL(a[2])) {
                        window.setFrameAnimated(frame);
                    } else {
                        window.setFrame(frame);
                    }
                    return id();
                })
        .method("isSheet", &NSWindow::isSheet)
        .method("attachedSheet", &NSWindow::attachedSheet)
        .method("contentRectForFrameRect:styleMask:",
                [](const id&, const id* a) {
                    const auto mask = static_cast<unsigned long>(VELT_CINTEGER(a[1]));
                    return VELT_ID(velt::contentRectForFrame(VELT_CNSRECT(a[0]), mask));
                })
        .method("frameRectForContentRect:styleMask:",
                [](const id&, const id* a) {
                    const auto mask = static_cast<unsigned long>(VELT_CINTEGER(a[1]));
                    return VELT_ID(velt::frameRectForContent(VELT_CNSRECT(a[0]), mask));
                })
        .owns(&NSWindow::contentView_)
        .owns(&NSWindow::title_)
        .owns(&NSWindow::backgroundColor_)
        .owns(&NSWindow::documentIcon_)
        .owns(&NSWindow::delegate_)
        .owns(&NSWindow::toolbar_)
        .owns(&NSWindow::initialFirstResponder_)
        .owns(&NSWindow::defaultButtonCell_);
}

void NSPanel::setFloatingPanel(bool flag) {
    if (floating_ == flag) return;
    floating_ = flag;
    if (existingWidget()) syncFlags();
}

void NSPanel::describe(velt::ClassBuilder<NSPanel>& c) {
    c.flag("floatingPanel", &NSPanel::isFloatingPanel, &NSPanel::setFloatingPanel);
}
