// Starting a program on the memory of this one: what it finds, what becomes of a failure, and what is left here.
#include "VELTRuntime/platform/foundation/process/program_start.h"

#include "VELTRuntime/platform/foundation/process/child_process.h"
#include "support/child_tasks.h"
#include "support/processes.h"
#include "support/values.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace velt;
using namespace velt::test;

namespace {

/// A start of the tests' child, or of another program.
class Start {
public:
    explicit Start(std::vector<std::string> arguments, std::string path = childProgram())
        : texts_(std::move(arguments)), path_(std::move(path)) {
        pointers_.push_back(path_.data());
        for (std::string& text : texts_) pointers_.push_back(text.data());
        pointers_.push_back(nullptr);
        plan = {path_.c_str(), pointers_.data(), environ, nullptr, {-1, -1, -1}, false};
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    StartPlan plan;

private:
    std::vector<std::string> texts_;
    std::string path_;
    std::vector<char*> pointers_;
};

/// Waits for a child and gives its exit status.
int endOf(const StartResult& started) {
    EXPECT_EQ(started.error, 0);
    EXPECT_GE(started.descriptor, 0);
    ::close(started.descriptor);
    int status = -1;
    EXPECT_EQ(::waitpid(started.identifier, &status, 0), started.identifier);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// What a start writes to its standard output.
std::string outputOf(Start& start) {
    const PipeEnds ends = makePipe();
    start.plan.standard[1] = ends.writing;
    const StartResult started = startProgram(start.plan);
    ::close(ends.writing);
    std::string text;
    char piece[4096];
    for (ssize_t count; (count = ::read(ends.reading, piece, sizeof piece)) > 0;) {
        text.append(piece, static_cast<std::size_t>(count));
    }
    ::close(ends.reading);
    EXPECT_EQ(endOf(started), 0);
    return text;
}

/// The children of this thread, ended ones among them.
std::string children() { return contentOf("/proc/thread-self/children"); }

/// A signal is treated in some way while this exists.
class Treated {
public:
    Treated(int number, void (*handler)(int)) : number_(number) {
        struct sigaction action = {};
        action.sa_handler = handler;
        ::sigaction(number, &action, &before_);
    }
    ~Treated() { ::sigaction(number_, &before_, nullptr); }
    Treated(const Treated&) = delete;
    Treated& operator=(const Treated&) = delete;

private:
    int number_;
    struct sigaction before_;
};

std::atomic<int> alarms = 0, alarmsElsewhere = 0;
pid_t ownProcess = 0;
void countAlarm(int) { ++(::getpid() == ownProcess ? alarms : alarmsElsewhere); }

}  // namespace

TEST(ProgramStart, TellsTheSystemsErrorAndLeavesNoChild) {
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "text");
    Start missing({}, "/no/such/program"), plain({}, file), elsewhere({"exit", "0"}), inAFile({"exit", "0"});
    elsewhere.plan.folder = "/no/such/folder";
    inAFile.plan.folder = file.c_str();
    settleDescriptors();
    const std::size_t before = openDescriptorCount();
    const std::string childrenBefore = children();
    EXPECT_EQ(startProgram(missing.plan).error, ENOENT);
    EXPECT_EQ(startProgram(plain.plan).error, EACCES);
    EXPECT_EQ(startProgram(elsewhere.plan).error, ENOENT);
    EXPECT_EQ(startProgram(inAFile.plan).error, ENOTDIR);
    EXPECT_EQ(openDescriptorCount(), before);
    EXPECT_EQ(children(), childrenBefore);
}

TEST(ProgramStart, ResetsWhatThisProgramHandlesIgnoresAndBlocks) {
    const Treated handled(SIGUSR1, [](int) {}), ignored(SIGUSR2, SIG_IGN), pipes(SIGPIPE, SIG_IGN);
    sigset_t blocked, before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
    Start start({"signals"});
    const std::string state = outputOf(start);
    // A sanitizer in the child handles faults of its own.
    for (const int number : {SIGUSR1, SIGUSR2, SIGPIPE}) {
        EXPECT_EQ(state.find("set" + std::to_string(number)), state.npos) << state;
    }
    EXPECT_EQ(state.find("blocked"), state.npos) << state;
    sigset_t now;
    ::pthread_sigmask(SIG_SETMASK, &before, &now);
    EXPECT_EQ(sigismember(&now, SIGTERM), 1);
    EXPECT_EQ(sigismember(&now, SIGUSR1), 0);
    struct sigaction action;
    ::sigaction(SIGUSR2, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_IGN);
}

TEST(ProgramStart, PassesOnAStandardDescriptorThatWouldBeClosed) {
    const PipeEnds ends = makePipe();
    const int saved = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 10);
    ::dup3(ends.writing, STDERR_FILENO, O_CLOEXEC);
    Start start({"err", "there"});
    start.plan.standard[2] = STDERR_FILENO;
    const StartResult started = startProgram(start.plan);
    ::dup2(saved, STDERR_FILENO);
    ::close(saved);
    ::close(ends.writing);
    EXPECT_EQ(endOf(started), 0);
    char text[16] = {};
    EXPECT_EQ(::read(ends.reading, text, sizeof text), 5);
    EXPECT_STREQ(text, "there");
    ::close(ends.reading);
}

