#include "VELTRuntime/platform/appkit/containers/split_view.h"

#include "VELTRuntime/platform/appkit/containers/divider.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/setting.h"
#include "VELTRuntime/values/string.h"

#include <QWidget>
#include <algorithm>
#include <cmath>

using velt::Ref;

void NSSplitView::setVertical(bool flag) {
    if (vertical_ == flag) return;
    vertical_ = flag;
    adjustSubviews();
}
void NSSplitView::setDividerStyle(unsigned long style) {
    dividerStyle_ = style;
    adjustSubviews();
}

double NSSplitView::dividerThickness() const {
    constexpr double kThin = 1, kThick = 9;
    return dividerStyle_ == velt::kThinDivider ? kThin : kThick;
}

// Where the panes are. The first one is the left one, also where windows are read from the right: programs reckon with
// the panes' frames, whose places are theirs.

std::vector<NSSplitView::Pane> NSSplitView::shownPanes() const {
    std::vector<Pane> panes;
    for (const Ref<NSView>& view : subviewList()) {
        if (view->isHidden()) continue;
        const NSRect frame = view->frame();
        panes.push_back({view, vertical_ ? frame.origin.x : frame.origin.y, extentOf(frame.size)});
    }
    return panes;
}

bool NSSplitView::isSubviewCollapsed(const id& view) const {
    return velt::is<NSView>(view) && velt::as<NSView>(view)->superviewPointer() == this &&
           velt::as<NSView>(view)->isHidden();
}

void NSSplitView::setPanes(const std::vector<Pane>& panes) {
    {
        const velt::Setting arranging(arranging_, true);
        const NSSize size = frame().size;
        for (const Pane& pane : panes) {
            pane.view->setFrame(vertical_ ? NSRect{{pane.first, 0}, {pane.extent, size.height}}
                                          : NSRect{{0, pane.first}, {size.width, pane.extent}});
        }
    }
    placeDividers();
    tellResized();
}

void NSSplitView::adjustSubviews() {
    if (arranging_) return;
    std::vector<Pane> panes = shownPanes();
    if (panes.empty()) return placeDividers();
    const double gaps = dividerThickness() * static_cast<double>(panes.size() - 1);
    const double room = std::max(extentOf(frame().size) - gaps, 0.0);
    double whole = 0;
    for (const Pane& pane : panes) whole += pane.extent;
    // Whole numbers, so that dividers are drawn sharp; the last pane takes what is left.
    double at = 0, left = room;
    for (std::size_t i = 0; i < panes.size(); ++i) {
        const double share = whole > 0 ? room * panes[i].extent / whole : room / static_cast<double>(panes.size());
        const double extent = i + 1 == panes.size() ? left : std::min(std::round(share), left);
        panes[i].first = at;
        panes[i].extent = extent;
        at += extent + dividerThickness();
        left -= extent;
    }
    setPanes(panes);
}

void NSSplitView::sizeChanged(NSSize before) {
    const velt::Selector own = velt::Selector::named("splitView:resizeSubviewsWithOldSize:");
    if (velt::respondsTo(delegate_, own)) {
        velt::send(delegate_, own, id(static_cast<NSObject*>(this)), VELT_ID(before));
        placeDividers();
        return changed();
    }
    adjustSubviews();
    changed();
}

void NSSplitView::subviewsChanged() { adjustSubviews(); }

void NSSplitView::tellResized() {
    velt::tellDelegateAndObservers(delegate_, "splitViewDidResizeSubviews:", "NSSplitViewDidResizeSubviewsNotification",
                                   id(static_cast<NSObject*>(this)));
}

// Dividers.

void NSSplitView::requireDivider(const char* operation, long divider) const {
    const std::size_t panes = shownPanes().size(), count = panes > 0 ? panes - 1 : 0;
    if (divider < 0 || static_cast<std::size_t>(divider) >= count) {
        velt::raiseRange("'" + isa().name() + "' " + operation, divider, count);
    }
}

double NSSplitView::positionOfDivider(long divider) const {
    requireDivider("positionOfDividerAtIndex:", divider);
    const Pane pane = shownPanes()[static_cast<std::size_t>(divider)];
    return pane.first + pane.extent;
}
double NSSplitView::minPossiblePositionOfDivider(long divider) const {
    requireDivider("minPossiblePositionOfDividerAtIndex:", divider);
    return shownPanes()[static_cast<std::size_t>(divider)].first;
}
double NSSplitView::maxPossiblePositionOfDivider(long divider) const {
    requireDivider("maxPossiblePositionOfDividerAtIndex:", divider);
    const Pane pane = shownPanes()[static_cast<std::size_t>(divider) + 1];
    return pane.first + pane.extent - dividerThickness();
}

