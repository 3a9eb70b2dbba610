// Equality and ordering. Equality is defined for every pair of values and never fails; only numbers are ordered.
#pragma once

#include "VELTRuntime/values/number.h"

namespace velt {
/// What the inline comparisons leave to the library. They borrow the words.
VELT_EXPORT bool slowEqual(Word a, Word b);
VELT_EXPORT bool sameClass(Word a, Word b);
/// Order of two numbers, -1, 0 or 1; raises "'Boolean' or number expected" for anything else.
VELT_COLD VELT_EXPORT int slowOrder(Word a, Word b);

/// Integers or ordinary doubles are compared here; a NaN answers no comparison and goes the long way.
template <class Compare> bool ordered(const id& a, const id& b, Compare compare) {
    const Word x = a.word(), y = b.word();
    if (VELT_LIKELY(areIntegerWords(x, y))) {
        return compare(static_cast<std::int64_t>(x), static_cast<std::int64_t>(y));  // the tags are the same
    }
    if (areDoubleWords(x, y)) {
        const double p = asDoubleWord(x), q = asDoubleWord(y);
        if (VELT_LIKELY(!__builtin_isunordered(p, q))) return compare(p, q);
    }
    return compare(slowOrder(x, y), 0);
}
inline bool valuesEqual(const id& a, const id& b) {
    const Word x = a.word(), y = b.word();
    if (VELT_LIKELY(areIntegerWords(x, y))) return x == y;
    return slowEqual(x, y);
}
}  // namespace velt

/// a equals b: strings by canonical equivalence, structures field by field, numbers by exact value across kinds,
/// anything else by the objects' own equality. Boolean result.
VELT_INLINE_EXPORT id VELT_EQUAL(const id& a, const id& b) {
    return id::adopt(velt::booleanWord(velt::valuesEqual(a, b)));
}
/// The negation of VELT_EQUAL.
VELT_INLINE_EXPORT id VELT_UNEQUAL(const id& a, const id& b) {
    return id::adopt(velt::booleanWord(!velt::valuesEqual(a, b)));
}
/// a and b are the same reference.
VELT_INLINE_EXPORT id VELT_EQUALEQUAL(const id& a, const id& b) { return id::adopt(velt::booleanWord(a == b)); }
/// a and b are of the same class, a subclass being another; nil is of nil's class.
VELT_INLINE_EXPORT id VELT_EQUALEQUALEQUAL(const id& a, const id& b) {
    return id::adopt(velt::booleanWord(velt::sameClass(a.word(), b.word())));
}

/// The order of two numbers by exact value. Raise "VLCastException" with "'Boolean' or number expected" unless both
/// are numbers. Boolean results.
VELT_INLINE_EXPORT id VELT_SMALLER(const id& a, const id& b) {
    return id::adopt(velt::booleanWord(velt::ordered(a, b, [](auto x, auto y) { return x < y; })));
}
VELT_INLINE_EXPORT id VELT_GREATER(const id& a, const id& b) {
    return id::adopt(velt::booleanWord(velt::ordered(a, b, [](auto x, auto y) { return x > y; })));
}
VELT_INLINE_EXPORT id VELT_SMALLEREQUAL(const id& a, const id& b) {
    return id::adopt(velt::booleanWord(velt::ordered(a, b, [](auto x, auto y) { return x <= y; })));
}
VELT_INLINE_EXPORT id VELT_GREATEREQUAL(const id& a, const id& b) {
    return id::adopt(velt::booleanWord(velt::ordered(a, b, [](auto x, auto y) { return x >= y; })));
}