TEST(Pipes, AreNotMadeByHalves) {
    // Of two descriptors that are left one is a standard stream's, which no pipe may have.
    const int saved = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3);
    if (saved < 0) GTEST_SKIP() << "standard input is closed";
    const int last = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3);
    ::close(last);
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const rlimit few{static_cast<rlim_t>(last) + 1, before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &few);
    ::close(STDIN_FILENO);
    EXPECT_RAISES("NSFileHandleOperationException: pipe: Too many open files", makePipe());
    EXPECT_EQ(::fcntl(STDIN_FILENO, F_GETFD), -1);
    EXPECT_EQ(::fcntl(last, F_GETFD), -1);
    ::setrlimit(RLIMIT_NOFILE, &before);
    ::dup2(saved, STDIN_FILENO);
    ::close(saved);
}

TEST(ProgramStart, MakesASessionWhereItIsAsked) {
    for (const bool newSession : {false, true}) {
        Start start({"pause", "60000"});
        start.plan.newSession = newSession;
        const StartResult started = startProgram(start.plan);
        ASSERT_EQ(started.error, 0);
        EXPECT_EQ(::getsid(started.identifier) == started.identifier, newSession);
        ::kill(started.identifier, SIGKILL);
        EXPECT_EQ(endOf(started), -1);
    }
}

TEST(ProgramStart, IsNotDisturbedBySignalsWhichReachThisProgramAlone) {
    ownProcess = ::getpid();
    const Treated treated(SIGALRM, countAlarm);
    const itimerval often{{0, 200}, {0, 200}}, never{};
    ::setitimer(ITIMER_REAL, &often, nullptr);
    const int before = alarms;
    for (int i = 0; i < 50 || alarms == before; ++i) {
        Start good({}, "/bin/true"), bad({}, "/no/such/program");
        const StartResult started = startProgram(good.plan);
        ASSERT_EQ(started.error, 0);
        ::close(started.descriptor);
        int status = -1;
        while (::waitpid(started.identifier, &status, 0) < 0 && errno == EINTR) {
        }
        ASSERT_EQ(status, 0);
        ASSERT_EQ(startProgram(bad.plan).error, ENOENT);
    }
    ::setitimer(ITIMER_REAL, &never, nullptr);
    EXPECT_EQ(alarmsElsewhere, 0);
}

TEST(ProgramStart, HappensOnManyThreadsAtOnce) {
    std::atomic<int> right = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&right, i] {
            for (int round = 0; round < 20; ++round) {
                const std::string text = std::to_string(i) + "/" + std::to_string(round);
                Start start({"out", text});
                if (outputOf(start) == text) ++right;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(right, 160);
}
