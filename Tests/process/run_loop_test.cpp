// A program that waits with VELT_DORUNLOOP: timers, delayed messages and the output of tasks come meanwhile.
#include "VELTRuntime/process/runners.h"

#include "support/child_tasks.h"
#include "support/generated_bytes.h"
#include "support/processes.h"
#include "support/values.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <thread>

using namespace velt;
using namespace velt::test;

namespace {

/// Writes down what comes, in the order in which it comes.
class Diary : public NSObject {
    VELT_OBJECT(Diary, NSObject)

public:
    static void describe(ClassBuilder<Diary>& c) {
        c.method("tick", &Diary::tick)
            .method("later:", &Diary::later)
            .method("job_stdout:", &Diary::output)
            .method("jobstopped", &Diary::stopped);
    }
    void tick() {
        ++ticks;
        if (onTick) onTick();
    }
    void later(const id& what) { said += utf8(what); }
    void output(const id& data) {
        bytes += bytesOf(data);
        thread = std::this_thread::get_id();
        if (onOutput) onOutput();
    }
    void stopped() { ++stops; }

    id launched(const std::vector<std::string>& arguments) {
        id task = VELT_VLTASK_INIT(id(this), "job");
        VELT_VLTASK_PATH(task, string(childProgram()));
        VELT_VLTASK_ARGUMENTS(task, stringArray(arguments));
        send(send(task, "task"), "launch");
        return task;
    }
    void say(const char* text, double seconds) {
        VELT_NSOBJECT_PERFORMSELECTORDELAYED(id(this), "later:"_v, string(text), VELT_ID(seconds));
    }

    int ticks = 0, stops = 0;
    std::string said, bytes;
    std::thread::id thread;
    std::function<void()> onTick, onOutput;
};

/// Waits in the program's way, again and again, until something holds.
template <class Condition> bool waited(Condition&& holds) {
    for (int turns = 0; turns < 6000; ++turns) {
        if (holds()) return true;
        VELT_DORUNLOOP(VELT_ID(0.01));
    }
    return false;
}

std::chrono::duration<double> now() { return std::chrono::steady_clock::now().time_since_epoch(); }

}  // namespace

TEST(DoRunLoop, DeliversAndNestsAndReturns) {
    std::string events;
    RunLoop::current().perform([&] {
        events += "a";
        RunLoop::current().perform([&] { events += "b"; });
        VELT_DORUNLOOP(VELT_ID(0.02));
        events += "c";
    });
    RunLoop::current().after(0.001, [&] { events += "d"; });
    EXPECT_VALUE("nil", VELT_DORUNLOOP("0.05"_v));
    EXPECT_EQ(events.size(), 4u);
    EXPECT_LT(events.find('a'), events.find('b'));
    EXPECT_LT(events.find('b'), events.find('c'));
    EXPECT_NE(events.find('d'), std::string::npos);
    VELT_DORUNLOOP(VELT_ID(0L));
    VELT_DORUNLOOP(VELT_ID(-1L));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_DORUNLOOP(nil));
}

TEST(DoRunLoop, ReturnsThoughThereIsAlwaysMoreToDeliver) {
    long count = 0;
    bool isOver = false;
    std::function<void()> again = [&] {
        ++count;
        if (!isOver) RunLoop::current().perform(again);
    };
    again();
    VELT_DORUNLOOP(VELT_ID(0.02));
    isOver = true;
    VELT_DORUNLOOP(VELT_ID(0L));
    EXPECT_GT(count, 1);
    EXPECT_FALSE(RunLoop::current().isPending());
}

TEST(DoRunLoop, DeliversTimersDelayedMessagesAndOutputTogether) {
    const Ref<Diary> diary = make<Diary>();
    const id timer = VELT_NSTIMER_INIT(diary, "tick", VELT_ID(0.002));
    diary->say("b", 0.004);
    diary->say("a", 0);
    const id task = diary->launched({"bytes", "300000", "pause", "20", "out", "end"});
    EXPECT_TRUE(waited([&] { return diary->said == "ab" && diary->ticks > 0 && diary->bytes.size() == 300003; }));
    std::string expected = generatedBytes(300000, 300000);
    expected += "end";
    EXPECT_TRUE(diary->bytes == expected);
    EXPECT_TRUE(waited([&] { return diary->stops == 1; }));
    EXPECT_TRUE(diary->thread == std::this_thread::get_id());
    send(timer, "invalidate");
}

