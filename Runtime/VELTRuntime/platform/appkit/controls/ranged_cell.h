// Cells whose value is a number between two limits, with marks at even distances.
#pragma once

#include "VELTRuntime/platform/appkit/controls/cell_properties.h"

namespace velt {

class VELT_EXPORT RangedCell : public NSActionCell {
public:
    double minValue() const { return min_; }
    /// The value follows into the new limits. What is no finite number changes nothing.
    void setMinValue(double value);
    double maxValue() const { return max_; }
    void setMaxValue(double value);
    /// A number within the limits: a number's own, a text's leading number, otherwise 0.
    void setObjectValue(const id& value) override;

    long numberOfTickMarks() const { return tickMarks_; }
    void setNumberOfTickMarks(long count);
    /// 0 below a horizontal control and to the right of a vertical one, 1 above and to the left.
    unsigned long tickMarkPosition() const { return tickMarkPosition_; }
    void setTickMarkPosition(unsigned long position);
    /// The value of a mark, the lowest is 0. Raises "NSRangeException".
    double tickMarkValueAtIndex(long index) const;

    /// The nearest value within the limits; the lowest for what is no number. Limits that cross leave the lowest.
    double limited(double value) const;
    /// Where a value lies between the limits, from 0 to 1, and back.
    double fractionOf(double value) const;
    double valueAt(double fraction) const;
    /// Where the marks lie, from 0 to 1.
    virtual double tickMarkFraction(long index) const;
    /// The distance that a key or a notch of the wheel goes.
    virtual double step() const;
    /// A person may change the value.
    virtual bool isWorkable() const { return isEnabled(); }

    template <class T> static void describeRange(ClassBuilder<T>& c) {
        cellProperty<&RangedCell::minValue, &RangedCell::setMinValue>(c, "minValue");
        cellProperty<&RangedCell::maxValue, &RangedCell::setMaxValue>(c, "maxValue");
    }
    template <class T> static void describeTickMarks(ClassBuilder<T>& c) {
        cellProperty<&RangedCell::numberOfTickMarks, &RangedCell::setNumberOfTickMarks>(c, "numberOfTickMarks");
        cellProperty<&RangedCell::tickMarkPosition, &RangedCell::setTickMarkPosition>(c, "tickMarkPosition");
        cellMethod<&RangedCell::tickMarkValueAtIndex>(c, "tickMarkValueAtIndex:");
    }

protected:
    RangedCell(double min, double max);

private:
    double min_, max_;
    long tickMarks_ = 0;
    unsigned long tickMarkPosition_ = 0;
};

}  // namespace velt
