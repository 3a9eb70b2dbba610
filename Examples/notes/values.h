// Values that generated code makes again and again.
#pragma once

#include "VELTRuntime/VELTRuntimeUI.h"

namespace notes {

inline id number(long value) { return VELT_ID(value); }
inline id boolean(bool value) { return VELT_ID(static_cast<BOOL>(value)); }
inline id newRect(id x, id y, id width, id height) { return VELT_RECT_INIT(nil, "", x, y, width, height); }
inline id newSize(long width, long height) { return VELT_SIZE_INIT(nil, "", number(width), number(height)); }
inline id newColor(double red, double green, double blue, double alpha) {
    return VELT_NSCOLOR_INIT(nil, "", VELT_ID(red), VELT_ID(green), VELT_ID(blue), VELT_ID(alpha));
}
/// What a class answers.
template <class T> id ofClass() { return T::entry().object(); }
/// The application, as Application stands for it.
inline id application() { return &NSApplication::sharedApplication(); }

}  // namespace notes
