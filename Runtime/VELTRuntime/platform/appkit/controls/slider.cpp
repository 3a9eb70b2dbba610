#include "VELTRuntime/platform/appkit/controls/slider.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/controls/slider_widget.h"

#include <QApplication>
#include <QStyle>
#include <cmath>

using velt::cellAnswer;
using velt::cellMethod;
using velt::cellProperty;

NSSliderCell::NSSliderCell() : RangedCell(0, 1) { setContinuous(true); }

void NSSliderCell::setSliderType(unsigned long type) {
    if (type > kCircular) return;
    sliderType_ = type;
    changed();
}

void NSSliderCell::setAllowsTickMarkValuesOnly(bool flag) {
    ticksOnly_ = flag;
    changed();
}

double NSSliderCell::closestTickMarkValueToValue(double value) const {
    const long count = numberOfTickMarks();
    if (count == 0) return value;
    const double fraction = fractionOf(limited(value));
    long nearest = 0;
    if (isCircular()) {
        // Beyond the last mark the first one may be nearer, but not the value that lies before it.
        nearest = std::min(std::lround(fraction * static_cast<double>(count)), count - 1);
    } else if (count > 1) {
        nearest = std::lround(fraction * static_cast<double>(count - 1));
    }
    return tickMarkValueAtIndex(nearest);
}

bool NSSliderCell::isVertical() const {
    if (isCircular() || !control()) return false;
    const NSSize size = control()->frame().size;
    return size.height > size.width;
}

double NSSliderCell::knobThickness() const {
    velt::requireApplicationObject("a slider");
    return QApplication::style()->pixelMetric(QStyle::PM_SliderLength);
}

double NSSliderCell::tickMarkFraction(long index) const {
    // Around a circle the first mark stands where a last one would.
    if (isCircular()) return static_cast<double>(index) / static_cast<double>(std::max(numberOfTickMarks(), 1L));
    return RangedCell::tickMarkFraction(index);
}

double NSSliderCell::step() const {
    if (!ticksOnly_ || numberOfTickMarks() == 0) return RangedCell::step();
    if (numberOfTickMarks() == 1) return maxValue() - minValue();
    return tickMarkValueAtIndex(1) - tickMarkValueAtIndex(0);
}

NSSize NSSliderCell::cellSize() const {
    velt::requireApplicationObject("a slider");
    const bool marked = numberOfTickMarks() > 0;
    if (isCircular()) {
        constexpr double kSides[] = {28, 20, 16};
        const double side = kSides[std::min(controlSize(), 2UL)] + (marked ? 8 : 0);
        return {side, side};
    }
    // The length is the program's.
    constexpr double kUsualLength = 100, kMarks = 5;
    const double thick = QApplication::style()->pixelMetric(QStyle::PM_SliderThickness) + (marked ? kMarks : 0);
    const NSSize now = control() ? control()->frame().size : NSSize{};
    if (isVertical()) return {thick, now.height};
    return {now.width > 0 ? now.width : kUsualLength, thick};
}

template <class T> void NSSliderCell::describeSlider(velt::ClassBuilder<T>& c) {
    describeRange(c);
    describeTickMarks(c);
    cellProperty<&NSSliderCell::sliderType, &NSSliderCell::setSliderType>(c, "sliderType");
    cellProperty<&NSSliderCell::allowsTickMarkValuesOnly, &NSSliderCell::setAllowsTickMarkValuesOnly>(
        c, "allowsTickMarkValuesOnly");
    cellProperty<&NSSliderCell::altIncrementValue, &NSSliderCell::setAltIncrementValue>(c, "altIncrementValue");
    cellMethod<&NSSliderCell::closestTickMarkValueToValue>(c, "closestTickMarkValueToValue:");
    cellAnswer<&NSSliderCell::isVertical>(c, "isVertical");
    cellAnswer<&NSSliderCell::knobThickness>(c, "knobThickness");
}

void NSSliderCell::describe(velt::ClassBuilder<NSSliderCell>& c) { describeSlider(c); }

std::unique_ptr<QWidget> NSSlider::makeWidget() {
    auto made = std::make_unique<velt::SliderWidget>();
    watchEvents(*made);
    return made;
}

void NSSlider::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    static_cast<velt::SliderWidget&>(widget).cellShown();
}

void NSSlider::describe(velt::ClassBuilder<NSSlider>& c) { NSSliderCell::describeSlider(c); }
