// Everything that a compiled program without windows calls.
#pragma once

#include "VELTRuntime/builtins/builtins.h"
#include "VELTRuntime/operators/arithmetic.h"
#include "VELTRuntime/operators/comparison.h"
#include "VELTRuntime/operators/logic.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/cycles.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/values.h"
