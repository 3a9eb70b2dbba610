#include "VELTRuntime/platform/appkit/controls/level_widget.h"

#include "VELTRuntime/platform/appkit/controls/color_group.h"
#include "VELTRuntime/platform/appkit/controls/level_indicator.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionFocusRect>
#include <cmath>
#include <numbers>

namespace velt {

namespace {

constexpr double kMarkLength = 5;

QPainterPath star(QRectF within) {
    constexpr int kPoints = 5;
    constexpr double kInner = 0.42;  // of the outer radius
    const double radius = within.width() / 2;
    QPolygonF outline;
    for (int i = 0; i < 2 * kPoints; ++i) {
        const double angle = i * std::numbers::pi / kPoints;
        const double distance = i % 2 == 0 ? radius : radius * kInner;
        outline << within.center() + QPointF(std::sin(angle) * distance, -std::cos(angle) * distance);
    }
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    return path;
}

}  // namespace

const NSLevelIndicatorCell& LevelWidget::level() const { return static_cast<const NSLevelIndicatorCell&>(*cell()); }

QAccessible::Role LevelWidget::role() const {
    return cell() && level().isWorkable() ? QAccessible::Slider : QAccessible::ProgressBar;
}

QSize LevelWidget::sizeHint() const {
    if (!cell()) return {};
    const NSSize size = level().cellSize();
    return QSizeF(size.width, size.height).toSize();
}

// Drawing. Everything is drawn from the left and mirrored where people read from the right.

QRectF LevelWidget::bar() const {
    QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool marked = level().numberOfTickMarks() > 0 && area.height() > 2 * kMarkLength;
    if (!marked) return area;
    if (level().tickMarkPosition() == 1)
        area.setTop(area.top() + kMarkLength + 1);
    else
        area.setBottom(area.bottom() - kMarkLength - 1);
    return area;
}

QColor LevelWidget::levelColor() const {
    QColor color = qtColor(*as<NSColor>(level().levelColor()));
    if (isEnabled()) return color;
    const int gray = qGray(color.rgb());
    return QColor(gray, gray, gray, 110);
}

QColor LevelWidget::emptyColor() const {
    QColor color = palette().color(colorGroupOf(*this), QPalette::WindowText);
    color.setAlphaF(0.14F);
    return color;
}

void LevelWidget::paintEvent(QPaintEvent*) {
    if (!cell()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isRightToLeft()) {
        painter.translate(width(), 0);
        painter.scale(-1, 1);
    }
    switch (level().levelIndicatorStyle()) {
    case NSLevelIndicatorCell::kRelevancy: drawRelevancy(painter); break;
    case NSLevelIndicatorCell::kContinuousCapacity: drawBar(painter); break;
    case NSLevelIndicatorCell::kDiscreteCapacity: drawSegments(painter); break;
    default: drawStars(painter); break;
    }
    if (!hasFocus() || !level().isWorkable()) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.backgroundColor = palette().color(QPalette::Window);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

void LevelWidget::drawRelevancy(QPainter& painter) const {
    // Fine lines, as many as the level reaches.
    constexpr int kLine = 1, kPitch = 3;
    const double reached = width() * level().fractionOf(level().doubleValue());
    painter.setRenderHint(QPainter::Antialiasing, false);
    QColor full = palette().color(colorGroupOf(*this), QPalette::WindowText);
    for (int x = 1; x + kLine <= width(); x += kPitch) {
        if (x >= reached) break;
        painter.fillRect(QRect(x, 2, kLine, std::max(height() - 4, 1)), full);
    }
}

void LevelWidget::drawBar(QPainter& painter) const {
    const QRectF area = bar();
    QPainterPath frame;
    frame.addRoundedRect(area, 2.5, 2.5);
    painter.fillPath(frame, emptyColor());
    QRectF filled = area;
    filled.setWidth(area.width() * level().fractionOf(level().doubleValue()));
    painter.save();
    painter.setClipPath(frame);
    painter.fillRect(filled, levelColor());
    painter.restore();
    painter.setPen(QPen(emptyColor().darker(120), 1));
    painter.drawPath(frame);
    drawTickMarks(painter);
}

void LevelWidget::drawSegments(QPainter& painter) const {
    const QRectF area = bar();
    const int count = level().segments(), filled = level().filledSegments();
    if (count == 0) return;
    constexpr double kUsualGap = 2;
    const double pitch = (area.width() + kUsualGap) / count;
    const double gap = pitch > 2 * kUsualGap ? kUsualGap : 0;
    const QColor full = levelColor(), empty = emptyColor();
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < count; ++i) {
        const QRectF segment(area.left() + i * pitch, area.top(), pitch - gap, area.height());
        painter.setBrush(i < filled ? full : empty);
        painter.drawRoundedRect(segment, 1.5, 1.5);
    }
    drawTickMarks(painter);
}

double LevelWidget::starSide() const {
    const int count = std::max(level().segments(), 1);
    return std::max(std::min(static_cast<double>(height()), static_cast<double>(width()) / count), 1.0);
}

void LevelWidget::drawStars(QPainter& painter) const {
    const int count = level().segments(), filled = level().filledSegments();
    const double side = starSide(), top = (height() - side) / 2;
    const QPalette::ColorGroup group = colorGroupOf(*this);
    QColor empty = palette().color(group, QPalette::WindowText);
    empty.setAlphaF(0.35F);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < count; ++i) {
        const QRectF place(i * side, top, side, side);
        painter.setBrush(i < filled ? palette().color(group, QPalette::WindowText) : empty);
        // A place that can still be filled is a small dot, as long as a person can fill it.
        if (i < filled)
            painter.drawPath(star(place.adjusted(1, 1, -1, -1)));
        else if (level().isWorkable())
            painter.drawEllipse(place.center(), side * 0.12, side * 0.12);
    }
}

