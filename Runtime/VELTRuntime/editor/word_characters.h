// Which characters make the words of a source text, and where words begin and end.
#pragma once

#include "VELTRuntime/export.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace velt {

/// What a character does in a source text. Anything but the three named classes (digits, marks, control characters)
/// only continues a word.
enum class CharacterClass : unsigned char {
    Letter,      ///< a letter or "_": begins a word
    Continuing,  ///< neither begins nor ends a word
    Symbol,      ///< punctuation or a symbol, but "_": ends a word
    Space,       ///< white space or a line end: ends a word
};

VELT_EXPORT CharacterClass characterClass(char32_t codePoint);

inline bool beginsWord(char32_t codePoint) { return characterClass(codePoint) == CharacterClass::Letter; }
inline bool endsWord(char32_t codePoint) { return characterClass(codePoint) >= CharacterClass::Symbol; }

/// A range of a text, in UTF-16 code units.
struct Word {
    std::size_t begin;
    std::size_t end;
    friend bool operator==(const Word&, const Word&) = default;
};

/// The first word at or after a position: from a character that begins one to the next that ends it, or to the end.
VELT_EXPORT std::optional<Word> nextWord(std::u16string_view text, std::size_t from);

}  // namespace velt
