#include "support/archives.h"
#include "support/processes.h"

using namespace velt::test;

namespace {
const char* kFailed = "VLException: ReadKeyArchived failed";
class Uncodable : public NSObject {
    VELT_OBJECT(Uncodable, NSObject)
};
}  // namespace

TEST(KeyedArchiveFiles, KeepAnObjectGraph) {
    const TemporaryFolder folder;
    const id path = str(folder.file("graph"));
    const id graph = dictionary(str("list"), array(integer(1), real(2.5), boolean(true)), str("when"), range(1, 2));
    EXPECT_VALUE("c 1", VELT_WRITEKEYEDARCHIVE(graph, path));
    EXPECT_TRUE(contentOf(folder.file("graph")).starts_with("bplist00"));
    EXPECT_TRUE(velt::isEqual(graph, VELT_READKEYEDARCHIVE(path)));
    EXPECT_VALUE("c 1", VELT_WRITEKEYEDARCHIVE(str("replaced"), path));
    EXPECT_VALUE("'replaced'", VELT_READKEYEDARCHIVE(path));
}

TEST(KeyedArchiveFiles, AreReachedByFileUrls) {
    const TemporaryFolder folder;
    const id url = str("file://" + folder.file("a%20b"));
    EXPECT_VALUE("c 1", VELT_WRITEKEYEDARCHIVE(integer(5), url));
    EXPECT_VALUE("q 5", VELT_READKEYEDARCHIVE(url));
    EXPECT_VALUE("q 5", VELT_READKEYEDARCHIVE(str(folder.file("a b"))));
}

TEST(KeyedArchiveFiles, ThatCannotBeReadRaise) {
    const TemporaryFolder folder;
    EXPECT_RAISES(kFailed, VELT_READKEYEDARCHIVE(str(folder.file("missing"))));
    EXPECT_RAISES(kFailed, VELT_READKEYEDARCHIVE(str(folder.write("text", "no archive"))));
    EXPECT_RAISES(kFailed, VELT_READKEYEDARCHIVE(str(folder.write("list", binaryListOf(array(integer(1)))))));
    EXPECT_RAISES(kFailed, VELT_READKEYEDARCHIVE(str("data/x.plist")));
    EXPECT_RAISES(kFailed, VELT_READKEYEDARCHIVE(str("")));
    const std::string whole = NSKeyedArchiver::archive(str("x"));
    EXPECT_RAISES(kFailed, VELT_READKEYEDARCHIVE(str(folder.write("cut", whole.substr(0, whole.size() - 1)))));
}

TEST(KeyedArchiveFiles, OfNilCannotBeTold) {
    const TemporaryFolder folder;
    const id path = str(folder.file("nil"));
    EXPECT_VALUE("c 1", VELT_WRITEKEYEDARCHIVE(nil, path));
    EXPECT_RAISES(kFailed, VELT_READKEYEDARCHIVE(path));
}

TEST(KeyedArchiveFiles, ThatCannotBeWrittenAreFalse) {
    const TemporaryFolder folder;
    EXPECT_VALUE("c 0", VELT_WRITEKEYEDARCHIVE(integer(1), str(folder.file("no/such/folder"))));
    EXPECT_VALUE("c 0", VELT_WRITEKEYEDARCHIVE(integer(1), str("notes/a")));
    EXPECT_VALUE("c 0", VELT_WRITEKEYEDARCHIVE(integer(1), str("http://127.0.0.1/x")));
}

TEST(KeyedArchiveFiles, AreLeftAsTheyWereWhenAnObjectCannotBeArchived) {
    const TemporaryFolder folder;
    const std::string path = folder.write("old", "old content");
    EXPECT_RAISES("NSInvalidArgumentException: 'Uncodable' objects cannot be archived",
                  VELT_WRITEKEYEDARCHIVE(array(velt::make<Uncodable>()), str(path)));
    EXPECT_EQ("old content", contentOf(path));
}

TEST(KeyedArchivesInData, FailAfterTheyWereReadAsLocations) {
    const id archive = NSKeyedArchiver::archivedData(array(integer(1)));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSData' does not understand 'characterAtIndex:'",
                  VELT_READKEYEDARCHIVE(archive));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableData' does not understand 'characterAtIndex:'",
                  VELT_READKEYEDARCHIVE(mutableData(velt::dataOf(archive)->characters())));
    EXPECT_RAISES(kFailed, VELT_READKEYEDARCHIVE(data("junk")));
    EXPECT_RAISES(kFailed, VELT_READKEYEDARCHIVE(data("")));
}

TEST(KeyedArchivesInData, OnlyTellWhetherAnObjectCanBeArchived) {
    const id destination = mutableData("as it was");
    EXPECT_VALUE("c 1", VELT_WRITEKEYEDARCHIVE(array(integer(1)), destination));
    EXPECT_VALUE("c 1", VELT_WRITEKEYEDARCHIVE(nil, destination));
    EXPECT_RAISES("NSInvalidArgumentException: 'Uncodable' objects cannot be archived",
                  VELT_WRITEKEYEDARCHIVE(velt::make<Uncodable>(), destination));
    EXPECT_EQ("as it was", velt::dataOf(destination)->characters());
}

TEST(KeyedArchives, NeedALocation) {
    for (const id& other : {id(), integer(1), array()}) {
        EXPECT_CAST_FAILURE("'String' expected", VELT_READKEYEDARCHIVE(other));
        EXPECT_CAST_FAILURE("'String' expected", VELT_WRITEKEYEDARCHIVE(str("x"), other));
    }
    // The destination is looked at before the object.
    EXPECT_CAST_FAILURE("'String' expected", VELT_WRITEKEYEDARCHIVE(velt::make<Uncodable>(), integer(1)));
}
