// An object that is at hand by its address, as a value.
#pragma once

#include "VELTRuntime/values/value.h"

namespace velt {

/// The object as a value, which owns it too; nil for a null pointer. A method that promises not to change its object
/// can hand it on: values know no such promise.
inline id idOf(const NSObject* object) { return id(const_cast<NSObject*>(object)); }

}  // namespace velt
