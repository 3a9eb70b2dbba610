#include "VELTRuntime/platform/appkit/containers/clip_view.h"

#include "VELTRuntime/platform/appkit/containers/scroll_view.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/object/setting.h"

#include <QPainter>
#include <QWidget>
#include <algorithm>

NSView* NSClipView::document() const { return subviewList().empty() ? nullptr : subviewList().front().get(); }
id NSClipView::documentView() const { return id(static_cast<NSObject*>(document())); }

bool NSClipView::isFlipped() const { return document() && document()->isFlipped(); }

void NSClipView::setDocumentView(NSView* view) {
    if (view == document()) return;
    const velt::Ref<NSView> kept(view);
    while (document()) document()->removeFromSuperview();
    setBounds({{0, 0}, frame().size});
    if (view) addSubview(view);
    settle();
}

NSRect NSClipView::documentRect() const {
    NSRect rect = document() ? document()->frame() : NSRect{};
    rect.size.width = std::max(rect.size.width, frame().size.width);
    rect.size.height = std::max(rect.size.height, frame().size.height);
    return rect;
}

NSRect NSClipView::documentVisibleRect() const {
    return document() ? document()->convertRectFromView(bounds(), this) : bounds();
}

NSPoint NSClipView::constrainScrollPoint(NSPoint origin) const {
    const NSRect whole = documentRect();
    const auto within = [](double wanted, double first, double extent, double seen) {
        return std::clamp(wanted, first, first + std::max(extent - seen, 0.0));
    };
    return {within(origin.x, whole.origin.x, whole.size.width, frame().size.width),
            within(origin.y, whole.origin.y, whole.size.height, frame().size.height)};
}

void NSClipView::scrollToPoint(NSPoint origin) {
    if (bounds() == NSRect{origin, frame().size}) return;
    setBounds({origin, frame().size});
    moved();
}

bool NSClipView::bringIntoSight(NSRect rect) {
    const NSRect seen = bounds();
    const auto nearest = [](double now, double extent, double first, double length) {
        const double end = first + length;
        const bool startsBefore = first<now, endsBehind = end> now + extent;
        if (startsBefore == endsBehind) return now;  // all of it is seen, or nothing else
        return startsBefore == (length <= extent) ? first : end - extent;
    };
    const NSPoint before = seen.origin;
    scrollToPoint(constrainScrollPoint({nearest(before.x, seen.size.width, rect.origin.x, rect.size.width),
                                        nearest(before.y, seen.size.height, rect.origin.y, rect.size.height)}));
    return !(bounds().origin == before);
}

void NSClipView::moved() {
    if (auto* scrollView = dynamic_cast<NSScrollView*>(superviewPointer())) scrollView->reflectScrolledClipView(this);
}

/// The document or the room changed: what is seen stays within the document.
void NSClipView::settle() {
    if (settling_) return;
    {
        const velt::Setting settling(settling_, true);
        setBounds({constrainScrollPoint(bounds().origin), frame().size});
    }
    moved();
}

void NSClipView::setFrame(NSRect frame) {
    NSView::setFrame(frame);
    settle();
}
void NSClipView::sizeChanged(NSSize before) {
    // The scale stays one to one.
    setBounds({bounds().origin, frame().size});
    NSView::sizeChanged(before);
}
void NSClipView::subviewsChanged() { settle(); }
void NSClipView::subviewMoved(NSView& view) {
    if (&view == document()) settle();
}

void NSClipView::setDrawsBackground(bool flag) {
    drawsBackground_ = flag;
    changed();
}
void NSClipView::setBackgroundColor(const id& color) {
    backgroundColor_ = color;
    changed();
}

void NSClipView::syncWidget(QWidget& widget) {
    NSView::syncWidget(widget);
    widget.setBackgroundRole(drawsBackground_ ? QPalette::Base : QPalette::Window);
}

void NSClipView::drawRect(NSRect rect) {
    velt::GraphicsContext* context = velt::GraphicsContext::current();
    if (!drawsBackground_ || !context) return;
    const QColor color = velt::is<NSColor>(backgroundColor_) ? velt::qtColor(*velt::as<NSColor>(backgroundColor_))
                                                             : widget().palette().color(QPalette::Base);
    context->painter().fillRect(velt::qtRect(rect), color);
}

void NSClipView::describe(velt::ClassBuilder<NSClipView>& c) {
    c.property("documentView", &NSClipView::documentView, &NSClipView::setDocumentView)
        .property("documentRect", &NSClipView::documentRect)
        .property("documentVisibleRect", &NSClipView::documentVisibleRect)
        .property("drawsBackground", &NSClipView::drawsBackground, &NSClipView::setDrawsBackground)
        .property("backgroundColor", &NSClipView::backgroundColor, &NSClipView::setBackgroundColor)
        .method("scrollToPoint:", &NSClipView::scrollToPoint)
        .method("constrainScrollPoint:", &NSClipView::constrainScrollPoint)
        .owns(&NSClipView::backgroundColor_);
}
