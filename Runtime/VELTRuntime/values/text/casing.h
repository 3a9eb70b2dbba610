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

}  // namespace velt::text
