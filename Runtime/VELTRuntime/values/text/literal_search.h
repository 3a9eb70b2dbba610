// Searching a text for the very same code units.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace velt::text {

inline constexpr std::size_t kNotFound = static_cast<std::size_t>(-1);

/// Finds one needle, which is not empty, again and again. The needle must outlive it. All searches of one text together
/// take a time near linear in its length, overlapping matches included: places are compared one by one until that turns
/// out to be too much work, then the needle's borders say how far each failure leads.
class LiteralFinder {
public:
    explicit LiteralFinder(std::u16string_view needle) : needle_(needle) {}

    /// Position of the first occurrence at or after `from`, or kNotFound.
    std::size_t find(std::u16string_view text, std::size_t from);
    /// Position of the last occurrence that ends at or before `end`, or kNotFound.
    std::size_t findLast(std::u16string_view text, std::size_t end);
    /// The next search is in another text.
    void changeText();

private:
    std::size_t findByBorders(std::u16string_view text, std::size_t from);
    bool matchesAt(const char16_t* at);
    bool isTooMuchWork(std::size_t progress) const;

    std::u16string_view needle_;
    std::size_t work_ = 0;      // done by comparing, in units of what the search by borders does
    std::size_t progress_ = 0;  // of the searches before this one
    // Of the search by borders: the needle's, and where in the text it stands.
    std::vector<std::size_t> borders_;
    std::size_t oldest_ = 0, position_ = 0, matched_ = 0;
};

}  // namespace velt::text
