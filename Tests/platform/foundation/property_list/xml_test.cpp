#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "VELTRuntime/platform/foundation/url.h"
#include "support/property_lists.h"

#include <cmath>
#include <limits>

using namespace velt::test;
using velt::PropertyListForm;

namespace {

const std::string kBegin = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n", kEnd = "</plist>\n";

std::string written(const id& root) { return velt::writePropertyList(root, PropertyListForm::Xml); }
/// What stands between the tags of the root.
std::string body(const id& root) {
    const std::string all = written(root);
    EXPECT_TRUE(all.starts_with(kBegin) && all.ends_with(kEnd)) << all;
    return all.substr(kBegin.size(), all.size() - kBegin.size() - kEnd.size());
}
id read(const std::string& elements) { return velt::readPropertyList("<plist>" + elements + "</plist>"); }
std::string failure(const std::string& elements) { return readFailure("<plist>" + elements + "</plist>"); }

id dictionaryOfTwo(const id& value) {
    const id both = emptyDictionary();
    VELT_NSMUTABLEDICTIONARY_INSERT(both, str("a"), value);
    VELT_NSMUTABLEDICTIONARY_INSERT(both, str("b"), value);
    return both;
}

}  // namespace

TEST(XmlPropertyList, IsWrittenAnElementALine) {
    const id root = dictionary({{"name", str("a")},
                                {"list", array(integer(1), boolean(true), boolean(false))},
                                {"empty", array()},
                                {"none", emptyDictionary()},
                                {"bytes", data("hello")}});
    EXPECT_EQ(
        "<dict>\n\t<key>name</key>\n\t<string>a</string>\n\t<key>list</key>\n\t<array>\n\t\t<integer>1</integer>\n"
        "\t\t<true/>\n\t\t<false/>\n\t</array>\n\t<key>empty</key>\n\t<array/>\n\t<key>none</key>\n\t<dict/>\n"
        "\t<key>bytes</key>\n\t<data>\n\taGVsbG8=\n\t</data>\n</dict>\n",
        body(root));
}

TEST(XmlPropertyList, WritesNumbersByTheirTypeCode) {
    EXPECT_EQ("<integer>-9223372036854775808</integer>\n", body(integer(LONG_MIN)));
    EXPECT_EQ("<integer>18446744073709551615</integer>\n", body(natural(~0ul)));
    EXPECT_EQ("<integer>9223372036854775808</integer>\n", body(natural(1ul << 63)));
    EXPECT_EQ("<integer>65</integer>\n", body(charCode(65)));
    EXPECT_EQ("<integer>-2</integer>\n", body(byte(-2)));
    EXPECT_EQ("<true/>\n", body(byte(1)));
    EXPECT_EQ("<integer>1</integer>\n", body(shortNumber(1)));
    EXPECT_EQ("<real>0.1</real>\n", body(real(0.1)));
    EXPECT_EQ("<real>0.1</real>\n", body(single(0.1f)));
    EXPECT_EQ("<real>1e+300</real>\n", body(real(1e300)));
    EXPECT_EQ("<real>+infinity</real>\n", body(real(std::numeric_limits<double>::infinity())));
    EXPECT_EQ("<real>-infinity</real>\n", body(real(-std::numeric_limits<double>::infinity())));
    EXPECT_EQ("<real>nan</real>\n", body(real(std::nan(""))));
    EXPECT_EQ("<date>2001-01-01T00:00:00Z</date>\n", body(velt::make<NSDate>(0.75)));
    EXPECT_EQ("<dict><key>CF$UID</key><integer>7</integer></dict>\n", body(velt::make<velt::PropertyListUid>(7u)));
}

