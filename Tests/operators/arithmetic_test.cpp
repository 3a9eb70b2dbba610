#include "support/values.h"

using namespace velt::test;

TEST(Addition, PromotesByItsTable) {
    EXPECT_VALUE("q 5", VELT_ADD(integer(2), integer(3)));
    EXPECT_VALUE("d 2.5", VELT_ADD(integer(2), real(0.5)));
    EXPECT_VALUE("q 5", VELT_ADD(shortNumber(2), shortNumber(3)));
    EXPECT_VALUE("q 2", VELT_ADD(boolean(true), boolean(true)));
    EXPECT_VALUE("f 3.5", VELT_ADD(integer(2), single(1.5f)));
    EXPECT_VALUE("d 3.5", VELT_ADD(single(1.5f), integer(2)));
    EXPECT_VALUE("d 3", VELT_ADD(single(1.5f), single(1.5f)));
    EXPECT_VALUE("f 2.5", VELT_ADD(byte(1), single(1.5f)));
}

TEST(Addition, JoinsStringsWithTheTextOfAnything) {
    EXPECT_VALUE("'ab5'", VELT_ADD(str("ab"), integer(5)));
    EXPECT_VALUE("'ab2.5'", VELT_ADD(str("ab"), real(2.5)));
    EXPECT_VALUE("'ab(null)'", VELT_ADD(str("ab"), nil));
    EXPECT_VALUE("'ab(1)'", VELT_ADD(str("ab"), array(integer(1))));
    EXPECT_CAST_FAILURE("'String' or number expected", VELT_ADD(integer(5), str("ab")));
    const id text = str("ab");
    const id joined = VELT_ADD(text, str("c"));
    EXPECT_VALUE("'ab'", text);
    EXPECT_VALUE("c 1", VELT_ISSTRING(joined));
}

TEST(Addition, JoinsArraysAndLeavesThemAlone) {
    const id a = array(integer(1), integer(2)), b = array(integer(3), integer(4));
    EXPECT_VALUE("NSMutableArray (1, 2, 3, 4)", VELT_ADD(a, b));
    EXPECT_VALUE("NSMutableArray (1, 2, 1, 2)", VELT_ADD(a, a));
    EXPECT_VALUE("NSMutableArray (1, 2)", a);
    for (const id& wrong : {id(), point(1, 2), data("x"), emptyDictionary()}) {
        EXPECT_CAST_FAILURE("'String' or number expected", VELT_ADD(a, wrong));
        EXPECT_CAST_FAILURE("'String' or number expected", VELT_ADD(wrong, integer(1)));
    }
}

TEST(IntegerArithmetic, WrapsAround) {
    EXPECT_VALUE("q 9223372036854775807", VELT_SUB(integer(LONG_MIN), integer(1)));
    EXPECT_VALUE("q -9223372036854775808", VELT_ADD(integer(LONG_MAX), integer(1)));
    EXPECT_VALUE("q -2", VELT_MUL(integer(LONG_MAX), integer(2)));
    EXPECT_VALUE("q 1152921504606846976", VELT_ADD(integer((1L << 60) - 1), integer(1)));
    EXPECT_VALUE("q 1152921504606846976", VELT_MUL(integer(1L << 30), integer(1L << 30)));
    EXPECT_VALUE("q -1152921504606846977", VELT_SUB(integer(-(1L << 60)), integer(1)));
    EXPECT_VALUE("q -9223372036854775808", VELT_MINUS(integer(LONG_MIN)));
}

TEST(Division, IsIntegerOnlyForIntegers) {
    EXPECT_VALUE("q 3", VELT_DIV(integer(7), integer(2)));
    EXPECT_VALUE("q -3", VELT_DIV(integer(-7), integer(2)));
    EXPECT_VALUE("d 3.5", VELT_DIV(integer(7), real(2.0)));
    EXPECT_VALUE("d inf", VELT_DIV(real(1.0), integer(0)));
    EXPECT_VALUE("f inf", VELT_DIV(integer(1), single(0)));
    EXPECT_VALUE("q 3", VELT_IDIV(real(7.9), integer(2)));
    EXPECT_VALUE("q 1", VELT_MOD(real(7.5), integer(2)));
    EXPECT_VALUE("q -1", VELT_MOD(integer(-7), integer(2)));
}

