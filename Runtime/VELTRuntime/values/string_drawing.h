// What strings answer about drawing themselves; the library with windows does it.
#pragma once

#include "VELTRuntime/values/string.h"

namespace velt {

/// Adds "drawAtPoint:withAttributes:", "drawInRect:withAttributes:" and "sizeWithAttributes:".
void addDrawingMethods(ClassBuilder<NSString>& c);

}  // namespace velt
