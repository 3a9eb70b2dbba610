// Copying code units, of which most texts have few.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velt::text {

/// Copies a text; short ones by two copies that overlap, without a call.
inline void copyUnits(char16_t* to, std::u16string_view text) {
    const char16_t* from = text.data();
    const std::size_t length = text.size();
    const auto copyBoth = [&]<class Block>(Block) {
        constexpr std::size_t kUnits = sizeof(Block) / sizeof(char16_t);
        Block head, tail;
        std::memcpy(&head, from, sizeof head);
        std::memcpy(&tail, from + length - kUnits, sizeof tail);
        std::memcpy(to, &head, sizeof head);
        std::memcpy(to + length - kUnits, &tail, sizeof tail);
    };
    struct Sixteen {
        std::uint64_t halves[2];
    };
    if (length > 2 * sizeof(Sixteen) / sizeof(char16_t)) {
        std::memcpy(to, from, length * sizeof(char16_t));
    } else if (length >= 8) {
        copyBoth(Sixteen{});
    } else if (length >= 4) {
        copyBoth(std::uint64_t{});
    } else if (length >= 2) {
        copyBoth(std::uint32_t{});
    } else if (length == 1) {
        *to = *from;
    }
}

}  // namespace velt::text
