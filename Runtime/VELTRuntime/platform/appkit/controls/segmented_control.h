// Segmented controls: buttons joined in a row, of which one, several or none is chosen.
#pragma once

#include "VELTRuntime/platform/appkit/controls/control.h"

#include <vector>

namespace velt {

/// What a click on a segment does; the numbers are the codes that programs use.
enum class SegmentTracking : unsigned long {
    SelectOne = 0,
    SelectAny = 1,
    Momentary = 2,
};

struct Segment {
    id label, image, menu, toolTip;
    double width = 0;  // 0 as wide as its contents
    long tag = 0;
    bool isEnabled = true, isSelected = false;
};

}  // namespace velt

/// The value is the place of the selected segment. Places are counted from 0; one that there is not raises
/// "NSRangeException".
class VELT_EXPORT NSSegmentedCell : public NSActionCell {
    VELT_OBJECT(NSSegmentedCell, NSActionCell)
public:
    /// Without segments.
    NSSegmentedCell();

    long segmentCount() const { return static_cast<long>(segments_.size()); }
    /// New segments are empty; segments beyond the count go.
    void setSegmentCount(long count);
    const velt::Segment& segment(long place) const;

    /// The segment that was selected last; -1 when none is.
    long selectedSegment() const { return selected_; }
    /// Selects a segment, alone unless several may be selected; -1 selects none.
    void setSelectedSegment(long place);
    bool selectSegmentWithTag(long tag);
    bool isSelectedForSegment(long place) const { return segment(place).isSelected; }
    void setSelectedForSegment(bool flag, long place);
    void setObjectValue(const id& value) override;

    id labelForSegment(long place) const { return segment(place).label; }
    void setLabelForSegment(const id& label, long place);
    id imageForSegment(long place) const { return segment(place).image; }
    void setImageForSegment(const id& image, long place);
    id menuForSegment(long place) const { return segment(place).menu; }
    void setMenuForSegment(const id& menu, long place);
    id toolTipForSegment(long place) const { return segment(place).toolTip; }
    void setToolTipForSegment(const id& text, long place);
    double widthForSegment(long place) const { return segment(place).width; }
    void setWidthForSegment(double width, long place);
    long tagForSegment(long place) const { return segment(place).tag; }
    void setTagForSegment(long tag, long place) { at(place).tag = tag; }
    bool isEnabledForSegment(long place) const { return segment(place).isEnabled; }
    void setEnabledForSegment(bool flag, long place);

    unsigned long trackingMode() const { return static_cast<unsigned long>(tracking_); }
    void setTrackingMode(unsigned long mode);
    velt::SegmentTracking tracking() const { return tracking_; }
    /// Kept for programs; the desktop has one look for joined buttons.
    long segmentStyle() const { return segmentStyle_; }
    void setSegmentStyle(long style) { segmentStyle_ = style; }

    /// A person pressed a segment; what the tracking mode makes of it.
    void pressed(long place);
    NSSize cellSize() const override;
    void visitOwned(velt::OwnedVisitor& visitor) override;
    static void describe(velt::ClassBuilder<NSSegmentedCell>& c);

private:
    velt::Segment& at(long place);
    void select(long place);

    std::vector<velt::Segment> segments_;
    long selected_ = -1, segmentStyle_ = 0;
    velt::SegmentTracking tracking_ = velt::SegmentTracking::SelectOne;
};

class VELT_EXPORT NSSegmentedControl : public NSControl {
    VELT_OBJECT(NSSegmentedControl, NSControl)
public:
    NSSegmentedCell& segments() const { return *velt::as<NSSegmentedCell>(cell()); }
    long segmentCount() const { return segments().segmentCount(); }
    void setSegmentCount(long count) { segments().setSegmentCount(count); }
    long selectedSegment() const { return segments().selectedSegment(); }
    void setSelectedSegment(long place) { segments().setSelectedSegment(place); }
    unsigned long trackingMode() const { return segments().trackingMode(); }
    void setTrackingMode(unsigned long mode) { segments().setTrackingMode(mode); }
    long segmentStyle() const { return segments().segmentStyle(); }
    void setSegmentStyle(long style) { segments().setSegmentStyle(style); }
    /// A person pressed a segment: shows its menu, or changes the selection and sends the action.
    void pressed(long place) noexcept;
    static void describe(velt::ClassBuilder<NSSegmentedControl>& c);

protected:
    velt::Ref<NSCell> makeCell() const override { return velt::make<NSSegmentedCell>(); }
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
};
