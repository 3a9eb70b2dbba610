// How a run loop waits. Without windows every thread waits in the system's poll; the library with windows hands over a
// driver for the main thread that waits within the event loop of its toolkit.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/platform/foundation/delayed_calls.h"

#include <functional>
#include <memory>

namespace velt {

/// What a driver calls back, on the loop's thread. None of them lets an exception out.
struct LoopCalls {
    /// After a wake, and when the time of wakeAt has come.
    std::function<void()> pass;
    /// Before it waits.
    std::function<void()> idle;
    /// A watched descriptor can be read, or its other end has gone.
    std::function<void(int descriptor)> readable;
};

/// All but wake is called on the loop's thread.
class VELT_EXPORT LoopDriver {
public:
    virtual ~LoopDriver();
    /// There is something to deliver. From any thread.
    virtual void wake() = 0;
    /// There will be something at that time; replaces the time before.
    virtual void wakeAt(LoopTime time) = 0;
    virtual void watch(int descriptor) = 0;
    virtual void unwatch(int descriptor) = 0;
    /// Waits until there is something, and calls back.
    virtual void wait() = 0;
};

using LoopDriverMaker = std::unique_ptr<LoopDriver> (*)(LoopCalls calls);

/// A driver that waits in poll.
std::unique_ptr<LoopDriver> makePollingDriver(LoopCalls calls);

}  // namespace velt
