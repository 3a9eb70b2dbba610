// The file tool, run as a person runs it.
#include "support/processes.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace velt::test;

TEST(FiletoolExample, ListsAFolderInOrder) {
    const TemporaryFolder folder;
    folder.write("b.txt", "");
    folder.write("a.txt", "");
    std::filesystem::create_directory(folder.file("sub"));
    std::filesystem::permissions(folder.file("b.txt"), std::filesystem::perms(0755));
    const ProgramResult result = runExample("filetool", {"list", folder.file("")});
    EXPECT_EQ("file    rw-d  a.txt\nfile    rwxd  b.txt\nfolder  rwxd  sub\n3 entries\n", result.output);
    EXPECT_EQ("", result.errors);
    EXPECT_EQ(0, result.status);
}

TEST(FiletoolExample, CopiesMovesLinksAndRemoves) {
    const TemporaryFolder folder;
    const std::string a = folder.write("a", "text"), b = folder.file("b"), c = folder.file("c"), d = folder.file("d");
    EXPECT_EQ("copied " + a + " to " + b + "\n", runExample("filetool", {"copy", a, b}).output);
    EXPECT_EQ("moved " + b + " to " + c + "\n", runExample("filetool", {"move", b, c}).output);
    EXPECT_EQ("linked " + a + " to " + d + "\n", runExample("filetool", {"link", a, d}).output);
    EXPECT_EQ("text", contentOf(c));
    struct stat status {};
    ASSERT_EQ(0, stat(a.c_str(), &status));
    EXPECT_EQ(2u, status.st_nlink);
    EXPECT_EQ("removed " + a + "\nremoved " + c + "\n", runExample("filetool", {"remove", a, c}).output);
    EXPECT_FALSE(std::filesystem::exists(a));
    EXPECT_EQ("text", contentOf(d));
}

TEST(FiletoolExample, GivesTheReasonOfEachFailure) {
    const TemporaryFolder folder;
    const std::string a = folder.write("a", "one"), b = folder.write("b", "two"), gone = folder.file("gone");
    const auto errorOf = [](const std::vector<std::string>& arguments) {
        const ProgramResult result = runExample("filetool", arguments);
        EXPECT_EQ(1, result.status);
        return result.errors;
    };
    EXPECT_EQ("filetool: not copied " + a + " to " + b + ": " + b + " is there already\n", errorOf({"copy", a, b}));
    EXPECT_EQ("two", contentOf(b));
    EXPECT_EQ("filetool: not moved " + gone + " to " + b + ": there is no " + gone + "\n", errorOf({"move", gone, b}));
    EXPECT_EQ("filetool: not made " + gone + "/sub: there is no folder " + gone + "\n",
              errorOf({"make", gone + "/sub"}));
    EXPECT_EQ("filetool: not removed " + gone + ": there is no " + gone + "\n", errorOf({"remove", gone}));
    EXPECT_EQ("filetool: cannot list " + gone + ": there is nothing of that name\n", errorOf({"list", gone}));
    EXPECT_EQ("filetool: cannot list " + a + ": it is not a folder\n", errorOf({"list", a}));
    EXPECT_EQ(1, runExample("filetool", {"check", a, gone}).status);
    EXPECT_EQ(2, runExample("filetool", {"copy", a}).status);
    EXPECT_EQ(2, runExample("filetool", {"dance", a}).status);
}
