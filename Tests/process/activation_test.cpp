// Bringing another process's window to the front. Needs a display with a window manager, which on_display.sh gives.
#include "VELTRuntime/process/window_activation.h"

#include "VELTRuntime/platform/foundation/process/child_process.h"
#include "VELTRuntime/process/task.h"
#include "support/child_tasks.h"
#include "support/environment.h"
#include "support/values.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace velt;
using namespace velt::test;

namespace {

/// A process with a window, which says when it comes to the front.
class Shown : public NSObject {
    VELT_OBJECT(Shown, NSObject)

public:
    static void describe(ClassBuilder<Shown>& c) {
        c.method("job_stdout:", &Shown::output).method("jobstopped", &Shown::stopped);
    }
    void output(const id& data) { said += bytesOf(data); }
    void stopped() { isOver = true; }
    void prepare(const std::vector<std::string>& arguments = {}) {
        task = VELT_VLTASK_INIT(id(this), "job");
        VELT_VLTASK_PATH(task, string((std::filesystem::path(VELT_TEST_PROGRAMS) / "front").string()));
        VELT_VLTASK_ARGUMENTS(task, stringArray(arguments));
        VELT_VLTASK_STDIN(task, ""_v);
    }
    void launch() {
        prepare();
        send(process(), "launch");
    }
    bool isInFront() const { return said.ends_with("front\n"); }
    pid_t number() const { return static_cast<pid_t>(VELT_CINTEGER(VELT_VLTASK_PID(task))); }
    id process() const { return send(task, "task"); }
    void end() {
        send(send(send(process(), "standardInput"), "fileHandleForWriting"), "closeFile");
        EXPECT_TRUE(runLoopUntil([&] { return isOver; }));
        task = nil;
    }

    id task;
    std::string said;
    bool isOver = false;
};

/// The tests have a display, or were told that they have none.
bool hasDisplay() {
    if (std::getenv("VELT_TEST_DISPLAY")) return true;
    return std::getenv("DISPLAY") && WindowActivation().isPossible();
}

}  // namespace

TEST(WindowActivation, FindsNoProcessWithoutADisplay) {
    const EnvironmentVariable display("DISPLAY", std::nullopt);
    const WindowActivation activation;
    EXPECT_FALSE(activation.isPossible());
    EXPECT_EQ(activation.bringToFront(::getpid()), -600);
}

TEST(WindowActivation, FindsNoProcessOnADisplayThatDoesNotAnswer) {
    const EnvironmentVariable display("DISPLAY", ":64999");
    const WindowActivation activation;
    EXPECT_FALSE(activation.isPossible());
    EXPECT_EQ(activation.bringToFront(::getpid()), -600);
}

TEST(WindowActivationOnADisplay, BringsTheWindowOfTheProcessToTheFront) {
    if (!hasDisplay()) GTEST_SKIP() << "there is no display with a window manager";
    const WindowActivation activation;
    ASSERT_TRUE(activation.isPossible());
    EXPECT_EQ(activation.bringToFront(::getpid()), -600);  // it has no window

    const Ref<Shown> first = make<Shown>(), second = make<Shown>();
    first->launch();
    EXPECT_TRUE(runLoopUntil([&] { return first->isInFront(); })) << first->said;
    second->launch();
    EXPECT_TRUE(runLoopUntil([&] { return activation.bringToFront(second->number()) == 0; }));
    EXPECT_TRUE(runLoopUntil([&] { return second->isInFront() && !first->isInFront(); }))
        << first->said << second->said;
    EXPECT_EQ(activation.bringToFront(first->number()), 0);
    EXPECT_TRUE(runLoopUntil([&] { return first->isInFront() && !second->isInFront(); }))
        << first->said << second->said;
    second->end();
    first->end();
}

TEST(WindowActivationOnADisplay, IsDoneForATaskThatIsStartedInFront) {
    if (!hasDisplay()) GTEST_SKIP() << "there is no display with a window manager";
    const Ref<Shown> shown = make<Shown>();
    shown->prepare({"once"});  // it ends when it is in front
    VELT_VLTASK_STARTANDWAIT(shown->task, VELT_ID(BOOL{1}));
    EXPECT_VALUE("q 0", VELT_VLTASK_EXITSTATUS(shown->task));
    EXPECT_TRUE(runLoopUntil([&] { return shown->isOver && !shown->said.empty(); }));
    shown->task = nil;
}
