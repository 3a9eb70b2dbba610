// The window onto a document: shows a part of its document view and moves over it.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

/// Its bounds' origin says which part of the document is seen, in the document's superview coordinates: those of the
/// document itself unless its frame lies elsewhere. It is flipped as its document is.
class VELT_EXPORT NSClipView : public NSView {
    VELT_OBJECT(NSClipView, NSView)
public:
    bool isFlipped() const override;
    void setFrame(NSRect frame) override;

    /// nil when there is none. It is the clip view's only subview.
    id documentView() const;
    NSView* document() const;
    void setDocumentView(NSView* view);
    /// Frame of the document, at least as large as the clip view.
    NSRect documentRect() const;
    /// What is seen, in the document's own coordinates.
    NSRect documentVisibleRect() const;

    /// Shows the part of the document that begins at a point. The point is taken as it is; constrainScrollPoint: gives
    /// the nearest one that shows no more of the outside than it must.
    void scrollToPoint(NSPoint origin);
    NSPoint constrainScrollPoint(NSPoint origin) const;
    /// Scrolls as little as brings a rectangle of these coordinates into sight; false when nothing moved.
    bool bringIntoSight(NSRect rect);

    bool drawsBackground() const { return drawsBackground_; }
    void setDrawsBackground(bool flag);
    /// nil stands for the desktop's colour of documents.
    id backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const id& color);
    void drawRect(NSRect rect) override;
    static void describe(velt::ClassBuilder<NSClipView>& c);

protected:
    void syncWidget(QWidget& widget) override;
    void sizeChanged(NSSize before) override;
    void subviewsChanged() override;
    void subviewMoved(NSView& view) override;

private:
    void moved();
    void settle();

    bool drawsBackground_ = true, settling_ = false;
    id backgroundColor_;
};
