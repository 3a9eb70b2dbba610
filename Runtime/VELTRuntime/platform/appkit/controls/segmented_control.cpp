#include "VELTRuntime/platform/appkit/controls/segmented_control.h"

#include "VELTRuntime/platform/appkit/accessibility/names.h"
#include "VELTRuntime/platform/appkit/controls/segmented_widget.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

using velt::Ref;

std::unique_ptr<QWidget> NSSegmentedControl::makeWidget() {
    auto widget = std::make_unique<velt::SegmentedWidget>();
    watchEvents(*widget);
    return widget;
}

void NSSegmentedControl::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    const QString name = velt::qtText(toolTip());
    velt::setOwnName(widget, name);
    static_cast<velt::SegmentedWidget&>(widget).sync();
}

void NSSegmentedControl::pressed(long place) noexcept {
    const Ref<NSSegmentedControl> kept(this);
    bool sends = true;
    velt::runReported([&] {
        const velt::Segment& segment = segments().segment(place);
        if (!segment.isEnabled) sends = false;
        const id menu = segment.menu;
        // Without an action a press shows the segment's menu.
        const auto popUp = velt::Selector::named("popUpMenuPositioningItem:atLocation:inView:");
        if (sends && !segments().action() && velt::respondsTo(menu, popUp)) {
            const auto* widget = static_cast<velt::SegmentedWidget*>(existingWidget());
            const double x = widget ? widget->segmentRect(place).x() : 0;
            velt::send(menu, popUp, nil, VELT_ID(NSPoint{x, 0}), id(kept));
            sends = false;
            return;
        }
        segments().pressed(place);
    });
    if (sends) worked();
}

/// The messages about one segment, which the control answers as its cell does.
#define VELT_SEGMENT_MESSAGES(ROW)                                                                                     \
    ROW("selectSegmentWithTag:", selectSegmentWithTag)                                                                 \
    ROW("isSelectedForSegment:", isSelectedForSegment)                                                                 \
    ROW("setSelected:forSegment:", setSelectedForSegment)                                                              \
    ROW("labelForSegment:", labelForSegment)                                                                           \
    ROW("setLabel:forSegment:", setLabelForSegment)                                                                    \
    ROW("imageForSegment:", imageForSegment)                                                                           \
    ROW("setImage:forSegment:", setImageForSegment)                                                                    \
    ROW("menuForSegment:", menuForSegment)                                                                             \
    ROW("setMenu:forSegment:", setMenuForSegment)                                                                      \
    ROW("toolTipForSegment:", toolTipForSegment)                                                                       \
    ROW("setToolTip:forSegment:", setToolTipForSegment)                                                                \
    ROW("widthForSegment:", widthForSegment)                                                                           \
    ROW("setWidth:forSegment:", setWidthForSegment)                                                                    \
    ROW("tagForSegment:", tagForSegment)                                                                               \
    ROW("setTag:forSegment:", setTagForSegment)                                                                        \
    ROW("isEnabledForSegment:", isEnabledForSegment)                                                                   \
    ROW("setEnabled:forSegment:", setEnabledForSegment)

namespace {

template <auto Member> id sentToCell(const id& control, const id* arguments) {
    using Call = velt::MemberCall<decltype(Member)>;
    const velt::Method method{velt::Selector(), velt::Target::of(Member), nullptr};
    return Call::template call<decltype(Member)>(method, velt::as<NSSegmentedControl>(control)->cell(), arguments);
}

}  // namespace

void NSSegmentedCell::describe(velt::ClassBuilder<NSSegmentedCell>& c) {
    c.property("segmentCount", &NSSegmentedCell::segmentCount, &NSSegmentedCell::setSegmentCount)
        .property("selectedSegment", &NSSegmentedCell::selectedSegment, &NSSegmentedCell::setSelectedSegment)
        .property("trackingMode", &NSSegmentedCell::trackingMode, &NSSegmentedCell::setTrackingMode)
        .property("segmentStyle", &NSSegmentedCell::segmentStyle, &NSSegmentedCell::setSegmentStyle);
#define VELT_SEGMENT_ROW(selector, member) c.method(selector, &NSSegmentedCell::member);
    VELT_SEGMENT_MESSAGES(VELT_SEGMENT_ROW)
#undef VELT_SEGMENT_ROW
}

void NSSegmentedControl::describe(velt::ClassBuilder<NSSegmentedControl>& c) {
    c.property("segmentCount", &NSSegmentedControl::segmentCount, &NSSegmentedControl::setSegmentCount)
        .property("selectedSegment", &NSSegmentedControl::selectedSegment, &NSSegmentedControl::setSelectedSegment)
        .property("trackingMode", &NSSegmentedControl::trackingMode, &NSSegmentedControl::setTrackingMode)
        .property("segmentStyle", &NSSegmentedControl::segmentStyle, &NSSegmentedControl::setSegmentStyle);
#define VELT_SEGMENT_ROW(selector, member) c.method(selector, sentToCell<&NSSegmentedCell::member>);
    VELT_SEGMENT_MESSAGES(VELT_SEGMENT_ROW)
#undef VELT_SEGMENT_ROW
}
