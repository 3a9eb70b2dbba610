// The widget of a level indicator.
#pragma once

#include "VELTRuntime/platform/appkit/controls/ranged_widget.h"

class NSLevelIndicatorCell;

namespace velt {

class LevelWidget final : public RangedWidget {
public:
    QAccessible::Role role() const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    const NSLevelIndicatorCell& level() const;
    QRectF bar() const;
    QColor levelColor() const;
    QColor emptyColor() const;
    void drawRelevancy(QPainter& painter) const;
    void drawBar(QPainter& painter) const;
    void drawSegments(QPainter& painter) const;
    void drawStars(QPainter& painter) const;
    void drawTickMarks(QPainter& painter) const;
    /// The value under a point.
    double valueAt(QPointF point) const;
    double starSide() const;

    bool dragging_ = false;
};

}  // namespace velt
