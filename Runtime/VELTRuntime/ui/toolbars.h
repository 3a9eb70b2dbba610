// Toolbars and their items.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/toolbars.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// A toolbar of that identifier, whose delegate, which supplies its items, is the owner.
VELT_EXPORT id VELT_NSTOOLBAR_INIT(const id& owner, const char* identifier);
/// An item whose identifier is the text itself; its action is the owner's method of that name, if the owner has it,
/// and only then is the owner its target.
VELT_EXPORT id VELT_NSTOOLBARITEM_INIT(const id& owner, const char* action);
/// Show and hide a toolbar. nil.
VELT_EXPORT id VELT_NSTOOLBAR_SHOW(const id& toolbar);
VELT_EXPORT id VELT_NSTOOLBAR_HIDE(const id& toolbar);
/// Nothing at all, without an error: an identifier is fixed when its item is made; programs rely on it. nil.
VELT_EXPORT id VELT_NSTOOLBARITEM_ITEMIDENTIFIER(const id& item, const id& identifier);
