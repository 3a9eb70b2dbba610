// How windows and views move from one place to another.
#pragma once

#include "VELTRuntime/values/structures.h"

namespace velt {

/// Milliseconds that a moving window takes; 0 where nothing is to move.
int animationTime();

/// Where something is after that part of its way, from 0 to 1.
NSRect between(const NSRect& from, const NSRect& to, double part);

}  // namespace velt
