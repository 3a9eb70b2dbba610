// The house style of operators: a line of code without its literals and comment is spaced in one way.
#pragma once

#include "VELTRuntime/editor/recasing.h"

#include <span>

namespace velt {

/// One replacement: every occurrence, in one pass from the left, or again and again until none is left.
struct SpacingRule {
    std::u16string_view from;
    std::u16string_view to;
    bool repeats;
};

/// The replacements in the order in which they are made.
VELT_EXPORT std::span<const SpacingRule> spacingRules();

/// Spaces a line of code by the rules. A word with blanks on both sides of the parenthesis behind it is a call and
/// joins it, unless it is one of the keywords: "foo ( a )" becomes "foo(a)", and "if ( a )" becomes "if (a)".
VELT_EXPORT void spaceOperators(std::u16string& code, const Recasing& words);

}  // namespace velt
