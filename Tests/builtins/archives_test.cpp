#include "VELTRuntime/platform/foundation/url.h"
#include "support/http_server.h"
#include "support/processes.h"
#include "support/property_lists.h"

using namespace velt::test;

namespace {

const char* kArrayFailed = "VLException: ReadArray failed";
const char* kDictionaryFailed = "VLException: ReadDictionary failed";
const char* kDataFailed = "VLException: ReadData failed";

}  // namespace

TEST(ReadAndWriteArray, KeepAnArrayInAFile) {
    const TemporaryFolder folder;
    const id path = str(folder.file("list.plist")), list = array(str("a"), integer(1), real(0.5), array(boolean(true)));
    EXPECT_VALUE("c 1", VELT_WRITEARRAY(list, path));
    EXPECT_VALUE("NSArray (a, 1, 0.5, (1))", VELT_READARRAY(path));
    EXPECT_TRUE(contentOf(folder.file("list.plist")).starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist"));
    EXPECT_VALUE("c 1", VELT_WRITEARRAY(frozenArray(), path));
    EXPECT_VALUE("NSArray ()", VELT_READARRAY(path));
}

TEST(ReadAndWriteDictionary, KeepADictionaryInAFile) {
    const TemporaryFolder folder;
    const id path = str(folder.file("a.plist")), entries = dictionary({{"a", integer(1)}, {"b", dictionary({})}});
    EXPECT_VALUE("c 1", VELT_WRITEDICTIONARY(entries, path));
    EXPECT_VALUE("NSDictionary {a = 1; b = {}}", VELT_READDICTIONARY(path));
    EXPECT_VALUE("NSDictionary {a = 1; b = {}}", VELT_PLIST(path));
    EXPECT_VALUE("c 1", VELT_WRITEDICTIONARY(VELT_READDICTIONARY(path), path));
}

TEST(ReadAndWriteData, KeepTheBytesInAFile) {
    const TemporaryFolder folder;
    const id path = str(folder.file("bytes"));
    for (const std::string& bytes : {std::string(), std::string("\0\xFF<plist>\n", 10), std::string(300000, 'x')}) {
        EXPECT_VALUE("c 1", VELT_WRITEDATA(mutableData(bytes), path));
        EXPECT_EQ(bytes, contentOf(folder.file("bytes")));
        EXPECT_TRUE(velt::isEqual(velt::test::data(bytes), VELT_READDATA(path)));
    }
    EXPECT_EQ("NSData", velt::classOf(VELT_READDATA(path))->name());
}

TEST(ReadArrayAndDictionary, ReadEveryForm) {
    const TemporaryFolder folder;
    const id list = array(integer(1)), entries = dictionary({{"a", integer(1)}});
    const auto binary = velt::PropertyListForm::Binary;
    EXPECT_VALUE("NSArray (1)", VELT_READARRAY(str(folder.write("1", velt::writePropertyList(list, binary)))));
    EXPECT_VALUE("NSArray (1)", VELT_READARRAY(str(folder.write("2", "(1)"))));
    EXPECT_VALUE("NSDictionary {a = 1}", VELT_PLIST(str(folder.write("3", velt::writePropertyList(entries, binary)))));
    EXPECT_VALUE("NSDictionary {a = 1}", VELT_PLIST(str(folder.write("4", "a = 1;"))));
}

TEST(ReadArrayAndDictionary, GiveCollectionsThatCannotBeChanged) {
    const TemporaryFolder folder;
    const id path = str(folder.file("x"));
    VELT_WRITEARRAY(array(array()), path);
    const id list = VELT_READARRAY(path);
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", VELT_CARRAY(list));
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", VELT_CARRAY(velt::arrayOf(list)->at(0)));
    EXPECT_TRUE(list == VELT__ARRAY(list));
}

TEST(ReadArrayAndDictionary, FailForWhatHoldsSomethingElse) {
    const TemporaryFolder folder;
    const id list = str(folder.write("list", "(a)")), entries = str(folder.write("entries", "{a = b;}"));
    EXPECT_RAISES(kArrayFailed, VELT_READARRAY(entries));
    EXPECT_VALUE("NSDictionary {a = b}", VELT_PLIST(entries));
    EXPECT_RAISES(kDictionaryFailed, VELT_READDICTIONARY(list));
    EXPECT_RAISES(kDictionaryFailed, VELT_PLIST(list));
    for (const char* content : {"", "text", "<plist><string>a</string></plist>", "bplist00", "<plist><array>"}) {
        const id path = str(folder.write("other", content));
        EXPECT_RAISES(kArrayFailed, VELT_READARRAY(path));
        EXPECT_RAISES(kDictionaryFailed, VELT_PLIST(path));
    }
}

TEST(ReadArrayDictionaryAndData, FailForWhatCannotBeRead) {
    const TemporaryFolder folder;
    for (const std::string& location : {folder.file("missing"), folder.file(""), std::string("data/x.plist"),
                                        std::string(""), std::string("ftp://127.0.0.1/x")}) {
        EXPECT_RAISES(kArrayFailed, VELT_READARRAY(str(location)));
        EXPECT_RAISES(kDictionaryFailed, VELT_READDICTIONARY(str(location)));
        EXPECT_RAISES(kDictionaryFailed, VELT_PLIST(str(location)));
        EXPECT_RAISES(kDataFailed, VELT_READDATA(str(location)));
    }
}

TEST(ReadArrayDictionaryAndData, TakeARelativeLocationForAnAddressThoughThereIsSuchAFile) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("data"));
    const id path = str(folder.write("data/x.plist", "{a = b;}")), list = str(folder.write("data/list", "(a)"));
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.file(""));
    EXPECT_RAISES(kArrayFailed, VELT_READARRAY(str("data/list")));
    EXPECT_RAISES(kDictionaryFailed, VELT_READDICTIONARY(str("data/x.plist")));
    EXPECT_RAISES(kDictionaryFailed, VELT_PLIST(str("data/x.plist")));
    EXPECT_RAISES(kDataFailed, VELT_READDATA(str("data/x.plist")));
    EXPECT_VALUE("c 0", VELT_WRITEDATA(data("new"), str("data/x.plist")));
    std::filesystem::current_path(before);
    EXPECT_VALUE("NSDictionary {a = b}", VELT_PLIST(path));
    EXPECT_VALUE("NSArray (a)", VELT_READARRAY(list));
}

