// Logical and bitwise operators, and the bit built-ins. Logical results are Booleans, bitwise ones Integers.
#pragma once

#include "VELTRuntime/values/conversions.h"

namespace velt {
/// The long long readings of two numbers; they borrow the words. Raise "'Boolean' or number expected" and "Number
/// expected" for anything else.
struct IntegerPair {
    std::int64_t a, b;
};
VELT_COLD VELT_EXPORT IntegerPair slowLogicalOperands(Word a, Word b);
VELT_COLD VELT_EXPORT IntegerPair slowShiftOperands(Word a, Word b);
VELT_COLD VELT_EXPORT bool slowNot(Word a);
VELT_COLD VELT_EXPORT std::int64_t slowFlip(Word a);

inline IntegerPair logicalOperands(const id& a, const id& b) {
    const Word x = a.word(), y = b.word();
    if (VELT_LIKELY(areIntegerWords(x, y))) return {asIntegerWord(x), asIntegerWord(y)};
    if (isCharWord(x) && isCharWord(y)) return {signedPayload(x), signedPayload(y)};
    return slowLogicalOperands(x, y);
}
inline IntegerPair shiftOperands(const id& a, const id& b) {
    const Word x = a.word(), y = b.word();
    if (VELT_LIKELY(areIntegerWords(x, y))) return {asIntegerWord(x), asIntegerWord(y)};
    return slowShiftOperands(x, y);
}

/// Bit n mod 32 as a 32-bit signed mask, widened: bit 31 brings all higher bits with it. Programs rely on it.
constexpr std::int64_t bitMask(std::int64_t n) {
    return static_cast<std::int32_t>(std::uint32_t{1} << (static_cast<std::uint64_t>(n) & 31));
}
}  // namespace velt

/// True when a number is zero; raises "'Boolean' or number expected".
VELT_INLINE_EXPORT id VELT_NOT(const id& a) {
    const velt::Word x = a.word();
    const bool zero = velt::isCharWord(x) ? velt::signedPayload(x) == 0 : velt::slowNot(x);
    return id::adopt(velt::booleanWord(zero));
}
/// All 64 bits of a number's integer reading inverted; raises "Number expected".
VELT_INLINE_EXPORT id VELT_FLIP(const id& a) {
    const velt::Word x = a.word();
    return id::adopt(velt::newInteger(velt::isIntegerWord(x) ? ~velt::asIntegerWord(x) : velt::slowFlip(x)));
}

/// Bit by bit on 64-bit integers, also for Booleans; raise "'Boolean' or number expected".
VELT_INLINE_EXPORT id VELT_AND(const id& a, const id& b) {
    const auto [x, y] = velt::logicalOperands(a, b);
    return id::adopt(velt::newInteger(x & y));
}
VELT_INLINE_EXPORT id VELT_OR(const id& a, const id& b) {
    const auto [x, y] = velt::logicalOperands(a, b);
    return id::adopt(velt::newInteger(x | y));
}
VELT_INLINE_EXPORT id VELT_XOR(const id& a, const id& b) {
    const auto [x, y] = velt::logicalOperands(a, b);
    return id::adopt(velt::newInteger(x ^ y));
}

/// a shifted by the low six bits of b, to the right arithmetically; raise "Number expected".
VELT_INLINE_EXPORT id VELT_SHL(const id& a, const id& b) {
    const auto [x, y] = velt::shiftOperands(a, b);
    return id::adopt(velt::newInteger(static_cast<std::int64_t>(static_cast<std::uint64_t>(x) << (y & 63))));
}
VELT_INLINE_EXPORT id VELT_SHR(const id& a, const id& b) {
    const auto [x, y] = velt::shiftOperands(a, b);
    return id::adopt(velt::newInteger(x >> (y & 63)));
}

/// Whether both, or one, of the integer readings is not zero: a Double between -1 and 1 counts as zero here. Programs
/// rely on it. Raise "'Boolean' or number expected", whatever the other operand is.
VELT_INLINE_EXPORT id VELT_ANDALSO(const id& a, const id& b) {
    const auto [x, y] = velt::logicalOperands(a, b);
    return id::adopt(velt::booleanWord(x != 0 && y != 0));
}
VELT_INLINE_EXPORT id VELT_ORELSE(const id& a, const id& b) {
    const auto [x, y] = velt::logicalOperands(a, b);
    return id::adopt(velt::booleanWord(x != 0 || y != 0));
}

/// a with bit n cleared or set, through a 32-bit mask: bits 32 to 63 are not reached one by one, bit 31 brings them
/// all. Operands through VELT_CBYTE; Integer result.
VELT_INLINE_EXPORT id VELT_BITCLR(const id& a, const id& n) {
    const long bits = VELT_CBYTE(a);
    return id::adopt(velt::newInteger(bits & ~velt::bitMask(VELT_CBYTE(n))));
}
VELT_INLINE_EXPORT id VELT_BITSET(const id& a, const id& n) {
    const long bits = VELT_CBYTE(a);
    return id::adopt(velt::newInteger(bits | velt::bitMask(VELT_CBYTE(n))));
}
/// Bit n mod 64 of a, as a Boolean; all 64 bits are reached.
VELT_INLINE_EXPORT id VELT_BITTST(const id& a, const id& n) {
    const long bits = VELT_CBYTE(a);
    return id::adopt(velt::booleanWord((bits >> (VELT_CBYTE(n) & 63)) & 1));
}
