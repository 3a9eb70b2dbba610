#include "VELTRuntime/drawing/gradient_stops.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace velt {

namespace {

constexpr double kCircle = 360;
constexpr double kSextant = 60;
constexpr double kNoHue = std::numeric_limits<double>::quiet_NaN();

struct Hsv {
    double hue, saturation, value;  // the hue in degrees, no number for greys
};

Hsv hsvOf(const GradientColor& color) {
    const auto [red, green, blue, alpha] = color;
    const double most = std::max({red, green, blue}), least = std::min({red, green, blue}), span = most - least;
    Hsv result{kNoHue, most == 0 ? 0 : 1 - least / most, most};
    if (most == least) return result;
    if (most == red) {
        result.hue = kSextant * (green - blue) / span + (green < blue ? kCircle : 0);
    } else if (most == green) {
        result.hue = kSextant * (blue - red) / span + 2 * kSextant;
    } else {
        result.hue = kSextant * (red - green) / span + 4 * kSextant;
    }
    return result;
}

GradientColor rgbOf(double hue, double saturation, double value, double alpha) {
    // The circle closes at 359 degrees; programs rely on it.
    constexpr double kModulus = 359;
    const double turned = hue < kModulus ? hue : std::fmod(hue, kModulus);
    const double height = turned / kSextant;
    const int sextant = static_cast<int>(height) % 6;
    const double rest = height - sextant;
    const double low = value * (1 - saturation), falling = value * (1 - rest * saturation),
                 rising = value * (1 - (1 - rest) * saturation);
    switch (sextant) {
    case 0: return {value, rising, low, alpha};
    case 1: return {falling, value, low, alpha};
    case 2: return {low, value, rising, alpha};
    case 3: return {low, falling, value, alpha};
    case 4: return {rising, low, value, alpha};
    default: return {value, low, falling, alpha};
    }
}

}  // namespace

GradientStops::GradientStops(std::vector<ColorStop> stops, BlendingMode mode) : stops_(std::move(stops)), mode_(mode) {
    std::stable_sort(stops_.begin(), stops_.end(),
                     [](const ColorStop& a, const ColorStop& b) { return a.position < b.position; });
    prepare();
}

void GradientStops::add(const ColorStop& stop) {
    const auto behind = std::upper_bound(stops_.begin(), stops_.end(), stop.position,
                                         [](double position, const ColorStop& at) { return position < at.position; });
    stops_.insert(behind, stop);
    prepare();
}

void GradientStops::removeAt(std::size_t index) {
    stops_.erase(stops_.begin() + static_cast<std::ptrdiff_t>(index));
    prepare();
}

void GradientStops::setAlpha(double alpha) {
    for (ColorStop& stop : stops_) stop.color.alpha = alpha;
    prepare();
}

void GradientStops::setMode(BlendingMode mode) {
    mode_ = mode;
    prepare();
}

bool GradientStops::isOpaque() const {
    return std::all_of(stops_.begin(), stops_.end(), [](const ColorStop& stop) { return stop.color.alpha >= 1; });
}

GradientStops::Segment GradientStops::segment(const ColorStop& from, const ColorStop& to) const {
    const GradientColor &a = from.color, &b = to.color;
    if (!isChromatic()) {
        return {from.position, to.position, {a.red, a.green, a.blue, a.alpha}, {b.red, b.green, b.blue, b.alpha}};
    }
    Hsv first = hsvOf(a), second = hsvOf(b);
    if (std::isnan(first.hue)) first.hue = std::isnan(second.hue) ? 0 : second.hue;
    if (std::isnan(second.hue)) second.hue = first.hue;
    if (mode_ == BlendingMode::Chromatic && first.hue > second.hue) second.hue += kCircle;
    if (mode_ == BlendingMode::InverseChromatic && second.hue > first.hue) first.hue += kCircle;
    return {from.position,
            to.position,
            {first.hue, first.saturation, first.value, a.alpha},
            {second.hue, second.saturation, second.value, b.alpha}};
}

void GradientStops::prepare() {
    segments_.clear();
    for (std::size_t i = 0; i < stops_.size(); ++i) {
        segments_.push_back(segment(stops_[i], stops_[std::min(i + 1, stops_.size() - 1)]));
    }
}

GradientColor GradientStops::colorAt(double position) const {
    if (segments_.empty()) return {1, 1, 1, 1};
    // The last segment that begins below the position, or the first: without branches, since positions come in no
    // order.
    const Segment* found = segments_.data();
    for (std::size_t left = segments_.size(); left > 1;) {
        const std::size_t half = left / 2;
        found += found[half].begin < position ? half : 0;
        left -= half;
    }
    Parts parts = found->from;
    if (position >= found->end && position > found->begin) {
        parts = found->to;
    } else if (position > found->begin) {
        const double share = (position - found->begin) / (found->end - found->begin);
        for (std::size_t i = 0; i < parts.size(); ++i) parts[i] += (found->to[i] - found->from[i]) * share;
    }
    if (isChromatic()) return rgbOf(parts[0], parts[1], parts[2], parts[3]);
    return {parts[0], parts[1], parts[2], parts[3]};
}

}  // namespace velt
