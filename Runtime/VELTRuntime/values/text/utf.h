// UTF-8, ASCII and UTF-16: decoding and encoding of whole texts, and the code points of a text.
#pragma once

#include "VELTRuntime/export.h"

#include <optional>
#include <string>
#include <string_view>

namespace velt::text {

/// All bytes are below 0x80.
VELT_EXPORT bool isAscii(std::string_view bytes);
/// Writes the code units of ASCII bytes; as many units as bytes.
VELT_EXPORT void widenAscii(std::string_view bytes, char16_t* units);

/// The text of well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF), or nothing. A byte order
/// mark is part of the text.
VELT_EXPORT std::optional<std::u16string> fromUtf8(std::string_view bytes);
/// The text of any bytes: every maximal ill-formed part becomes one U+FFFD.
VELT_EXPORT std::u16string fromUtf8Lenient(std::string_view bytes);
/// The text of ASCII bytes: others become U+FFFD.
VELT_EXPORT std::u16string fromAscii(std::string_view bytes);
/// The UTF-8 bytes of a text: a surrogate without its partner becomes U+FFFD.
VELT_EXPORT std::string toUtf8(std::u16string_view text);

/// Half of a pair that stands for a code point beyond the 16-bit range; the first half, the second one.
constexpr bool isSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xE000; }
constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// The code point at a position and its length in units; a surrogate without its partner is its own.
struct CodePoint {
    char32_t value;
    std::size_t length;
};
inline CodePoint codePointAt(std::u16string_view text, std::size_t at) {
    const char32_t unit = text[at];
    if (isHighSurrogate(unit) && at + 1 < text.size() && isLowSurrogate(text[at + 1])) {
        return {0x10000 + ((unit - 0xD800) << 10) + (text[at + 1] - 0xDC00u), 2};
    }
    return {unit, 1};
}

}  // namespace velt::text
