#include "VELTRuntime/platform/appkit/resizing.h"

#include <algorithm>
#include <array>

namespace velt {

namespace {

/// Before, the extent itself, behind: along one axis.
using Parts = std::array<double, 3>;

void share(Parts& parts, const std::array<bool, 3>& givesWay, double change) {
    double whole = 0;
    int count = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!givesWay[i]) continue;
        whole += std::max(parts[i], 0.0);
        ++count;
    }
    if (count == 0) return;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (givesWay[i]) parts[i] += whole > 0 ? change * std::max(parts[i], 0.0) / whole : change / count;
    }
}

void resizeAxis(double& origin, double& extent, double from, double to, bool before, bool itself, bool behind) {
    Parts parts{origin, extent, from - origin - extent};
    share(parts, {before, itself, behind}, to - from);
    origin = parts[0];
    extent = std::max(parts[1], 0.0);
}

}  // namespace

NSRect resizedFrame(NSRect frame, NSSize from, NSSize to, unsigned long mask) {
    resizeAxis(frame.origin.x, frame.size.width, from.width, to.width, mask & kMinXMargin, mask & kWidthSizable,
               mask & kMaxXMargin);
    resizeAxis(frame.origin.y, frame.size.height, from.height, to.height, mask & kMinYMargin, mask & kHeightSizable,
               mask & kMaxYMargin);
    return frame;
}

}  // namespace velt
