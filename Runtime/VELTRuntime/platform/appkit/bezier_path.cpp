#include "VELTRuntime/platform/appkit/bezier_path.h"

#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/exception.h"

#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

using velt::GraphicsContext;
using velt::qtPoint;
using velt::Ref;

namespace {

/// Of no negative width and height.
QRectF upright(NSRect rect) { return velt::qtRect(rect).normalized(); }
NSRect rectValue(const QRectF& rect) { return {{rect.x(), rect.y()}, {rect.width(), rect.height()}}; }

/// While it exists, the painter draws as a program asked: smoothly unless it said otherwise.
class Drawing {
public:
    explicit Drawing(GraphicsContext& context) : painter_(context.painter()) {
        painter_.save();
        painter_.setRenderHint(QPainter::Antialiasing, context.antialiases);
    }
    ~Drawing() { painter_.restore(); }
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

private:
    QPainter& painter_;
};

}  // namespace

NSBezierPath::NSBezierPath() : path_(std::make_unique<QPainterPath>()) {}
NSBezierPath::~NSBezierPath() = default;

id NSBezierPath::copy() const {
    Ref<NSBezierPath> made = velt::make<NSBezierPath>();
    *made->path_ = *path_;
    made->lineWidth_ = lineWidth_;
    made->miterLimit_ = miterLimit_;
    made->dashPhase_ = dashPhase_;
    made->cap_ = cap_;
    made->join_ = join_;
    made->windingRule_ = windingRule_;
    made->dash_ = dash_;
    return made;
}

// Building.

void NSBezierPath::requirePoint(const char* operation) const {
    if (isEmpty()) velt::raise("NSGenericException", std::string(operation) + ": the path has no current point");
}

void NSBezierPath::moveTo(NSPoint point) { path_->moveTo(qtPoint(point)); }
void NSBezierPath::lineTo(NSPoint point) {
    requirePoint("lineToPoint:");
    path_->lineTo(qtPoint(point));
}
void NSBezierPath::curveTo(NSPoint end, NSPoint control1, NSPoint control2) {
    requirePoint("curveToPoint:controlPoint1:controlPoint2:");
    path_->cubicTo(qtPoint(control1), qtPoint(control2), qtPoint(end));
}
void NSBezierPath::relativeMoveTo(NSPoint step) {
    requirePoint("relativeMoveToPoint:");
    path_->moveTo(path_->currentPosition() + qtPoint(step));
}
void NSBezierPath::relativeLineTo(NSPoint step) {
    requirePoint("relativeLineToPoint:");
    path_->lineTo(path_->currentPosition() + qtPoint(step));
}
void NSBezierPath::closePath() {
    if (!isEmpty()) path_->closeSubpath();
}
void NSBezierPath::removeAllPoints() { *path_ = QPainterPath(); }
void NSBezierPath::append(NSBezierPath* other) {
    if (other) path_->addPath(QPainterPath(*other->path_));
}
void NSBezierPath::appendRect(NSRect rect) { path_->addRect(upright(rect)); }
void NSBezierPath::appendOval(NSRect rect) { path_->addEllipse(upright(rect)); }
void NSBezierPath::appendRoundedRect(NSRect rect, double xRadius, double yRadius) {
    path_->addRoundedRect(upright(rect), xRadius, yRadius);
}
void NSBezierPath::appendArc(NSPoint center, double radius, double start, double end, bool clockwise) {
    constexpr double kTurn = 360;
    double sweep = end - start;
    if (!std::isfinite(sweep)) return;
    if (clockwise) {
        sweep = sweep >= -kTurn ? (sweep > 0 ? std::fmod(sweep, kTurn) - kTurn : sweep) : -kTurn;
    } else {
        sweep = sweep <= kTurn ? (sweep < 0 ? std::fmod(sweep, kTurn) + kTurn : sweep) : kTurn;
    }
    // The toolkit counts angles for a y that points down.
    const QRectF around(center.x - radius, center.y - radius, 2 * radius, 2 * radius);
    if (isEmpty()) path_->arcMoveTo(around, -start);
    path_->arcTo(around, -start, -sweep);
}
void NSBezierPath::appendArcIn(NSPoint corner, NSPoint toward, double radius) {
    requirePoint("appendBezierPathWithArcFromPoint:toPoint:radius:");
    const QPointF at = qtPoint(corner), back = path_->currentPosition() - at, on = qtPoint(toward) - at;
    const double backLength = std::hypot(back.x(), back.y()), onLength = std::hypot(on.x(), on.y());
    const double turn = back.x() * on.y() - back.y() * on.x();
    if (!(radius > 0) || std::abs(turn) <= 1e-9 * backLength * onLength) {
        path_->lineTo(at);
        return;
    }
    // The circle touches both lines at the same distance from the corner.
    const QPointF in = back / backLength, out = on / onLength;
    const double between = std::atan2(std::abs(turn), QPointF::dotProduct(back, on));
    const QPointF first = at + in * (radius / std::tan(between / 2)),
                  last = at + out * (radius / std::tan(between / 2));
    const QPointF middle = in + out;
    const QPointF center = at + middle / std::hypot(middle.x(), middle.y()) * (radius / std::sin(between / 2));
    const auto angleOf = [&](QPointF point) {
        return std::atan2(point.y() - center.y(), point.x() - center.x()) * 180 / std::numbers::pi;
    };
    path_->lineTo(first);
    appendArc({center.x(), center.y()}, radius, angleOf(first), angleOf(last), turn > 0);
}

