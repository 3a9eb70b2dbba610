// The 64-bit word behind every value: its layout, and the only functions that touch its bits.
#pragma once

#include <bit>
#include <cstdint>

class NSObject;

namespace velt {

/// The bits of one value. Low bits first:
///
///   word                         | holds
///   -----------------------------|---------------------------------------------------------------
///   0                            | nil
///   address               ... 000 | a heap object (at least 8-byte aligned)
///   payload (56 bits) 00ccc   100 | a small number; ccc is its SmallCode
///   payload (61 bits)         111 | Integer or Long ("q"), two's complement
///   rotl(bits, 4) ^ 1  ..01, ..10 | Double ("d")
///
/// A double tags itself: rotating it left by four brings exponent bits 9 and 8 to the bottom, and they are
/// equal (00 or 11) for zeros, subnormals, infinities, NaNs and every magnitude from 2^-255 to 2^257. The
/// few doubles between those ranges, integers beyond 61 bits and unsigned words beyond 56 bits live on the
/// heap as number objects that behave the same.
using Word = std::uint64_t;

/// Type codes that small words carry besides "q" and "d".
enum class SmallCode : std::uint8_t { Char, Short, Int, Float, UnsignedLong };

inline constexpr Word kNilWord = 0;
inline constexpr Word kIntegerTag = 7;
inline constexpr Word kSmallTag = 4;
inline constexpr std::int64_t kMaxImmediateInteger = (std::int64_t{1} << 60) - 1;
inline constexpr std::int64_t kMinImmediateInteger = -(std::int64_t{1} << 60);
inline constexpr std::uint64_t kMaxImmediateUnsigned = (std::uint64_t{1} << 56) - 1;

// Every test looks at all three tag bits, so that the compiler learns from one what another would say.
constexpr bool isHeapWord(Word w) {
    if (__builtin_expect((w & 7) == 0, 0)) return w != kNilWord;
    return false;
}
constexpr bool isIntegerWord(Word w) { return (w & 7) == kIntegerTag; }
constexpr bool isDoubleWord(Word w) {
    if ((((w & 7) + 1) & 2) == 0) return false;
    // Follows from the test, but the compiler does not see it.
    if ((w & 7) == 0 || (w & 7) == kIntegerTag) __builtin_unreachable();
    return true;
}
constexpr bool isSmallWord(Word w) { return (w & 7) == kSmallTag; }
constexpr bool isImmediateNumberWord(Word w) { return (w & 7) != 0; }

/// One test each, not one of both words together: what is known of a word once lets the compiler drop later tests of
/// it, and the release of the value that it overwrites.
constexpr bool areIntegerWords(Word a, Word b) {
    return __builtin_expect(isIntegerWord(a), 1) && __builtin_expect(isIntegerWord(b), 1);
}
constexpr bool areDoubleWords(Word a, Word b) { return isDoubleWord(a) && isDoubleWord(b); }

constexpr bool fitsImmediateInteger(std::int64_t v) { return v >= kMinImmediateInteger && v <= kMaxImmediateInteger; }
constexpr Word integerWord(std::int64_t v) { return (static_cast<Word>(v) << 3) | kIntegerTag; }
constexpr std::int64_t asIntegerWord(Word w) { return static_cast<std::int64_t>(w) >> 3; }

/// The word for a double; it is a Double word only when isDoubleWord says so, else the double needs the heap.
constexpr Word doubleWord(double v) { return std::rotl(std::bit_cast<Word>(v), 4) ^ 1; }
constexpr double asDoubleWord(Word w) { return std::bit_cast<double>(std::rotr(w ^ 1, 4)); }

constexpr Word smallWord(SmallCode code, std::uint64_t payload) {
    return (payload << 8) | (static_cast<Word>(code) << 3) | kSmallTag;
}
constexpr SmallCode smallCode(Word w) { return static_cast<SmallCode>((w >> 3) & 7); }
constexpr std::int64_t signedPayload(Word w) { return static_cast<std::int64_t>(w) >> 8; }
constexpr std::uint64_t unsignedPayload(Word w) { return w >> 8; }

constexpr Word charWord(signed char v) { return smallWord(SmallCode::Char, static_cast<std::uint64_t>(v)); }
constexpr Word booleanWord(bool v) { return smallWord(SmallCode::Char, v ? 1 : 0); }
constexpr Word shortWord(short v) { return smallWord(SmallCode::Short, static_cast<std::uint64_t>(v)); }
constexpr Word intWord(int v) { return smallWord(SmallCode::Int, static_cast<std::uint64_t>(v)); }
constexpr Word floatWord(float v) {
    return smallWord(SmallCode::Float, std::uint64_t{std::bit_cast<std::uint32_t>(v)});
}
constexpr float asFloatWord(Word w) { return std::bit_cast<float>(static_cast<std::uint32_t>(unsignedPayload(w))); }

constexpr bool isCharWord(Word w) { return (w & 0xFF) == (kSmallTag | Word{0} << 3); }

inline NSObject* asObjectWord(Word w) { return reinterpret_cast<NSObject*>(w); }
inline Word objectWord(const NSObject* object) { return reinterpret_cast<Word>(object); }

static_assert(isDoubleWord(doubleWord(0.0)) && isDoubleWord(doubleWord(1.0)) && isDoubleWord(doubleWord(-1e77)) &&
              !isDoubleWord(doubleWord(1e100)));

}  // namespace velt
