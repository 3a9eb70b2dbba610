#include "VELTRuntime/platform/foundation/file_contents.h"

#include "VELTRuntime/platform/foundation/kept_owner.h"
#include "support/generated.h"
#include "support/processes.h"
#include "support/values.h"

#include <algorithm>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>

using namespace velt::test;

namespace {

mode_t modeOf(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}
std::ptrdiff_t filesIn(const TemporaryFolder& folder) {
    return std::distance(std::filesystem::directory_iterator(folder.file("")), {});
}

}  // namespace

TEST(WritingAFile, GivesANewOneTheUsualPermissions) {
    const TemporaryFolder folder;
    const mode_t before = umask(027);
    EXPECT_TRUE(velt::writeFileAtomically(folder.file("new"), "content"));
    umask(before);
    EXPECT_EQ(0640u, modeOf(folder.file("new")));
    EXPECT_EQ("content", contentOf(folder.file("new")));
    EXPECT_EQ(1, filesIn(folder));
}

TEST(WritingAFile, KeepsThePermissionsOfTheOldOne) {
    const TemporaryFolder folder;
    const std::string path = folder.write("old", "old");
    for (const mode_t mode : {0600u, 0755u, 0666u}) {
        ASSERT_EQ(0, chmod(path.c_str(), mode));
        EXPECT_TRUE(velt::writeFileAtomically(path, "new"));
        EXPECT_EQ(mode, modeOf(path));
    }
}

TEST(TheOwnerOfAFile, IsTakenOverOrElseNothingRunsAsIt) {
    const TemporaryFolder folder;
    const std::string path = folder.write("new", "content");
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_GE(file, 0);
    struct stat old {};
    ASSERT_EQ(0, fstat(file, &old));
    old.st_mode = S_IFREG | 04755;
    EXPECT_TRUE(velt::keepOwner(file, old));
    EXPECT_EQ(04755u, modeOf(path));
    ++old.st_uid;
    EXPECT_TRUE(velt::keepOwner(file, old));
    struct stat kept {};
    ASSERT_EQ(0, fstat(file, &kept));
    EXPECT_EQ(kept.st_uid == old.st_uid ? 04755u : 0755u, modeOf(path));
    close(file);
}

TEST(WritingAFile, FollowsSymbolicLinks) {
    const TemporaryFolder folder;
    folder.write("target", "old");
    ASSERT_EQ(0, symlink("target", folder.file("link").c_str()));
    ASSERT_EQ(0, symlink(folder.file("link").c_str(), folder.file("second").c_str()));
    ASSERT_EQ(0, symlink("later", folder.file("dangling").c_str()));
    EXPECT_TRUE(velt::writeFileAtomically(folder.file("second"), "new"));
    EXPECT_EQ("new", contentOf(folder.file("target")));
    EXPECT_TRUE(velt::writeFileAtomically(folder.file("dangling"), "made"));
    EXPECT_EQ("made", contentOf(folder.file("later")));
    for (const char* link : {"link", "second", "dangling"}) EXPECT_TRUE(std::filesystem::is_symlink(folder.file(link)));
    ASSERT_EQ(0, symlink("circle", folder.file("circle").c_str()));
    EXPECT_FALSE(velt::writeFileAtomically(folder.file("circle"), "x"));
}

TEST(WritingAFile, SaysWhyItFailsAndLeavesNothing) {
    const TemporaryFolder folder;
    std::string failure;
    EXPECT_FALSE(velt::writeFileAtomically(folder.file("none/x"), "x", &failure));
    EXPECT_EQ(folder.file("none/x") + ": No such file or directory", failure);
    ASSERT_EQ(0, mkdir(folder.file("sub").c_str(), 0700));
    EXPECT_FALSE(velt::writeFileAtomically(folder.file("sub"), "x", &failure));
    EXPECT_EQ(folder.file("sub") + ": Is a directory", failure);
    EXPECT_EQ(1, filesIn(folder));
}

