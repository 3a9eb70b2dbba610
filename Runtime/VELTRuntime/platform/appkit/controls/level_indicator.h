// Level indicators: how much there is of something, as a bar, as segments or as stars.
#pragma once

#include "VELTRuntime/platform/appkit/controls/ranged_cell.h"

class NSColor;

/// From 0 to 5 in segments; a click sets it.
class VELT_EXPORT NSLevelIndicatorCell : public velt::RangedCell {
    VELT_OBJECT(NSLevelIndicatorCell, NSActionCell)
public:
    enum Style : unsigned long { kRelevancy = 0, kContinuousCapacity = 1, kDiscreteCapacity = 2, kRating = 3 };
    NSLevelIndicatorCell();

    unsigned long levelIndicatorStyle() const { return style_; }
    void setLevelIndicatorStyle(unsigned long style);
    /// From this value on the level is shown in the warning colour, or down from it when the critical value lies below.
    /// The limits of neither colour are set in a new cell.
    double warningValue() const { return warning_; }
    void setWarningValue(double value);
    double criticalValue() const { return critical_; }
    void setCriticalValue(double value);
    /// The colours; the desktop's usual green, yellow and red until they are set, and again for nil.
    id fillColor() const;
    void setFillColor(NSColor* color);
    id warningFillColor() const;
    void setWarningFillColor(NSColor* color);
    id criticalFillColor() const;
    void setCriticalFillColor(NSColor* color);
    /// The colour for the present value.
    id levelColor() const;
    /// Some marks are longer, at even distances.
    long numberOfMajorTickMarks() const { return majorTickMarks_; }
    void setNumberOfMajorTickMarks(long count);

    /// Whole segments or stars, from 0; the number of those that the value fills.
    bool isStepped() const { return style_ == kDiscreteCapacity || style_ == kRating; }
    int segments() const;
    int filledSegments() const;

    double step() const override;
    bool isWorkable() const override { return isEnabled() && isEditable() && style_ != kRelevancy; }
    NSSize cellSize() const override;
    template <class T> static void describeLevel(velt::ClassBuilder<T>& c);
    static void describe(velt::ClassBuilder<NSLevelIndicatorCell>& c);

private:
    unsigned long style_ = kDiscreteCapacity;
    double warning_ = 0, critical_ = 0;
    bool hasWarning_ = false, hasCritical_ = false;
    long majorTickMarks_ = 0;
    id fill_, warningFill_, criticalFill_;
};

class VELT_EXPORT NSLevelIndicator : public velt::ControlOf<NSLevelIndicatorCell> {
    VELT_OBJECT(NSLevelIndicator, NSControl)
public:
    bool isEditable() const { return ownCell().isEditable(); }
    void setEditable(bool flag) { ownCell().setEditable(flag); }
    static void describe(velt::ClassBuilder<NSLevelIndicator>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
    bool takesKeys() const override { return ownCell().isWorkable(); }
};
