// Child processes by themselves: how they are started, what they are given, how their end is noticed.
#include "VELTRuntime/platform/foundation/process/task.h"

#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/process/child_process.h"
#include "VELTRuntime/platform/foundation/process/descriptor_io.h"
#include "support/child_tasks.h"
#include "support/environment.h"
#include "support/generated_bytes.h"
#include "support/processes.h"
#include "support/values.h"

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace velt;
using namespace velt::test;

namespace {

/// A process with a pipe for its output.
struct Piped {
    explicit Piped(const std::vector<std::string>& arguments, const std::string& path = childProgram()) {
        task->setLaunchPath(string(path));
        task->setArguments(stringArray(arguments));
        task->setStandardOutput(pipe);
    }
    /// All of its output, after its end.
    std::string run() {
        task->launch();
        const id data = pipe->fileHandleForReading()->readDataToEndOfFile();
        task->waitUntilExit();
        return bytesOf(data);
    }
    Ref<NSTask> task = make<NSTask>();
    Ref<NSPipe> pipe = make<NSPipe>();
};

std::string outputOf(const std::vector<std::string>& arguments) { return Piped(arguments).run(); }

/// The reason that a launch fails with.
std::string launchFailure(const std::string& path, const std::string& folder = "") {
    const Ref<NSTask> task = make<NSTask>();
    task->setLaunchPath(string(path));
    if (!folder.empty()) task->setCurrentDirectoryPath(string(folder));
    try {
        task->launch();
    } catch (const NSException& failure) {
        EXPECT_EQ(failure.name(), "NSInvalidArgumentException");
        EXPECT_FALSE(task->isLaunched());
        return failure.reason();
    }
    ADD_FAILURE() << path << " was launched";
    task->waitUntilExit();
    return {};
}

/// Counts the ends that it is told of.
class EndCounter : public NSObject {
    VELT_OBJECT(EndCounter, NSObject)

public:
    static void describe(ClassBuilder<EndCounter>& c) { c.method("ended:", &EndCounter::ended); }
    void ended(const id& notification) {
        ++count;
        last = as<NSNotification>(notification)->object();
    }
    void watch(const id& task) {
        NSNotificationCenter::defaultCenter().addObserver(id(this), Selector::named("ended:"),
                                                          "NSTaskDidTerminateNotification"_v, task);
    }
    int count = 0;
    id last;
};

}  // namespace

TEST(Task, GivesArgumentsAsTheyAre) {
    EXPECT_EQ(outputOf({"", "a b", "\"x\"", "$HOME", "é猫", "-n", "line\nfeed"}),
              "[][a b][\"x\"][$HOME][é猫][-n][line\nfeed]");
}

TEST(Task, GivesArgumentsOfAnyBytesFromData) {
    Piped piped({});
    const Ref<NSMutableArray> arguments = make<NSMutableArray>();
    arguments->append(make<NSData>("\xff\xfe\x01"));
    piped.task->setArguments(arguments);
    EXPECT_EQ(piped.run(), "[\xff\xfe\x01]");
}

TEST(Task, RefusesAZeroByteInAnArgument) {
    const Ref<NSTask> task = make<NSTask>();
    task->setLaunchPath("/bin/true"_v);
    const Ref<NSMutableArray> arguments = make<NSMutableArray>();
    arguments->append(string(std::u16string_view(u"a\0b", 3)));
    task->setArguments(arguments);
    EXPECT_RAISES("NSInvalidArgumentException: cannot launch '/bin/true': an argument holds a zero byte",
                  task->launch());
}

TEST(Task, GivesTheEnvironmentThatWasSetAndNothingElse) {
    Piped piped({"environment", "ONE", "environment", "HOME"});
    const Ref<NSMutableDictionary> environment = make<NSMutableDictionary>();
    environment->setObject("1=é"_v, "ONE"_v);
    piped.task->setEnvironment(environment);
    EXPECT_EQ(piped.run(), "1=é(none)");
}

TEST(Task, InheritsTheProgramsEnvironment) {
    const EnvironmentVariable variable("VELT_TEST_VARIABLE", "inherited");
    EXPECT_EQ(outputOf({"environment", "VELT_TEST_VARIABLE"}), "inherited");
    EXPECT_EQ(utf8(as<NSDictionary>(make<NSTask>()->environment())->objectForKey("VELT_TEST_VARIABLE"_v)), "inherited");
}

TEST(Task, RunsInItsWorkingFolder) {
    const TemporaryFolder folder;
    Piped piped({"folder"});
    piped.task->setCurrentDirectoryPath(string(folder.file("")));
    EXPECT_EQ(piped.run(), std::filesystem::canonical(folder.file(".")).string());
}