TEST(XmlPropertyList, EscapesWhatXmlWouldChange) {
    EXPECT_EQ("<string>a&lt;b&gt;&amp;\"'\t\n&#13;</string>\n", body(str("a<b>&\"'\t\n\r")));
    EXPECT_EQ("<string>é€\xF0\x9F\x98\x80\x7F</string>\n", body(str("é€\xF0\x9F\x98\x80\x7F")));
    for (const char* text : {"", " ", " blanks ", "a<b>&\"'\t\n\r\r\n", "]]>", "<!-- -->", "é€\xF0\x9F\x98\x80"}) {
        EXPECT_EQ(text, velt::utf8(velt::readPropertyList(written(str(text)))));
        const id keyed = velt::readPropertyList(written(dictionary({{text, integer(1)}})));
        EXPECT_EQ(text, velt::utf8(velt::dictionaryOf(keyed)->keyAt(0)));
    }
    // Longer than one piece of the writer, with a pair across its border.
    std::u16string border(255, u'&');
    border += u"\xD83D\xDE00 end";
    EXPECT_EQ(border, velt::textOf(velt::readPropertyList(written(str(std::u16string_view(border))))));
}

TEST(XmlPropertyList, RefusesToWriteCharactersThatXmlCannotHold) {
    const auto refused = [](std::u16string_view text) { return writeFailure(array(str(text)), PropertyListForm::Xml); };
    EXPECT_EQ("[0]: XML cannot hold the character U+0000", refused(std::u16string_view(u"\0", 1)));
    EXPECT_EQ("[0]: XML cannot hold the character U+001B", refused(u"\x1B"));
    EXPECT_EQ("[0]: XML cannot hold the character U+D800", refused(u"\xD800 "));
    EXPECT_EQ("[0]: XML cannot hold the character U+DC00", refused(u"\xDC00"));
    EXPECT_EQ("[0]: XML cannot hold the character U+D83D", refused(u"\xD83D"));
    EXPECT_EQ("[0]: XML cannot hold the character U+FFFE", refused(u"\xFFFE"));
    EXPECT_EQ("", refused(u"\xFFFD\xE000\xD7FF"));
}

TEST(PropertyLists, NameTheWayToWhatTheyCannotHold) {
    const id url = NSURL::withString("http://example.org/");
    for (const auto form : {PropertyListForm::Xml, PropertyListForm::Binary}) {
        EXPECT_EQ("the root: a property list cannot hold a value of class NSURL", writeFailure(url, form));
        EXPECT_EQ("the root: nil cannot be written", writeFailure(nil, form));
        EXPECT_EQ(
            "items[3].name: a property list cannot hold a value of class NSURL",
            writeFailure(dictionary({{"items", array(integer(1), str("a"), array(), dictionary({{"name", url}}))}}),
                         form));
        EXPECT_EQ("[1][0]: a property list cannot hold a value of class NSValue",
                  writeFailure(array(array(), array(point(1, 2))), form));
        const id numbered = emptyDictionary();
        velt::mutableDictionaryOf(numbered)->setObject(integer(1), integer(2));
        EXPECT_EQ("[0].(key): a key has to be a string", writeFailure(array(numbered), form));
    }
    EXPECT_EQ("the ASCII form is only read", writeFailure(array(), PropertyListForm::Ascii));
}

TEST(XmlPropertyList, RefusesToWriteWhatLiesWithinItselfOrTooDeep) {
    const id list = array();
    VELT_NSMUTABLEARRAY_APPEND(list, array(list));
    EXPECT_EQ("[0][0]: the collection lies within itself", writeFailure(list, PropertyListForm::Xml));
    VELT_NSMUTABLEARRAY_REMOVE(list, integer(0));
    EXPECT_EQ("", writeFailure(nestedArrays(512), PropertyListForm::Xml));
    EXPECT_TRUE(writeFailure(nestedArrays(513), PropertyListForm::Xml)
                    .ends_with("[0]: more than 512 collections within each other"));
    EXPECT_EQ("[0]: the date is no moment of the calendar",
              writeFailure(array(velt::make<NSDate>(std::nan(""))), PropertyListForm::Xml));
}

