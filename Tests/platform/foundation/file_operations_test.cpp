#include "VELTRuntime/platform/foundation/file_operations.h"

#include "support/generated.h"
#include "support/processes.h"
#include "support/values.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace fs = std::filesystem;
using namespace velt::test;

namespace {

/// What lies at a path, as text: kind, permissions, content, and the same for all within.
std::string shown(const std::string& path, const std::string& indent = "") {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return "nothing";
    char permissions[8];
    std::snprintf(permissions, sizeof permissions, "%03o ", status.st_mode & 07777);
    if (S_ISLNK(status.st_mode)) return "link " + fs::read_symlink(path).string();
    if (S_ISFIFO(status.st_mode)) return permissions + std::string("pipe");
    if (S_ISREG(status.st_mode)) return permissions + contentOf(path);
    std::string text = permissions + std::string("folder");
    for (const std::string& name : velt::namesInFolder(path).value_or(std::vector<std::string>())) {
        text += "\n  " + indent + name + ": " + shown(path + "/" + name, indent + "  ");
    }
    return text;
}

void setTime(const std::string& path, long seconds) {
    const timespec times[2] = {{seconds, 5000}, {seconds, 7000}};
    ASSERT_EQ(0, utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW));
}
std::pair<long, long> timeOf(const std::string& path) {
    struct stat status {};
    ::lstat(path.c_str(), &status);
    return {status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}
ino_t inodeOf(const std::string& path) {
    struct stat status {};
    ::lstat(path.c_str(), &status);
    return status.st_ino;
}

class FileOperations : public ::testing::Test {
protected:
    /// A tree with something of each kind.
    std::string tree() {
        const std::string root = folder.file("tree");
        fs::create_directories(root + "/inner/empty");
        folder.write("tree/plain", "content");
        folder.write("tree/inner/script", "#!/bin/sh");
        ::chmod((root + "/inner/script").c_str(), 0755);
        ::chmod((root + "/plain").c_str(), 0640);
        fs::create_symlink("plain", root + "/link");
        fs::create_symlink("/no/such/file", root + "/broken");
        fs::create_symlink("inner", root + "/tofolder");
        ::mkfifo((root + "/pipe").c_str(), 0600);
        setTime(root + "/plain", 1'000'000);
        setTime(root + "/link", 2'000'000);
        ::chmod((root + "/inner").c_str(), 0500);
        setTime(root + "/inner", 3'000'000);
        setTime(root, 4'000'000);
        return root;
    }
    std::string failureOf(bool (*operation)(const std::string&, const std::string&, std::string*),
                          const std::string& from, const std::string& target) {
        std::string failure = "nothing";
        EXPECT_FALSE(operation(from, target, &failure));
        return failure;
    }

    TemporaryFolder folder;
    const std::string to = folder.file("copy");
};

}  // namespace

TEST_F(FileOperations, CopyATreeWithAllThatBelongsToIt) {
    const std::string from = tree();
    ASSERT_TRUE(velt::copyItem(from, to + "/"));
    EXPECT_EQ(shown(from), shown(to));
    for (const char* name : {"", "/plain", "/link", "/inner"})
        EXPECT_EQ(timeOf(from + name), timeOf(to + name)) << name;
    EXPECT_NE(inodeOf(from + "/plain"), inodeOf(to + "/plain"));
    ::chmod((from + "/inner").c_str(), 0700);
    EXPECT_TRUE(velt::removeItem(from));
}

