// Which texts can be searched and compared unit by unit.
#pragma once

#include <string_view>

namespace velt::text {

/// Units below this neither combine nor are alternative spellings of each other.
inline constexpr char16_t kFirstCombining = 0x300;
/// Units below this are their own canonical decomposition.
inline constexpr char16_t kFirstDecomposed = 0xC0;

/// A character has another, single character beyond the combining limit as its canonical equivalent: K and the kelvin
/// sign, the semicolon and the Greek question mark, and so on.
inline bool hasAlias(char16_t unit) {
    return unit == u'K' || unit == u';' || unit == u'`' || unit == 0xB4 || unit == 0xB7;
}

/// A needle whose matches in any text are exactly its occurrences unit by unit that no combining character follows.
inline bool isLiteralNeedle(std::u16string_view needle) {
    for (const char16_t unit : needle) {
        if (unit >= kFirstDecomposed || hasAlias(unit)) return false;
    }
    return true;
}

}  // namespace velt::text
