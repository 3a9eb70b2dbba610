#include "VELTRuntime/platform/appkit/containers/scroll_view.h"

#include "VELTRuntime/platform/appkit/containers/frame_drawing.h"
#include "VELTRuntime/platform/appkit/containers/scrolling.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/object/setting.h"
#include "VELTRuntime/values/string.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

using velt::Ref;

NSScrollView::NSScrollView() : content_(velt::make<NSClipView>()) {
    vertical_ = velt::make<NSScroller>();
    vertical_->setVertical(true);
    horizontal_ = velt::make<NSScroller>();
    horizontal_->setVertical(false);
    vertical_->setHidden(true);
    horizontal_->setHidden(true);
    addSubview(content_.get());
    addSubview(vertical_.get());
    addSubview(horizontal_.get());
}

// The parts.

NSClipView* NSScrollView::clip() const { return dynamic_cast<NSClipView*>(content_.get()); }

/// A document that scrolls what it shows by itself, such as a long text, fills the room and does so here too.
QAbstractScrollArea* NSScrollView::selfScrolling() const {
    NSView* document = clip() ? clip()->document() : nullptr;
    return document ? qobject_cast<QAbstractScrollArea*>(&document->widget()) : nullptr;
}

id NSScrollView::documentView() const { return clip() ? clip()->documentView() : nil; }
void NSScrollView::setDocumentView(NSView* view) {
    if (!clip()) setContentView(velt::make<NSClipView>().get());
    clip()->setDocumentView(view);
    tile();
}

void NSScrollView::setContentView(NSView* view) {
    if (view == content_.get()) return;
    const Ref<NSView> before = content_;
    content_ = Ref<NSView>(view);
    if (before) before->removeFromSuperview();
    if (view) addSubview(view);
    setDrawsBackground(drawsBackground_);
    setBackgroundColor(backgroundColor_);
    tile();
}

NSSize NSScrollView::contentSize() const { return content_ ? content_->frame().size : NSSize{}; }
NSRect NSScrollView::documentVisibleRect() const { return clip() ? clip()->documentVisibleRect() : NSRect{}; }

void NSScrollView::setHasVerticalScroller(bool flag) {
    hasVertical_ = flag;
    tile();
}
void NSScrollView::setHasHorizontalScroller(bool flag) {
    hasHorizontal_ = flag;
    tile();
}
void NSScrollView::setAutohidesScrollers(bool flag) {
    autohides_ = flag;
    tile();
}
void NSScrollView::setBorderType(unsigned long type) {
    borderType_ = type;
    tile();
    changed();
}
void NSScrollView::setDrawsBackground(bool flag) {
    drawsBackground_ = flag;
    if (clip()) clip()->setDrawsBackground(flag);
}
void NSScrollView::setBackgroundColor(const id& color) {
    backgroundColor_ = color;
    if (clip()) clip()->setBackgroundColor(color);
}
void NSScrollView::setLineScroll(double distance) {
    lineScroll_ = distance;
    showScrollers();
}

// Places.

double NSScrollView::borderWidth() const { return velt::frameWidth(borderType_); }

void NSScrollView::sizeChanged(NSSize before) {
    NSView::sizeChanged(before);
    tile();
}

void NSScrollView::tile() {
    if (tiling_ || !vertical_ || !horizontal_) return;
    {
        const velt::Setting tiling(tiling_, true);
        placeParts();
    }
    showScrollers();
    changed();
}

/// Where the scrollers and what is scrolled are.
void NSScrollView::placeParts() {
    QAbstractScrollArea* own = selfScrolling();
    const double border = borderWidth(), bar = NSScroller::scrollerWidth();
    NSSize room{std::max(frame().size.width - 2 * border, 0.0), std::max(frame().size.height - 2 * border, 0.0)};
    const NSSize document = clip() && clip()->document() ? clip()->document()->frame().size : NSSize{};
    bool showsVertical = hasVertical_ && !own && (!autohides_ || document.height > room.height);
    const bool showsHorizontal =
        hasHorizontal_ && !own && (!autohides_ || document.width > room.width - (showsVertical ? bar : 0));
    if (showsHorizontal && hasVertical_ && !own && document.height > room.height - bar) showsVertical = true;
    if (showsVertical) room.width = std::max(room.width - bar, 0.0);
    if (showsHorizontal) room.height = std::max(room.height - bar, 0.0);

    const bool mirrored = QApplication::isRightToLeft();
    const double left = border + (mirrored && showsVertical ? bar : 0), bottom = border + (showsHorizontal ? bar : 0);
    vertical_->setHidden(!showsVertical);
    horizontal_->setHidden(!showsHorizontal);
    vertical_->setFrame({{mirrored ? border : left + room.width, bottom}, {bar, room.height}});
    horizontal_->setFrame({{left, border}, {room.width, bar}});
    if (content_) content_->setFrame({{left, bottom}, room});
    if (own) {
        clip()->document()->setFrame({{0, 0}, room});
        const Qt::ScrollBarPolicy shown = autohides_ ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOn;
        own->setFrameShape(QFrame::NoFrame);
        own->setVerticalScrollBarPolicy(hasVertical_ ? shown : Qt::ScrollBarAlwaysOff);
        own->setHorizontalScrollBarPolicy(hasHorizontal_ ? shown : Qt::ScrollBarAlwaysOff);
    }
}

