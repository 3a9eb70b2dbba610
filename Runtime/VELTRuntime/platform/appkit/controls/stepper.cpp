#include "VELTRuntime/platform/appkit/controls/stepper.h"

#include "VELTRuntime/platform/appkit/controls/stepper_widget.h"

using velt::cellProperty;

NSStepperCell::NSStepperCell() : RangedCell(0, 59) { setContinuous(true); }

double NSStepperCell::valueAfter(double steps) const {
    const double value = doubleValue() + steps * increment_;
    if (!wraps_) return limited(value);
    // Only a step from the end itself, or past it, comes out at the other end.
    if (value > maxValue()) return minValue();
    return value < minValue() ? maxValue() : value;
}

NSSize NSStepperCell::cellSize() const {
    switch (controlSize()) {
    case 1: return {15, 22};
    case 2: return {13, 18};
    default: return {19, 27};
    }
}

template <class T> void NSStepperCell::describeStepper(velt::ClassBuilder<T>& c) {
    describeRange(c);
    cellProperty<&NSStepperCell::increment, &NSStepperCell::setIncrement>(c, "increment");
    cellProperty<&NSStepperCell::valueWraps, &NSStepperCell::setValueWraps>(c, "valueWraps");
    cellProperty<&NSStepperCell::autorepeat, &NSStepperCell::setAutorepeat>(c, "autorepeat");
}

void NSStepperCell::describe(velt::ClassBuilder<NSStepperCell>& c) { describeStepper(c); }

std::unique_ptr<QWidget> NSStepper::makeWidget() {
    auto made = std::make_unique<velt::StepperWidget>();
    watchEvents(*made);
    return made;
}

void NSStepper::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    static_cast<velt::StepperWidget&>(widget).cellShown();
}

void NSStepper::describe(velt::ClassBuilder<NSStepper>& c) { NSStepperCell::describeStepper(c); }
