// The widget of a slider.
#pragma once

#include "VELTRuntime/platform/appkit/controls/ranged_widget.h"

class NSSliderCell;
class QStyleOptionSlider;

namespace velt {

class SliderWidget final : public RangedWidget {
public:
    QAccessible::Role role() const override;
    QSize sizeHint() const override;
    void move(double steps, Qt::KeyboardModifiers modifiers) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    const NSSliderCell& slider() const;
    QStyleOptionSlider lineOption() const;
    double lineFraction(QPointF point) const;
    QRectF knob() const;
    double circleFraction(QPointF point) const;
    void drawLine(QPainter& painter) const;
    void drawCircle(QPainter& painter) const;
    void dragTo(const QMouseEvent& event, bool begins);

    bool dragging_ = false;
    double grabbed_ = 0;     // from the knob's upper or left end to where it was taken
    double startValue_ = 0;  // when the drag began
};

}  // namespace velt
