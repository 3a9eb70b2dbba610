// How long the desktop wants things to move.
#pragma once

namespace velt {

/// Milliseconds that a moving window takes; 0 where nothing is to move.
int animationTime();

}  // namespace velt
