#include "support/generated.h"
#include "support/values.h"

#include <cmath>

using namespace velt::test;
using velt::compareNumbers;

TEST(NumberReadings, CutOffTowardZeroAndKeepLowBits) {
    EXPECT_EQ(-4, VELT_CINTEGER(real(-4.9)));
    EXPECT_EQ(4, VELT_CINTEGER(single(4.9f)));
    EXPECT_EQ(-1, VELT_CINTEGER(natural(ULONG_MAX)));
    EXPECT_EQ(18446744073709551615.0, VELT_CDOUBLE(natural(ULONG_MAX)));
    EXPECT_EQ(LONG_MIN, VELT_CINTEGER(real(1e300)));
    EXPECT_EQ(LONG_MIN, VELT_CINTEGER(real(std::nan(""))));
    EXPECT_EQ(16777216.0f, VELT_CSINGLE(integer(16777217)));
    // By way of a double it would round to 2^60 first and end on the other side.
    EXPECT_EQ(static_cast<float>((1L << 60) + (1L << 36) + 1), VELT_CSINGLE(integer((1L << 60) + (1L << 36) + 1)));
    EXPECT_VALUE("c 44", VELT__BYTE(integer(300)));
    EXPECT_VALUE("s 1", VELT__SHORT(integer(65537)));
}

TEST(NumberComparison, IsExactAcrossKinds) {
    const long big = 9007199254740993;  // 2^53 + 1, no double
    EXPECT_EQ(1, compareNumbers(integer(big).word(), real(9007199254740992.0).word()));
    EXPECT_EQ(-1, compareNumbers(real(9007199254740992.0).word(), integer(big).word()));
    const id most = integer(LONG_MAX), beyond = real(9223372036854775808.0), naturalMost = natural(ULONG_MAX);
    EXPECT_EQ(-1, compareNumbers(most.word(), beyond.word()));
    EXPECT_EQ(-1, compareNumbers(most.word(), naturalMost.word()));
    EXPECT_EQ(-1, compareNumbers(integer(-1).word(), naturalMost.word()));
    EXPECT_EQ(-1, compareNumbers(naturalMost.word(), real(18446744073709551616.0).word()));
    EXPECT_EQ(1, compareNumbers(natural(5).word(), boolean(true).word()));
    EXPECT_EQ(0, compareNumbers(real(-0.0).word(), integer(0).word()));
    EXPECT_EQ(-1, compareNumbers(integer(-3).word(), real(-2.5).word()));
    EXPECT_EQ(1, compareNumbers(integer(-2).word(), real(-2.5).word()));
    EXPECT_EQ(-1, compareNumbers(integer(1).word(), real(HUGE_VAL).word()));
}

TEST(NumberComparison, OrdersNaNBeforeAllOthers) {
    const id nan = real(std::nan(""));
    EXPECT_EQ(0, compareNumbers(nan.word(), nan.word()));
    EXPECT_EQ(-1, compareNumbers(nan.word(), real(-HUGE_VAL).word()));
    EXPECT_EQ(1, compareNumbers(integer(LONG_MIN).word(), nan.word()));
    EXPECT_VALUE("c 1", VELT_SMALLER(nan, real(1.0)));
    EXPECT_VALUE("c 0", VELT_SMALLER(real(1.0), nan));
    EXPECT_VALUE("c 1", VELT_EQUAL(nan, nan));
}

class NumberHash : public Generated {};

TEST_F(NumberHash, IsTheSameForEqualNumbersOfDifferentKinds) {
    for (int i = 0; i < iterations(100'000); ++i) {
        const auto value = static_cast<long>(bits() >> (11 + below(53)));
        const id whole = integer(value), floating = real(static_cast<double>(value));
        ASSERT_EQ(velt::hash(whole), velt::hash(floating)) << value;
        ASSERT_EQ(velt::hash(whole), velt::hash(natural(static_cast<unsigned long>(value)))) << value;
    }
    EXPECT_EQ(velt::hash(real(-0.0)), velt::hash(integer(0)));
    EXPECT_EQ(velt::hash(real(-5.0)), velt::hash(byte(-5)));
}

TEST(NumberText, IsTheShortestThatReadsBack) {
    EXPECT_VALUE("d 0.1", real(0.1));
    EXPECT_VALUE("f 0.1", single(0.1f));
    EXPECT_VALUE("d 5", real(5.0));
    EXPECT_VALUE("d -0", real(-0.0));
    EXPECT_VALUE("d 100000", real(1e5));
    EXPECT_VALUE("d 1000000000000000", real(1e15));
    EXPECT_VALUE("d 1e+16", real(1e16));
    EXPECT_VALUE("d 0.0001", real(1e-4));
    EXPECT_VALUE("d 1e-05", real(1e-5));
    EXPECT_VALUE("d 1.5e-07", real(1.5e-7));
    EXPECT_VALUE("d 0.30000000000000004", real(0.1 + 0.2));
    EXPECT_VALUE("d inf", real(HUGE_VAL));
    EXPECT_VALUE("d nan", real(std::nan("")));
    EXPECT_VALUE("d 5e-324", real(5e-324));
    EXPECT_VALUE("f 3.4028235e+38", single(3.4028235e38f));
}
