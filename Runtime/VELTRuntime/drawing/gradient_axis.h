// Where a gradient runs within the rectangle that it fills.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/values/structures.h"

namespace velt {

/// From where a gradient's position is 0 to where it is 1, in the rectangle's coordinates.
struct GradientAxis {
    NSPoint from, to;
};

/// The axis that crosses a rectangle at an angle in degrees, against the clock from the x axis: as long as the
/// rectangle is in that direction, through its centre.
VELT_EXPORT GradientAxis axisAcross(NSRect rect, double angle);

/// Two circles around one centre: the position is 0 on the inner one and 1 on the outer one.
struct GradientCircles {
    NSPoint center;
    double inner, outer;
    /// The position at a distance from the centre.
    double positionAt(double distance) const {
        if (inner == outer) return distance < inner ? 0 : 1;
        return (distance - inner) / (outer - inner);
    }
};

/// From one dot in the middle of a rectangle to half of its longer side.
VELT_EXPORT GradientCircles circlesWithin(NSRect rect);

}  // namespace velt
