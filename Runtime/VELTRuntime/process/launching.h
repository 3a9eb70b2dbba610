// Opening files, addresses and applications on the desktop.
//
// An application is found by the name in its desktop entry, by its program's name or by its generic name, whatever the
// case. The names "Preview", "TextEdit", "Finder", "Safari" and "Interface Builder" stand for the user's default viewer
// of the file, text editor, file manager, browser and interface designer. What is started lives on by itself: it
// belongs to no terminal and no program waits for it.
#pragma once

#include "VELTRuntime/values/value.h"

// All return a Boolean: the application was found and started. Each raises "'String' expected" for a path or name that
// is no string.

/// Open a file with the viewer, the text editor, the file manager and the interface designer of the user.
VELT_EXPORT id VELT_PREVIEW(const id& path);
VELT_EXPORT id VELT_TEXTEDIT(const id& path);
VELT_EXPORT id VELT_FINDER(const id& path);
VELT_EXPORT id VELT_VELTINTERFACEBUILDER(const id& path);
/// Opens an address with the application for its kind; a path, or a text that is no address, as a file in the browser.
VELT_EXPORT id VELT_SAFARI(const id& text);
/// Opens a file with an application, or starts the application alone when the file is nil. The last argument is read as
/// a Boolean first; the desktop itself puts the application in front, whatever it says.
VELT_EXPORT id VELT_LAUNCH(const id& application, const id& file, const id& deactivate);
