#include "support/values.h"

using namespace velt::test;

TEST(LogicalNot, AsksForZeroByTypeCode) {
    EXPECT_VALUE("c 1", VELT_NOT(integer(0)));
    EXPECT_VALUE("c 0", VELT_NOT(integer(5)));
    EXPECT_VALUE("c 1", VELT_NOT(real(0.0)));
    EXPECT_VALUE("c 0", VELT_NOT(real(0.5)));
    EXPECT_VALUE("c 1", VELT_NOT(real(-0.0)));
    EXPECT_VALUE("c 0", VELT_NOT(boolean(true)));
    EXPECT_VALUE("c 0", VELT_NOT(byte(7)));
}

TEST(Flip, InvertsAllBits) {
    EXPECT_VALUE("q -1", VELT_FLIP(integer(0)));
    EXPECT_VALUE("q -2", VELT_FLIP(boolean(true)));
    EXPECT_VALUE("q -1", VELT_FLIP(boolean(false)));
    EXPECT_VALUE("q -2", VELT_FLIP(shortNumber(1)));
    EXPECT_VALUE("q -3", VELT_FLIP(real(2.7)));
}

TEST(BitwiseOperators, GiveIntegers) {
    EXPECT_VALUE("q 1", VELT_AND(boolean(true), boolean(true)));
    EXPECT_VALUE("q 7", VELT_OR(integer(5), integer(2)));
    EXPECT_VALUE("q 5", VELT_XOR(integer(6), integer(3)));
    EXPECT_VALUE("q 2", VELT_AND(real(2.9), integer(3)));
}

TEST(Shifts, UseTheLowSixBitsOfTheCount) {
    EXPECT_VALUE("q 1", VELT_SHL(integer(1), integer(64)));
    EXPECT_VALUE("q 2", VELT_SHL(integer(1), integer(65)));
    EXPECT_VALUE("q -9223372036854775808", VELT_SHL(integer(1), integer(63)));
    EXPECT_VALUE("q -4", VELT_SHR(integer(-8), integer(1)));
    EXPECT_VALUE("q -1", VELT_SHR(integer(-1), integer(63)));
    EXPECT_VALUE("q -9223372036854775808", VELT_SHL(integer(1), integer(-1)));
}

TEST(AndAlsoOrElse, TakeSmallDoublesForZero) {
    EXPECT_VALUE("c 0", VELT_ANDALSO(real(0.5), integer(1)));
    EXPECT_VALUE("c 1", VELT_ORELSE(integer(0), integer(2)));
    EXPECT_VALUE("c 1", VELT_ANDALSO(boolean(true), real(1.5)));
    EXPECT_VALUE("c 0", VELT_ORELSE(boolean(false), real(0.9)));
}

TEST(LogicalOperators, CheckBothOperands) {
    for (const id& wrong : {id(), str("1"), point(1, 2), array()}) {
        for (const auto operation : {VELT_AND, VELT_OR, VELT_XOR, VELT_ANDALSO, VELT_ORELSE}) {
            EXPECT_CAST_FAILURE("'Boolean' or number expected", operation(wrong, integer(0)));
            EXPECT_CAST_FAILURE("'Boolean' or number expected", operation(integer(0), wrong));
        }
        EXPECT_CAST_FAILURE("'Boolean' or number expected", VELT_NOT(wrong));
        EXPECT_CAST_FAILURE("Number expected", VELT_FLIP(wrong));
        for (const auto shift : {VELT_SHL, VELT_SHR}) {
            EXPECT_CAST_FAILURE("Number expected", shift(wrong, integer(1)));
            EXPECT_CAST_FAILURE("Number expected", shift(integer(1), wrong));
        }
    }
}

TEST(BitBuiltIns, SetAndClearThroughA32BitMask) {
    EXPECT_VALUE("c 1", VELT_BITTST(integer(1L << 40), integer(40)));
    EXPECT_VALUE("c 0", VELT_BITTST(integer(1L << 40), integer(8)));
    EXPECT_VALUE("q -2147483648", VELT_BITSET(integer(0), integer(31)));
    EXPECT_VALUE("q 1", VELT_BITSET(integer(0), integer(32)));
    EXPECT_VALUE("q 2147483647", VELT_BITCLR(integer(-1), integer(31)));
    EXPECT_VALUE("q -2", VELT_BITCLR(integer(-1), integer(0)));
    EXPECT_VALUE("q 5", VELT_BITSET(str("4"), integer(0)));
    for (const auto operation : {VELT_BITCLR, VELT_BITSET, VELT_BITTST}) {
        EXPECT_CAST_FAILURE("'Integer' expected", operation(nil, integer(1)));
        EXPECT_CAST_FAILURE("'Integer' expected", operation(integer(1), array()));
    }
}
