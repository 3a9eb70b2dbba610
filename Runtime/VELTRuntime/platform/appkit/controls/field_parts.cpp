#include "VELTRuntime/platform/appkit/controls/field_parts.h"

#include <QPainter>
#include <QPainterPath>

namespace velt {

FieldButton::FieldButton(Sign sign, const QString& name, QWidget& field) : QAbstractButton(&field), sign_(sign) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setAccessibleName(name);
    setToolTip(name);
}

void FieldButton::setSign(Sign sign) {
    if (sign_ == sign) return;
    sign_ = sign;
    update();
}

void FieldButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor color = palette().color(QPalette::Text);
    constexpr float kQuiet = 0.55F, kWorked = 0.9F;
    color.setAlphaF(color.alphaF() * (isDown() || underMouse() ? kWorked : kQuiet));
    // The signs are drawn on a square of 16 units in the middle.
    const double scale = std::min({width() / 16.0, height() / 16.0, 1.25});
    painter.translate(width() / 2.0, height() / 2.0);
    painter.scale(scale, scale);
    if (layoutDirection() == Qt::RightToLeft && sign_ != Sign::Cross) painter.scale(-1, 1);
    const QPen pen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.setPen(pen);
    switch (sign_) {
    case Sign::Magnifier:
    case Sign::Recents:
        painter.drawEllipse(QPointF(-1.5, -1.5), 4, 4);
        painter.drawLine(QPointF(1.6, 1.6), QPointF(5, 5));
        if (sign_ == Sign::Recents) {
            painter.setBrush(color);
            painter.setPen(Qt::NoPen);
            painter.drawPolygon(QPolygonF({{4.5, -1.5}, {8.5, -1.5}, {6.5, 1}}));
        }
        break;
    case Sign::Cross: {
        QPainterPath disc;
        disc.addEllipse(QPointF(0, 0), 6, 6);
        painter.fillPath(disc, color);
        painter.setPen(QPen(palette().color(QPalette::Base), 1.5, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(-2.2, -2.2), QPointF(2.2, 2.2));
        painter.drawLine(QPointF(-2.2, 2.2), QPointF(2.2, -2.2));
        break;
    }
    case Sign::Arrow: painter.drawPolyline(QPolygonF({{-3.5, -1.5}, {0, 2}, {3.5, -1.5}})); break;
    }
}

}  // namespace velt
