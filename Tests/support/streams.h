// What a call writes to this process's own streams.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace velt::test {

/// What a call writes to standard output and standard error, "output|errors".
template <class Call> std::string written(Call&& call) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    call();
    const std::string errors = testing::internal::GetCapturedStderr();
    return testing::internal::GetCapturedStdout() + "|" + errors;
}

}  // namespace velt::test
