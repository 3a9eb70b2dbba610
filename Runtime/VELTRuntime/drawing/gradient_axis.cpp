#include "VELTRuntime/drawing/gradient_axis.h"

#include "VELTRuntime/platform/appkit/single_precision.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velt {

namespace {

/// Angles are turned to radians with the precision of a Single; programs rely on it.
double radians(double degrees) { return toSingle(degrees * std::numbers::pi / 180); }

}  // namespace

GradientAxis axisAcross(NSRect rect, double angle) {
    const auto [origin, size] = rect;
    if (angle == 0) return {origin, {origin.x + size.width, origin.y}};
    if (angle == 90) return {origin, {origin.x, origin.y + size.height}};
    const double a = radians(angle);
    double dx = 0, dy = 0;
    if (std::abs(std::tan(a)) <= 1) {
        const double slope = std::abs(std::tan(a));
        const double length =
            size.width / std::abs(std::cos(a)) + (size.height - slope * size.width) * std::abs(std::sin(a));
        dx = length * std::cos(a);
        dy = length * std::sin(a);
    } else {
        const double b = radians(angle - 90), slope = std::abs(std::tan(b));
        const double length =
            size.height / std::abs(std::cos(b)) + (size.width - slope * size.height) * std::abs(std::sin(b));
        dx = -length * std::sin(b);
        dy = length * std::cos(b);
    }
    const NSPoint center{origin.x + size.width / 2, origin.y + size.height / 2};
    return {{center.x - dx / 2, center.y - dy / 2}, {center.x + dx / 2, center.y + dy / 2}};
}

GradientCircles circlesWithin(NSRect rect) {
    return {{rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2},
            1,
            std::max(rect.size.width, rect.size.height) * 0.5};
}

}  // namespace velt
