#include "VELTRuntime/builtins/timers.h"

#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/foundation/thread.h"
#include "VELTRuntime/platform/foundation/timer.h"
#include "support/processes.h"
#include "support/values.h"

#include <pthread.h>
#include <thread>

using namespace velt::test;
using velt::Ref;
using velt::RunLoop;
using velt::Selector;

namespace {

/// Counts what it is told, from any thread.
class Clock : public NSObject {
    VELT_OBJECT(Clock, NSObject)

public:
    void tick() {
        ++ticks;
        if (next && ticks < next) VELT_NSTIMER_INIT(id(this), "tick");
    }
    void tickFrom(const id& sender) {
        ++ticks;
        last = sender;
        if (ticks == stopAt) velt::send(sender, "invalidate");
    }
    void work() {
        ranElsewhere = !RunLoop::main().isCurrent();
        const Ref<NSThread> own = NSThread::currentThread();
        thread = own;
        wasExecuting = own->isExecuting();
        while (waits && !own->isCancelled()) NSThread::sleep(0.001);
        ++ticks;
    }
    void workWith(const id& argument) {
        last = argument;
        ++ticks;
    }
    void runOwnLoop() {
        VELT_NSTIMER_INIT(id(this), "tick");
        const id later = VELT_NSTIMER_INIT(id(this), "tick", real(0.002));
        RunLoop::current().runUntil(60, RunLoop::WhenDone::Return);
    }
    static void describe(velt::ClassBuilder<Clock>& c) {
        c.method("tick", &Clock::tick)
            .method("tickFrom:", &Clock::tickFrom)
            .method("work", &Clock::work)
            .method("workWith:", &Clock::workWith)
            .method("runOwnLoop", &Clock::runOwnLoop)
            .owns(&Clock::last)
            .owns(&Clock::thread);
    }
    std::atomic<int> ticks = 0;
    std::atomic<bool> ranElsewhere = false, wasExecuting = false, waits = false;
    int next = 0, stopAt = 0;
    id last, thread;
};

/// Runs the current loop until nothing is left.
void finish() { RunLoop::current().runUntil(60, RunLoop::WhenDone::Return); }

void waitFor(const id& thread) {
    while (!VELT_CBOOL(VELT_NSTHREAD_ISFINISHED(thread))) NSThread::sleep(0.001);
}

}  // namespace

TEST(Timers, FireOnceAtTheNextTurnOfTheRunLoop) {
    const Ref<Clock> clock = velt::make<Clock>();
    const id timer = VELT_NSTIMER_INIT(clock, "tick");
    ASSERT_TRUE(velt::is<NSTimer>(timer));
    EXPECT_EQ(0, clock->ticks);
    EXPECT_VALUE("c 1", velt::send(timer, "isValid"));
    finish();
    EXPECT_EQ(1, clock->ticks);
    EXPECT_VALUE("c 0", velt::send(timer, "isValid"));
    finish();
    EXPECT_EQ(1, clock->ticks);
}

TEST(Timers, AreNilWhenTheOwnerHasNoSuchMethod) {
    const Ref<Clock> clock = velt::make<Clock>();
    EXPECT_TRUE(VELT_NSTIMER_INIT(clock, "ring").isNil());
    EXPECT_TRUE(VELT_NSTIMER_INIT(clock, "tick:").isNil());
    EXPECT_TRUE(VELT_NSTIMER_INIT(clock, "").isNil());
    EXPECT_TRUE(VELT_NSTIMER_INIT(clock, nullptr).isNil());
    EXPECT_TRUE(VELT_NSTIMER_INIT(nil, "tick").isNil());
    EXPECT_TRUE(VELT_NSTIMER_INIT(clock, "ring", str("soon")).isNil());  // the seconds are not looked at
    EXPECT_FALSE(RunLoop::current().isPending());
}

TEST(Timers, FireInTheOrderOfTheirSeconds) {
    const Ref<Clock> first = velt::make<Clock>(), second = velt::make<Clock>();
    const id late = VELT_NSTIMER_INIT(second, "tickFrom:", real(0.004));
    const id soon = VELT_NSTIMER_INIT(first, "tickFrom:", integer(0));
    const id never = VELT_NSTIMER_INIT(second, "tick", real(-1));
    VELT_NSTIMER_STOP(never);
    EXPECT_TRUE(RunLoop::current().runOnce(60));
    EXPECT_EQ(soon, first->last);
    finish();
    EXPECT_EQ(late, second->last);
    EXPECT_EQ(1, second->ticks);
}

TEST(Timers, RefuseSecondsThatAreNoNumber) {
    const Ref<Clock> clock = velt::make<Clock>();
    EXPECT_CAST_FAILURE("'Double' expected", VELT_NSTIMER_INIT(clock, "tick", array()));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_NSTIMER_INIT(clock, "tick", nil));
    EXPECT_FALSE(RunLoop::current().isPending());
}

