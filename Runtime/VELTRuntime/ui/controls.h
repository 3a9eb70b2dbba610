// What all controls and cells share.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/controls.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// The font of a control and of a cell; raises "'NSFont' expected" when it answers with something else.
VELT_EXPORT id VELT_NSCONTROL_FONT(const id& control);
VELT_EXPORT id VELT_NSCELL_FONT(const id& cell);

/// Always a new empty string; programs rely on it.
VELT_EXPORT id VELT_NSCONTROL_ACTIONNAME(const id& control);
/// Lets the control call a method of its target: the one of that name with a colon behind it, or else the one of that
/// name. Nothing when the target has neither. The name goes through VELT_CSTRING.
VELT_EXPORT id VELT_NSCONTROL_ACTIONNAME(const id& control, const id& name);

/// A text cell with the empty string or a text; its action as for controls.
VELT_EXPORT id VELT_NSCELL_INIT(const id& owner, const char* action);
VELT_EXPORT id VELT_NSCELL_INIT(const id& owner, const char* action, const id& text);
