#include "VELTRuntime/platform/foundation/attributed_string.h"

#include "support/values.h"

using namespace velt::test;

TEST(AttributedStrings, KeepAttributesOfRanges) {
    const id bold = array(str("bold"));
    velt::Ref<NSMutableAttributedString> text = velt::make<NSMutableAttributedString>(u"plain bold plain");
    text->setAttributes(bold, NSRange{6, 4});
    EXPECT_TRUE(text->attributesAt(5).isNil());
    EXPECT_TRUE(text->attributesAt(6) == bold);
    EXPECT_TRUE(text->attributesAt(9) == bold);
    EXPECT_TRUE(text->attributesAt(10).isNil());
    EXPECT_VALUE("NSMutableAttributedString plain bold plain", text);
    EXPECT_RAISES(
        "NSRangeException: 'NSMutableAttributedString' attributesAtIndex:: index 16 is out of range; the count is 16",
        text->attributesAt(16));
    EXPECT_RAISES(
        "NSRangeException: 'NSMutableAttributedString' setAttributes:range:: index 17 is out of range; the count is 16",
        text->setAttributes(bold, NSRange{10, 7}));
    text->append(*text);
    EXPECT_EQ(32u, text->length());
    EXPECT_TRUE(text->attributesAt(22) == bold);
}

TEST(AttributedStrings, AddAttributesToThoseThatAreThere) {
    velt::Ref<NSMutableAttributedString> text = velt::make<NSMutableAttributedString>(u"abcdef");
    text->addAttribute(str("size"), integer(12), NSRange{0, 4});
    velt::send(text, "addAttribute:value:range:", str("bold"), boolean(true), range(2, 4));
    EXPECT_VALUE("NSDictionary {size = 12}", text->attributesAt(1));
    EXPECT_VALUE("NSDictionary {size = 12; bold = 1}", text->attributesAt(3));
    EXPECT_VALUE("NSDictionary {bold = 1}", velt::send(text, "attributesAtIndex:", integer(4)));
    text->addAttribute(str("size"), integer(9), NSRange{3, 1});
    EXPECT_VALUE("NSDictionary {size = 12; bold = 1}", text->attributesAt(2));
    EXPECT_VALUE("NSDictionary {size = 9; bold = 1}", text->attributesAt(3));
    text->addAttribute(str("none"), integer(1), NSRange{6, 0});
    EXPECT_VALUE("NSDictionary {bold = 1}", text->attributesAt(5));
    EXPECT_EQ("abcdef", velt::utf8(text->view()));
}

TEST(AttributedStrings, StayAsTheyAreWhenAChangeFails) {
    velt::Ref<NSMutableAttributedString> text = velt::make<NSMutableAttributedString>(u"abc");
    EXPECT_RAISES("NSRangeException: 'NSMutableAttributedString' addAttribute:value:range:: index 9223372036854775807 "
                  "is out of range; the count is 3",
                  text->addAttribute(str("a"), integer(1), NSRange{1, ULONG_MAX}));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableDictionary' setObject:forKey:: nil cannot be a value",
                  text->addAttribute(str("a"), nil, NSRange{0, 3}));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableAttributedString' appendAttributedString:: nil cannot be "
                  "appended",
                  velt::send(text, "appendAttributedString:", nil));
    EXPECT_CAST_FAILURE("'NSAttributedString' expected", velt::send(text, "appendAttributedString:", str("d")));
    EXPECT_VALUE("NSMutableAttributedString abc", text);
    EXPECT_TRUE(text->attributesAt(0).isNil());
}

TEST(AttributedStrings, TellTheirTextByName) {
    const id text = velt::make<NSMutableAttributedString>(u"abc");
    velt::send(text, "appendAttributedString:", velt::make<NSAttributedString>(u"de"));
    EXPECT_VALUE("'abcde'", velt::send(text, "string"));
    EXPECT_VALUE("Q 5", velt::send(text, "length"));
    EXPECT_VALUE("'NSMutableAttributedString'", VELT_CLASSNAME(velt::send(text, "mutableCopy")));
    EXPECT_FALSE(velt::send(text, "mutableCopy") == text);
}

TEST(AttributedStrings, AreEqualWithEqualTextAndAttributes) {
    velt::Ref<NSMutableAttributedString> a = velt::make<NSMutableAttributedString>(u"abc"),
                                         b = velt::make<NSMutableAttributedString>(u"abc");
    EXPECT_TRUE(velt::isEqual(a, b));
    a->setAttributes(array(integer(1)), NSRange{0, 3});
    EXPECT_FALSE(velt::isEqual(a, b));
    b->setAttributes(array(integer(1)), NSRange{0, 1});
    b->setAttributes(array(integer(1)), NSRange{1, 2});
    EXPECT_TRUE(velt::isEqual(a, b));
    EXPECT_FALSE(velt::isEqual(a, str("abc")));
    EXPECT_VALUE("'NSAttributedString'", VELT_CLASSNAME(VELT_CLONE(a)));
}
