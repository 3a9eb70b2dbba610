// Other programs: run and wait for them, run the toolchain's steps, run them as tasks whose output comes piece by
// piece, open files and applications.
#pragma once

#include "VELTRuntime/process/launching.h"
#include "VELTRuntime/process/runners.h"
#include "VELTRuntime/process/task.h"
