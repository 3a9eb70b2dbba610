// Assignment checks of the scalar types, strings, data and structures: what a typed variable takes. nil always passes.
#pragma once

#include "VELTRuntime/values/number.h"

namespace velt {

/// Native types that a numeric variable keeps, in the order of their checks.
enum class NumberType : std::uint8_t { Boolean, Byte, Short, Integer, Long, Single, Double, Float };
/// A number of another kind converted to the type of the variable; raises for what is no number. Borrows the word.
VELT_EXPORT id numberForVariable(Word value, NumberType type);

[[noreturn]] VELT_EXPORT void raiseStringForAssignment();

template <NumberType Type, NumberCode Code> id checkedNumber(const id& value) {
    const Word word = value.word();
    bool keeps = false;
    if constexpr (Code == NumberCode::Long)
        keeps = isIntegerWord(word);
    else if constexpr (Code == NumberCode::Double)
        keeps = isDoubleWord(word);
    else
        keeps = (word & 0xFF) == (smallWord(static_cast<SmallCode>(Code), 0) & 0xFF);
    return VELT_LIKELY(keeps || word == kNilWord) ? value : numberForVariable(word, Type);
}

}  // namespace velt

/// The number itself when it has the variable's type code, otherwise a new one read from it. Only numbers are taken;
/// anything else raises "VLCastException" with "'Boolean' expected" and so on. A Boolean variable keeps a Byte 7 as it
/// is, since both have one code.
VELT_INLINE_EXPORT id VELT__BOOLEAN(const id& value) {
    return velt::checkedNumber<velt::NumberType::Boolean, velt::NumberCode::Char>(value);
}
VELT_INLINE_EXPORT id VELT__BYTE(const id& value) {
    return velt::checkedNumber<velt::NumberType::Byte, velt::NumberCode::Char>(value);
}
VELT_INLINE_EXPORT id VELT__SHORT(const id& value) {
    return velt::checkedNumber<velt::NumberType::Short, velt::NumberCode::Short>(value);
}
VELT_INLINE_EXPORT id VELT__INTEGER(const id& value) {
    return velt::checkedNumber<velt::NumberType::Integer, velt::NumberCode::Long>(value);
}
VELT_INLINE_EXPORT id VELT__LONG(const id& value) {
    return velt::checkedNumber<velt::NumberType::Long, velt::NumberCode::Long>(value);
}
VELT_INLINE_EXPORT id VELT__SINGLE(const id& value) {
    return velt::checkedNumber<velt::NumberType::Single, velt::NumberCode::Float>(value);
}
VELT_INLINE_EXPORT id VELT__DOUBLE(const id& value) {
    return velt::checkedNumber<velt::NumberType::Double, velt::NumberCode::Double>(value);
}
/// A Float variable holds a Double; only the reason differs.
VELT_INLINE_EXPORT id VELT__FLOAT(const id& value) {
    return velt::checkedNumber<velt::NumberType::Float, velt::NumberCode::Double>(value);
}

/// The same object, or "VLCastException" with "'String' for assignment expected", "'AttributedString' for assignment
/// expected" and "'Data' expected".
VELT_INLINE_EXPORT id VELT__STRING(const id& value) {
    if (VELT_UNLIKELY(!velt::isString(value) && !value.isNil())) velt::raiseStringForAssignment();
    return value;
}
VELT_EXPORT id VELT__ATTRIBUTEDSTRING(const id& value);
VELT_EXPORT id VELT__DATA(const id& value);
/// The same object when it is a structure of exactly that kind, or "'Point' expected" and so on.
VELT_EXPORT id VELT__POINT(const id& value);
VELT_EXPORT id VELT__SIZE(const id& value);
VELT_EXPORT id VELT__RECT(const id& value);
VELT_EXPORT id VELT__RANGE(const id& value);
