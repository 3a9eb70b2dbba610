// Bytes that a number stands for, so that a reader can know what a writer wrote.
#pragma once

#include <cstdint>
#include <string>

namespace velt::test {

inline std::string generatedBytes(std::uint64_t seed, std::size_t count) {
    std::string bytes(count, '\0');
    std::uint64_t state = seed * 2 + 1;
    for (char& byte : bytes) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        byte = static_cast<char>(state >> 56);
    }
    return bytes;
}

}  // namespace velt::test
