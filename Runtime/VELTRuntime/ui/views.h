// Views: what every view, control or container has in common.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/views.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// A new plain view of no size. Ignores its arguments.
VELT_EXPORT id VELT_NSVIEW_INIT(const id& owner, const char* action);
/// The same: the program's own class draws in it.
VELT_EXPORT id VELT_CUSTOMVIEW_INIT(const id& owner, const char* action);

/// Takes the second view out of whatever holds it; the first one is not asked. Raises "'NSView' expected".
VELT_EXPORT id VELT_NSVIEW_REMOVE(const id& view, const id& removed);
/// Puts a view where another one is. Raises "'NSView' expected" for either.
VELT_EXPORT id VELT_NSVIEW_REPLACE(const id& view, const id& old, const id& with);

/// The view is drawn again when the window next is.
VELT_EXPORT id VELT_NSVIEW_REDRAW(const id& view);
/// Show and hide the view. nil.
VELT_EXPORT id VELT_NSVIEW_SHOW(const id& view);
VELT_EXPORT id VELT_NSVIEW_HIDE(const id& view);
/// The view is not hidden itself, a Boolean; False for nil.
VELT_EXPORT id VELT_NSVIEW_VISIBLE(const id& view);
VELT_EXPORT id VELT_NSVIEW_VISIBLE(const id& view, const id& flag);

/// One part of the frame, a Double; it is set to a whole number.
VELT_EXPORT id VELT_NSVIEW_X(const id& view);
VELT_EXPORT id VELT_NSVIEW_X(const id& view, const id& value);
VELT_EXPORT id VELT_NSVIEW_Y(const id& view);
VELT_EXPORT id VELT_NSVIEW_Y(const id& view, const id& value);
VELT_EXPORT id VELT_NSVIEW_WIDTH(const id& view);
VELT_EXPORT id VELT_NSVIEW_WIDTH(const id& view, const id& value);
VELT_EXPORT id VELT_NSVIEW_HEIGHT(const id& view);
VELT_EXPORT id VELT_NSVIEW_HEIGHT(const id& view, const id& value);

/// Only read: raise "VLCastException" with "'Tag' could be changed (read only property)" and "'Window' could be changed
/// (read only property)", whatever they are given.
VELT_EXPORT id VELT_NSVIEW_TAG(const id& view, const id& value);
VELT_EXPORT id VELT_NSVIEW_WINDOW(const id& view, const id& value);
