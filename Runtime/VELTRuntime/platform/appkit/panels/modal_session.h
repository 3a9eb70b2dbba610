// Application modal sessions: a loop of events within a callback, until somebody stops it with a code.
#pragma once

#include "VELTRuntime/platform/appkit/panels/window_follower.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/object/callback_failure.h"

class QEventLoop;

namespace velt {

/// The platform's codes of sessions that were not stopped with one of the program's.
inline constexpr long kModalStopped = -1000;
inline constexpr long kModalAborted = -1001;

/// One session, from its making to its end; the last one made is the innermost. Callbacks that raise meanwhile are
/// reported and do not end it.
class ModalSession final : private WindowFollower {
public:
    /// Of a window, or of a dialog of the toolkit's own (null).
    explicit ModalSession(NSWindow* window);
    ~ModalSession() override;
    /// Delivers events until it is stopped; returns the code.
    long run();
    /// The code that was given last holds until run returns.
    void stop(long code);
    NSWindow* window() const { return window_.get(); }

    /// Null without one.
    static ModalSession* innermost();
    /// The session around this one.
    ModalSession* outer() const { return outer_; }

private:
    void leaderChanged(LeaderChange change) override;

    const CallbackShelter shelter_;
    const Ref<NSWindow> window_;
    ModalSession* const outer_;
    QEventLoop* loop_ = nullptr;
    bool stopped_ = false;
    long code_ = kModalStopped;
};

}  // namespace velt
