#include "VELTRuntime/platform/foundation/url.h"

#include "support/values.h"

using namespace velt::test;

TEST(Urls, ArePartedByTheirGrammar) {
    const auto parts = velt::parseUrl("HTTPS://user@Host.org:80/a%20b/c?x=1#f");
    ASSERT_TRUE(parts);
    EXPECT_EQ("https", parts->scheme);
    EXPECT_EQ("Host.org", parts->host);
    EXPECT_EQ("/a%20b/c", parts->path);
    EXPECT_EQ("/a b/c", velt::percentDecoded(parts->path));
    EXPECT_EQ("notes/a.txt", velt::parseUrl("notes/a.txt")->path);
    EXPECT_EQ("[::1]", velt::parseUrl("http://[::1]:8080/")->host);
    EXPECT_EQ("", velt::parseUrl("")->path);
}

TEST(Urls, RejectWhatTheGrammarDoesNotAllow) {
    for (const char* text : {"a b", "a%2", "%zz", "http://a b/", "1http://x", ":x", "http://host:port/", "a\\b", "a|b",
                             "<a>", "é", "http://[::1"}) {
        EXPECT_FALSE(velt::parseUrl(text)) << text;
    }
}

TEST(Urls, AreObjectsWithTheirText) {
    const id url = NSURL::withString("file:///tmp/a%41");
    EXPECT_VALUE("NSURL file:///tmp/a%41", url);
    EXPECT_VALUE("'/tmp/aA'", velt::send(url, "path"));
    EXPECT_VALUE("c 1", velt::send(url, "isFileURL"));
    EXPECT_TRUE(velt::isEqual(url, NSURL::withString("file:///tmp/a%41")));
    EXPECT_FALSE(NSURL::withString("a b"));
}