TEST(Timers, TickOnWhenTheirHandlerMakesTheNextOne) {
    const Ref<Clock> clock = velt::make<Clock>();
    clock->next = 100;
    VELT_NSTIMER_INIT(clock, "tick");
    finish();
    EXPECT_EQ(100, clock->ticks);
}

TEST(Timers, ThatWereStoppedNeverFireAndDropTheirTarget) {
    const Ref<Clock> clock = velt::make<Clock>();
    const auto owners = clock->ownerCount();
    const id timer = VELT_NSTIMER_INIT(clock, "tick", integer(3600));
    EXPECT_EQ(owners + 1, clock->ownerCount());
    EXPECT_TRUE(VELT_NSTIMER_STOP(timer).isNil());
    EXPECT_EQ(owners, clock->ownerCount());
    EXPECT_FALSE(RunLoop::current().isPending());
    VELT_NSTIMER_STOP(timer);
    velt::send(timer, "fire");
    EXPECT_EQ(0, clock->ticks);
    VELT_NSTIMER_STOP(nil);
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableString' does not understand 'invalidate'",
                  VELT_NSTIMER_STOP(str("no timer")));
}

TEST(Timers, RepeatUntilTheyAreInvalid) {
    const Ref<Clock> clock = velt::make<Clock>();
    clock->stopAt = 5;
    const id timer = velt::send(NSTimer::entry().object(),
                                "scheduledTimerWithTimeInterval:target:selector:userInfo:repeats:", real(0), id(clock),
                                str("tickFrom:"), str("data"), boolean(true));
    EXPECT_VALUE("'data'", velt::send(timer, "userInfo"));
    finish();
    EXPECT_EQ(5, clock->ticks);
    EXPECT_EQ(timer, clock->last);
    EXPECT_TRUE(velt::send(timer, "userInfo").isNil());
}

TEST(Timers, SayWhenTheyFireAndCanBePutOff) {
    const Ref<Clock> clock = velt::make<Clock>();
    const Ref<NSDate> before = NSDate::now();
    const Ref<NSTimer> timer = NSTimer::scheduled(3600, clock, Selector::named("tick"), nil, false);
    const auto due = [&] { return velt::as<NSDate>(timer->fireDate())->timeIntervalSinceDate(before.get()); };
    EXPECT_LE(3600, due());
    EXPECT_EQ(0, timer->timeInterval());
    timer->setFireDate(velt::make<NSDate>(before->timeIntervalSinceReferenceDate() + 7200));
    EXPECT_DOUBLE_EQ(7200, due());
    EXPECT_RAISES("VLCastException: 'NSDate' expected", timer->setFireDate(str("tomorrow")));
    timer->setFireDate(before);  // has passed
    finish();
    EXPECT_EQ(1, clock->ticks);
}

TEST(Timers, ReportWhatTheirMethodRaises) {
    const ProgramResult result = runProgram("threads", {"timer"});
    EXPECT_EQ("before\n", result.output);
    EXPECT_EQ("worker.bas:11: in Worker.Tick: VLCastException: Number expected\n", result.errors);
    EXPECT_EQ(1, result.status);
}

TEST(Threads, RunTheirMethodOnceTheyAreStarted) {
    const Ref<Clock> clock = velt::make<Clock>();
    const id thread = VELT_NSTHREAD_INIT(clock, "work");
    ASSERT_TRUE(velt::is<NSThread>(thread));
    for (const auto question : {VELT_NSTHREAD_ISEXECUTING, VELT_NSTHREAD_ISFINISHED, VELT_NSTHREAD_ISCANCELLED}) {
        EXPECT_VALUE("c 0", question(thread));
        EXPECT_VALUE("c 0", question(nil));
    }
    EXPECT_EQ(0, clock->ticks);
    EXPECT_TRUE(VELT_NSTHREAD_START(thread).isNil());
    waitFor(thread);
    EXPECT_EQ(1, clock->ticks);
    EXPECT_TRUE(clock->ranElsewhere);
    EXPECT_TRUE(clock->wasExecuting);
    EXPECT_EQ(thread, clock->thread);
    EXPECT_VALUE("c 0", VELT_NSTHREAD_ISEXECUTING(thread));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSThread' start: the thread was started before",
                  VELT_NSTHREAD_START(thread));
}

TEST(Threads, FailByNameWhenTheSystemHasNoRoomForThem) {
    pthread_attr_t usual, huge;
    pthread_getattr_default_np(&usual);
    pthread_attr_init(&huge);
    pthread_attr_setstacksize(&huge, std::size_t{1} << 47);  // more than all addresses
    pthread_setattr_default_np(&huge);
    const Ref<Clock> clock = velt::make<Clock>();
    const id thread = VELT_NSTHREAD_INIT(clock, "work");
    EXPECT_RAISES("NSInternalInconsistencyException: 'NSThread' start: Resource temporarily unavailable",
                  VELT_NSTHREAD_START(thread));
    pthread_setattr_default_np(&usual);
    pthread_attr_destroy(&huge);
    pthread_attr_destroy(&usual);
    VELT_NSTHREAD_START(thread);
    waitFor(thread);
    EXPECT_EQ(1, clock->ticks);
}

