#include "VELTRuntime/platform/appkit/view_widget.h"

#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/view.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QVariant>
#include <QWheelEvent>

namespace velt {

namespace {

constexpr const char* kViewProperty = "veltView";

using Type = NSEvent::Type;

/// Which of the three mouse buttons' types: left, right, other.
struct ButtonTypes {
    Type left, right, other;
    const char *leftSelector, *rightSelector, *otherSelector;
};
constexpr ButtonTypes kDown{Type::LeftMouseDown, Type::RightMouseDown, Type::OtherMouseDown,
                            "mouseDown:",        "rightMouseDown:",    "otherMouseDown:"};
constexpr ButtonTypes kUp{Type::LeftMouseUp, Type::RightMouseUp, Type::OtherMouseUp,
                          "mouseUp:",        "rightMouseUp:",    "otherMouseUp:"};
constexpr ButtonTypes kDragged{Type::LeftMouseDragged, Type::RightMouseDragged, Type::OtherMouseDragged,
                               "mouseDragged:",        "rightMouseDragged:",    "otherMouseDragged:"};

NSPoint locationInWindow(const QWidget& widget, QPointF position, const NSView& view) {
    const NSWindow* window = view.windowPointer();
    if (!window) return {position.x(), position.y()};
    return window->basePointOf(widget, {position.x(), position.y()});
}

Ref<NSEvent> mouseEvent(const QWidget& widget, const QSinglePointEvent& event, Type type, long clicks, NSView& view) {
    const long button = event.button() == Qt::RightButton ? 1 : event.button() == Qt::MiddleButton ? 2 : 0;
    return NSEvent::ofMouse(type, locationInWindow(widget, event.position(), view),
                            modifiersOf(event.modifiers().toInt()), button, clicks, view.windowPointer());
}

void sendButton(const QWidget& widget, const QMouseEvent& event, Qt::MouseButton button, const ButtonTypes& types,
                long clicks) {
    NSView* view = viewOf(&widget);
    if (!view) return;
    const bool isRight = button == Qt::RightButton, isLeft = button == Qt::LeftButton;
    const Type type = isLeft ? types.left : isRight ? types.right : types.other;
    const char* selector = isLeft ? types.leftSelector : isRight ? types.rightSelector : types.otherSelector;
    deliver(*view, Selector::named(selector), mouseEvent(widget, event, type, clicks, *view));
}

void sendKey(const QWidget& widget, QKeyEvent& event, Type type, const char* selector) {
    NSView* view = viewOf(&widget);
    if (!view) return;
    deliver(*view, Selector::named(selector), NSEvent::ofKey(type, event, view->windowPointer()));
    event.accept();
}

}  // namespace

NSView* viewOf(const QWidget* widget) {
    if (!widget) return nullptr;
    return static_cast<NSView*>(widget->property(kViewProperty).value<void*>());
}

void setViewOf(QWidget& widget, NSView* view) {
    widget.setProperty(kViewProperty, QVariant::fromValue(static_cast<void*>(view)));
}

void ViewWidget::paintEvent(QPaintEvent* event) {
    NSView* view = viewOf(this);
    if (!view) return;
    const Ref<NSView> kept(view);
    QPainter painter(this);
    const QRectF dirty = event->rect();
    runReported([&] { view->draw(painter, {{dirty.x(), dirty.y()}, {dirty.width(), dirty.height()}}); });
}

void ViewWidget::mousePressEvent(QMouseEvent* event) {
    clicks_ = 1;
    if (NSView* view = viewOf(this); view && view->canBecomeKeyView()) setFocus(Qt::MouseFocusReason);
    sendButton(*this, *event, event->button(), kDown, clicks_);
}

void ViewWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    clicks_ = 2;
    sendButton(*this, *event, event->button(), kDown, clicks_);
}

void ViewWidget::mouseReleaseEvent(QMouseEvent* event) { sendButton(*this, *event, event->button(), kUp, clicks_); }

void ViewWidget::mouseMoveEvent(QMouseEvent* event) {
    NSView* view = viewOf(this);
    if (!view) return;
    if (event->buttons() == Qt::NoButton) {
        deliver(*view, VELT_SELECTOR("mouseMoved:"), mouseEvent(*this, *event, Type::MouseMoved, 0, *view));
        return;
    }
    const Qt::MouseButton button = event->buttons() & Qt::LeftButton    ? Qt::LeftButton
                                   : event->buttons() & Qt::RightButton ? Qt::RightButton
                                                                        : Qt::MiddleButton;
    sendButton(*this, *event, button, kDragged, clicks_);
}

void ViewWidget::enterEvent(QEnterEvent* event) {
    if (NSView* view = viewOf(this)) {
        deliver(*view, VELT_SELECTOR("mouseEntered:"), mouseEvent(*this, *event, Type::MouseEntered, 0, *view));
    }
}

void ViewWidget::leaveEvent(QEvent*) {
    NSView* view = viewOf(this);
    if (!view) return;
    const QPointF position = mapFromGlobal(QCursor::pos());
    deliver(*view, VELT_SELECTOR("mouseExited:"),
            NSEvent::ofMouse(Type::MouseExited, locationInWindow(*this, position, *view),
                             modifiersOf(QApplication::keyboardModifiers().toInt()), 0, 0, view->windowPointer()));
}

void ViewWidget::wheelEvent(QWheelEvent* event) {
    NSView* view = viewOf(this);
    if (!view) return;
    Ref<NSEvent> made = mouseEvent(*this, *event, Type::ScrollWheel, 0, *view);
    constexpr double kUnitsPerLine = 120;
    made->setDelta({event->angleDelta().x() / kUnitsPerLine, event->angleDelta().y() / kUnitsPerLine});
    if (answersItself(*view, VELT_SELECTOR("scrollWheel:"))) {
        deliver(*view, VELT_SELECTOR("scrollWheel:"), made);
    } else {
        event->ignore();  // an enclosing scroll view is a widget of the toolkit
    }
}

void ViewWidget::keyPressEvent(QKeyEvent* event) {
    const bool isModifier = event->key() >= Qt::Key_Shift && event->key() <= Qt::Key_ScrollLock;
    sendKey(*this, *event, isModifier ? Type::FlagsChanged : Type::KeyDown, isModifier ? "flagsChanged:" : "keyDown:");
}

void ViewWidget::keyReleaseEvent(QKeyEvent* event) {
    const bool isModifier = event->key() >= Qt::Key_Shift && event->key() <= Qt::Key_ScrollLock;
    sendKey(*this, *event, isModifier ? Type::FlagsChanged : Type::KeyUp, isModifier ? "flagsChanged:" : "keyUp:");
}

void ViewWidget::contextMenuEvent(QContextMenuEvent* event) { event->ignore(); }

bool ViewWidget::focusNextPrevChild(bool next) {
    NSView* view = viewOf(this);
    NSWindow* window = view ? view->windowPointer() : nullptr;
    return window ? window->moveKeyView(*view, next) : QWidget::focusNextPrevChild(next);
}

}  // namespace velt
