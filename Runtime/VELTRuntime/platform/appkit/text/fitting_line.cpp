#include "VELTRuntime/platform/appkit/text/fitting_line.h"

#include <QFontMetricsF>
#include <QPainter>

namespace velt {

QString fittingLine(const QString& line, const QFont& font, Qt::TextElideMode elided, double width) {
    if (elided == Qt::ElideNone) return line;
    return QFontMetricsF(font).elidedText(line, elided, width + kWidthTolerance);
}

void drawLine(QPainter& painter, const QRect& rect, const QString& line, Qt::Alignment alignment,
              Qt::TextElideMode elided) {
    const QString shown = fittingLine(line, painter.font(), elided, rect.width());
    Qt::Alignment across = alignment & Qt::AlignHorizontal_Mask;
    if (QFontMetricsF(painter.font()).horizontalAdvance(shown) > rect.width() + kWidthTolerance) {
        across = (line.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute;
    }
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.drawText(rect, static_cast<int>(across | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip, shown);
    painter.restore();
}

}  // namespace velt