TEST(XmlPropertyList, RefusesToRepeatSharedCollectionsWithoutEnd) {
    id list = array(str("a text of some length"));
    EXPECT_EQ("", writeFailure(array(list, list, list), PropertyListForm::Xml));
    for (int i = 0; i < 40; ++i) list = i % 2 ? id(array(list, list)) : dictionaryOfTwo(list);
    const std::string failure = writeFailure(list, PropertyListForm::Xml);
    EXPECT_TRUE(failure.ends_with(": collections that several share would be repeated too often")) << failure;
    EXPECT_EQ("", writeFailure(list, PropertyListForm::Binary));
}

TEST(XmlPropertyList, ReadsEveryElement) {
    EXPECT_VALUE("'text'", read("<string>text</string>"));
    EXPECT_VALUE("''", read("<string/>"));
    EXPECT_VALUE("'a<b & c'", read("<string>a<![CDATA[<b & c]]></string>"));
    EXPECT_VALUE("'<>&'\"A'", read("<string>&lt;&gt;&amp;&apos;&quot;&#65;</string>"));
    EXPECT_VALUE("q 12", read("<integer> 12\n</integer>"));
    EXPECT_VALUE("q -12", read("<integer>-12</integer>"));
    EXPECT_VALUE("q 255", read("<integer>0xFF</integer>"));
    EXPECT_VALUE("q 9223372036854775807", read("<integer>9223372036854775807</integer>"));
    EXPECT_VALUE("q -9223372036854775808", read("<integer>-9223372036854775808</integer>"));
    EXPECT_VALUE("Q 9223372036854775808", read("<integer>9223372036854775808</integer>"));
    EXPECT_VALUE("Q 18446744073709551615", read("<integer>+18446744073709551615</integer>"));
    EXPECT_VALUE("d 1.5", read("<real>1.5</real>"));
    EXPECT_VALUE("d 3", read("<real> +3 </real>"));
    EXPECT_VALUE("d inf", read("<real>+infinity</real>"));
    EXPECT_VALUE("d -inf", read("<real>-INF</real>"));
    EXPECT_VALUE("d inf", read("<real>1e999</real>"));
    EXPECT_VALUE("c 1", read("<true/>"));
    EXPECT_VALUE("c 0", read("<false></false>"));
    EXPECT_VALUE("NSDate 2026-11-21 07:31:51 +0000", read("<date>2026-11-21T07:31:51Z</date>"));
    EXPECT_VALUE("NSData <68656c6c 6f>", read("<data>\n aGVs\n\tbG8=\n</data>"));
    EXPECT_VALUE("NSMutableArray (1, (), {})", read("<array><integer>1</integer><array/><dict></dict></array>"));
    EXPECT_VALUE("NSMutableDictionary {a = 2}", read("<dict><key>a</key><integer>1</integer><key>a</key>"
                                                     "<integer>2</integer></dict>"));
    EXPECT_VALUE("PropertyListUid UID 9", read("<dict><key>CF$UID</key><integer>9</integer></dict>"));
}

TEST(XmlPropertyList, IsReadInOtherDressings) {
    EXPECT_VALUE("c 1", velt::readPropertyList("<true/>"));
    EXPECT_VALUE("c 1", velt::readPropertyList("\xEF\xBB\xBF<?xml version='1.0'?><!-- a --><plist><true/></plist>\n"));
    EXPECT_VALUE("c 1", velt::readPropertyList("  <plist version='1.0'>\n<!-- a --><true/> <?x y?></plist>"));
    EXPECT_VALUE("'é'", velt::readPropertyList("<?xml version='1.0' encoding='ISO-8859-1'?><string>\xE9</string>"));
    EXPECT_VALUE("c 1", velt::readPropertyList("<!DOCTYPE plist PUBLIC \"-//X//DTD PLIST 1.0//EN\" "
                                               "\"http://127.0.0.1/none.dtd\"><plist><true/></plist>"));
    std::string wide = "\xFF\xFE";
    for (const char c : std::string("<plist><string>w</string></plist>")) wide.append(1, c).append(1, '\0');
    EXPECT_VALUE("'w'", velt::readPropertyList(wide));
    // Longer than one piece of the reader.
    const std::string longText(200000, 'x');
    EXPECT_EQ(longText, velt::utf8(read("<string>" + longText + "</string>")));
}

