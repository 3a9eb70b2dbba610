#include "VELTRuntime/builtins/geometry.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/providers.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"

#include <algorithm>

namespace {

using Shape = NSValue::Shape;

double coordinate(const id& value) { return static_cast<double>(VELT_CBYTE(value)); }
unsigned long position(const id& value) { return static_cast<unsigned long>(VELT_CBYTE(value)); }

/// How a structure is found behind a value, and what its cast failure says.
template <class Structure> struct Kind;
template <> struct Kind<NSPoint> {
    static constexpr Shape kShape = Shape::Point;
    static constexpr const char* kReason = "'Point' expected";
    static NSPoint of(const NSValue& value) { return value.point(); }
};
template <> struct Kind<NSSize> {
    static constexpr Shape kShape = Shape::Size;
    static constexpr const char* kReason = "'Size' expected";
    static NSSize of(const NSValue& value) { return value.size(); }
};
template <> struct Kind<NSRect> {
    static constexpr Shape kShape = Shape::Rect;
    static constexpr const char* kReason = "'Rect' expected";
    static NSRect of(const NSValue& value) { return value.rect(); }
};
template <> struct Kind<NSRange> {
    static constexpr Shape kShape = Shape::Range;
    static constexpr const char* kReason = "'Range' expected";
    static NSRange of(const NSValue& value) { return value.range(); }
};

template <class Structure> Structure structureIn(const id& value) {
    const NSValue* structure = velt::structureOf(value, Kind<Structure>::kShape);
    if (!structure) velt::raiseCast(Kind<Structure>::kReason);
    return Kind<Structure>::of(*structure);
}

bool isEmpty(const NSRect& r) { return !(r.size.width > 0 && r.size.height > 0); }
double maxX(const NSRect& r) { return r.origin.x + r.size.width; }
double maxY(const NSRect& r) { return r.origin.y + r.size.height; }
NSRect rectFromEdges(double left, double bottom, double right, double top) {
    return {{left, bottom}, {right - left, top - bottom}};
}

NSRect intersection(const NSRect& a, const NSRect& b) {
    if (isEmpty(a) || isEmpty(b)) return {};
    const NSRect overlap = rectFromEdges(std::max(a.origin.x, b.origin.x), std::max(a.origin.y, b.origin.y),
                                         std::min(maxX(a), maxX(b)), std::min(maxY(a), maxY(b)));
    return isEmpty(overlap) ? NSRect{} : overlap;
}

}  // namespace

id VELT_POINT_INIT(const id&, const char*, const id& x, const id& y) {
    const double first = coordinate(x);
    return VELT_ID(NSPoint{first, coordinate(y)});
}
id VELT_SIZE_INIT(const id&, const char*, const id& width, const id& height) {
    const double first = coordinate(width);
    return VELT_ID(NSSize{first, coordinate(height)});
}
id VELT_RECT_INIT(const id&, const char*, const id& x, const id& y, const id& width, const id& height) {
    const double left = coordinate(x), bottom = coordinate(y), wide = coordinate(width);
    return VELT_ID(NSRect{{left, bottom}, {wide, coordinate(height)}});
}
id VELT_RANGE_INIT(const id&, const char*, const id& location, const id& length) {
    const unsigned long first = position(location);
    return VELT_ID(NSRange{first, position(length)});
}

#define VELT_GEOMETRY_FIELD(name, structure, member, convert)                                                          \
    id VELT_##name(id* variable, const id& field) {                                                                    \
        structure changed = structureIn<structure>(*variable);                                                         \
        changed.member = convert(field);                                                                               \
        *variable = VELT_ID(changed);                                                                                  \
        return *variable;                                                                                              \
    }                                                                                                                  \
    id VELT_##name(const id& value) { return VELT_##name(structureIn<structure>(value)); }                             \
    id VELT_##name(structure value) { return VELT_ID(value.member); }

VELT_GEOMETRY_FIELD(POINT_X, NSPoint, x, coordinate)
VELT_GEOMETRY_FIELD(POINT_Y, NSPoint, y, coordinate)
VELT_GEOMETRY_FIELD(SIZE_WIDTH, NSSize, width, coordinate)
VELT_GEOMETRY_FIELD(SIZE_HEIGHT, NSSize, height, coordinate)
VELT_GEOMETRY_FIELD(RECT_ORIGIN, NSRect, origin, VELT_CNSPOINT)
VELT_GEOMETRY_FIELD(RECT_SIZE, NSRect, size, VELT_CNSSIZE)
VELT_GEOMETRY_FIELD(RANGE_LOCATION, NSRange, location, position)
VELT_GEOMETRY_FIELD(RANGE_LENGTH, NSRange, length, position)

id VELT_OFFSETRECT(const id& rect, const id& dx, const id& dy) {
    NSRect r = VELT_CNSRECT(rect);
    r.origin.x += coordinate(dx);
    r.origin.y += coordinate(dy);
    return VELT_ID(r);
}

id VELT_INSETRECT(const id& rect, const id& dx, const id& dy) {
    const NSRect r = VELT_CNSRECT(rect);
    const double x = coordinate(dx), y = coordinate(dy);
    return VELT_ID(NSRect{{r.origin.x + x, r.origin.y + y}, {r.size.width - 2 * x, r.size.height - 2 * y}});
}

id VELT_INTERSECTIONRECT(const id& a, const id& b) {
    const NSRect first = VELT_CNSRECT(a);
    return VELT_ID(intersection(first, VELT_CNSRECT(b)));
}

id VELT_UNIONRECT(const id& a, const id& b) {
    const NSRect p = VELT_CNSRECT(a), q = VELT_CNSRECT(b);
    if (isEmpty(p)) return VELT_ID(isEmpty(q) ? NSRect{} : q);
    if (isEmpty(q)) return VELT_ID(p);
    return VELT_ID(rectFromEdges(std::min(p.origin.x, q.origin.x), std::min(p.origin.y, q.origin.y),
                                 std::max(maxX(p), maxX(q)), std::max(maxY(p), maxY(q))));
}

id VELT_POINTINRECT(const id& point, const id& rect) {
    const NSPoint p = VELT_CNSPOINT(point);
    const NSRect r = VELT_CNSRECT(rect);
    return velt::boxResult(r.origin.x <= p.x && p.x < maxX(r) && r.origin.y <= p.y && p.y < maxY(r));
}

id VELT_CONTAINSRECT(const id& a, const id& b) {
    const NSRect p = VELT_CNSRECT(a), q = VELT_CNSRECT(b);
    return velt::boxResult(!isEmpty(q) && p.origin.x <= q.origin.x && p.origin.y <= q.origin.y && maxX(q) <= maxX(p) &&
                           maxY(q) <= maxY(p));
}

id VELT_INTERSECTSRECT(const id& a, const id& b) {
    const NSRect first = VELT_CNSRECT(a);
    return velt::boxResult(!isEmpty(intersection(first, VELT_CNSRECT(b))));
}

id VELT_ISEMPTYRECT(const id& rect) {
    const NSRect r = VELT_CNSRECT(rect);
    return velt::boxResult(r.size.width <= 0 || r.size.height <= 0);
}

id VELT_SCREENRECT() {
    const auto frame = velt::providers().visibleScreenFrame;
    return VELT_ID(frame ? frame() : NSRect{});
}
