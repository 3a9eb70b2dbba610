// Paths: lines and curves that are stroked, filled, or limit what is drawn.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/structures.h"

#include <memory>
#include <vector>

class QPainterPath;
class QPen;

/// A path in the coordinates of what is being drawn. Drawing messages do nothing when nothing is being drawn. A path
/// may be made and asked on any thread.
class VELT_EXPORT NSBezierPath final : public NSObject {
    VELT_OBJECT(NSBezierPath, NSObject)
public:
    NSBezierPath();
    ~NSBezierPath() override;
    /// A path of its own with the same content and settings.
    id copy() const override;

    // Building. What continues the path raises "NSGenericException" when it has no point yet.
    void moveTo(NSPoint point);
    void lineTo(NSPoint point);
    void curveTo(NSPoint end, NSPoint control1, NSPoint control2);
    void relativeMoveTo(NSPoint step);
    void relativeLineTo(NSPoint step);
    void closePath();
    void removeAllPoints();
    void append(NSBezierPath* other);
    void appendRect(NSRect rect);
    void appendOval(NSRect rect);
    void appendRoundedRect(NSRect rect, double xRadius, double yRadius);
    /// Angles in degrees from the x axis; the arc runs against the clock unless it is told otherwise. A line leads to
    /// it from the current point.
    void appendArc(NSPoint center, double radius, double start, double end, bool clockwise);

    /// An arc of that radius in the angle between two lines: from the current point to the corner, and from there to
    /// the other point. A line leads to where it begins. Lines that make no angle have a corner instead.
    void appendArcIn(NSPoint corner, NSPoint toward, double radius);

    // Asking.
    bool isEmpty() const;
    long elementCount() const;
    /// Raises "NSGenericException" for an empty path.
    NSPoint currentPoint() const;
    /// The zero rectangle for an empty path.
    NSRect bounds() const;
    NSRect controlPointBounds() const;
    /// The point is within what would be filled.
    bool containsPoint(NSPoint point) const;

    // Settings.
    double lineWidth() const { return lineWidth_; }
    /// 0 is the thinnest line that the screen has.
    void setLineWidth(double width) { lineWidth_ = width < 0 ? 0 : width; }
    long lineCapStyle() const { return cap_; }
    void setLineCapStyle(long style) { cap_ = style; }
    long lineJoinStyle() const { return join_; }
    void setLineJoinStyle(long style) { join_ = style; }
    double miterLimit() const { return miterLimit_; }
    void setMiterLimit(double limit) { miterLimit_ = limit; }
    long windingRule() const { return windingRule_; }
    void setWindingRule(long rule) { windingRule_ = rule; }
    /// Lengths of strokes and gaps in turn, and where in them the line begins; an empty array or nil for a whole line.
    void setLineDash(const id& lengths, long count, double phase);

    // Drawing.
    void stroke() const;
    void fill() const;
    /// What is drawn from now on is limited to the inside of the path, within the limits that there are, or in place of
    /// these.
    void addClip() const;
    void setClip() const;
    /// The path with its winding rule, as the toolkit draws it.
    QPainterPath filled() const;
    static void describe(velt::ClassBuilder<NSBezierPath>& c);

private:
    void requirePoint(const char* operation) const;
    QPen pen() const;

    std::unique_ptr<QPainterPath> path_;
    double lineWidth_ = 1, miterLimit_ = 10, dashPhase_ = 0;
    long cap_ = 0, join_ = 0, windingRule_ = 0;
    std::vector<double> dash_;
};
