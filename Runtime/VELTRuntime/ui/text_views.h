// Texts and text views.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/text_views.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// A new text view whose delegate is the owner; it has no action.
VELT_EXPORT id VELT_NSTEXTVIEW_INIT(const id& owner, const char* action);

/// The whole text, as it is. After setting it in an editor view, all of it is coloured anew.
VELT_EXPORT id VELT_NSTEXTVIEW_VALUE(const id& view);
VELT_EXPORT id VELT_NSTEXTVIEW_VALUE(const id& view, const id& text);
/// Appends a text (any value's) without attributes of its own, and goes to its end. This cannot be undone.
VELT_EXPORT id VELT_NSTEXTVIEW_APPEND(const id& view, const id& text);
/// 1 as an Integer when something is selected or there is an insertion point, otherwise 0; 0 for nil.
VELT_EXPORT id VELT_NSTEXTVIEW_HASSELECTION(const id& view);
/// Goes to the beginning of the text.
VELT_EXPORT id VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(const id& view);
/// The view's undo manager undoes, redoes, or says as a Boolean whether there is something to undo or redo.
VELT_EXPORT id VELT_NSTEXTVIEW_UNDO(const id& view);
VELT_EXPORT id VELT_NSTEXTVIEW_REDO(const id& view);
VELT_EXPORT id VELT_NSTEXTVIEW_CANUNDO(const id& view);
VELT_EXPORT id VELT_NSTEXTVIEW_CANREDO(const id& view);
