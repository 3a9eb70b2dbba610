// How an editor view is shown, apart from its text: margin and zoom.
#include "VELTRuntime/editor/breakpoints.h"
#include "VELTRuntime/editor/view/source_margin.h"
#include "VELTRuntime/editor/view/source_view_parts.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"

#include <algorithm>
#include <cmath>

using velt::Ref;
using velt::SourceMargin;

namespace {

constexpr double kSmallestZoom = 0.2, kLargestZoom = 5, kSteps = 10;

}  // namespace

// The margin.

void VLTextView::setLineSeparators(const id& positions) {
    lineSeparators_ = positions;
    SourceMargin::listsChanged(*this);
}

void VLTextView::setBreakpoints(const id& positions) {
    breakpoints_ = positions;
    SourceMargin::listsChanged(*this);
}

void VLTextView::toggleBreakpointAtLine(long line) {
    const Ref<VLTextView> kept(this);
    const std::shared_ptr<Parts> parts = parts_;
    const id list = breakpoints_;
    if (line < 1 || !velt::is<NSMutableArray>(list)) return;
    auto& entries = *velt::as<NSMutableArray>(list);
    if (velt::toggleBreakpointOfLine(buffer(), static_cast<std::size_t>(line), entries)) parts->target.highlightAll();
    SourceMargin::listsChanged(*this);
}

void VLTextView::setShowsLineNumbers(bool flag) {
    showsLineNumbers_ = flag;
    changed();
}

void VLTextView::syncWidget(QWidget& shown) {
    NSTextView::syncWidget(shown);
    auto& widget = static_cast<velt::TextWidget&>(shown);
    SourceMargin* margin = SourceMargin::of(widget);
    if (showsLineNumbers_ && !margin) {
        new SourceMargin(widget);  // the widget's own from now on
    } else if (!showsLineNumbers_ && margin) {
        margin->leave();
    }
}

// The zoom.

void VLTextView::setZoomFactor(double factor) {
    if (!std::isfinite(factor)) return;
    zoomFactor_ = std::clamp(factor, kSmallestZoom, kLargestZoom);
    changed();
}

void VLTextView::zoomIn(const id&) { setZoomFactor((std::round(zoomFactor_ * kSteps) + 1) / kSteps); }
void VLTextView::zoomOut(const id&) { setZoomFactor((std::round(zoomFactor_ * kSteps) - 1) / kSteps); }
void VLTextView::resetZoom(const id&) { setZoomFactor(1); }

void VLTextView::describeMargin(velt::ClassBuilder<VLTextView>& c) {
    c.property("showsLineNumbers", &VLTextView::showsLineNumbers, &VLTextView::setShowsLineNumbers)
        .property("zoomFactor", &VLTextView::zoomFactor, &VLTextView::setZoomFactor)
        .method("toggleBreakpointAtLine:", &VLTextView::toggleBreakpointAtLine)
        .method("zoomIn:", &VLTextView::zoomIn)
        .method("zoomOut:", &VLTextView::zoomOut)
        .method("resetZoom:", &VLTextView::resetZoom);
}
