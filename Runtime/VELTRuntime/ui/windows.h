// Windows, panels, responders and the first responder's actions.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/windows.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// A new window of no size that is its own delegate: titled, closable, miniaturizable, resizable. Ignores its
/// arguments.
VELT_EXPORT id VELT_NSWINDOW_INIT(const id& owner, const char* action);
/// A new panel of no size: titled, closable, resizable. Ignores its arguments.
VELT_EXPORT id VELT_NSPANEL_INIT(const id& owner, const char* action);

/// The frame, and one part of it. A part is set to a whole number.
VELT_EXPORT id VELT_NSWINDOW_FRAME(const id& window);
VELT_EXPORT id VELT_NSWINDOW_FRAME(const id& window, const id& frame);
VELT_EXPORT id VELT_NSWINDOW_X(const id& window);
VELT_EXPORT id VELT_NSWINDOW_X(const id& window, const id& value);
VELT_EXPORT id VELT_NSWINDOW_Y(const id& window);
VELT_EXPORT id VELT_NSWINDOW_Y(const id& window, const id& value);
VELT_EXPORT id VELT_NSWINDOW_WIDTH(const id& window);
VELT_EXPORT id VELT_NSWINDOW_WIDTH(const id& window, const id& value);
VELT_EXPORT id VELT_NSWINDOW_HEIGHT(const id& window);
VELT_EXPORT id VELT_NSWINDOW_HEIGHT(const id& window, const id& value);
/// Always 0; programs rely on it.
VELT_EXPORT id VELT_NSWINDOW_CONTENTSIZE(const id& window);

/// Conversions with the window's own style; the zero rectangle for nil.
VELT_EXPORT id VELT_NSWINDOW_CONTENTRECTFORFRAMERECT(const id& window, const id& rect);
VELT_EXPORT id VELT_NSWINDOW_FRAMERECTFORCONTENTRECT(const id& window, const id& rect);
/// The width that the window's title bar needs for a title.
VELT_EXPORT id VELT_NSWINDOW_MINFRAMEWIDTHWITHTITLE(const id& window, const id& title);

/// Puts a window into the middle of the screen and shows it, with the keyboard. nil.
VELT_EXPORT id VELT_NSWINDOW_CENTERANDSHOW(const id& window);
/// True brings the window to the front, False takes it off the screen.
VELT_EXPORT id VELT_NSWINDOW_VISIBLE(const id& window);
VELT_EXPORT id VELT_NSWINDOW_VISIBLE(const id& window, const id& flag);
/// Puts a view into the window; raises "'NSView' expected" for anything else, nil too.
VELT_EXPORT id VELT_NSWINDOW_APPEND(const id& window, const id& view);
/// Gives a responder the keyboard; whether it took it.
VELT_EXPORT id VELT_NSWINDOW_MAKEFIRSTRESPONDER(const id& window, const id& responder);
/// The image of the document that the window shows; it is set to an image, or to the one in the file of a path.
VELT_EXPORT id VELT_NSWINDOW_DOCUMENTICON(const id& window);
VELT_EXPORT id VELT_NSWINDOW_DOCUMENTICON(const id& window, const id& image);

/// Sends an action to whoever answers it in the responder chain, with nil or a sender; whether somebody did. A name
/// without a colon gets one. Raises "'String' expected". The first argument is ignored.
VELT_EXPORT id VELT_FIRSTRESPONDER_SENDACTION(const id& ignored, const id& name);
VELT_EXPORT id VELT_FIRSTRESPONDER_SENDACTION2(const id& ignored, const id& name, const id& sender);
