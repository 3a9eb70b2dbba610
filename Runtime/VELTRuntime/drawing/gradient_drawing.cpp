// Gradients drawn by programs.
#include "VELTRuntime/drawing/gradient.h"
#include "VELTRuntime/drawing/gradient_shading.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

using velt::GraphicsContext;
using velt::qtRect;

namespace {

bool canBeFilled(NSRect rect) {
    const auto [x, y] = rect.origin;
    const auto [width, height] = rect.size;
    return width > 0 && height > 0 && std::isfinite(x) && std::isfinite(y) && std::isfinite(width) &&
           std::isfinite(height);
}

/// Fills a rectangle of what is being drawn with the brush made for it.
template <class Brush> void fill(NSRect rect, Brush&& brush) {
    GraphicsContext* context = GraphicsContext::current();
    if (!context || !canBeFilled(rect)) return;
    QPainter& painter = context->painter();
    const QRectF area = qtRect(rect);
    // Edges between dots need no smoothing, which takes its time.
    const QRectF dots = painter.deviceTransform().mapRect(area);
    const bool isSharp = painter.deviceTransform().type() <= QTransform::TxScale && dots == QRectF(dots.toRect());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, context->antialiases && !isSharp);
    painter.fillRect(area, brush(painter, area));
    painter.restore();
}

}  // namespace

void PXGradient::fillRect(NSRect rect, float angle) const {
    if (!std::isfinite(angle)) return;
    fill(rect, [&](const QPainter& painter, const QRectF& area) {
        return velt::axialBrush(stops_, velt::axisAcross(rect, static_cast<double>(angle)), painter, area);
    });
}

void PXGradient::radialFillRect(NSRect rect) const {
    fill(rect, [&](const QPainter& painter, const QRectF& area) {
        return velt::radialBrush(stops_, velt::circlesWithin(rect), painter, area);
    });
}

void PXGradient::drawSwatchInRect(NSRect rect) const {
    GraphicsContext* context = GraphicsContext::current();
    if (!context || !canBeFilled(rect)) return;
    QPainter& painter = context->painter();
    const QRectF area = qtRect(rect);
    if (!stops_.isOpaque()) {
        constexpr double kSquare = 5;
        painter.fillRect(area, Qt::white);
        for (int row = 0; row * kSquare < area.height(); ++row) {
            for (int column = row % 2; column * kSquare < area.width(); column += 2) {
                const QRectF square(area.x() + column * kSquare, area.y() + row * kSquare, kSquare, kSquare);
                painter.fillRect(square & area, Qt::lightGray);
            }
        }
    }
    fillRect(rect, 0);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(QColor(0, 0, 0, 77), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(area.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.restore();
}
