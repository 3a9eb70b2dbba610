#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "support/values.h"

using namespace velt::test;

TEST(IntegerConversion, ReadsStringsAndNumbers) {
    EXPECT_EQ(42, VELT_CINTEGER(str("42")));
    EXPECT_EQ(4, VELT_CINTEGER(str("4.9")));
    EXPECT_EQ(-4, VELT_CINTEGER(real(-4.9)));
    EXPECT_EQ(12, VELT_CINTEGER(str("12abc")));
    EXPECT_EQ(0, VELT_CINTEGER(str("abc")));
    EXPECT_EQ(-7, VELT_CINTEGER(str(" -7")));
    EXPECT_EQ(LONG_MAX, VELT_CINTEGER(str("99999999999999999999")));
    EXPECT_EQ(LONG_MIN, VELT_CINTEGER(str("-99999999999999999999")));
}

TEST(IntegerConversion, DoesNotNarrow) {
    EXPECT_EQ(300, VELT_CBYTE(integer(300)));
    EXPECT_EQ(LONG_MIN, VELT_CSHORT(integer(LONG_MIN)));
    EXPECT_EQ(1L << 40, VELT_CNSINTEGER(integer(1L << 40)));
}

TEST(ScalarConversions, SayWhatTheyExpected) {
    for (const id& wrong : {id(), array(), point(1, 2), data("1"), emptyDictionary()}) {
        EXPECT_CAST_FAILURE("'Boolean' expected", VELT_CBOOL(wrong));
        EXPECT_CAST_FAILURE("'Integer' expected", VELT_CINTEGER(wrong));
        EXPECT_CAST_FAILURE("'Integer' expected", VELT_CNSINTEGER(wrong));
        EXPECT_CAST_FAILURE("'Integer' expected", VELT_CBYTE(wrong));
        EXPECT_CAST_FAILURE("'Integer' expected", VELT_CSHORT(wrong));
        EXPECT_CAST_FAILURE("'Long' expected", VELT_CLONG(wrong));
        EXPECT_CAST_FAILURE("'Single' expected", VELT_CSINGLE(wrong));
        EXPECT_CAST_FAILURE("'Double' expected", VELT_CDOUBLE(wrong));
        EXPECT_CAST_FAILURE("'Boolean' expected", VELT_BOOLEAN(wrong, nil));
        EXPECT_CAST_FAILURE("'Integer' expected", VELT_INTEGER(wrong, nil));
        EXPECT_CAST_FAILURE("'Boolean' expected", VELT_FLOAT(wrong, nil));
    }
}

TEST(BooleanConversion, ReadsYesTrueAndDigits) {
    for (const char* text : {"yes", "YES", "true", "1", "2", "007", " +0t", "-9"})
        EXPECT_TRUE(VELT_CBOOL(str(text))) << text;
    for (const char* text : {"0", "no", "abc", "", "000", "- 1"}) EXPECT_FALSE(VELT_CBOOL(str(text))) << text;
    EXPECT_TRUE(VELT_CBOOL(real(0.5)));
    EXPECT_FALSE(VELT_CBOOL(real(-0.0)));
    EXPECT_EQ(7, VELT_CBOOL(static_cast<signed char>(7)));
}

TEST(FloatingConversion, ReadsTheNumberAtTheStart) {
    EXPECT_EQ(1000.0, VELT_CDOUBLE(str("1e3x")));
    EXPECT_EQ(0.1f, VELT_CSINGLE(str("0.1")));
    EXPECT_EQ(0.0, VELT_CDOUBLE(str("inf")));
}

TEST(StructureConversions, TakeAnyValueObject) {
    EXPECT_EQ((NSPoint{1, 2}), VELT_CNSPOINT(rect(1, 2, 3, 4)));
    EXPECT_EQ((NSPoint{1, 2}), VELT_CNSPOINT(size(1, 2)));
    EXPECT_EQ((NSRect{}), VELT_CNSRECT(integer(5)));
    EXPECT_EQ((NSRange{1, 2}), VELT_CNSRANGE(range(1, 2)));
    for (const id& wrong : {id(), str("1"), array()}) {
        EXPECT_CAST_FAILURE("'Point' expected", VELT_CNSPOINT(wrong));
        EXPECT_CAST_FAILURE("'Size' expected", VELT_CNSSIZE(wrong));
        EXPECT_CAST_FAILURE("'Rect' expected", VELT_CNSRECT(wrong));
        EXPECT_CAST_FAILURE("'Range' expected", VELT_CNSRANGE(wrong));
    }
}

