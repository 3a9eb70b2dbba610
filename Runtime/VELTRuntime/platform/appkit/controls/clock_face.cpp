#include "VELTRuntime/platform/appkit/controls/clock_face.h"

#include "VELTRuntime/platform/appkit/controls/color_group.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>
#include <numbers>

namespace velt {

namespace {

constexpr double kFullTurn = 2 * std::numbers::pi;
constexpr int kMinute = 60, kHour = 3600, kHalfDay = 12 * kHour, kDay = 2 * kHalfDay;

}  // namespace

ClockFace::ClockFace(QWidget& parent) : QWidget(&parent) {}

void ClockFace::setTime(QTime time, bool withSeconds) {
    time_ = time;
    withSeconds_ = withSeconds;
    setAccessibleName(QStringLiteral("Time"));
    setAccessibleDescription(
        QLocale().toString(time, withSeconds ? QStringLiteral("HH:mm:ss") : QStringLiteral("HH:mm")));
    update();
}

double ClockFace::radius() const { return std::min(width(), height()) / 2.0 - 2; }

void ClockFace::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette::ColorGroup group = colorGroupOf(*this);
    const QColor ink = palette().color(group, QPalette::Text), accent = palette().color(group, QPalette::Highlight);
    const double size = radius();
    if (size <= 0) return;
    painter.translate(width() / 2.0, height() / 2.0);
    QColor edge = ink;
    edge.setAlphaF(0.4F);
    painter.setPen(QPen(hasFocus() ? accent : edge, hasFocus() ? 2 : 1));
    painter.setBrush(palette().color(group, QPalette::Base));
    painter.drawEllipse(QPointF(), size, size);
    const auto at = [](double part, double distance) {
        return QPointF(std::sin(part * kFullTurn), -std::cos(part * kFullTurn)) * distance;
    };
    QFont figures = font();
    figures.setPixelSize(std::max(static_cast<int>(size * 0.2), 1));
    painter.setFont(figures);
    constexpr int kHours = 12;
    for (int hour = 1; hour <= kHours; ++hour) {
        const double part = static_cast<double>(hour) / kHours;
        painter.setPen(QPen(ink, 1));
        painter.drawLine(at(part, size * 0.92), at(part, size * 0.98));
        const double box = size * 0.4;
        const QPointF middle = at(part, size * 0.77);
        painter.drawText(QRectF(middle.x() - box / 2, middle.y() - box / 2, box, box), Qt::AlignCenter,
                         QLocale().toString(hour));
    }
    painter.drawText(QRectF(-size / 2, size * 0.2, size, size * 0.3), Qt::AlignCenter,
                     time_.hour() < kHours ? QLocale().amText() : QLocale().pmText());
    const int seconds = QTime(0, 0).secsTo(time_);
    const auto hand = [&](double part, double length, double thickness, const QColor& color) {
        painter.setPen(QPen(color, thickness, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(), at(part, length));
    };
    hand(static_cast<double>(seconds % kHalfDay) / kHalfDay, size * 0.48, std::max(size * 0.06, 1.5), ink);
    hand(static_cast<double>(seconds % kHour) / kHour, size * 0.72, std::max(size * 0.04, 1.2), ink);
    if (withSeconds_) hand(static_cast<double>(seconds % kMinute) / kMinute, size * 0.8, 1, accent);
    painter.setPen(Qt::NoPen);
    painter.setBrush(withSeconds_ ? accent : ink);
    painter.drawEllipse(QPointF(), size * 0.05, size * 0.05);
}

void ClockFace::turn(int seconds) {
    const int now = QTime(0, 0).secsTo(time_);
    setTime(QTime(0, 0).addSecs(((now + seconds) % kDay + kDay) % kDay).addMSecs(time_.msec()), withSeconds_);
    if (onChange) onChange(time_);
}

void ClockFace::turnTo(QPointF point) {
    const QPointF from = point - QPointF(width() / 2.0, height() / 2.0);
    double part = std::atan2(from.x(), -from.y()) / kFullTurn;
    if (part < 0) part += 1;
    const int now = QTime(0, 0).secsTo(time_);
    // The shorter way round: the hour follows when the hand of the minutes passes twelve.
    const int round = held_ == Hand::Minute ? kHour : kHalfDay, unit = held_ == Hand::Minute ? kMinute : kHour;
    const int wanted = held_ == Hand::Minute ? static_cast<int>(std::lround(part * 60)) * kMinute + now % kMinute
                                             : static_cast<int>(std::floor(part * 12)) * kHour + now % kHour;
    int change = (wanted - now % round) % round;
    if (change > round / 2) change -= round;
    if (change < -round / 2) change += round;
    if (std::abs(change) >= unit) turn(change);
}

void ClockFace::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPointF from = event->position() - QPointF(width() / 2.0, height() / 2.0);
    // Near the middle a person takes the hand of the hours, farther out that of the minutes.
    held_ = std::hypot(from.x(), from.y()) < radius() * 0.5 ? Hand::Hour : Hand::Minute;
    turnTo(event->position());
}

void ClockFace::mouseMoveEvent(QMouseEvent* event) {
    if (held_ != Hand::None) turnTo(event->position());
}

void ClockFace::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) held_ = Hand::None;
}

void ClockFace::wheelEvent(QWheelEvent* event) {
    constexpr int kNotch = 120;
    wheel_ += event->angleDelta().y();
    const int notches = wheel_ / kNotch;
    wheel_ -= notches * kNotch;
    if (notches != 0) turn(notches * kMinute);
}

void ClockFace::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up: turn(kMinute); break;
    case Qt::Key_Down: turn(-kMinute); break;
    case Qt::Key_PageUp: turn(kHour); break;
    case Qt::Key_PageDown: turn(-kHour); break;
    case Qt::Key_Right: turn(isRightToLeft() ? -kHour : kHour); break;
    case Qt::Key_Left: turn(isRightToLeft() ? kHour : -kHour); break;
    default: event->ignore();
    }
}

}  // namespace velt
