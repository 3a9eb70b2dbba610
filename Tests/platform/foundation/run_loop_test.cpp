#include "VELTRuntime/platform/foundation/run_loop.h"

#include "VELTRuntime/platform/object/cycles.h"
#include "support/generated.h"
#include "support/processes.h"
#include "support/values.h"

#include <atomic>
#include <thread>

using namespace velt::test;
using velt::RunLoop;

namespace {

constexpr auto kReturn = RunLoop::WhenDone::Return;

/// Runs the current loop until nothing is left.
void finish() { RunLoop::current().runUntil(60, kReturn); }

}  // namespace

TEST(RunLoops, BelongToTheirThreads) {
    EXPECT_EQ(&RunLoop::main(), &RunLoop::current());
    std::thread([] {
        EXPECT_NE(&RunLoop::main(), &RunLoop::current());
        EXPECT_FALSE(RunLoop::main().isCurrent());
        EXPECT_TRUE(RunLoop::current().isCurrent());
    }).join();
}

TEST(RunLoops, DeliverInOrder) {
    for (const bool onMain : {true, false}) {
        std::string said;
        const auto work = [&said] {
            RunLoop& loop = RunLoop::current();
            loop.after(0.002, [&] { said += "e"; });
            loop.after(0.001, [&] { said += "d"; });
            loop.after(0, [&] { said += "c"; });
            loop.perform([&] { said += "a"; });
            loop.perform([&] { said += "b"; });
            EXPECT_EQ("", said);
            finish();
        };
        onMain ? work() : std::thread(work).join();
        EXPECT_EQ("abcde", said);
    }
}

TEST(RunLoops, LeaveToTheNextPassWhatAPassHandsIn) {
    RunLoop& loop = RunLoop::current();
    std::string said;
    loop.perform([&] {
        said += "a";
        loop.after(0, [&] { said += "d"; });
        loop.perform([&] { said += "c"; });
        loop.after(-5, [&] { said += "e"; });
    });
    loop.perform([&] { said += "b"; });
    EXPECT_TRUE(loop.runOnce(60));
    EXPECT_EQ("ab", said);
    EXPECT_TRUE(loop.runOnce(60));
    EXPECT_EQ("abcde", said);
}

TEST(RunLoops, WaitOnlyForWhatCanCome) {
    RunLoop& loop = RunLoop::current();
    EXPECT_FALSE(loop.isPending());
    loop.runUntil(3600, kReturn);
    EXPECT_FALSE(loop.runOnce(0));
    EXPECT_FALSE(loop.runOnce(0.001));
    bool ran = false;
    loop.after(3600, [&] { ran = true; }).cancel();
    EXPECT_FALSE(loop.isPending());
    loop.runUntil(3600, kReturn);
    EXPECT_FALSE(ran);
}

TEST(RunLoops, WaitForWhatIsExpected) {
    RunLoop& loop = RunLoop::current();
    auto expectation = std::make_unique<RunLoop::Expectation>();
    bool ran = false;
    std::thread thread([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        loop.perform([&] {
            ran = true;
            expectation.reset();
        });
    });
    loop.runUntil(3600, kReturn);
    thread.join();
    EXPECT_TRUE(ran);
}

TEST(RunLoops, EndARunWhenItsTimeIsOver) {
    RunLoop& loop = RunLoop::current();
    bool late = false;
    RunLoop::Handle handle = loop.after(3600, [&] { late = true; });
    EXPECT_TRUE(handle.isWaiting());
    loop.runUntil(0.005);
    loop.runUntil(0);
    loop.runUntil(-1);
    EXPECT_FALSE(late);
    handle.cancel();
    EXPECT_FALSE(handle.isWaiting());
    handle.cancel();
}

TEST(RunLoops, MayBeNested) {
    for (const bool onMain : {true, false}) {
        std::string said;
        const auto work = [&said] {
            RunLoop& loop = RunLoop::current();
            loop.perform([&] {
                said += "(";
                loop.after(0.001, [&] { said += "timer "; });
                loop.perform([&] { said += "inner "; });
                loop.runUntil(0.02);
                said += ")";
            });
            loop.perform([&] { said += "outer "; });
            finish();
        };
        onMain ? work() : std::thread(work).join();
        EXPECT_EQ("(outer inner timer )", said);
    }
}

