// Short ways to write values and to say what a test expects of them.
#pragma once

#include "VELTRuntime/VELTRuntime.h"

#include <gtest/gtest.h>
#include <string>

namespace velt::test {

inline id integer(long value) { return VELT_ID(value); }
inline id real(double value) { return VELT_ID(value); }
inline id single(float value) { return VELT_ID(value); }
inline id shortNumber(int value) { return VELT_ID(static_cast<short>(value)); }
inline id byte(int value) { return VELT_ID(static_cast<char>(value)); }
inline id boolean(bool value) { return VELT_ID(static_cast<BOOL>(value)); }
inline id charCode(unsigned short value) { return VELT_ID(value); }
inline id natural(unsigned long value) { return VELT_ID(value); }
inline id str(std::string_view utf8) { return velt::string(utf8); }
inline id str(std::u16string_view text) { return velt::string(text); }
inline id point(double x, double y) { return VELT_ID(NSPoint{x, y}); }
inline id size(double width, double height) { return VELT_ID(NSSize{width, height}); }
inline id rect(double x, double y, double width, double height) { return VELT_ID(NSRect{{x, y}, {width, height}}); }
inline id range(unsigned long location, unsigned long length) { return VELT_ID(NSRange{location, length}); }
inline id data(std::string_view bytes) { return make<NSData>(bytes); }
inline id mutableData(std::string_view bytes) { return make<NSMutableData>(bytes); }
inline id emptyDictionary() { return make<NSMutableDictionary>(); }
template <class... Values> id array(const Values&... values) {
    Ref<NSMutableArray> result = make<NSMutableArray>();
    (result->append(values), ...);
    return result;
}
template <class... Values> id frozenArray(const Values&... values) { return array(values...).object()->copy(); }

/// A value as a test shows it: type code and text, "nil", a quoted string.
inline std::string show(const id& value) {
    if (value.isNil()) return "nil";
    if (isString(value)) return "'" + utf8(value) + "'";
    const char* code = typeCodeOrNull(value);
    return (code ? std::string(code) : classOf(value)->name()) + " " + utf8(description(value));
}

/// What a call raises, as "name: reason"; "nothing" when it returns.
template <class Call> std::string raised(Call&& call) {
    try {
        call();
    } catch (const NSException& exception) {
        return exception.what();
    }
    return "nothing";
}

inline std::string castFailure(std::string_view reason) { return "VLCastException: " + std::string(reason); }

}  // namespace velt::test

#define EXPECT_VALUE(expected, expression) EXPECT_EQ(expected, velt::test::show(expression)) << #expression
#define EXPECT_RAISES(expected, expression)                                                                            \
    EXPECT_EQ(expected, velt::test::raised([&] { (void)(expression); })) << #expression
#define EXPECT_CAST_FAILURE(reason, expression) EXPECT_RAISES(velt::test::castFailure(reason), expression)
