// The colour of a gradient at a position, once more: the rules one after the other, slowly.
#pragma once

#include "VELTRuntime/drawing/gradient.h"
#include "support/values.h"

#include <cmath>
#include <vector>

namespace velt::test {

struct SlowStop {
    double red, green, blue, alpha, position;
};

struct SlowColor {
    double part[4];
};

inline void slowHsv(const SlowStop& stop, double& hue, double& saturation, double& value) {
    const double most = std::fmax(stop.red, std::fmax(stop.green, stop.blue));
    const double least = std::fmin(stop.red, std::fmin(stop.green, stop.blue));
    value = most;
    saturation = most == 0 ? 0 : 1 - least / most;
    hue = -1;
    if (most == least) return;
    const double d = most - least;
    if (stop.red == most) {
        hue = 60 * (stop.green - stop.blue) / d;
        if (stop.green < stop.blue) hue += 360;
    } else if (stop.green == most) {
        hue = 60 * (stop.blue - stop.red) / d + 120;
    } else {
        hue = 60 * (stop.red - stop.green) / d + 240;
    }
}

inline SlowColor slowRgb(double hue, double s, double v, double alpha) {
    while (hue >= 359) hue -= 359;
    const double h = hue / 60;
    const int i = static_cast<int>(std::floor(h)) % 6;
    const double f = h - i, p = v * (1 - s), q = v * (1 - f * s), t = v * (1 - (1 - f) * s);
    const SlowColor all[6] = {{{v, t, p, alpha}}, {{q, v, p, alpha}}, {{p, v, t, alpha}},
                              {{p, q, v, alpha}}, {{t, p, v, alpha}}, {{v, p, q, alpha}}};
    return all[i];
}

/// Stops in the order in which they were added.
inline SlowColor slowColorAt(const std::vector<SlowStop>& added, int mode, double position) {
    std::vector<SlowStop> list;
    for (const SlowStop& stop : added) {
        std::size_t place = 0;
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (list[i].position <= stop.position) place = i + 1;
        }
        list.insert(list.begin() + static_cast<std::ptrdiff_t>(place), stop);
    }
    if (list.empty()) return {{1, 1, 1, 1}};
    std::size_t at = 0;
    while (at + 1 < list.size() && list[at + 1].position < position) ++at;
    const SlowStop a = list[at], b = list[at + 1 < list.size() ? at + 1 : at];
    double share = 0;
    if (position > a.position) share = position >= b.position ? 1 : (position - a.position) / (b.position - a.position);
    const auto mix = [share](double from, double to) {
        return share == 0 ? from : share == 1 ? to : from + (to - from) * share;
    };
    if (mode != 1 && mode != 2) {
        return {{mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue), mix(a.alpha, b.alpha)}};
    }
    double h1 = 0, s1 = 0, v1 = 0, h2 = 0, s2 = 0, v2 = 0;
    slowHsv(a, h1, s1, v1);
    slowHsv(b, h2, s2, v2);
    if (h1 < 0 && h2 < 0) {
        h1 = h2 = 0;
    } else if (h1 < 0) {
        h1 = h2;
    } else if (h2 < 0) {
        h2 = h1;
    }
    if (mode == 1 && h1 > h2) h2 += 360;
    if (mode == 2 && h2 > h1) h1 += 360;
    return slowRgb(mix(h1, h2), mix(s1, s2), mix(v1, v2), mix(a.alpha, b.alpha));
}

inline id color(double red, double green, double blue, double alpha = 1) {
    return make<NSColor>(red, green, blue, alpha);
}
inline id gradientClass() { return PXGradient::entry().object(); }

/// A gradient of these stops, added in their order by the messages that programs send.
inline id gradientOf(const std::vector<SlowStop>& stops, int mode = 0) {
    id made = make<PXGradient>();
    for (const SlowStop& stop : stops) {
        made = send(made, "addColorStop:atPosition:", color(stop.red, stop.green, stop.blue, stop.alpha),
                    real(stop.position));
    }
    return send(made, "gradientWithBlendingMode:", integer(mode));
}

}  // namespace velt::test
