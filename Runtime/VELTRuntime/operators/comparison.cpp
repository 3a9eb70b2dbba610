#include "VELTRuntime/operators/comparison.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/borrowed.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/search.h"

namespace velt {

bool slowEqual(Word x, Word y) {
    if (x == kNilWord || y == kNilWord) return x == y;
    if (isNumber(x) && isNumber(y)) return compareNumbers(x, y) == 0;
    const Borrowed a(x), b(y);
    if (isString(x) && isString(y)) return x == y || text::equalCanonically(textOf(a), textOf(b));
    // Structures of one shape are equal when their fields are; any other pair is its objects' business.
    return isEqual(a, b);
}

bool sameClass(Word x, Word y) {
    const Borrowed a(x), b(y);
    return classOf(a) == classOf(b);
}

int slowOrder(Word x, Word y) {
    if (!isNumber(x) || !isNumber(y)) raiseCast("'Boolean' or number expected");
    return compareNumbers(x, y);
}

}  // namespace velt
