// Numbers: their type codes, the readings of their scalar, exact comparison, and the heap form of those few that do
// not fit into the word.
#pragma once

#include "VELTRuntime/values/structures.h"

#include <string>

namespace velt {

/// The native type that produced a number.
enum class NumberCode : std::uint8_t { Char, Short, Int, Float, UnsignedLong, Long, Double };

}  // namespace velt

/// A number whose scalar does not fit into the word; it behaves as one that does. Never changed once made.
class VELT_EXPORT NSNumber final : public NSValue {
public:
    explicit NSNumber(double value) : code_(velt::NumberCode::Double), real_(value) {}
    explicit NSNumber(std::int64_t value) : code_(velt::NumberCode::Long), integer_(value) {}
    explicit NSNumber(std::uint64_t value) : code_(velt::NumberCode::UnsignedLong), unsigned_(value) {}

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    id description() const override;
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    static void describe(velt::ClassBuilder<NSNumber>& c);

    velt::NumberCode code() const { return code_; }
    double real() const { return real_; }
    std::int64_t integer() const { return integer_; }
    std::uint64_t unsignedInteger() const { return unsigned_; }

private:
    velt::NumberCode code_;
    union {
        double real_;
        std::int64_t integer_;
        std::uint64_t unsigned_;
    };
};

namespace velt {

/// The word of a number, owning; the heap is used only when the word cannot hold it.
VELT_COLD VELT_EXPORT Word heapDouble(double value);
VELT_COLD VELT_EXPORT Word heapInteger(std::int64_t value);
VELT_COLD VELT_EXPORT Word heapUnsigned(std::uint64_t value);
inline Word newDouble(double value) {
    const Word word = doubleWord(value);
    return VELT_LIKELY(isDoubleWord(word)) ? word : heapDouble(value);
}
inline Word newInteger(std::int64_t value) {
    return VELT_LIKELY(fitsImmediateInteger(value)) ? integerWord(value) : heapInteger(value);
}
inline Word newUnsigned(std::uint64_t value) {
    return value <= kMaxImmediateUnsigned ? smallWord(SmallCode::UnsignedLong, value) : heapUnsigned(value);
}

/// The type code of a number word.
VELT_EXPORT NumberCode numberCode(Word number);
/// A whole number in the word, of any code, and its value.
inline bool isWholeWord(Word word) {
    return isIntegerWord(word) || (isSmallWord(word) && smallCode(word) != SmallCode::Float);
}
inline std::int64_t asWholeWord(Word word) {
    if (isIntegerWord(word)) return asIntegerWord(word);
    return smallCode(word) == SmallCode::UnsignedLong ? static_cast<std::int64_t>(unsignedPayload(word))
                                                      : signedPayload(word);
}
inline bool isFloatingCode(NumberCode code) { return code == NumberCode::Double || code == NumberCode::Float; }

/// A double cut off toward zero to 64 bits; what lies outside, and NaN, gives the smallest integer as the processor
/// does.
inline std::int64_t truncated(double value) {
    constexpr double kLimit = 9223372036854775808.0;
    if (value >= -kLimit && value < kLimit) return static_cast<std::int64_t>(value);
    return INT64_MIN;
}

/// The readings of a number's scalar: truncation toward zero to an integer, rounding to nearest to a float.
VELT_EXPORT std::int64_t slowIntegerReading(Word number);
VELT_EXPORT double slowDoubleReading(Word number);
inline std::int64_t integerReading(Word number) {
    return VELT_LIKELY(isIntegerWord(number)) ? asIntegerWord(number) : slowIntegerReading(number);
}
inline double doubleReading(Word number) {
    if (VELT_LIKELY(isDoubleWord(number))) return asDoubleWord(number);
    if (isIntegerWord(number)) return static_cast<double>(asIntegerWord(number));
    return slowDoubleReading(number);
}
VELT_EXPORT float floatReading(Word number);
VELT_EXPORT bool booleanReading(Word number);

/// -1, 0 or 1 as a is less than, the same as or greater than b, by exact value across all kinds. -0.0 is the same as
/// 0.0; a NaN is the same as a NaN and less than every other number, so that the order is total.
VELT_EXPORT int compareNumbers(Word a, Word b);
/// Numbers of equal value hash alike, whatever their kinds.
VELT_EXPORT std::size_t numberHash(Word number);

/// The shortest decimal text that reads back as the same double.
VELT_EXPORT std::string realText(double value);
/// The decimal text of a number as a new string: integers plain, floating values in the shortest form that reads back
/// as the same Double or Single.
VELT_EXPORT id numberText(const id& number);

/// The type code that a value object reports, a literal: "c", "s", "i", "q", "Q", "f", "d" or a structure's. Raises
/// "NSInvalidArgumentException" for a value that has none.
VELT_EXPORT const char* typeCode(const id& value);
/// The same, or null for a value that has none.
VELT_EXPORT const char* typeCodeOrNull(const id& value);

}  // namespace velt
