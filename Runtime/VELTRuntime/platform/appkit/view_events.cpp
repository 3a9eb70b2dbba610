#include "VELTRuntime/platform/appkit/view_events.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/menus/context_menu.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWheelEvent>
#include <algorithm>
#include <optional>

namespace velt {

namespace {

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

/// What a view is told of an event.
struct Message {
    Selector selector;
    Type type;
};

Message buttonMessage(Qt::MouseButton button, const ButtonTypes& types) {
    if (button == Qt::LeftButton) return {Selector::named(types.leftSelector), types.left};
    if (button == Qt::RightButton) return {Selector::named(types.rightSelector), types.right};
    return {Selector::named(types.otherSelector), types.other};
}

/// The button that a movement drags with; none when it does not.
Qt::MouseButton draggedButton(const QMouseEvent& event) {
    if (event.buttons() == Qt::NoButton) return Qt::NoButton;
    if (event.buttons() & Qt::LeftButton) return Qt::LeftButton;
    return event.buttons() & Qt::RightButton ? Qt::RightButton : Qt::MiddleButton;
}

Message keyMessage(const QKeyEvent& event, bool down) {
    if (isModifierKey(event.key())) return {VELT_SELECTOR("flagsChanged:"), Type::FlagsChanged};
    if (down) return {VELT_SELECTOR("keyDown:"), Type::KeyDown};
    return {VELT_SELECTOR("keyUp:"), Type::KeyUp};
}

std::optional<Message> messageFor(const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: return buttonMessage(static_cast<const QMouseEvent&>(event).button(), kDown);
    case QEvent::MouseButtonRelease: return buttonMessage(static_cast<const QMouseEvent&>(event).button(), kUp);
    case QEvent::MouseMove: {
        const Qt::MouseButton button = draggedButton(static_cast<const QMouseEvent&>(event));
        if (button == Qt::NoButton) return Message{VELT_SELECTOR("mouseMoved:"), Type::MouseMoved};
        return buttonMessage(button, kDragged);
    }
    case QEvent::Enter: return Message{VELT_SELECTOR("mouseEntered:"), Type::MouseEntered};
    case QEvent::Leave: return Message{VELT_SELECTOR("mouseExited:"), Type::MouseExited};
    case QEvent::Wheel: return Message{VELT_SELECTOR("scrollWheel:"), Type::ScrollWheel};
    case QEvent::KeyPress: return keyMessage(static_cast<const QKeyEvent&>(event), true);
    case QEvent::KeyRelease: return keyMessage(static_cast<const QKeyEvent&>(event), false);
    default: return std::nullopt;
    }
}

NSPoint locationInWindow(const QWidget& widget, QPointF position, const NSView& view) {
    const NSWindow* window = view.windowPointer();
    if (!window) return {position.x(), position.y()};
    return window->basePointOf(widget, {position.x(), position.y()});
}

Ref<NSEvent> eventFor(NSView& view, const QWidget& widget, const QEvent& event, Type type, long clicks) {
    NSWindow* window = view.windowPointer();
    if (event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease)
        return NSEvent::ofKey(type, static_cast<const QKeyEvent&>(event), window);
    if (event.type() == QEvent::Leave) {
        const QPointF position = widget.mapFromGlobal(QCursor::pos());
        return NSEvent::ofMouse(type, locationInWindow(widget, position, view),
                                modifiersOf(QApplication::keyboardModifiers().toInt()), 0, 0, window);
    }
    const auto& mouse = static_cast<const QSinglePointEvent&>(event);
    const long button = mouse.button() == Qt::RightButton ? 1 : mouse.button() == Qt::MiddleButton ? 2 : 0;
    Ref<NSEvent> made = NSEvent::ofMouse(type, locationInWindow(widget, mouse.position(), view),
                                         modifiersOf(mouse.modifiers().toInt()), button, clicks, window);
    if (event.type() == QEvent::Wheel) {
        const QPoint delta = static_cast<const QWheelEvent&>(event).angleDelta();
        constexpr double kUnitsPerLine = 120;
        made->setDelta({delta.x() / kUnitsPerLine, delta.y() / kUnitsPerLine});
    }
    return made;
}

/// Offers an event to the view's class. Only what watches a control's widget lets the class leave the event to it.
bool offer(NSView& view, const QWidget& widget, QEvent& event, bool mayLeave) {
    const std::optional<Message> message = messageFor(event);
    if (!message || !answersItself(view, message->selector)) return false;
    const long clicks = event.type() == QEvent::MouseButtonDblClick ? 2 : 1;
    const Ref<NSEvent> told = eventFor(view, widget, event, message->type, clicks);
    bool isLeft = false;
    if (mayLeave) {
        const OfferedEvent offered(view, *told);
        deliver(view, message->selector, told);
        isLeft = offered.isLeft();
    } else {
        deliver(view, message->selector, told);
    }
    if (isLeft) return false;
    event.accept();
    return true;
}

/// The event was offered before: it comes from a part of the control that left it, or is about crossing into a part.
bool wasOffered(const QWidget& widget, const QEvent& event);

/// Hands a widget's events to a program's subclass that answers them itself.
class EventWatch final : public QObject {
public:
    explicit EventWatch(QWidget& widget) : QObject(&widget) { widget.installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* widget = static_cast<QWidget*>(watched);
        NSView* view = viewAround(widget);
        if (!view || wasOffered(*widget, *event)) return false;
        if (event->type() == QEvent::ContextMenu) {
            return showContextMenu(*view, *static_cast<QContextMenuEvent*>(event));
        }
        return offer(*view, *widget, *event, true);
    }
};

bool isWatched(const QWidget* widget) {
    if (!widget) return false;
    const QObjectList& parts = widget->children();
    return std::any_of(parts.begin(), parts.end(),
                       [](const QObject* part) { return dynamic_cast<const EventWatch*>(part) != nullptr; });
}

bool wasOffered(const QWidget& widget, const QEvent& event) {
    switch (event.type()) {
    case QEvent::Enter:
    case QEvent::Leave: return !viewOf(&widget);
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const QWidget* focus = widget.window()->focusWidget();
        return focus && focus != &widget && widget.isAncestorOf(focus) && isWatched(focus);
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        return isWatched(widget.childAt(static_cast<const QSinglePointEvent&>(event).position().toPoint()));
    default: return false;
    }
}

}  // namespace

