// The language's operators and built-in functions by the names that a person types into the calculator.
#pragma once

#include "VELTRuntime/VELTRuntime.h"

namespace calculator {

/// The number of arguments of a function, -1 when there is none of that name; case does not count.
id argumentCount(id name);

/// The result of a function that is known to exist for an array of as many arguments as it takes. It runs as the
/// statement of that name at a line of the calculator's input, so that a failure names that place.
id applyFunction(id name, id arguments, id file, id line);

/// The result of a binary operator that is known to exist; the place as above.
id applyOperator(id name, id left, id right, id file, id line);

/// Raises "SyntaxError" at a line of the calculator's input.
void raiseSyntaxError(id file, id line, id reason);

}  // namespace calculator
