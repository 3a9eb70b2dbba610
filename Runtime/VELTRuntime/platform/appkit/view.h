// Views: rectangles of a window that draw themselves and take events, each within its superview.
//
// A view keeps what the program says of it in its own coordinates, y pointing up. The toolkit's widget that shows it is
// made when it is first needed, and told everything anew whenever something changes.
#pragma once

#include "VELTRuntime/platform/appkit/resizing.h"
#include "VELTRuntime/platform/appkit/responder.h"

#include <memory>
#include <vector>

class NSEvent;
class NSView;
class NSWindow;
class QPainter;
class QWidget;

namespace velt {

/// The view that a widget shows, or null.
VELT_EXPORT NSView* viewOf(const QWidget* widget);

}  // namespace velt

class VELT_EXPORT NSView : public NSResponder {
    VELT_OBJECT(NSView, NSResponder)
public:
    NSView();
    explicit NSView(NSRect frame);
    ~NSView() override;

    // Where it is: the frame in the superview's coordinates, the bounds in its own.
    NSRect frame() const { return frame_; }
    virtual void setFrame(NSRect frame);
    void setFrameOrigin(NSPoint origin) { setFrame({origin, frame_.size}); }
    void setFrameSize(NSSize size) { setFrame({frame_.origin, size}); }
    NSRect bounds() const;
    /// Makes the frame show that part of the view's coordinates, scaled to fit.
    void setBounds(NSRect bounds);
    unsigned long autoresizingMask() const { return autoresizingMask_; }
    void setAutoresizingMask(unsigned long mask) { autoresizingMask_ = mask; }
    bool autoresizesSubviews() const { return autoresizesSubviews_; }
    void setAutoresizesSubviews(bool flag) { autoresizesSubviews_ = flag; }
    /// y points down in this view. False unless the class says otherwise.
    virtual bool isFlipped() const { return false; }

    // The tree. A superview owns its subviews; a view is in one superview at most.
    id superview() const;
    id subviews() const;
    id window() const;
    /// Puts a view in front of the other subviews, taking it out of where it was. Raises "NSInvalidArgumentException"
    /// for a view that this one lies in.
    virtual void addSubview(NSView* view);
    void removeFromSuperview();
    /// Puts a view where another one is; nothing happens when that one is no subview.
    void replaceSubview(NSView* old, NSView* with);
    bool isDescendantOf(const NSView* view) const;
    id viewWithTag(long tag);
    virtual long tag() const { return -1; }

    // Looks.
    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden);
    /// The view, or one that it lies in, is hidden.
    bool isHiddenOrHasHiddenAncestor() const;
    id toolTip() const { return toolTip_; }
    void setToolTip(const id& text);
    unsigned long focusRingType() const { return focusRingType_; }
    void setFocusRingType(unsigned long type);
    void setNeedsDisplay(bool flag);
    /// Draws the part of the view that lies in a rectangle, with the current graphics context. The class table's
    /// "drawRect:" is what is called; this one draws nothing.
    virtual void drawRect(NSRect) {}

    /// The context menu for an event (an NSEvent) in this view; its own menu unless a class says otherwise.
    id menuForEvent(const id&) const { return menu(); }

    // The keyboard's way through the window.
    id nextKeyView() const;
    void setNextKeyView(NSView* view);
    id previousKeyView() const;
    /// The view can get the keyboard now: it is shown, enabled and wants it.
    virtual bool canBecomeKeyView() const;

    /// A point or size of this view in another one's coordinates; null stands for the window's base coordinates.
    NSPoint convertPointToView(NSPoint point, const NSView* view) const;
    NSPoint convertPointFromView(NSPoint point, const NSView* view) const;
    NSSize convertSizeToView(NSSize size, const NSView* view) const;
    NSRect convertRectToView(NSRect rect, const NSView* view) const;
    NSRect convertRectFromView(NSRect rect, const NSView* view) const;

    // What the library's own classes do with the widget.
    /// The widget, made now when there is none.
    QWidget& widget();
    QWidget* existingWidget() const { return widget_; }
    NSView* superviewPointer() const { return superview_; }
    NSWindow* windowPointer() const { return window_; }
    const std::vector<velt::Ref<NSView>>& subviewList() const { return subviews_; }
    /// The subview's widget is given its place in this one's.
    void placeSubview(NSView& view);
    /// The view came into a window or left it (null).
    virtual void moveToWindow(NSWindow* window);
    /// Draws through "drawRect:" into the toolkit's painter, whose origin is the widget's upper left corner.
    void draw(QPainter& painter, NSRect dirtyWidgetRect);

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSView>& c);

protected:
    /// Makes the widget, without a parent. A plain view's draws by "drawRect:" and sends mouse and keys by name.
    virtual std::unique_ptr<QWidget> makeWidget();
    /// Tells the widget all that the view knows; called after it was made and after every change.
    virtual void syncWidget(QWidget& widget);
    /// The widget within which subviews' widgets lie.
    virtual QWidget& container() { return widget(); }
    /// Something that the widget shows has changed.
    void changed();
    /// The size changed: moves the subviews and places their widgets.
    virtual void sizeChanged(NSSize before);
    /// A subview came, went, or was shown or hidden.
    virtual void subviewsChanged() {}
    /// A subview's frame was set.
    virtual void subviewMoved(NSView&) {}
    id ownNextResponder() const override;
    void detach(NSView& view);

private:
    NSPoint toSuperview(NSPoint point) const;
    NSPoint fromSuperview(NSPoint point) const;
    NSPoint toBase(NSPoint point) const;
    NSPoint fromBase(NSPoint point) const;
    void placeSubviews();
    void adopt(NSView& view, std::size_t place);

    NSRect frame_{};
    NSRect bounds_{};
    bool hasOwnBounds_ = false;
    bool hidden_ = false;
    bool autoresizesSubviews_ = true;
    unsigned long autoresizingMask_ = 0;
    unsigned long focusRingType_ = 0;
    id toolTip_, nextKeyView_;
    NSView* superview_ = nullptr;        // owns this view
    NSView* previousKeyView_ = nullptr;  // the last that was given this one as its next; it clears this when it goes
    NSWindow* window_ = nullptr;         // clears this when it goes
    QWidget* widget_ = nullptr;
    std::vector<velt::Ref<NSView>> subviews_;
};
