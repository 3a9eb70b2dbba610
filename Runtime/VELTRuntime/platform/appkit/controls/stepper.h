// Steppers: two small buttons that take a number up and down.
#pragma once

#include "VELTRuntime/platform/appkit/controls/ranged_cell.h"

/// From 0 to 59 in steps of 1, round and round.
class VELT_EXPORT NSStepperCell : public velt::RangedCell {
    VELT_OBJECT(NSStepperCell, NSActionCell)
public:
    NSStepperCell();

    double increment() const { return increment_; }
    void setIncrement(double value) { increment_ = value; }
    /// From the highest value a step leads to the lowest one, and back.
    bool valueWraps() const { return wraps_; }
    void setValueWraps(bool flag) { wraps_ = flag; }
    /// A button that is held steps on and on; otherwise it steps once, when it is let go.
    bool autorepeat() const { return repeats_; }
    void setAutorepeat(bool flag) { repeats_ = flag; }
    /// The value that some steps up, or down, lead to.
    double valueAfter(double steps) const;

    double step() const override { return increment_; }
    NSSize cellSize() const override;
    template <class T> static void describeStepper(velt::ClassBuilder<T>& c);
    static void describe(velt::ClassBuilder<NSStepperCell>& c);

private:
    double increment_ = 1;
    bool wraps_ = true, repeats_ = true;
};

class VELT_EXPORT NSStepper : public velt::ControlOf<NSStepperCell> {
    VELT_OBJECT(NSStepper, NSControl)
public:
    static void describe(velt::ClassBuilder<NSStepper>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
};