TEST(ReadArrayDictionaryAndData, WantAString) {
    for (const id& location : {nil, integer(1), data("x"), array()}) {
        EXPECT_CAST_FAILURE("'String' expected", VELT_READARRAY(location));
        EXPECT_CAST_FAILURE("'String' expected", VELT_READDICTIONARY(location));
        EXPECT_CAST_FAILURE("'String' expected", VELT_PLIST(location));
        EXPECT_CAST_FAILURE("'String' expected", VELT_READDATA(location));
    }
}

TEST(WriteArrayDictionaryAndData, CheckTheValueBeforeTheLocation) {
    const TemporaryFolder folder;
    const id path = str(folder.file("x"));
    for (const id& wrong : {nil, integer(1), str("text")}) {
        EXPECT_CAST_FAILURE("'Array' expected", VELT_WRITEARRAY(wrong, integer(1)));
        EXPECT_CAST_FAILURE("'Dictionary' expected", VELT_WRITEDICTIONARY(wrong, integer(1)));
        EXPECT_CAST_FAILURE("'Data' expected", VELT_WRITEDATA(wrong, integer(1)));
        EXPECT_CAST_FAILURE("'String' expected", VELT_WRITEARRAY(array(), wrong.isNil() ? wrong : integer(1)));
        EXPECT_CAST_FAILURE("'String' expected", VELT_WRITEDICTIONARY(emptyDictionary(), integer(1)));
        EXPECT_CAST_FAILURE("'String' expected", VELT_WRITEDATA(data(""), integer(1)));
    }
    EXPECT_CAST_FAILURE("'Array' expected", VELT_WRITEARRAY(emptyDictionary(), path));
    EXPECT_CAST_FAILURE("'Dictionary' expected", VELT_WRITEDICTIONARY(array(), path));
    EXPECT_FALSE(std::filesystem::exists(folder.file("x")));
}

TEST(WriteArrayAndDictionary, WriteNothingForWhatAPropertyListCannotHold) {
    const TemporaryFolder folder;
    const id path = str(folder.write("x", "old")), url = NSURL::withString("http://example.org/");
    EXPECT_VALUE("c 0", VELT_WRITEARRAY(array(str("a"), url), path));
    EXPECT_VALUE("c 0", VELT_WRITEDICTIONARY(dictionary({{"a", array(point(1, 2))}}), path));
    EXPECT_EQ("old", contentOf(folder.file("x")));
    const id missing = str(folder.file("y"));
    EXPECT_VALUE("c 0", VELT_WRITEARRAY(array(url), missing));
    EXPECT_FALSE(std::filesystem::exists(folder.file("y")));
}

TEST(WriteArrayDictionaryAndData, ReportAFailedWrite) {
    const TemporaryFolder folder;
    for (const std::string& location : {folder.file("no/folder"), folder.file(""), std::string("data/x.plist"),
                                        std::string("http://127.0.0.1/x"), std::string("")}) {
        EXPECT_VALUE("c 0", VELT_WRITEARRAY(array(), str(location)));
        EXPECT_VALUE("c 0", VELT_WRITEDICTIONARY(emptyDictionary(), str(location)));
        EXPECT_VALUE("c 0", VELT_WRITEDATA(data("x"), str(location)));
    }
}

TEST(ReadArrayDictionaryAndData, ReadUrls) {
    const TemporaryFolder folder;
    const id url = str("file://" + folder.file("x"));
    EXPECT_VALUE("c 1", VELT_WRITEARRAY(array(integer(3)), url));
    EXPECT_VALUE("NSArray (3)", VELT_READARRAY(url));
    EXPECT_VALUE("c 1", VELT_WRITEDATA(data("abc"), url));
    EXPECT_VALUE("NSData <616263>", VELT_READDATA(url));
    HttpServer server([](const std::string& path) {
        if (path == "/d") return httpResponse("200 OK", "{ a = b; }");
        return httpResponse("404 Not Found", "{ a = b; }");
    });
    EXPECT_VALUE("NSDictionary {a = b}", VELT_PLIST(str(server.url("/d"))));
    EXPECT_VALUE("NSData <7b206120 3d20623b 207d>", VELT_READDATA(str(server.url("/d"))));
    EXPECT_RAISES(kDictionaryFailed, VELT_PLIST(str(server.url("/missing"))));
}
