#include "VELTRuntime/platform/foundation/process/descriptor_io.h"

#include "VELTRuntime/platform/object/exception.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <poll.h>
#include <pthread.h>
#include <unistd.h>
#include <utility>

namespace velt {

namespace {

/// What a pipe holds. Larger pipes and pieces were slower: the bytes leave the processor's cache on their way.
constexpr std::size_t kPieceLimit = 64 * 1024;

/// The thread's own; a new one after it was handed over. What was freed last comes back, its pages still at hand.
Bytes& pieceBuffer() {
    static thread_local Bytes buffer;
    if (buffer.empty()) buffer.resize(kPieceLimit);
    return buffer;
}

int waitFor(int descriptor, short events, int milliseconds) {
    timespec begin;
    ::clock_gettime(CLOCK_MONOTONIC, &begin);
    int left = milliseconds;
    for (;;) {
        pollfd entry{descriptor, events, 0};
        const int count = ::poll(&entry, 1, left);
        if (count >= 0 || errno != EINTR) return count;
        if (milliseconds < 0) continue;
        timespec now;
        ::clock_gettime(CLOCK_MONOTONIC, &now);
        const long gone = (now.tv_sec - begin.tv_sec) * 1000 + (now.tv_nsec - begin.tv_nsec) / 1000000;
        left = gone >= milliseconds ? 0 : milliseconds - static_cast<int>(gone);
    }
}

/// Keeps SIGPIPE from this thread, and takes away the one that came meanwhile. Other threads and the program's own
/// handler are not touched.
class PipeSignalGuard {
public:
    PipeSignalGuard() {
        sigset_t pending;
        sigemptyset(&only_);
        sigaddset(&only_, SIGPIPE);
        ::sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) != 0;
        if (!wasPending_) ::pthread_sigmask(SIG_BLOCK, &only_, &before_);
    }
    ~PipeSignalGuard() {
        if (wasPending_) return;
        if (broken_) {
            const timespec none{};
            while (::sigtimedwait(&only_, nullptr, &none) < 0 && errno == EINTR) {
            }
        }
        ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    PipeSignalGuard(const PipeSignalGuard&) = delete;
    PipeSignalGuard& operator=(const PipeSignalGuard&) = delete;
    void noteBroken() { broken_ = true; }

private:
    sigset_t only_, before_;
    bool wasPending_ = false;  // it is blocked already, and the program waits for it
    bool broken_ = false;
};

}  // namespace

void raiseDescriptorFailure(std::string_view operation, int error) {
    raise(kFileHandleException, std::string(operation) + ": " + std::strerror(error));
}

bool waitReadable(int descriptor, int milliseconds) { return waitFor(descriptor, POLLIN, milliseconds) != 0; }

std::optional<std::string_view> readPieceNow(int descriptor, std::string_view operation) {
    Bytes& buffer = pieceBuffer();
    for (;;) {
        const ssize_t count = ::read(descriptor, buffer.data(), kPieceLimit);
        if (count >= 0) return std::string_view(buffer.data(), static_cast<std::size_t>(count));
        if (errno == EAGAIN) return std::nullopt;
        if (errno != EINTR) raiseDescriptorFailure(operation, errno);
    }
}

Bytes takePiece(std::string_view piece) {
    constexpr std::size_t kWorthwhile = kPieceLimit / 2;
    Bytes& buffer = pieceBuffer();
    if (piece.data() != buffer.data() || piece.size() < kWorthwhile) return Bytes(piece.begin(), piece.end());
    buffer.resize(piece.size());
    return std::exchange(buffer, Bytes());
}

std::string_view readPiece(int descriptor, std::string_view operation) {
    for (;;) {
        if (const auto piece = readPieceNow(descriptor, operation)) return *piece;
        waitReadable(descriptor, -1);
    }
}

int writeAll(int descriptor, std::string_view bytes) {
    PipeSignalGuard guard;
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            waitFor(descriptor, POLLOUT, -1);
        } else if (errno != EINTR) {
            const int error = errno;
            if (error == EPIPE) guard.noteBroken();
            return error;
        }
    }
    return 0;
}

}  // namespace velt
