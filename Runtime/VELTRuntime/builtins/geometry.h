// Points, sizes, rectangles and ranges. Coordinates go through VELT_CBYTE: fractions are cut off when a geometric value
// is made or a field set. Programs rely on it.
#pragma once

#include "VELTRuntime/values/structures.h"

/// New geometric values; the first two arguments are ignored.
VELT_EXPORT id VELT_POINT_INIT(const id& owner, const char* action, const id& x, const id& y);
VELT_EXPORT id VELT_SIZE_INIT(const id& owner, const char* action, const id& width, const id& height);
VELT_EXPORT id VELT_RECT_INIT(const id& owner, const char* action, const id& x, const id& y, const id& width,
                              const id& height);
VELT_EXPORT id VELT_RANGE_INIT(const id& owner, const char* action, const id& location, const id& length);

// One field each, three forms. The setter makes a new value with the field changed, stores it in the caller's variable
// and returns it; the getters return the field. They raise "VLCastException" with "'Point' expected" and so on for
// another kind of value, and leave the variable as it was.
#define VELT_GEOMETRY_FIELD(name, structure)                                                                           \
    VELT_EXPORT id VELT_##name(id* variable, const id& field);                                                         \
    VELT_EXPORT id VELT_##name(const id& value);                                                                       \
    VELT_EXPORT id VELT_##name(structure value);
VELT_GEOMETRY_FIELD(POINT_X, NSPoint)
VELT_GEOMETRY_FIELD(POINT_Y, NSPoint)
VELT_GEOMETRY_FIELD(SIZE_WIDTH, NSSize)
VELT_GEOMETRY_FIELD(SIZE_HEIGHT, NSSize)
VELT_GEOMETRY_FIELD(RECT_ORIGIN, NSRect)
VELT_GEOMETRY_FIELD(RECT_SIZE, NSRect)
VELT_GEOMETRY_FIELD(RANGE_LOCATION, NSRange)
VELT_GEOMETRY_FIELD(RANGE_LENGTH, NSRange)
#undef VELT_GEOMETRY_FIELD

/// The rectangle moved by (dx, dy); the rectangle with its edges moved inward by dx and dy.
VELT_EXPORT id VELT_OFFSETRECT(const id& rect, const id& dx, const id& dy);
VELT_EXPORT id VELT_INSETRECT(const id& rect, const id& dx, const id& dy);
/// The overlap of two rectangles; the zero rectangle when there is none.
VELT_EXPORT id VELT_INTERSECTIONRECT(const id& a, const id& b);
/// The smallest rectangle around both; empty ones do not count.
VELT_EXPORT id VELT_UNIONRECT(const id& a, const id& b);
/// The point lies in the rectangle; its upper and right edges do not belong to it. Boolean.
VELT_EXPORT id VELT_POINTINRECT(const id& point, const id& rect);
/// b is not empty and lies wholly in a. Boolean.
VELT_EXPORT id VELT_CONTAINSRECT(const id& a, const id& b);
/// Both are not empty and overlap by more than an edge. Boolean.
VELT_EXPORT id VELT_INTERSECTSRECT(const id& a, const id& b);
/// Width or height are not positive. Boolean.
VELT_EXPORT id VELT_ISEMPTYRECT(const id& rect);
/// The main screen without the desktop's panels; the zero rectangle when there is no screen.
VELT_EXPORT id VELT_SCREENRECT();