TEST(WritingAFile, LeavesTheOldOneInAFolderThatMayNotBeChanged) {
    if (geteuid() == 0) GTEST_SKIP() << "the administrator may change every folder";
    const TemporaryFolder folder;
    ASSERT_EQ(0, mkdir(folder.file("sub").c_str(), 0700));
    const std::string path = folder.write("sub/file", "old");
    ASSERT_EQ(0, chmod(folder.file("sub").c_str(), 0500));
    std::string failure;
    EXPECT_FALSE(velt::writeFileAtomically(path, "new", &failure));
    EXPECT_EQ(path + ": Permission denied", failure);
    EXPECT_EQ("old", contentOf(path));
    ASSERT_EQ(0, chmod(folder.file("sub").c_str(), 0700));
}

TEST(WritingAFile, LeavesTheOldOneWhenTheNewOneHasNoRoom) {
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "old");
    const ProgramResult refused = runProgram("limited_writer", {path, "65536"});
    EXPECT_EQ(0, refused.status);
    EXPECT_EQ("not written\n", refused.output);
    EXPECT_EQ("old", contentOf(path));
    EXPECT_EQ(1, filesIn(folder));
    EXPECT_EQ("written\n", runProgram("limited_writer", {path, "1000000"}).output);
    EXPECT_EQ(1000000u, contentOf(path).size());
}

using KilledWriters = Generated;

TEST_F(KilledWriters, LeaveAWholeFileAtAnyMoment) {
    const TemporaryFolder folder;
    const std::string path = folder.file("file");
    const std::string program = (std::filesystem::path(VELT_TEST_PROGRAMS) / "replacer").string();
    ASSERT_TRUE(velt::writeFileAtomically(path, "<plist><dict><key>number</key><integer>0</integer>"
                                                "<key>text</key><string/></dict></plist>"));
    long last = 0;
    int changes = 0;
    // How long a writer needs until it writes depends on how busy the machine is: about half of them shall get so far.
    double window = 12e6;
    for (int i = 1; i <= iterations(1000); ++i) {
        const std::string first = std::to_string(i * 1000);
        const pid_t child = fork();
        if (child == 0) {
            execl(program.c_str(), program.c_str(), path.c_str(), first.c_str(), nullptr);
            _exit(127);
        }
        ASSERT_GT(child, 0);
        const timespec moment{0, static_cast<long>(below(static_cast<std::size_t>(window)))};
        nanosleep(&moment, nullptr);
        kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        ASSERT_TRUE(WIFSIGNALED(status));
        const id content = VELT_READDICTIONARY(str(path));
        const long number = VELT_CINTEGER(velt::dictionaryOf(content)->objectForKey(str("number")));
        const std::string text = velt::utf8(velt::dictionaryOf(content)->objectForKey(str("text")));
        ASSERT_EQ(std::string(static_cast<std::size_t>(number % 50) * 1000, 'x'), text);
        changes += number != last;
        window = std::clamp(window * (number != last ? 0.9 : 1.2), 1e6, 9e8);
        last = number;
    }
    EXPECT_LT(iterations(1000) / 20, changes);
}

TEST(WritingAFile, RemovesWhatKilledWritersLeft) {
    const TemporaryFolder folder;
    const pid_t gone = fork();
    if (gone == 0) _exit(0);
    ASSERT_GT(gone, 0);
    ASSERT_EQ(gone, waitpid(gone, nullptr, 0));
    const std::string left = ".velt-" + std::to_string(gone) + "-1", fresh = ".velt-" + std::to_string(gone) + "-2",
                      running = ".velt-" + std::to_string(getppid()) + "-1", other = ".velt-x-1";
    const timespec longAgo[2] = {{1000000000, 0}, {1000000000, 0}};
    for (const std::string& name : {left, fresh, running, other}) {
        const std::string path = folder.write(name, "half");
        if (name == fresh) continue;
        ASSERT_EQ(0, utimensat(AT_FDCWD, path.c_str(), longAgo, 0));
    }
    EXPECT_TRUE(velt::writeFileAtomically(folder.file("new"), "content"));
    EXPECT_FALSE(std::filesystem::exists(folder.file(left)));
    EXPECT_TRUE(std::filesystem::exists(folder.file(fresh))) << "it may be another machine's";
    EXPECT_TRUE(std::filesystem::exists(folder.file(running)));
    EXPECT_TRUE(std::filesystem::exists(folder.file(other)));
}
