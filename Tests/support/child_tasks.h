// Processes of the tests' own, and run loops that run until something has come.
#pragma once

#include "VELTRuntime/VELTRuntime.h"
#include "VELTRuntime/platform/foundation/process/file_handle.h"
#include "VELTRuntime/platform/foundation/run_loop.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace velt::test {

/// The program that does what its arguments say.
inline std::string childProgram() { return (std::filesystem::path(VELT_TEST_PROGRAMS) / "child").string(); }

inline id stringArray(const std::vector<std::string>& texts) {
    const Ref<NSMutableArray> array = make<NSMutableArray>();
    for (const std::string& text : texts) array->append(string(text));
    return array;
}

/// Runs this thread's loop until something holds; gives up after a minute, which only a failure takes.
template <class Condition> bool runLoopUntil(Condition&& holds) {
    const LoopTime end = LoopClock::now() + std::chrono::seconds(60);
    while (!holds()) {
        if (LoopClock::now() > end) return false;
        RunLoop::current().runOnce(0.05);
    }
    return true;
}

inline std::string bytesOf(const id& data) { return std::string(dataOf(data)->characters()); }

/// Opens what this thread's loop and the first child of a process keep open, so that descriptors can be counted.
inline void settleDescriptors() {
    RunLoop::current().runUntil(0);
    VELT_RUN("/bin/true"_v);
}

/// Number of descriptors that this process has open.
inline std::size_t openDescriptorCount() {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
    return count;
}

}  // namespace velt::test
