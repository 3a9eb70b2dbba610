// What the programs of the window comparison share: how long each step took, how much memory is in use.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

namespace form {

inline constexpr int kRows = 250;  // of four controls each
inline constexpr int kRowHeight = 26;
inline constexpr int kResizes = 20;

/// Seconds of processor time since the process began. Nothing here waits, so on a machine of its own a person sees the
/// same time; on a busy one only this can be compared.
inline double now() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Nanoseconds that one call takes: of the quickest of many batches, which nothing disturbed.
template <class Call> double nanosecondsOf(Call call) {
    constexpr int kBatches = 200, kCalls = 20'000;
    double least = 1e9;
    for (int batch = 0; batch < kBatches; ++batch) {
        const double begin = now();
        for (int i = 0; i < kCalls; ++i) call();
        least = std::min(least, (now() - begin) / kCalls * 1e9);
    }
    return least;
}

/// Kilobytes of memory that the process occupies.
inline long residentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
    }
    return 0;
}

/// Prints the time of one step and starts the next.
class Steps {
public:
    void end(const char* name) {
        const double time = now();
        std::printf("%s %.6f\n", name, time - begin_);
        begin_ = now();
    }

private:
    double begin_ = now();
};

}  // namespace form
