// Property lists of generated values, those of other implementations, and damaged ones.
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "support/generated.h"
#include "support/processes.h"
#include "support/property_lists.h"

#include <limits>
#include <vector>

using namespace velt::test;
using velt::PropertyListForm;

namespace {

constexpr PropertyListForm kForms[] = {PropertyListForm::Xml, PropertyListForm::Binary};
std::string nameOf(PropertyListForm form) { return form == PropertyListForm::Xml ? "xml" : "binary"; }

/// A property list with every kind of value.
id everyKind() {
    return dictionary({{"text", str("a<b")},
                       {"été", array(integer(1), integer(-70000), natural(~0ul), real(0.5), boolean(true))},
                       {"date", velt::make<NSDate>(816939111)},
                       {"data", data("bytes")},
                       {"nested", dictionary({{"a", array(array(), emptyDictionary())}})}});
}

id peerSample(bool isBinary) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    const id sample = dictionary(
        {{"text", str("plain & <marked>")},
         {"été", str("\xCE\xB1\xCE\xB2 \xF0\x9F\x98\x80")},
         {"", str("an empty key")},
         {"empty", str("")},
         {"long", str(std::string(100000, 'x'))},
         {"integers",
          array(integer(0), integer(1), integer(-1), integer(255), integer(256), integer(65536), integer(1L << 32),
                integer(LONG_MAX), integer(LONG_MIN), natural(1ul << 63), natural(~0ul))},
         {"reals", array(real(0), real(0.5), real(-1.25), real(0.1), real(1e300), real(5e-324))},
         {"truths", array(boolean(true), boolean(false))},
         {"date", velt::make<NSDate>(*velt::secondsOfIsoText("2026-11-21T07:31:51Z"))},
         {"old", velt::make<NSDate>(*velt::secondsOfIsoText("1969-07-20T20:17:40Z"))},
         {"data", velt::test::data(bytes)},
         {"no data", data("")},
         {"nested",
          dictionary({{"list", array(array(), emptyDictionary(),
                                     array(integer(1), array(integer(2), dictionary({{"deep", str("er")}}))))}})}});
    if (isBinary) velt::mutableDictionaryOf(sample)->setObject(velt::make<velt::PropertyListUid>(70000u), str("uid"));
    return sample;
}

/// Equal values whose numbers have equal type codes.
bool isSame(const id& a, const id& b) {
    const NSArray *list = velt::arrayOf(a), *otherList = velt::arrayOf(b);
    if (list && otherList) {
        bool same = list->count() == otherList->count();
        for (std::size_t i = 0; same && i < list->count(); ++i) same = isSame(list->items()[i], otherList->items()[i]);
        return same;
    }
    const NSDictionary *entries = velt::dictionaryOf(a), *otherEntries = velt::dictionaryOf(b);
    if (entries && otherEntries) {
        bool same = entries->count() == otherEntries->count();
        entries->forEach(
            [&](const id& key, const id& value) { same = same && isSame(value, otherEntries->objectForKey(key)); });
        return same;
    }
    if (velt::isNumber(a) != velt::isNumber(b)) return false;
    return velt::isEqual(a, b) && (!velt::isNumber(a) || std::string(velt::typeCode(a)) == velt::typeCode(b));
}

std::string pathOf(const char* program) {
    for (const char* folder : {"/usr/bin/", "/usr/local/bin/", "/bin/"}) {
        if (access((std::string(folder) + program).c_str(), X_OK) == 0) return std::string(folder) + program;
    }
    return "";
}

ProgramResult runPeer(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(),
                     std::string(VELT_SOURCE_FOLDER) + "/Tests/platform/foundation/property_list/peer.py");
    return runPath(pathOf("python3"), arguments, "");
}

