// The address book, run as a person runs it.
#include "support/generated.h"
#include "support/processes.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <thread>

using namespace velt::test;

namespace {
constexpr const char* kThree = "add Grace Hopper; 144; grace@example.org\n"
                               "add Émilie du Châtelet; 199; emilie@example.org\n"
                               "add Ada Lovelace; 018; ada@example.org\n";
}

TEST(AddressbookExample, KeepsWhatWasAddedFromOneRunToTheNext) {
    const TemporaryFolder folder;
    const std::string book = folder.file("book");
    ProgramResult result = runExample("addressbook", {book}, kThree);
    EXPECT_EQ("", result.output + result.errors);
    EXPECT_EQ(0, result.status);
    result = runExample("addressbook", {book}, "list\nfind EMILIE\nremove Grace Hopper\nlist\n");
    EXPECT_EQ("Ada Lovelace            018               ada@example.org\n"
              "Émilie du Châtelet      199               emilie@example.org\n"
              "Grace Hopper            144               grace@example.org\n"
              "3 of 3\n"
              "Émilie du Châtelet      199               emilie@example.org\n"
              "1 of 3\n"
              "Ada Lovelace            018               ada@example.org\n"
              "Émilie du Châtelet      199               emilie@example.org\n"
              "2 of 2\n",
              result.output);
    EXPECT_EQ("", result.errors);
}

TEST(AddressbookExample, ExportsAPropertyList) {
    const TemporaryFolder folder;
    const std::string list = folder.file("list.plist");
    const ProgramResult result =
        runExample("addressbook", {folder.file("book")}, "add Ann; 5; a@b\nadd Ann; 6\nexport " + list + "\n");
    EXPECT_EQ("exported 1 to " + list + "\n", result.output);
    const std::string text = contentOf(list);
    EXPECT_NE(text.npos, text.find("<key>Ann</key>")) << text;
    EXPECT_NE(text.npos, text.find("<string>6</string>")) << text;
    EXPECT_NE(text.npos, text.find("<string>a@b</string>")) << text;
    EXPECT_NE(text.npos, text.find("<integer>2</integer>")) << text;
}

TEST(AddressbookExample, LeavesEmptyWhatNobodySaid) {
    const TemporaryFolder folder;
    const std::string list = folder.file("list.plist");
    const ProgramResult result =
        runExample("addressbook", {folder.file("book")}, "add Ann\nadd Ben; 5\nlist\nexport " + list + "\n");
    EXPECT_EQ("Ann" + std::string(21 + 18, ' ') + "\nBen" + std::string(21, ' ') + "5" + std::string(17, ' ') +
                  "\n2 of 2\nexported 2 to " + list + "\n",
              result.output);
    EXPECT_EQ(contentOf(list).npos, contentOf(list).find("null")) << contentOf(list);
}

TEST(AddressbookExample, SaysWhatIsWrong) {
    const TemporaryFolder folder;
    ProgramResult result =
        runExample("addressbook", {folder.file("book")}, "dance\nremove Nobody\nadd ; 5\nexport /nowhere/x\n");
    EXPECT_EQ("addressbook: what is dance? (add, remove, list, find, export)\n"
              "addressbook: nobody is called Nobody\n"
              "addressbook: a name is missing\n"
              "addressbook: cannot export to /nowhere/x\n",
              result.errors);
    const std::string other = folder.write("other", "no archive");
    result = runExample("addressbook", {other}, "list\n");
    EXPECT_EQ("addressbook: " + other + " is no address book: ReadKeyArchived failed\n", result.errors);
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("no archive", contentOf(other));
}

using KilledAddressbooks = Generated;

TEST_F(KilledAddressbooks, LeaveAWholeBookAtAnyMoment) {
    const TemporaryFolder folder;
    const std::string book = folder.file("book");
    std::string commands;
    for (int i = 0; i < 20'000; ++i)
        commands += "add Name " + std::to_string(i % 300) + "; " + std::to_string(i) + "\n";
    const std::string input = folder.write("commands", commands);
    const std::string program = (std::filesystem::path(VELT_EXAMPLE_PROGRAMS) / "addressbook").string();
    // A kill falls anywhere between the start and several saves, however slow the build is.
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ("", runExample("addressbook", {folder.file("other book")}, "add Ann; 5\nadd Bob; 6\n").errors);
    const std::chrono::nanoseconds unit = std::chrono::steady_clock::now() - begin;
    const auto quarter = static_cast<std::size_t>(unit.count() / 4);
    // The commands add the same 300 names again and again, so that a book that lost some would show.
    int most = 0;
    for (int round = 0; round < 40; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            execl(program.c_str(), program.c_str(), book.c_str(), input.c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
        ASSERT_GT(child, 0);
        std::this_thread::sleep_for(std::chrono::nanoseconds(quarter + below(quarter * 15)));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const ProgramResult result = runExample("addressbook", {book}, "find no such thing\n");
        ASSERT_EQ("", result.errors);
        ASSERT_EQ(0u, result.output.find("0 of ")) << result.output;
        const int kept = std::stoi(result.output.substr(5));
        ASSERT_GE(kept, most);
        most = kept;
    }
    EXPECT_GT(most, 0);
}
