// Work on several threads at once.
#pragma once

#include "VELTRuntime/platform/object/cycles.h"

#include <thread>
#include <vector>

namespace velt::test {

/// Calls a function once on each of so many threads, with the thread's number from 0, and returns when all have ended.
template <class Work> void onThreads(int count, Work work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&work, i] {
            const ThreadScope scope;
            work(i);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

}  // namespace velt::test