TEST(Division, RaisesWhatTheProcessorWouldRefuse) {
    EXPECT_RAISES("VLException: /: division of 7 by zero", VELT_DIV(integer(7), integer(0)));
    EXPECT_RAISES("VLException: /: division of 1 by zero", VELT_DIV(boolean(true), boolean(false)));
    EXPECT_RAISES("VLException: \\: division of 7 by zero", VELT_IDIV(integer(7), real(0.5)));
    EXPECT_RAISES("VLException: Mod: division of 7 by zero", VELT_MOD(integer(7), integer(0)));
    EXPECT_RAISES("VLException: /: -9223372036854775808 divided by -1 is beyond 64 bits",
                  VELT_DIV(integer(LONG_MIN), integer(-1)));
    EXPECT_RAISES("VLException: \\: -9223372036854775808 divided by -1 is beyond 64 bits",
                  VELT_IDIV(integer(LONG_MIN), integer(-1)));
    EXPECT_RAISES("VLException: Mod: -9223372036854775808 divided by -1 is beyond 64 bits",
                  VELT_MOD(integer(LONG_MIN), integer(-1)));
}

TEST(Negation, GivesIntegersAndDoublesOnly) {
    EXPECT_VALUE("d -1.5", VELT_MINUS(single(1.5f)));
    EXPECT_VALUE("q -1", VELT_MINUS(boolean(true)));
    EXPECT_VALUE("q -5", VELT_MINUS(shortNumber(5)));
    EXPECT_VALUE("d -0", VELT_MINUS(real(0.0)));
    EXPECT_VALUE("d -1e+100", VELT_MINUS(real(1e100)));
}

TEST(Arithmetic, TakesNumbersOnly) {
    for (const id& wrong : {id(), str("1"), point(1, 2), array(), data("1")}) {
        for (const auto operation : {VELT_SUB, VELT_MUL, VELT_DIV, VELT_IDIV, VELT_MOD}) {
            EXPECT_CAST_FAILURE("Number expected", operation(wrong, integer(1)));
            EXPECT_CAST_FAILURE("Number expected", operation(integer(1), wrong));
        }
        EXPECT_CAST_FAILURE("Number expected", VELT_MINUS(wrong));
    }
}

TEST(Concatenation, TakesAnything) {
    EXPECT_VALUE("'12'", VELT_CONCAT(integer(1), integer(2)));
    EXPECT_VALUE("'1x'", VELT_CONCAT(boolean(true), str("x")));
    EXPECT_VALUE("'(null)(null)'", VELT_CONCAT(nil, nil));
    EXPECT_VALUE("'{1, 2}0.1'", VELT_CONCAT(point(1, 2), single(0.1f)));
}

TEST(Concatenation, SharesNothingThatCanBeSeen) {
    id text = str("0123456789");
    std::vector<id> all;
    for (int i = 0; i < 100; ++i) {
        all.push_back(text);
        text = VELT_CONCAT(text, "x"_v);
    }
    const id other = VELT_CONCAT(all[50], str("other"));
    for (std::size_t i = 0; i < all.size(); ++i) EXPECT_EQ("0123456789" + std::string(i, 'x'), velt::utf8(all[i]));
    EXPECT_EQ("0123456789" + std::string(50, 'x') + "other", velt::utf8(other));
    velt::asMutableString(all[60]).append(u"!");
    velt::asMutableString(all[60]).replace(0, 1, u"zero");
    EXPECT_EQ("zero123456789" + std::string(60, 'x') + "!", velt::utf8(all[60]));
    EXPECT_EQ("0123456789" + std::string(61, 'x'), velt::utf8(all[61]));
}

TEST(Concatenation, RefusesATextThatIsTooLongBeforeItReadsIt) {
    const id head = str("twenty units of text");
    const char16_t unit = u'x';
    const std::u16string_view endless(&unit, (std::size_t{1} << 32) - 1);
    EXPECT_RAISES("NSRangeException: a string of 4294967315 characters is too long",
                  velt::asMutableString(head).append(endless));
    EXPECT_VALUE("'twenty units of text'", head);
}
