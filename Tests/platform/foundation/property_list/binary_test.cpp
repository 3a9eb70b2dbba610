#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "support/property_lists.h"

#include <cmath>
#include <limits>

using namespace velt::test;
using velt::PropertyListForm;

namespace {

std::string written(const id& root) { return velt::writePropertyList(root, PropertyListForm::Binary); }
id reread(const id& root) { return velt::readPropertyList(written(root)); }

std::string bigEndian(std::uint64_t number, int width) {
    std::string bytes;
    for (int i = width - 1; i >= 0; --i) bytes += static_cast<char>(number >> (8 * i));
    return bytes;
}

/// A binary property list of those objects, the first on top, with offsets of four bytes and references of one.
std::string binary(const std::vector<std::string>& objects) {
    std::string bytes = "bplist00", table;
    for (const std::string& object : objects) {
        table += bigEndian(bytes.size(), 4);
        bytes += object;
    }
    const std::size_t start = bytes.size();
    return bytes + table + std::string(6, '\0') + "\4\1" + bigEndian(objects.size(), 8) + bigEndian(0, 8) +
           bigEndian(start, 8);
}
std::string bytes(std::initializer_list<int> values) {
    std::string result;
    for (const int value : values) result += static_cast<char>(value);
    return result;
}
/// What is read from one object.
std::string shown(const std::string& object) { return show(velt::readPropertyList(binary({object}))); }

}  // namespace

TEST(BinaryPropertyList, HasTheBytesOfThePublishedFormat) {
    const id list = array(str("a"), integer(1), str("a"));
    std::string expected = "bplist00";
    expected += bytes({0x51, 'a', 0x10, 1, 0xA3, 1, 2, 1}) + bytes({12, 8, 10});
    expected += bytes({0, 0, 0, 0, 0, 0, 1, 1}) + bigEndian(3, 8) + bigEndian(0, 8) + bigEndian(16, 8);
    EXPECT_EQ(expected, written(list));
}

TEST(BinaryPropertyList, WritesIntegersInTheSmallestWidth) {
    const auto object = [](const id& number) {
        const std::string all = written(number);
        return all.substr(8, all.size() - 8 - 32 - 1);
    };
    EXPECT_EQ(bytes({0x10, 0}), object(integer(0)));
    EXPECT_EQ(bytes({0x10, 0xFF}), object(integer(255)));
    EXPECT_EQ(bytes({0x11, 1, 0}), object(integer(256)));
    EXPECT_EQ(bytes({0x12, 0, 1, 0, 0}), object(integer(65536)));
    EXPECT_EQ(bytes({0x13}) + bigEndian(1ull << 32, 8), object(integer(1L << 32)));
    EXPECT_EQ(bytes({0x13}) + bigEndian(~0ull, 8), object(integer(-1)));
    EXPECT_EQ(bytes({0x14}) + bigEndian(0, 8) + bigEndian(1ull << 63, 8), object(natural(1ul << 63)));
    EXPECT_EQ(bytes({0x10, 5}), object(byte(5)));
    EXPECT_EQ(bytes({0x09}), object(byte(1)));
    EXPECT_EQ(bytes({0x08}), object(boolean(false)));
    EXPECT_EQ(bytes({0x22, 0x3F, 0xC0, 0, 0}), object(single(1.5f)));
    EXPECT_EQ(bytes({0x23, 0x3F, 0xF8, 0, 0, 0, 0, 0, 0}), object(real(1.5)));
}

TEST(BinaryPropertyList, KeepsEveryKindOfNumber) {
    for (const long value : {0L, 1L, -1L, 127L, 128L, 255L, 256L, 65535L, 65536L, 4294967295L, 4294967296L, LONG_MAX,
                             LONG_MIN, LONG_MIN + 1}) {
        EXPECT_EQ("q " + std::to_string(value), show(reread(integer(value))));
    }
    EXPECT_VALUE("Q 18446744073709551615", reread(natural(~0ul)));
    EXPECT_VALUE("Q 9223372036854775808", reread(natural(1ul << 63)));
    EXPECT_VALUE("q 9223372036854775807", reread(natural((1ul << 63) - 1)));
    EXPECT_VALUE("q 7", reread(natural(7)));
    EXPECT_VALUE("q 7", reread(shortNumber(7)));
    EXPECT_VALUE("q 955", reread(charCode(955)));
    EXPECT_VALUE("q -3", reread(byte(-3)));
    EXPECT_VALUE("c 1", reread(boolean(true)));
    EXPECT_VALUE("c 0", reread(boolean(false)));
    EXPECT_VALUE("d 0.1", reread(real(0.1)));
    EXPECT_VALUE("d 0.5", reread(single(0.5f)));
    EXPECT_VALUE("d 1e+300", reread(real(1e300)));
    EXPECT_TRUE(std::signbit(VELT_CDOUBLE(reread(real(-0.0)))));
    EXPECT_TRUE(std::isnan(VELT_CDOUBLE(reread(real(std::nan(""))))));
    EXPECT_VALUE("d -inf", reread(real(-std::numeric_limits<double>::infinity())));
}

