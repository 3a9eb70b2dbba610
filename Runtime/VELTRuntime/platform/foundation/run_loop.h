// Run loops: what is to happen on a thread later, in order. Timers, delayed messages, messages from other threads and
// the end of child processes all come through here.
//
// One pass delivers what was handed in before it began: first the functions of perform in their order, then those of
// `after` whose time has come, earliest deadline first. What a delivered function hands in waits for the next pass, so
// a chain of them does not keep a loop from anything else.
//
// An exception that leaves a delivered function is reported as any uncaught one, and ends the process unless a dialog
// waits for its answer (callback_failure.h).
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/platform/foundation/delayed_calls.h"

#include <memory>

namespace velt {

class VELT_EXPORT RunLoop {
public:
    using Function = std::function<void()>;
    class Handle;
    class Expectation;

    /// The calling thread's loop.
    static RunLoop& current();
    /// The main thread's loop.
    static RunLoop& main();
    bool isCurrent() const { return this == &current(); }

    /// Runs a function on this loop's thread, after all that were handed in before. From any thread.
    void perform(Function function);
    /// Runs a function after some seconds, once; at the next pass for 0 and less. From any thread. Those of one group
    /// can be cancelled together.
    Handle after(double seconds, Function function, CallGroup group = 0);
    /// Functions of that group do not run any more.
    void cancelAll(CallGroup group);

    /// What a run does when nothing is left that could happen.
    enum class WhenDone { Stay, Return };
    /// Delivers for some seconds. Runs may be nested: a delivered function may run its loop. Only on the loop's thread.
    void runUntil(double seconds, WhenDone whenDone = WhenDone::Stay);
    /// Waits until something was delivered, at most `limit` seconds. False when nothing was.
    bool runOnce(double limit);
    /// The innermost run returns after the function that is being delivered.
    void stop();

    /// Calls a function whenever a file descriptor can be read or its other end has gone, until it is unwatched. It
    /// counts as something that could happen. Only on the loop's thread; one function a descriptor.
    void watch(int descriptor, Function function);
    void unwatch(int descriptor);

    /// Something waits to be delivered, is expected or watched.
    bool isPending() const;
    /// Makes sure that the loop has its driver, so that a toolkit's own event loop serves this loop too.
    void prepare();
    /// Calls a function whenever the main thread's loop is about to wait. From any thread.
    static void atIdle(Function function);

    RunLoop(const RunLoop&) = delete;
    RunLoop& operator=(const RunLoop&) = delete;

private:
    struct State;
    explicit RunLoop(bool isMain);
    ~RunLoop();

    std::shared_ptr<State> state_;
};

/// One delayed function; it runs whether or not the handle lives.
class VELT_EXPORT RunLoop::Handle {
public:
    Handle() = default;
    /// The function does not run any more. From any thread; does nothing once it has run.
    void cancel();
    bool isWaiting() const;

private:
    friend class RunLoop;
    std::weak_ptr<State> state_;
    DelayedCalls::Ticket ticket_;
};

/// While it exists, the loop of the thread that made it expects that something will be handed in: a run that returns
/// when nothing is left stays.
class VELT_EXPORT RunLoop::Expectation {
public:
    Expectation();
    ~Expectation();
    Expectation(const Expectation&) = delete;
    Expectation& operator=(const Expectation&) = delete;

private:
    std::shared_ptr<State> state_;
};

}  // namespace velt
