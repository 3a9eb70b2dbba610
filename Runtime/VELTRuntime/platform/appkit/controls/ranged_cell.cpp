#include "VELTRuntime/platform/appkit/controls/ranged_cell.h"

#include "VELTRuntime/platform/object/exception.h"

#include <algorithm>
#include <cmath>

namespace velt {

RangedCell::RangedCell(double min, double max) : min_(min), max_(max) { RangedCell::setObjectValue(VELT_ID(min)); }

void RangedCell::setObjectValue(const id& value) {
    NSActionCell::setObjectValue(VELT_ID(limited(leadingNumber(value))));
}

void RangedCell::setMinValue(double value) {
    if (!std::isfinite(value)) return;
    min_ = value;
    setDoubleValue(doubleValue());
}

void RangedCell::setMaxValue(double value) {
    if (!std::isfinite(value)) return;
    max_ = value;
    setDoubleValue(doubleValue());
}

void RangedCell::setNumberOfTickMarks(long count) {
    constexpr long kMost = 10'000;  // more than any screen has dots
    tickMarks_ = std::clamp(count, 0L, kMost);
    changed();
}

void RangedCell::setTickMarkPosition(unsigned long position) {
    tickMarkPosition_ = position;
    changed();
}

double RangedCell::tickMarkValueAtIndex(long index) const {
    if (index < 0 || index >= tickMarks_) {
        raiseRange("'" + isa().name() + "' tickMarkValueAtIndex:", index, static_cast<std::size_t>(tickMarks_));
    }
    return valueAt(tickMarkFraction(index));
}

double RangedCell::limited(double value) const {
    if (!(value >= min_) || max_ < min_) return min_;
    return std::min(value, max_);
}

double RangedCell::fractionOf(double value) const {
    if (!(max_ > min_)) return 0;
    // Halves: the distance between the limits may be beyond the largest number.
    return std::clamp((value / 2 - min_ / 2) / (max_ / 2 - min_ / 2), 0.0, 1.0);
}

double RangedCell::valueAt(double fraction) const {
    if (fraction >= 1) return limited(max_);
    return limited(min_ + (max_ / 2 - min_ / 2) * fraction * 2);
}

double RangedCell::tickMarkFraction(long index) const {
    return tickMarks_ < 2 ? 0.5 : static_cast<double>(index) / static_cast<double>(tickMarks_ - 1);
}

double RangedCell::step() const {
    constexpr double kPart = 0.05;
    return (max_ / 2 - min_ / 2) * kPart * 2;
}

}  // namespace velt
