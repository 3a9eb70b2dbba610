// Where characters and words begin and end in a text. Nobody stands within a line end of two units or within one
// character.
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

/// The character belongs to a word as a person sees it, in any text: letters with their marks, numbers and "_". What
/// ends a word of the editor's language is another rule, the language's own.
bool isWordCharacter(char32_t codePoint);

}  // namespace velt
