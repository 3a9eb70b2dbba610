// A hash of texts, made for the few units that most keys have.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velt::text {

/// Equal texts have equal hashes. The same on every run; no protection against texts made to collide. Texts that
/// differ in the lowest bits of their last unit only have neighbouring hashes, and all low bits are mixed otherwise: in
/// an index, keys with running numbers then lie eight side by side, and the memory for them is fetched once.
inline std::uint64_t hashOf(std::u16string_view text) {
    constexpr std::uint64_t kFirst = 0x9E3779B97F4A7C15, kSecond = 0xD6E8FEB86659FD93;
    constexpr std::uint64_t kNear = 7;
    const auto mixed = [](std::uint64_t a, std::uint64_t b) {
        __extension__ using Wide = unsigned __int128;
        const Wide product = static_cast<Wide>(a) * b;
        return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
    };
    if (text.empty()) return kFirst;
    constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(char16_t);
    const char16_t* at = text.data();
    std::size_t left = text.size() - 1;
    std::uint64_t hash = kFirst ^ text.size();
    for (; left >= kUnits; at += kUnits, left -= kUnits) {
        std::uint64_t block;
        std::memcpy(&block, at, sizeof block);
        hash = mixed(hash ^ block, kSecond);
    }
    // Up to three units and the last one.
    const std::uint64_t last = at[left];
    std::uint64_t rest = (last & ~kNear) << 48;
    for (std::size_t i = 0; i < left; ++i) rest |= std::uint64_t{at[i]} << (16 * i);
    return mixed(hash ^ rest, kFirst ^ kSecond) ^ (last & kNear);
}

}  // namespace velt::text
