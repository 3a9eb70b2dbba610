// Progress: how far something has come, or that it goes on.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

/// A bar or a turning wheel. A new one is an indeterminate bar from 0 to 100 that stands still.
class VELT_EXPORT NSProgressIndicator : public NSView {
    VELT_OBJECT(NSProgressIndicator, NSView)
public:
    enum Style : unsigned long { kBar = 0, kSpinning = 1 };

    double doubleValue() const { return value_; }
    /// Any number is kept; what lies beyond the limits is shown as the nearest one.
    void setDoubleValue(double value);
    double minValue() const { return min_; }
    void setMinValue(double value);
    double maxValue() const { return max_; }
    void setMaxValue(double value);
    void incrementBy(double amount) { setDoubleValue(value_ + amount); }

    /// How far it has come is not known: it only moves while it is started.
    bool isIndeterminate() const { return indeterminate_; }
    void setIndeterminate(bool flag);
    unsigned long style() const { return style_; }
    void setStyle(unsigned long style);
    bool isDisplayedWhenStopped() const { return displayedWhenStopped_; }
    void setDisplayedWhenStopped(bool flag);
    bool isAnimating() const { return animating_; }
    void startAnimation(const id& sender);
    void stopAnimation(const id& sender);
    void sizeToFit();
    static void describe(velt::ClassBuilder<NSProgressIndicator>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
    void sizeChanged(NSSize before) override;

private:
    double part() const;
    bool isShown() const { return animating_ || displayedWhenStopped_ || !indeterminate_; }

    double value_ = 0, min_ = 0, max_ = 100;
    unsigned long style_ = kBar;
    bool indeterminate_ = true, displayedWhenStopped_ = true, animating_ = false;
};
