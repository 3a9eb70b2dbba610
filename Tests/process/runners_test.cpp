// Programs that are run to their end, and the toolchain's steps.
#include "VELTRuntime/process/runners.h"

#include "support/child_tasks.h"
#include "support/environment.h"
#include "support/generated_bytes.h"
#include "support/processes.h"
#include "support/values.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

using namespace velt;
using namespace velt::test;

namespace {

std::string bash(const std::string& command, const id& arguments = nil) {
    return utf8(VELT_BASH(string(command), arguments));
}

/// A folder with a program that runs the toolchain beside it.
class Toolchain {
public:
    Toolchain() {
        std::filesystem::create_directory(folder_.file("bin"));
        std::filesystem::create_directory(folder_.file("bin/Compiler"));
        std::filesystem::copy(std::filesystem::path(VELT_TEST_PROGRAMS) / "toolchain", folder_.file("bin/toolchain"));
    }
    void addStep(const std::string& name, const std::string& script) {
        const std::string path = folder_.write("bin/Compiler/" + name, script);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }
    std::string folder() const { return std::filesystem::canonical(folder_.file("bin")).string(); }
    ProgramResult run(const std::vector<std::string>& arguments) const {
        return runPath(folder() + "/toolchain", arguments, "");
    }

private:
    TemporaryFolder folder_;
};

}  // namespace

TEST(Run, ReturnsWhatTheProgramWroteToItsErrors) {
    EXPECT_VALUE("'wrong\n'", VELT_RUN("/bin/sh"_v, stringArray({"-c", "echo wrong >&2"})));
    EXPECT_VALUE("''", VELT_RUN("/bin/true"_v));
    EXPECT_VALUE("'\xEF\xBF\xBD'", VELT_RUN("/bin/sh"_v, stringArray({"-c", "printf '\\200' >&2"})));
    EXPECT_VALUE("'é猫'", VELT_RUN(string(childProgram()), stringArray({"err", "é猫", "exit", "3"})));
}

TEST(Run, LetsTheOutputThrough) {
    testing::internal::CaptureStdout();
    EXPECT_VALUE("''", VELT_RUN("/bin/echo"_v, stringArray({"to the program's own"})));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "to the program's own\n");
}

TEST(Run, DoesNotWaitForOutputThatIsTheProgramsOwn) {
    testing::internal::CaptureStdout();
    EXPECT_VALUE("'x'", VELT_RUN(string(childProgram()), stringArray({"bytes", "300000", "err", "x"})));
    EXPECT_TRUE(testing::internal::GetCapturedStdout() == generatedBytes(300000, 300000));
}

TEST(Run, NeedsAStringAndAnArray) {
    EXPECT_CAST_FAILURE("'String' expected", VELT_RUN(nil));
    EXPECT_CAST_FAILURE("'String' expected", VELT_RUN(VELT_ID(1L)));
    EXPECT_CAST_FAILURE("'String' expected", VELT_RUN(VELT_ID(1L), stringArray({})));
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", VELT_RUN("/bin/true"_v, "x"_v));
    EXPECT_RAISES("NSInvalidArgumentException: cannot launch '/no/such': No such file or directory",
                  VELT_RUN("/no/such"_v));
}

TEST(Bash, ReturnsOutputAndThenErrors) {
    EXPECT_EQ(bash("echo error >&2; echo output"), "output\nerror\n");
    EXPECT_EQ(bash("exit 7"), "");
}

TEST(Bash, RunsACommandLineInALoginShellWithNothingToRead) {
    // The shell tells its own command line; the arguments follow it, the first as its name.
    EXPECT_EQ(bash("tr '\\0' ' ' </proc/$$/cmdline; echo \"$0 $*\"", stringArray({"name", "one", "two words"})),
              "/bin/sh -l -c tr '\\0' ' ' </proc/$$/cmdline; echo \"$0 $*\" name one two words name one two words\n");
    EXPECT_EQ(bash("cat; readlink /proc/self/fd/0"), "/dev/null\n");
}

TEST(Bash, ReadsTheUsersProfile) {
    const TemporaryFolder home;
    home.write(".profile", "VELT_FROM_PROFILE=read\n");
    const EnvironmentVariable variable("HOME", home.file(""));
    EXPECT_EQ(bash("echo $VELT_FROM_PROFILE"), "read\n");
}

TEST(Bash, RunsAScriptWithItsArguments) {
    const TemporaryFolder folder;
    const std::string script = folder.write("say.sh", "echo \"$# $1 $2\"; echo end >&2\n");
    EXPECT_EQ(bash(script), "0  \nend\n");
    const id arguments = stringArray({"one", "two words"});
    EXPECT_EQ(bash(script, arguments), "2 one two words\nend\n");
    EXPECT_VALUE("NSMutableArray (one, two words)", arguments);
}

TEST(Bash, IsAScriptOnlyByItsFirstLine) {
    EXPECT_EQ(bash("echo one\necho two.sh"), "one\ntwo.sh\n");
    EXPECT_NE(bash("echo one.sh\necho two").find("echo one.sh"), std::string::npos);  // a file that is not there
}

