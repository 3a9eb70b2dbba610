// Boxing: native results as values. VELT_ID serves the results of platform calls, VELT__ID the language's own typed
// variables; they differ in that VELT_ID copies strings and VELT__ID shares them.
#pragma once

#include "VELTRuntime/values/number.h"

class NSString;
class NSMutableString;
class NSColor;
class NSArray;
class NSMutableArray;
class NSDictionary;
class NSMutableDictionary;
class NSData;
class NSMutableData;

/// A Boolean: type code "c", 0 or 1.
VELT_INLINE_EXPORT id VELT_ID(signed char value) { return id::adopt(velt::booleanWord(value != 0)); }
/// A Byte: type code "c".
VELT_INLINE_EXPORT id VELT_ID(char value) { return id::adopt(velt::charWord(static_cast<signed char>(value))); }
/// A Short: type code "s".
VELT_INLINE_EXPORT id VELT_ID(short value) { return id::adopt(velt::shortWord(value)); }
/// A character code: type code "i".
VELT_INLINE_EXPORT id VELT_ID(unsigned short value) { return id::adopt(velt::intWord(value)); }
/// An Integer: type code "q".
VELT_INLINE_EXPORT id VELT_ID(long value) { return id::adopt(velt::newInteger(value)); }
/// An unsigned word: type code "Q".
VELT_INLINE_EXPORT id VELT_ID(unsigned long value) { return id::adopt(velt::newUnsigned(value)); }
/// A Long: type code "q".
VELT_INLINE_EXPORT id VELT_ID(long long value) { return id::adopt(velt::newInteger(value)); }
/// A Long of the same 64 bits taken as signed: values above 2^63-1 become negative. Programs rely on it.
VELT_INLINE_EXPORT id VELT_ID(unsigned long long value) {
    return id::adopt(velt::newInteger(static_cast<std::int64_t>(value)));
}
/// A Single: type code "f".
VELT_INLINE_EXPORT id VELT_ID(float value) { return id::adopt(velt::floatWord(value)); }
/// A Double: type code "d".
VELT_INLINE_EXPORT id VELT_ID(double value) { return id::adopt(velt::newDouble(value)); }

/// Structure values.
VELT_EXPORT id VELT_ID(NSRect value);
VELT_EXPORT id VELT_ID(NSPoint value);
VELT_EXPORT id VELT_ID(NSSize value);
VELT_EXPORT id VELT_ID(NSRange value);

/// A new string of the same text that cannot be changed; nil for null.
VELT_EXPORT id VELT_ID(NSString* value);
/// A new string of the same text; nil for null.
VELT_EXPORT id VELT_ID(NSMutableString* value);

/// The argument itself: nothing is copied, null is nil.
VELT_EXPORT id VELT_ID(NSColor* value);
VELT_EXPORT id VELT_ID(NSMutableArray* value);
VELT_EXPORT id VELT_ID(NSArray* value);
VELT_EXPORT id VELT_ID(NSMutableDictionary* value);
VELT_EXPORT id VELT_ID(NSDictionary* value);
VELT_EXPORT id VELT_ID(NSMutableData* value);
VELT_EXPORT id VELT_ID(NSData* value);
VELT_INLINE_EXPORT id VELT_ID(const id& value) { return value; }

/// The same for typed variables.
VELT_INLINE_EXPORT id VELT__ID(signed char value) { return VELT_ID(value); }
VELT_INLINE_EXPORT id VELT__ID(char value) { return VELT_ID(value); }
VELT_INLINE_EXPORT id VELT__ID(short value) { return VELT_ID(value); }
VELT_INLINE_EXPORT id VELT__ID(long value) { return VELT_ID(value); }
VELT_INLINE_EXPORT id VELT__ID(unsigned long value) { return VELT_ID(value); }
VELT_INLINE_EXPORT id VELT__ID(long long value) { return VELT_ID(value); }
VELT_INLINE_EXPORT id VELT__ID(float value) { return VELT_ID(value); }
VELT_INLINE_EXPORT id VELT__ID(double value) { return VELT_ID(value); }
VELT_INLINE_EXPORT id VELT__ID(const id& value) { return value; }
/// The string itself: a string variable is shared, not copied.
VELT_EXPORT id VELT__ID(NSMutableString* value);

/// nil.
VELT_INLINE_EXPORT id VELT_IDNIL() { return nil; }
/// The argument itself.
VELT_INLINE_EXPORT id VELT_NSOBJECTNIL(const id& value) { return value; }
