// A child process that does what its arguments say, in their order.
#include "support/generated_bytes.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

void writeFully(int descriptor, const std::string& bytes) {
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t count = ::write(descriptor, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) _exit(99);
        done += static_cast<std::size_t>(count);
    }
}

void writeText(const std::string& text) { writeFully(1, text); }

std::string readSome(std::size_t limit) {
    std::string bytes(limit, '\0');
    const ssize_t count = ::read(0, bytes.data(), limit);
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

/// What a signal does, and which are blocked, as the child finds it.
std::string signalState() {
    std::string text;
    sigset_t blocked;
    sigprocmask(SIG_SETMASK, nullptr, &blocked);
    for (int number = 1; number < 32; ++number) {
        struct sigaction action;
        if (sigaction(number, nullptr, &action) == 0 && action.sa_handler != SIG_DFL) {
            text += " set" + std::to_string(number);
        }
        if (sigismember(&blocked, number)) text += " blocked" + std::to_string(number);
    }
    return text;
}

std::string openDescriptors() {
    std::string text;
    for (int number = 0; number < 1024; ++number) {
        if (::fcntl(number, F_GETFD) >= 0) text += std::to_string(number) + " ";
    }
    return text;
}

/// Does one thing; true when it took the number or text that follows.
bool perform(const std::string& what, const std::string& with) {
    const long number = std::atol(with.c_str());
    if (what == "out") {
        writeText(with);
    } else if (what == "err") {
        writeFully(2, with);
    } else if (what == "bytes") {  // so many, generated from their number
        writeText(velt::test::generatedBytes(static_cast<std::uint64_t>(number), static_cast<std::size_t>(number)));
    } else if (what == "error-bytes") {
        writeFully(2, velt::test::generatedBytes(static_cast<std::uint64_t>(number), static_cast<std::size_t>(number)));
    } else if (what == "text") {  // so many letters
        writeText(std::string(static_cast<std::size_t>(number), 'x'));
    } else if (what == "error-text") {
        writeFully(2, std::string(static_cast<std::size_t>(number), 'x'));
    } else if (what == "note-process") {  // its own number, into a file
        const int file = ::open(with.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        writeFully(file, std::to_string(::getpid()) + "\n");
        ::close(file);
    } else if (what == "single-bytes") {
        for (char byte :
             velt::test::generatedBytes(static_cast<std::uint64_t>(number), static_cast<std::size_t>(number))) {
            writeText(std::string(1, byte));
        }
    } else if (what == "pause") {  // milliseconds
        ::usleep(static_cast<useconds_t>(number * 1000));
    } else if (what == "exit") {
        _exit(static_cast<int>(number));
    } else if (what == "raise") {
        std::raise(static_cast<int>(number));
    } else if (what == "grandchild") {  // holds the streams for so many milliseconds, then says so
        if (::fork() == 0) {
            ::usleep(static_cast<useconds_t>(number * 1000));
            writeText("grandchild");
            _exit(0);
        }
    } else if (what == "close") {
        ::close(static_cast<int>(number));
    } else if (what == "environment") {
        const char* value = std::getenv(with.c_str());
        writeText(value ? value : "(none)");
    } else if (what == "ignore") {
        std::signal(static_cast<int>(number), SIG_IGN);
    } else if (what == "slow-count") {  // so many milliseconds before each piece of input
        std::size_t sum = 0;
        for (std::string piece = readSome(4096); !piece.empty(); piece = readSome(4096)) {
            sum += piece.size();
            ::usleep(static_cast<useconds_t>(number * 1000));
        }
        writeText(std::to_string(sum));
    } else {
        if (what == "echo") {
            for (std::string piece = readSome(4096); !piece.empty(); piece = readSome(4096)) writeText(piece);
        } else if (what == "await") {  // the end of its input
            while (!readSome(4096).empty()) {
            }
        } else if (what == "folder") {
            char path[4096];
            writeText(::getcwd(path, sizeof path) ? path : "(none)");
        } else if (what == "descriptors") {
            writeText(openDescriptors());
        } else if (what == "signals") {
            writeText(signalState());
        } else {
            writeText("[" + what + "]");  // an argument to be shown
        }
        return false;
    }
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        if (perform(arguments[i], i + 1 < count ? arguments[i + 1] : "")) ++i;
    }
    return 0;
}
