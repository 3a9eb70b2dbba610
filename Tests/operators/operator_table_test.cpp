// Every operator over every pair of the kinds of values that exist, against the language's rules written down once
// more.
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "support/values.h"

#include <cmath>

using namespace velt::test;

namespace {

/// A value together with what the rules need to know of it.
struct Operand {
    const char* name;
    id value;
    char code = 0;          // of a number
    long double exact = 0;  // a number's scalar; NaN for NaN
    bool isText = false, isList = false;
};

std::vector<Operand> operands() {
    const auto number = [](const char* name, const id& value, char code, long double exact) {
        return Operand{name, value, code, exact};
    };
    std::vector<Operand> all{number("True", boolean(true), 'c', 1),
                             number("False", boolean(false), 'c', 0),
                             number("Byte 7", byte(7), 'c', 7),
                             number("Short -5", shortNumber(-5), 's', -5),
                             number("code 65", charCode(65), 'i', 65),
                             number("Integer 3", integer(3), 'q', 3),
                             number("Integer 0", integer(0), 'q', 0),
                             number("Integer -1", integer(-1), 'q', -1),
                             number("Integer max", integer(LONG_MAX), 'q', LONG_MAX),
                             number("Integer min", integer(LONG_MIN), 'q', LONG_MIN),
                             number("Word 9", natural(9), 'Q', 9),
                             number("Word max", natural(ULONG_MAX), 'Q', ULONG_MAX),
                             number("Single 1.5", single(1.5f), 'f', 1.5L),
                             number("Single 0.1", single(0.1f), 'f', 0.1f),
                             number("Double 2.5", real(2.5), 'd', 2.5L),
                             number("Double -0.5", real(-0.5), 'd', -0.5L),
                             number("Double 0", real(0.0), 'd', 0),
                             number("Double 1e100", real(1e100), 'd', 1e100L),
                             number("infinity", real(HUGE_VAL), 'd', HUGE_VALL),
                             number("NaN", real(std::nan("")), 'd', std::nanl("")),
                             {"nil", nil},
                             {"point", point(1, 2)},
                             {"size", size(1, 2)},
                             {"rect", rect(1, 2, 3, 4)},
                             {"range", range(1, 2)},
                             {"data", data("x")},
                             {"dictionary", emptyDictionary()},
                             {"attributed string", velt::make<NSAttributedString>(u"a")},
                             {"object", velt::make<NSObject>()}};
    all.push_back({"string", str("text"), 0, 0, true, false});
    all.push_back({"mutable array", array(integer(1)), 0, 0, false, true});
    all.push_back({"array", frozenArray(str("a")), 0, 0, false, true});
    return all;
}

std::int64_t wholeOf(const Operand& o) {
    if (std::isnan(o.exact)) return INT64_MIN;
    if (o.code == 'Q') return static_cast<std::int64_t>(static_cast<std::uint64_t>(o.exact));
    const long double whole = std::truncl(o.exact);
    return whole < -9223372036854775808.0L || whole > 9223372036854775807.0L ? INT64_MIN
                                                                             : static_cast<std::int64_t>(whole);
}

std::string shown(std::int64_t value) { return "q " + std::to_string(value); }
std::string shown(double value) { return show(real(value)); }
std::string shown(float value) { return show(single(value)); }

__extension__ typedef __int128 Wide;
__extension__ typedef unsigned __int128 UnsignedWide;

std::int64_t wrapped(char operation, std::int64_t a, std::int64_t b) {
    const auto x = static_cast<UnsignedWide>(static_cast<Wide>(a)), y = static_cast<UnsignedWide>(static_cast<Wide>(b));
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(operation == '+'   ? x + y
                                                                : operation == '-' ? x - y
                                                                                   : x * y));
}

template <class Real> Real computed(char operation, Real a, Real b) {
    return operation == '+' ? a + b : operation == '-' ? a - b : operation == '*' ? a * b : a / b;
}

std::string divided(const char* sign, bool remainder, std::int64_t a, std::int64_t b) {
    if (b == 0) return std::string("VLException: ") + sign + ": division of " + std::to_string(a) + " by zero";
    if (b == -1 && a == INT64_MIN)
        return std::string("VLException: ") + sign + ": " + std::to_string(a) + " divided by -1 is beyond 64 bits";
    return shown(remainder ? a % b : a / b);
}

