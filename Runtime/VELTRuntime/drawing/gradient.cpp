#include "VELTRuntime/drawing/gradient.h"

#include "VELTRuntime/drawing/gradient_presets.h"
#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"

#include <algorithm>
#include <cmath>
#include <string>

using velt::BlendingMode;
using velt::ColorStop;
using velt::GradientColor;
using velt::GradientStops;
using velt::Ref;

namespace {

/// Parts of a colour as it is at this moment; all zero for nil.
GradientColor partsOf(const NSColor* color) {
    if (!color) return {};
    const auto [red, green, blue, alpha] = color->components();
    return {red, green, blue, alpha};
}

id colorOf(const GradientColor& parts) { return velt::make<NSColor>(parts.red, parts.green, parts.blue, parts.alpha); }

id gradientOf(GradientStops&& stops) { return velt::make<PXGradient>(std::move(stops)); }

[[noreturn]] void raiseOutside(const PXGradient& gradient, const std::string& what) {
    velt::raise(velt::kRangeException, "-[" + gradient.isa().name() + " " + what);
}

}  // namespace

Ref<PXGradient> PXGradient::between(const NSColor* beginning, const NSColor* ending) {
    return velt::make<PXGradient>(GradientStops({{partsOf(beginning), 0}, {partsOf(ending), 1}}));
}

Ref<PXGradient> PXGradient::preset(std::string_view name) {
    const velt::GradientPreset* found = velt::gradientPreset(name);
    return found ? velt::make<PXGradient>(found->stops()) : Ref<PXGradient>();
}

id PXGradient::copy() const { return id(const_cast<PXGradient*>(this)); }

bool PXGradient::isEqual(const id& other) const {
    return velt::is<PXGradient>(other) && velt::as<PXGradient>(other)->stops_ == stops_;
}

std::size_t PXGradient::hash() const {
    std::size_t result = stops_.stops().size();
    const auto mix = [&result](double part) { result = result * 31 + std::hash<double>()(part); };
    for (const auto& [color, position] : stops_.stops()) {
        for (const double part : {color.red, color.green, color.blue, color.alpha, position}) mix(part);
    }
    return result;
}

id PXGradient::withAlphaComponent(double alpha) const {
    GradientStops stops = stops_;
    stops.setAlpha(alpha > 0 ? std::min(alpha, 1.0) : 0);
    return gradientOf(std::move(stops));
}

id PXGradient::withBlendingMode(long mode) const {
    GradientStops stops = stops_;
    stops.setMode(static_cast<BlendingMode>(mode));
    return gradientOf(std::move(stops));
}

id PXGradient::addColorStop(const NSColor* color, double position) const {
    if (!std::isfinite(position)) {
        velt::raise(velt::kInvalidArgumentException,
                    "'PXGradient' addColorStop:atPosition:: the position is not a finite number");
    }
    GradientStops stops = stops_;
    stops.add({partsOf(color), position});
    return gradientOf(std::move(stops));
}

id PXGradient::colorStopRemoved(std::size_t index) const {
    GradientStops stops = stops_;
    stops.removeAt(index);
    return gradientOf(std::move(stops));
}

id PXGradient::removeColorStopAtIndex(long index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= stops_.stops().size()) {
        raiseOutside(*this, "removeColorStopAtIndex:]: index (" + std::to_string(index) + ") beyond bounds");
    }
    return colorStopRemoved(static_cast<std::size_t>(index));
}

id PXGradient::removeColorStopAtPosition(double position) const {
    const std::vector<ColorStop>& list = stops_.stops();
    const auto found =
        std::find_if(list.begin(), list.end(), [position](const ColorStop& stop) { return stop.position == position; });
    if (found == list.end()) {
        raiseOutside(*this,
                     "removeColorStopAtPosition:]: no such colorStop at position (" + std::to_string(position) + ")");
    }
    return colorStopRemoved(static_cast<std::size_t>(found - list.begin()));
}

id PXGradient::colorStopAtIndex(long index) const {
    const std::size_t count = stops_.stops().size();
    if (index < 0 || static_cast<std::size_t>(index) >= count) {
        velt::raiseRange("'PXGradient' colorStopAtIndex:", index, count);
    }
    return colorOf(stops_.stops()[static_cast<std::size_t>(index)].color);
}

id PXGradient::colorAtPosition(double position) const { return colorOf(stops_.colorAt(position)); }

void PXGradient::describe(velt::ClassBuilder<PXGradient>& c) {
    c.property("blendingMode", &PXGradient::blendingMode)
        .method("gradientWithAlphaComponent:", &PXGradient::withAlphaComponent)
        .method("gradientWithBlendingMode:", &PXGradient::withBlendingMode)
        .method("addColorStop:atPosition:",
                [](const id& self, const id* a) {
                    return velt::as<PXGradient>(self)->addColorStop(velt::to<NSColor>(a[0]), VELT_CDOUBLE(a[1]));
                })
        .method("removeColorStopAtIndex:", &PXGradient::removeColorStopAtIndex)
        .method("removeColorStopAtPosition:", &PXGradient::removeColorStopAtPosition)
        .method("colorStopAtIndex:", &PXGradient::colorStopAtIndex)
        .method("colorAtPosition:", &PXGradient::colorAtPosition)
        .method("fillRect:angle:", &PXGradient::fillRect)
        .method("radialFillRect:", &PXGradient::radialFillRect)
        .method("drawSwatchInRect:", &PXGradient::drawSwatchInRect)
        .method("encodeWithCoder:", &PXGradient::encodeWithCoder)
        .method("initWithCoder:", &PXGradient::initWithCoder)
        .method("copyWithZone:", [](const id& self, const id*) { return velt::copy(self); })
        .classMethod("gradientWithBeginningColor:endingColor:", [](const id&, const id* a) {
            return id(between(velt::to<NSColor>(a[0]), velt::to<NSColor>(a[1])));
        });
#define VELT_GRADIENT_PRESET(name, mode, ...)                                                                          \
    c.classMethod(#name, [](const id&, const id*) { return id(preset(#name)); });
#include "VELTRuntime/drawing/gradient_presets.def"
#undef VELT_GRADIENT_PRESET
}
