// Case mapping and canonical decomposition by Unicode's tables, independent of the locale.
#pragma once

#include "VELTRuntime/export.h"

#include <string>
#include <string_view>

namespace velt::text {

/// Full case mappings; the length may change.
VELT_EXPORT std::u16string lowered(std::u16string_view text);
VELT_EXPORT std::u16string uppered(std::u16string_view text);

/// Whether comparisons respect case.
enum class Case { Respected, Ignored };

/// The form in which texts are compared: canonically decomposed, and with case ignored also fully case-folded.
VELT_EXPORT std::u16string comparisonForm(std::u16string_view text, Case respect);

/// The canonical composition.
std::u16string composed(std::u16string_view text);

/// The character is its own comparison form, and begins a character.
bool isOwnForm(char32_t codePoint, Case respect);

/// The character neither combines with what stands before it nor composes with it.
VELT_EXPORT bool beginsCharacter(char32_t codePoint);

/// The code point at a position and its length in units; a surrogate without its partner is its own.
struct CodePoint {
    char32_t value;
    std::size_t length;
};
inline CodePoint codePointAt(std::u16string_view text, std::size_t at) {
    const char32_t unit = text[at];
    if (unit >= 0xD800 && unit < 0xDC00 && at + 1 < text.size() && text[at + 1] >= 0xDC00 && text[at + 1] < 0xE000) {
        return {0x10000 + ((unit - 0xD800) << 10) + (text[at + 1] - 0xDC00u), 2};
    }
    return {unit, 1};
}

}  // namespace velt::text