std::string expectedArithmetic(char operation, const Operand& a, const Operand& b) {
    if (operation == '+' && a.isText) {
        return "'text" + (b.value.isNil() ? std::string("(null)") : velt::utf8(velt::description(b.value))) + "'";
    }
    if (operation == '+' && a.isList && b.isList) {
        const auto inner = [](const id& list) {
            const std::string text = velt::utf8(velt::description(list));
            return text.substr(1, text.size() - 2);
        };
        return "NSMutableArray (" + inner(a.value) + ", " + inner(b.value) + ")";
    }
    if (!a.code || !b.code)
        return operation == '+' ? "VLCastException: 'String' or number expected" : "VLCastException: Number expected";
    const bool leftFloating = a.code == 'd' || a.code == 'f';
    if (leftFloating || b.code == 'd')
        return shown(computed(operation, static_cast<double>(a.exact), static_cast<double>(b.exact)));
    if (b.code == 'f') return shown(computed(operation, static_cast<float>(a.exact), static_cast<float>(b.exact)));
    return operation == '/' ? divided("/", false, wholeOf(a), wholeOf(b))
                            : shown(wrapped(operation, wholeOf(a), wholeOf(b)));
}

/// -1, 0, 1; NaN equals NaN and comes first.
int orderOf(const Operand& a, const Operand& b) {
    if (std::isnan(a.exact) || std::isnan(b.exact)) return std::isnan(b.exact) - std::isnan(a.exact);
    return a.exact < b.exact ? -1 : a.exact > b.exact;
}

std::string truth(bool value) { return value ? "c 1" : "c 0"; }

std::string result(id (*operation)(const id&, const id&), const Operand& a, const Operand& b) {
    std::string shownResult;
    const std::string failure = raised([&] { shownResult = show(operation(a.value, b.value)); });
    return failure == "nothing" ? shownResult : failure;
}

}  // namespace

TEST(OperatorTable, HoldsForEveryPairOfKinds) {
    const std::vector<Operand> all = operands();
    for (const Operand& a : all) {
        for (const Operand& b : all) {
            const bool numbers = a.code && b.code;
            const auto check = [&](const char* sign, id (*operation)(const id&, const id&),
                                   const std::string& expected) {
                EXPECT_EQ(expected, result(operation, a, b)) << a.name << " " << sign << " " << b.name;
            };
            check("+", VELT_ADD, expectedArithmetic('+', a, b));
            check("-", VELT_SUB, expectedArithmetic('-', a, b));
            check("*", VELT_MUL, expectedArithmetic('*', a, b));
            check("/", VELT_DIV, expectedArithmetic('/', a, b));
            const auto whole = [&](const std::string& otherwise, const std::string& expected) {
                return numbers ? expected : "VLCastException: " + otherwise;
            };
            const std::int64_t x = wholeOf(a), y = wholeOf(b);
            check("\\", VELT_IDIV, whole("Number expected", divided("\\", false, x, y)));
            check("Mod", VELT_MOD, whole("Number expected", divided("Mod", true, x, y)));
            const char* kLogical = "'Boolean' or number expected";
            check("And", VELT_AND, whole(kLogical, shown(x & y)));
            check("Or", VELT_OR, whole(kLogical, shown(x | y)));
            check("Xor", VELT_XOR, whole(kLogical, shown(x ^ y)));
            check("AndAlso", VELT_ANDALSO, whole(kLogical, truth(x != 0 && y != 0)));
            check("OrElse", VELT_ORELSE, whole(kLogical, truth(x != 0 || y != 0)));
            check(
                "Shl", VELT_SHL,
                whole("Number expected", shown(static_cast<std::int64_t>(static_cast<std::uint64_t>(x) << (y & 63)))));
            check("Shr", VELT_SHR, whole("Number expected", shown(x >> (y & 63))));
            const int order = numbers ? orderOf(a, b) : 0;
            check("<", VELT_SMALLER, whole(kLogical, truth(order < 0)));
            check(">", VELT_GREATER, whole(kLogical, truth(order > 0)));
            check("<=", VELT_SMALLEREQUAL, whole(kLogical, truth(order <= 0)));
            check(">=", VELT_GREATEREQUAL, whole(kLogical, truth(order >= 0)));
            const bool equal = numbers ? order == 0 : &a == &b;
            check("=", VELT_EQUAL, truth(equal));
            check("<>", VELT_UNEQUAL, truth(!equal));
        }
    }
}

TEST(OperatorTable, HoldsForEveryKindAlone) {
    for (const Operand& a : operands()) {
        const auto unary = [&](id (*operation)(const id&)) {
            std::string shownResult;
            const std::string failure = raised([&] { shownResult = show(operation(a.value)); });
            return failure == "nothing" ? shownResult : failure;
        };
        const bool floating = a.code == 'd' || a.code == 'f';
        const std::string number = "VLCastException: Number expected";
        EXPECT_EQ(!a.code    ? number
                  : floating ? shown(-static_cast<double>(a.exact))
                             : shown(wrapped('-', 0, wholeOf(a))),
                  unary(VELT_MINUS))
            << a.name;
        EXPECT_EQ(!a.code ? number : shown(~wholeOf(a)), unary(VELT_FLIP)) << a.name;
        EXPECT_EQ(!a.code ? "VLCastException: 'Boolean' or number expected" : truth(a.exact == 0), unary(VELT_NOT))
            << a.name;
    }
}
