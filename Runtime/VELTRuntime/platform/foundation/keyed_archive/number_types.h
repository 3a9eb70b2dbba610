// Numbers of an archive in the native type that they had when they were written.
#pragma once

#include "VELTRuntime/values/number.h"

namespace velt {

/// The number in the type of that code, or as it is for 0. Throws ArchiveDamage for a value that is no number or does
/// not fit, and for a code that is none.
id typedNumber(const id& value, char typeCode);

}  // namespace velt
