// The widget of a stepper.
#pragma once

#include "VELTRuntime/platform/appkit/controls/ranged_widget.h"

#include <QBasicTimer>

class NSStepperCell;

namespace velt {

class StepperWidget final : public RangedWidget {
public:
    QAccessible::Role role() const override { return QAccessible::SpinBox; }
    QSize sizeHint() const override;
    void move(double steps, Qt::KeyboardModifiers modifiers) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Nothing is pressed any more.
    void rest();
    const NSStepperCell& stepper() const;
    /// 1 in the upper half, -1 in the lower one, 0 outside.
    int halfAt(QPointF point) const;

    int pressed_ = 0;      // the half that was pressed
    bool within_ = false;  // the mouse is still in it
    QBasicTimer repeats_;
};

}  // namespace velt
