#include "VELTRuntime/platform/appkit/containers/frame_drawing.h"

#include "VELTRuntime/platform/appkit/containers/scroll_view.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>

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

void drawFrame(GraphicsContext& context, NSView& view, unsigned long borderType, NSRect rect) {
    if (borderType == kNoBorder) return;
    QPainter& painter = context.painter();
    const WidgetCoordinates scope(painter, view);
    const QRectF place(rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
    QWidget& widget = view.widget();
    if (borderType == kLineBorder) {
        painter.setPen(QPen(widget.hasFocus() ? widget.palette().color(QPalette::Highlight)
                                              : widget.palette().color(QPalette::Mid),
                            1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(place.adjusted(0.5, 0.5, -0.5, -0.5));
        return;
    }
    QStyleOptionFrame option = frameOption(view, place.toRect());
    option.frameShape = borderType == kGrooveBorder ? QFrame::Box : QFrame::StyledPanel;
    option.state |= borderType == kGrooveBorder ? QStyle::State_None : QStyle::State_Sunken;
    widget.style()->drawPrimitive(QStyle::PE_Frame, &option, &painter, &widget);
}

void drawSeparator(GraphicsContext& context, NSView& view, NSRect rect) {
    QPainter& painter = context.painter();
    const WidgetCoordinates scope(painter, view);
    const bool upright = rect.size.height > rect.size.width;
    const double x = rect.origin.x, y = rect.origin.y;
    const QPalette palette = view.widget().palette();
    // Dark and light beside each other: it is seen on any ground.
    const QRectF dark = upright ? QRectF(x + std::floor((rect.size.width - 2) / 2), y, 1, rect.size.height)
                                : QRectF(x, y + std::floor((rect.size.height - 2) / 2), rect.size.width, 1);
    painter.fillRect(dark, palette.color(QPalette::Mid));
    painter.fillRect(upright ? dark.translated(1, 0) : dark.translated(0, 1), palette.color(QPalette::Midlight));
}

}  // namespace velt
