#include "VELTRuntime/values/assignment_checks.h"

#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "support/values.h"

using namespace velt::test;

TEST(NumericVariables, KeepNumbersOfTheirCode) {
    for (const id& number : {integer(5), integer(LONG_MAX)}) {
        EXPECT_TRUE(VELT__INTEGER(number) == number);
        EXPECT_TRUE(VELT__LONG(number) == number);
    }
    for (const id& number : {real(2.7), real(1e100)}) {
        EXPECT_TRUE(VELT__DOUBLE(number) == number);
        EXPECT_TRUE(VELT__FLOAT(number) == number);
    }
    EXPECT_VALUE("c 7", VELT__BOOLEAN(byte(7)));
    EXPECT_VALUE("c 1", VELT__BYTE(boolean(true)));
    EXPECT_VALUE("s 5", VELT__SHORT(shortNumber(5)));
    EXPECT_VALUE("f 1.5", VELT__SINGLE(single(1.5f)));
}

TEST(NumericVariables, ConvertOtherNumbers) {
    EXPECT_VALUE("q 2", VELT__INTEGER(real(2.7)));
    EXPECT_VALUE("q 1", VELT__LONG(boolean(true)));
    EXPECT_VALUE("c 1", VELT__BOOLEAN(integer(300)));
    EXPECT_VALUE("c 1", VELT__BOOLEAN(real(0.5)));
    EXPECT_VALUE("c 44", VELT__BYTE(integer(300)));
    EXPECT_VALUE("s -1", VELT__SHORT(integer(65535)));
    EXPECT_VALUE("f 0.1", VELT__SINGLE(real(0.1)));
    EXPECT_VALUE("d 3", VELT__DOUBLE(integer(3)));
    EXPECT_VALUE("d 1.5", VELT__FLOAT(single(1.5f)));
}

TEST(NumericVariables, TakeNumbersAndNilOnly) {
    const struct {
        id (*check)(const id&);
        const char* reason;
    } rows[] = {{VELT__BOOLEAN, "'Boolean' expected"}, {VELT__BYTE, "'Byte' expected"},
                {VELT__SHORT, "'Short' expected"},     {VELT__INTEGER, "'Integer' expected"},
                {VELT__LONG, "'Long' expected"},       {VELT__SINGLE, "'Single' expected"},
                {VELT__DOUBLE, "'Double' expected"},   {VELT__FLOAT, "'Float' expected"}};
    for (const auto& row : rows) {
        EXPECT_TRUE(row.check(nil).isNil());
        for (const id& wrong : {str("5"), array(), point(1, 2), data("5")})
            EXPECT_CAST_FAILURE(row.reason, row.check(wrong));
    }
}

TEST(ObjectVariables, TakeTheirKindAndNil) {
    const id text = str("a"), bytes = data("a"), attributed = velt::make<NSAttributedString>(u"a");
    EXPECT_TRUE(VELT__STRING(text) == text);
    EXPECT_TRUE(VELT__DATA(bytes) == bytes);
    EXPECT_TRUE(VELT__ATTRIBUTEDSTRING(attributed) == attributed);
    EXPECT_CAST_FAILURE("'String' for assignment expected", VELT__STRING(integer(1)));
    EXPECT_CAST_FAILURE("'AttributedString' for assignment expected", VELT__ATTRIBUTEDSTRING(text));
    EXPECT_CAST_FAILURE("'Data' expected", VELT__DATA(text));
    for (const auto check :
         {VELT__STRING, VELT__DATA, VELT__ATTRIBUTEDSTRING, VELT__POINT, VELT__SIZE, VELT__RECT, VELT__RANGE}) {
        EXPECT_TRUE(check(nil).isNil());
    }
}

TEST(StructureVariables, TakeExactlyTheirStructure) {
    const id p = point(1, 2), s = size(1, 2), r = rect(1, 2, 3, 4), g = range(1, 2);
    EXPECT_TRUE(VELT__POINT(p) == p);
    EXPECT_TRUE(VELT__SIZE(s) == s);
    EXPECT_TRUE(VELT__RECT(r) == r);
    EXPECT_TRUE(VELT__RANGE(g) == g);
    EXPECT_CAST_FAILURE("'Point' expected", VELT__POINT(s));
    EXPECT_CAST_FAILURE("'Size' expected", VELT__SIZE(p));
    EXPECT_CAST_FAILURE("'Rect' expected", VELT__RECT(integer(1)));
    EXPECT_CAST_FAILURE("'Range' expected", VELT__RANGE(str("x")));
}