TEST(DoRunLoop, DeliversAllOfThemInARunWithinADelivery) {
    const Ref<Diary> diary = make<Diary>(), inner = make<Diary>();
    bool isNested = false, hadAll = false;
    id timer, innerTimer;
    diary->onTick = [&] {
        if (isNested) return;
        isNested = true;
        innerTimer = VELT_NSTIMER_INIT(inner, "tick");
        inner->say("x", 0.001);
        const id task = inner->launched({"out", "inner"});
        hadAll = waited([&] { return inner->ticks == 1 && inner->said == "x" && inner->bytes == "inner"; });
        // What was there before goes on within it, too.
        hadAll = hadAll && waited([&] { return diary->bytes == "outer" && diary->said == "y"; });
    };
    timer = VELT_NSTIMER_INIT(diary, "tick");
    diary->say("y", 0.002);
    const id task = diary->launched({"out", "outer"});
    EXPECT_TRUE(waited([&] { return isNested && hadAll; }));
    EXPECT_TRUE(hadAll);
}

TEST(DoRunLoop, RunsInTheReportOfATaskWhoseNextOutputWaits) {
    const Ref<Diary> diary = make<Diary>();
    int depth = 0, deepest = 0;
    diary->onOutput = [&] {
        deepest = std::max(deepest, ++depth);
        VELT_DORUNLOOP(VELT_ID(0.03));
        --depth;
    };
    const id task = diary->launched({"out", "1", "pause", "5", "out", "2", "pause", "5", "out", "3"});
    EXPECT_TRUE(waited([&] { return diary->bytes == "123" && diary->stops == 1; }));
    EXPECT_EQ(deepest, 1) << "a report interrupted another one";
    EXPECT_EQ(depth, 0);
}

TEST(DoRunLoop, NeverReturnsBeforeItsTimeAndNotForWhatComesLater) {
    const Ref<Diary> diary = make<Diary>();
    diary->say("too late", 3600);
    const auto begin = now();
    for (int i = 0; i < 5; ++i) VELT_DORUNLOOP(VELT_ID(0.01));
    EXPECT_GE((now() - begin).count(), 0.05);
    const auto busy = now();
    const id task = diary->launched({"bytes", "3000000"});
    const id timer = VELT_NSTIMER_INIT(diary, "tick", VELT_ID(0.0001));
    VELT_DORUNLOOP(VELT_ID(0.05));
    EXPECT_GE((now() - busy).count(), 0.05);
    EXPECT_EQ(diary->said, "");
    EXPECT_TRUE(waited([&] { return diary->bytes.size() == 3000000; }));
    send(timer, "invalidate");
    send(diary, "cancelPreviousPerformRequestsWithTarget:", diary);
}

TEST(DoRunLoop, ReturnsWhileATaskWritesWithoutEnd) {
    const Ref<Diary> diary = make<Diary>();
    const id task = VELT_VLTASK_INIT(diary, "job");
    VELT_VLTASK_PATH(task, "/bin/cat"_v);
    VELT_VLTASK_ARGUMENTS(task, stringArray({"/dev/zero"}));
    send(send(task, "task"), "launch");
    std::size_t most = 0;
    diary->onOutput = [&] {
        most = std::max(most, diary->bytes.size());
        diary->bytes.clear();
    };
    for (int turns = 0; turns < 3 || most == 0; ++turns) VELT_DORUNLOOP(VELT_ID(0.01));
    EXPECT_VALUE("c 1", VELT_VLTASK_ISRUNNING(task));
    VELT_VLTASK_STOP(task);
    EXPECT_TRUE(waited([&] { return diary->stops == 1; }));
    EXPECT_VALUE("q 15", VELT_VLTASK_EXITSTATUS(task));
}

TEST(DoRunLoop, RunsTheLoopOfTheThreadThatWaits) {
    const Ref<Diary> mainDiary = make<Diary>();
    mainDiary->say("main", 0);
    std::string said, output;
    bool isOwn = false;
    std::thread thread([&] {
        const Ref<Diary> diary = make<Diary>();
        diary->say("own", 0);
        const id task = diary->launched({"out", "x"});
        waited([&] { return diary->said == "own" && diary->bytes == "x" && diary->stops == 1; });
        said = diary->said;
        output = diary->bytes;
        isOwn = diary->thread == std::this_thread::get_id();
    });
    thread.join();
    EXPECT_EQ(said, "own");
    EXPECT_EQ(output, "x");
    EXPECT_TRUE(isOwn);
    EXPECT_EQ(mainDiary->said, "");
    EXPECT_TRUE(waited([&] { return mainDiary->said == "main"; }));
}
