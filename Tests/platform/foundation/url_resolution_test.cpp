#include "VELTRuntime/platform/foundation/url_resolution.h"

#include <gtest/gtest.h>

using velt::resolveUrl;

TEST(UrlResolution, FollowsTheExamplesOfItsStandard) {
    const char* base = "http://a/b/c/d;p?q";
    const struct {
        const char *reference, *whole;
    } examples[] = {
        {"g:h", "g:h"},
        {"g", "http://a/b/c/g"},
        {"./g", "http://a/b/c/g"},
        {"g/", "http://a/b/c/g/"},
        {"/g", "http://a/g"},
        {"//g", "http://g"},
        {"?y", "http://a/b/c/d;p?y"},
        {"g?y", "http://a/b/c/g?y"},
        {"#s", "http://a/b/c/d;p?q#s"},
        {"g?y#s", "http://a/b/c/g?y#s"},
        {";x", "http://a/b/c/;x"},
        {"", "http://a/b/c/d;p?q"},
        {".", "http://a/b/c/"},
        {"..", "http://a/b/"},
        {"../g", "http://a/b/g"},
        {"../..", "http://a/"},
        {"../../g", "http://a/g"},
        {"../../../g", "http://a/g"},
        {"/./g", "http://a/g"},
        {"/../g", "http://a/g"},
        {"g.", "http://a/b/c/g."},
        {"..g", "http://a/b/c/..g"},
        {"g/../h", "http://a/b/c/h"},
        {"g?y/../x", "http://a/b/c/g?y/../x"},
    };
    for (const auto& example : examples) {
        EXPECT_EQ(example.whole, resolveUrl(base, example.reference)) << example.reference;
    }
}

TEST(UrlResolution, PutsAPathBehindABaseWithoutOne) {
    EXPECT_EQ("http://host/x", resolveUrl("http://host", "x"));
    EXPECT_EQ("file:/a/x", resolveUrl("file:/a/b", "x"));
}