void watchEvents(QWidget& widget) { new EventWatch(widget); }

bool sendEventMessage(NSView& view, const QWidget& widget, const QEvent& event, long clicks) {
    const std::optional<Message> message = messageFor(event);
    if (!message) return false;
    deliver(view, message->selector, eventFor(view, widget, event, message->type, clicks));
    return true;
}

bool offerToProgram(NSView& view, const QWidget& widget, QEvent& event) { return offer(view, widget, event, false); }

bool somebodyAnswers(const NSView& view, Selector selector) {
    const Method* passesOn = NSResponder::entry().method(selector);
    const id first(const_cast<NSView*>(&view));
    return !findResponder(first, [&](const id& responder) {
                const Method* own = classOf(responder)->method(selector);
                return own && own != passesOn;
            }).isNil();
}

bool offerKeyEquivalent(NSWindow& window, const QKeyEvent& event) noexcept {
    const Ref<NSWindow> kept(&window);
    bool taken = false;
    runReported([&] {
        const Ref<NSEvent> made = NSEvent::ofKey(Type::KeyDown, event, kept.get());
        const CurrentEvent scope(made);
        taken = kept->performKeyEquivalent(*made);
    });
    return taken;
}

NSView* viewAround(const QWidget* widget) {
    for (; widget && !widget->isWindow(); widget = widget->parentWidget()) {
        if (NSView* view = viewOf(widget)) return view;
    }
    return nullptr;
}

}  // namespace velt