void NSScrollView::showScrollers() {
    const NSClipView* shown = clip();
    if (!shown) return;
    const NSRect whole = shown->documentRect(), seen = shown->bounds();
    const double right = whole.size.width - seen.size.width, up = whole.size.height - seen.size.height;
    const double x = right > 0 ? (seen.origin.x - whole.origin.x) / right : 0;
    double y = up > 0 ? (seen.origin.y - whole.origin.y) / up : 0;
    if (!shown->isFlipped()) y = up > 0 ? 1 - y : 0;
    horizontal_->setSpan(whole.size.width, seen.size.width, lineScroll_);
    horizontal_->setDoubleValue(x);
    vertical_->setSpan(whole.size.height, seen.size.height, lineScroll_);
    vertical_->setDoubleValue(y);
}

void NSScrollView::reflectScrolledClipView(NSClipView*) {
    if (tiling_) return;
    if (autohides_) tile();
    showScrollers();
}

// Moving.

void NSScrollView::scrollerMoved(const NSScroller& scroller) {
    NSClipView* shown = clip();
    if (!shown) return;
    const NSRect whole = shown->documentRect(), seen = shown->bounds();
    NSPoint origin = seen.origin;
    if (&scroller == horizontal_.get()) {
        origin.x = whole.origin.x + scroller.doubleValue() * (whole.size.width - seen.size.width);
    } else {
        const double part = shown->isFlipped() ? scroller.doubleValue() : 1 - scroller.doubleValue();
        origin.y = whole.origin.y + part * (whole.size.height - seen.size.height);
    }
    shown->scrollToPoint(shown->constrainScrollPoint(origin));
}

bool NSScrollView::scrollBy(double right, double down) {
    NSClipView* shown = clip();
    if (!shown) return false;
    const NSPoint before = shown->bounds().origin;
    const double along = shown->isFlipped() ? down : -down;
    shown->scrollToPoint(shown->constrainScrollPoint({before.x + right, before.y + along}));
    return !(shown->bounds().origin == before);
}

void NSScrollView::scrollWheel(NSEvent* event) {
    if (!event) return;
    const double distance = 2 * lineScroll_ * QApplication::wheelScrollLines();
    // With nothing left to scroll here, the view around this one scrolls.
    if (!scrollBy(-event->deltaX() * distance, -event->deltaY() * distance)) {
        passOn(VELT_SELECTOR("scrollWheel:"), id(static_cast<NSObject*>(event)));
    }
}

void NSScrollView::keyDown(NSEvent* event) {
    const id characters = event ? event->characters() : nil;
    const char16_t key =
        velt::isString(characters) && !velt::textOf(characters).empty() ? velt::textOf(characters).front() : u'\0';
    const NSSize page{contentSize().width - lineScroll_, contentSize().height - lineScroll_};
    constexpr double kAll = 1e9;
    bool taken = true;
    if (key == velt::functionUnit(Qt::Key_Up)) {
        scrollBy(0, -lineScroll_);
    } else if (key == velt::functionUnit(Qt::Key_Down)) {
        scrollBy(0, lineScroll_);
    } else if (key == velt::functionUnit(Qt::Key_Left)) {
        scrollBy(-lineScroll_, 0);
    } else if (key == velt::functionUnit(Qt::Key_Right)) {
        scrollBy(lineScroll_, 0);
    } else if (key == velt::functionUnit(Qt::Key_PageUp)) {
        scrollBy(0, -std::max(page.height, lineScroll_));
    } else if (key == velt::functionUnit(Qt::Key_PageDown) || key == u' ') {
        scrollBy(0, std::max(page.height, lineScroll_));
    } else if (key == velt::functionUnit(Qt::Key_Home)) {
        scrollBy(0, -kAll);
    } else if (key == velt::functionUnit(Qt::Key_End)) {
        scrollBy(0, kAll);
    } else {
        taken = false;
    }
    if (!taken) passOn(VELT_SELECTOR("keyDown:"), id(static_cast<NSObject*>(event)));
}

