// The language's built-in functions.
#pragma once

#include "VELTRuntime/builtins/collections.h"
#include "VELTRuntime/builtins/geometry.h"
#include "VELTRuntime/builtins/math.h"
#include "VELTRuntime/builtins/numbers.h"
#include "VELTRuntime/builtins/strings.h"
#include "VELTRuntime/builtins/text_files.h"
