// Whether texts are the same, and which comes first.
#include "VELTRuntime/values/text/plain_text.h"
#include "VELTRuntime/values/text/search.h"
#include "VELTRuntime/values/text/unit_forms.h"
#include "VELTRuntime/values/text/unit_lanes.h"
#include "VELTRuntime/values/text/utf.h"

#include <algorithm>
#include <unicode/ustring.h>

namespace velt::text {

namespace {

int order(char16_t a, char16_t b) { return a < b ? -1 : a > b; }

/// The form of what follows a common beginning, from the last position that begins a character in both texts.
int compareForms(std::u16string_view a, std::u16string_view b, std::size_t common, Case respect) {
    const auto begins = [&](std::u16string_view text) {
        if (common >= text.size()) return true;
        const char16_t unit = text[common];
        return !isLowSurrogate(unit) && beginsCharacter(codePointAt(text, common).value);
    };
    while (common > 0 && !(begins(a) && begins(b))) --common;
    const std::u16string formA = comparisonForm(a.substr(common), respect);
    const std::u16string formB = comparisonForm(b.substr(common), respect);
    const std::int32_t result = u_strCompare(formA.data(), static_cast<std::int32_t>(formA.size()), formB.data(),
                                             static_cast<std::int32_t>(formB.size()), true);
    return result < 0 ? -1 : result > 0;
}

/// Below kFirstDecomposed a unit decides by itself, and ends what stands before it.
bool decides(std::u16string_view text, std::size_t at) { return at == text.size() || text[at] < kFirstDecomposed; }

int orderAt(std::u16string_view a, std::u16string_view b, std::size_t at) {
    if (at == a.size() || at == b.size()) return (at == b.size()) - (at == a.size());
    return order(a[at], b[at]);
}

/// Length of the common beginning of characters with the same representative.
std::size_t commonRepresentatives(std::u16string_view a, std::u16string_view b, const UnitForms& forms) {
    const std::size_t shorter = std::min(a.size(), b.size());
    for (std::size_t at = commonLength(a, b);; ++at) {
        // What both texts have in common need not begin characters to be the same.
        if (at == shorter) return at;
        if (a[at] == b[at]) continue;
        const char16_t representative = forms.blockOf(a[at]).representative(a[at]);
        if (representative == UnitBlock::kNone || representative != forms.blockOf(b[at]).representative(b[at]))
            return at;
    }
}

}  // namespace

bool equalCanonically(std::u16string_view a, std::u16string_view b) {
    if (a == b) return true;
    const std::size_t common = commonLength(a, b);
    if (decides(a, common) && decides(b, common)) return false;
    return compareForms(a, b, common, Case::Respected) == 0;
}

int compare(std::u16string_view a, std::u16string_view b, Case respect) {
    if (respect == Case::Respected) {
        const std::size_t common = commonLength(a, b);
        return decides(a, common) && decides(b, common) ? orderAt(a, b, common) : compareForms(a, b, common, respect);
    }
    const UnitForms& forms = unitForms(respect);
    const std::size_t common = commonRepresentatives(a, b, forms);
    const auto begins = [&](std::u16string_view text) {
        return common == text.size() ||
               (!isSurrogate(text[common]) && forms.blockOf(text[common]).begins(text[common]));
    };
    if (!begins(a) || !begins(b)) return compareForms(a, b, common, respect);
    if (common == a.size() || common == b.size()) return orderAt(a, b, common);
    const char32_t first = codePointAt(forms.blockOf(a[common]).form(a[common]), 0).value;
    const char32_t second = codePointAt(forms.blockOf(b[common]).form(b[common]), 0).value;
    return first == second ? compareForms(a, b, common, respect) : first < second ? -1 : 1;
}

}  // namespace velt::text
