#include "VELTRuntime/values/word.h"

#include "support/generated.h"
#include "support/values.h"

#include <cmath>
#include <limits>

using namespace velt::test;

class Word : public Generated {};

TEST_F(Word, KeepsEveryBitPatternOfADouble) {
    for (int i = 0; i < iterations(1'000'000); ++i) {
        const auto pattern = bits();
        const auto value = std::bit_cast<double>(pattern);
        const id boxed = VELT_ID(value);
        ASSERT_EQ(pattern, std::bit_cast<std::uint64_t>(VELT_CDOUBLE(boxed))) << std::hex << pattern;
        ASSERT_EQ(velt::NumberCode::Double, velt::numberCode(boxed.word()));
    }
}

TEST_F(Word, KeepsEveryInteger) {
    for (int i = 0; i < iterations(1'000'000); ++i) {
        const auto value = static_cast<long>(bits() >> below(64));
        ASSERT_EQ(value, VELT_CINTEGER(VELT_ID(value)));
        ASSERT_EQ(-value, VELT_CINTEGER(VELT_ID(-value)));
    }
}

TEST(WordLimits, KeepsValuesAtTheBordersOfTheWord) {
    for (const long value : {velt::kMaxImmediateInteger, velt::kMaxImmediateInteger + 1, velt::kMinImmediateInteger,
                             velt::kMinImmediateInteger - 1, LONG_MAX, LONG_MIN, 0L, -1L}) {
        EXPECT_EQ(value, VELT_CINTEGER(VELT_ID(value)));
        EXPECT_VALUE("q " + std::to_string(value), VELT_ID(value));
    }
    for (const int exponent : {-1074, -1022, -768, -767, -766, -256, -255, -254, 0, 256, 257, 258, 768, 769, 1023}) {
        for (const double sign : {1.0, -1.0}) {
            const double value = std::ldexp(sign, exponent);
            EXPECT_EQ(value, VELT_CDOUBLE(VELT_ID(value))) << exponent;
            EXPECT_EQ(std::nextafter(value, 0), VELT_CDOUBLE(VELT_ID(std::nextafter(value, 0)))) << exponent;
        }
    }
    EXPECT_TRUE(std::signbit(VELT_CDOUBLE(VELT_ID(-0.0))));
    EXPECT_TRUE(std::isnan(VELT_CDOUBLE(VELT_ID(std::numeric_limits<double>::quiet_NaN()))));
    for (const unsigned long value : {velt::kMaxImmediateUnsigned, velt::kMaxImmediateUnsigned + 1, ULONG_MAX}) {
        EXPECT_VALUE("Q " + std::to_string(value), VELT_ID(value));
    }
}
