// The language's built-in functions.
#pragma once

#include "VELTRuntime/builtins/archives.h"
#include "VELTRuntime/builtins/collections.h"
#include "VELTRuntime/builtins/geometry.h"
#include "VELTRuntime/builtins/interface_files.h"
#include "VELTRuntime/builtins/keyed_archives.h"
#include "VELTRuntime/builtins/math.h"
#include "VELTRuntime/builtins/numbers.h"
#include "VELTRuntime/builtins/objects.h"
#include "VELTRuntime/builtins/performing.h"
#include "VELTRuntime/builtins/strings.h"
#include "VELTRuntime/builtins/system.h"
#include "VELTRuntime/builtins/text_files.h"
#include "VELTRuntime/builtins/timers.h"
