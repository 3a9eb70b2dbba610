// Bringing another process's window to the front, through the protocol of X11's window managers.
#pragma once

#include "VELTRuntime/export.h"

#include <memory>
#include <sys/types.h>

namespace velt {

/// What is said of a process that has no window, or of every process where there is no X11.
inline constexpr int kProcessNotFound = -600;

/// A connection to the window manager, for as long as it exists.
class VELT_EXPORT WindowActivation {
public:
    WindowActivation();
    ~WindowActivation();
    WindowActivation(const WindowActivation&) = delete;
    WindowActivation& operator=(const WindowActivation&) = delete;

    /// There is a window manager that can be asked. Never under Wayland alone: there the user decides what is in front.
    bool isPossible() const;
    /// Asks for the process's window to be brought to the front: 0, or kProcessNotFound.
    int bringToFront(pid_t process) const;

private:
    struct Connection;
    std::unique_ptr<Connection> connection_;
};

}  // namespace velt
