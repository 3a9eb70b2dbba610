// The toolkit's mouse and key events as the messages that a view is sent by name.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

class QEvent;
class QKeyEvent;

namespace velt {

/// Sends the view that a widget shows the message for an event ("mouseDown:", "keyDown:", …). False for events that
/// have none. The clicks are those of the mouse button that is down.
bool sendEventMessage(NSView& view, const QWidget& widget, const QEvent& event, long clicks);

/// The same for the widget of a control, if the view's own class answers the message: a program's subclass that wants
/// the event in place of the control. True when it took it.
bool offerToProgram(NSView& view, const QWidget& widget, QEvent& event);

/// Offers a widget's events to the program's subclass whose view it shows or lies in, and its context menu to who asks
/// for one. What the subclass hands on with passOn() is left to the widget.
void watchEvents(QWidget& widget);

/// The view, or who comes behind it in the responder chain, answers that message itself.
bool somebodyAnswers(const NSView& view, Selector selector);

/// Offers the press of a key to the buttons and the like of a window that wait for it; whether one took it.
bool offerKeyEquivalent(NSWindow& window, const QKeyEvent& event) noexcept;

/// The view that has the keyboard among a window's widgets, from a widget outward; null when it is none.
NSView* viewAround(const QWidget* widget);

}  // namespace velt
