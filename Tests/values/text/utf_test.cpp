#include "VELTRuntime/values/text/utf.h"

#include "VELTRuntime/values/text/casing.h"
#include "support/generated.h"

#include <unicode/ustring.h>

using namespace velt::text;
using velt::test::Generated;
using velt::test::iterations;

TEST(Utf8Decoding, RejectsIllFormedBytes) {
    for (const char* bytes : {"\x80", "\xC3", "\xC0\xAF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF",
                              "a\xE2\x82", "\xF8\x88\x80\x80\x80"}) {
        EXPECT_FALSE(fromUtf8(bytes)) << bytes;
    }
    EXPECT_EQ(u"a\u00E9\u20AC\U0001F600", *fromUtf8("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"));
    EXPECT_EQ(u"\uFEFFx", *fromUtf8("\xEF\xBB\xBFx"));
    EXPECT_EQ(u"", *fromUtf8(""));
}

TEST(Utf8Decoding, ReplacesMaximalIllFormedParts) {
    EXPECT_EQ(u"a\uFFFDb", fromUtf8Lenient("a\xE2\x82"
                                           "b"));
    EXPECT_EQ(u"\uFFFD\uFFFD", fromUtf8Lenient("\xC0\xAF"));
    EXPECT_EQ(u"\uFFFD\uFFFD\uFFFD", fromUtf8Lenient("\xED\xA0\x80"));
}

TEST(AsciiDecoding, ReplacesOtherBytes) {
    EXPECT_EQ(u"a\uFFFDb", fromAscii("a\xE9"
                                     "b"));
}

TEST(Utf8Encoding, ReplacesHalvesOfPairs) {
    EXPECT_EQ("\xEF\xBF\xBDx", toUtf8(u"\xD800x"));
    EXPECT_EQ("\xF0\x9F\x98\x80", toUtf8(u"\U0001F600"));
}

class GeneratedUtf8 : public Generated {};

TEST_F(GeneratedUtf8, DecodesAsTheUnicodeLibraryDoes) {
    static constexpr unsigned char kBytes[] = {0x41, 0x7F, 0x80, 0xBF, 0xA0, 0x9F, 0x90, 0x8F, 0xC2,
                                               0xC1, 0xE0, 0xE2, 0xED, 0xEF, 0xF0, 0xF4, 0xF5, 0xFF};
    for (int round = 0; round < iterations(200'000); ++round) {
        std::string bytes(below(80), 'a');
        for (std::size_t left = below(10); left > 0 && !bytes.empty(); --left)
            bytes[below(bytes.size())] = static_cast<char>(kBytes[below(std::size(kBytes))]);
        std::u16string expected(bytes.size() + 1, u'\0');
        std::int32_t length = 0, replaced = 0;
        UErrorCode status = U_ZERO_ERROR;
        u_strFromUTF8WithSub(expected.data(), static_cast<std::int32_t>(expected.size()), &length, bytes.data(),
                             static_cast<std::int32_t>(bytes.size()), 0xFFFD, &replaced, &status);
        expected.resize(static_cast<std::size_t>(length));
        ASSERT_EQ(expected, fromUtf8Lenient(bytes)) << ::testing::PrintToString(bytes);
        const auto strict = fromUtf8(bytes);
        ASSERT_EQ(replaced == 0, strict.has_value()) << ::testing::PrintToString(bytes);
        if (strict) {
            ASSERT_EQ(bytes, toUtf8(*strict));
        }
    }
}

TEST(CaseMapping, IsFullAndIndependentOfTheLocale) {
    EXPECT_EQ(u"STRASSE", uppered(u"stra\u00DFe"));
    EXPECT_EQ(u"\u03C3\u03BF\u03C6\u03CC\u03C2", lowered(u"\u03A3\u039F\u03A6\u038C\u03A3"));
    EXPECT_EQ(u"i\u0307", lowered(u"\u0130"));
    EXPECT_EQ(u"abc1", lowered(u"ABC1"));
    EXPECT_EQ(u"ABC[", uppered(u"abc["));
}
