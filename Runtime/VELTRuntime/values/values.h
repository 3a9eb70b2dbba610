// The value model: boxing, conversions, type names, the position record and what is set when the library is loaded.
#pragma once

#include "VELTRuntime/values/assignment_checks.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/class_casts.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/load_state.h"
#include "VELTRuntime/values/position.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/type_names.h"
