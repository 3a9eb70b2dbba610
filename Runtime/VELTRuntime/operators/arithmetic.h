// Arithmetic and concatenation. One promotion table serves addition, subtraction, multiplication and division:
//
//   left \ right    | "d"    | "q"     | "f"    | any other code
//   "q", "s"        | Double | Integer | Single | Integer
//   "d", "f"        | Double | Double  | Double | Double
//   any other code  | Double | Integer | Single | Integer
//
// It is not symmetric on purpose: 2 + a Single is a Single, a Single + 2 is a Double.
#pragma once

#include "VELTRuntime/values/number.h"

namespace velt {

enum class Arithmetic : std::uint8_t { Add, Subtract, Multiply, Divide };

/// The general case of the operators; the words are borrowed, the result is owned.
VELT_EXPORT Word slowAdd(Word a, Word b);
VELT_COLD VELT_EXPORT Word slowArithmetic(Arithmetic operation, Word a, Word b);
VELT_COLD VELT_EXPORT Word integerQuotient(Word a, Word b);
VELT_COLD VELT_EXPORT Word remainderOf(Word a, Word b);
VELT_COLD VELT_EXPORT Word negated(Word a);
VELT_EXPORT Word concatenated(Word a, Word b);

}  // namespace velt

/// a + b: two numbers by the promotion table; a string and anything: the string followed by the other's text; two
/// arrays: a new array of both. Raises "VLCastException" with "'String' or number expected" for any other pair.
/// Integers wrap around.
VELT_INLINE_EXPORT id VELT_ADD(const id& a, const id& b) {
    using namespace velt;
    const Word x = a.word(), y = b.word();
    if (VELT_LIKELY(areIntegerWords(x, y))) {
        std::int64_t sum;
        if (VELT_LIKELY(!__builtin_add_overflow(static_cast<std::int64_t>(x - kIntegerTag),
                                                static_cast<std::int64_t>(y), &sum))) {
            return id::adopt(static_cast<Word>(sum));
        }
    } else if (areDoubleWords(x, y)) {
        return id::adopt(newDouble(asDoubleWord(x) + asDoubleWord(y)));
    }
    return id::adopt(slowAdd(x, y));
}

/// a - b of two numbers; raises "Number expected".
VELT_INLINE_EXPORT id VELT_SUB(const id& a, const id& b) {
    using namespace velt;
    const Word x = a.word(), y = b.word();
    if (VELT_LIKELY(areIntegerWords(x, y))) {
        std::int64_t difference;
        if (VELT_LIKELY(!__builtin_sub_overflow(static_cast<std::int64_t>(x),
                                                static_cast<std::int64_t>(y - kIntegerTag), &difference))) {
            return id::adopt(static_cast<Word>(difference));
        }
    } else if (areDoubleWords(x, y)) {
        return id::adopt(newDouble(asDoubleWord(x) - asDoubleWord(y)));
    }
    return id::adopt(slowArithmetic(Arithmetic::Subtract, x, y));
}

/// a * b of two numbers; raises "Number expected".
VELT_INLINE_EXPORT id VELT_MUL(const id& a, const id& b) {
    using namespace velt;
    const Word x = a.word(), y = b.word();
    if (VELT_LIKELY(areIntegerWords(x, y))) {
        std::int64_t product;
        if (VELT_LIKELY(
                !__builtin_mul_overflow(static_cast<std::int64_t>(x - kIntegerTag), asIntegerWord(y), &product))) {
            return id::adopt(static_cast<Word>(product) | kIntegerTag);
        }
    } else if (areDoubleWords(x, y)) {
        return id::adopt(newDouble(asDoubleWord(x) * asDoubleWord(y)));
    }
    return id::adopt(slowArithmetic(Arithmetic::Multiply, x, y));
}

/// a / b of two numbers: truncated toward zero for two integers, else floating; raises "Number expected", and
/// "VLException" for an integer division by zero or one whose result is beyond 64 bits.
VELT_INLINE_EXPORT id VELT_DIV(const id& a, const id& b) {
    using namespace velt;
    const Word x = a.word(), y = b.word();
    if (VELT_LIKELY(areDoubleWords(x, y))) {
        return id::adopt(newDouble(asDoubleWord(x) / asDoubleWord(y)));
    }
    if (areIntegerWords(x, y) && y != integerWord(0)) {
        return id::adopt(newInteger(asIntegerWord(x) / asIntegerWord(y)));
    }
    return id::adopt(slowArithmetic(Arithmetic::Divide, x, y));
}

/// Integer division of two numbers, both cut off to 64-bit integers first; an Integer. Raises as VELT_DIV does.
VELT_INLINE_EXPORT id VELT_IDIV(const id& a, const id& b) {
    using namespace velt;
    const Word x = a.word(), y = b.word();
    if (VELT_LIKELY(areIntegerWords(x, y) && y != integerWord(0))) {
        return id::adopt(newInteger(asIntegerWord(x) / asIntegerWord(y)));
    }
    return id::adopt(integerQuotient(x, y));
}

/// Remainder of that division, with the sign of the dividend; an Integer. Raises as VELT_DIV does.
VELT_INLINE_EXPORT id VELT_MOD(const id& a, const id& b) {
    using namespace velt;
    const Word x = a.word(), y = b.word();
    if (VELT_LIKELY(areIntegerWords(x, y) && y != integerWord(0))) {
        return id::adopt(integerWord(asIntegerWord(x) % asIntegerWord(y)));
    }
    return id::adopt(remainderOf(x, y));
}

/// -a of a number: an Integer, or a Double for a Double or Single; raises "Number expected".
VELT_INLINE_EXPORT id VELT_MINUS(const id& a) {
    using namespace velt;
    const Word x = a.word();
    if (VELT_LIKELY(isDoubleWord(x))) return id::adopt(doubleWord(-asDoubleWord(x)));
    if (isIntegerWord(x)) return id::adopt(newInteger(-asIntegerWord(x)));
    return id::adopt(negated(x));
}

/// A new string: the text of a followed by that of b. Any values; nil contributes "(null)". Never fails.
VELT_INLINE_EXPORT id VELT_CONCAT(const id& a, const id& b) {
    return id::adopt(velt::concatenated(a.word(), b.word()));
}