TEST_F(FileOperations, CopyLongFilesAndThoseWithoutASize) {
    std::string text;
    for (int i = 0; i < 500'000; ++i) text += std::to_string(i);
    ASSERT_TRUE(velt::copyItem(folder.write("long", text), to));
    EXPECT_EQ(text, contentOf(to));
    ASSERT_TRUE(velt::copyItem("/proc/self/status", folder.file("status")));
    EXPECT_NE("", contentOf(folder.file("status")));
    ASSERT_TRUE(velt::copyItem(folder.write("empty", ""), folder.file("empty2")));
    EXPECT_EQ("", contentOf(folder.file("empty2")));
}

TEST_F(FileOperations, CopyALinkAsALink) {
    folder.write("plain", "content");
    fs::create_symlink("plain", folder.file("link"));
    ASSERT_TRUE(velt::copyItem(folder.file("link"), to));
    EXPECT_EQ("link plain", shown(to));
}

TEST_F(FileOperations, ReplaceNothing) {
    const std::string plain = folder.write("plain", "content"), other = folder.write("other", "kept");
    const std::string from = tree();
    fs::create_symlink("/no/such/file", folder.file("broken"));
    for (const auto operation : {velt::copyItem, velt::moveItem, velt::linkItem}) {
        EXPECT_EQ(other + ": File exists", failureOf(operation, plain, other));
        EXPECT_EQ(from + ": File exists", failureOf(operation, plain, from));
        EXPECT_EQ(plain + ": File exists", failureOf(operation, plain, plain));
        EXPECT_EQ(other + ": File exists", failureOf(operation, from, other));
        EXPECT_EQ(folder.file("broken") + ": File exists", failureOf(operation, plain, folder.file("broken")));
        EXPECT_EQ("600 kept", shown(other).replace(0, 3, "600"));
        EXPECT_EQ("content", contentOf(plain));
    }
}

TEST_F(FileOperations, FailForWhatIsNotThere) {
    const std::string missing = folder.file("missing");
    for (const auto operation : {velt::copyItem, velt::moveItem, velt::linkItem}) {
        EXPECT_EQ(missing + ": No such file or directory", failureOf(operation, missing, to));
        EXPECT_FALSE(operation("", to, nullptr));
        EXPECT_FALSE(operation(folder.write("plain", ""), "", nullptr));
        EXPECT_FALSE(operation(folder.write("plain", ""), missing + "/inner", nullptr));
    }
    EXPECT_EQ("nothing", shown(to));
    EXPECT_EQ("nothing", shown(missing));
}

TEST_F(FileOperations, DoNotPutAFolderIntoItself) {
    const std::string from = tree();
    const std::string before = shown(from);
    fs::create_symlink(from, folder.file("other-way"));
    for (const auto operation : {velt::copyItem, velt::moveItem, velt::linkItem}) {
        for (const std::string& inside : {from + "/new", from + "/inner/empty/new", folder.file("other-way/new")}) {
            EXPECT_EQ(inside + ": Invalid argument", failureOf(operation, from, inside));
        }
    }
    EXPECT_EQ(before, shown(from));
    EXPECT_TRUE(velt::copyItem(from, folder.file("tree2"))) << "a name that begins alike is no folder above";
}

TEST_F(FileOperations, LeaveNoHalfCopy) {
    const std::string from = tree();
    // A socket cannot be copied; it comes last.
    const std::string socket = from + "/zzz";
    ASSERT_EQ(0, ::mknod(socket.c_str(), S_IFSOCK | 0600, 0));
    EXPECT_EQ(socket + ": Operation not supported", failureOf(velt::copyItem, from, to));
    EXPECT_EQ("nothing", shown(to));
}

TEST_F(FileOperations, LeaveNoHalfCopyWhenAFileMayNotGrow) {
    const std::string from = tree();
    folder.write("tree/zzz", std::string(100'000, 'x'));
    const ProgramResult result = runProgram("services", {"copy-limited", from, to});
    EXPECT_EQ(0, result.status);
    EXPECT_EQ("c 0", result.output);
    EXPECT_EQ("nothing", shown(to));
    const ProgramResult write = runProgram("services", {"create-limited", folder.write("old", "old content")});
    EXPECT_EQ(0, write.status);
    EXPECT_EQ("c 0", write.output);
    EXPECT_EQ("old content", contentOf(folder.file("old")));
}

TEST_F(FileOperations, LeaveNothingWhereOneMayNotWrite) {
    ::chmod(folder.file("").c_str(), 0755);
    fs::create_directory(folder.file("closed"));
    const std::string closed = folder.write("closed/kept", "content");
    ::chmod(folder.file("closed").c_str(), 0555);
    ::chmod(closed.c_str(), 0644);
    for (const char* way : {"copy", "move", "link"}) {
        const ProgramResult result = runProgram("services", {"as-nobody", way, closed, folder.file("closed/new")});
        EXPECT_EQ("c 0", result.output) << way << result.errors;
        EXPECT_EQ("555 folder\n  kept: 644 content", shown(folder.file("closed")));
    }
    for (const char* way : {"remove", "create", "folder"}) {
        const ProgramResult result = runProgram(
            "services", {"as-nobody", way, way == std::string("remove") ? closed : folder.file("closed/new")});
        EXPECT_EQ("c 0", result.output) << way << result.errors;
        EXPECT_EQ("555 folder\n  kept: 644 content", shown(folder.file("closed")));
    }
    EXPECT_EQ("c 1 c 0 c 0 c 0", runProgram("services", {"as-nobody", "rights", closed}).output);
    ::chmod(closed.c_str(), 0600);
    EXPECT_EQ("c 0", runProgram("services", {"as-nobody", "copy", closed, "/tmp/velt-never"}).output);
    EXPECT_EQ("nothing", shown("/tmp/velt-never"));
    ::chmod(folder.file("closed").c_str(), 0755);
}

TEST_F(FileOperations, MoveFilesFoldersAndLinks) {
    const std::string from = tree();
    const std::string before = shown(from);
    ASSERT_TRUE(velt::moveItem(from + "/", to));
    EXPECT_EQ(before, shown(to));
    EXPECT_EQ("nothing", shown(from));
    ASSERT_TRUE(velt::moveItem(to + "/broken", folder.file("moved")));
    EXPECT_EQ("link /no/such/file", shown(folder.file("moved")));
    ::chmod((to + "/inner").c_str(), 0700);
}

TEST_F(FileOperations, MoveToAnotherFileSystem) {
    struct stat here {
    }, there{};
    if (::stat("/dev/shm", &there) != 0 || ::stat(folder.file("").c_str(), &here) != 0 || here.st_dev == there.st_dev ||
        ::access("/dev/shm", W_OK) != 0) {
        GTEST_SKIP() << "there is no second file system to write to";
    }
    const std::string from = tree(), target = "/dev/shm/velt-tests-" + std::to_string(::getpid());
    const std::string before = shown(from);
    ::chmod((from + "/inner").c_str(), 0700);
    ASSERT_TRUE(velt::moveItem(from, target));
    ::chmod((target + "/inner").c_str(), 0500);
    EXPECT_EQ(before, shown(target));
    EXPECT_EQ("nothing", shown(from));
    std::string failure;
    EXPECT_FALSE(velt::linkItem(target + "/plain", to, &failure));
    EXPECT_EQ(to + ": Invalid cross-device link", failure);
    EXPECT_FALSE(velt::linkItem(target, to));
    EXPECT_EQ("nothing", shown(to));
    ::chmod((target + "/inner").c_str(), 0700);
    EXPECT_TRUE(velt::removeItem(target));
}

TEST_F(FileOperations, LinkFilesAndTheFilesOfFolders) {
    const std::string from = tree();
    ASSERT_TRUE(velt::linkItem(from + "/plain", folder.file("second")));
    EXPECT_EQ(inodeOf(from + "/plain"), inodeOf(folder.file("second")));
    ASSERT_TRUE(velt::linkItem(from, to));
    EXPECT_EQ(shown(from), shown(to));
    EXPECT_EQ(inodeOf(from + "/inner/script"), inodeOf(to + "/inner/script"));
    EXPECT_NE(inodeOf(from + "/inner"), inodeOf(to + "/inner"));
    ::chmod((from + "/inner").c_str(), 0700);
    ::chmod((to + "/inner").c_str(), 0700);
}

TEST_F(FileOperations, RemoveFoldersButNotWhatLinksLeadTo) {
    const std::string from = tree();
    ::chmod((from + "/inner").c_str(), 0700);
    fs::create_directory(to);
    fs::create_symlink(from, to + "/link");
    ASSERT_TRUE(velt::removeItem(to + "/"));
    EXPECT_EQ("nothing", shown(to));
    EXPECT_EQ("content", contentOf(from + "/plain"));
    fs::create_symlink(from, folder.file("link"));
    ASSERT_TRUE(velt::removeItem(folder.file("link/")));
    EXPECT_EQ("nothing", shown(folder.file("link")));
    ASSERT_TRUE(velt::removeItem(from));
    std::string failure;
    EXPECT_FALSE(velt::removeItem(from, &failure));
    EXPECT_EQ(from + ": No such file or directory", failure);
}

TEST_F(FileOperations, RemoveFoldersOfThousandsOfLevels) {
    const std::string deep = folder.file("deep");
    ASSERT_TRUE(velt::makeFolder(deep));
    int inner = ::open(deep.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int i = 0; i < 3000; ++i) {
        ASSERT_EQ(0, ::mkdirat(inner, "d", 0700)) << i;
        const int file = ::openat(inner, ".velt-removed-1", O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        const int next = ::openat(inner, "d", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ASSERT_TRUE(file >= 0 && next >= 0) << i;
        ::close(file);
        ::close(std::exchange(inner, next));
    }
    ::close(inner);
    std::string failure;
    EXPECT_TRUE(velt::removeItem(deep, &failure)) << failure;
    EXPECT_FALSE(fs::exists(deep));
}

TEST_F(FileOperations, RemoveNoRootAndNoDots) {
    for (const char* path : {"", "/", "//", ".", "..", "./.", "/tmp/.."}) EXPECT_FALSE(velt::removeItem(path)) << path;
    fs::create_directory(to);
    EXPECT_FALSE(velt::removeItem(to + "/."));
    EXPECT_EQ("folder", shown(to).substr(4));
}

TEST_F(FileOperations, MakeFoldersAndListThem) {
    EXPECT_TRUE(velt::makeFolder(to));
    std::string failure;
    EXPECT_FALSE(velt::makeFolder(to, &failure));
    EXPECT_EQ(to + ": File exists", failure);
    EXPECT_FALSE(velt::makeFolder(to + "/a/b", &failure));
    EXPECT_EQ(to + "/a/b: No such file or directory", failure);
    EXPECT_TRUE(velt::makeFolders(to + "/a/b/"));
    EXPECT_TRUE(velt::makeFolders(to + "/a/b"));
    folder.write("copy/Z", "");
    folder.write("copy/\xC3\xA4", "");
    folder.write("copy/.hidden", "");
    EXPECT_EQ((std::vector<std::string>{".hidden", "Z", "a", "\xC3\xA4"}), velt::namesInFolder(to));
    EXPECT_FALSE(velt::makeFolders(to + "/Z/a"));
    EXPECT_EQ(std::nullopt, velt::namesInFolder(to + "/Z", &failure));
    EXPECT_EQ(to + "/Z: Not a directory", failure);
    EXPECT_EQ(std::nullopt, velt::namesInFolder(folder.file("missing")));
}
