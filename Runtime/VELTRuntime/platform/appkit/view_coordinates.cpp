// The way of places and sizes from one view into another: up to the window and down again.
#include "VELTRuntime/platform/appkit/view.h"

#include <algorithm>
#include <cmath>
#include <vector>

NSPoint NSView::toSuperview(NSPoint point) const {
    const NSRect own = bounds();
    const double sx = own.size.width != 0 ? frame_.size.width / own.size.width : 1;
    const double sy = own.size.height != 0 ? frame_.size.height / own.size.height : 1;
    const double x = (point.x - own.origin.x) * sx, y = (point.y - own.origin.y) * sy;
    const bool turns = superview_ && superview_->isFlipped() != isFlipped();
    return {frame_.origin.x + x, frame_.origin.y + (turns ? frame_.size.height - y : y)};
}

NSPoint NSView::fromSuperview(NSPoint point) const {
    const NSRect own = bounds();
    const double sx = frame_.size.width != 0 ? own.size.width / frame_.size.width : 1;
    const double sy = frame_.size.height != 0 ? own.size.height / frame_.size.height : 1;
    const bool turns = superview_ && superview_->isFlipped() != isFlipped();
    const double x = point.x - frame_.origin.x, up = point.y - frame_.origin.y;
    return {own.origin.x + x * sx, own.origin.y + (turns ? frame_.size.height - up : up) * sy};
}

NSPoint NSView::toBase(NSPoint point) const {
    const NSView* view = this;
    for (; view->superview_; view = view->superview_) point = view->toSuperview(point);
    if (view->isFlipped()) point.y = view->bounds().size.height - point.y;
    return point;
}

NSPoint NSView::fromBase(NSPoint point) const {
    std::vector<const NSView*> path;
    const NSView* view = this;
    for (; view->superview_; view = view->superview_) path.push_back(view);
    if (view->isFlipped()) point.y = view->bounds().size.height - point.y;
    for (auto step = path.rbegin(); step != path.rend(); ++step) point = (*step)->fromSuperview(point);
    return point;
}

NSPoint NSView::convertPointToView(NSPoint point, const NSView* view) const {
    const NSPoint base = toBase(point);
    return view ? view->fromBase(base) : base;
}

NSPoint NSView::convertPointFromView(NSPoint point, const NSView* view) const {
    return fromBase(view ? view->toBase(point) : point);
}

NSSize NSView::convertSizeToView(NSSize size, const NSView* view) const {
    const NSPoint origin = convertPointToView({0, 0}, view),
                  corner = convertPointToView({size.width, size.height}, view);
    return {std::abs(corner.x - origin.x), std::abs(corner.y - origin.y)};
}

NSRect NSView::convertRectToView(NSRect rect, const NSView* view) const {
    const NSPoint a = convertPointToView(rect.origin, view);
    const NSPoint b = convertPointToView({rect.origin.x + rect.size.width, rect.origin.y + rect.size.height}, view);
    return {{std::min(a.x, b.x), std::min(a.y, b.y)}, {std::abs(b.x - a.x), std::abs(b.y - a.y)}};
}

NSRect NSView::convertRectFromView(NSRect rect, const NSView* view) const {
    const NSPoint a = convertPointFromView(rect.origin, view);
    const NSPoint b = convertPointFromView({rect.origin.x + rect.size.width, rect.origin.y + rect.size.height}, view);
    return {{std::min(a.x, b.x), std::min(a.y, b.y)}, {std::abs(b.x - a.x), std::abs(b.y - a.y)}};
}