TEST(Bash, GivesAScriptTheProgramsOwnInputAndACommandLineNone) {
    const TemporaryFolder folder;
    const std::string script = folder.write("read.sh", "cat\n");
    const int saved = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 10);
    const int file = ::open(folder.write("input", "from the program\n").c_str(), O_RDONLY | O_CLOEXEC);
    ::dup2(file, STDIN_FILENO);
    const std::string command = bash("cat"), read = bash(script);
    saved < 0 ? ::close(STDIN_FILENO) : ::dup2(saved, STDIN_FILENO);
    ::close(saved);
    ::close(file);
    EXPECT_EQ(command, "");
    EXPECT_EQ(read, "from the program\n");
}

TEST(Bash, DecodesTheTwoStreamsEachForItself) {
    EXPECT_EQ(bash("printf '\\303'; printf '\\251' >&2"), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(bash("printf 'é猫'; printf 'ß😀' >&2"), "é猫ß😀");
}

TEST(Bash, NeedsAStringAndAnArray) {
    EXPECT_CAST_FAILURE("'String' expected", VELT_BASH(nil, nil));
    EXPECT_CAST_FAILURE("'String' expected", VELT_BASH(VELT_ID(1L), nil));
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", VELT_BASH("true"_v, "x"_v));
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", VELT_BASH("true.sh"_v, "x"_v));
}

TEST(Runners, LeaveNoDescriptorAndNoNotificationBehind) {
    EXPECT_TRUE(runLoopUntil([] { return !RunLoop::current().isPending(); }));
    bash("true");
    const std::size_t before = openDescriptorCount();
    for (int i = 0; i < 50; ++i) bash("true");
    EXPECT_EQ(openDescriptorCount(), before);
    EXPECT_FALSE(RunLoop::current().isPending());
}

TEST(Runners, RunOnSeveralThreadsAtOnce) {
    std::vector<std::thread> threads;
    std::vector<std::string> results(8);
    for (std::size_t i = 0; i < results.size(); ++i) {
        threads.emplace_back([&results, i] { results[i] = bash("echo " + std::to_string(i)); });
    }
    for (std::thread& thread : threads) thread.join();
    for (std::size_t i = 0; i < results.size(); ++i) EXPECT_EQ(results[i], std::to_string(i) + "\n");
}

TEST(Toolchain, RunsTheStepsBesideTheExecutable) {
    Toolchain toolchain;
    toolchain.addStep("velt", "#!/bin/sh\necho \"$0: $*\" >&2\n");
    toolchain.addStep("objc_header.sh", "echo \"header $*\" >&2\n");
    toolchain.addStep("objc_compile.sh", "echo \"compile $*\" >&2\n");
    toolchain.addStep("linker.sh", "echo \"link $*\"\n");
    const std::string compiler = toolchain.folder() + "/Compiler/";
    EXPECT_EQ(toolchain.run({"translate", "a.bas", "-x"}).output, "{" + compiler + "velt: a.bas -x\n}\n(a.bas, -x)\n");
    EXPECT_EQ(toolchain.run({"header", "a", "b c"}).output,
              "{header a b c\n}\n(" + compiler + "objc_header.sh, a, b c)\n");
    EXPECT_EQ(toolchain.run({"compile"}).output, "{compile \n}\n(" + compiler + "objc_compile.sh)\n");
    // Output is the program's own; a step that writes no errors has gone well.
    EXPECT_EQ(toolchain.run({"link", "a"}).output, "link a\n{}\n(" + compiler + "linker.sh, a)\n");
}

TEST(Toolchain, RaisesForAMissingTranslatorAndReportsAMissingScript) {
    const Toolchain toolchain;
    const ProgramResult translated = toolchain.run({"translate"});
    EXPECT_EQ(translated.status, 1);
    EXPECT_EQ(translated.errors, "NSInvalidArgumentException: cannot launch '" + toolchain.folder() +
                                     "/Compiler/velt': No such file or directory\n");
    const ProgramResult linked = toolchain.run({"link"});
    EXPECT_EQ(linked.status, 0);
    EXPECT_NE(linked.output.find("linker.sh"), std::string::npos);
}

TEST(Toolchain, KnowsWhereItLies) {
    const Toolchain toolchain;
    EXPECT_EQ(toolchain.run({"folder"}).output, "{" + toolchain.folder() + "}\n()\n");
    EXPECT_EQ(toolchain.run({"runtime"}).output, "{" + toolchain.folder() + "/Runtime}\n()\n");
    EXPECT_EQ(toolchain.run({"examples"}).output, "{" + toolchain.folder() + "/Resources/Examples}\n()\n");
}

TEST(Architecture, IsNamedAsUsual) {
#if defined(__x86_64__)
    EXPECT_VALUE("'x86_64'", VELT_ARCH());
#elif defined(__aarch64__)
    EXPECT_VALUE("'arm64'", VELT_ARCH());
#else
    EXPECT_GT(textOf(VELT_ARCH()).size(), 2u);
#endif
}

TEST(Runners, WorkWhileTheProgramsOwnStreamsAreClosed) {
    int saved[3];
    for (int i = 0; i < 3; ++i) {
        saved[i] = ::fcntl(i, F_DUPFD_CLOEXEC, 10);
        ::close(i);
    }
    const std::string text = bash("echo output; echo error >&2");
    for (int i = 0; i < 3; ++i) {
        ::dup2(saved[i], i);
        ::close(saved[i]);
    }
    EXPECT_EQ(text, "output\nerror\n");
}
