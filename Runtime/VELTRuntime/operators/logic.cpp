#include "VELTRuntime/operators/logic.h"

#include "VELTRuntime/platform/object/exception.h"

namespace velt {

namespace {

constexpr const char* kBooleanOrNumberExpected = "'Boolean' or number expected";
constexpr const char* kNumberExpected = "Number expected";

void require(bool condition, const char* reason) {
    if (!condition) raiseCast(reason);
}

IntegerPair readings(Word a, Word b, const char* reason) {
    require(isNumber(a) && isNumber(b), reason);
    return {integerReading(a), integerReading(b)};
}

}  // namespace

IntegerPair slowLogicalOperands(Word a, Word b) { return readings(a, b, kBooleanOrNumberExpected); }
IntegerPair slowShiftOperands(Word a, Word b) { return readings(a, b, kNumberExpected); }

bool slowNot(Word a) {
    require(isNumber(a), kBooleanOrNumberExpected);
    return isFloatingCode(numberCode(a)) ? doubleReading(a) == 0.0 : integerReading(a) == 0;
}

std::int64_t slowFlip(Word a) {
    require(isNumber(a), kNumberExpected);
    return ~integerReading(a);
}

}  // namespace velt
