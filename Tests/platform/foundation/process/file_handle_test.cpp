// Reading and writing through file handles, at once and in the background.
#include "VELTRuntime/platform/foundation/process/file_handle.h"

#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/process/descriptor_io.h"
#include "support/child_tasks.h"
#include "support/generated_bytes.h"
#include "support/processes.h"
#include "support/values.h"

#include <climits>
#include <csignal>
#include <gtest/gtest.h>
#include <thread>

using namespace velt;
using namespace velt::test;

namespace {

/// Keeps the bytes of each notification that it gets from a handle.
class HandleListener : public NSObject {
    VELT_OBJECT(HandleListener, NSObject)

public:
    static void describe(ClassBuilder<HandleListener>& c) { c.method("got:", &HandleListener::got); }
    void got(const id& notification) {
        const NSNotification* told = as<NSNotification>(notification);
        const id information = told->userInfo();
        const id data = information.isNil()
                            ? nil
                            : as<NSDictionary>(information)->objectForKey("NSFileHandleNotificationDataItem"_v);
        pieces.push_back(data.isNil() ? "(no data)" : bytesOf(data));
        if (again) as<NSFileHandle>(told->object())->readInBackgroundAndNotify();
    }
    void listen(const id& name, const Ref<NSFileHandle>& handle) {
        NSNotificationCenter::defaultCenter().addObserver(id(this), Selector::named("got:"), name, handle);
    }
    std::vector<std::string> pieces;
    bool again = false;
};

const id& readCompletion() { return "NSFileHandleReadCompletionNotification"_v; }

}  // namespace

TEST(FileHandle, ReadsWhatThereIsAndThenTheEnd) {
    const Ref<NSPipe> pipe = make<NSPipe>();
    pipe->fileHandleForWriting()->writeData("abc"_v);
    EXPECT_EQ(bytesOf(pipe->fileHandleForReading()->availableData()), "abc");
    pipe->fileHandleForWriting()->closeFile();
    EXPECT_EQ(bytesOf(pipe->fileHandleForReading()->availableData()), "");
}

TEST(FileHandle, TellsNothingYetFromTheEnd) {
    const Ref<NSPipe> pipe = make<NSPipe>();
    EXPECT_TRUE(pipe->fileHandleForReading()->dataAvailableNow().isNil());
    pipe->fileHandleForWriting()->closeFile();
    EXPECT_EQ(bytesOf(pipe->fileHandleForReading()->dataAvailableNow()), "");
}

TEST(FileHandle, ReadsALengthAndStopsAtTheEnd) {
    const TemporaryFolder folder;
    const Ref<NSFileHandle> file = NSFileHandle::forReading(folder.write("f", "0123456789"));
    EXPECT_EQ(bytesOf(file->readDataOfLength(4)), "0123");
    EXPECT_EQ(bytesOf(file->readDataOfLength(0)), "");
    EXPECT_EQ(bytesOf(file->readDataToEndOfFile()), "456789");
    EXPECT_EQ(bytesOf(file->readDataOfLength(4)), "");
    EXPECT_RAISES("NSInvalidArgumentException: readDataOfLength: a length below zero", file->readDataOfLength(-1));
}

TEST(FileHandle, ReadsWhatThereIsWhenMoreIsAskedFor) {
    const TemporaryFolder folder;
    const std::string content(3'000'000, 'x');
    const Ref<NSFileHandle> file = NSFileHandle::forReading(folder.write("f", content));
    EXPECT_EQ(bytesOf(file->readDataOfLength(LONG_MAX)), content);
}

TEST(FileHandle, OpensNoFileThatIsNotThere) {
    EXPECT_FALSE(NSFileHandle::forReading("/no/such/file"));
    EXPECT_FALSE(NSFileHandle::forWriting("/no/such/file"));
}

