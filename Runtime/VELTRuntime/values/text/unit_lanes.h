// Working on eight code units at once.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace velt::text {

/// Eight units that are worked on at once: a vector of the compiler's own, which becomes whatever the processor has.
inline constexpr std::size_t kLanes = 8;
using Units = char16_t __attribute__((vector_size(kLanes * sizeof(char16_t))));

inline Units loadUnits(const char16_t* from) {
    Units units;
    std::memcpy(&units, from, sizeof units);
    return units;
}
inline Units filledWith(char16_t unit) { return Units{unit, unit, unit, unit, unit, unit, unit, unit}; }
#if defined(__SSE2__)
using LaneBits = unsigned;  // two equal bits a lane
inline constexpr unsigned kBitsPerLane = 2;
template <class Mask> LaneBits laneBits(const Mask& mask) {
    return static_cast<LaneBits>(_mm_movemask_epi8(std::bit_cast<__m128i>(mask)));
}
template <class Mask> bool isAnyLane(const Mask& mask) { return laneBits(mask) != 0; }
#else
static_assert(std::endian::native == std::endian::little, "the first lane is in the lowest bits");
using LaneBits = std::uint64_t;  // eight equal bits a lane
inline constexpr unsigned kBitsPerLane = 8;
template <class Mask> LaneBits laneBits(const Mask& mask) {
    using Bytes = std::uint8_t __attribute__((vector_size(kLanes)));
    return std::bit_cast<LaneBits>(__builtin_convertvector(mask, Bytes));
}
template <class Mask> bool isAnyLane(const Mask& mask) {
    struct Halves {
        std::uint64_t low, high;
    };
    const auto halves = std::bit_cast<Halves>(mask);
    return (halves.low | halves.high) != 0;
}
#endif

/// The lanes in which a comparison of Units holds, taken one after the other from either side.
class LaneMask {
public:
    template <class Mask> explicit LaneMask(const Mask& mask) : bits_(laneBits(mask)) {}
    bool isAny() const { return bits_ != 0; }
    std::size_t first() const { return static_cast<std::size_t>(std::countr_zero(bits_)) / kBitsPerLane; }
    std::size_t last() const {
        return (sizeof bits_ * 8 - 1 - static_cast<std::size_t>(std::countl_zero(bits_))) / kBitsPerLane;
    }
    void remove(std::size_t lane) { bits_ &= ~(kLaneBits << (lane * kBitsPerLane)); }

private:
    static constexpr LaneBits kLaneBits = (LaneBits{1} << kBitsPerLane) - 1;
    LaneBits bits_;
};

/// All units of the text are below the limit.
inline bool allBelow(std::u16string_view text, char16_t limit) {
    const Units limits = filledWith(limit);
    std::size_t at = 0;
    for (; at + 4 * kLanes <= text.size(); at += 4 * kLanes) {
        const char16_t* from = text.data() + at;
        const auto beyond = (loadUnits(from) >= limits) | (loadUnits(from + kLanes) >= limits) |
                            (loadUnits(from + 2 * kLanes) >= limits) | (loadUnits(from + 3 * kLanes) >= limits);
        if (isAnyLane(beyond)) return false;
    }
    for (; at + kLanes <= text.size(); at += kLanes) {
        if (isAnyLane(loadUnits(text.data() + at) >= limits)) return false;
    }
    for (; at < text.size(); ++at) {
        if (text[at] >= limit) return false;
    }
    return true;
}

/// Length of the common beginning of two texts.
inline std::size_t commonLength(std::u16string_view a, std::u16string_view b) {
    const std::size_t shorter = a.size() < b.size() ? a.size() : b.size();
    std::size_t at = 0;
    for (; at + kLanes <= shorter; at += kLanes) {
        const LaneMask different(loadUnits(a.data() + at) != loadUnits(b.data() + at));
        if (different.isAny()) return at + different.first();
    }
    while (at < shorter && a[at] == b[at]) ++at;
    return at;
}

}  // namespace velt::text
