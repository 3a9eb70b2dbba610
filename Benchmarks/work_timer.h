// How every program of the comparison times and reports one piece of work: "name seconds check" on a line.
#pragma once

#include <chrono>
#include <cstdio>

template <class Work> void timeWork(const char* name, Work work) {
    const auto begin = std::chrono::steady_clock::now();
    const long long check = work();
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    std::printf("%s %.6f %lld\n", name, seconds.count(), check);
}
