// Tasks: what is reported to their targets, in which order, and what becomes of tasks that are dropped.
#include "VELTRuntime/process/task.h"

#include "VELTRuntime/platform/foundation/process/descriptor_io.h"
#include "support/child_tasks.h"
#include "support/generated_bytes.h"
#include "support/processes.h"
#include "support/values.h"

#include <algorithm>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <random>

using namespace velt;
using namespace velt::test;

namespace {

/// Gets what tasks of the name "job" report.
class JobOwner : public NSObject {
    VELT_OBJECT(JobOwner, NSObject)

public:
    static void describe(ClassBuilder<JobOwner>& c) {
        c.method("job_stdout:", &JobOwner::output)
            .method("job_stderr:", &JobOwner::errors)
            .method("jobstopped", &JobOwner::stopped)
            .owns(&JobOwner::task);
    }
    void output(const id& data) {
        outputText += bytesOf(data);
        events += "o";
        if (onOutput) onOutput();
    }
    void errors(const id& data) {
        errorText += bytesOf(data);
        events += "e";
    }
    void stopped() {
        ++stops;
        events += "s";
        if (onStop) onStop();
    }

    id task;
    std::string outputText, errorText, events;
    int stops = 0;
    std::function<void()> onOutput, onStop;
};

/// Hears of the end alone.
class EndOwner : public NSObject {
    VELT_OBJECT(EndOwner, NSObject)

public:
    static void describe(ClassBuilder<EndOwner>& c) { c.method("jobstopped", &EndOwner::stopped); }
    void stopped() { ++stops; }
    int stops = 0;
};

id newTask(const id& owner, const std::vector<std::string>& arguments, const std::string& path = childProgram()) {
    const id task = VELT_VLTASK_INIT(owner, "job");
    VELT_VLTASK_PATH(task, string(path));
    VELT_VLTASK_ARGUMENTS(task, stringArray(arguments));
    return task;
}

void launch(const id& task) { send(send(task, "task"), "launch"); }
bool flag(const id& task, const char* key) { return VELT_CBOOL(valueForKey(task, key)); }
/// No observer of the notification centre any more, which the clean-up takes away.
bool isComplete(const id& task) {
    return flag(task, "stdoutEmpty") && flag(task, "stderrEmpty") && flag(task, "taskDidTerminate");
}

/// Runs a task to its end and all of its output.
Ref<JobOwner> ran(const std::vector<std::string>& arguments) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = newTask(owner, arguments);
    launch(task);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    return owner;
}

}  // namespace

TEST(VLTask, BeginsWithItsErrorsAtTheirEndAndItsOutputNot) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = VELT_VLTASK_INIT(owner, "job");
    EXPECT_FALSE(flag(task, "stdoutEmpty"));
    EXPECT_TRUE(flag(task, "stderrEmpty"));
    EXPECT_FALSE(flag(task, "taskDidTerminate"));
    EXPECT_EQ(utf8(valueForKey(task, "sName")), "job");
    EXPECT_TRUE(valueForKey(task, "target") == id(owner));
    EXPECT_TRUE(valueForKey(task, "mytask") == send(task, "task"));
    EXPECT_VALUE("c 0", VELT_VLTASK_ISRUNNING(task));
    EXPECT_VALUE("q 0", VELT_VLTASK_PID(task));
}

TEST(VLTask, ReportsOutputErrorsAndTheEnd) {
    const Ref<JobOwner> owner = ran({"out", "é猫", "err", "ß"});
    EXPECT_EQ(owner->outputText, "é猫");
    EXPECT_EQ(owner->errorText, "ß");
    EXPECT_EQ(owner->stops, 1);
}

TEST(VLTask, ReportsTheEndOfAProcessThatWritesNothing) { EXPECT_EQ(ran({})->events, "s"); }

TEST(VLTask, ReportsErrorsThatComeAlone) {
    const Ref<JobOwner> owner = ran({"err", "x", "pause", "50"});
    EXPECT_EQ(owner->outputText, "");
    EXPECT_EQ(owner->errorText, "x");
}

TEST(VLTask, WaitsForTheEndOfTheErrorsOnceSomeHaveCome) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = newTask(owner, {"err", "x", "pause", "60000"});
    launch(task);
    EXPECT_TRUE(runLoopUntil([&] { return owner->errorText == "x"; }));
    EXPECT_FALSE(flag(task, "stderrEmpty"));
    VELT_VLTASK_STOP(task);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_VALUE("q 15", VELT_VLTASK_EXITSTATUS(task));
}