/// It takes the keyboard when there is something to scroll and the document leaves the keyboard alone.
bool NSScrollView::acceptsFirstResponder() const {
    const NSClipView* shown = clip();
    if (!shown || !shown->document() || !(hasVertical_ || hasHorizontal_)) return false;
    if (VELT_CBOOL(velt::send(shown->documentView(), VELT_SELECTOR("acceptsFirstResponder")))) return false;
    const NSRect whole = shown->documentRect();
    return whole.size.width > shown->frame().size.width || whole.size.height > shown->frame().size.height;
}

std::unique_ptr<QWidget> NSScrollView::makeWidget() {
    std::unique_ptr<QWidget> made = NSView::makeWidget();
    QWidget* shown = made.get();
    QObject::connect(qApp, &QApplication::focusChanged, shown, [shown](QWidget*, QWidget* focused) {
        NSView* view = velt::viewOf(shown);
        if (view && focused) velt::runReported([&] { static_cast<NSScrollView*>(view)->follow(focused); });
    });
    return made;
}

/// A view of the document that gets the keyboard comes into sight, unless it is larger than what can be seen.
void NSScrollView::follow(QWidget* focused) {
    const NSClipView* shown = clip();
    if (!shown || !shown->existingWidget() || !shown->existingWidget()->isAncestorOf(focused)) return;
    for (QWidget* at = focused; at; at = at->parentWidget()) {
        NSView* view = velt::viewOf(at);
        if (!view) continue;
        const NSSize size = view->bounds().size, room = contentSize();
        if (size.width <= room.width && size.height <= room.height) velt::scrollRectToVisible(*view, view->bounds());
        return;
    }
}

void NSScrollView::drawRect(NSRect) {
    if (velt::GraphicsContext* context = velt::GraphicsContext::current()) {
        const velt::WidgetCoordinates scope(context->painter(), *this);
        velt::drawFrame(context->painter(), *this, borderType_, {0, 0, frame().size.width, frame().size.height});
    }
}

void NSScrollView::describe(velt::ClassBuilder<NSScrollView>& c) {
    c.property("documentView", &NSScrollView::documentView, &NSScrollView::setDocumentView)
        .property("contentView", &NSScrollView::contentView, &NSScrollView::setContentView)
        .property("contentSize", &NSScrollView::contentSize)
        .property("documentVisibleRect", &NSScrollView::documentVisibleRect)
        .property("hasVerticalScroller", &NSScrollView::hasVerticalScroller, &NSScrollView::setHasVerticalScroller)
        .property("hasHorizontalScroller", &NSScrollView::hasHorizontalScroller,
                  &NSScrollView::setHasHorizontalScroller)
        .property("autohidesScrollers", &NSScrollView::autohidesScrollers, &NSScrollView::setAutohidesScrollers)
        .property("verticalScroller", &NSScrollView::verticalScroller)
        .property("horizontalScroller", &NSScrollView::horizontalScroller)
        .property("borderType", &NSScrollView::borderType, &NSScrollView::setBorderType)
        .property("drawsBackground", &NSScrollView::drawsBackground, &NSScrollView::setDrawsBackground)
        .property("backgroundColor", &NSScrollView::backgroundColor, &NSScrollView::setBackgroundColor)
        .property("lineScroll", &NSScrollView::lineScroll, &NSScrollView::setLineScroll)
        .method("scrollWheel:", &NSScrollView::scrollWheel)
        .method("keyDown:", &NSScrollView::keyDown)
        .method("tile", &NSScrollView::tile)
        .method("reflectScrolledClipView:", &NSScrollView::reflectScrolledClipView)
        .owns(&NSScrollView::content_)
        .owns(&NSScrollView::vertical_)
        .owns(&NSScrollView::horizontal_)
        .owns(&NSScrollView::backgroundColor_);
}
