// Sheets: windows that lie on another one, at the top of its content, and keep a person from it until they are ended.
#pragma once

#include "VELTRuntime/platform/appkit/panels/modal_session.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <functional>

namespace velt {

/// Who is told of a sheet's end: the delegate is sent the message with the subject, the code and the context. Without a
/// delegate, or when it lacks the message, nobody is.
struct SheetEnd {
    id delegate;
    id selector;
    id subject;
    id context;
    /// The sheet is taken off the screen when the delegate has been told.
    bool ordersOut = false;
    /// The code when its window is closed.
    long aborted = kModalAborted;
};

/// A dialog of the toolkit's own that stands for a panel, in place of the panel's window.
struct SheetDialog {
    std::function<void(bool visible)> show;
    /// Takes what was answered and lets the dialog go, before the delegate is told.
    std::function<void(long code)> end;
};

/// Attaches a sheet to a window (null: it stands alone), now or when the window's other sheets have ended. Nothing
/// happens when it is a sheet already.
void beginSheet(NSWindow& sheet, NSWindow* window, const SheetEnd& end, SheetDialog dialog = {});
/// Ends a sheet with a code; nothing happens when it is none.
void endSheet(NSWindow& sheet, long code);
/// The window on which a sheet lay whose delegate is being told of its end; the window itself when it is no such sheet.
NSWindow& windowBehindEnded(NSWindow& window);
/// Something that kept a person from a window has left: the next sheet is shown, or the window gets the keyboard.
void sheetHasLeft(NSWindow& window);

}  // namespace velt
