// Timers: a message that a run loop sends after some time, once or again and again.
#pragma once

#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/class.h"

#include <mutex>

/// One timer. The run loop keeps it, and it keeps its target, until it has fired for the last time or is invalidated.
/// It fires on the thread that scheduled it, while that thread's run loop runs.
class VELT_EXPORT NSTimer final : public NSObject {
    VELT_OBJECT(NSTimer, NSObject)
public:
    /// Schedules a message on the calling thread's run loop after some seconds; 0 and less mean its next turn. A
    /// selector with an argument is given the timer.
    static velt::Ref<NSTimer> scheduled(double seconds, const id& target, velt::Selector selector, const id& userInfo,
                                        bool repeats);

    /// Sends the message now. A timer that does not repeat is invalid afterwards.
    void fire();
    /// The timer never fires again and drops its target. From any thread.
    void invalidate();
    /// It has still to fire.
    bool isValid() const;
    /// Seconds between two messages; 0 for a timer that does not repeat.
    double timeInterval() const { return repeats_ ? interval_ : 0; }
    /// What was handed in with it; nil once it is invalid.
    id userInfo() const;
    /// When it fires next, or when it last was to.
    id fireDate() const;
    /// Puts the next message off, or forward. Only on its own thread.
    void setFireDate(const id& date);
    static void describe(velt::ClassBuilder<NSTimer>& c);

    /// Use scheduled.
    NSTimer(double interval, bool repeats, const id& target, velt::Selector selector, const id& userInfo);
    ~NSTimer() override;

private:
    void schedule(double seconds);
    void timeHasCome();

    const double interval_;
    const bool repeats_;
    const velt::Selector selector_;
    mutable std::mutex mutex_;  // guards what follows
    bool valid_ = true;
    double due_ = 0;  // seconds since the reference date
    velt::RunLoop::Handle handle_;
    id target_, userInfo_;
};
