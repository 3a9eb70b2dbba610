// Which characters make the words of a source text.
#include "VELTRuntime/editor/word_characters.h"

#include "VELTRuntime/values/text/casing.h"
#include "VELTRuntime/values/text/reading.h"

#include <array>
#include <unicode/uchar.h>

namespace velt {

namespace {

CharacterClass classify(char32_t codePoint) {
    if (codePoint == U'_') return CharacterClass::Letter;
    if (codePoint <= 0xFFFF && text::isWhiteSpace(static_cast<char16_t>(codePoint))) return CharacterClass::Space;
    const auto mask = U_GET_GC_MASK(static_cast<UChar32>(codePoint));
    if (mask & U_GC_L_MASK) return CharacterClass::Letter;
    return mask & (U_GC_P_MASK | U_GC_S_MASK) ? CharacterClass::Symbol : CharacterClass::Continuing;
}

constexpr char32_t kAsciiEnd = 0x80;

}  // namespace

CharacterClass characterClass(char32_t codePoint) {
    static const auto ascii = [] {
        std::array<CharacterClass, kAsciiEnd> classes{};
        for (char32_t c = 0; c < kAsciiEnd; ++c) classes[c] = classify(c);
        return classes;
    }();
    return codePoint < kAsciiEnd ? ascii[codePoint] : classify(codePoint);
}

std::optional<Word> nextWord(std::u16string_view text, std::size_t from) {
    std::size_t at = from;
    for (text::CodePoint c{}; at < text.size(); at += c.length) {
        c = text::codePointAt(text, at);
        if (beginsWord(c.value)) break;
    }
    if (at >= text.size()) return std::nullopt;
    const std::size_t begin = at;
    for (text::CodePoint c{}; at < text.size(); at += c.length) {
        c = text::codePointAt(text, at);
        if (endsWord(c.value)) break;
    }
    return Word{begin, at};
}

}  // namespace velt
