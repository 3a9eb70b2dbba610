// What a program writes to its own standard output and standard error.
#include "VELTRuntime/process/task.h"

#include "VELTRuntime/platform/foundation/process/child_process.h"
#include "support/generated_bytes.h"
#include "support/streams.h"
#include "support/values.h"

#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <unistd.h>

using namespace velt;
using namespace velt::test;

namespace {

/// One of the standard streams is another descriptor while this exists; -1 closes it.
class Exchanged {
public:
    Exchanged(int stream, int other) : stream_(stream), saved_(::fcntl(stream, F_DUPFD_CLOEXEC, 10)) {
        other < 0 ? ::close(stream) : ::dup2(other, stream);
    }
    ~Exchanged() {
        ::dup2(saved_, stream_);
        ::close(saved_);
    }
    Exchanged(const Exchanged&) = delete;
    Exchanged& operator=(const Exchanged&) = delete;

private:
    int stream_, saved_;
};

std::string contentOfDescriptor(int descriptor) {
    std::string text;
    char piece[4096];
    for (ssize_t count; (count = ::read(descriptor, piece, sizeof piece)) > 0;) {
        text.append(piece, static_cast<std::size_t>(count));
    }
    return text;
}

}  // namespace

TEST(StandardStreams, TakeTextAsUtf8AndNothingIsAdded) {
    EXPECT_EQ(written([] { VELT_STDOUT("é猫"_v); }), "é猫|");
    EXPECT_EQ(written([] { VELT_STDERR("ß"_v); }), "|ß");
    EXPECT_EQ(written([] {
                  VELT_STDOUT("one\n"_v);
                  VELT_STDERR("two"_v);
                  VELT_STDOUT("three"_v);
              }),
              "one\nthree|two");
    EXPECT_EQ(written([] {
                  VELT_STDOUT(""_v);
                  VELT_STDERR(""_v);
              }),
              "|");
}

TEST(StandardStreams, TakeDataOfAnyBytes) {
    const std::string bytes("\x00\xff\x80\n\x00", 5);
    EXPECT_EQ(written([&] { VELT_STDOUT(make<NSData>(bytes)); }), bytes + "|");
    EXPECT_EQ(written([&] { VELT_STDERR(make<NSMutableData>(bytes)); }), "|" + bytes);
}

TEST(StandardStreams, GiveNil) {
    testing::internal::CaptureStdout();
    const id output = VELT_STDOUT("x"_v);
    testing::internal::GetCapturedStdout();
    EXPECT_VALUE("nil", output);
    testing::internal::CaptureStderr();
    const id errors = VELT_STDERR("x"_v);
    testing::internal::GetCapturedStderr();
    EXPECT_VALUE("nil", errors);
}

TEST(StandardStreams, TakeNothingElse) {
    EXPECT_CAST_FAILURE("'Data' Argument = Nil", VELT_STDOUT(nil));
    EXPECT_CAST_FAILURE("'Data' Argument = Nil", VELT_STDERR(nil));
    EXPECT_CAST_FAILURE("'Data' expected", VELT_STDOUT(integer(1)));
    EXPECT_CAST_FAILURE("'Data' expected", VELT_STDERR(array()));
}

TEST(StandardStreams, WriteAtOnceAndAllThoughTheReaderIsSlow) {
    const std::string bytes = generatedBytes(7, 500000);
    const PipeEnds ends = makePipe();
    std::string got;
    std::thread reader([&] { got = contentOfDescriptor(ends.reading); });
    {
        const Exchanged exchanged(STDOUT_FILENO, ends.writing);
        ::close(ends.writing);
        VELT_STDOUT(make<NSData>(bytes));
    }
    reader.join();
    ::close(ends.reading);
    EXPECT_TRUE(got == bytes);
}

TEST(StandardStreams, RaiseWhenNobodyReadsOrTheyAreClosed) {
    const PipeEnds ends = makePipe();
    ::close(ends.reading);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        const auto write = [stream] {
            return raised([stream] { stream == STDOUT_FILENO ? VELT_STDOUT("x"_v) : VELT_STDERR("x"_v); });
        };
        std::string broken, closed;
        {
            const Exchanged exchanged(stream, ends.writing);
            broken = write();
        }
        {
            const Exchanged exchanged(stream, -1);
            closed = write();
        }
        EXPECT_EQ(broken, "NSFileHandleOperationException: writeData:: Broken pipe");
        EXPECT_EQ(closed, "NSFileHandleOperationException: writeData:: Bad file descriptor");
    }
    ::close(ends.writing);
}
