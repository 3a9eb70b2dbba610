#include "VELTRuntime/values/text/reading.h"

#include "VELTRuntime/values/text/writing.h"
#include "support/generated.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <locale.h>

using namespace velt::text;
using velt::test::Generated;
using velt::test::iterations;

TEST(FloatingReading, TakesDecimalNumbersOnly) {
    EXPECT_EQ(5.0, doubleReading(u"5."));
    EXPECT_EQ(0.5, doubleReading(u".5"));
    EXPECT_EQ(0.0, doubleReading(u"."));
    EXPECT_EQ(1.0, doubleReading(u"1e"));
    EXPECT_EQ(1.0, doubleReading(u"1e+"));
    EXPECT_EQ(100.0, doubleReading(u"\t\u00A0\u2003+1E2 "));
    EXPECT_EQ(0.0, doubleReading(u"0x1F"));
    EXPECT_EQ(0.0, doubleReading(u"inf"));
    EXPECT_EQ(0.0, doubleReading(u"nan"));
    EXPECT_EQ(0.0, doubleReading(u"- 1"));
    EXPECT_EQ(HUGE_VAL, doubleReading(u"1e999"));
    EXPECT_EQ(-HUGE_VAL, doubleReading(u"-1e999999999999999999999"));
    EXPECT_EQ(0.0, doubleReading(u"1e-999"));
    EXPECT_TRUE(std::signbit(doubleReading(u"-0")));
    EXPECT_EQ(5e-324, doubleReading(u"4.9e-324"));
    EXPECT_EQ(HUGE_VAL, doubleReading(std::u16string(400, u'9')));
    EXPECT_EQ(0.0, doubleReading(u"0." + std::u16string(400, u'0') + u"1"));
    EXPECT_EQ(1.0, doubleReading(u"0." + std::u16string(400, u'0') + u"1e401"));
}

TEST(FloatingReading, TakesAMillionDigits) {
    EXPECT_EQ(HUGE_VAL, doubleReading(std::u16string(1'000'000, u'7')));
    EXPECT_EQ(1.0 / 3, doubleReading(u"0." + std::u16string(1'000'000, u'3')));
}

TEST(FloatingReading, DoesNotDependOnTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    bool found = false;
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) {
        if (!std::setlocale(LC_ALL, name)) continue;
        found = true;
        EXPECT_EQ(1.5, doubleReading(u"1.5")) << name;
    }
    std::setlocale(LC_ALL, before.c_str());
    if (!found) GTEST_SKIP() << "no locale with a decimal comma is installed";
}

TEST(FloatReading, RoundsOnce) {
    // Halfway between two floats but for a digit that a double no longer sees.
    EXPECT_EQ(0x1.000002p+0f, floatReading(u"1.00000005960464477539062500000001"));
    EXPECT_EQ(1.0f, floatReading(u"1.000000059604644775390625"));
}

TEST(IntegerReading, SaturatesAtTheLimits) {
    EXPECT_EQ(INT64_MAX, integerReading(u"9223372036854775807"));
    EXPECT_EQ(INT64_MAX, integerReading(u"9223372036854775808"));
    EXPECT_EQ(INT64_MIN, integerReading(u"-9223372036854775808"));
    EXPECT_EQ(INT64_MIN, integerReading(u"-9223372036854775809"));
    EXPECT_EQ(INT64_MAX, integerReading(std::u16string(1000, u'9')));
    EXPECT_EQ(0, integerReading(u""));
    EXPECT_EQ(5, integerReading(u"\n\r\v\f\u0085\u1680\u2028\u2029\u202F\u205F\u3000+5"));
    EXPECT_EQ(0, integerReading(u"\u200B5"));
    EXPECT_EQ(0, integerReading(u"\u0665"));
}

class GeneratedReadings : public Generated {};

/// A million texts that look more or less like numbers, read by the C library after a regular expression has cut out
/// the number.
TEST_F(GeneratedReadings, AgreeWithTheCLibrary) {
    static constexpr char kCharacters[] = "0123456789012345678901234567890123456789..eE+- x\t";
    const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    for (int round = 0; round < iterations(1'000'000); ++round) {
        std::string text;
        for (std::size_t left = below(round % 10 == 0 ? 40 : 12); left > 0; --left)
            text += kCharacters[below(sizeof kCharacters - 1)];
        const std::u16string wide(text.begin(), text.end());
        // What belongs to the number, found by hand for the C library, which would take more.
        const char* begin = text.c_str() + std::strspn(text.c_str(), " \t");
        std::string number;
        const char* at = begin;
        if (*at == '+' || *at == '-') number += *at++;
        bool digits = false;
        for (; std::isdigit(static_cast<unsigned char>(*at)); digits = true) number += *at++;
        const std::string integer = digits ? number : "0";
        if (*at == '.') number += *at++;
        for (; std::isdigit(static_cast<unsigned char>(*at)); digits = true) number += *at++;
        if (!digits)
            number = "0";
        else if (*at == 'e' || *at == 'E') {
            const char* digit = at + 1 + (at[1] == '+' || at[1] == '-');
            if (std::isdigit(static_cast<unsigned char>(*digit))) {
                number.append(at, digit);
                for (at = digit; std::isdigit(static_cast<unsigned char>(*at));) number += *at++;
            }
        }
        const double expected = strtod_l(number.c_str(), nullptr, plain);
        const double read = doubleReading(wide);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(expected), std::bit_cast<std::uint64_t>(read)) << text;
        const float expectedFloat = strtof_l(number.c_str(), nullptr, plain);
        ASSERT_EQ(std::bit_cast<std::uint32_t>(expectedFloat), std::bit_cast<std::uint32_t>(floatReading(wide)))
            << text;
        ASSERT_EQ(strtoll_l(integer.c_str(), nullptr, 10, plain), integerReading(wide)) << text;
    }
    freelocale(plain);
}

TEST_F(GeneratedReadings, ReadBackTheShortestText) {
    const auto check = [](auto value, auto reading) {
        const NumberText text = shortestText(value);
        const std::u16string wide(text.view().begin(), text.view().end());
        if (!std::isfinite(value)) return;
        ASSERT_EQ(value, reading(wide)) << text.view();
    };
    for (int round = 0; round < iterations(500'000); ++round) {
        check(std::bit_cast<double>(bits()), doubleReading);
        check(std::bit_cast<float>(static_cast<std::uint32_t>(bits())), floatReading);
    }
}

TEST_F(GeneratedReadings, HaveNoShorterText) {
    for (int round = 0; round < iterations(100'000); ++round) {
        const auto value = std::bit_cast<double>(bits());
        if (!std::isfinite(value) || value == 0) continue;
        const NumberText text = shortestText(value);
        std::size_t digits = 0;
        for (const char c : text.view().substr(0, text.view().find('e'))) digits += c >= '0' && c <= '9';
        if (digits < 2 || text.view().find('e') == std::string_view::npos) continue;
        char shorter[64];
        std::snprintf(shorter, sizeof shorter, "%.*e", static_cast<int>(digits) - 2, value);
        ASSERT_NE(value, std::strtod(shorter, nullptr)) << text.view() << " " << shorter;
    }
}
