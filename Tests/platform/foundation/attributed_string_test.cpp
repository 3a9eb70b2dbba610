#include "VELTRuntime/platform/foundation/attributed_string.h"

#include "VELTRuntime/platform/foundation/services.h"
#include "support/values.h"

#include <unistd.h>

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

TEST(Services, KnowTheProcessAndItsFiles) {
    EXPECT_VALUE("q " + std::to_string(getpid()), velt::valueForKey(VELT_id_NSPROCESSINFO, "processIdentifier"));
    EXPECT_GE(VELT_CINTEGER(VELT_NSARRAY_COUNT(velt::valueForKey(VELT_id_NSPROCESSINFO, "arguments"))), 1);
    EXPECT_VALUE("c 1",
                 VELT_NSDICTIONARY_CONTAINS(velt::valueForKey(VELT_id_NSPROCESSINFO, "environment"), str("PATH")));
    const std::string program = NSBundle::mainBundle().executablePath();
    EXPECT_TRUE(program.ends_with("/VELTRuntimeTests")) << program;
    EXPECT_EQ(NSBundle::mainBundle().bundlePath() + "/Resources", NSBundle::mainBundle().resourcePath());
    EXPECT_VALUE("c 1", velt::send(VELT_id_FILE, "fileExistsAtPath:", str(program)));
    EXPECT_VALUE("c 0", velt::send(VELT_id_FILE, "fileExistsAtPath:", str("/no/such/file")));
}
