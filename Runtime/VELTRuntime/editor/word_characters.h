// Where words of a source text begin and end.
#pragma once

#include "VELTRuntime/export.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace velt {

/// A word begins with a letter (or a mark) or "_"...
VELT_EXPORT bool startsWord(char32_t codePoint);
/// ...and ends before white space, a line end, a symbol or punctuation, other than "_". What is neither, such as a
/// digit, may go on with a word, but not begin one.
VELT_EXPORT bool endsWord(char32_t codePoint);

/// The next word of a text, or nothing when there is none.
struct SourceWord {
    std::size_t begin, end;
};
VELT_EXPORT std::optional<SourceWord> nextWord(std::u16string_view text, std::size_t from);

}  // namespace velt
