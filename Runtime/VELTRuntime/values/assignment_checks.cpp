#include "VELTRuntime/values/assignment_checks.h"

#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/boxing.h"

namespace velt {

namespace {

struct TypeRow {
    NumberCode code;
    const char* reason;
};
constexpr TypeRow kTypes[] = {
    {NumberCode::Char, "'Boolean' expected"},  {NumberCode::Char, "'Byte' expected"},
    {NumberCode::Short, "'Short' expected"},   {NumberCode::Long, "'Integer' expected"},
    {NumberCode::Long, "'Long' expected"},     {NumberCode::Float, "'Single' expected"},
    {NumberCode::Double, "'Double' expected"}, {NumberCode::Double, "'Float' expected"},
};

id require(const id& value, bool accepted, const char* reason) {
    if (!value.isNil() && !accepted) raiseCast(reason);
    return value;
}

}  // namespace

void raiseStringForAssignment() { raiseCast("'String' for assignment expected"); }

id numberForVariable(Word value, NumberType type) {
    const TypeRow& row = kTypes[static_cast<int>(type)];
    if (!isNumber(value)) raiseCast(row.reason);
    if (numberCode(value) == row.code) return id::share(value);
    switch (row.code) {
    case NumberCode::Char:
        if (type == NumberType::Boolean) return VELT_ID(static_cast<BOOL>(booleanReading(value)));
        return VELT_ID(static_cast<char>(integerReading(value)));
    case NumberCode::Short: return VELT_ID(static_cast<short>(integerReading(value)));
    case NumberCode::Float: return VELT_ID(floatReading(value));
    case NumberCode::Double: return VELT_ID(doubleReading(value));
    default: return VELT_ID(integerReading(value));
    }
}

}  // namespace velt

id VELT__ATTRIBUTEDSTRING(const id& value) {
    return velt::require(value, velt::isKind(value.word(), velt::Kind::AttributedString),
                         "'AttributedString' for assignment expected");
}
id VELT__DATA(const id& value) { return velt::require(value, velt::dataOf(value), "'Data' expected"); }

id VELT__POINT(const id& value) {
    return velt::require(value, velt::structureOf(value, NSValue::Shape::Point), "'Point' expected");
}
id VELT__SIZE(const id& value) {
    return velt::require(value, velt::structureOf(value, NSValue::Shape::Size), "'Size' expected");
}
id VELT__RECT(const id& value) {
    return velt::require(value, velt::structureOf(value, NSValue::Shape::Rect), "'Rect' expected");
}
id VELT__RANGE(const id& value) {
    return velt::require(value, velt::structureOf(value, NSValue::Shape::Range), "'Range' expected");
}
