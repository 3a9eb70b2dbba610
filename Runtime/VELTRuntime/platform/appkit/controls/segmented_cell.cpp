// The model of segmented controls.
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/controls/segmented_control.h"
#include "VELTRuntime/platform/appkit/controls/segmented_widget.h"
#include "VELTRuntime/platform/appkit/kept_text.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/object/drop_elements.h"
#include "VELTRuntime/platform/object/exception.h"

#include <QApplication>
#include <algorithm>

NSSegmentedCell::NSSegmentedCell() { select(-1); }

const velt::Segment& NSSegmentedCell::segment(long place) const {
    if (place < 0 || place >= segmentCount())
        velt::raiseRange("'" + isa().name() + "' segment", place, segments_.size());
    return segments_[static_cast<std::size_t>(place)];
}

velt::Segment& NSSegmentedCell::at(long place) { return const_cast<velt::Segment&>(segment(place)); }

void NSSegmentedCell::setSegmentCount(long count) {
    constexpr long kMost = 2048;  // more than a screen has dots
    const long wanted = std::clamp(count, 0L, kMost);
    if (wanted < segmentCount()) velt::dropFrom(segments_, segments_.begin() + wanted);
    segments_.resize(static_cast<std::size_t>(wanted));
    for (velt::Segment& segment : segments_) {
        if (segment.label.isNil()) segment.label = velt::string(std::u16string_view());
    }
    if (selected_ >= segmentCount()) select(-1);
    changed();
}

void NSSegmentedCell::select(long place) {
    selected_ = place;
    store(VELT_ID(place));
}

void NSSegmentedCell::setSelectedSegment(long place) {
    if (place >= 0) segment(place);
    if (tracking_ != velt::SegmentTracking::SelectAny || place < 0) {
        for (velt::Segment& each : segments_) each.isSelected = false;
    }
    if (place >= 0) at(place).isSelected = true;
    select(std::max(place, -1L));
    changed();
}

void NSSegmentedCell::setSelectedForSegment(bool flag, long place) {
    if (flag) {
        setSelectedSegment(place);
        return;
    }
    at(place).isSelected = false;
    if (selected_ == place) {
        const auto other =
            std::find_if(segments_.begin(), segments_.end(), [](const velt::Segment& each) { return each.isSelected; });
        select(other == segments_.end() ? -1 : other - segments_.begin());
    }
    changed();
}

bool NSSegmentedCell::selectSegmentWithTag(long tag) {
    const auto found =
        std::find_if(segments_.begin(), segments_.end(), [tag](const velt::Segment& each) { return each.tag == tag; });
    if (found == segments_.end()) return false;
    setSelectedSegment(found - segments_.begin());
    return true;
}

void NSSegmentedCell::setObjectValue(const id& value) {
    const double place = velt::isNumber(value) ? VELT_CDOUBLE(value) : -1;
    const bool exists = place >= 0 && place < static_cast<double>(segmentCount());
    setSelectedSegment(exists ? static_cast<long>(place) : -1);
}

void NSSegmentedCell::pressed(long place) {
    if (!segment(place).isEnabled) return;
    switch (tracking_) {
    case velt::SegmentTracking::SelectOne: setSelectedSegment(place); break;
    case velt::SegmentTracking::SelectAny: setSelectedForSegment(!segment(place).isSelected, place); break;
    case velt::SegmentTracking::Momentary:
        // The action finds out which one it was.
        select(place);
        break;
    }
}

// The segments.

void NSSegmentedCell::setLabelForSegment(const id& label, long place) {
    at(place).label = velt::textOrEmpty(label);
    changed();
}
void NSSegmentedCell::setImageForSegment(const id& image, long place) {
    at(place).image = image;
    changed();
}
void NSSegmentedCell::setMenuForSegment(const id& menu, long place) {
    at(place).menu = menu;
    changed();
}
void NSSegmentedCell::setToolTipForSegment(const id& text, long place) {
    at(place).toolTip = text;
    changed();
}
void NSSegmentedCell::setWidthForSegment(double width, long place) {
    at(place).width = std::max(width, 0.0);
    changed();
}
void NSSegmentedCell::setEnabledForSegment(bool flag, long place) {
    at(place).isEnabled = flag;
    changed();
}

void NSSegmentedCell::setTrackingMode(unsigned long mode) {
    if (mode > static_cast<unsigned long>(velt::SegmentTracking::Momentary)) return;
    tracking_ = static_cast<velt::SegmentTracking>(mode);
    // What the new mode cannot have is let go.
    if (tracking_ != velt::SegmentTracking::SelectAny) setSelectedSegment(selected_);
    if (tracking_ == velt::SegmentTracking::Momentary) setSelectedSegment(-1);
    changed();
}

NSSize NSSegmentedCell::cellSize() const {
    velt::requireApplicationObject("a segmented control");
    const QSize size = velt::segmentsSize(*this, *QApplication::style());
    return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

void NSSegmentedCell::visitOwned(velt::OwnedVisitor& visitor) {
    for (velt::Segment& each : segments_) {
        for (id* owned : {&each.label, &each.image, &each.menu, &each.toolTip}) visitor.visit(*owned);
    }
    NSActionCell::visitOwned(visitor);
}
