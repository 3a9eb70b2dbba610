// Buttons and their cells, image views, segmented controls.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/buttons.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// Always -1, whatever the button's type; programs rely on it.
VELT_EXPORT id VELT_NSBUTTON_BUTTONTYPE(const id& button);

// New buttons of no size, whose action is the owner's method of that name, if the owner has it.
#define VELT_BUTTON(kind, type, bezel) VELT_EXPORT id VELT_##kind##_INIT(const id& owner, const char* action);
#define VELT_INDICATOR_BUTTON(kind, type) VELT_BUTTON(kind, type, 0)
#include "VELTRuntime/ui/button_kinds.def"
/// A push button with a square border.
VELT_EXPORT id VELT_NSBUTTON_INIT(const id& owner, const char* action);
/// The cell of a switch; its action as for buttons.
VELT_EXPORT id VELT_NSBUTTONCELL_INIT(const id& owner, const char* action);

/// An image view, which may show an image (an image or the path of one); its action as for buttons.
VELT_EXPORT id VELT_NSIMAGEVIEW_INIT(const id& owner, const char* action);
VELT_EXPORT id VELT_NSIMAGEVIEW_INIT(const id& owner, const char* action, const id& image);
/// An image cell, the same way.
VELT_EXPORT id VELT_NSIMAGECELL_INIT(const id& owner, const char* action);
VELT_EXPORT id VELT_NSIMAGECELL_INIT(const id& owner, const char* action, const id& image);
/// A segmented control of three segments.
VELT_EXPORT id VELT_NSSEGMENTEDCONTROL_INIT(const id& owner, const char* action);
