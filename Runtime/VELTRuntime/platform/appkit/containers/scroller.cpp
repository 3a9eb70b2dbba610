#include "VELTRuntime/platform/appkit/containers/scroller.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/containers/scroll_view.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/values/string.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>
#include <cmath>

double NSScroller::scrollerWidth() {
    velt::requireApplicationObject("a scroller");
    return QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

void NSScroller::setDoubleValue(double value) {
    value_ = std::clamp(value, 0.0, 1.0);
    changed();
}
double NSScroller::knobProportion() const { return whole_ > 0 ? std::clamp(seen_ / whole_, 0.0, 1.0) : 1; }
void NSScroller::setKnobProportion(double proportion) {
    whole_ = 1000;
    seen_ = whole_ * std::clamp(proportion, 0.0, 1.0);
    changed();
}
void NSScroller::setDoubleValueAndKnob(double value, double proportion) {
    setKnobProportion(proportion);
    setDoubleValue(value);
}
void NSScroller::setEnabled(bool flag) {
    enabled_ = flag;
    changed();
}
void NSScroller::setSpan(double whole, double seen, double line) {
    whole_ = whole;
    seen_ = seen;
    line_ = line;
    changed();
}
void NSScroller::setVertical(bool vertical) {
    hasOwnDirection_ = true;
    vertical_ = vertical;
    changed();
}

std::unique_ptr<QWidget> NSScroller::makeWidget() {
    auto bar = std::make_unique<QScrollBar>();
    QScrollBar* shown = bar.get();
    QObject::connect(shown, &QScrollBar::valueChanged, shown, [shown](int position) {
        if (NSView* view = velt::viewOf(shown)) static_cast<NSScroller*>(view)->moved(position);
    });
    return bar;
}

void NSScroller::syncWidget(QWidget& widget) {
    auto& bar = static_cast<QScrollBar&>(widget);
    const QSignalBlocker quiet(bar);
    bar.setOrientation(stands() ? Qt::Vertical : Qt::Horizontal);
    const int last = static_cast<int>(std::clamp(std::round(whole_ - seen_), 0.0, 1e9));
    bar.setRange(0, last);
    bar.setPageStep(std::max(1, static_cast<int>(std::clamp(std::round(seen_), 0.0, 1e9))));
    bar.setSingleStep(std::max(1, static_cast<int>(std::clamp(line_, 0.0, 1e9))));
    bar.setValue(static_cast<int>(std::lround(value_ * last)));
    bar.setEnabled(enabled_);
    bar.setToolTip({});
    bar.setAccessibleName(stands() ? QObject::tr("Vertical") : QObject::tr("Horizontal"));
}

void NSScroller::moved(int position) {
    velt::runReported([&] {
        const velt::Ref<NSScroller> kept(this);
        const int last = static_cast<QScrollBar*>(existingWidget())->maximum();
        value_ = last > 0 ? static_cast<double>(position) / last : 0;
        if (auto* scrollView = dynamic_cast<NSScrollView*>(superviewPointer()); scrollView && target_.isNil()) {
            scrollView->scrollerMoved(*this);
        } else if (velt::isString(action_) && velt::textOf(action_).size() > 0) {
            NSApplication::sharedApplication().sendAction(velt::Selector::named(velt::utf8(action_)), target_, kept);
        }
    });
}

void NSScroller::describe(velt::ClassBuilder<NSScroller>& c) {
    c.property("doubleValue", &NSScroller::doubleValue, &NSScroller::setDoubleValue)
        .property("floatValue", &NSScroller::doubleValue, &NSScroller::setDoubleValue)
        .property("knobProportion", &NSScroller::knobProportion, &NSScroller::setKnobProportion)
        .property("target", &NSScroller::target, &NSScroller::setTarget)
        .property("action", &NSScroller::action, &NSScroller::setAction)
        .flag("enabled", &NSScroller::isEnabled, &NSScroller::setEnabled)
        .method("setFloatValue:knobProportion:", &NSScroller::setDoubleValueAndKnob)
        .classMethod("scrollerWidth", [](const id&, const id*) { return VELT_ID(scrollerWidth()); })
        .owns(&NSScroller::target_)
        .owns(&NSScroller::action_);
}
