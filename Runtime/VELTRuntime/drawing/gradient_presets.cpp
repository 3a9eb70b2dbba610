#include "VELTRuntime/drawing/gradient_presets.h"

#include <algorithm>
#include <iterator>

namespace velt {

namespace {

#define VELT_GRADIENT_PRESET(name, mode, ...) constexpr PresetStop name[] = {__VA_ARGS__};
#include "VELTRuntime/drawing/gradient_presets.def"
#undef VELT_GRADIENT_PRESET

constexpr GradientPreset kPresets[] = {
#define VELT_GRADIENT_PRESET(name, mode, ...) {#name, BlendingMode::mode, name},
#include "VELTRuntime/drawing/gradient_presets.def"
#undef VELT_GRADIENT_PRESET
};

}  // namespace

const GradientPreset* gradientPreset(std::string_view name) {
    const auto* found = std::find_if(std::begin(kPresets), std::end(kPresets),
                                     [name](const GradientPreset& preset) { return preset.name == name; });
    return found == std::end(kPresets) ? nullptr : found;
}

GradientStops GradientPreset::stops() const {
    std::vector<ColorStop> result;
    for (const auto& [rgb, position] : colors) {
        constexpr double kMost = 255;
        result.push_back({{static_cast<double>(rgb >> 16) / kMost, static_cast<double>(rgb >> 8 & 0xFF) / kMost,
                           static_cast<double>(rgb & 0xFF) / kMost, 1},
                          position});
    }
    return GradientStops(std::move(result), mode);
}

}  // namespace velt