TEST(Threads, AreNilWhenTheOwnerHasNoSuchMethod) {
    const Ref<Clock> clock = velt::make<Clock>();
    EXPECT_TRUE(VELT_NSTHREAD_INIT(clock, "rest").isNil());
    EXPECT_TRUE(VELT_NSTHREAD_INIT(clock, nullptr).isNil());
    EXPECT_TRUE(VELT_NSTHREAD_INIT(nil, "work").isNil());
    EXPECT_TRUE(VELT_NSTHREAD_START(nil).isNil());
    EXPECT_TRUE(VELT_NSTHREAD_CANCEL(nil).isNil());
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableString' does not understand 'start'",
                  VELT_NSTHREAD_START(str("no thread")));
}

TEST(Threads, EndWhenTheyLookWhetherTheyWereCancelled) {
    const Ref<Clock> clock = velt::make<Clock>();
    clock->waits = true;
    const id thread = VELT_NSTHREAD_INIT(clock, "work");
    VELT_NSTHREAD_START(thread);
    while (!clock->wasExecuting) NSThread::sleep(0.001);
    EXPECT_VALUE("c 1", VELT_NSTHREAD_ISEXECUTING(thread));
    VELT_NSTHREAD_CANCEL(thread);
    EXPECT_VALUE("c 1", VELT_NSTHREAD_ISCANCELLED(thread));
    waitFor(thread);
    EXPECT_EQ(1, clock->ticks);
}

TEST(Threads, ThatWereCancelledBeforeTheirStartDoNotRun) {
    const Ref<Clock> clock = velt::make<Clock>();
    const id thread = VELT_NSTHREAD_INIT(clock, "work");
    VELT_NSTHREAD_CANCEL(thread);
    VELT_NSTHREAD_START(thread);
    waitFor(thread);
    EXPECT_EQ(0, clock->ticks);
}

TEST(Threads, GiveTheirMethodNilOrTheGivenArgument) {
    const Ref<Clock> clock = velt::make<Clock>();
    clock->last = str("before");
    const id thread = VELT_NSTHREAD_INIT(clock, "workWith:");
    VELT_NSTHREAD_START(thread);
    waitFor(thread);
    EXPECT_TRUE(clock->last.isNil());
    velt::send(NSThread::entry().object(), "detachNewThreadSelector:toTarget:withObject:", str("workWith:"), id(clock),
               str("given"));
    while (clock->ticks < 2) NSThread::sleep(0.001);
    EXPECT_VALUE("'given'", clock->last);
}

TEST(Threads, KnowTheMainOneAndThemselves) {
    const Ref<NSThread> main = NSThread::mainThread();
    EXPECT_EQ(main.get(), NSThread::currentThread().get());
    EXPECT_TRUE(main->isMainThread());
    EXPECT_TRUE(main->isExecuting());
    EXPECT_VALUE("c 1", velt::send(NSThread::entry().object(), "isMainThread"));
    std::thread([&] {
        const velt::ThreadScope scope;
        const Ref<NSThread> other = NSThread::currentThread();
        EXPECT_NE(main.get(), other.get());
        EXPECT_EQ(other.get(), NSThread::currentThread().get());
        EXPECT_FALSE(other->isMainThread());
        EXPECT_VALUE("c 0", velt::send(NSThread::entry().object(), "isMainThread"));
    }).join();
}

TEST(Threads, HaveARunLoopForTheirOwnTimers) {
    const Ref<Clock> clock = velt::make<Clock>();
    const id thread = VELT_NSTHREAD_INIT(clock, "runOwnLoop");
    VELT_NSTHREAD_START(thread);
    waitFor(thread);
    EXPECT_EQ(2, clock->ticks);
    EXPECT_FALSE(RunLoop::main().isPending());
}

TEST(Threads, LetGoOfTheirTargetWhenTheyAreFinished) {
    const Ref<Clock> clock = velt::make<Clock>();
    const id thread = VELT_NSTHREAD_INIT(clock, "tick");
    EXPECT_EQ(2u, clock->ownerCount());
    VELT_NSTHREAD_START(thread);
    waitFor(thread);
    EXPECT_EQ(1u, clock->ownerCount());
}

TEST(Threads, EndTheProcessWithAReportWhenTheyRaise) {
    const ProgramResult result = runProgram("threads", {"raise"});
    EXPECT_EQ("before\n", result.output);
    EXPECT_EQ("worker.bas:7: in Worker.Fail: VLCastException: Number expected\n", result.errors);
    EXPECT_EQ(1, result.status);
}

TEST(Threads, MayRunOnWhenTheProgramEnds) {
    for (const char* way : {"spin", "wait"}) {
        const ProgramResult result = runProgram("threads", {way});
        EXPECT_EQ("before\n", result.output);
        EXPECT_EQ("", result.errors);
        EXPECT_EQ(0, result.status) << way;
    }
}
