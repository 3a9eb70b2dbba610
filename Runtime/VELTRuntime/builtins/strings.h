// The string built-ins. Positions and counts are in UTF-16 code units, from 0; a search that finds nothing gives -1.
//
// A string argument that is none raises "VLCastException" with "'String' expected" before anything else is done. Counts
// and positions go through VELT_CBYTE, flags through VELT_CBOOL. No argument is changed; a string result is always a
// new string that may be changed, but for what VELT_SPACE fills.
#pragma once

#include "VELTRuntime/values/value.h"

/// Number of code units of s, an unsigned integer.
VELT_EXPORT id VELT_LEN(const id& s);
/// The one code unit at a position; raises "VLException" with "'At': Trying to read out of boundary" outside the
/// string.
VELT_EXPORT id VELT_AT(const id& s, const id& position);
/// The code unit at a position as an Integer from 0 to 65535; raises "NSRangeException" outside the string.
VELT_EXPORT id VELT_UNICODE(const id& s, const id& position);
/// A string of the code unit that is the low 16 bits of VELT_CLONG of code.
VELT_EXPORT id VELT_CHARACTER(const id& code);
/// A string of exactly count units made by repeating fill, which must not be changed; empty for a count below 1. An
/// empty fill raises "NSInvalidArgumentException".
VELT_EXPORT id VELT_SPACE(const id& count, const id& fill);
/// The first count units; empty for a count of 0 or below.
VELT_EXPORT id VELT_LEFT(const id& s, const id& count);
/// Length units from start; a length of -1 means up to the end. Empty when start or length are negative.
VELT_EXPORT id VELT_MID(const id& s, const id& start, const id& length);
/// The last count units; a count that reaches the length gives all but the first unit. Programs rely on it.
VELT_EXPORT id VELT_RIGHT(const id& s, const id& count);

/// Position of the first occurrence of find at or after start, an Integer. With respectCase false, case is ignored.
VELT_EXPORT id VELT_INSTR(const id& s, const id& find, const id& start, const id& respectCase);
/// Position of the last occurrence of find that ends at or before length + start + 1; start is -1 for the whole string,
/// -2 for all but its last unit and so on. A start above 0 finds nothing; 0 raises "NSRangeException", since that would
/// be one unit more than there is. Programs rely on it.
VELT_EXPORT id VELT_INSTRREV(const id& s, const id& find, const id& start, const id& respectCase);
/// Whether find occurs in s. Boolean.
VELT_EXPORT id VELT_CONTAINS(const id& s, const id& find, const id& respectCase);
/// Number of occurrences of find in s, overlapping ones too. Integer.
VELT_EXPORT id VELT_COUNT(const id& s, const id& find, const id& respectCase);
/// Whether s begins or ends with a string; never with an empty one. Booleans.
VELT_EXPORT id VELT_STARTSWITH(const id& s, const id& prefix, const id& respectCase);
VELT_EXPORT id VELT_ENDSWITH(const id& s, const id& suffix, const id& respectCase);
/// -1, 0 or 1 as a comes before, is the same as or comes after b. Integer.
VELT_EXPORT id VELT_COMPARE(const id& a, const id& b, const id& respectCase);

/// s with every occurrence of find, from left to right, replaced.
VELT_EXPORT id VELT_REPLACE(const id& s, const id& find, const id& with, const id& respectCase);
/// A new array of the pieces of s between occurrences of separator, empty pieces included.
VELT_EXPORT id VELT_SPLIT(const id& s, const id& separator);
/// The text of the elements with separator between them; raises "'Array' expected" when the first is no array.
VELT_EXPORT id VELT_JOIN(const id& array, const id& separator);
/// s without the spaces and tabs at its ends; line breaks stay.
VELT_EXPORT id VELT_TRIM(const id& s);
/// s in lower and upper case, by Unicode's full mappings.
VELT_EXPORT id VELT_LCASE(const id& s);
VELT_EXPORT id VELT_UCASE(const id& s);
/// s followed by tail; head followed by s.
VELT_EXPORT id VELT_APPEND(const id& s, const id& tail);
VELT_EXPORT id VELT_PREPEND(const id& s, const id& head);

/// The last component of a path divided at "/", without one "/" at its end; "/" for "/".
VELT_EXPORT id VELT_FILENAME(const id& path);
/// What follows the last dot of the last component; empty when there is none.
VELT_EXPORT id VELT_FILEEXTENSION(const id& path);
/// The path without its last component and the "/" before it. A bare name raises "NSRangeException". Programs rely on
/// it.
VELT_EXPORT id VELT_FILEPATH(const id& path);

/// The text of a value, through VELT_CSTRING.
VELT_EXPORT id VELT_FORMAT(const id& value, const id& localized);
/// A number as "1.234E+03" and as "3.14", with that many decimals; localized with the user's decimal separator. A
/// negative number of decimals gives the text of the invalid template, more than 1000 raise "VLException".
VELT_EXPORT id VELT_FORMATFLOAT(const id& value, const id& localized, const id& digits);
VELT_EXPORT id VELT_FORMATDECIMAL(const id& value, const id& localized, const id& digits);
/// Upper-case hexadecimal digits of VELT_CLONG of the value, of its two's complement when negative.
VELT_EXPORT id VELT_HEX(const id& value);
