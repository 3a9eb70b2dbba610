#include "VELTRuntime/platform/appkit/main_loop.h"

#include "VELTRuntime/platform/foundation/run_loop.h"
#include "support/child_tasks.h"
#include "support/generated_bytes.h"
#include "support/values.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

using velt::RunLoop;
using namespace velt::test;

namespace {

/// Gets what tasks of the name "job" report, and a delayed message.
class Reader : public NSObject {
    VELT_OBJECT(Reader, NSObject)

public:
    static void describe(velt::ClassBuilder<Reader>& c) {
        c.method("job_stdout:", &Reader::output)
            .method("job_stderr:", &Reader::errors)
            .method("jobstopped", &Reader::stopped)
            .method("later", &Reader::later);
    }
    void output(const id& data) {
        size += velt::dataOf(data)->length();
        if (size < 1000000) text += bytesOf(data);
        if (onOutput) onOutput();
    }
    void errors(const id& data) { errorText += bytesOf(data); }
    void stopped() {
        ++stops;
        if (onStop) onStop();
    }
    void later() { ++messages; }
    id launched(const std::string& path, const std::vector<std::string>& arguments) {
        id task = VELT_VLTASK_INIT(id(this), "job");
        VELT_VLTASK_PATH(task, velt::string(path));
        VELT_VLTASK_ARGUMENTS(task, stringArray(arguments));
        velt::send(velt::send(task, "task"), "launch");
        return task;
    }

    std::size_t size = 0;
    std::string text, errorText;
    int stops = 0, messages = 0;
    std::function<void()> onOutput, onStop;
};

bool hasAll(const id& task) {
    return VELT_CBOOL(velt::valueForKey(task, "stdoutEmpty")) && VELT_CBOOL(velt::valueForKey(task, "stderrEmpty"));
}

/// One application object for all of these tests: the run loop stays with it.
class ApplicationLoop : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        static char name[] = "tests";
        static char* arguments[] = {name, nullptr};
        static int count = 1;
        RunLoop::current().perform([] { before += "before"; });
        application = new QApplication(count, arguments);
        velt::runWithinApplication();
    }
    static inline std::string before;
    static inline QApplication* application = nullptr;
    RunLoop& loop = RunLoop::main();
};

}  // namespace

TEST_F(ApplicationLoop, DeliversTimersAndFunctionsOfTheRunLoop) {
    std::string said;
    loop.after(0.002, [&] { said += "c"; });
    loop.after(0, [&] { said += "b"; });
    loop.perform([&] { said += "a"; });
    std::thread([&] { loop.perform([&] { said += "t"; }); }).join();
    loop.runUntil(60, RunLoop::WhenDone::Return);
    EXPECT_EQ("before", before);
    EXPECT_EQ("atbc", said);
}

TEST_F(ApplicationLoop, DeliversWithinTheToolkitsOwnLoops) {
    std::string said;
    QEventLoop own;
    const auto say = [&](char what) {
        said += what;
        if (said.size() == 3) own.quit();
    };
    loop.perform([&] { say('a'); });
    loop.after(0.005, [&] { say('b'); });
    std::thread thread([&] { loop.perform([&] { say('t'); }); });
    own.exec();
    thread.join();
    EXPECT_LT(said.find('a'), said.find('b'));
    EXPECT_NE(said.npos, said.find('t'));
}

TEST_F(ApplicationLoop, LetsTheToolkitDeliverItsOwn) {
    bool fired = false;
    QTimer::singleShot(1, [&] { fired = true; });
    EXPECT_TRUE(runLoopUntil([&] { return fired; }));
}

TEST_F(ApplicationLoop, MayBeNestedAndStopped) {
    std::string said;
    loop.perform([&] {
        loop.perform([&] {
            said += "inner ";
            loop.stop();
        });
        loop.runUntil(3600);
        said += "outer ";
    });
    loop.runUntil(60, RunLoop::WhenDone::Return);
    EXPECT_EQ("inner outer ", said);
    EXPECT_FALSE(loop.runOnce(0.002));
}

