// Places in a text between which nobody stands: within a line end of two units, and within one character.
#pragma once

#include <cstddef>
#include <string_view>

namespace velt {

/// The position lies between a carriage return and its line feed.
bool splitsLineEnd(std::u16string_view text, std::size_t position);

/// The position before or behind one character: a line end of two units and a surrogate pair count as one, forward also
/// all that combines.
std::size_t positionBefore(std::u16string_view text, std::size_t position);
std::size_t positionAfter(std::u16string_view text, std::size_t position);

}  // namespace velt
