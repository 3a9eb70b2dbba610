#include "VELTRuntime/platform/appkit/controls/level_indicator.h"

#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/controls/level_widget.h"

#include <cmath>

using velt::cellFlag;
using velt::cellProperty;

namespace {

/// Segments beyond these could not be told apart.
constexpr int kMostSegments = 1000;

id color(double red, double green, double blue) { return velt::make<NSColor>(red, green, blue, 1.0); }

}  // namespace

NSLevelIndicatorCell::NSLevelIndicatorCell() : RangedCell(0, 5) {
    setContinuous(true);
    setEditable(true);
}

void NSLevelIndicatorCell::setLevelIndicatorStyle(unsigned long style) {
    if (style > kRating) return;
    style_ = style;
    changed();
}

void NSLevelIndicatorCell::setWarningValue(double value) {
    warning_ = value;
    hasWarning_ = true;
    changed();
}
void NSLevelIndicatorCell::setCriticalValue(double value) {
    critical_ = value;
    hasCritical_ = true;
    changed();
}

id NSLevelIndicatorCell::fillColor() const { return fill_.isNil() ? color(0.20, 0.65, 0.32) : fill_; }
id NSLevelIndicatorCell::warningFillColor() const {
    return warningFill_.isNil() ? color(0.95, 0.75, 0.10) : warningFill_;
}
id NSLevelIndicatorCell::criticalFillColor() const {
    return criticalFill_.isNil() ? color(0.85, 0.20, 0.18) : criticalFill_;
}
void NSLevelIndicatorCell::setFillColor(NSColor* color) {
    fill_ = velt::boxResult(color);
    changed();
}
void NSLevelIndicatorCell::setWarningFillColor(NSColor* color) {
    warningFill_ = velt::boxResult(color);
    changed();
}
void NSLevelIndicatorCell::setCriticalFillColor(NSColor* color) {
    criticalFill_ = velt::boxResult(color);
    changed();
}

id NSLevelIndicatorCell::levelColor() const {
    const double value = doubleValue();
    // A critical value below the warning means that little is bad, as with a battery.
    const bool littleIsBad = hasWarning_ && hasCritical_ && critical_ < warning_;
    const auto reached = [&](double limit) { return littleIsBad ? value <= limit : value >= limit; };
    if (hasCritical_ && reached(critical_)) return criticalFillColor();
    return hasWarning_ && reached(warning_) ? warningFillColor() : fillColor();
}

void NSLevelIndicatorCell::setNumberOfMajorTickMarks(long count) {
    majorTickMarks_ = std::clamp(count, 0L, 10'000L);
    changed();
}

int NSLevelIndicatorCell::segments() const {
    return static_cast<int>(std::clamp(std::floor(maxValue() - minValue()), 0.0, double{kMostSegments}));
}

int NSLevelIndicatorCell::filledSegments() const {
    return static_cast<int>(std::clamp(std::round(doubleValue() - minValue()), 0.0, double{kMostSegments}));
}

double NSLevelIndicatorCell::step() const { return isStepped() ? 1 : RangedCell::step(); }

NSSize NSLevelIndicatorCell::cellSize() const {
    constexpr double kHeight = 16, kMarks = 6, kStar = 14, kSegment = 12, kBar = 100;
    const double marks = numberOfTickMarks() > 0 && style_ != kRelevancy && style_ != kRating ? kMarks : 0;
    const double width = style_ == kRating             ? segments() * kStar
                         : style_ == kDiscreteCapacity ? segments() * kSegment
                                                       : kBar;
    return {std::max(width, kHeight), kHeight + marks};
}

template <class T> void NSLevelIndicatorCell::describeLevel(velt::ClassBuilder<T>& c) {
    using Cell = NSLevelIndicatorCell;
    describeRange(c);
    describeTickMarks(c);
    cellProperty<&Cell::levelIndicatorStyle, &Cell::setLevelIndicatorStyle>(c, "levelIndicatorStyle");
    cellProperty<&Cell::warningValue, &Cell::setWarningValue>(c, "warningValue");
    cellProperty<&Cell::criticalValue, &Cell::setCriticalValue>(c, "criticalValue");
    cellProperty<&Cell::fillColor, &Cell::setFillColor>(c, "fillColor");
    cellProperty<&Cell::warningFillColor, &Cell::setWarningFillColor>(c, "warningFillColor");
    cellProperty<&Cell::criticalFillColor, &Cell::setCriticalFillColor>(c, "criticalFillColor");
    cellProperty<&Cell::numberOfMajorTickMarks, &Cell::setNumberOfMajorTickMarks>(c, "numberOfMajorTickMarks");
}

void NSLevelIndicatorCell::describe(velt::ClassBuilder<NSLevelIndicatorCell>& c) {
    describeLevel(c);
    c.owns(&NSLevelIndicatorCell::fill_)
        .owns(&NSLevelIndicatorCell::warningFill_)
        .owns(&NSLevelIndicatorCell::criticalFill_);
}

std::unique_ptr<QWidget> NSLevelIndicator::makeWidget() {
    auto made = std::make_unique<velt::LevelWidget>();
    watchEvents(*made);
    return made;
}

void NSLevelIndicator::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    static_cast<velt::LevelWidget&>(widget).cellShown();
}

void NSLevelIndicator::describe(velt::ClassBuilder<NSLevelIndicator>& c) {
    NSLevelIndicatorCell::describeLevel(c);
    c.flag("editable", &NSLevelIndicator::isEditable, &NSLevelIndicator::setEditable);
}
