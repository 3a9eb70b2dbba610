#include "support/generated.h"
#include "support/values.h"

#include <cmath>

using namespace velt::test;

TEST(Abs, GivesADouble) {
    EXPECT_VALUE("d 5", VELT_ABS(integer(-5)));
    EXPECT_VALUE("d 0", VELT_ABS(real(-0.0)));
    EXPECT_VALUE("d 2.5", VELT_ABS(str("-2.5")));
}

TEST(ElementaryFunctions, AreTheMathLibrarys) {
    EXPECT_EQ(std::atan(0.7), VELT_CDOUBLE(VELT_ATN(real(0.7))));
    EXPECT_EQ(std::cos(0.7), VELT_CDOUBLE(VELT_COS(real(0.7))));
    EXPECT_EQ(std::sin(0.7), VELT_CDOUBLE(VELT_SIN(real(0.7))));
    EXPECT_EQ(std::tan(0.7), VELT_CDOUBLE(VELT_TAN(real(0.7))));
    EXPECT_EQ(std::exp(0.7), VELT_CDOUBLE(VELT_EXP(real(0.7))));
    EXPECT_EQ(std::log(0.7), VELT_CDOUBLE(VELT_LN(real(0.7))));
    EXPECT_EQ(std::log10(0.7), VELT_CDOUBLE(VELT_LOG10(real(0.7))));
    EXPECT_TRUE(std::isnan(VELT_CDOUBLE(VELT_SQR(integer(-1)))));
    EXPECT_VALUE("d 3", VELT_SQR(integer(9)));
    for (const auto function : {VELT_ABS, VELT_ATN, VELT_COS, VELT_SIN, VELT_TAN, VELT_EXP, VELT_LN, VELT_LOG10,
                                VELT_SQR, VELT_INT, VELT_FIX, VELT_FACT, VELT_MODF_INTEGRAL}) {
        EXPECT_CAST_FAILURE("'Double' expected", function(nil));
    }
}

TEST(FixAndInt, CutOffAndFloor) {
    EXPECT_VALUE("q -2", VELT_FIX(real(-2.7)));
    EXPECT_VALUE("d -3", VELT_INT(real(-2.7)));
    EXPECT_VALUE("q -9223372036854775808", VELT_FIX(real(1e30)));
}

TEST(MinAndMax, GiveTheSecondForNaN) {
    const id nan = real(std::nan(""));
    EXPECT_VALUE("d 1", VELT_MIN(nan, integer(1)));
    EXPECT_VALUE("d nan", VELT_MIN(integer(1), nan));
    EXPECT_VALUE("d 1", VELT_MAX(nan, integer(1)));
    EXPECT_VALUE("d nan", VELT_MAX(integer(1), nan));
    EXPECT_VALUE("d 1", VELT_MIN(integer(1), integer(2)));
    EXPECT_VALUE("d 2", VELT_MAX(integer(1), integer(2)));
}

TEST(Fact, MultipliesUpToTheWholePart) {
    EXPECT_VALUE("d 1", VELT_FACT(integer(0)));
    EXPECT_VALUE("d 1", VELT_FACT(integer(-3)));
    EXPECT_VALUE("d 120", VELT_FACT(integer(5)));
    EXPECT_VALUE("d 24", VELT_FACT(real(4.9)));
    EXPECT_VALUE("d inf", VELT_FACT(real(1e300)));
    EXPECT_VALUE("d inf", VELT_FACT(real(HUGE_VAL)));
    EXPECT_VALUE("d 1", VELT_FACT(real(std::nan(""))));
}

TEST(Round, MovesFloatingValuesAwayFromZero) {
    EXPECT_DOUBLE_EQ(1.239, VELT_CDOUBLE(VELT_ROUND(real(1.234), integer(2))));
    EXPECT_DOUBLE_EQ(-1.239, VELT_CDOUBLE(VELT_ROUND(real(-1.234), integer(2))));
    EXPECT_VALUE("d 1.05", VELT_ROUND(real(1.0), integer(1)));
    EXPECT_VALUE("d 1.55", VELT_ROUND(single(1.5f), integer(1)));
}

TEST(Round, GivesIntegersTheirOwnValue) {
    EXPECT_VALUE("q 2", VELT_ROUND(real(2.5), integer(0)));
    EXPECT_VALUE("q 7", VELT_ROUND(integer(7), integer(3)));
    EXPECT_VALUE("q -7", VELT_ROUND(integer(-7), integer(3)));
    EXPECT_VALUE("q 2", VELT_ROUND(real(2.7), integer(-5)));
    EXPECT_VALUE("q 1", VELT_ROUND(boolean(true), integer(2)));
}

TEST(Round, IsDefinedWhenItsScaleWrapsAround) {
    EXPECT_RAISES("nothing", VELT_ROUND(integer(5), integer(100)));
    EXPECT_RAISES("nothing", VELT_ROUND(real(5), integer(LONG_MAX)));
    EXPECT_RAISES("nothing", VELT_ROUND(integer(LONG_MIN), integer(19)));
}

TEST(Round, FailsForValuesWithoutATypeCode) {
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableString' does not understand 'objCType'",
                  VELT_ROUND(str("1.5"), integer(1)));
    EXPECT_RAISES("NSInvalidArgumentException: nil does not understand 'objCType'", VELT_ROUND(nil, integer(1)));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_ROUND(str("1.5"), nil));
}

TEST(Modf, GivesTheFractionUnderTheNameOfTheIntegral) {
    EXPECT_VALUE("d 0.75", VELT_MODF_INTEGRAL(real(3.75)));
    EXPECT_VALUE("d -0.75", VELT_MODF_INTEGRAL(real(-3.75)));
    EXPECT_VALUE("d -0.75", VELT_MODF_FRACTIONAL(real(-3.75)));
}

