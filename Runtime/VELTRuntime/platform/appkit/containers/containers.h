// All containers, for programs.
#pragma once

#include "VELTRuntime/platform/appkit/containers/box.h"
#include "VELTRuntime/platform/appkit/containers/progress_indicator.h"
#include "VELTRuntime/platform/appkit/containers/scroll_view.h"
#include "VELTRuntime/platform/appkit/containers/split_view.h"
#include "VELTRuntime/platform/appkit/containers/tab_view.h"
