// A hash of texts, made for the few units that most keys have.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velt::text {

/// Equal texts have equal hashes. The same on every run; no protection against texts made to collide.
inline std::uint64_t hashOf(std::u16string_view text) {
    constexpr std::uint64_t kFirst = 0x9E3779B97F4A7C15, kSecond = 0xD6E8FEB86659FD93;
    const auto mixed = [](std::uint64_t a, std::uint64_t b) {
        __extension__ using Wide = unsigned __int128;
        const Wide product = static_cast<Wide>(a) * b;
        return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
    };
    constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(char16_t);
    const char16_t* at = text.data();
    std::size_t left = text.size();
    std::uint64_t hash = kFirst ^ left;
    for (; left >= kUnits; at += kUnits, left -= kUnits) {
        std::uint64_t block;
        std::memcpy(&block, at, sizeof block);
        hash = mixed(hash ^ block, kSecond);
    }
    std::uint64_t rest = 0;
    if (left > 0) std::memcpy(&rest, at, left * sizeof(char16_t));
    return mixed(hash ^ rest, kFirst ^ kSecond);
}

}  // namespace velt::text
