#include "VELTRuntime/values/text/casing.h"

#include "VELTRuntime/values/text/plain_text.h"
#include "VELTRuntime/values/text/unit_lanes.h"

#include <new>
#include <stdexcept>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>

namespace velt::text {

namespace {

/// A normalizer of the Unicode library; they live as long as the process.
const UNormalizer2* normalizer(const UNormalizer2* (*get)(UErrorCode*)) {
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* instance = get(&status);
    if (U_FAILURE(status))
        throw std::runtime_error(std::string("the Unicode data are missing: ") + u_errorName(status));
    return instance;
}
const UNormalizer2* decomposer() {
    static const UNormalizer2* instance = normalizer(unorm2_getNFDInstance);
    return instance;
}
const UNormalizer2* composer() {
    static const UNormalizer2* instance = normalizer(unorm2_getNFCInstance);
    return instance;
}

/// Runs a conversion of the Unicode library, which fills a buffer and returns the length that it needs.
template <class Convert> std::u16string converted(std::u16string_view text, Convert convert) {
    if (text.empty()) return {};
    if (text.size() > INT32_MAX / 4) throw std::length_error("a text is too long for Unicode conversions");
    std::u16string result(text.size() + text.size() / 4 + 16, u'\0');
    for (;;) {
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t length = convert(result.data(), static_cast<std::int32_t>(result.size()),
                                            static_cast<std::int32_t>(text.size()), &status);
        const bool fits = length <= static_cast<std::int32_t>(result.size());
        if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) throw std::bad_alloc();
        result.resize(static_cast<std::size_t>(length));
        if (fits) return result;
    }
}

std::u16string decomposed(std::u16string_view text) {
    return converted(text, [&](char16_t* out, std::int32_t room, std::int32_t length, UErrorCode* status) {
        return unorm2_normalize(decomposer(), text.data(), length, out, room, status);
    });
}

std::u16string folded(std::u16string_view text) {
    return converted(text, [&](char16_t* out, std::int32_t room, std::int32_t length, UErrorCode* status) {
        return u_strFoldCase(out, room, text.data(), length, U_FOLD_CASE_DEFAULT, status);
    });
}

/// Maps a text of ASCII characters; false when there is another one.
bool mapAscii(std::u16string_view text, char16_t first, char16_t last, int change, std::u16string& result) {
    if (!allBelow(text, 0x80)) return false;
    result.resize(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool mapped = unit >= first && unit <= last;
        result[i] = static_cast<char16_t>(unit + (mapped ? change : 0));
    }
    return true;
}

}  // namespace

std::u16string lowered(std::u16string_view text) {
    std::u16string ascii;
    if (mapAscii(text, u'A', u'Z', 32, ascii)) return ascii;
    return converted(text, [&](char16_t* out, std::int32_t room, std::int32_t length, UErrorCode* status) {
        return u_strToLower(out, room, text.data(), length, "", status);
    });
}

std::u16string uppered(std::u16string_view text) {
    std::u16string ascii;
    if (mapAscii(text, u'a', u'z', -32, ascii)) return ascii;
    return converted(text, [&](char16_t* out, std::int32_t room, std::int32_t length, UErrorCode* status) {
        return u_strToUpper(out, room, text.data(), length, "", status);
    });
}

std::u16string comparisonForm(std::u16string_view text, Case respect) {
    std::u16string form = decomposed(text);
    return respect == Case::Respected ? form : decomposed(folded(form));
}

std::u16string composed(std::u16string_view text) {
    return converted(text, [&](char16_t* out, std::int32_t room, std::int32_t length, UErrorCode* status) {
        return unorm2_normalize(composer(), text.data(), length, out, room, status);
    });
}

bool isOwnForm(char32_t codePoint, Case respect) {
    const auto character = static_cast<UChar32>(codePoint);
    char16_t room[8];
    UErrorCode status = U_ZERO_ERROR;
    const bool decomposes = unorm2_getDecomposition(decomposer(), character, room, std::size(room), &status) >= 0;
    // Beyond the 16-bit range every folding is a simple one.
    return !decomposes && beginsCharacter(codePoint) &&
           (respect == Case::Respected || u_foldCase(character, U_FOLD_CASE_DEFAULT) == character);
}

bool beginsCharacter(char32_t codePoint) {
    return codePoint < kFirstCombining || unorm2_hasBoundaryBefore(composer(), static_cast<UChar32>(codePoint));
}

}  // namespace velt::text