TEST(Random, StartsAgainFromANegativeArgument) {
    EXPECT_EQ(1979413647 * std::ldexp(1.0, -31), VELT_CDOUBLE(VELT_RANDOM(1, integer(-1))));
    EXPECT_EQ(1979413647, VELT_lStartValue);
    const double next = VELT_CDOUBLE(VELT_RANDOM(0, nil));
    VELT_RANDOM(1, integer(-1));
    EXPECT_EQ(next, VELT_CDOUBLE(VELT_RANDOM(0, nil)));
}

TEST(Random, GivesTheLastValueAgainForZero) {
    const double scaled = VELT_CDOUBLE(VELT_RANDOM(1, integer(10)));
    EXPECT_GT(scaled, 0);
    EXPECT_LT(scaled, 10);
    EXPECT_EQ(scaled, VELT_CDOUBLE(VELT_RANDOM(1, integer(0))));
    EXPECT_EQ(scaled, VELT_dLastRND);
}

TEST(Random, WithOneArgumentOfZeroGoesOn) {
    VELT_RANDOM(1, integer(-5));
    const double next = VELT_CDOUBLE(VELT_RANDOM(0, nil));
    VELT_RANDOM(1, integer(-5));
    EXPECT_EQ(next, VELT_CDOUBLE(VELT_RANDOM(integer(0))));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_RANDOM(nil));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_RANDOM(1, nil));
}

TEST(Random, SeedsItselfFromTheClock) {
    VELT_dLastRND = 0.0;
    EXPECT_GT(VELT_CDOUBLE(VELT_RANDOM(0, nil)), 0.0);
    VELT_RANDOMIZE();
    EXPECT_GT(VELT_lStartValue, 0);
    EXPECT_LT(VELT_lStartValue, 2147483647);
}

TEST(Random, FollowsTheMinimalStandardForAMillionSteps) {
    VELT_RANDOM(1, integer(-1));
    std::uint64_t state = 1979413647;
    for (int i = 0; i < iterations(1'000'000); ++i) {
        state = state * 16807 % 2147483647;  // without the decomposition
        ASSERT_EQ(static_cast<double>(state) / 2147483648.0, VELT_CDOUBLE(VELT_RANDOM(0, nil))) << i;
    }
}

TEST(MathFamily, ComputesTheFunctionsAndIgnoresItsReceiver) {
    EXPECT_VALUE("q 1", VELT_CMATH_ISNAN(nil, VELT_CMATH_SQRT(str("x"), integer(-1))));
    EXPECT_VALUE("q 0", VELT_CMATH_ISNORMAL(nil, integer(0)));
    EXPECT_VALUE("q 0", VELT_CMATH_ISNORMAL(nil, real(1e-310)));
    EXPECT_VALUE("q 1", VELT_CMATH_ISNORMAL(array(), real(1.0)));
    EXPECT_VALUE("q 0", VELT_CMATH_ISFINITE(nil, real(HUGE_VAL)));
    EXPECT_VALUE("d -3", VELT_CMATH_ROUND(nil, real(-2.5)));
    EXPECT_VALUE("d -2", VELT_CMATH_RINT(nil, real(-2.5)));
    EXPECT_VALUE("q 2", VELT_CMATH_RINTTOL(nil, real(2.5)));
    EXPECT_VALUE("d 0", VELT_CMATH_FDIM(nil, integer(2), integer(5)));
    EXPECT_VALUE("d 1.1025", VELT_CMATH_COMPOUND(nil, real(0.05), integer(2)));
    EXPECT_NEAR((1 - std::pow(1.05, -10)) / 0.05, VELT_CDOUBLE(VELT_CMATH_ANNUITY(nil, real(0.05), integer(10))),
                1e-14);
    EXPECT_VALUE("d 10", VELT_CMATH_ANNUITY(nil, integer(0), integer(10)));
    EXPECT_DOUBLE_EQ(1 + 1e-12 * 1000, VELT_CDOUBLE(VELT_CMATH_COMPOUND(nil, real(1e-12), integer(1000))));
    EXPECT_VALUE("d 24", VELT_CMATH_GAMMA(nil, integer(5)));
    EXPECT_DOUBLE_EQ(std::log(24), VELT_CDOUBLE(VELT_CMATH_LGAMMA(nil, integer(5))));
    EXPECT_VALUE("d -0.25", VELT_CMATH_ANNUITY(nil, integer(-3), integer(2)));
    EXPECT_VALUE("d 12", VELT_CMATH_SCALB(nil, integer(3), integer(2)));
    EXPECT_VALUE("d 67108864", VELT_CMATH_SCALB(nil, real(0x1p-1074), integer(1100)));  // 2^1100 is no double
    EXPECT_VALUE("d 0", VELT_CMATH_SCALB(nil, integer(0), integer(2000)));
    EXPECT_VALUE("d inf", VELT_CMATH_SCALB(nil, real(HUGE_VAL), integer(-2000)));
    EXPECT_EQ(std::atan2(1, -1), VELT_CDOUBLE(VELT_CMATH_ATAN2(nil, integer(1), integer(-1))));
    EXPECT_EQ(std::remainder(7, 4), VELT_CDOUBLE(VELT_CMATH_REMAINDER(nil, integer(7), integer(4))));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_CMATH_ATAN2(nil, nil, integer(1)));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_CMATH_ATAN2(nil, integer(1), nil));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_CMATH_SIN(integer(1), array()));
}
