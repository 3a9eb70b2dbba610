// Where words of a source text begin and end.
#pragma once

#include "VELTRuntime/export.h"

#include <cstddef>
#include <string_view>

namespace velt {

/// A word begins with a letter (or a mark) or "_"...
VELT_EXPORT bool startsWord(char32_t codePoint);
/// ...and ends before white space, a line end, a symbol or punctuation, other than "_". What is neither, such as a
/// digit, may go on with a word, but not begin one.
VELT_EXPORT bool endsWord(char32_t codePoint);

/// A word by its place in a text.
struct SourceWord {
    std::size_t begin, end;
    bool isEmpty() const { return begin == end; }
};
/// The next word of a text, or an empty one at its end when there is none.
VELT_EXPORT SourceWord nextWord(std::u16string_view text, std::size_t from);

}  // namespace velt