TEST_F(ApplicationLoop, WatchesDescriptors) {
    int pipe[2];
    ASSERT_EQ(0, ::pipe(pipe));
    std::string read;
    loop.watch(pipe[0], [&] {
        char bytes[8];
        const ssize_t count = ::read(pipe[0], bytes, sizeof bytes);
        read.append(bytes, static_cast<std::size_t>(count));
        if (count == 0) loop.unwatch(pipe[0]);
    });
    ASSERT_EQ(3, ::write(pipe[1], "abc", 3));
    EXPECT_TRUE(loop.runOnce(60));
    EXPECT_EQ("abc", read);
    ::close(pipe[1]);
    loop.runUntil(60, RunLoop::WhenDone::Return);
    EXPECT_FALSE(loop.isPending());
    ::close(pipe[0]);
}

TEST_F(ApplicationLoop, DeliversOutputTimersAndDelayedMessagesWhileAProgramWaits) {
    const auto reader = velt::make<Reader>();
    bool fired = false;
    QTimer::singleShot(1, [&] { fired = true; });
    VELT_NSOBJECT_PERFORMSELECTORDELAYED(reader, "later"_v, nil, real(0.002));
    const id task = reader->launched(childProgram(), {"bytes", "300000", "err", "x"});
    for (int turns = 0; turns < 6000 && !(reader->stops == 1 && hasAll(task) && fired && reader->messages); ++turns) {
        VELT_DORUNLOOP(real(0.01));
    }
    EXPECT_TRUE(reader->text == generatedBytes(300000, 300000));
    EXPECT_EQ("x", reader->errorText);
    EXPECT_EQ(1, reader->stops);
    EXPECT_EQ(1, reader->messages);
    EXPECT_TRUE(fired);
}

TEST_F(ApplicationLoop, LetsAProgramWaitInTheReportOfATask) {
    const auto outer = velt::make<Reader>(), inner = velt::make<Reader>();
    id task, innerTask;
    outer->onOutput = [&] {
        if (!innerTask.isNil()) return;
        innerTask = inner->launched(childProgram(), {"bytes", "200000"});
        for (int turns = 0; turns < 6000 && !(inner->stops == 1 && hasAll(innerTask)); ++turns) {
            VELT_DORUNLOOP(real(0.01));
        }
    };
    task = outer->launched(childProgram(), {"out", "1", "pause", "10", "out", "2"});
    EXPECT_TRUE(runLoopUntil([&] { return outer->stops == 1 && hasAll(task); }));
    EXPECT_TRUE(inner->text == generatedBytes(200000, 200000));
    EXPECT_EQ("12", outer->text);
}

TEST_F(ApplicationLoop, DeliversOutputWithinTheToolkitsOwnLoops) {
    const auto reader = velt::make<Reader>();
    QEventLoop own;
    reader->onStop = [&] { own.quit(); };
    const id task = reader->launched(childProgram(), {"out", "abc"});
    own.exec();
    EXPECT_TRUE(runLoopUntil([&] { return hasAll(task); }));
    EXPECT_EQ("abc", reader->text);
}

TEST_F(ApplicationLoop, GivesTheToolkitItsTurnWhileATaskWritesWithoutEnd) {
    const auto reader = velt::make<Reader>();
    const id task = reader->launched("/bin/cat", {"/dev/zero"});
    int fired = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++fired; });
    timer.start(1);
    for (int turns = 0; turns < 6000 && (fired < 3 || reader->size == 0); ++turns) VELT_DORUNLOOP(real(0.01));
    EXPECT_GE(fired, 3);
    EXPECT_GT(reader->size, 0u);
    EXPECT_VALUE("c 1", VELT_VLTASK_ISRUNNING(task));
    VELT_VLTASK_STOP(task);
    EXPECT_TRUE(runLoopUntil([&] { return reader->stops == 1; }));
}