class GeneratedPropertyLists : public Generated {
protected:
    bool withReturns_ = true;
    id text() {
        std::u16string made;
        for (std::size_t length = below(4) ? below(12) : below(300); made.size() < length;) {
            switch (below(6)) {
            case 0: made += static_cast<char16_t>(0x20 + below(0x5F)); break;
            case 1: made += u"<&>\"'\n\t\r"[below(withReturns_ ? 8 : 7)]; break;
            case 2: made += static_cast<char16_t>(0x80 + below(0x700)); break;
            case 3: made += static_cast<char16_t>(0xE000 + below(0x1FF0)); break;
            case 4:
                made.append(
                    {static_cast<char16_t>(0xD800 + below(0x400)), static_cast<char16_t>(0xDC00 + below(0x400))});
                break;
            default: made += static_cast<char16_t>('a' + below(26)); break;
            }
        }
        return str(std::u16string_view(made));
    }
    id number() {
        const unsigned shift = static_cast<unsigned>(below(64));
        switch (below(4)) {
        case 0: return natural((1ul << 63) | bits());
        case 1: return boolean(below(2) == 1);
        case 2: {
            const auto made = std::bit_cast<double>(bits());
            return real(made == made ? made : 0.0);
        }
        default: return integer(static_cast<long>(bits()) >> shift);
        }
    }
    id value(int depth) {
        switch (below(depth > 0 ? 8 : 5)) {
        case 0:
        case 1: return text();
        case 2: return number();
        case 3: {
            // The calendar of Python ends at both sides.
            const double seconds = static_cast<double>(static_cast<long>(below(300000000000)) - 60000000000);
            return velt::make<NSDate>(seconds);
        }
        case 4: {
            std::string bytes;
            for (std::size_t length = below(200); bytes.size() < length;) bytes += static_cast<char>(bits());
            return velt::test::data(bytes);
        }
        case 5: {
            velt::Ref<NSMutableArray> list = velt::make<NSMutableArray>();
            for (std::size_t count = below(20); list->count() < count;) list->append(value(depth - 1));
            return list;
        }
        default: {
            velt::Ref<NSMutableDictionary> entries = velt::make<NSMutableDictionary>();
            for (std::size_t count = below(20), i = 0; i < count; ++i) entries->setObject(value(depth - 1), text());
            return entries;
        }
        }
    }
};

}  // namespace

TEST_F(GeneratedPropertyLists, AreReadAsTheyWereWritten) {
    for (int i = 0; i < iterations(400); ++i) {
        const id root = value(4);
        for (const auto form : kForms) {
            const std::string bytes = velt::writePropertyList(root, form);
            const id back = velt::readPropertyList(bytes);
            ASSERT_TRUE(isSame(root, back)) << nameOf(form) << "\n"
                                            << velt::writePropertyList(root, PropertyListForm::Xml);
            ASSERT_EQ(bytes, velt::writePropertyList(back, form));
        }
    }
}

TEST_F(GeneratedPropertyLists, PassThroughPythonUnchanged) {
    if (pathOf("python3").empty()) GTEST_SKIP() << "python3 is not installed";
    const TemporaryFolder folder;
    withReturns_ = false;  // Python writes them to XML as line feeds
    const id root = array(value(5), value(5), value(5), everyKind());
    for (const auto from : kForms) {
        for (const auto to : kForms) {
            const std::string path = folder.write("in", velt::writePropertyList(root, from));
            const ProgramResult run = runPeer({"copy", nameOf(to), path, folder.file("out")});
            ASSERT_EQ(0, run.status) << run.errors;
            const id back = velt::readPropertyList(contentOf(folder.file("out")));
            EXPECT_TRUE(isSame(root, back)) << nameOf(from) << " to " << nameOf(to);
        }
    }
}

TEST(PropertyListsOfPython, AreReadAndReadBack) {
    if (pathOf("python3").empty()) GTEST_SKIP() << "python3 is not installed";
    const TemporaryFolder folder;
    for (const auto form : kForms) {
        const id sample = peerSample(form == PropertyListForm::Binary);
        const ProgramResult writing = runPeer({"write", nameOf(form), folder.file("theirs")});
        ASSERT_EQ(0, writing.status) << writing.errors;
        EXPECT_TRUE(isSame(sample, velt::readPropertyList(contentOf(folder.file("theirs"))))) << nameOf(form);
        const std::string ours = folder.write("ours", velt::writePropertyList(sample, form));
        const ProgramResult checking = runPeer({"check", nameOf(form), ours});
        EXPECT_EQ(0, checking.status) << nameOf(form) << checking.errors;
    }
}

