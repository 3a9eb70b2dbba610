// Values that generated code of programs with windows makes again and again.
#pragma once

#include "VELTRuntime/VELTRuntimeUI.h"

#include "support/literals.h"

namespace example {

inline id newPoint(id x, id y) { return VELT_POINT_INIT(nil, "", x, y); }
inline id newSize(long width, long height) { return VELT_SIZE_INIT(nil, "", number(width), number(height)); }
inline id newRect(id x, id y, id width, id height) { return VELT_RECT_INIT(nil, "", x, y, width, height); }
inline id newRect(double x, double y, double width, double height) {
    return newRect(VELT_ID(x), VELT_ID(y), VELT_ID(width), VELT_ID(height));
}
inline id newColor(double red, double green, double blue, double alpha) {
    return VELT_NSCOLOR_INIT(nil, "", VELT_ID(red), VELT_ID(green), VELT_ID(blue), VELT_ID(alpha));
}
/// What a class answers.
template <class T> id ofClass() { return T::entry().object(); }
/// The application, as Application stands for it.
inline id application() { return &NSApplication::sharedApplication(); }

}  // namespace example
