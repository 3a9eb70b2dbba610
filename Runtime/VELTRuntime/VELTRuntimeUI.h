// Everything that a compiled program with windows calls.
#pragma once

#include "VELTRuntime/VELTRuntime.h"
#include "VELTRuntime/platform/appkit/image.h"
