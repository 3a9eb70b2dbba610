// Boxes, tab views, scroll views, split views and progress indicators.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/containers.def"
#include "VELTRuntime/ui/accessor_declarations.h"

// All are new, of no size and in no view. They have no action: the arguments are ignored.

/// A box with the title "Title".
VELT_EXPORT id VELT_NSBOX_INIT(const id& owner, const char* action);
/// The same box: the program sets the type that makes it a line. Programs rely on it.
VELT_EXPORT id VELT_VERTICALLINE_INIT(const id& owner, const char* action);
VELT_EXPORT id VELT_HORIZONTALLINE_INIT(const id& owner, const char* action);
/// A tab view without items.
VELT_EXPORT id VELT_NSTABVIEW_INIT(const id& owner, const char* action);
/// A scroll view without scrollers and document.
VELT_EXPORT id VELT_NSSCROLLVIEW_INIT(const id& owner, const char* action);
/// A split view whose panes lie one above the other.
VELT_EXPORT id VELT_NSSPLITVIEW_INIT(const id& owner, const char* action);
/// A split view whose panes lie side by side: its dividers are vertical.
VELT_EXPORT id VELT_VERTICALSPLITVIEW_INIT(const id& owner, const char* action);
/// The same as VELT_NSSPLITVIEW_INIT.
VELT_EXPORT id VELT_HORIZONTALSPLITVIEW_INIT(const id& owner, const char* action);
/// A bar from 0 to 100 that shows how far something has come.
VELT_EXPORT id VELT_NSPROGRESSINDICATOR_INIT(const id& owner, const char* action);
/// A moving bar.
VELT_EXPORT id VELT_INDETERMINATEPROGRESSINDICATOR_INIT(const id& owner, const char* action);
/// A turning wheel.
VELT_EXPORT id VELT_CIRCULARPROGRESSINDICATOR_INIT(const id& owner, const char* action);