TEST(PropertyListsOfDebiansTools, AreReadAndReadBack) {
    const std::string tool = pathOf("plistutil");
    if (tool.empty()) GTEST_SKIP() << "plistutil (of libplist-utils) is not installed";
    const TemporaryFolder folder;
    const id sample = everyKind();
    for (const auto form : kForms) {
        const std::string ours = folder.write("ours", velt::writePropertyList(sample, form));
        const char* other = form == PropertyListForm::Xml ? "bin" : "xml";
        const ProgramResult run = runPath(tool, {"-i", ours, "-o", folder.file("theirs"), "-f", other}, "");
        ASSERT_EQ(0, run.status) << run.errors;
        const std::string theirs = contentOf(folder.file("theirs"));
        EXPECT_NE(velt::propertyListForm(theirs), form);
        EXPECT_TRUE(isSame(sample, velt::readPropertyList(theirs))) << show(velt::readPropertyList(theirs));
    }
}

TEST(DamagedPropertyLists, AreReadOrRefusedCleanly) {
    const std::string forms[] = {velt::writePropertyList(everyKind(), PropertyListForm::Xml),
                                 velt::writePropertyList(everyKind(), PropertyListForm::Binary),
                                 "/* c */ { a = \"b\\U00e9\\012\"; c = (d, <0fbd>, { e = 'f'; }); // g\n }"};
    for (const std::string& whole : forms) {
        ASSERT_EQ("", readFailure(whole));
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const std::string part = whole.substr(0, length);
            // Only blanks may be missing at the end; but the first letters alone may be a string of the ASCII form.
            const bool isWord = part == "/" || (std::string_view("bplis").starts_with(part) && !part.empty());
            const bool isWhole = whole.find_first_not_of(" \n", length) == whole.npos;
            EXPECT_EQ(isWord || isWhole, readFailure(part).empty()) << part;
        }
        for (std::size_t at = 0; at < whole.size(); ++at) {
            for (const int mask : {0x01, 0x02, 0x10, 0x20, 0x80, 0xFF}) {
                std::string damaged = whole;
                damaged[at] = static_cast<char>(damaged[at] ^ mask);
                const std::string failure = readFailure(damaged);
                EXPECT_TRUE(failure.empty() || failure.starts_with("byte ") || failure.starts_with("line ")) << failure;
            }
        }
    }
}

TEST_F(GeneratedPropertyLists, AreReadOrRefusedCleanlyWhenBytesChange) {
    for (int i = 0; i < iterations(300); ++i) {
        const std::string whole = velt::writePropertyList(value(3), kForms[below(2)]);
        for (int damage = 0; damage < 20; ++damage) {
            std::string damaged = whole;
            for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
                damaged[below(damaged.size())] = static_cast<char>(bits());
            }
            const std::string failure = readFailure(damaged);
            ASSERT_TRUE(failure.empty() || failure.starts_with("byte ") || failure.starts_with("line ")) << failure;
        }
    }
}

TEST(PropertyListForms, AreToldByTheirFirstBytes) {
    EXPECT_EQ(PropertyListForm::Binary, velt::propertyListForm("bplist00"));
    EXPECT_EQ(PropertyListForm::Xml, velt::propertyListForm("<?xml version='1.0'?>"));
    EXPECT_EQ(PropertyListForm::Xml, velt::propertyListForm(" \n<!-- a --><plist/>"));
    EXPECT_EQ(PropertyListForm::Xml, velt::propertyListForm("<data/>"));
    EXPECT_EQ(PropertyListForm::Ascii, velt::propertyListForm("<da da>"));
    EXPECT_EQ(PropertyListForm::Ascii, velt::propertyListForm("{ a = <0f>; }"));
    EXPECT_EQ(PropertyListForm::Ascii, velt::propertyListForm(""));
}

TEST(PropertyListUids, AreEqualByTheirNumber) {
    const id uid = velt::make<velt::PropertyListUid>(5u);
    EXPECT_TRUE(velt::isEqual(uid, velt::make<velt::PropertyListUid>(5u)));
    EXPECT_FALSE(velt::isEqual(uid, velt::make<velt::PropertyListUid>(6u)));
    EXPECT_FALSE(velt::isEqual(uid, integer(5)));
    EXPECT_EQ("UID 5", velt::utf8(velt::description(uid)));
    EXPECT_VALUE("q 5", velt::send(uid, "integerValue"));
}
