// Split views: panes side by side or one above the other, with dividers between them that a person drags.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

namespace velt {
class Divider;
/// What dividers look like; the numbers are those that programs use.
enum DividerStyle : unsigned long { kThickDivider = 1, kThinDivider = 2, kPaneSplitter = 3 };
}  // namespace velt

/// Its subviews are its panes, from the left, or from the top: positions are counted from there. The delegate limits
/// what a person can do ("splitView:constrainMinCoordinate:ofSubviewAt:",
/// "splitView:constrainMaxCoordinate:ofSubviewAt:", "splitView:constrainSplitPosition:ofSubviewAt:",
/// "splitView:canCollapseSubview:"), may resize the panes itself
/// ("splitView:resizeSubviewsWithOldSize:") and is told "splitViewDidResizeSubviews:".
class VELT_EXPORT NSSplitView : public NSView {
    VELT_OBJECT(NSSplitView, NSView)
public:
    bool isFlipped() const override { return true; }

    /// Dividers stand upright and panes side by side.
    bool isVertical() const { return vertical_; }
    void setVertical(bool flag);
    unsigned long dividerStyle() const { return dividerStyle_; }
    void setDividerStyle(unsigned long style);
    double dividerThickness() const;
    id delegate() const { return delegate_; }
    void setDelegate(const id& delegate) { delegate_ = delegate; }

    /// Resizes the panes in proportion so that they and the dividers fill the view.
    void adjustSubviews();
    /// A pane that is hidden takes no room.
    bool isSubviewCollapsed(const id& view) const;
    /// Puts a divider as near to a position as the panes and the delegate let it. Raises "NSRangeException" for a
    /// divider that is not there.
    void setPosition(double position, long divider);
    /// Where a divider is, from the left or from the top.
    double positionOfDivider(long divider) const;
    double minPossiblePositionOfDivider(long divider) const;
    double maxPossiblePositionOfDivider(long divider) const;

    // The dividers' reports.
    void dragDivider(std::size_t divider, double position);

    static void describe(velt::ClassBuilder<NSSplitView>& c);

protected:
    void syncWidget(QWidget& widget) override;
    void sizeChanged(NSSize before) override;
    void subviewsChanged() override;

private:
    /// Delegates are asked and told while panes are moved, and may take one away.
    struct Pane {
        velt::Ref<NSView> view;
        double first, extent;
    };
    double extentOf(NSSize size) const { return vertical_ ? size.width : size.height; }
    std::vector<Pane> shownPanes() const;
    void setPanes(const std::vector<Pane>& panes);
    double limit(const char* selector, double position, std::size_t divider);
    bool canCollapse(NSView& view);
    void move(std::size_t divider, double position);
    void placeDividers();
    void tellResized();
    void requireDivider(const char* operation, long divider) const;

    bool vertical_ = false, arranging_ = false;
    unsigned long dividerStyle_ = velt::kThickDivider;
    id delegate_;
    std::vector<velt::Divider*> dividers_;  // children of the widget
};
