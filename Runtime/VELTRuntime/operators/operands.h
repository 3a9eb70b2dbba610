// Which operands the operators of numbers take.
#pragma once

#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/number.h"

namespace velt {

inline constexpr const char* kNumberExpected = "Number expected";
inline constexpr const char* kBooleanOrNumberExpected = "'Boolean' or number expected";

/// Raises the cast failure of that reason unless all operands are numbers.
template <class... Words> void requireNumbers(const char* reason, Words... operands) {
    if (!(isNumber(operands) && ...)) raiseCast(reason);
}

}  // namespace velt