TEST(Task, FindsARelativePathFromTheProgramsOwnFolder) {
    const std::filesystem::path relative = std::filesystem::relative(childProgram());
    Piped piped({"folder"}, relative.string());
    piped.task->setCurrentDirectoryPath("/"_v);
    EXPECT_EQ(piped.run(), "/");
}

TEST(Task, PassesNoDescriptorOnButTheStandardOnes) {
    const int open = ::open("/dev/null", O_RDONLY);  // without close-on-exec
    const Ref<NSPipe> other = make<NSPipe>();
    EXPECT_EQ(outputOf({"descriptors"}), "0 1 2 ");
    ::close(open);
}

TEST(Task, StartsWithNoSignalBlockedAndNoneIgnored) {
    sigset_t usr1, before;
    sigemptyset(&usr1);
    sigaddset(&usr1, SIGUSR1);
    pthread_sigmask(SIG_BLOCK, &usr1, &before);
    const auto oldPipe = std::signal(SIGPIPE, SIG_IGN);
    const std::string state = outputOf({"signals"});
    std::signal(SIGPIPE, oldPipe);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    // A sanitizer in the child handles faults of its own.
    EXPECT_EQ(state.find("set" + std::to_string(SIGPIPE)), state.npos) << state;
    EXPECT_EQ(state.find("blocked"), state.npos) << state;
}

TEST(Task, CanExchangeItsOutputAndErrors) {
    // As in "2>&1 1>&2": each stream is the other's source.
    const Ref<NSTask> task = make<NSTask>();
    const Ref<NSPipe> output = make<NSPipe>(), errors = make<NSPipe>();
    const int savedOutput = ::dup(1), savedErrors = ::dup(2);
    ::dup2(output->fileHandleForWriting()->fileDescriptor(), 1);
    ::dup2(errors->fileHandleForWriting()->fileDescriptor(), 2);
    task->setLaunchPath(string(childProgram()));
    task->setArguments(stringArray({"out", "o", "err", "e"}));
    task->setStandardOutput(id(&NSFileHandle::standardError()));
    task->setStandardError(id(&NSFileHandle::standardOutput()));
    task->launch();
    task->waitUntilExit();
    ::dup2(savedOutput, 1);
    ::dup2(savedErrors, 2);
    ::close(savedOutput);
    ::close(savedErrors);
    EXPECT_EQ(bytesOf(output->fileHandleForReading()->availableData()), "e");
    EXPECT_EQ(bytesOf(errors->fileHandleForReading()->availableData()), "o");
}

TEST(TaskLaunch, NamesThePathAndTheSystemsReason) {
    const TemporaryFolder folder;
    const std::string plain = folder.write("plain", "echo\n"), script = folder.write("script", "#!/no/such/shell -x\n"),
                      text = folder.write("text", "just text\n");
    ::chmod(script.c_str(), 0755);
    ::chmod(text.c_str(), 0755);
    EXPECT_EQ(launchFailure("/no/such/program"), "cannot launch '/no/such/program': No such file or directory");
    EXPECT_EQ(launchFailure(plain), "cannot launch '" + plain + "': Permission denied");
    EXPECT_EQ(launchFailure("/usr"), "cannot launch '/usr': Is a directory");
    EXPECT_EQ(launchFailure(script),
              "cannot launch '" + script + "': interpreter '/no/such/shell': No such file or directory");
    EXPECT_EQ(launchFailure(text), "cannot launch '" + text + "': Exec format error");
    EXPECT_EQ(launchFailure(""), "cannot launch '': No such file or directory");
    EXPECT_EQ(launchFailure("/bin/true", "/no/such/folder"),
              "cannot launch '/bin/true' in '/no/such/folder': No such file or directory");
    EXPECT_EQ(launchFailure("/bin/true", plain), "cannot launch '/bin/true' in '" + plain + "': Not a directory");
}

TEST(TaskLaunch, MayBeTriedAgainAfterAFailure) {
    Piped piped({"out", "x"}, "/no/such/program");
    EXPECT_RAISES("NSInvalidArgumentException: cannot launch '/no/such/program': No such file or directory",
                  piped.task->launch());
    piped.task->setLaunchPath(string(childProgram()));
    EXPECT_EQ(piped.run(), "x");
}

TEST(TaskLaunch, HappensOnceAndEndsTheSetting) {
    Piped piped({});
    piped.run();
    EXPECT_RAISES("NSInvalidArgumentException: task already launched", piped.task->launch());
    EXPECT_RAISES("NSInvalidArgumentException: task already launched", piped.task->setLaunchPath("/bin/true"_v));
    EXPECT_RAISES("NSInvalidArgumentException: task already launched", piped.task->setArguments(nil));
}

