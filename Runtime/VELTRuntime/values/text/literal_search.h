// Searching a text for the very same code units.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace velt::text {

inline constexpr std::size_t kNotFound = static_cast<std::size_t>(-1);

/// Finds one needle, which is not empty, again and again. The needle must outlive it.
class LiteralFinder {
public:
    explicit LiteralFinder(std::u16string_view needle) : needle_(needle) {}

    /// Position of the first occurrence at or after `from`, or kNotFound.
    std::size_t find(std::u16string_view haystack, std::size_t from);
    /// Position of the last occurrence that ends at or before `end`, or kNotFound.
    std::size_t findLast(std::u16string_view haystack, std::size_t end);

private:
    std::size_t findLinear(std::u16string_view haystack, std::size_t from);
    bool matchesAt(const char16_t* at) const;

    std::u16string_view needle_;
    std::vector<std::size_t> borders_;  // of the needle's prefixes; filled when a search turns out to be a hard one
};

}  // namespace velt::text
