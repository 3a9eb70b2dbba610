// What the widgets of ranged cells share: keys, wheel, and what those hear of it who cannot see.
#pragma once

#include "VELTRuntime/platform/appkit/controls/ranged_cell.h"

#include <QAccessible>
#include <QWidget>

namespace velt {

class RangedWidget : public QWidget {
public:
    RangedWidget();

    NSControl* control() const;
    /// Null when the control has gone.
    RangedCell* cell() const;
    /// The cell was changed: draws it anew and tells those who listen.
    void cellShown();
    virtual QAccessible::Role role() const = 0;
    /// What a person asks for: a value, or some steps up or down. The value is limited, and the action is sent when it
    /// has changed. Nothing when the control is not enabled.
    void take(double value, bool sendsAction = true);
    virtual void move(double steps, Qt::KeyboardModifiers modifiers);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    double shown_ = 0;
    int wheel_ = 0;  // turned since the last whole notch
};

}  // namespace velt
