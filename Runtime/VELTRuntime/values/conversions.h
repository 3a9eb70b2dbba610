// Conversions of values to native types, and the cast failures. Every part of the library converts through these.
#pragma once

#include "VELTRuntime/values/number.h"

namespace velt {
// What the inline conversions leave to the library. They borrow the word.
VELT_EXPORT bool slowBooleanCast(Word value);
VELT_EXPORT std::int64_t slowIntegerCast(Word value);
VELT_EXPORT std::int64_t slowLongCast(Word value);
VELT_EXPORT float slowSingleCast(Word value);
VELT_EXPORT double slowDoubleCast(Word value);
}  // namespace velt

/// Raises a platform exception of that name and reason, both through VELT_CSTRING; the third argument is ignored.
[[noreturn]] VELT_EXPORT id VELT_EXCEPTION(const id& name, const id& reason, const id& ignored);

/// A string or number read as a boolean; raises "VLCastException" with "'Boolean' expected" for anything else.
VELT_INLINE_EXPORT BOOL VELT_CBOOL(const id& value) {
    const velt::Word word = value.word();
    return velt::isCharWord(word) ? velt::signedPayload(word) != 0 : velt::slowBooleanCast(word);
}
/// The native truth value itself.
VELT_INLINE_EXPORT BOOL VELT_CBOOL(signed char value) { return value; }

/// A string or number read as a word-sized integer, never narrowed; raises "'Integer' expected".
VELT_INLINE_EXPORT long VELT_CINTEGER(const id& value) {
    const velt::Word word = value.word();
    return VELT_LIKELY(velt::isIntegerWord(word)) ? velt::asIntegerWord(word) : velt::slowIntegerCast(word);
}
/// The same function under its other names: the full 64-bit integer, "'Integer' expected".
VELT_INLINE_EXPORT long VELT_CNSINTEGER(const id& value) { return VELT_CINTEGER(value); }
VELT_INLINE_EXPORT long VELT_CBYTE(const id& value) { return VELT_CINTEGER(value); }
VELT_INLINE_EXPORT long VELT_CSHORT(const id& value) { return VELT_CINTEGER(value); }
/// A string or number read as a long long; raises "'Long' expected".
VELT_INLINE_EXPORT long long VELT_CLONG(const id& value) {
    const velt::Word word = value.word();
    return VELT_LIKELY(velt::isIntegerWord(word)) ? velt::asIntegerWord(word) : velt::slowLongCast(word);
}
/// A string or number read as a float; raises "'Single' expected".
VELT_INLINE_EXPORT float VELT_CSINGLE(const id& value) { return velt::slowSingleCast(value.word()); }
/// A string or number read as a double; raises "'Double' expected".
VELT_INLINE_EXPORT double VELT_CDOUBLE(const id& value) {
    const velt::Word word = value.word();
    return VELT_LIKELY(velt::isDoubleWord(word)) ? velt::asDoubleWord(word) : velt::slowDoubleCast(word);
}

/// The structure of any value object; raises "'Point' expected" and so on for what is none. A structure of another
/// shape gives its first fields, a number zeros.
VELT_EXPORT NSPoint VELT_CNSPOINT(const id& value);
VELT_EXPORT NSSize VELT_CNSSIZE(const id& value);
VELT_EXPORT NSRect VELT_CNSRECT(const id& value);
VELT_EXPORT NSRange VELT_CNSRANGE(const id& value);

/// The text of any value as a new string: decimal text of a number, data decoded as UTF-8, the description of anything
/// else. nil has no text: raises "VLException".
VELT_EXPORT id VELT_CSTRING(const id& value);
/// As VELT_CSTRING; the second argument is ignored.
VELT_EXPORT id VELT_STRING(const id& value, const id& ignored);
/// A string or number read as a boolean, as a Boolean; raises "'Boolean' expected".
VELT_EXPORT id VELT_BOOLEAN(const id& value, const id& ignored);
/// A string or number read as an integer, as an Integer; raises "'Integer' expected".
VELT_EXPORT id VELT_INTEGER(const id& value, const id& ignored);
/// The same as VELT_BOOLEAN, result and failure included. Programs rely on it.
VELT_EXPORT id VELT_FLOAT(const id& value, const id& ignored);
/// The UTF-8 bytes of a string as data; raises "'String' expected".
VELT_EXPORT id VELT_DATA(const id& value);
/// New mutable data with a copy of data's bytes or a string's UTF-8 bytes; raises "'Data' Argument = Nil" for nil and
/// "'Data' expected" for anything else.
VELT_EXPORT id VELT_CDATA(const id& value);
/// A new attributed string copied from one, or parsed from the HTML in a string; raises "'AttributedString' expected"
/// for anything else.
VELT_EXPORT id VELT_CATTRIBUTEDSTRING(const id& value);
/// An image as it is, or loaded from the file that a string names: a bare name lies in the main bundle's resource
/// folder. nil when the file holds no image. Raises "'NSImage' expected" for anything else.
VELT_EXPORT id VELT_CNSIMAGE(const id& value);