TEST(FileHandle, RaisesWhenItIsClosed) {
    const Ref<NSPipe> pipe = make<NSPipe>();
    const Ref<NSFileHandle> reading = pipe->fileHandleForReading();
    reading->closeFile();
    reading->closeFile();
    EXPECT_EQ(reading->fileDescriptor(), -1);
    EXPECT_RAISES("NSFileHandleOperationException: availableData: Bad file descriptor", reading->availableData());
    EXPECT_RAISES("NSFileHandleOperationException: readInBackgroundAndNotify: Bad file descriptor",
                  reading->readInBackgroundAndNotify());
}

TEST(FileHandle, RaisesWhenNobodyReadsAndLeavesNoSignal) {
    const Ref<NSPipe> pipe = make<NSPipe>();
    pipe->fileHandleForReading()->closeFile();
    for (int i = 0; i < 3; ++i) {
        EXPECT_RAISES("NSFileHandleOperationException: writeData:: Broken pipe",
                      pipe->fileHandleForWriting()->writeData("x"_v));
    }
    sigset_t pending, blocked;
    sigpending(&pending);
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    EXPECT_EQ(sigismember(&pending, SIGPIPE), 0);
    EXPECT_EQ(sigismember(&blocked, SIGPIPE), 0);
}

TEST(FileHandle, KeepsASignalThatTheProgramWaitsFor) {
    sigset_t pipeSignal, before;
    sigemptyset(&pipeSignal);
    sigaddset(&pipeSignal, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipeSignal, &before);
    pthread_kill(pthread_self(), SIGPIPE);
    const Ref<NSPipe> pipe = make<NSPipe>();
    pipe->fileHandleForReading()->closeFile();
    EXPECT_THROW(pipe->fileHandleForWriting()->writeData("x"_v), NSException);
    int number = 0;
    EXPECT_EQ(sigwait(&pipeSignal, &number), 0);
    EXPECT_EQ(number, SIGPIPE);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST(FileHandle, WritesMoreThanAPipeHoldsToASlowReader) {
    const Ref<NSPipe> pipe = make<NSPipe>();
    const std::string bytes = generatedBytes(7, 1000000);
    std::string read;
    std::thread reader([&] { read = bytesOf(pipe->fileHandleForReading()->readDataToEndOfFile()); });
    pipe->fileHandleForWriting()->writeBytes(bytes);
    pipe->fileHandleForWriting()->closeFile();
    reader.join();
    EXPECT_TRUE(read == bytes);
}

TEST(FileHandleBackground, ReadsOnePieceForEachRequest) {
    const Ref<NSPipe> pipe = make<NSPipe>();
    const Ref<HandleListener> listener = make<HandleListener>();
    listener->listen(readCompletion(), pipe->fileHandleForReading());
    pipe->fileHandleForReading()->readInBackgroundAndNotify();
    RunLoop::current().runUntil(0.02);
    EXPECT_TRUE(listener->pieces.empty());
    pipe->fileHandleForWriting()->writeData("one"_v);
    EXPECT_TRUE(runLoopUntil([&] { return !listener->pieces.empty(); }));
    pipe->fileHandleForWriting()->writeData("two"_v);
    RunLoop::current().runUntil(0.02);
    EXPECT_EQ(listener->pieces, std::vector<std::string>{"one"});
    listener->again = true;
    pipe->fileHandleForReading()->readInBackgroundAndNotify();
    EXPECT_TRUE(runLoopUntil([&] { return listener->pieces.size() == 2; }));
    pipe->fileHandleForWriting()->writeData("three"_v);
    EXPECT_TRUE(runLoopUntil([&] { return listener->pieces.size() == 3; }));
    listener->again = false;
    pipe->fileHandleForWriting()->closeFile();
    EXPECT_TRUE(runLoopUntil([&] { return listener->pieces.size() == 4; }));
    EXPECT_EQ(listener->pieces, (std::vector<std::string>{"one", "two", "three", ""}));
    EXPECT_FALSE(RunLoop::current().isPending());
}

TEST(FileHandleBackground, ReadsToTheEndInOnePiece) {
    const Ref<NSPipe> pipe = make<NSPipe>();
    const Ref<HandleListener> listener = make<HandleListener>();
    listener->listen("NSFileHandleReadToEndOfFileCompletionNotification"_v, pipe->fileHandleForReading());
    pipe->fileHandleForReading()->readToEndOfFileInBackgroundAndNotify();
    const std::string bytes = generatedBytes(3, 300000);
    std::thread writer([&] {
        pipe->fileHandleForWriting()->writeBytes(bytes);
        pipe->fileHandleForWriting()->closeFile();
    });
    EXPECT_TRUE(runLoopUntil([&] { return !listener->pieces.empty(); }));
    writer.join();
    EXPECT_EQ(listener->pieces.size(), 1u);
    EXPECT_TRUE(listener->pieces.front() == bytes);
}

TEST(FileHandleBackground, WaitsForDataWithoutReadingIt) {
    const Ref<NSPipe> pipe = make<NSPipe>();
    const Ref<HandleListener> listener = make<HandleListener>();
    listener->listen("NSFileHandleDataAvailableNotification"_v, pipe->fileHandleForReading());
    pipe->fileHandleForReading()->waitForDataInBackgroundAndNotify();
    pipe->fileHandleForWriting()->writeData("x"_v);
    EXPECT_TRUE(runLoopUntil([&] { return !listener->pieces.empty(); }));
    EXPECT_EQ(listener->pieces, std::vector<std::string>{"(no data)"});
    EXPECT_EQ(bytesOf(pipe->fileHandleForReading()->availableData()), "x");
}

TEST(FileHandleBackground, EndsWithTheHandlesClosing) {
    RunLoop::current().prepare();
    const std::size_t before = openDescriptorCount();
    const Ref<HandleListener> listener = make<HandleListener>();
    {
        const Ref<NSPipe> pipe = make<NSPipe>();
        listener->listen(readCompletion(), pipe->fileHandleForReading());
        pipe->fileHandleForReading()->readInBackgroundAndNotify();
        pipe->fileHandleForReading()->closeFile();
    }
    RunLoop::current().runUntil(0.02);
    EXPECT_TRUE(listener->pieces.empty());
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(FileHandleBackground, MayBeClosedOnAnotherThread) {
    RunLoop::current().prepare();
    const std::size_t before = openDescriptorCount();
    const Ref<NSPipe> pipe = make<NSPipe>();
    pipe->fileHandleForReading()->readInBackgroundAndNotify();
    std::thread([&] { pipe->fileHandleForReading()->closeFile(); }).join();
    pipe->fileHandleForWriting()->closeFile();
    RunLoop::current().runUntil(0.02);
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(FileHandleBackground, OutlivesTheThreadThatAskedForIt) {
    const Ref<NSPipe> pipe = make<NSPipe>();
    std::thread([&] { pipe->fileHandleForReading()->readInBackgroundAndNotify(); }).join();
    const Ref<HandleListener> listener = make<HandleListener>();
    listener->listen(readCompletion(), pipe->fileHandleForReading());
    pipe->fileHandleForReading()->readInBackgroundAndNotify();
    pipe->fileHandleForWriting()->writeData("x"_v);
    EXPECT_TRUE(runLoopUntil([&] { return !listener->pieces.empty(); }));
}

TEST(FileHandleBackground, SharesItsLoopWithLoopsThatRunInDeliveries) {
    // A loop that runs while a piece is delivered reads what the outer one was already told of.
    const Ref<NSPipe> first = make<NSPipe>(), second = make<NSPipe>();
    const Ref<HandleListener> listener = make<HandleListener>();
    listener->again = true;
    for (const Ref<NSPipe>& pipe : {first, second}) {
        listener->listen(readCompletion(), pipe->fileHandleForReading());
        pipe->fileHandleForReading()->readInBackgroundAndNotify();
        pipe->fileHandleForWriting()->writeData("x"_v);
    }
    RunLoop::current().perform([] { RunLoop::current().runUntil(0.02); });
    EXPECT_TRUE(runLoopUntil([&] { return listener->pieces.size() == 2; }));
    RunLoop::current().runUntil(0.02);
    EXPECT_EQ(listener->pieces, (std::vector<std::string>{"x", "x"}));
    first->fileHandleForReading()->closeFile();
    second->fileHandleForReading()->closeFile();
}
