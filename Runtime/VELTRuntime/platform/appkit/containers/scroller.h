// Scroll bars: say where in a document one is, and take one elsewhere.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

/// Stands upright when it is higher than wide. Its value runs from 0 (top, or left) to 1.
class VELT_EXPORT NSScroller : public NSView {
    VELT_OBJECT(NSScroller, NSView)
public:
    /// The width of the desktop's scroll bars.
    static double scrollerWidth();

    bool isVertical() const { return frame().size.height > frame().size.width; }
    double doubleValue() const { return value_; }
    void setDoubleValue(double value);
    /// How much of the whole is seen, from 0 to 1: the knob's part of the slot.
    double knobProportion() const;
    void setKnobProportion(double proportion);
    void setDoubleValueAndKnob(double value, double proportion);
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool flag);
    /// Who is told that a person moved the knob, and how: a method's name.
    id target() const { return target_; }
    void setTarget(const id& target) { target_ = target; }
    id action() const { return action_; }
    void setAction(const id& action) { action_ = action; }

    /// The whole and what is seen of it, in units of the screen, for an exact knob and steps of lines.
    void setSpan(double whole, double seen, double line);
    /// Stands upright whatever its frame, or lies.
    void setVertical(bool vertical);
    static void describe(velt::ClassBuilder<NSScroller>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;

private:
    void moved(int position);
    bool stands() const { return hasOwnDirection_ ? vertical_ : isVertical(); }

    double value_ = 0, whole_ = 1000, seen_ = 1000, line_ = 20;
    bool enabled_ = true, vertical_ = true, hasOwnDirection_ = false;
    id target_, action_;
};
