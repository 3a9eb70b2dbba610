// Values that generated code makes again and again.
#pragma once

#include "VELTRuntime/VELTRuntimeUI.h"

namespace reader {

inline id number(long value) { return VELT_ID(value); }
inline id boolean(bool value) { return VELT_ID(static_cast<BOOL>(value)); }
inline id newRect(long x, long y, long width, long height) {
    return VELT_RECT_INIT(nil, "", number(x), number(y), number(width), number(height));
}
inline id newSize(long width, long height) { return VELT_SIZE_INIT(nil, "", number(width), number(height)); }
/// first.BlendedColor(fraction, second)
inline id blended(const id& first, const id& fraction, const id& second) {
    return velt::send(first, "blendedColorWithFraction:ofColor:", fraction, second);
}
/// What a class answers.
template <class T> id ofClass() { return T::entry().object(); }
/// The application, as Application stands for it.
inline id application() { return &NSApplication::sharedApplication(); }

}  // namespace reader
