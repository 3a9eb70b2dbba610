// The way of places and sizes from one view into another: up to the window and down again.
#include "VELTRuntime/platform/appkit/view.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// How many units of one extent a unit of another one is.
double scaleTo(double to, double from) { return from != 0 ? to / from : 1; }

/// A point of a view's own coordinates, from the corner of its frame at which they begin.
NSPoint withinFrame(const NSView& view, NSPoint point) {
    const NSRect own = view.bounds();
    const NSSize size = view.frame().size;
    return {(point.x - own.origin.x) * scaleTo(size.width, own.size.width),
            (point.y - own.origin.y) * scaleTo(size.height, own.size.height)};
}

/// The other way round.
NSPoint withinBounds(const NSView& view, NSPoint point) {
    const NSRect own = view.bounds();
    const NSSize size = view.frame().size;
    return {own.origin.x + point.x * scaleTo(own.size.width, size.width),
            own.origin.y + point.y * scaleTo(own.size.height, size.height)};
}

}  // namespace

NSPoint NSView::toSuperview(NSPoint point) const {
    const auto [x, y] = withinFrame(*this, point);
    const bool turns = superview_ && superview_->isFlipped() != isFlipped();
    return {frame_.origin.x + x, frame_.origin.y + (turns ? frame_.size.height - y : y)};
}

NSPoint NSView::fromSuperview(NSPoint point) const {
    const bool turns = superview_ && superview_->isFlipped() != isFlipped();
    const double x = point.x - frame_.origin.x, up = point.y - frame_.origin.y;
    return withinBounds(*this, {x, turns ? frame_.size.height - up : up});
}

NSPoint NSView::toBase(NSPoint point) const {
    const NSView* view = this;
    for (; view->superview_; view = view->superview_) point = view->toSuperview(point);
    // The outermost view fills the window's content.
    point = withinFrame(*view, point);
    if (view->isFlipped()) point.y = view->frame_.size.height - point.y;
    return point;
}

NSPoint NSView::fromBase(NSPoint point) const {
    std::vector<const NSView*> path;
    const NSView* view = this;
    for (; view->superview_; view = view->superview_) path.push_back(view);
    if (view->isFlipped()) point.y = view->frame_.size.height - point.y;
    point = withinBounds(*view, point);
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
