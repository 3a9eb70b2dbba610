// Example programs with windows, run where nobody looks.
#pragma once

#include "support/environment.h"
#include "support/processes.h"

namespace velt::test {

/// Runs an example, which works itself and leaves a picture of its window at a path.
inline ProgramResult runUnseen(const std::string& name, const std::string& picture,
                               const std::vector<std::string>& arguments = {}) {
    const EnvironmentVariable screenshot("VELT_SCREENSHOT", picture), platform("QT_QPA_PLATFORM", "offscreen");
    return runExample(name, arguments);
}

}  // namespace velt::test
