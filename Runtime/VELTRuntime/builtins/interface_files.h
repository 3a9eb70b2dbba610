// Interface files: the objects of a window or of a whole interface, with their properties, outlets and actions, as a
// graphical designer writes them.
#pragma once

#include "VELTRuntime/values/value.h"

/// Loads "name.ui" from the main bundle's resource folder (the name through VELT_CSTRING, with or without ".ui") for an
/// owner: makes its objects, sets the owner's outlets (properties named as the objects) and connects the actions.
/// Boolean; when it fails, one line on standard error says why, and the owner is as it was.
VELT_EXPORT id VELT_NSOBJECT_LOADNIB(const id& owner, const id& name);
