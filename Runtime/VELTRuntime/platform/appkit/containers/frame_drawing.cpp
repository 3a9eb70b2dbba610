#include "VELTRuntime/platform/appkit/containers/frame_drawing.h"

#include "VELTRuntime/platform/appkit/containers/scroll_view.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>
#include <cmath>

namespace velt {

WidgetCoordinates::WidgetCoordinates(QPainter& painter, const NSView& view) : painter_(painter) {
    painter.save();
    const NSRect own = view.bounds();
    const NSSize size = view.frame().size;
    painter.translate(own.origin.x, own.origin.y);
    const double sx = size.width > 0 ? own.size.width / size.width : 1;
    const double sy = size.height > 0 ? own.size.height / size.height : 1;
    if (view.isFlipped()) {
        painter.scale(sx, sy);
    } else {
        painter.scale(sx, -sy);
        painter.translate(0, -size.height);
    }
}

WidgetCoordinates::~WidgetCoordinates() { painter_.restore(); }

double frameWidth(unsigned long borderType) {
    if (borderType == kNoBorder) return 0;
    if (borderType == kLineBorder) return 1;
    return std::max(1, QApplication::style()->pixelMetric(QStyle::PM_DefaultFrameWidth));
}

namespace {

QStyleOptionFrame frameOption(NSView& view, QRect rect) {
    QStyleOptionFrame option;
    option.initFrom(&view.widget());
    option.rect = rect;
    option.lineWidth = std::max(1, QApplication::style()->pixelMetric(QStyle::PM_DefaultFrameWidth));
    option.midLineWidth = 0;
    return option;
}

}  // namespace

QColor lineColor(const QPalette& palette) {
    QColor color = palette.color(QPalette::WindowText);
    color.setAlphaF(0.3F);
    return color;
}

void drawFrame(QPainter& painter, NSView& view, unsigned long borderType, QRectF rect) {
    if (borderType == kNoBorder) return;
    QWidget& widget = view.widget();
    if (borderType == kLineBorder) {
        painter.setPen(
            QPen(widget.hasFocus() ? widget.palette().color(QPalette::Highlight) : lineColor(widget.palette()), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
        return;
    }
    QStyleOptionFrame option = frameOption(view, rect.toRect());
    option.frameShape = borderType == kGrooveBorder ? QFrame::Box : QFrame::StyledPanel;
    option.state |= borderType == kGrooveBorder ? QStyle::State_None : QStyle::State_Sunken;
    widget.style()->drawPrimitive(QStyle::PE_Frame, &option, &painter, &widget);
}

void drawGroupFrame(QPainter& painter, NSView& view, QRectF rect, bool pale) {
    constexpr double kRadius = 3;
    QColor line = lineColor(view.widget().palette()), ground = line;
    if (pale) line.setAlphaF(line.alphaF() / 2);
    ground.setAlphaF(pale ? 0 : 0.04F);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(line, 1));
    painter.setBrush(ground);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    painter.restore();
}

void drawSeparator(QPainter& painter, NSView& view, QRectF rect) {
    const QColor color = lineColor(view.widget().palette());
    if (rect.height() > rect.width()) {
        painter.fillRect(QRectF(rect.x() + std::floor((rect.width() - 1) / 2), rect.y(), 1, rect.height()), color);
    } else {
        painter.fillRect(QRectF(rect.x(), rect.y() + std::floor((rect.height() - 1) / 2), rect.width(), 1), color);
    }
}

}  // namespace velt
