// Which texts can be searched and compared unit by unit.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velt::text {

/// Units below this neither combine nor are alternative spellings of each other.
inline constexpr char16_t kFirstCombining = 0x300;
/// Units below this are their own canonical decomposition.
inline constexpr char16_t kFirstDecomposed = 0xC0;

/// Eight units that are worked on at once: a vector of the compiler's own, which becomes whatever the processor has.
inline constexpr std::size_t kLanes = 8;
using Units = char16_t __attribute__((vector_size(kLanes * sizeof(char16_t))));

inline Units loadUnits(const char16_t* from) {
    Units units;
    std::memcpy(&units, from, sizeof units);
    return units;
}
inline Units filledWith(char16_t unit) { return Units{unit, unit, unit, unit, unit, unit, unit, unit}; }
/// The lanes in which a comparison of Units holds, taken one after the other.
class LaneMask {
public:
    template <class Mask> explicit LaneMask(const Mask& mask) {
        static_assert(sizeof mask == sizeof halves_);
        std::memcpy(halves_, &mask, sizeof halves_);
    }
    bool isAny() const { return (halves_[0] | halves_[1]) != 0; }
    std::size_t first() const {
        const auto bit = static_cast<std::size_t>(std::countr_zero(halves_[0] ? halves_[0] : halves_[1]));
        return (halves_[0] ? 0 : kLanes / 2) + bit / 16;
    }
    void removeFirst() {
        std::uint64_t& half = halves_[0] ? halves_[0] : halves_[1];
        half &= ~(std::uint64_t{0xFFFF} << (std::countr_zero(half) & ~15));
    }

private:
    static_assert(std::endian::native == std::endian::little, "the first lane is the lowest bits of the first half");
    std::uint64_t halves_[2];
};

/// All units of the text are below the limit.
inline bool allBelow(std::u16string_view text, char16_t limit) {
    const Units limits = filledWith(limit);
    std::size_t at = 0;
    for (; at + 4 * kLanes <= text.size(); at += 4 * kLanes) {
        const char16_t* from = text.data() + at;
        const auto beyond = (loadUnits(from) >= limits) | (loadUnits(from + kLanes) >= limits) |
                            (loadUnits(from + 2 * kLanes) >= limits) | (loadUnits(from + 3 * kLanes) >= limits);
        if (LaneMask(beyond).isAny()) return false;
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