TEST(TaskLaunch, NeedsAPath) {
    EXPECT_RAISES("NSInvalidArgumentException: the task has no launch path", make<NSTask>()->launch());
}

TEST(TaskEnd, HasAStatusOnlyAfterwards) {
    const Ref<NSTask> task = make<NSTask>();
    EXPECT_RAISES("NSInvalidArgumentException: task not launched", task->terminationStatus());
    EXPECT_EQ(task->processIdentifier(), 0);
    EXPECT_FALSE(task->isRunning());
    task->setLaunchPath(string(childProgram()));
    task->setArguments(stringArray({"await", "exit", "7"}));
    const Ref<NSPipe> input = make<NSPipe>();
    task->setStandardInput(input);
    task->launch();
    EXPECT_GT(task->processIdentifier(), 1);
    EXPECT_TRUE(task->isRunning());
    EXPECT_RAISES("NSInvalidArgumentException: task still running", task->terminationStatus());
    input->fileHandleForWriting()->closeFile();
    task->waitUntilExit();
    EXPECT_FALSE(task->isRunning());
    EXPECT_EQ(task->terminationStatus(), 7);
    EXPECT_EQ(task->terminationReason(), 1);
}

TEST(TaskEnd, TellsTheSignalThatEndedIt) {
    Piped piped({"raise", "9"});
    piped.run();
    EXPECT_EQ(piped.task->terminationStatus(), SIGKILL);
    EXPECT_EQ(piped.task->terminationReason(), 2);
}

TEST(TaskEnd, IsPostedOnceByTheRunLoop) {
    Piped piped({"pause", "20"});
    const Ref<EndCounter> counter = make<EndCounter>();
    counter->watch(piped.task);
    piped.task->launch();
    EXPECT_EQ(counter->count, 0);
    EXPECT_TRUE(runLoopUntil([&] { return counter->count > 0; }));
    EXPECT_TRUE(counter->last == id(piped.task));
    RunLoop::current().runUntil(0.05);
    EXPECT_EQ(counter->count, 1);
}

TEST(TaskEnd, IsPostedAfterAWaitWhenTheRunLoopRunsAgain) {
    Piped piped({"exit", "3"});
    const Ref<EndCounter> counter = make<EndCounter>();
    counter->watch(piped.task);
    piped.task->launch();
    piped.task->waitUntilExit();
    EXPECT_EQ(counter->count, 0);
    EXPECT_TRUE(runLoopUntil([&] { return counter->count > 0; }));
    RunLoop::current().runUntil(0.05);
    EXPECT_EQ(counter->count, 1);
}

TEST(TaskEnd, LeavesNoZombieAndNoDescriptorOnceTheLoopHasRun) {
    settleDescriptors();
    const std::size_t before = openDescriptorCount();
    std::vector<long> processes;
    for (int i = 0; i < 20; ++i) {
        Piped piped({});
        piped.task->launch();
        processes.push_back(piped.task->processIdentifier());
    }
    EXPECT_TRUE(runLoopUntil([&] { return openDescriptorCount() == before; }));
    for (long process : processes) EXPECT_NE(::kill(static_cast<pid_t>(process), 0), 0) << process;
}

TEST(TaskEnd, LeavesNoZombieOnceAnotherChildIsStartedThoughNobodyAsks) {
    const Ref<NSTask> task = make<NSTask>();
    task->setLaunchPath(string(childProgram()));
    task->setArguments(stringArray({"exit", "5"}));
    const Ref<EndCounter> counter = make<EndCounter>();
    counter->watch(task);
    task->launch();
    const auto process = static_cast<pid_t>(task->processIdentifier());
    waitReadable(task->child()->descriptor(), -1);
    VELT_RUN("/bin/true"_v);
    EXPECT_NE(::kill(process, 0), 0);
    // The loop hears of the end as ever.
    EXPECT_EQ(counter->count, 0);
    EXPECT_TRUE(runLoopUntil([&] { return counter->count > 0; }));
    EXPECT_EQ(task->terminationStatus(), 5);
}

TEST(TaskEnd, LeavesNoZombieOfAThreadThatNeitherWaitsNorRunsItsLoop) {
    std::atomic<long> process{0};
    std::atomic<bool> isOver{false};
    std::thread launcher([&] {
        Piped piped({"raise", "9"});
        piped.task->launch();
        process = piped.task->processIdentifier();
        while (!isOver) ::usleep(1000);
        EXPECT_EQ(piped.task->terminationStatus(), SIGKILL);
        const Ref<EndCounter> counter = make<EndCounter>();
        counter->watch(piped.task);
        EXPECT_TRUE(runLoopUntil([&] { return counter->count > 0; }));
    });
    EXPECT_TRUE(runLoopUntil([&] { return process > 0 && ::kill(static_cast<pid_t>(process), 0) != 0; }));
    isOver = true;
    launcher.join();
}

