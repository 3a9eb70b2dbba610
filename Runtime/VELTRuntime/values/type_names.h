// Type names of values, and the predicates that ask for their kind.
#pragma once

#include "VELTRuntime/values/structures.h"

/// The language type name of a number or structure as a string; the class name of anything else and of numbers of code
/// "i" or "Q"; nil for nil. A Byte reports "Boolean" and a Long "Integer", since they share their codes.
VELT_EXPORT id VELT_TYPENAME(const id& value);
/// The name of the value's class as a string; nil for nil.
VELT_EXPORT id VELT_CLASSNAME(const id& value);
/// A shallow copy, which cannot be changed; nil for nil. Raises "NSInvalidArgumentException" for objects without a
/// copy.
VELT_EXPORT id VELT_CLONE(const id& value);
/// The value's description as a new string; "nil" for nil.
VELT_EXPORT id VELT_INFO(const id& value);

/// Both are of the same class; so are nil and nil. Boolean.
VELT_EXPORT id VELT_ISEQUALCLASS(const id& a, const id& b);
/// The objects' own equality; False when a is nil. Boolean.
VELT_EXPORT id VELT_ISEQUALVALUE(const id& a, const id& b);
/// The same reference. Boolean.
VELT_EXPORT id VELT_ISEQUALOBJECT(const id& a, const id& b);

/// The value is a mutable array, mutable dictionary, string or mutable data. Booleans.
VELT_EXPORT id VELT_ISARRAY(const id& value);
VELT_EXPORT id VELT_ISDICTIONARY(const id& value);
VELT_EXPORT id VELT_ISSTRING(const id& value);
VELT_EXPORT id VELT_ISDATA(const id& value);
/// True for every value, nil included. Programs rely on it.
VELT_EXPORT id VELT_ISNUMBER(const id& value);
VELT_EXPORT id VELT_ISVALUE(const id& value);

// VELT_IS<TYPE>: the value's type code is the type's. A Byte is a Boolean and a Long an Integer, since they share their
// codes. A value without a type code (a string, an array, nil) raises "NSInvalidArgumentException".
#define VELT_TYPE_PREDICATES(row)                                                                                      \
    row(BOOLEAN, "c") row(BYTE, "c") row(SHORT, "s") row(INTEGER, "q") row(LONG, "q") row(SINGLE, "f")                 \
        row(DOUBLE, "d") row(POINT, velt::kPointCode) row(SIZE, velt::kSizeCode) row(RECT, velt::kRectCode)            \
            row(RANGE, velt::kRangeCode)
#define VELT_DECLARE_PREDICATE(type, code) VELT_EXPORT id VELT_IS##type(const id& value);
VELT_TYPE_PREDICATES(VELT_DECLARE_PREDICATE)
#undef VELT_DECLARE_PREDICATE