// Asking.

bool NSBezierPath::isEmpty() const { return path_->elementCount() == 0; }
long NSBezierPath::elementCount() const {
    long count = 0;
    // The toolkit counts the control points of a curve too.
    for (int i = 0; i < path_->elementCount(); ++i) {
        if (path_->elementAt(i).type != QPainterPath::CurveToDataElement) ++count;
    }
    return count;
}
NSPoint NSBezierPath::currentPoint() const {
    requirePoint("currentPoint");
    const QPointF point = path_->currentPosition();
    return {point.x(), point.y()};
}
NSRect NSBezierPath::bounds() const { return isEmpty() ? NSRect{} : rectValue(path_->boundingRect()); }
NSRect NSBezierPath::controlPointBounds() const { return isEmpty() ? NSRect{} : rectValue(path_->controlPointRect()); }
bool NSBezierPath::containsPoint(NSPoint point) const { return filled().contains(qtPoint(point)); }

QPainterPath NSBezierPath::filled() const {
    QPainterPath path = *path_;
    path.setFillRule(windingRule_ == 0 ? Qt::WindingFill : Qt::OddEvenFill);
    return path;
}

void NSBezierPath::setLineDash(const id& lengths, long count, double phase) {
    const NSArray* array = velt::arrayOf(lengths);
    const auto asked = array ? std::clamp<long>(count, 0, static_cast<long>(array->count())) : 0;
    std::vector<double> pattern;
    for (long i = 0; i < asked; ++i) pattern.push_back(std::max(VELT_CDOUBLE(array->at(i)), 0.0));
    // An odd pattern is gone through twice, so that strokes and gaps come in turn. One without length is none.
    if (pattern.size() % 2 == 1) pattern.insert(pattern.end(), pattern.begin(), pattern.end());
    if (std::none_of(pattern.begin(), pattern.end(), [](double length) { return length > 0; })) pattern.clear();
    dash_ = std::move(pattern);
    dashPhase_ = phase;
}

// Drawing.

QPen NSBezierPath::pen() const {
    constexpr Qt::PenCapStyle kCaps[] = {Qt::FlatCap, Qt::RoundCap, Qt::SquareCap};
    constexpr Qt::PenJoinStyle kJoins[] = {Qt::SvgMiterJoin, Qt::RoundJoin, Qt::BevelJoin};
    QPen pen;
    pen.setWidthF(lineWidth_);
    pen.setCapStyle(kCaps[std::clamp<long>(cap_, 0, 2)]);
    pen.setJoinStyle(kJoins[std::clamp<long>(join_, 0, 2)]);
    pen.setMiterLimit(miterLimit_);
    if (!dash_.empty()) {
        // The toolkit counts in widths of the line.
        const double unit = lineWidth_ > 0 ? lineWidth_ : 1;
        QList<qreal> pattern;
        for (const double length : dash_) pattern.append(length / unit);
        pen.setDashPattern(pattern);
        pen.setDashOffset(dashPhase_ / unit);
    }
    return pen;
}

void NSBezierPath::stroke() const {
    GraphicsContext* context = GraphicsContext::current();
    if (!context) return;
    const Drawing scope(*context);
    QPen line = pen();
    line.setColor(context->strokeColor);
    context->painter().strokePath(*path_, line);
}

void NSBezierPath::fill() const {
    GraphicsContext* context = GraphicsContext::current();
    if (!context) return;
    const Drawing scope(*context);
    context->painter().fillPath(filled(), context->fillColor);
}

void NSBezierPath::addClip() const {
    if (GraphicsContext* context = GraphicsContext::current()) {
        context->painter().setClipPath(filled(), Qt::IntersectClip);
    }
}
void NSBezierPath::setClip() const {
    if (GraphicsContext* context = GraphicsContext::current()) {
        context->painter().setClipPath(filled(), Qt::ReplaceClip);
    }
}

namespace {

template <class Build> id made(Build&& build) {
    Ref<NSBezierPath> path = velt::make<NSBezierPath>();
    build(*path);
    return path;
}

}  // namespace

