// The application, events, and the things that look like values: images, colours, fonts, cursors.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/applications.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// Makes an empty menu, kept in VELT_mSuppressSpotlightForHelp, the application's help menu, so that the real Help menu
/// gets no search field.
VELT_EXPORT id VELT_NSAPPLICATION_HIDESPOTLIGHTFORHELP(const id& application);
/// Brings the windows of the process of that number (through VELT_CBYTE) to the front, once it has one; it is waited
/// for while the process lives, some seconds at most. nil, or a negative status when it cannot be found; programs must
/// not use the result as a value.
VELT_EXPORT id VELT_NSAPPLICATION_SHOWOTHERAPPLICATION(const id& application, const id& process);

/// A new event of no type. Ignores its arguments.
VELT_EXPORT id VELT_NSEVENT_INIT(const id& owner, const char* action);
/// The first unit of an event's characters; 0 when it has none.
VELT_EXPORT id VELT_NSEVENT_KEY(const id& event);

/// A new empty image. Ignores its arguments.
VELT_EXPORT id VELT_NSIMAGE_INIT(const id& owner, const char* action);
/// An image itself, or the image of a file: a resource of the program by its name, or any file by its path. nil when
/// the file cannot be read; raises "'NSImage' expected" for what is neither an image nor a string. On any thread.
VELT_EXPORT id VELT_NSIMAGE_INIT(const id& owner, const char* action, const id& source);
/// A colour of components from 0 to 1 (each through VELT_CDOUBLE); raises "Function 'Color' failed" when one is no
/// number. On any thread.
VELT_EXPORT id VELT_NSCOLOR_INIT(const id& owner, const char* action, const id& red, const id& green, const id& blue,
                                 const id& alpha);
/// The font of a name (through VELT_CSTRING) and size in points (through VELT_CDOUBLE); raises "Function 'Font' failed"
/// when there is none of that name.
VELT_EXPORT id VELT_NSFONT_INIT(const id& owner, const char* action, const id& name, const id& size);
/// The receiver's font; raises "'NSFont' expected" when it answers with something else.
VELT_EXPORT id VELT_NSFONT_FONT(const id& receiver);
