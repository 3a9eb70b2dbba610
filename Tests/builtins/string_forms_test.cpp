#include "support/values.h"

#include <cmath>

using namespace velt::test;

TEST(Trim, TakesSpacesAndTabsOnly) {
    EXPECT_VALUE("'x\n'", VELT_TRIM(str(" \tx\n ")));
    EXPECT_VALUE("'x'", VELT_TRIM(str(u"\u00A0\u3000\u2003x\u1680")));
    EXPECT_VALUE("''", VELT_TRIM(str(" \t ")));
}

TEST(CaseBuiltIns, MapFully) {
    EXPECT_VALUE("'STRASSE'", VELT_UCASE(str("straße")));
    EXPECT_VALUE("'abc'", VELT_LCASE(str("ABC")));
}

TEST(AppendAndPrepend, MakeNewStrings) {
    const id text = str("b");
    EXPECT_VALUE("'bc'", VELT_APPEND(text, str("c")));
    EXPECT_VALUE("'ab'", VELT_PREPEND(text, str("a")));
    EXPECT_VALUE("'b'", text);
}

TEST(FileName, IsTheLastComponent) {
    EXPECT_VALUE("'b'", VELT_FILENAME(str("/a/b/")));
    EXPECT_VALUE("'/'", VELT_FILENAME(str("/")));
    EXPECT_VALUE("'c.txt'", VELT_FILENAME(str("c.txt")));
    EXPECT_VALUE("''", VELT_FILENAME(str("")));
    EXPECT_VALUE("'c.txt'", VELT_FILENAME(str("/a/b/c.txt")));
}

TEST(FileExtension, FollowsTheLastDot) {
    EXPECT_VALUE("'gz'", VELT_FILEEXTENSION(str("x.tar.gz")));
    EXPECT_VALUE("''", VELT_FILEEXTENSION(str("/a.b/c")));
    EXPECT_VALUE("''", VELT_FILEEXTENSION(str("x.")));
}

TEST(FilePath, RaisesARangeErrorForABareName) {
    EXPECT_VALUE("'/a/b'", VELT_FILEPATH(str("/a/b/c.txt")));
    EXPECT_VALUE("''", VELT_FILEPATH(str("")));
    EXPECT_VALUE("''", VELT_FILEPATH(str("/c.txt")));
    EXPECT_RAISES("NSRangeException: 'FilePath': index -1 is out of range; the count is 5",
                  VELT_FILEPATH(str("c.txt")));
    EXPECT_RAISES("NSRangeException: 'FilePath': index -1 is out of range; the count is 1", VELT_FILEPATH(str("/")));
}

TEST(Format, IsTheText) {
    EXPECT_VALUE("'5'", VELT_FORMAT(integer(5), boolean(false)));
    EXPECT_VALUE("'0.1'", VELT_FORMAT(real(0.1), boolean(true)));
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_FORMAT(integer(5), nil));
}

TEST(FormatFloat, UsesExponents) {
    EXPECT_VALUE("'1.234E+03'", VELT_FORMATFLOAT(real(1234.5), boolean(false), integer(3)));
    EXPECT_VALUE("'1E+00'", VELT_FORMATFLOAT(integer(1), boolean(false), integer(0)));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_FORMATFLOAT(array(), boolean(false), integer(3)));
}

TEST(FormatDecimal, UsesFixedNotation) {
    EXPECT_VALUE("'3.14'", VELT_FORMATDECIMAL(real(3.14159), boolean(false), integer(2)));
    EXPECT_VALUE("'-0.50'", VELT_FORMATDECIMAL(str("-0.5"), boolean(false), integer(2)));
    EXPECT_VALUE("'INF'", VELT_FORMATDECIMAL(real(HUGE_VAL), boolean(false), integer(2)));
    EXPECT_CAST_FAILURE("'Long' expected", VELT_FORMATDECIMAL(real(1), boolean(false), nil));
}

TEST(FormatDecimal, GivesTheTemplateForANegativeDigitCount) {
    EXPECT_VALUE("'%1.-2F'", VELT_FORMATDECIMAL(real(3.14159), boolean(false), integer(-2)));
}

TEST(FormatDecimal, RefusesMoreDecimalsThanAnyNumberHas) {
    EXPECT_EQ(1002u, velt::textOf(VELT_FORMATDECIMAL(real(1), boolean(false), integer(1000))).size());
    EXPECT_RAISES("VLException: 'Format': 1001 decimals are more than 1000",
                  VELT_FORMATDECIMAL(real(1), boolean(false), integer(1001)));
    EXPECT_RAISES("VLException: 'Format': 9223372036854775807 decimals are more than 1000",
                  VELT_FORMATFLOAT(real(1), boolean(false), integer(LONG_MAX)));
}

TEST(Hex, PrintsTwosComplement) {
    EXPECT_VALUE("'FFFFFFFFFFFFFFFF'", VELT_HEX(integer(-1)));
    EXPECT_VALUE("'FF'", VELT_HEX(integer(255)));
    EXPECT_VALUE("'0'", VELT_HEX(integer(0)));
    EXPECT_CAST_FAILURE("'Long' expected", VELT_HEX(nil));
}