TEST(BinaryPropertyList, ReadsIntegersOfEveryWidth) {
    EXPECT_EQ("q 200", shown(bytes({0x10, 200})));
    EXPECT_EQ("q 65535", shown(bytes({0x11, 255, 255})));
    EXPECT_EQ("q 4294967295", shown(bytes({0x12, 255, 255, 255, 255})));
    EXPECT_EQ("q -1", shown(bytes({0x13}) + bigEndian(~0ull, 8)));
    EXPECT_EQ("q -2", shown(bytes({0x14}) + bigEndian(~0ull, 8) + bigEndian(~1ull, 8)));
    EXPECT_EQ("Q 18446744073709551615", shown(bytes({0x14}) + bigEndian(0, 8) + bigEndian(~0ull, 8)));
    EXPECT_EQ("byte 8: an integer of more than 64 bits",
              readFailure(binary({bytes({0x14}) + bigEndian(1, 8) + bigEndian(0, 8)})));
}

TEST(BinaryPropertyList, KeepsTexts) {
    for (const char16_t* text : {u"", u"plain", u"fifteen letters", u"sixteen letters!", u"été", u"\xD83D\xDE00",
                                 u"lone \xD800", u"\x7F", u"\x80", u"tab\tnul-free\r\n"}) {
        EXPECT_EQ(std::u16string(text), std::u16string(velt::textOf(reread(str(std::u16string_view(text))))));
    }
    const std::u16string withNul(u"a\0b", 3), longText(70000, u'x'), longWide(70000, u'\x3B1');
    for (const auto& text : {withNul, longText, longWide}) {
        EXPECT_EQ(text, std::u16string(velt::textOf(reread(str(std::u16string_view(text))))));
    }
}

TEST(BinaryPropertyList, KeepsDatesDataUidsAndCollections) {
    EXPECT_EQ(-0.25, velt::as<NSDate>(reread(velt::make<NSDate>(-0.25)))->timeIntervalSinceReferenceDate());
    EXPECT_VALUE("NSData <>", reread(data("")));
    EXPECT_VALUE("NSData <00ff0a>", reread(data(std::string_view("\0\xFF\n", 3))));
    for (const std::uint32_t value : {0u, 255u, 256u, 65536u, 0xFFFFFFFFu}) {
        const id uid = velt::make<velt::PropertyListUid>(value);
        EXPECT_TRUE(velt::isEqual(uid, reread(uid))) << value;
    }
    const id nested = dictionary({{"list", array(array(), emptyDictionary(), boolean(true))}, {"été", integer(3)}});
    EXPECT_TRUE(velt::isEqual(nested, reread(nested)));
    EXPECT_VALUE("NSMutableDictionary {list = ((), {}, 1); été = 3}", reread(nested));
}

TEST(BinaryPropertyList, GivesFrozenCollectionsWhenAsked) {
    const std::string bytes = written(array(array(), emptyDictionary()));
    const id frozen = velt::readPropertyList(bytes, velt::Collections::Frozen);
    EXPECT_VALUE("NSArray ((), {})", frozen);
    EXPECT_VALUE("NSArray ()", velt::arrayOf(frozen)->at(0));
    EXPECT_VALUE("NSDictionary {}", velt::arrayOf(frozen)->at(1));
    EXPECT_VALUE("NSMutableArray ((), {})", velt::readPropertyList(bytes));
}

