#include "VELTRuntime/builtins/location.h"
#include "VELTRuntime/platform/foundation/url_loader.h"
#include "support/http_server.h"
#include "support/processes.h"
#include "support/values.h"

#include <fcntl.h>
#include <sys/stat.h>

using namespace velt::test;

namespace {
const char* kFailed = "VLException: ReadString failed";
}

TEST(Locations, AreTakenForUrlsUnlessTheyBeginWithASlash) {
    EXPECT_FALSE(velt::locationOf("/a/b").url);
    EXPECT_TRUE(velt::locationOf("notes/a.txt").url);
    EXPECT_FALSE(velt::locationOf("a text.txt").url);
    EXPECT_EQ("a text.txt", velt::locationOf("a text.txt").path);
    EXPECT_TRUE(velt::locationOf("http://example.org/").url);
    EXPECT_FALSE(velt::locationOf("été.txt").url);
}

TEST(ReadAndWriteString, KeepATextInAFile) {
    const TemporaryFolder folder;
    const id path = str(folder.file("text.txt"));
    EXPECT_VALUE("c 1", VELT_WRITESTRING(str("été €\xF0\x9F\x98\x80\n"), path));
    EXPECT_VALUE("'été €\xF0\x9F\x98\x80\n'", VELT_READSTRING(path));
    EXPECT_EQ("été €\xF0\x9F\x98\x80\n", contentOf(folder.file("text.txt")));
    EXPECT_VALUE("c 1", VELT_WRITESTRING(str(""), path));
    EXPECT_VALUE("''", VELT_READSTRING(path));
}

TEST(ReadString, FailsForWhatIsNoTextFile) {
    const TemporaryFolder folder;
    EXPECT_RAISES(kFailed, VELT_READSTRING(str(folder.file("missing"))));
    EXPECT_RAISES(kFailed, VELT_READSTRING(str(folder.file(""))));
    EXPECT_RAISES(kFailed, VELT_READSTRING(str(folder.write("latin", "caf\xE9"))));
    EXPECT_RAISES(kFailed, VELT_READSTRING(str("notes/a.txt")));
    EXPECT_RAISES(kFailed, VELT_READSTRING(str("")));
    EXPECT_RAISES(kFailed, VELT_READSTRING(str("ftp://127.0.0.1/x")));
}

TEST(ReadString, ReadsFileUrlsAndFilesWithoutASize) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a b", "content");
    std::string url = "file://" + path;
    url.replace(url.find(' '), 1, "%20");
    EXPECT_VALUE("'content'", VELT_READSTRING(str(url)));
    EXPECT_VALUE("c 1", VELT_WRITESTRING(str("new"), str(url)));
    EXPECT_EQ("new", contentOf(path));
    EXPECT_NE("''", show(VELT_READSTRING(str("/proc/self/status"))));
}

TEST(WriteString, ReportsFailureAndLeavesTheOldFile) {
    const TemporaryFolder folder;
    EXPECT_VALUE("c 0", VELT_WRITESTRING(str("x"), str(folder.file("no/such/folder"))));
    EXPECT_VALUE("c 0", VELT_WRITESTRING(str("x"), str(folder.file(""))));
    EXPECT_VALUE("c 0", VELT_WRITESTRING(str("x"), str("http://127.0.0.1/x")));
    EXPECT_VALUE("c 0", VELT_WRITESTRING(str("x"), str("notes/a.txt")));
    EXPECT_VALUE("c 0", VELT_WRITESTRING(str("x"), str("/dev/null")));
}

TEST(WriteString, KeepsPermissionsAndSymbolicLinks) {
    const TemporaryFolder folder;
    const std::string target = folder.write("target", "old"), link = folder.file("link");
    ASSERT_EQ(0, chmod(target.c_str(), 0640));
    ASSERT_EQ(0, symlink(target.c_str(), link.c_str()));
    EXPECT_VALUE("c 1", VELT_WRITESTRING(str("new"), str(link)));
    struct stat status {};
    ASSERT_EQ(0, lstat(link.c_str(), &status));
    EXPECT_TRUE(S_ISLNK(status.st_mode));
    ASSERT_EQ(0, stat(target.c_str(), &status));
    EXPECT_EQ(0640u, status.st_mode & 07777);
    EXPECT_EQ("new", contentOf(target));
    EXPECT_EQ(2, std::distance(std::filesystem::directory_iterator(std::filesystem::path(target).parent_path()), {}));
}

class ReadStringFromAServer : public ::testing::Test {
protected:
    static std::string answer(const std::string& path) {
        if (path == "/text") return httpResponse("200 OK", "hällo");
        if (path == "/moved") return httpResponse("302 Found", "", "Location: /text\r\n");
        if (path == "/loop") return httpResponse("302 Found", "", "Location: /loop\r\n");
        if (path == "/latin") return httpResponse("200 OK", "caf\xE9");
        if (path == "/big") return httpResponse("200 OK", std::string(5'000'000, 'x'));
        if (path == "/cut") return "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly this";
        if (path == "/slow") std::this_thread::sleep_for(std::chrono::milliseconds(2500));
        if (path == "/slow" || path == "/closed") return "";
        return httpResponse("404 Not Found", "no such thing");
    }
    ~ReadStringFromAServer() override { velt::urlTimeouts() = {}; }
    HttpServer server_{answer};
};

TEST_F(ReadStringFromAServer, GivesTheBodyAndFollowsRedirects) {
    EXPECT_VALUE("'hällo'", VELT_READSTRING(str(server_.url("/text"))));
    EXPECT_VALUE("'hällo'", VELT_READSTRING(str(server_.url("/moved"))));
    EXPECT_VALUE("Q 5000000", VELT_LEN(VELT_READSTRING(str(server_.url("/big")))));
}

TEST_F(ReadStringFromAServer, FailsForErrorsAndOtherBodies) {
    for (const char* path : {"/missing", "/loop", "/latin", "/cut", "/closed"}) {
        EXPECT_RAISES(kFailed, VELT_READSTRING(str(server_.url(path)))) << path;
    }
    EXPECT_RAISES(kFailed, VELT_READSTRING(str(server_.url("/text", "https"))));
    std::string failure;
    EXPECT_FALSE(velt::loadUrl(server_.url("/missing"), failure));
    EXPECT_EQ(server_.url("/missing") + ": HTTP response code said error", failure);
}

TEST_F(ReadStringFromAServer, GivesUpOnAServerThatStalls) {
    velt::urlTimeouts() = {.connect = 1, .stall = 1};
    EXPECT_RAISES(kFailed, VELT_READSTRING(str(server_.url("/slow"))));
}
