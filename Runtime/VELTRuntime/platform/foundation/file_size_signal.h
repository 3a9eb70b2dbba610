// Keeps a limit on the size of files (as of `ulimit -f`) an error of the writing call instead of the end of the
// process, so that what was written by halves can be removed.
#pragma once

#include <csignal>
#include <ctime>

namespace velt {

/// While it exists, writing beyond the limit fails on this thread with EFBIG.
class FileSizeSignal {
public:
    FileSizeSignal() {
        sigemptyset(&signal_);
        sigaddset(&signal_, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &signal_, &before_);
    }
    ~FileSizeSignal() {
        if (sigismember(&before_, SIGXFSZ)) return;
        const timespec none{};
        while (sigtimedwait(&signal_, nullptr, &none) > 0) {
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    FileSizeSignal(const FileSizeSignal&) = delete;
    FileSizeSignal& operator=(const FileSizeSignal&) = delete;

private:
    sigset_t signal_, before_;
};

}  // namespace velt
