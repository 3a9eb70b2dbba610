// The binary form: a header, the objects, a table of their offsets, and a trailer of 32 bytes that says how wide
// offsets and references are, how many objects there are, which is the top one, and where the table begins. All numbers
// are big-endian. An object begins with a byte whose upper half is its marker and whose lower half a size or a count;
// 15 in it means that the count follows as an integer object.
#pragma once

#include <cstdint>
#include <string_view>

namespace velt::property_list {

inline constexpr std::string_view kBinaryHeader = "bplist00";
inline constexpr std::size_t kTrailerSize = 32;
inline constexpr unsigned kCountFollows = 15;

/// The upper half of an object's first byte.
enum class Marker : std::uint8_t {
    Simple = 0x0,   // the lower half says what: null, false, true, fill
    Integer = 0x1,  // of 2^n bytes; those of 8 are signed, those of 16 have a sign of their own
    Real = 0x2,     // of 2^n bytes
    Date = 0x3,     // always 0x33: seconds since 2001 as a real of 8 bytes
    Data = 0x4,
    Ascii = 0x5,
    Utf16 = 0x6,
    Uid = 0x8,  // of n + 1 bytes
    Array = 0xA,
    OrderedSet = 0xB,
    Set = 0xC,
    Dictionary = 0xD,  // the references of all keys, then those of all values
};

inline constexpr std::uint8_t kFalseByte = 0x08;
inline constexpr std::uint8_t kTrueByte = 0x09;
inline constexpr std::uint8_t kDateByte = 0x33;

}  // namespace velt::property_list