TEST(VLTask, KeepsPiecesAsTheyCome) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = newTask(owner, {"out", "one", "await", "out", "two\nthree"});
    VELT_VLTASK_STDIN(task, ""_v);
    launch(task);
    EXPECT_TRUE(runLoopUntil([&] { return owner->events == "o"; }));
    EXPECT_EQ(owner->outputText, "one");
    send(send(send(send(task, "task"), "standardInput"), "fileHandleForWriting"), "closeFile");
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_EQ(owner->outputText, "onetwo\nthree");
    EXPECT_EQ(owner->events.size(), 3u);
}

TEST(VLTask, ReportsManySingleBytesAndMegabytes) {
    EXPECT_TRUE(ran({"single-bytes", "20000"})->outputText == generatedBytes(20000, 20000));
    const Ref<JobOwner> owner = ran({"bytes", "5000000", "error-bytes", "3000000"});
    EXPECT_TRUE(owner->outputText == generatedBytes(5000000, 5000000));
    EXPECT_TRUE(owner->errorText == generatedBytes(3000000, 3000000));
}

TEST(VLTask, DropsWhatItsTargetDoesNotKnow) {
    const Ref<EndOwner> owner = make<EndOwner>();
    const id task = newTask(owner, {"out", "x", "err", "y"});
    launch(task);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_EQ(owner->stops, 1);
    const id silent = newTask(nil, {"out", "x"});
    launch(silent);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(silent); }));
}

TEST(VLTask, FormsTheMessagesFromTheNameThatItHasThen) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = VELT_VLTASK_INIT(owner, "other");
    VELT_VLTASK_PATH(task, string(childProgram()));
    VELT_VLTASK_ARGUMENTS(task, stringArray({"out", "x"}));
    const id name = VELT_STRING("job"_v, nil);
    setValueForKey(task, "sName", name);
    asMutableString(name).append(u"changed");
    launch(task);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_EQ(owner->outputText, "x");
}

TEST(VLTask, HandlesChildrenThatCloseTheirStreams) {
    EXPECT_EQ(ran({"close", "1", "err", "x"})->errorText, "x");
    EXPECT_EQ(ran({"close", "2", "out", "x"})->outputText, "x");
    EXPECT_EQ(ran({"close", "1", "close", "2", "pause", "20"})->events, "s");
}

TEST(VLTask, HandlesChildrenThatAreKilled) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = newTask(owner, {"out", "x", "raise", "9"});
    launch(task);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_EQ(owner->outputText, "x");
    EXPECT_VALUE("q 9", VELT_VLTASK_EXITSTATUS(task));
}

TEST(VLTask, ReportsTheEndAtOnceAndAGrandchildsOutputAfterwards) {
    const Ref<JobOwner> owner = ran({"out", "child ", "grandchild", "1500"});
    EXPECT_EQ(owner->outputText, "child grandchild");
    EXPECT_EQ(owner->events.substr(owner->events.size() - 2), "so");
}

TEST(VLTask, ReportsTheEndOfManyInAnyOrder) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::vector<Ref<JobOwner>> owners;
    std::vector<std::size_t> sizes, errorSizes;
    for (int i = 0; i < 100; ++i) {
        sizes.push_back(random() % 200000);
        errorSizes.push_back(random() % 3 ? 0 : random() % 100000);
        owners.push_back(make<JobOwner>());
        owners.back()->task = newTask(owners.back(), {"pause", std::to_string(random() % 50), "error-bytes",
                                                      std::to_string(errorSizes.back()), "bytes",
                                                      std::to_string(sizes.back()), "exit", std::to_string(i)});
        launch(owners.back()->task);
    }
    EXPECT_TRUE(runLoopUntil([&] {
        return std::all_of(owners.begin(), owners.end(), [](const Ref<JobOwner>& o) { return isComplete(o->task); });
    }));
    for (std::size_t i = 0; i < owners.size(); ++i) {
        EXPECT_TRUE(owners[i]->outputText == generatedBytes(sizes[i], sizes[i])) << i;
        EXPECT_TRUE(owners[i]->errorText == generatedBytes(errorSizes[i], errorSizes[i])) << i;
        EXPECT_EQ(owners[i]->stops, 1) << i;
        EXPECT_EQ(VELT_CINTEGER(VELT_VLTASK_EXITSTATUS(owners[i]->task)), static_cast<long>(i));
        owners[i]->task = nil;
    }
}

