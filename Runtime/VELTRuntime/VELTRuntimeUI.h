// Everything that a compiled program with windows calls.
#pragma once

#include "VELTRuntime/VELTRuntime.h"
#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/controls/button.h"
#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/platform/appkit/cursor.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/panel.h"
#include "VELTRuntime/platform/appkit/view.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/ui/buttons.h"
#include "VELTRuntime/ui/controls.h"
#include "VELTRuntime/ui/windows.h"
