// Views with a decorated background.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/background_views.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// Gives a background view the gradient from one colour to another. nil. Raises "'NSColor' expected" for either.
VELT_EXPORT id VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(const id& view, const id& beginning, const id& ending);
/// Gives it an image, or the one in a file of that name, with an opacity from 0 to 1. nil. Raises "'NSImage' expected",
/// for nil too.
VELT_EXPORT id VELT_VLBACKGROUNDVIEW_SETBACKGROUNDIMAGE(const id& view, const id& image, const id& alpha);
