#include "VELTRuntime/builtins/location.h"
#include "VELTRuntime/platform/foundation/url_loader.h"
#include "support/environment.h"
#include "support/http_server.h"
#include "support/processes.h"
#include "support/values.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <future>
#include <sys/stat.h>
#include <thread>

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
        if (path == "/closed") return "";
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
    std::promise<void> gaveUp;
    HttpServer stalled([over = gaveUp.get_future().share()](const std::string&) {
        over.wait_for(std::chrono::minutes(1));
        return httpResponse("200 OK", "too late");
    });
    velt::urlTimeouts() = {.connect = 1, .stall = 1};
    EXPECT_RAISES(kFailed, VELT_READSTRING(str(stalled.url("/"))));
    gaveUp.set_value();
}

class ReadStringFromAnEncryptedServer : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(0, std::system(("openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 2 "
                                  "-subj /CN=127.0.0.1 -addext subjectAltName=IP:127.0.0.1 -keyout '" +
                                  folder_.file("key") + "' -out '" + folder_.file("certificate") + "' 2> /dev/null")
                                     .c_str()));
        folder_.write("text", "hällo");
        const std::string output = folder_.file("output"), key = folder_.file("key"), root = folder_.file("");
        server_ = fork();
        if (server_ == 0) {
            if (std::freopen("/dev/null", "r", stdin) && std::freopen(output.c_str(), "w", stdout) &&
                std::freopen("/dev/null", "w", stderr) && chdir(root.c_str()) == 0) {
                execlp("openssl", "openssl", "s_server", "-accept", "127.0.0.1:0", "-cert", "certificate", "-key",
                       key.c_str(), "-WWW", static_cast<char*>(nullptr));
            }
            _exit(127);
        }
        for (int tries = 0; tries < 500 && port_.empty(); ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            const std::string said = contentOf(output), before = "ACCEPT 127.0.0.1:";
            const std::size_t at = said.find(before), end = said.find('\n', at);
            if (at != said.npos && end != said.npos) port_ = said.substr(at + before.size(), end - at - before.size());
        }
        ASSERT_FALSE(port_.empty());
    }
    ~ReadStringFromAnEncryptedServer() override {
        if (server_ <= 0) return;
        kill(server_, SIGKILL);
        waitpid(server_, nullptr, 0);
    }
    TemporaryFolder folder_;
    pid_t server_ = -1;
    std::string port_;
};

TEST_F(ReadStringFromAnEncryptedServer, GivesTheBodyWhenTheServerIsTrusted) {
    const id url = str("https://127.0.0.1:" + port_ + "/text");
    EXPECT_RAISES(kFailed, VELT_READSTRING(url));
    const EnvironmentVariable trusted("SSL_CERT_FILE", folder_.file("certificate"));
    EXPECT_VALUE("'hällo'", VELT_READSTRING(url));
}