TEST(RunLoops, StopTheInnermostRun) {
    RunLoop& loop = RunLoop::current();
    std::string said;
    loop.perform([&] {
        loop.perform([&] {
            said += "stop ";
            loop.stop();
        });
        loop.perform([&] { said += "left "; });
        loop.runUntil(3600);
        said += "back ";
    });
    finish();
    EXPECT_EQ("stop back left ", said);
    loop.stop();  // without a run there is nothing to stop
    EXPECT_FALSE(loop.runOnce(0));
}

TEST(RunLoops, CancelWhatBelongsTogether) {
    RunLoop& loop = RunLoop::current();
    std::string said;
    loop.after(
        0, [&] { said += "a"; }, 1);
    loop.after(
        0, [&] { said += "b"; }, 2);
    loop.after(
        0, [&] { said += "c"; }, 1);
    loop.after(0, [&] { said += "d"; });
    loop.cancelAll(1);
    loop.cancelAll(3);
    finish();
    EXPECT_EQ("bd", said);
}

TEST(RunLoops, LetFunctionsCancelEachOther) {
    RunLoop& loop = RunLoop::current();
    int count = 0;
    RunLoop::Handle first, second;
    first = loop.after(0, [&] { ++count, second.cancel(); });
    second = loop.after(0, [&] { ++count, first.cancel(); });
    finish();
    EXPECT_EQ(1, count);
}

TEST(RunLoops, TakeWorkFromEveryThreadInItsOrder) {
    RunLoop& loop = RunLoop::current();
    constexpr int kThreads = 4;
    const int each = iterations(20'000);
    std::array<int, kThreads> next{};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < each; ++i) {
                loop.perform([&next, t, i] { EXPECT_EQ(i, next[static_cast<std::size_t>(t)]++); });
                if (i % 64 == 0) loop.after(0.0001, [] {});
            }
        });
    }
    const auto isDone = [&] { return std::all_of(next.begin(), next.end(), [&](int n) { return n == each; }); };
    while (!isDone()) loop.runOnce(60);
    for (std::thread& thread : threads) thread.join();
    finish();
}

TEST(RunLoops, OfOtherThreadsAreWokenToo) {
    std::atomic<RunLoop*> other = nullptr;
    std::atomic<int> count = 0;
    std::thread thread([&] {
        const velt::ThreadScope scope;
        other = &RunLoop::current();
        while (count < 3) RunLoop::current().runOnce(60);
    });
    while (!other) std::this_thread::yield();
    other.load()->perform([&] { ++count; });
    other.load()->after(0.001, [&] { ++count; });
    other.load()->after(0, [&] { ++count; });
    thread.join();
    EXPECT_EQ(3, count);
}

TEST(RunLoops, DropTheirFunctionsWhenTheThreadEnds) {
    const id kept = array();
    RunLoop::Handle handle;
    std::thread([&] {
        const velt::ThreadScope scope;
        handle = RunLoop::current().after(3600, [kept] {});
        RunLoop::current().perform([kept] {});
        EXPECT_TRUE(handle.isWaiting());
    }).join();
    EXPECT_FALSE(handle.isWaiting());
    handle.cancel();
    EXPECT_EQ(1u, kept.object()->ownerCount());
}

TEST(RunLoops, CollectDroppedCyclesWhenTheyAreIdle) {
    velt::collectCycles();
    {
        const id outer = array(), inner = array(outer);
        VELT_NSMUTABLEARRAY_APPEND(outer, inner);
    }
    EXPECT_LT(0u, velt::cycleCandidateCount());
    RunLoop::current().runUntil(0.005);
    EXPECT_EQ(0u, velt::cycleCandidateCount());
}

