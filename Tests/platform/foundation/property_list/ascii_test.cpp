#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "support/property_lists.h"

using namespace velt::test;

namespace {
id read(std::string_view text) { return velt::readPropertyList(text); }
}  // namespace

TEST(AsciiPropertyList, ReadsCollectionsDataAndStrings) {
    EXPECT_VALUE("NSMutableDictionary {a = b; c = (d, e, {})}", read("{ a = b; \"c\" = (d, \"e\", {}); }"));
    EXPECT_VALUE("NSMutableArray ()", read("()"));
    EXPECT_VALUE("NSMutableArray (a, b)", read("(a, b,)"));
    EXPECT_VALUE("NSData <0fbd777f>", read("<0fbd 77\n7F>"));
    EXPECT_VALUE("NSData <>", read("< >"));
    EXPECT_VALUE("NSData <dada>", read("<dada>"));
    EXPECT_VALUE("'lone'", read("lone"));
    EXPECT_VALUE("'a b'", read(" 'a b' "));
    EXPECT_VALUE("'12'", velt::arrayOf(read("(12)"))->at(0));
    EXPECT_VALUE("'/usr/bin:$x_1-2.3'", read("/usr/bin:$x_1-2.3"));
}

TEST(AsciiPropertyList, ReadsEntriesWithoutBraces) {
    EXPECT_VALUE("NSMutableDictionary {a = b; c d = e; alone = alone}",
                 read("/* x */ a = b;\n\"c d\" = e; // y\nalone;\n"));
    EXPECT_VALUE("NSMutableDictionary {a = a; b = {c = c}}", read("a; b = { c; };"));
    EXPECT_EQ("line 1, column 8: something follows the value", readFailure("a = b; }"));
}

TEST(AsciiPropertyList, ReadsEscapes) {
    EXPECT_VALUE("'\a\b\f\n\r\t\v\\\"'x'", read("\"\\a\\b\\f\\n\\r\\t\\v\\\\\\\"\\'\\x\""));
    EXPECT_VALUE("'été\xF0\x9F\x98\x80'", read("\"\\U00e9t\\U00E9\\Ud83d\\UDE00\""));
    EXPECT_VALUE("'A1\x01z'", read("\"\\1011\\1z\""));
    EXPECT_VALUE("'éœ–'", read("\"\\335\\372\\261\""));
    EXPECT_VALUE("'a\nb'", read("\"a\\\nb\""));
    EXPECT_VALUE("'it's'", read("'it\\'s'"));
    EXPECT_VALUE("'été'", read("\"été\""));
}

TEST(AsciiPropertyList, ReadsUtf16AndByteOrderMarks) {
    EXPECT_VALUE("NSMutableDictionary {a = b}", read("\xEF\xBB\xBF"
                                                     "a = b;"));
    std::string little = "\xFF\xFE", big = "\xFE\xFF";
    for (const char16_t unit : std::u16string(u"key = \"\x3B1\";")) {
        little.append(1, static_cast<char>(unit)).append(1, static_cast<char>(unit >> 8));
        big.append(1, static_cast<char>(unit >> 8)).append(1, static_cast<char>(unit));
    }
    EXPECT_VALUE("NSMutableDictionary {key = α}", read(little));
    EXPECT_VALUE("NSMutableDictionary {key = α}", read(big));
}

TEST(AsciiPropertyList, TellsWhereItIsWrong) {
    EXPECT_EQ("line 1, column 1: there is no value", readFailure(""));
    EXPECT_EQ("line 2, column 1: there is no value", readFailure(" // nothing\n"));
    EXPECT_EQ("line 1, column 7: \";\" is missing", readFailure("{a = b}"));
    EXPECT_EQ("line 2, column 4: \";\" is missing", readFailure("{\n a b;}"));
    EXPECT_EQ("line 1, column 9: \"}\" is missing", readFailure("{a = b; "));
    EXPECT_EQ("line 1, column 4: \")\" is missing", readFailure("(a b)"));
    EXPECT_EQ("line 1, column 4: a value is missing", readFailure("(a,"));
    EXPECT_EQ("line 1, column 2: no value begins so", readFailure("(,)"));
    EXPECT_EQ("line 1, column 4: a string without an end", readFailure("\"ab"));
    EXPECT_EQ("line 1, column 3: a string without an end", readFailure("\"\\"));
    EXPECT_EQ("line 1, column 4: no hexadecimal digit", readFailure("\"\\Ux\""));
    EXPECT_EQ("line 1, column 1: a comment without an end", readFailure("/* a"));
    EXPECT_EQ("line 1, column 7: half a byte", readFailure("<0a 1>"));
    EXPECT_EQ("line 1, column 4: no hexadecimal digit", readFailure("<0a"));
    EXPECT_EQ("line 1, column 5: something follows the value", readFailure("(a) b"));
    EXPECT_EQ("line 1, column 7: something follows the value", readFailure("hello world"));
    EXPECT_EQ("line 1, column 1: the text is neither UTF-8 nor UTF-16", readFailure("caf\xE9"));
}

TEST(AsciiPropertyList, LimitsHowDeepCollectionsLie) {
    const auto deep = [](int levels) {
        return std::string(static_cast<std::size_t>(levels), '(') + std::string(static_cast<std::size_t>(levels), ')');
    };
    EXPECT_EQ("", readFailure(deep(512)));
    EXPECT_EQ("line 1, column 513: more than 512 collections within each other", readFailure(deep(513)));
    EXPECT_EQ("line 1, column 513: more than 512 collections within each other", readFailure(deep(1000000)));
}
