// What launches, waits and reads, in this order, waits for ever for a child that writes more than a pipe holds.
// Programs rely on it.
#include "VELTRuntime/platform/foundation/process/child_process.h"
#include "support/child_tasks.h"
#include "support/processes.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

using namespace velt;
using namespace velt::test;

namespace {

/// What a pipe holds here.
std::size_t pipeCapacity() {
    const PipeEnds ends = makePipe();
    const int capacity = ::fcntl(ends.writing, F_GETPIPE_SZ);
    ::close(ends.reading);
    ::close(ends.writing);
    return static_cast<std::size_t>(capacity);
}

/// The letter that the system gives for what a process does; '-' when it is gone.
char stateOf(pid_t process) {
    const std::string line = contentOf("/proc/" + std::to_string(process) + "/stat");
    const std::size_t end = line.rfind(") ");
    return end == line.npos ? '-' : line[end + 2];
}

/// The processor time that a process has used, as the system tells it.
std::string timeOf(pid_t process) {
    const std::string line = contentOf("/proc/" + std::to_string(process) + "/schedstat");
    return line.substr(0, line.find(' '));
}

/// Neither of them works any more: both wait, and go on waiting.
bool bothWait(pid_t runner, pid_t child) {
    const std::string before = timeOf(runner) + " " + timeOf(child);
    for (int look = 0; look < 20; ++look) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        if (stateOf(runner) != 'S' || stateOf(child) != 'S') return false;
    }
    return timeOf(runner) + " " + timeOf(child) == before;
}

class FullPipe : public testing::TestWithParam<const char*> {
protected:
    /// The option of the child that writes to what the way captures.
    std::string writing() const { return GetParam() == std::string("run") ? "error-text" : "text"; }
    std::vector<std::string> arguments(const std::vector<std::string>& child) const {
        std::vector<std::string> all{GetParam(), childProgram()};
        all.insert(all.end(), child.begin(), child.end());
        return all;
    }
};

}  // namespace

TEST_P(FullPipe, IsNoMatterForAChildThatJustFillsIt) {
    const std::string size = std::to_string(pipeCapacity());
    EXPECT_EQ(runProgram("full_pipe", arguments({writing(), size})).output, size + " bytes\n");
}

TEST_P(FullPipe, IsWaitedForByAChildThatWritesMoreAndNobodyReads) {
    const TemporaryFolder folder;
    const std::string full = folder.file("full"), past = folder.file("past");
    SpawnRequest request;
    request.path = (std::filesystem::path(VELT_TEST_PROGRAMS) / "full_pipe").string();
    request.arguments = arguments(
        {writing(), std::to_string(pipeCapacity()), "note-process", full, writing(), "1", "note-process", past});
    ChildProcess runner(request);
    std::string noted;
    EXPECT_TRUE(runLoopUntil([&] { return (noted = contentOf(full)).ends_with('\n') || runner.end(); }));
    const pid_t child = std::atoi(noted.c_str());
    ASSERT_GT(child, 0);
    EXPECT_TRUE(runLoopUntil([&] { return bothWait(runner.identifier(), child) || runner.end(); }));
    EXPECT_FALSE(runner.end());
    EXPECT_FALSE(std::filesystem::exists(past));
    // Its reader gone, the child ends; what started it never got so far.
    EXPECT_TRUE(runner.signal(SIGKILL));
    EXPECT_TRUE(runner.wait(60000));
    EXPECT_TRUE(runLoopUntil([&] { return stateOf(child) == '-' || stateOf(child) == 'Z'; }));
    EXPECT_FALSE(std::filesystem::exists(past));
}

INSTANTIATE_TEST_SUITE_P(OfARunner, FullPipe, testing::Values("run", "bash", "launch", "start"),
                         [](const testing::TestParamInfo<const char*>& way) { return std::string(way.param); });