TEST(VLTask, LetsALoopRunInItsReports) {
    const Ref<JobOwner> outer = make<JobOwner>(), inner = make<JobOwner>();
    outer->onOutput = [&] {
        if (!inner->task.isNil()) return;
        inner->task = newTask(inner, {"bytes", "300000"});
        launch(inner->task);
        EXPECT_TRUE(runLoopUntil([&] { return isComplete(inner->task); }));
    };
    const id task = newTask(outer, {"bytes", "400000"});
    launch(task);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_TRUE(outer->outputText == generatedBytes(400000, 400000));
    EXPECT_TRUE(inner->outputText == generatedBytes(300000, 300000));
    inner->task = nil;
}

TEST(VLTask, MayBeDroppedInItsOwnReports) {
    const Ref<JobOwner> owner = make<JobOwner>();
    owner->task = newTask(owner, {"out", "x"});
    bool dropped = false;
    owner->onStop = [&] {
        owner->task = nil;
        dropped = true;
    };
    launch(owner->task);
    EXPECT_TRUE(runLoopUntil([&] { return dropped; }));
    EXPECT_EQ(owner->stops, 1);
}

TEST(VLTask, EndsItsProcessWhenItIsDropped) {
    settleDescriptors();
    const std::size_t before = openDescriptorCount();
    const Ref<JobOwner> owner = make<JobOwner>();
    pid_t process = 0;
    {
        const id task = newTask(owner, {"out", "last words", "pause", "60000"});
        launch(task);
        process = static_cast<pid_t>(VELT_CINTEGER(VELT_VLTASK_PID(task)));
        const id reading = send(send(send(task, "task"), "standardOutput"), "fileHandleForReading");
        EXPECT_TRUE(waitReadable(as<NSFileHandle>(reading)->fileDescriptor(), 60000));
    }
    EXPECT_EQ(owner->outputText, "last words");
    EXPECT_TRUE(runLoopUntil([&] { return ::kill(process, 0) != 0; }));
    EXPECT_EQ(owner->stops, 0);
    EXPECT_TRUE(runLoopUntil([&] { return openDescriptorCount() == before; }));
}

TEST(VLTask, DoesNotWaitForAGrandchildWhenItIsDropped) {
    const Ref<JobOwner> owner = make<JobOwner>();
    {
        const id task = newTask(owner, {"grandchild", "3000"});
        launch(task);
        EXPECT_TRUE(runLoopUntil([&] { return owner->stops == 1; }));
    }
    EXPECT_EQ(owner->outputText, "");
}

TEST(VLTask, KeepsItsTarget) {
    Ref<EndOwner> owner = make<EndOwner>();
    EndOwner* const looked = owner.get();
    const id task = newTask(owner, {"out", "x"});
    owner = nullptr;
    launch(task);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_EQ(looked->stops, 1);
}

TEST(VLTask, HasACompleteEndWithoutTheErrorsThatItNeverHad) {
    const Ref<JobOwner> owner = make<JobOwner>();
    // The grandchild holds both pipes; the errors count as ended, the output does not.
    const id task = newTask(owner, {"grandchild", "1000"});
    launch(task);
    EXPECT_TRUE(runLoopUntil([&] { return owner->stops == 1; }));
    EXPECT_TRUE(flag(task, "stderrEmpty"));
    EXPECT_FALSE(flag(task, "stdoutEmpty"));
    EXPECT_FALSE(isComplete(task));
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_EQ(owner->outputText, "grandchild");
}

TEST(VLTask, MayBeToldThatAPipeHasEndedByAnybody) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = VELT_VLTASK_INIT(owner, "job");
    send(task, "get_stdout:", nil);
    EXPECT_TRUE(flag(task, "stdoutEmpty"));
    EXPECT_FALSE(flag(task, "taskDidTerminate"));
    send(task, "get_stopped:", nil);
    EXPECT_TRUE(isComplete(task));
    EXPECT_EQ(owner->events, "s");
    send(task, "myinit");
    EXPECT_FALSE(flag(task, "stdoutEmpty"));
    EXPECT_TRUE(flag(task, "stderrEmpty"));
    EXPECT_FALSE(flag(task, "taskDidTerminate"));
}

TEST(VLTask, LosesItsTargetWithoutHarm) {
    const id task = newTask(make<JobOwner>(), {"out", "x"});
    launch(task);
    setValueForKey(task, "target", nil);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
}

TEST(VLTask, GoesWithTheFormThatOwnsItThoughItsTargetIsTheForm) {
    settleDescriptors();
    const std::size_t before = openDescriptorCount();
    {
        const Ref<JobOwner> owner = make<JobOwner>();
        owner->task = newTask(owner, {"pause", "60000"});
        launch(owner->task);
    }
    EXPECT_TRUE(runLoopUntil([&] {
        collectCycles();
        return openDescriptorCount() == before;
    }));
}

