// Literals that generated code makes again and again.
#pragma once

#include "VELTRuntime/VELTRuntime.h"

namespace example {

inline id number(long value) { return VELT_ID(value); }
inline id boolean(bool value) { return VELT_ID(static_cast<BOOL>(value)); }

}  // namespace example