void LevelWidget::drawTickMarks(QPainter& painter) const {
    const long count = level().numberOfTickMarks(), major = level().numberOfMajorTickMarks();
    const QRectF area = bar();
    const bool above = level().tickMarkPosition() == 1;
    const double edge = above ? area.top() - 1 : area.bottom() + 1;
    QColor color = palette().color(colorGroupOf(*this), QPalette::WindowText);
    color.setAlphaF(0.6F);
    painter.setPen(QPen(color, 1));
    for (long i = 0; i < count; ++i) {
        const bool isMajor = major <= 0 || major >= count || (major == 1 ? i == 0 : i * (major - 1) % (count - 1) == 0);
        const double x = area.left() + area.width() * level().tickMarkFraction(i);
        const double length = isMajor ? kMarkLength : kMarkLength * 0.55;
        painter.drawLine(QPointF(x, edge), QPointF(x, above ? edge - length : edge + length));
    }
}

// The mouse.

double LevelWidget::valueAt(QPointF point) const {
    const double x = isRightToLeft() ? width() - point.x() : point.x();
    if (!level().isStepped()) {
        const QRectF area = bar();
        return level().valueAt(std::clamp((x - area.left()) / std::max(area.width(), 1.0), 0.0, 1.0));
    }
    const bool stars = level().levelIndicatorStyle() == NSLevelIndicatorCell::kRating;
    const double pitch = stars ? starSide() : static_cast<double>(width()) / std::max(level().segments(), 1);
    // The segment under the mouse is filled; left of the first one none is.
    return level().minValue() + std::clamp(std::floor(x / pitch) + 1, 0.0, static_cast<double>(level().segments()));
}

void LevelWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !cell() || !level().isWorkable()) {
        event->ignore();
        return;
    }
    dragging_ = true;
    take(valueAt(event->position()), level().isContinuous());
}

void LevelWidget::mouseMoveEvent(QMouseEvent* event) {
    // Where a dialog came up meanwhile nobody says that the button was let go.
    if (!(event->buttons() & Qt::LeftButton)) dragging_ = false;
    if (dragging_ && cell()) take(valueAt(event->position()), level().isContinuous());
}

void LevelWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !dragging_) return;
    dragging_ = false;
    if (cell() && level().isWorkable() && !level().isContinuous()) control()->worked();
}

}  // namespace velt
