// Starts a program again and again and writes the median of the seconds from start to end.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <spawn.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

int main(int count, char** arguments) {
    if (count < 3) return 2;
    std::vector<double> times;
    for (long runs = std::atol(arguments[1]); runs > 0; --runs) {
        const auto begin = std::chrono::steady_clock::now();
        pid_t child = 0;
        if (posix_spawnp(&child, arguments[2], nullptr, nullptr, arguments + 2, environ) != 0) return 1;
        waitpid(child, nullptr, 0);
        times.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size() / 2), times.end());
    std::printf("%.6f\n", times[times.size() / 2]);
}
