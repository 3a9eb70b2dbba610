#include "VELTRuntime/operators/arithmetic.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/borrowed.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/writing.h"

#include <string>

namespace velt {

namespace {

constexpr const char* kNumberExpected = "Number expected";

[[noreturn]] void raiseUncomputable(const char* operation, std::int64_t dividend, std::int64_t divisor) {
    if (divisor == 0) {
        raise(kRuntimeException, std::string(operation) + ": division of " + std::to_string(dividend) + " by zero");
    }
    raise(kRuntimeException, std::string(operation) + ": " + std::to_string(dividend) + " divided by " +
                                 std::to_string(divisor) + " is beyond 64 bits");
}

/// A division that the processor would refuse raises instead.
void requireDivisible(const char* operation, std::int64_t dividend, std::int64_t divisor) {
    if (divisor == 0 || (divisor == -1 && dividend == INT64_MIN)) raiseUncomputable(operation, dividend, divisor);
}

/// Integer results wrap around modulo 2^64.
std::int64_t compute(Arithmetic operation, std::int64_t a, std::int64_t b) {
    const auto x = static_cast<std::uint64_t>(a), y = static_cast<std::uint64_t>(b);
    switch (operation) {
    case Arithmetic::Add: return static_cast<std::int64_t>(x + y);
    case Arithmetic::Subtract: return static_cast<std::int64_t>(x - y);
    case Arithmetic::Multiply: return static_cast<std::int64_t>(x * y);
    case Arithmetic::Divide: break;
    }
    requireDivisible("/", a, b);
    return a / b;
}

template <class Real> Real compute(Arithmetic operation, Real a, Real b) {
    switch (operation) {
    case Arithmetic::Add: return a + b;
    case Arithmetic::Subtract: return a - b;
    case Arithmetic::Multiply: return a * b;
    case Arithmetic::Divide: break;
    }
    return a / b;
}

/// The promotion table.
Word promoted(Arithmetic operation, Word a, Word b) {
    if (isWholeWord(a) && isWholeWord(b)) return newInteger(compute(operation, asWholeWord(a), asWholeWord(b)));
    const NumberCode right = numberCode(b);
    if (isFloatingCode(numberCode(a)) || right == NumberCode::Double) {
        return newDouble(compute(operation, doubleReading(a), doubleReading(b)));
    }
    if (right == NumberCode::Float) return floatWord(compute(operation, floatReading(a), floatReading(b)));
    return newInteger(compute(operation, integerReading(a), integerReading(b)));
}

void requireNumbers(Word a, Word b) {
    if (!isNumber(a) || !isNumber(b)) raiseCast(kNumberExpected);
}

/// A string followed by the text of any value.
Word stringAndText(const NSString& head, const id& tail) {
    if (isString(tail)) return id(make<NSMutableString>(head, textOf(tail))).take();
    if (isIntegerWord(tail.word())) {
        const auto digits = text::decimalText(asIntegerWord(tail.word()));
        char16_t units[32];
        const std::string_view ascii = digits.view();
        std::copy(ascii.begin(), ascii.end(), units);
        return id(make<NSMutableString>(head, std::u16string_view(units, ascii.size()))).take();
    }
    const id text = description(tail);
    return id(make<NSMutableString>(head, text.isNil() ? std::u16string_view(u"(null)") : textOf(text))).take();
}

}  // namespace

Word slowArithmetic(Arithmetic operation, Word a, Word b) {
    requireNumbers(a, b);
    return promoted(operation, a, b);
}

Word slowAdd(Word x, Word y) {
    if (isWholeWord(x) && isWholeWord(y)) return newInteger(compute(Arithmetic::Add, asWholeWord(x), asWholeWord(y)));
    if (isNumber(x) && isNumber(y)) return promoted(Arithmetic::Add, x, y);
    const Borrowed a(x), b(y);
    if (isString(x)) return stringAndText(asString(a), b);
    if (isArray(a) && isArray(b)) {
        Ref<NSMutableArray> both = make<NSMutableArray>();
        both->reserve(arrayOf(a)->count() + arrayOf(b)->count());
        both->appendAll(*arrayOf(a));
        both->appendAll(*arrayOf(b));
        return id(std::move(both)).take();
    }
    raiseCast("'String' or number expected");
}

Word integerQuotient(Word a, Word b) {
    requireNumbers(a, b);
    const std::int64_t dividend = integerReading(a), divisor = integerReading(b);
    requireDivisible("\\", dividend, divisor);
    return newInteger(dividend / divisor);
}

Word remainderOf(Word a, Word b) {
    requireNumbers(a, b);
    const std::int64_t dividend = integerReading(a), divisor = integerReading(b);
    requireDivisible("Mod", dividend, divisor);
    return newInteger(dividend % divisor);
}

Word negated(Word a) {
    if (!isNumber(a)) raiseCast(kNumberExpected);
    if (isFloatingCode(numberCode(a))) return newDouble(-doubleReading(a));
    return newInteger(compute(Arithmetic::Subtract, 0, integerReading(a)));
}

Word concatenated(Word x, Word y) {
    const Borrowed a(x), b(y);
    if (isString(x)) return stringAndText(asString(a), b);
    const id head = x == kNilWord ? string(u"(null)") : description(a);
    return stringAndText(asString(head), b);
}

}  // namespace velt
