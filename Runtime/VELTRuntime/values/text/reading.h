// How a text reads as a number or a truth value. Any text has a reading; what is no number reads as zero.
#pragma once

#include "VELTRuntime/export.h"

#include <cstdint>
#include <string_view>

namespace velt::text {

/// Leading white space, an optional sign, then decimal digits up to the first other character. Without digits 0; beyond
/// 64 bits the largest or smallest integer.
VELT_EXPORT std::int64_t integerReading(std::u16string_view text);

/// Leading white space, then a decimal number with optional sign, fraction and exponent; the rest is ignored. Correctly
/// rounded, in any locale. Without a number 0; too large numbers give an infinity. Hexadecimal digits, "inf" and "nan"
/// are no numbers.
VELT_EXPORT double doubleReading(std::u16string_view text);
/// The same, rounded once to a float.
VELT_EXPORT float floatReading(std::u16string_view text);

/// Leading white space, an optional sign, leading zeros; true when then comes Y, y, T, t or a digit from 1 to 9.
VELT_EXPORT bool booleanReading(std::u16string_view text);

/// A character with the Unicode property White_Space.
VELT_EXPORT bool isWhiteSpace(char16_t unit);

}  // namespace velt::text
