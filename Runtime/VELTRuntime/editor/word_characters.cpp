#include "VELTRuntime/editor/word_characters.h"

#include "VELTRuntime/values/text/utf.h"

#include <array>
#include <unicode/uchar.h>

namespace velt {

namespace {

enum Place : unsigned char { Within = 0, Start = 1, End = 2 };

Place placeOf(char32_t codePoint) {
    if (codePoint == U'_') return Start;
    const auto mask = U_GET_GC_MASK(static_cast<UChar32>(codePoint));
    if (mask & (U_GC_L_MASK | U_GC_M_MASK)) return Start;
    const bool isControl = (codePoint >= 0x09 && codePoint <= 0x0D) || codePoint == 0x85;
    return isControl || (mask & (U_GC_Z_MASK | U_GC_S_MASK | U_GC_P_MASK)) ? End : Within;
}

/// The characters of nearly all sources, looked up at once.
constexpr std::size_t kFew = 0x600;
Place place(char32_t codePoint) {
    static const std::array<Place, kFew> table = [] {
        std::array<Place, kFew> places{};
        for (char32_t each = 0; each < kFew; ++each) places[each] = placeOf(each);
        return places;
    }();
    return codePoint < kFew ? table[codePoint] : placeOf(codePoint);
}

std::size_t skipTo(Place wanted, std::u16string_view text, std::size_t at) {
    while (at < text.size()) {
        const auto [value, length] = text::codePointAt(text, at);
        if (place(value) == wanted) break;
        at += length;
    }
    return at;
}

}  // namespace

bool startsWord(char32_t codePoint) { return place(codePoint) == Start; }
bool endsWord(char32_t codePoint) { return place(codePoint) == End; }

SourceWord nextWord(std::u16string_view text, std::size_t from) {
    const std::size_t begin = skipTo(Start, text, from);
    return {begin, begin == text.size() ? begin : skipTo(End, text, begin + 1)};
}

}  // namespace velt