TEST(StringConversion, GivesTheTextOfAnyValue) {
    EXPECT_VALUE("'5'", VELT_CSTRING(integer(5)));
    EXPECT_VALUE("'abc'", VELT_CSTRING(data("abc")));
    EXPECT_VALUE("'{1, 2}'", VELT_CSTRING(point(1, 2)));
    EXPECT_VALUE("'(1, abc)'", VELT_CSTRING(array(integer(1), str("abc"))));
    EXPECT_VALUE("'1'", VELT_CSTRING(boolean(true)));
    EXPECT_VALUE("'x'", VELT_STRING(str("x"), nil));
    const id text = str("abc");
    EXPECT_FALSE(VELT_CSTRING(text) == text);
    EXPECT_RAISES("VLException: nil has no text: a string cannot be made from it", VELT_CSTRING(nil));
}

TEST(OtherConversions, BoxWhatTheyRead) {
    EXPECT_VALUE("c 1", VELT_BOOLEAN(str("yes"), nil));
    EXPECT_VALUE("q 12", VELT_INTEGER(str("12"), nil));
    EXPECT_VALUE("c 1", VELT_FLOAT(str("3.5"), nil));
}

TEST(DataConversion, TakesDataAndStrings) {
    EXPECT_CAST_FAILURE("'Data' Argument = Nil", VELT_CDATA(nil));
    EXPECT_CAST_FAILURE("'Data' expected", VELT_CDATA(integer(1)));
    EXPECT_CAST_FAILURE("'String' expected", VELT_DATA(data("x")));
    EXPECT_CAST_FAILURE("'String' expected", VELT_DATA(nil));
    const id bytes = data("abc");
    const id copy = VELT_CDATA(bytes);
    EXPECT_FALSE(copy == bytes);
    EXPECT_VALUE("c 1", VELT_ISDATA(copy));
    EXPECT_VALUE("c 1", VELT_EQUAL(copy, bytes));
    EXPECT_EQ("\xC3\xA9", velt::dataOf(VELT_DATA(str("é")))->characters());
}

TEST(AttributedStringConversion, CopiesAttributedStrings) {
    const id attributed = velt::make<NSMutableAttributedString>(u"abc");
    EXPECT_VALUE("NSAttributedString abc", VELT_CATTRIBUTEDSTRING(attributed));
    EXPECT_CAST_FAILURE("'AttributedString' expected", VELT_CATTRIBUTEDSTRING(integer(1)));
    EXPECT_CAST_FAILURE("'AttributedString' expected", VELT_CATTRIBUTEDSTRING(nil));
}

TEST(ImageConversion, TakesImagesAndFileNamesOnly) {
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_CNSIMAGE(nil));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_CNSIMAGE(integer(1)));
}

TEST(RaisingByName, MakesAnExceptionOfThatNameAndReason) {
    EXPECT_RAISES("MyException: because 5", VELT_EXCEPTION(str("MyException"), str("because 5"), nil));
    EXPECT_RAISES("5: 7", VELT_EXCEPTION(integer(5), integer(7), array()));
    EXPECT_RAISES("VLException: nil has no text: a string cannot be made from it", VELT_EXCEPTION(nil, str("x"), nil));
}

TEST(DataConversion, GivesDataOfItsOwn) {
    const id bytes = mutableData("abc");
    const id converted = VELT_CDATA(bytes);
    velt::as<NSMutableData>(converted)->append("d");
    EXPECT_VALUE("NSMutableData <616263>", bytes);
    EXPECT_VALUE("NSMutableData <c3a4>", VELT_CDATA(str("ä")));
    EXPECT_VALUE("NSData <f09f9880>", VELT_DATA(str("😀")));
    EXPECT_VALUE("'a\xEF\xBF\xBD"
                 "b'",
                 VELT_CSTRING(data("a\xFF"
                                   "b")));
}
