// The gradients that are ready made.
#pragma once

#include "VELTRuntime/drawing/gradient_stops.h"

#include <span>
#include <string_view>

namespace velt {

struct PresetStop {
    std::uint32_t rgb;  // 0xRRGGBB
    double position;
};

struct GradientPreset {
    std::string_view name;
    BlendingMode mode;
    std::span<const PresetStop> colors;
    GradientStops stops() const;
};

/// The gradient of that name, or null.
VELT_EXPORT const GradientPreset* gradientPreset(std::string_view name);

}  // namespace velt
