#include "support/values.h"

using namespace velt::test;

TEST(Boxing, GivesEveryNativeTypeItsCode) {
    EXPECT_VALUE("c 1", VELT_ID(static_cast<BOOL>(5)));
    EXPECT_VALUE("c 65", VELT_ID('A'));
    EXPECT_VALUE("c -1", VELT_ID(static_cast<char>(-1)));
    EXPECT_VALUE("s -300", VELT_ID(static_cast<short>(-300)));
    EXPECT_VALUE("i 65535", VELT_ID(static_cast<unsigned short>(65535)));
    EXPECT_VALUE("q -9223372036854775808", VELT_ID(LONG_MIN));
    EXPECT_VALUE("Q 18446744073709551615", VELT_ID(ULONG_MAX));
    EXPECT_VALUE("Q 7", VELT_ID(7UL));
    EXPECT_VALUE("q 9223372036854775807", VELT_ID(LLONG_MAX));
    EXPECT_VALUE("f 1.5", VELT_ID(1.5f));
    EXPECT_VALUE("d 1e+100", VELT_ID(1e100));
    EXPECT_VALUE("{CGPoint=dd} {1, 2}", VELT_ID(NSPoint{1, 2}));
    EXPECT_VALUE("{CGSize=dd} {3, 4.5}", VELT_ID(NSSize{3, 4.5}));
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{1, 2}, {3, 4}}", VELT_ID(NSRect{{1, 2}, {3, 4}}));
    EXPECT_VALUE("{_NSRange=QQ} {5, 6}", VELT_ID(NSRange{5, 6}));
}

TEST(Boxing, TakesUnsignedLongLongAsSigned) { EXPECT_VALUE("q -1", VELT_ID(ULLONG_MAX)); }

TEST(Boxing, CopiesStringsAndSharesStringVariables) {
    const id text = str("abc");
    NSMutableString* variable = &velt::asMutableString(text);
    const id copy = VELT_ID(variable);
    EXPECT_FALSE(copy == text);
    EXPECT_VALUE("'abc'", copy);
    EXPECT_TRUE(VELT__ID(variable) == text);
    EXPECT_TRUE(VELT_ID(static_cast<NSMutableString*>(nullptr)).isNil());
    EXPECT_TRUE(VELT_ID(static_cast<NSString*>(nullptr)).isNil());
    const id frozen = VELT_ID(static_cast<NSString*>(variable));
    EXPECT_RAISES("NSInvalidArgumentException: 'appendString:' on a string that cannot be changed",
                  velt::send(frozen, "appendString:", str("d")));
}

TEST(Boxing, PassesCollectionsThrough) {
    const id list = array(integer(1));
    EXPECT_TRUE(VELT_ID(velt::mutableArrayOf(list)) == list);
    EXPECT_TRUE(VELT_ID(velt::arrayOf(list)) == list);
    EXPECT_TRUE(VELT_ID(list) == list);
    EXPECT_TRUE(VELT_IDNIL().isNil());
    EXPECT_TRUE(VELT_NSOBJECTNIL(list) == list);
}

TEST(Boxing, KeepsUsualNumbersInTheWord) {
    for (const id& number : {integer(1L << 59), real(0.0), real(-1e70), real(3.14), single(1e30f), shortNumber(-5),
                             boolean(true), natural(1UL << 55)}) {
        EXPECT_FALSE(number.isObject()) << show(number);
    }
}
