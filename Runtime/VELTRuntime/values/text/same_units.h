// Comparing code units for equality, of which most keys have few.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velt::text {

/// The texts have the same units; short ones are compared by blocks that overlap, without a call.
inline bool isSameText(std::u16string_view a, std::u16string_view b) {
    const std::size_t length = a.size();
    if (length != b.size()) return false;
    const auto hasSameEnds = [&]<class Block>(Block) {
        constexpr std::size_t kUnits = sizeof(Block) / sizeof(char16_t);
        Block head, tail, otherHead, otherTail;
        std::memcpy(&head, a.data(), sizeof head);
        std::memcpy(&tail, a.data() + length - kUnits, sizeof tail);
        std::memcpy(&otherHead, b.data(), sizeof otherHead);
        std::memcpy(&otherTail, b.data() + length - kUnits, sizeof otherTail);
        return ((head ^ otherHead) | (tail ^ otherTail)) == 0;
    };
    if (length > 2 * sizeof(std::uint64_t) / sizeof(char16_t)) {
        return std::memcmp(a.data(), b.data(), length * sizeof(char16_t)) == 0;
    }
    if (length >= 4) return hasSameEnds(std::uint64_t{});
    if (length >= 2) return hasSameEnds(std::uint32_t{});
    return length == 0 || a[0] == b[0];
}

}  // namespace velt::text
