#include "VELTRuntime/values/number.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/writing.h"

#include <cmath>

namespace velt {

namespace {

const NSNumber& heapNumber(Word word) { return *static_cast<const NSNumber*>(asObjectWord(word)); }

/// A scalar as one of three native types, which between them hold every number exactly.
struct Scalar {
    enum class Type { Signed, Unsigned, Real } type;
    union {
        std::int64_t integer;
        std::uint64_t natural;
        double real;
    };
    explicit Scalar(std::int64_t v) : type(Type::Signed), integer(v) {}
    explicit Scalar(std::uint64_t v) : type(Type::Unsigned), natural(v) {}
    explicit Scalar(double v) : type(Type::Real), real(v) {}
};

Scalar scalarOf(Word word) {
    if (isIntegerWord(word)) return Scalar(asIntegerWord(word));
    if (isDoubleWord(word)) return Scalar(asDoubleWord(word));
    if (isSmallWord(word)) {
        switch (smallCode(word)) {
        case SmallCode::Float: return Scalar(static_cast<double>(asFloatWord(word)));
        case SmallCode::UnsignedLong: return Scalar(unsignedPayload(word));
        default: return Scalar(signedPayload(word));
        }
    }
    const NSNumber& number = heapNumber(word);
    switch (number.code()) {
    case NumberCode::Double: return Scalar(number.real());
    case NumberCode::UnsignedLong: return Scalar(number.unsignedInteger());
    default: return Scalar(number.integer());
    }
}

template <class T> int order(T a, T b) { return a < b ? -1 : a > b; }

/// Compares an integer with a double that is no NaN, exactly.
template <class Integer> int compareWithReal(Integer integer, double real) {
    constexpr double kBeyond = std::is_signed_v<Integer> ? 9223372036854775808.0 : 18446744073709551616.0;
    constexpr double kLeast = std::is_signed_v<Integer> ? -9223372036854775808.0 : 0.0;
    if (real >= kBeyond) return -1;
    if (real < kLeast) return 1;
    const double whole = std::floor(real);
    const int byWhole = order(integer, static_cast<Integer>(whole));
    return byWhole != 0 ? byWhole : (real > whole ? -1 : 0);
}

int compareReals(double a, double b) {
    if (std::isnan(a) || std::isnan(b)) return static_cast<int>(std::isnan(b)) - static_cast<int>(std::isnan(a));
    return order(a, b);
}

int compareScalars(const Scalar& a, const Scalar& b) {
    using Type = Scalar::Type;
    if (a.type == Type::Real && b.type == Type::Real) return compareReals(a.real, b.real);
    if (b.type == Type::Real) {
        if (std::isnan(b.real)) return 1;
        return a.type == Type::Signed ? compareWithReal(a.integer, b.real) : compareWithReal(a.natural, b.real);
    }
    if (a.type == Type::Real) return -compareScalars(b, a);
    if (a.type == b.type) {
        return a.type == Type::Signed ? order(a.integer, b.integer) : order(a.natural, b.natural);
    }
    if (a.type == Type::Unsigned) return -compareScalars(b, a);
    return a.integer < 0 ? -1 : order(static_cast<std::uint64_t>(a.integer), b.natural);
}

}  // namespace

Word heapDouble(double value) { return objectWord(new NSNumber(value)); }
Word heapInteger(std::int64_t value) { return objectWord(new NSNumber(value)); }
Word heapUnsigned(std::uint64_t value) { return objectWord(new NSNumber(value)); }

NumberCode numberCode(Word word) {
    if (isIntegerWord(word)) return NumberCode::Long;
    if (isDoubleWord(word)) return NumberCode::Double;
    if (!isSmallWord(word)) return heapNumber(word).code();
    return static_cast<NumberCode>(smallCode(word));
}
static_assert(static_cast<int>(NumberCode::Char) == static_cast<int>(SmallCode::Char) &&
              static_cast<int>(NumberCode::UnsignedLong) == static_cast<int>(SmallCode::UnsignedLong));

std::int64_t slowIntegerReading(Word word) {
    const Scalar scalar = scalarOf(word);
    switch (scalar.type) {
    case Scalar::Type::Signed: return scalar.integer;
    case Scalar::Type::Unsigned: return static_cast<std::int64_t>(scalar.natural);
    case Scalar::Type::Real: break;
    }
    return truncated(scalar.real);
}

double slowDoubleReading(Word word) {
    const Scalar scalar = scalarOf(word);
    switch (scalar.type) {
    case Scalar::Type::Signed: return static_cast<double>(scalar.integer);
    case Scalar::Type::Unsigned: return static_cast<double>(scalar.natural);
    case Scalar::Type::Real: break;
    }
    return scalar.real;
}

float floatReading(Word word) {
    // Straight from the integer: by way of a double it would be rounded twice.
    const Scalar scalar = scalarOf(word);
    switch (scalar.type) {
    case Scalar::Type::Signed: return static_cast<float>(scalar.integer);
    case Scalar::Type::Unsigned: return static_cast<float>(scalar.natural);
    case Scalar::Type::Real: break;
    }
    return static_cast<float>(scalar.real);
}

bool booleanReading(Word word) {
    const Scalar scalar = scalarOf(word);
    return scalar.type == Scalar::Type::Real ? scalar.real != 0 : scalar.integer != 0;
}

int compareNumbers(Word a, Word b) {
    if (areIntegerWords(a, b)) return order(asIntegerWord(a), asIntegerWord(b));
    return compareScalars(scalarOf(a), scalarOf(b));
}

std::size_t numberHash(Word word) {
    const Scalar scalar = scalarOf(word);
    std::uint64_t bits = scalar.natural;
    if (scalar.type == Scalar::Type::Real) {
        const double real = scalar.real;
        if (real >= -9223372036854775808.0 && real < 18446744073709551616.0 && std::trunc(real) == real) {
            bits = real < 0 ? static_cast<std::uint64_t>(static_cast<std::int64_t>(real))
                            : static_cast<std::uint64_t>(real);
        } else if (std::isnan(real)) {
            bits = 0x7FF8000000000000u;
        }
    }
    bits *= 0x9E3779B97F4A7C15u;
    return bits ^ (bits >> 32);
}

std::string realText(double value) { return std::string(text::shortestText(value).view()); }

id numberText(const id& number) {
    const Word word = number.word();
    const Scalar scalar = scalarOf(word);
    if (numberCode(word) == NumberCode::Float) return string(text::shortestText(floatReading(word)).view());
    switch (scalar.type) {
    case Scalar::Type::Signed: return string(text::decimalText(scalar.integer).view());
    case Scalar::Type::Unsigned: return string(text::decimalText(scalar.natural).view());
    case Scalar::Type::Real: break;
    }
    return string(text::shortestText(scalar.real).view());
}

const char* typeCodeOrNull(const id& value) {
    static constexpr const char* kCodes[] = {"c", "s", "i", "f", "Q", "q", "d"};
    if (isNumber(value)) return kCodes[static_cast<int>(numberCode(value.word()))];
    const NSValue* structure = structureOf(value);
    return structure ? structure->typeCode() : nullptr;
}

const char* typeCode(const id& value) {
    if (const char* code = typeCodeOrNull(value)) return code;
    raiseNotUnderstood(value, "objCType");
}

}  // namespace velt