void NSBezierPath::describe(velt::ClassBuilder<NSBezierPath>& c) {
    c.property("lineWidth", &NSBezierPath::lineWidth, &NSBezierPath::setLineWidth)
        .property("lineCapStyle", &NSBezierPath::lineCapStyle, &NSBezierPath::setLineCapStyle)
        .property("lineJoinStyle", &NSBezierPath::lineJoinStyle, &NSBezierPath::setLineJoinStyle)
        .property("miterLimit", &NSBezierPath::miterLimit, &NSBezierPath::setMiterLimit)
        .property("windingRule", &NSBezierPath::windingRule, &NSBezierPath::setWindingRule)
        .property("bounds", &NSBezierPath::bounds)
        .property("controlPointBounds", &NSBezierPath::controlPointBounds)
        .property("currentPoint", &NSBezierPath::currentPoint)
        .property("elementCount", &NSBezierPath::elementCount)
        .method("isEmpty", &NSBezierPath::isEmpty)
        .method("containsPoint:", &NSBezierPath::containsPoint)
        .method("moveToPoint:", &NSBezierPath::moveTo)
        .method("lineToPoint:", &NSBezierPath::lineTo)
        .method("curveToPoint:controlPoint1:controlPoint2:", &NSBezierPath::curveTo)
        .method("relativeMoveToPoint:", &NSBezierPath::relativeMoveTo)
        .method("relativeLineToPoint:", &NSBezierPath::relativeLineTo)
        .method("closePath", &NSBezierPath::closePath)
        .method("removeAllPoints", &NSBezierPath::removeAllPoints)
        .method("appendBezierPath:", &NSBezierPath::append)
        .method("appendBezierPathWithRect:", &NSBezierPath::appendRect)
        .method("appendBezierPathWithOvalInRect:", &NSBezierPath::appendOval)
        .method("appendBezierPathWithRoundedRect:xRadius:yRadius:", &NSBezierPath::appendRoundedRect)
        .method("appendBezierPathWithArcWithCenter:radius:startAngle:endAngle:clockwise:", &NSBezierPath::appendArc)
        .method("appendBezierPathWithArcWithCenter:radius:startAngle:endAngle:",
                [](const id& self, const id* a) {
                    velt::as<NSBezierPath>(self)->appendArc(VELT_CNSPOINT(a[0]), VELT_CDOUBLE(a[1]), VELT_CDOUBLE(a[2]),
                                                            VELT_CDOUBLE(a[3]), false);
                    return nil;
                })
        .method("appendBezierPathWithArcFromPoint:toPoint:radius:", &NSBezierPath::appendArcIn)
        .method("setLineDash:count:phase:", &NSBezierPath::setLineDash)
        .method("stroke", &NSBezierPath::stroke)
        .method("fill", &NSBezierPath::fill)
        .method("addClip", &NSBezierPath::addClip)
        .method("setClip", &NSBezierPath::setClip);
    c.classMethod("bezierPath", [](const id&, const id*) { return made([](NSBezierPath&) {}); })
        .classMethod("bezierPathWithRect:",
                     [](const id&, const id* a) {
                         return made([&](NSBezierPath& path) { path.appendRect(VELT_CNSRECT(a[0])); });
                     })
        .classMethod("bezierPathWithOvalInRect:",
                     [](const id&, const id* a) {
                         return made([&](NSBezierPath& path) { path.appendOval(VELT_CNSRECT(a[0])); });
                     })
        .classMethod("bezierPathWithRoundedRect:xRadius:yRadius:",
                     [](const id&, const id* a) {
                         return made([&](NSBezierPath& path) {
                             path.appendRoundedRect(VELT_CNSRECT(a[0]), VELT_CDOUBLE(a[1]), VELT_CDOUBLE(a[2]));
                         });
                     })
        // Drawing without a path of one's own.
        .classMethod("fillRect:",
                     [](const id&, const id* a) {
                         const NSRect rect = VELT_CNSRECT(a[0]);
                         if (GraphicsContext* context = GraphicsContext::current()) {
                             context->painter().fillRect(upright(rect), context->fillColor);
                         }
                         return nil;
                     })
        .classMethod("strokeRect:",
                     [](const id&, const id* a) {
                         NSBezierPath path;
                         path.appendRect(VELT_CNSRECT(a[0]));
                         path.stroke();
                         return nil;
                     })
        .classMethod("strokeLineFromPoint:toPoint:",
                     [](const id&, const id* a) {
                         NSBezierPath path;
                         path.moveTo(VELT_CNSPOINT(a[0]));
                         path.lineTo(VELT_CNSPOINT(a[1]));
                         path.stroke();
                         return nil;
                     })
        .classMethod("clipRect:", [](const id&, const id* a) {
            NSBezierPath path;
            path.appendRect(VELT_CNSRECT(a[0]));
            path.addClip();
            return nil;
        });
}
