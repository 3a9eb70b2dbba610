// Pop-up buttons and their cells.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/pop_up_buttons.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// A pop-up button without items and of no size; its action as for controls.
VELT_EXPORT id VELT_NSPOPUPBUTTON_INIT(const id& owner, const char* action);
/// A pop-up button cell without items and without a border; its action as for controls.
VELT_EXPORT id VELT_NSPOPUPBUTTONCELL_INIT(const id& owner, const char* action);

/// Adds an item of that title with an image.
VELT_EXPORT id VELT_NSPOPUPBUTTON_APPENDWITHIMAGE(const id& button, const id& image, const id& title);
/// Inserts an item of that title at a position, without and with an image.
VELT_EXPORT id VELT_NSPOPUPBUTTON_INSERT(const id& button, const id& index, const id& title);
VELT_EXPORT id VELT_NSPOPUPBUTTON_INSERTWITHIMAGE(const id& button, const id& index, const id& image, const id& title);
/// The position of an item, an integer; -1 when it is none of the button's.
VELT_EXPORT id VELT_NSPOPUPBUTTON_INDEX(const id& button, const id& item);
/// Leaves no item selected.
VELT_EXPORT id VELT_NSPOPUPBUTTON_UNSELECTALL(const id& button);
