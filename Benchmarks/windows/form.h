// What the programs of the window comparison share: how long each step took, how much memory is in use.
#pragma once

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace form {

inline constexpr int kRows = 250;  // of four controls each
inline constexpr int kRowHeight = 26;
inline constexpr int kResizes = 20;

inline double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
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