TEST(BinaryPropertyList, WritesEqualScalarsAndTheSameCollectionOnce) {
    const id inner = array(str("x"));
    const id outer = array(inner, inner, str("x"), str(u"x"), integer(4), shortNumber(4), velt::make<NSDate>(1.0),
                           velt::make<NSDate>(1.0), data("z"), mutableData("z"));
    const std::string bytes = written(outer);
    EXPECT_EQ(std::string("\0\0\0\0\0\0\0\6", 8), bytes.substr(bytes.size() - 24, 8));
    const id back = velt::readPropertyList(bytes);
    EXPECT_TRUE(velt::isEqual(outer, back));
    EXPECT_TRUE(velt::arrayOf(back)->at(0) == velt::arrayOf(back)->at(1));
}

TEST(BinaryPropertyList, TellsNumbersOfDifferentKindsApart) {
    const id mixed = array(integer(1), boolean(true), real(1), single(1), integer(0), boolean(false), real(0.0),
                           real(-0.0), integer(-1), natural(~0ul));
    EXPECT_VALUE("NSMutableArray (1, 1, 1, 1, 0, 0, 0, -0, -1, 18446744073709551615)", reread(mixed));
    const id back = reread(mixed);
    std::string codes;
    for (const id& item : velt::arrayOf(back)->items()) codes += velt::typeCode(item);
    EXPECT_EQ("qcddqcddqQ", codes);
}

TEST(BinaryPropertyList, ReadsSetsAsArrays) {
    EXPECT_VALUE("NSMutableArray (5)", velt::readPropertyList(binary({bytes({0xC1, 1}), bytes({0x10, 5})})));
    EXPECT_VALUE("NSMutableArray (5)", velt::readPropertyList(binary({bytes({0xB1, 1}), bytes({0x10, 5})})));
}

TEST(BinaryPropertyList, RefusesCollectionsWithinThemselves) {
    EXPECT_EQ("byte 8: the collection lies within itself", readFailure(binary({bytes({0xA1, 0})})));
    EXPECT_EQ("byte 8: the collection lies within itself",
              readFailure(binary({bytes({0xA1, 1}), bytes({0xD1, 2, 0}), bytes({0x51, 'k'})})));
    const id list = array(integer(1));
    VELT_NSMUTABLEARRAY_APPEND(list, dictionary({{"up", list}}));
    EXPECT_EQ("[1].up: the collection lies within itself", writeFailure(list, PropertyListForm::Binary));
    VELT_NSMUTABLEARRAY_REMOVE(list, integer(1));
}

TEST(BinaryPropertyList, ReadsDagsThatWouldBeHugeAsTrees) {
    std::vector<std::string> objects;
    for (int i = 1; i <= 100; ++i) objects.push_back(bytes({0xA2, i, i}));
    objects.push_back(bytes({0x09}));
    const id root = velt::readPropertyList(binary(objects));
    EXPECT_EQ(binary(objects).size(), written(root).size() + 2 * objects.size());  // its offsets take two bytes
}

TEST(BinaryPropertyList, LimitsHowDeepCollectionsLie) {
    EXPECT_TRUE(velt::isEqual(nestedArrays(512), reread(nestedArrays(512))));
    std::string path = "[0]";
    while (path.size() < 3 * 512) path += "[0]";
    EXPECT_EQ(path + ": more than 512 collections within each other",
              writeFailure(nestedArrays(513), PropertyListForm::Binary));
    std::vector<std::string> objects;
    for (int i = 0; i < 600; ++i) objects.push_back(bytes({0xA1}) + bigEndian(static_cast<unsigned>(i) + 1, 2));
    objects.push_back(bytes({0x09}));
    std::string deep = binary(objects);
    deep[deep.size() - 25] = 2;  // references of two bytes
    EXPECT_EQ("byte 1544: more than 512 collections within each other", readFailure(deep));
}

