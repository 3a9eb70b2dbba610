// Values of programs with windows that generated code makes again and again.
#pragma once

#include "VELTRuntime/VELTRuntimeUI.h"
#include "editor/values.h"

namespace editor {

inline id newRect(double x, double y, double width, double height) {
    return VELT_RECT_INIT(nil, "", VELT_ID(x), VELT_ID(y), VELT_ID(width), VELT_ID(height));
}
inline id newSize(long width, long height) { return VELT_SIZE_INIT(nil, "", number(width), number(height)); }
/// What a class answers.
template <class T> id ofClass() { return T::entry().object(); }
/// The application, as Application stands for it.
inline id application() { return &NSApplication::sharedApplication(); }

}  // namespace editor