TEST(XmlPropertyList, TellsWhereItIsWrong) {
    EXPECT_EQ("line 3, column 2: the element b is no value", readFailure("<plist>\n<array>\n <b/></array></plist>"));
    EXPECT_EQ("line 1, column 8: there is no value", failure(""));
    EXPECT_EQ("line 1, column 15: there is a second value", failure("<true/><true/>"));
    EXPECT_EQ("line 1, column 8: the element plist is no value", failure("<plist/>"));
    EXPECT_EQ("line 1, column 8: text outside of a value", failure("text"));
    EXPECT_EQ("line 1, column 15: text outside of a value", failure("<array>text</array>"));
    EXPECT_EQ("line 1, column 17: text outside of a value", failure("<true>yes</true>"));
    EXPECT_EQ("line 1, column 16: an element within a text", failure("<string><b/></string>"));
    EXPECT_EQ("line 1, column 14: a value without a key", failure("<dict><true/></dict>"));
    EXPECT_EQ("line 1, column 26: a key without a value", failure("<dict><key>a</key><key>b</key></dict>"));
    EXPECT_EQ("line 1, column 26: a key without a value", failure("<dict><key>a</key></dict>"));
    EXPECT_EQ("line 1, column 8: a key outside of a dictionary", failure("<key>a</key>"));
    EXPECT_EQ("line 1, column 18: no integer of 64 bits", failure("<integer>x</integer>"));
    for (const char* number : {"", "-", "1.5", "18446744073709551616", "-9223372036854775809", "0x", "1 2", "--1"}) {
        EXPECT_TRUE(failure("<integer>" + std::string(number) + "</integer>").ends_with(": no integer of 64 bits"));
    }
    for (const char* number : {"", "x", "1,5", "1.5x", "+-1", "0x10"}) {
        EXPECT_TRUE(failure("<real>" + std::string(number) + "</real>").ends_with(": no real number")) << number;
    }
    EXPECT_EQ("line 1, column 31: no date", failure("<date>2026-11-21 07:31Z</date>"));
    EXPECT_EQ("line 1, column 18: no Base64", failure("<data>aGV*</data>"));
    EXPECT_EQ("line 1, column 17: Base64 that is cut short", failure("<data>aGV</data>"));
    EXPECT_EQ("line 1, column 8: unclosed token", readFailure("<plist><"));
    EXPECT_EQ("line 1, column 17: mismatched tag", failure("<array></dict>"));
}

TEST(XmlPropertyList, KnowsNoEntitiesButTheFiveOfXml) {
    EXPECT_EQ("line 1, column 16: undefined entity", failure("<string>&nbsp;</string>"));
    EXPECT_EQ(
        "line 1, column 67: the entity nbsp is not known",
        readFailure("<!DOCTYPE plist SYSTEM \"http://127.0.0.1/none.dtd\"><plist><string>&nbsp;</string></plist>"));
    const std::string bomb = "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;\">]>"
                             "<plist><string>&b;</string></plist>";
    EXPECT_EQ("line 1, column 17: a document type may declare nothing", readFailure(bomb));
    EXPECT_EQ(
        "line 1, column 17: a document type may declare nothing",
        readFailure("<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><plist><string>&a;</string></plist>"));
}

TEST(XmlPropertyList, LimitsHowDeepCollectionsLie) {
    const auto deep = [](int levels) {
        std::string text;
        for (int i = 0; i < levels; ++i) text += "<array>";
        for (int i = 0; i < levels; ++i) text += "</array>";
        return text;
    };
    EXPECT_EQ("", failure(deep(512)));
    EXPECT_EQ("line 1, column 3592: more than 512 collections within each other", failure(deep(513)));
    EXPECT_EQ("line 1, column 3592: more than 512 collections within each other", failure(deep(100000)));
}
