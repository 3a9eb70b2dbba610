// Scroll views: show a part of a document that is larger than they are, with scroll bars to move over it.
#pragma once

#include "VELTRuntime/platform/appkit/containers/clip_view.h"
#include "VELTRuntime/platform/appkit/containers/scroller.h"

class NSEvent;
class QAbstractScrollArea;

namespace velt {
/// The frame around a view's content; the numbers are those that programs use.
enum BorderType : unsigned long { kNoBorder = 0, kLineBorder = 1, kBezelBorder = 2, kGrooveBorder = 3 };
}  // namespace velt

/// Without scrollers, borders and document until it is given some. A document whose y points up is seen from its lower
/// left corner, a flipped one from its upper left.
class VELT_EXPORT NSScrollView : public NSView {
    VELT_OBJECT(NSScrollView, NSView)
public:
    NSScrollView();

    id documentView() const;
    /// The view that is scrolled, of any size. It keeps its size; null takes it out.
    void setDocumentView(NSView* view);
    /// What shows the document: a clip view. Another view in its place fills the room and is not scrolled.
    id contentView() const { return content_; }
    void setContentView(NSView* view);
    /// The room within borders and scrollers.
    NSSize contentSize() const;
    NSRect documentVisibleRect() const;

    bool hasVerticalScroller() const { return hasVertical_; }
    void setHasVerticalScroller(bool flag);
    bool hasHorizontalScroller() const { return hasHorizontal_; }
    void setHasHorizontalScroller(bool flag);
    /// Scrollers show only while there is something to scroll.
    bool autohidesScrollers() const { return autohides_; }
    void setAutohidesScrollers(bool flag);
    id verticalScroller() const { return vertical_; }
    id horizontalScroller() const { return horizontal_; }
    unsigned long borderType() const { return borderType_; }
    void setBorderType(unsigned long type);
    bool drawsBackground() const { return drawsBackground_; }
    void setDrawsBackground(bool flag);
    id backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const id& color);
    /// How far one step of an arrow key goes.
    double lineScroll() const { return lineScroll_; }
    void setLineScroll(double distance);

    bool acceptsFirstResponder() const override;
    void scrollWheel(NSEvent* event);
    void keyDown(NSEvent* event);
    void drawRect(NSRect rect) override;
    /// Gives clip view and scrollers their places.
    void tile();

    // The parts' reports.
    void reflectScrolledClipView(NSClipView* clip);
    void scrollerMoved(const NSScroller& scroller);
    static void describe(velt::ClassBuilder<NSScrollView>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void sizeChanged(NSSize before) override;

private:
    NSClipView* clip() const;
    QAbstractScrollArea* selfScrolling() const;
    double borderWidth() const;
    void placeParts();
    void showScrollers();
    bool scrollBy(double right, double down);
    void follow(QWidget* focused);

    velt::Ref<NSView> content_;
    velt::Ref<NSScroller> vertical_, horizontal_;
    bool hasVertical_ = false, hasHorizontal_ = false, autohides_ = false, drawsBackground_ = true, tiling_ = false;
    unsigned long borderType_ = velt::kNoBorder;
    double lineScroll_ = 10;
    id backgroundColor_;
};
