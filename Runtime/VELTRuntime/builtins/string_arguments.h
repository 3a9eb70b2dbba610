// The arguments of the string built-ins.
#pragma once

#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/casing.h"

namespace velt {

/// Raises "'String' expected" unless all values are strings.
template <class... Values> void requireStrings(const Values&... values) {
    if (VELT_UNLIKELY(!(isString(values) && ...))) raiseCast("'String' expected");
}

inline text::Case caseRule(const id& respectCase) {
    return VELT_CBOOL(respectCase) ? text::Case::Respected : text::Case::Ignored;
}

/// A new string of the units of another one.
inline id piece(const id& string, std::size_t start, std::size_t length) {
    return make<NSMutableString>(asString(string), start, length);
}
inline id emptyString() { return make<NSMutableString>(std::u16string_view()); }

}  // namespace velt
