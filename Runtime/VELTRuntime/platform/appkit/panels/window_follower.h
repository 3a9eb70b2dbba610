// What belongs to a window and goes with it: sheets, drawers, the session that a window is shown in.
#pragma once

#include "VELTRuntime/export.h"

class NSWindow;

namespace velt {

enum class LeaderChange {
    Moved,  // or resized
    Shown,
    Hidden,  // ordered out or miniaturized
    Closed,
    Gone,  // the window itself is going: nothing of it may be used
};

/// Hears of one window at a time. Neither keeps the other alive.
class WindowFollower {
public:
    WindowFollower() = default;
    WindowFollower(const WindowFollower&) = delete;
    WindowFollower& operator=(const WindowFollower&) = delete;
    virtual void leaderChanged(LeaderChange change) = 0;
    NSWindow* leader() const { return leader_; }

protected:
    virtual ~WindowFollower();
    /// From now on that window is followed; null for none.
    void follow(NSWindow* leader);

private:
    friend void tellFollowers(NSWindow& window, LeaderChange change);
    NSWindow* leader_ = nullptr;
};

/// Tells all that follow a window, those that came last first.
void tellFollowers(NSWindow& window, LeaderChange change);

}  // namespace velt
