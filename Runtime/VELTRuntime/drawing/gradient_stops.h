// The colours of a gradient: stops in the order of their positions, and the colour between them. Plain numbers: what
// draws asks here for every dot.
#pragma once

#include "VELTRuntime/export.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velt {

/// A colour of the light's red, green and blue with its opacity, each from 0 to 1.
struct GradientColor {
    double red = 0, green = 0, blue = 0, alpha = 0;
    bool operator==(const GradientColor&) const = default;
};

/// A colour and where along the gradient it is, 0 at the beginning and 1 at the end.
struct ColorStop {
    GradientColor color;
    double position = 0;
    bool operator==(const ColorStop&) const = default;
};

/// How colours between two stops are mixed. A number that is none of these mixes as linear does.
enum class BlendingMode : std::int32_t {
    Linear = 0,            // red, green and blue each for itself
    Chromatic = 1,         // along the circle of hues, upwards
    InverseChromatic = 2,  // along the circle of hues, downwards
};

class VELT_EXPORT GradientStops {
public:
    GradientStops() = default;
    /// These stops; those at the same position stay in their order.
    explicit GradientStops(std::vector<ColorStop> stops, BlendingMode mode = BlendingMode::Linear);
    /// Behind the stops at positions that are not greater, before all others.
    void add(const ColorStop& stop);
    void removeAt(std::size_t index);
    void setAlpha(double alpha);
    void setMode(BlendingMode mode);

    const std::vector<ColorStop>& stops() const { return stops_; }
    BlendingMode mode() const { return mode_; }
    /// The mode mixes hues.
    bool isChromatic() const { return mode_ == BlendingMode::Chromatic || mode_ == BlendingMode::InverseChromatic; }
    /// Every colour lets nothing through.
    bool isOpaque() const;
    /// The colour at a position; opaque white when there are no stops. Before the first and behind the last stop it is
    /// theirs.
    GradientColor colorAt(double position) const;
    bool operator==(const GradientStops& other) const { return mode_ == other.mode_ && stops_ == other.stops_; }

private:
    /// Red, green, blue and alpha, or hue in degrees, saturation, value and alpha.
    using Parts = std::array<double, 4>;
    /// What lies between a stop and its successor, or the last stop alone.
    struct Segment {
        double begin, end;
        Parts from, to;
    };
    void prepare();
    Segment segment(const ColorStop& from, const ColorStop& to) const;

    std::vector<ColorStop> stops_;
    BlendingMode mode_ = BlendingMode::Linear;
    // What follows from the two: made when they change, so that asking is quick and safe on any thread.
    std::vector<Segment> segments_;
};

}  // namespace velt
