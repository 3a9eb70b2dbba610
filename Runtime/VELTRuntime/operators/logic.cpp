#include "VELTRuntime/operators/logic.h"

#include "VELTRuntime/operators/operands.h"

namespace velt {

namespace {

IntegerPair readings(Word a, Word b, const char* reason) {
    requireNumbers(reason, a, b);
    return {integerReading(a), integerReading(b)};
}

}  // namespace

IntegerPair slowLogicalOperands(Word a, Word b) { return readings(a, b, kBooleanOrNumberExpected); }
IntegerPair slowShiftOperands(Word a, Word b) { return readings(a, b, kNumberExpected); }

bool slowNot(Word a) {
    requireNumbers(kBooleanOrNumberExpected, a);
    return isFloatingCode(numberCode(a)) ? doubleReading(a) == 0.0 : integerReading(a) == 0;
}

std::int64_t slowFlip(Word a) {
    requireNumbers(kNumberExpected, a);
    return ~integerReading(a);
}

}  // namespace velt