/// What the delegate makes of a coordinate; the coordinate itself when it has no such method.
double NSSplitView::limit(const char* selector, double position, std::size_t divider) {
    const velt::Selector asks = velt::Selector::named(selector);
    if (!velt::respondsTo(delegate_, asks)) return position;
    return VELT_CDOUBLE(velt::send(delegate_, asks, id(static_cast<NSObject*>(this)), VELT_ID(position),
                                   VELT_ID(static_cast<long>(divider))));
}

bool NSSplitView::canCollapse(NSView& view) {
    const velt::Selector asks = velt::Selector::named("splitView:canCollapseSubview:");
    return velt::respondsTo(delegate_, asks) &&
           VELT_CBOOL(velt::send(delegate_, asks, id(static_cast<NSObject*>(this)), id(static_cast<NSObject*>(&view))));
}

void NSSplitView::setPosition(double position, long divider) {
    requireDivider("setPosition:ofDividerAtIndex:", divider);
    dragDivider(static_cast<std::size_t>(divider), position);
}

void NSSplitView::dragDivider(std::size_t divider, double position) {
    std::vector<Pane> panes = shownPanes();
    if (divider + 1 >= panes.size()) return;
    const double least = panes[divider].first;
    const double most = panes[divider + 1].first + panes[divider + 1].extent - dividerThickness();
    const double low = std::max(limit("splitView:constrainMinCoordinate:ofSubviewAt:", least, divider), least);
    const double high = std::min(limit("splitView:constrainMaxCoordinate:ofSubviewAt:", most, divider), most);
    const double wanted = limit("splitView:constrainSplitPosition:ofSubviewAt:", position, divider);
    double put = std::clamp(wanted, low, std::max(low, high));
    // Beyond half of the least extent a pane that may collapse does so.
    if (low > least && wanted < least + (low - least) / 2 && canCollapse(*panes[divider].view)) put = least;
    if (high < most && wanted > most - (most - high) / 2 && canCollapse(*panes[divider + 1].view)) put = most;
    move(divider, put);
}

void NSSplitView::move(std::size_t divider, double position) {
    std::vector<Pane> panes = shownPanes();
    if (divider + 1 >= panes.size()) return;
    Pane &before = panes[divider], &behind = panes[divider + 1];
    const double end = behind.first + behind.extent;
    before.extent = std::max(std::round(position) - before.first, 0.0);
    behind.first = before.first + before.extent + dividerThickness();
    behind.extent = std::max(end - behind.first, 0.0);
    setPanes(panes);
}

void NSSplitView::placeDividers() {
    QWidget* shown = existingWidget();
    if (!shown) return;
    const std::vector<Pane> panes = shownPanes();
    const std::size_t count = panes.empty() ? 0 : panes.size() - 1;
    while (dividers_.size() < count) dividers_.push_back(new velt::Divider(shown, dividers_.size()));
    for (std::size_t i = 0; i < dividers_.size(); ++i) {
        velt::Divider& divider = *dividers_[i];
        divider.setVisible(i < count);
        if (i >= count) continue;
        const int at = static_cast<int>(std::lround(panes[i].first + panes[i].extent));
        const int thickness = static_cast<int>(dividerThickness());
        const int width = static_cast<int>(std::lround(frame().size.width)),
                  height = static_cast<int>(std::lround(frame().size.height));
        divider.place(vertical_ ? QRect(at, 0, thickness, height) : QRect(0, at, width, thickness), thickness,
                      vertical_, dividerStyle_ == velt::kThinDivider);
        divider.raise();
    }
}

void NSSplitView::syncWidget(QWidget& widget) {
    NSView::syncWidget(widget);
    placeDividers();
}

void NSSplitView::describe(velt::ClassBuilder<NSSplitView>& c) {
    c.flag("vertical", &NSSplitView::isVertical, &NSSplitView::setVertical)
        .property("dividerStyle", &NSSplitView::dividerStyle, &NSSplitView::setDividerStyle)
        .property("dividerThickness", &NSSplitView::dividerThickness)
        .property("delegate", &NSSplitView::delegate, &NSSplitView::setDelegate)
        .method("adjustSubviews", &NSSplitView::adjustSubviews)
        .method("isSubviewCollapsed:", &NSSplitView::isSubviewCollapsed)
        .method("setPosition:ofDividerAtIndex:", &NSSplitView::setPosition)
        .method("positionOfDividerAtIndex:", &NSSplitView::positionOfDivider)
        .method("minPossiblePositionOfDividerAtIndex:", &NSSplitView::minPossiblePositionOfDivider)
        .method("maxPossiblePositionOfDividerAtIndex:", &NSSplitView::maxPossiblePositionOfDivider)
        .owns(&NSSplitView::delegate_);
}