velt::Class& NSNumber::entry() {
    static velt::Class& cls = velt::declareClass<NSNumber>("NSNumber", &NSValue::entry());
    return cls;
}

id NSNumber::description() const { return velt::numberText(id(const_cast<NSNumber*>(this))); }
bool NSNumber::isEqual(const id& other) const {
    return velt::isNumber(other) && velt::compareNumbers(velt::objectWord(this), other.word()) == 0;
}
std::size_t NSNumber::hash() const { return velt::numberHash(velt::objectWord(this)); }

void NSNumber::describe(velt::ClassBuilder<NSNumber>& c) {
    using namespace velt;
    c.method("boolValue", [](const id& n, const id*) { return boxResult(booleanReading(n.word())); })
        .method("intValue", [](const id& n, const id*) { return boxResult(integerReading(n.word())); })
        .method("integerValue", [](const id& n, const id*) { return boxResult(integerReading(n.word())); })
        .method("longLongValue", [](const id& n, const id*) { return boxResult(integerReading(n.word())); })
        .method("floatValue", [](const id& n, const id*) { return boxResult(floatReading(n.word())); })
        .method("doubleValue", [](const id& n, const id*) { return boxResult(doubleReading(n.word())); })
        .method("stringValue", [](const id& n, const id*) { return numberText(n); })
        .method("objCType", [](const id& n, const id*) { return string(velt::typeCode(n)); })
        .method("compare:", [](const id& n, const id* a) {
            if (!isNumber(a[0])) raiseClassExpected(NSNumber::entry());
            return boxResult(compareNumbers(n.word(), a[0].word()));
        });
}
