#include "VELTRuntime/platform/appkit/panels/window_follower.h"

#include <algorithm>
#include <vector>

namespace velt {

namespace {

std::vector<WindowFollower*>& followers() {
    static auto& all = *new std::vector<WindowFollower*>;  // windows may go after static objects
    return all;
}

}  // namespace

WindowFollower::~WindowFollower() { follow(nullptr); }

void WindowFollower::follow(NSWindow* leader) {
    std::erase(followers(), this);
    leader_ = leader;
    if (leader) followers().push_back(this);
}

void tellFollowers(NSWindow& window, LeaderChange change) {
    if (followers().empty()) return;
    std::vector<WindowFollower*> told = followers();
    for (auto at = told.rbegin(); at != told.rend(); ++at) {
        // One that was told before may have ended it.
        const bool stillThere = std::find(followers().begin(), followers().end(), *at) != followers().end();
        if (!stillThere || (*at)->leader_ != &window) continue;
        WindowFollower& follower = **at;
        if (change == LeaderChange::Gone) follower.follow(nullptr);
        follower.leaderChanged(change);
    }
}

}  // namespace velt
