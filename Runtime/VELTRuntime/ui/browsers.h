// Browsers and outline views.
#pragma once

#include "VELTRuntime/ui/accessors.h"

/// A browser and an outline view of no size, without a delegate or a data source; their action as for controls.
VELT_EXPORT id VELT_NSBROWSER_INIT(const id& owner, const char* action);
VELT_EXPORT id VELT_NSOUTLINEVIEW_INIT(const id& owner, const char* action);