TEST(BinaryPropertyList, RefusesDamagedObjects) {
    EXPECT_EQ("byte 8: no object begins with 0", readFailure(binary({bytes({0x00})})));
    EXPECT_EQ("byte 8: no object begins with 15", readFailure(binary({bytes({0x0F})})));
    EXPECT_EQ("byte 8: no object begins with 36", readFailure(binary({bytes({0x24})})));
    EXPECT_EQ("byte 8: no object begins with 240", readFailure(binary({bytes({0xF0})})));
    EXPECT_EQ("byte 8: it ends within an object", readFailure(binary({bytes({0x13, 1})})));
    EXPECT_EQ("byte 8: it ends within an object", readFailure(binary({bytes({0x53, 'a'})})));
    EXPECT_EQ("byte 8: it ends within an object",
              readFailure(binary({bytes({0x6F, 0x13}) + bigEndian(1ull << 62, 8)})));
    EXPECT_EQ("byte 8: it ends within an object", readFailure(binary({bytes({0xAF, 0x13}) + bigEndian(~0ull, 8)})));
    EXPECT_EQ("byte 9: it ends within a count", readFailure(binary({bytes({0x4F})})));
    EXPECT_EQ("byte 9: no count", readFailure(binary({bytes({0x4F, 0x20})})));
    EXPECT_EQ("byte 8: a byte above 127 in an ASCII string", readFailure(binary({bytes({0x51, 0x80})})));
    EXPECT_EQ("byte 9: there is no object 7", readFailure(binary({bytes({0xA1, 7})})));
    EXPECT_EQ("byte 9: a key has to be a string", readFailure(binary({bytes({0xD1, 1, 1}), bytes({0x09})})));
    EXPECT_EQ("byte 8: a key comes twice",
              readFailure(binary({bytes({0xD2, 1, 1, 2, 2}), bytes({0x51, 'a'}), bytes({0x09})})));
    EXPECT_EQ("byte 8: no reference can be that large", readFailure(binary({bytes({0x84, 1, 0, 0, 0, 0})})));
}

TEST(BinaryPropertyList, RefusesADamagedTrailer) {
    const std::string good = binary({bytes({0x09})});
    const std::size_t trailer = good.size() - 32;
    const auto changed = [&](std::size_t at, std::uint64_t number, int width) {
        std::string bad = good;
        bad.replace(trailer + at, static_cast<std::size_t>(width), bigEndian(number, width));
        return readFailure(bad);
    };
    EXPECT_EQ("", readFailure(good));
    EXPECT_EQ("byte 19: offsets cannot be that wide", changed(6, 0, 1));
    EXPECT_EQ("byte 20: references cannot be that wide", changed(7, 9, 1));
    EXPECT_EQ("byte 21: the table is shorter", changed(8, 0, 8));
    EXPECT_EQ("byte 21: the table is shorter", changed(8, ~0ull, 8));
    EXPECT_EQ("byte 29: there is no such object", changed(16, 1, 8));
    EXPECT_EQ("byte 37: the table lies outside", changed(24, ~0ull, 8));
    EXPECT_EQ("byte 37: the table lies outside", changed(24, 7, 8));
    EXPECT_EQ("byte 8: it ends before its trailer", readFailure("bplist00"));
    EXPECT_EQ("byte 0: only version 0 of the binary form is known", readFailure("bplist15" + good.substr(8)));
    std::string outside = good;
    outside[12] = 100;
    EXPECT_EQ("byte 9: the object lies outside", readFailure(outside));
}

TEST(BinaryPropertyList, RefusesObjectsThatOverlapBeforeTheyTakeMemory) {
    // A thousand numbers of one array of a thousand elements each.
    std::string bytes = "bplist00";
    const std::string list = std::string("\xAF\x11\x03\xE8", 4);
    std::string references;
    for (unsigned i = 0; i < 1000; ++i) references += bigEndian(i + 1, 2);
    bytes += list + references;
    const std::size_t second = bytes.size();
    bytes += list + std::string(2000, '\x7F');
    const std::size_t table = bytes.size();
    bytes += bigEndian(8, 4);
    for (int i = 0; i < 1000; ++i) bytes += bigEndian(second, 4);
    bytes += bigEndian(second, 4) + std::string(6, '\0') + "\4\2" + bigEndian(1002, 8) + bigEndian(0, 8) +
             bigEndian(table, 8);
    EXPECT_NE("", readFailure(bytes));
    std::string many = "bplist00" + std::string("\x4F\x11\x10\x00", 4) + std::string(4096, 'x');
    const std::size_t all = many.size();
    many += std::string("\xAF\x10\xC8", 3);
    for (int i = 0; i < 200; ++i) many += static_cast<char>(i + 1);
    const std::size_t start = many.size();
    many += bigEndian(all, 4);
    for (int i = 0; i < 200; ++i) many += bigEndian(8, 4);
    many += std::string(6, '\0') + "\4\1" + bigEndian(201, 8) + bigEndian(0, 8) + bigEndian(start, 8);
    EXPECT_EQ("byte 8: objects overlap", readFailure(many));
}
