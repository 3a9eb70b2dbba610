#include "VELTRuntime/platform/appkit/main_loop.h"

#include "VELTRuntime/platform/foundation/run_loop.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

using velt::RunLoop;

namespace {

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
    loop.perform([&] { said += "a"; });
    loop.after(0.005, [&] { said += "b"; });
    std::thread thread([&] { loop.perform([&] { said += "t"; }); });
    loop.after(0.01, [&] { own.quit(); });
    own.exec();
    thread.join();
    EXPECT_EQ(3u, said.size());
    EXPECT_EQ('b', said.back());
}

TEST_F(ApplicationLoop, LetsTheToolkitDeliverItsOwn) {
    bool fired = false;
    QTimer::singleShot(1, [&] { fired = true; });
    loop.runUntil(0.05);
    EXPECT_TRUE(fired);
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