TEST(RunLoops, CallBackWhenTheyAreIdle) {
    static int count;  // the function stays for good
    RunLoop::atIdle([] { ++count; });
    const int before = count;
    RunLoop::current().runUntil(0.005);
    EXPECT_LT(before, count);
}

TEST(RunLoops, TakeFunctionsForTheirIdleTimeFromOthersAndFromEveryThread) {
    static std::atomic<int> added;  // the functions stay for good
    static int seen;
    RunLoop::atIdle([own = 7, isFirst = true]() mutable {
        if (!std::exchange(isFirst, false)) return;
        for (int i = 0; i < 100; ++i) RunLoop::atIdle([] { ++added; });
        seen = own;
    });
    std::thread other([] {
        for (int i = 0; i < 100; ++i) RunLoop::atIdle([] { ++added; });
    });
    RunLoop::current().runUntil(0.005);
    other.join();
    RunLoop::current().runUntil(0.005);
    EXPECT_EQ(7, seen);
    EXPECT_LE(200, added.load());
}

TEST(RunLoops, CarryManyDelayedFunctions) {
    RunLoop& loop = RunLoop::current();
    const int many = iterations(1'000'000);
    int next = 0;
    for (int i = 0; i < many; ++i) loop.after(0, [&next, i] { next += next == i; });
    while (next < many && loop.runOnce(60)) {
    }
    EXPECT_EQ(many, next);
}

TEST(RunLoops, EndTheProcessWithAnUncaughtException) {
    for (const char* way : {"loop", "loop-timer", "loop-thread", "loop-nested"}) {
        const ProgramResult result = runProgram("services", {way});
        EXPECT_EQ(1, result.status) << way;
        EXPECT_EQ("before", result.output) << way;
        EXPECT_EQ("program.bas:7: in Main: VLCastException: 'Integer' expected\n", result.errors) << way;
    }
    const ProgramResult result = runProgram("services", {"loop-other"});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("program.bas:7: in Main: not ours\n", result.errors);
}

TEST(RunLoops, WatchDescriptors) {
    for (const bool onMain : {true, false}) {
        const auto work = [] {
            RunLoop& loop = RunLoop::current();
            int pipe[2];
            ASSERT_EQ(0, ::pipe(pipe));
            std::string read;
            loop.watch(pipe[0], [&] {
                char bytes[8];
                const ssize_t count = ::read(pipe[0], bytes, sizeof bytes);
                read.append(bytes, static_cast<std::size_t>(count));
                if (count == 0) loop.unwatch(pipe[0]);
            });
            EXPECT_TRUE(loop.isPending());
            EXPECT_FALSE(loop.runOnce(0.001));
            ASSERT_EQ(3, ::write(pipe[1], "abc", 3));
            EXPECT_TRUE(loop.runOnce(60));
            EXPECT_EQ("abc", read);
            loop.after(0.001, [&] { ::close(pipe[1]); });
            loop.runUntil(60, kReturn);
            EXPECT_FALSE(loop.isPending());
            ::close(pipe[0]);
        };
        onMain ? work() : std::thread(work).join();
    }
}

TEST(RunLoops, DoNotCallAWatcherThatAnotherTookOut) {
    RunLoop& loop = RunLoop::current();
    int first[2], second[2], calls = 0;
    ASSERT_EQ(0, ::pipe(first));
    ASSERT_EQ(0, ::pipe(second));
    const auto call = [&] {
        ++calls;
        loop.unwatch(first[0]);
        loop.unwatch(second[0]);
    };
    loop.watch(first[0], call);
    loop.watch(second[0], call);
    ::close(first[1]);
    ::close(second[1]);
    loop.runUntil(60, kReturn);
    EXPECT_EQ(1, calls);
    ::close(first[0]);
    ::close(second[0]);
}

TEST(RunLoops, TakeTheDriverOfTheLibraryWithWindows) {
    const ProgramResult result = runProgram("services", {"driver"});
    EXPECT_EQ(0, result.status) << result.errors;
    EXPECT_EQ("abc 1", result.output);
}