TEST(VLTask, LeavesNoDescriptorBehind) {
    settleDescriptors();
    const std::size_t before = openDescriptorCount();
    const Ref<JobOwner> owner = make<JobOwner>();
    for (int round = 0; round < 50; ++round) {
        std::vector<id> tasks;
        for (int i = 0; i < 20; ++i) {
            tasks.push_back(newTask(owner, {}, "/bin/true"));
            launch(tasks.back());
        }
        EXPECT_TRUE(runLoopUntil([&] { return std::all_of(tasks.begin(), tasks.end(), isComplete); }));
    }
    EXPECT_EQ(owner->stops, 1000);
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(VLTask, LeavesNothingBehindWhenItWasNeverLaunched) {
    settleDescriptors();
    const std::size_t before = openDescriptorCount();
    for (int i = 0; i < 50; ++i) newTask(nil, {});
    EXPECT_TRUE(runLoopUntil([&] { return openDescriptorCount() == before; }));
    EXPECT_FALSE(RunLoop::current().isPending());
}

TEST(VLTaskInput, IsWrittenBeforeAndAfterTheLaunch) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = newTask(owner, {"echo"});
    VELT_VLTASK_STDIN(task, "before "_v);
    launch(task);
    VELT_VLTASK_STDIN(task, make<NSData>("after"));
    EXPECT_TRUE(runLoopUntil([&] { return owner->outputText == "before after"; })) << owner->outputText;
    send(send(send(send(task, "task"), "standardInput"), "fileHandleForWriting"), "closeFile");
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_VALUE("q 0", VELT_VLTASK_EXITSTATUS(task));
}

TEST(VLTaskInput, WaitsForAProcessThatReadsSlowly) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = newTask(owner, {"slow-count", "1"});
    VELT_VLTASK_STDIN(task, ""_v);
    launch(task);
    VELT_VLTASK_STDIN(task, make<NSData>(std::string(500000, 'x')));
    send(send(send(send(task, "task"), "standardInput"), "fileHandleForWriting"), "closeFile");
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_EQ(owner->outputText, "500000");
}

TEST(VLTaskInput, IsDroppedWhenNobodyReadsAnyMore) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = newTask(owner, {"exit", "0"});
    VELT_VLTASK_STDIN(task, ""_v);
    launch(task);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    EXPECT_EQ(raised([&] { VELT_VLTASK_STDIN(task, make<NSData>(std::string(200000, 'x'))); }), "nothing");
}

TEST(VLTaskInput, IsRefusedWhereNobodyWouldEverReadIt) {
    const id task = newTask(nil, {"exit", "0"});
    EXPECT_RAISES("NSInvalidArgumentException: the input is more than a pipe holds before the task is launched",
                  VELT_VLTASK_STDIN(task, make<NSData>(std::string(3000000, 'x'))));
    EXPECT_RAISES(castFailure("'Data' Argument = Nil"), VELT_VLTASK_STDIN(task, nil));
    EXPECT_RAISES(castFailure("'Data' Argument = Nil"), send(task, "__stdinp:", nil));
    EXPECT_RAISES(castFailure("'Data' expected"), VELT_VLTASK_STDIN(task, VELT_ID(1L)));
}

TEST(VLTaskAccessors, SetAndReadTheProcess) {
    const id task = VELT_VLTASK_INIT(nil, "job");
    EXPECT_VALUE("nil", VELT_VLTASK_PATH(task));
    EXPECT_VALUE("nil", VELT_VLTASK_PATH(task, VELT_ID(5L)));
    EXPECT_VALUE("'5'", VELT_VLTASK_PATH(task));
    EXPECT_TRUE(asString(VELT_VLTASK_PATH(task)).isFrozen());
    EXPECT_VALUE("nil", VELT_VLTASK_CURRENTDIRECTORY(task, "/tmp"_v));
    EXPECT_VALUE("'/tmp'", VELT_VLTASK_CURRENTDIRECTORY(task));
    EXPECT_VALUE("nil", VELT_VLTASK_ARGUMENTS(task));
    VELT_VLTASK_ARGUMENTS(task, stringArray({"a"}));
    EXPECT_TRUE(isEqual(VELT_VLTASK_ARGUMENTS(task), stringArray({"a"})));
    const Ref<NSMutableDictionary> environment = make<NSMutableDictionary>();
    environment->setObject("1"_v, "ONE"_v);
    VELT_VLTASK_ENVIRONMENT(task, environment);
    EXPECT_TRUE(isEqual(VELT_VLTASK_ENVIRONMENT(task), environment));
    EXPECT_VALUE("nil", VELT_VLTASK_PID(task, VELT_ID(7L)));
    EXPECT_VALUE("q 0", VELT_VLTASK_PID(task));
}

