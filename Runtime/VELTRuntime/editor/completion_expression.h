// The expression before the caret that a completion is asked for.
#pragma once

#include "VELTRuntime/export.h"

#include <string_view>

namespace velt {

/// The part of an expression that ends a text: characters of words, dots and parentheses, up to any other punctuation
/// or symbol or to white space, and nothing of an argument list around it: of "x = foo(bar.ba" it is "bar.ba".
VELT_EXPORT std::u16string_view expressionAtEnd(std::u16string_view textOfLine);

}  // namespace velt
