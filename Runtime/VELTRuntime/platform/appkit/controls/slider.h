// Sliders: a knob on a line, or a round knob, that a person moves between two values.
#pragma once

#include "VELTRuntime/platform/appkit/controls/ranged_cell.h"

/// From 0 to 1, at 0, on a line.
class VELT_EXPORT NSSliderCell : public velt::RangedCell {
    VELT_OBJECT(NSSliderCell, NSActionCell)
public:
    enum SliderType : unsigned long { kLinear = 0, kCircular = 1 };
    NSSliderCell();

    /// On a line or circular.
    unsigned long sliderType() const { return sliderType_; }
    void setSliderType(unsigned long type);
    bool isCircular() const { return sliderType_ == kCircular; }
    /// A person's values are those of the marks alone.
    bool allowsTickMarkValuesOnly() const { return ticksOnly_; }
    void setAllowsTickMarkValuesOnly(bool flag);
    /// The value of the nearest mark; the value itself when there are no marks.
    double closestTickMarkValueToValue(double value) const;
    /// By how much a person changes the value who holds the Alt key; not positive when it makes no difference.
    double altIncrementValue() const { return altIncrement_; }
    void setAltIncrementValue(double value) { altIncrement_ = value; }
    /// The line stands upright: the control is higher than wide.
    bool isVertical() const;
    /// The knob's thickness along the line.
    double knobThickness() const;

    double tickMarkFraction(long index) const override;
    double step() const override;
    NSSize cellSize() const override;
    template <class T> static void describeSlider(velt::ClassBuilder<T>& c);
    static void describe(velt::ClassBuilder<NSSliderCell>& c);

private:
    unsigned long sliderType_ = kLinear;
    bool ticksOnly_ = false;
    double altIncrement_ = -1;
};

class VELT_EXPORT NSSlider : public velt::ControlOf<NSSliderCell> {
    VELT_OBJECT(NSSlider, NSControl)
public:
    static void describe(velt::ClassBuilder<NSSlider>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
};