TEST(VLTaskAccessors, ConvertBeforeTheProcessIsTouched) {
    const id task = VELT_VLTASK_INIT(nil, "job");
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", VELT_VLTASK_ARGUMENTS(task, "x"_v));
    EXPECT_CAST_FAILURE("'NSMutableDictionary' expected", VELT_VLTASK_ENVIRONMENT(task, "x"_v));
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_VLTASK_STARTANDWAIT(task, "yes"_v));
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_VLTASK_STARTANDWAIT(task, nil));
    EXPECT_FALSE(as<NSTask>(send(task, "task"))->isLaunched());
}

TEST(VLTaskAccessors, PassTheReceiverUnchecked) {
    EXPECT_VALUE("nil", VELT_VLTASK_PATH(nil));
    EXPECT_VALUE("q 0", VELT_VLTASK_PID(nil));
    EXPECT_VALUE("q 0", VELT_VLTASK_EXITSTATUS(nil));
    EXPECT_VALUE("c 0", VELT_VLTASK_ISRUNNING(nil));
    EXPECT_VALUE("c 0", VELT_VLTASK_RESUME(nil));
    EXPECT_VALUE("nil", VELT_VLTASK_STOP(nil));
    EXPECT_VALUE("nil", VELT_VLTASK_STARTANDWAIT(nil, VELT_ID(BOOL{1})));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableArray' does not understand 'task'",
                  VELT_VLTASK_PATH(stringArray({})));
}

TEST(VLTaskAccessors, WaitForTheEndAndReportAfterwards) {
    for (const bool front : {false, true}) {
        const Ref<JobOwner> owner = make<JobOwner>();
        const id task = newTask(owner, {"out", "x", "exit", "6"});
        if (front) {
            VELT_VLTASK_STARTANDWAIT(task, VELT_ID(BOOL{1}));
        } else {
            VELT_VLTASK_LAUNCHANDWAIT(task);
        }
        EXPECT_EQ(owner->events, "");
        EXPECT_VALUE("q 6", VELT_VLTASK_EXITSTATUS(task));
        EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
        EXPECT_EQ(owner->outputText, "x");
        EXPECT_EQ(owner->stops, 1);
    }
}

TEST(VLTaskAccessors, SuspendResumeAndStop) {
    const Ref<JobOwner> owner = make<JobOwner>();
    const id task = newTask(owner, {"pause", "60000"});
    EXPECT_RAISES("NSInvalidArgumentException: task not launched", VELT_VLTASK_SUSPEND(task));
    VELT_VLTASK_STOP(task);
    launch(task);
    EXPECT_VALUE("c 1", VELT_VLTASK_ISRUNNING(task));
    EXPECT_VALUE("c 1", VELT_VLTASK_SUSPEND(task));
    EXPECT_VALUE("c 1", VELT_VLTASK_RESUME(task));
    VELT_VLTASK_STOP(task);
    EXPECT_TRUE(runLoopUntil([&] { return isComplete(task); }));
    VELT_VLTASK_STOP(task);
    EXPECT_VALUE("c 0", VELT_VLTASK_SUSPEND(task));
    EXPECT_VALUE("q 15", VELT_VLTASK_EXITSTATUS(task));
}

TEST(VLTaskAccessors, RaiseWhenTheProcessCannotBeLaunched) {
    const id task = newTask(nil, {}, "/no/such/program");
    const std::string failure =
        "NSInvalidArgumentException: cannot launch '/no/such/program': No such file or directory";
    EXPECT_RAISES(failure, VELT_VLTASK_LAUNCHANDWAIT(task));
    EXPECT_RAISES(failure, VELT_VLTASK_STARTANDWAIT(task, VELT_ID(BOOL{0})));
}

TEST(VLTask, ReportsAnExceptionOfItsTargetAndLeavesOtherProcessesAlone) {
    const TemporaryFolder folder;
    const ProgramResult result = velt::test::runProgram("raising_task", {folder.file("done")});
    EXPECT_EQ(result.errors, "raiser.bas:12: in Raiser.Job_Stdout: VLCastException: Number expected\n");
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.status, 0);
    EXPECT_TRUE(runLoopUntil([&] { return contentOf(folder.file("done")) == "done\n"; }));
}
