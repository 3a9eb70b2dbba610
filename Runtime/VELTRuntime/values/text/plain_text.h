// Which texts can be searched and compared unit by unit.
#pragma once

#include <cstddef>
#include <string_view>

namespace velt::text {

/// Units below this neither combine nor are alternative spellings of each other.
inline constexpr char16_t kFirstCombining = 0x300;
/// Units below this are their own canonical decomposition.
inline constexpr char16_t kFirstDecomposed = 0xC0;

/// All units of the text are below the limit.
inline bool allBelow(std::u16string_view text, char16_t limit) {
    constexpr std::size_t kBlock = 64;
    std::size_t at = 0;
    for (; at + kBlock <= text.size(); at += kBlock) {
        bool beyond = false;
        for (std::size_t i = 0; i < kBlock; ++i) beyond |= text[at + i] >= limit;
        if (beyond) return false;
    }
    for (; at < text.size(); ++at) {
        if (text[at] >= limit) return false;
    }
    return true;
}

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

/// Units below kFirstCombining that fold to several characters.
inline bool foldsToSeveral(char16_t unit) { return unit == 0xDF || unit == 0x130 || unit == 0x149 || unit == 0x1F0; }

}  // namespace velt::text
