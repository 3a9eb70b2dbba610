// The values of the examples by their short names, and one of this example's own.
#pragma once

#include "support/window_values.h"

namespace reader {

using namespace example;

/// first.BlendedColor(fraction, second)
inline id blended(const id& first, const id& fraction, const id& second) {
    return velt::send(first, "blendedColorWithFraction:ofColor:", fraction, second);
}

}  // namespace reader