TEST(TaskEnd, LeavesNoZombieOfATaskThatNobodyHolds) {
    long process = 0;
    std::thread([&] {
        const Ref<NSTask> task = make<NSTask>();
        task->setLaunchPath(string(childProgram()));
        task->setArguments(stringArray({"pause", "20"}));
        task->launch();
        process = task->processIdentifier();
    }).join();
    EXPECT_TRUE(runLoopUntil([&] { return ::kill(static_cast<pid_t>(process), 0) != 0; }));
}

TEST(TaskEnd, DoesNotDisturbTheProgramsOwnChildrenAndHandlers) {
    static int handled;
    handled = 0;
    struct sigaction action {
    }, before{};
    action.sa_handler = [](int) { ++handled; };
    ::sigaction(SIGCHLD, &action, &before);
    const pid_t own = ::fork();
    if (own == 0) _exit(5);
    EXPECT_EQ(outputOf({"out", "x"}), "x");
    int status = 0;
    pid_t waited;
    do {
        waited = ::waitpid(own, &status, 0);
    } while (waited < 0 && errno == EINTR);
    struct sigaction now {};
    ::sigaction(SIGCHLD, &before, &now);
    EXPECT_EQ(waited, own);
    EXPECT_EQ(WEXITSTATUS(status), 5);
    EXPECT_TRUE(now.sa_handler == action.sa_handler);
    EXPECT_GE(handled, 1);
}

TEST(TaskEnd, IsNoticedWhenTheProgramIgnoresItsChildren) {
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    Piped piped({"exit", "4"});
    const Ref<EndCounter> counter = make<EndCounter>();
    counter->watch(piped.task);
    piped.task->launch();
    EXPECT_TRUE(runLoopUntil([&] { return counter->count > 0; }));
    std::signal(SIGCHLD, before);
    EXPECT_EQ(piped.task->terminationStatus(), -1);
}

TEST(TaskSignals, StopAndContinueAsOftenAsTheyWereAsked) {
    const Ref<NSTask> task = make<NSTask>();
    task->setLaunchPath(string(childProgram()));
    task->setArguments(stringArray({"pause", "60000"}));
    EXPECT_RAISES("NSInvalidArgumentException: task not launched", task->terminate());
    task->launch();
    const auto state = [&] {
        const std::string status = contentOf("/proc/" + std::to_string(task->processIdentifier()) + "/stat");
        return status.at(status.rfind(')') + 2);
    };
    EXPECT_TRUE(task->suspend());
    EXPECT_TRUE(task->suspend());
    EXPECT_TRUE(runLoopUntil([&] { return state() == 'T'; }));
    EXPECT_TRUE(task->resume());
    EXPECT_EQ(state(), 'T');
    EXPECT_TRUE(task->resume());
    EXPECT_TRUE(runLoopUntil([&] { return state() != 'T'; }));
    task->terminate();
    task->waitUntilExit();
    EXPECT_EQ(task->terminationStatus(), SIGTERM);
    EXPECT_FALSE(task->suspend());
    EXPECT_FALSE(task->resume());
    task->terminate();
}

TEST(Task, IsLaunchedAndEndsOnAnyThread) {
    std::vector<std::thread> threads;
    std::atomic<int> ended{0};
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&ended, i] {
            Piped piped({"bytes", std::to_string(1000 + i)});
            const Ref<EndCounter> counter = make<EndCounter>();
            counter->watch(piped.task);
            piped.task->launch();
            const id data = piped.pipe->fileHandleForReading()->readDataToEndOfFile();
            if (bytesOf(data) !=
                generatedBytes(static_cast<std::uint64_t>(1000 + i), static_cast<std::size_t>(1000 + i)))
                return;
            if (runLoopUntil([&] { return counter->count == 1; })) ++ended;
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(ended, 8);
}

TEST(Task, AnswersByName) {
    const id task = VELT_NSTASK_INIT(nil, nullptr);
    send(task, "setLaunchPath:", "/bin/sh"_v);
    EXPECT_EQ(utf8(send(task, "launchPath")), "/bin/sh");
    send(task, "setArguments:", stringArray({"-c", "exit 3"}));
    send(task, "launch");
    send(task, "waitUntilExit");
    EXPECT_EQ(VELT_CINTEGER(send(task, "terminationStatus")), 3);
}
