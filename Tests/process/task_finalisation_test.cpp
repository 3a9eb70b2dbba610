// The end of a task object: the process is stopped, the last output is handed over, and what then fails is said.
#include "VELTRuntime/process/task.h"

#include "VELTRuntime/platform/foundation/process/descriptor_io.h"
#include "support/child_tasks.h"
#include "support/processes.h"
#include "support/streams.h"
#include "support/values.h"

#include <csignal>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace velt;
using namespace velt::test;

namespace {

/// Fails at each piece of output, in one way or another.
class FailingOwner : public NSObject {
    VELT_OBJECT(FailingOwner, NSObject)

public:
    static void describe(ClassBuilder<FailingOwner>& c) {
        c.method("job_stdout:", &FailingOwner::output)
            .method("job_stderr:", &FailingOwner::errors)
            .method("jobstopped", &FailingOwner::stopped);
    }
    void output(const id&) {
        ++pieces;
        if (failsOtherwise) throw std::runtime_error("of another kind");
        raise("VLException", "no room for é");
    }
    void errors(const id& data) { errorText += bytesOf(data); }
    void stopped() { ++stops; }

    bool failsOtherwise = false;
    int pieces = 0, stops = 0;
    std::string errorText;
};

/// A task whose output waits in its pipe, while the process runs on.
id taskWithOutput(const id& owner, const std::vector<std::string>& arguments = {"out", "x", "pause", "60000"}) {
    id task = VELT_VLTASK_INIT(owner, "job");
    VELT_VLTASK_PATH(task, string(childProgram()));
    VELT_VLTASK_ARGUMENTS(task, stringArray(arguments));
    VELT_VLTASK_STDIN(task, ""_v);
    send(send(task, "task"), "launch");
    const id reading = send(send(send(task, "task"), "standardOutput"), "fileHandleForReading");
    EXPECT_TRUE(waitReadable(as<NSFileHandle>(reading)->fileDescriptor(), 60000));
    return task;
}

pid_t processOf(const id& task) { return static_cast<pid_t>(VELT_CINTEGER(VELT_VLTASK_PID(task))); }
bool isGone(pid_t process) {
    return runLoopUntil([&] { return ::kill(process, 0) != 0; });
}

}  // namespace

TEST(VLTaskFinalisation, WritesWhatProgramsRaiseToTheErrorsAndGoesOn) {
    const Ref<FailingOwner> owner = make<FailingOwner>();
    const id task = taskWithOutput(owner);
    const pid_t process = processOf(task);
    EXPECT_EQ(written([&] { send(task, "finalize"); }), "|VLTask exception VLException: no room for é\n");
    EXPECT_EQ(owner->pieces, 1);
    EXPECT_VALUE("nil", valueForKey(task, "mytask"));
    EXPECT_VALUE("nil", valueForKey(task, "sName"));
    EXPECT_TRUE(isGone(process));
    EXPECT_EQ(owner->stops, 0);
}

TEST(VLTaskFinalisation, DoesTheSameForATaskThatIsDropped) {
    const Ref<FailingOwner> owner = make<FailingOwner>();
    pid_t process = 0;
    {
        id task = taskWithOutput(owner);
        process = processOf(task);
        EXPECT_EQ(written([&] { task = nil; }), "|VLTask exception VLException: no room for é\n");
    }
    EXPECT_TRUE(isGone(process));
}

TEST(VLTaskFinalisation, PassesOtherExceptionsOn) {
    const Ref<FailingOwner> owner = make<FailingOwner>();
    owner->failsOtherwise = true;
    const id task = taskWithOutput(owner);
    const pid_t process = processOf(task);
    std::string reason;
    EXPECT_EQ(written([&] {
                  try {
                      send(task, "finalize");
                  } catch (const std::runtime_error& error) {
                      reason = error.what();
                  }
              }),
              "|");
    EXPECT_EQ(reason, "of another kind");
    EXPECT_TRUE(isGone(process));
    // Nobody is left to fail when it is dropped.
    EXPECT_EQ(written([&] { send(task, "finalize"); }), "|");
}

TEST(VLTaskFinalisation, EndsTheProgramWhereNobodyCanCatchAnotherException) {
    const ProgramResult ended = runProgram("dropped_task", {"other"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, "of another kind\n");
    const ProgramResult wentOn = runProgram("dropped_task", {"raise"});
    EXPECT_EQ(wentOn.status, 0);
    EXPECT_EQ(wentOn.output, "went on\n");
    EXPECT_EQ(wentOn.errors, "VLTask exception VLException: a reason\n");
}

TEST(VLTaskFinalisation, MayHappenTwiceAndBeforeTheLaunch) {
    const Ref<FailingOwner> owner = make<FailingOwner>();
    const id task = VELT_VLTASK_INIT(owner, "job");
    EXPECT_EQ(written([&] {
                  send(task, "finalize");
                  send(task, "finalize");
                  send(task, "_stop");
                  send(task, "_cleanup");
              }),
              "|");
    EXPECT_VALUE("nil", VELT_VLTASK_PATH(task));
}

TEST(VLTaskCleanUp, HandsOverWhatIsThereOnceAndHearsNothingMore) {
    const Ref<FailingOwner> owner = make<FailingOwner>();
    const id task = taskWithOutput(owner, {"err", "before", "close", "1", "await", "err", " after"});
    send(task, "_cleanup");
    EXPECT_EQ(owner->errorText, "before");
    send(task, "_cleanup");
    EXPECT_EQ(owner->errorText, "before");
    send(send(send(send(task, "task"), "standardInput"), "fileHandleForWriting"), "closeFile");
    EXPECT_TRUE(runLoopUntil([&] { return !VELT_CBOOL(VELT_VLTASK_ISRUNNING(task)); }));
    RunLoop::current().runUntil(0);
    EXPECT_EQ(owner->errorText, "before");
    EXPECT_EQ(owner->stops, 0);
}

TEST(VLTaskStop, IsToldAgainThoughTheTaskHasEndedAlready) {
    const Ref<FailingOwner> owner = make<FailingOwner>();
    const id task = VELT_VLTASK_INIT(owner, "job");
    send(task, "get_stopped:", nil);
    EXPECT_VALUE("c 1", valueForKey(task, "taskDidTerminate"));
    send(task, "get_stopped:", nil);
    EXPECT_EQ(owner->stops, 2);
}
