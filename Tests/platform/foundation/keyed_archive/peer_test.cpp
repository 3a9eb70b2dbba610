// Archives go both ways between us and a second implementation on Python's plistlib.
#include "VELTRuntime/platform/foundation/null.h"
#include "support/archives.h"
#include "support/processes.h"

using namespace velt::test;
using velt::arrayOf;

namespace {

const char* kPython = "/usr/bin/python3";

class PeerArchives : public ::testing::Test {
protected:
    void SetUp() override {
        if (access(kPython, X_OK) != 0) GTEST_SKIP() << kPython << " is not installed";
    }
    /// What the peer prints.
    static std::string peer(const std::vector<std::string>& arguments) {
        std::vector<std::string> words{VELT_SOURCE_FOLDER "/Tests/platform/foundation/keyed_archive/peer.py"};
        words.insert(words.end(), arguments.begin(), arguments.end());
        const ProgramResult result = runPath(kPython, words, "");
        EXPECT_EQ(0, result.status) << result.errors;
        return result.output;
    }
    std::string file() const { return folder_.file("archive"); }

private:
    TemporaryFolder folder_;
};

}  // namespace

TEST_F(PeerArchives, AreReadInBothForms) {
    for (const char* form : {"xml", "binary"}) {
        peer({"write", file(), form});
        std::string failure;
        const id root = NSKeyedUnarchiver::unarchiveFile(file(), &failure);
        EXPECT_EQ("", failure) << form;
        EXPECT_VALUE("NSMutableDictionary {text = gr\xC3\xBC\xC3\x9F"
                     "e \xF0\x9F\x98\x80; whole = 42; negative = -7; "
                     "large = 9223372036854775807; beyond = 18446744073709551615; real = 0.1; yes = 1; no = 0; "
                     "bytes = <00ff>; list = (1, two, (3.5)); tuple = (); nested = {a = {b = c}}; 5 = five}",
                     root);
        EXPECT_VALUE("Q 18446744073709551615", velt::dictionaryOf(root)->objectForKey(str("beyond")));
        EXPECT_VALUE("c 1", velt::dictionaryOf(root)->objectForKey(str("yes")));
    }
}

TEST_F(PeerArchives, OfOtherWritersAreRead) {
    peer({"names", file()});
    const char* expected[] = {"'cf'",
                              "'b\xC3\xBCtes'",
                              "NSData <64>",
                              "NSArray (first, second)",
                              "NSMutableDictionary {k = v}",
                              "NSArray (member)",
                              "NSMutableArray (o)",
                              "q 12",
                              "c 1",
                              "d 1.5",
                              "NSDate 2001-01-01 00:01:00 +0000",
                              "NSDate 2001-01-01 00:02:00 +0000",
                              "{CGRect={CGPoint=dd}{CGSize=dd}} {{1, 2}, {3, 4.5}}",
                              "{_NSRange=QQ} {1, 2}",
                              "NSURL http://example.org/c?d",
                              "NSNull <null>",
                              "NSAttributedString attributed",
                              "NSMutableArray ()"};
    std::string failure;
    const id root = NSKeyedUnarchiver::unarchiveFile(file(), &failure);
    ASSERT_EQ("", failure);
    ASSERT_EQ(std::size(expected), arrayOf(root)->count());
    for (std::size_t i = 0; i < std::size(expected); ++i) EXPECT_VALUE(expected[i], arrayOf(root)->items()[i]);
}

TEST_F(PeerArchives, OfOursAreReadByThePeer) {
    const id graph = dictionary(
        str("numbers"),
        array(integer(1), shortNumber(-2), natural(UINT64_MAX), real(0.1), single(0.5F), boolean(true), byte(65)),
        str("texts"),
        array(str("changes"),
              velt::frozenString("gr\xC3\xBC\xC3\x9F"
                                 "e"),
              str("$null")),
        str("bytes"), data(std::string_view("\0\xFF", 2)), str("point"), point(1, 2.5), str("null"), NSNull::null(),
        str("empty"), frozenArray());
    ASSERT_TRUE(NSKeyedArchiver::archiveToFile(graph, file()));
    EXPECT_EQ("{\"bytes\": {\"bytes\": \"00ff\"}, \"empty\": [], \"null\": {\"class\": \"NSNull\"}, "
              "\"numbers\": [1, -2, 18446744073709551615, 0.1, 0.5, true, 65], "
              "\"point\": {\"NS.pointval\": \"{1, 2.5}\", \"NS.special\": 1, \"class\": \"NSValue\"}, "
              "\"texts\": [\"changes\", \"gr\\u00fc\\u00dfe\", \"$null\"]}\n",
              peer({"read", file()}));
}
