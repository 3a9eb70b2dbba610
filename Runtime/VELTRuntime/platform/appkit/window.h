// Windows: a content view and what surrounds it, on the screen or ready to be shown.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"
#include "VELTRuntime/platform/appkit/window_frame.h"

#include <functional>
#include <memory>
#include <string_view>

class NSPanel;
class QMainWindow;

class VELT_EXPORT NSWindow : public NSResponder {
    VELT_OBJECT(NSWindow, NSResponder)
public:
    /// A window that can be closed, miniaturized and resized, of no size.
    NSWindow();
    NSWindow(NSRect contentRect, unsigned long styleMask);
    ~NSWindow() override;

    // Rectangles, in screen coordinates: from the main screen's lower left corner, y up.
    NSRect frame() const { return frame_; }
    void setFrame(NSRect frame);
    /// The same in steps that a person can follow, when the window is seen and the desktop animates; returns when done.
    void setFrameAnimated(NSRect frame);
    void setFrameOrigin(NSPoint origin) { setFrame({origin, frame_.size}); }
    void setContentSize(NSSize size);
    NSSize minSize() const { return minSize_; }
    void setMinSize(NSSize size);
    NSSize maxSize() const { return maxSize_; }
    void setMaxSize(NSSize size);
    /// The same of the content; the frame's limits follow.
    NSSize contentMinSize() const;
    void setContentMinSize(NSSize size);
    NSSize contentMaxSize() const;
    void setContentMaxSize(NSSize size);
    unsigned long styleMask() const { return styleMask_; }
    void setStyleMask(unsigned long mask);
    static NSRect contentRectForFrameRect(NSRect frame, unsigned long mask) {
        return velt::contentRectForFrame(frame, mask);
    }
    static NSRect frameRectForContentRect(NSRect content, unsigned long mask) {
        return velt::frameRectForContent(content, mask);
    }
    /// Width that a title bar needs for its buttons and that text.
    double minFrameWidthWithTitle(const id& title, unsigned long mask) const;
    NSPoint convertBaseToScreen(NSPoint point) const;
    NSPoint convertScreenToBase(NSPoint point) const;
    /// A point of a widget of this window, from its upper left corner, in the window's base coordinates.
    NSPoint basePointOf(const QWidget& widget, NSPoint point) const;

    // Looks.
    id title() const { return title_; }
    void setTitle(const id& title);
    double alphaValue() const { return alpha_; }
    void setAlphaValue(double alpha);
    id backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const id& color);
    bool isOpaque() const { return opaque_; }
    void setOpaque(bool flag);
    bool hasShadow() const { return hasShadow_; }
    void setHasShadow(bool flag);
    bool showsResizeIndicator() const { return showsResizeIndicator_; }
    void setShowsResizeIndicator(bool flag);
    /// Kept for programs; desktops' title bars have no such button.
    bool showsToolbarButton() const { return showsToolbarButton_; }
    void setShowsToolbarButton(bool flag) { showsToolbarButton_ = flag; }
    /// The document that the window shows has changes which are in no file yet; the title says so.
    bool isDocumentEdited() const { return documentEdited_; }
    void setDocumentEdited(bool flag);
    /// The image of the document that the window shows; desktops show it as the window's icon.
    id documentIcon() const { return documentIcon_; }
    void setDocumentIcon(const id& image);

    // Behaviour.
    bool isReleasedWhenClosed() const { return releasedWhenClosed_; }
    void setReleasedWhenClosed(bool flag) { releasedWhenClosed_ = flag; }
    bool canHide() const { return canHide_; }
    void setCanHide(bool flag) { canHide_ = flag; }
    bool hidesOnDeactivate() const { return hidesOnDeactivate_; }
    void setHidesOnDeactivate(bool flag) { hidesOnDeactivate_ = flag; }
    bool isMovableByWindowBackground() const { return movableByBackground_; }
    void setMovableByWindowBackground(bool flag) { movableByBackground_ = flag; }
    bool acceptsMouseMovedEvents() const { return acceptsMouseMoved_; }
    void setAcceptsMouseMovedEvents(bool flag);
    bool allowsToolTipsWhenApplicationIsInactive() const { return toolTipsWhenInactive_; }
    void setAllowsToolTipsWhenApplicationIsInactive(bool flag);

    // Showing.
    bool isVisible() const;
    bool isKeyWindow() const;
    bool isMainWindow() const;
    bool isMiniaturized() const;
    bool isZoomed() const;
    void makeKeyAndOrderFront(const id& sender);
    void orderFront(const id& sender);
    void orderBack(const id& sender);
    void orderOut(const id& sender);
    void orderFrontRegardless();
    void makeKeyWindow();
    void makeMainWindow() { makeKeyWindow(); }
    void center();
    void zoom(const id& sender);
    void miniaturize(const id& sender);
    void deminiaturize(const id& sender);
    /// Closes without asking; performClose: asks the delegate as the close button does.
    void close();
    void performClose(const id& sender);
    void displayIfNeeded();

    // Contents and the keyboard.
    id contentView() const { return contentView_; }
    void setContentView(NSView* view);
    id firstResponder() const;
    bool makeFirstResponder(const id& responder);
    id initialFirstResponder() const { return initialFirstResponder_; }
    void setInitialFirstResponder(const id& view) { initialFirstResponder_ = view; }
    id defaultButtonCell() const { return defaultButtonCell_; }
    void setDefaultButtonCell(const id& cell);
    void disableKeyEquivalentForDefaultButtonCell() { defaultButtonWorks_ = false; }
    void enableKeyEquivalentForDefaultButtonCell() { defaultButtonWorks_ = true; }
    void recalculateKeyViewLoop();
    void selectNextKeyView(const id& sender);
    void selectPreviousKeyView(const id& sender);
    void selectKeyViewFollowingView(NSView* view);
    void selectKeyViewPrecedingView(NSView* view);
    /// Moves the keyboard from a view to the next one that takes it, or back; false when there is none.
    bool moveKeyView(NSView& from, bool next);

    /// The window is attached to another one and keeps a person from it.
    bool isSheet() const;
    /// The sheet that this window shows; nil without one.
    id attachedSheet() const;

    id delegate() const { return delegate_; }
    void setDelegate(const id& delegate) { delegate_ = delegate; }
    id toolbar() const { return toolbar_; }
    void setToolbar(const id& toolbar);

    // What the library's own classes do with the widget.
    QMainWindow& widget();
    QMainWindow* existingWidget() const { return widget_; }
    /// A view of this window is about to leave it.
    void viewLeaves(NSView& view);
    // The toolkit's reports.
    void geometryChanged();
    void activationChanged(bool active);
    void stateChanged();
    /// Adds or takes away a bar above the content, which keeps its size.
    void changeBar(const std::function<void(QMainWindow&)>& change);
    /// The close button was pressed; false when the delegate refuses.
    virtual bool mayClose();
    /// A program ends when the last such window has been closed.
    virtual bool endsProgramWhenLast() const { return true; }
    /// Tells the toolkit what kind of window it is and what its title bar has.
    void syncFlags();
    /// Offers a key that nobody took: key equivalents, Return for the default button, Tab. True when it was taken.
    bool performKeyEquivalent(NSEvent& event);

    void dissolve() override;
    static void describe(velt::ClassBuilder<NSWindow>& c);

protected:
    /// The toolkit's kind of window.
    virtual bool isPanel() const { return false; }
    id ownNextResponder() const override;

private:
    /// On the screen, miniaturized, or put away until the program is the one in front again.
    bool isOpen() const;
    void syncWidget();
    void syncTitle();
    void syncLimits();
    void placeWidget();
    void setWidgetGeometry();
    void tell(std::string_view delegateSelector, std::string_view notification);
    void show(bool activate);

    NSRect frame_{};
    unsigned long styleMask_;
    NSSize minSize_{}, maxSize_{1e6, 1e6};
    double alpha_ = 1;
    bool opaque_ = true, hasShadow_ = true, showsResizeIndicator_ = true, showsToolbarButton_ = true;
    bool releasedWhenClosed_ = true, canHide_ = true, hidesOnDeactivate_ = false, movableByBackground_ = false;
    bool acceptsMouseMoved_ = false, toolTipsWhenInactive_ = false, defaultButtonWorks_ = true;
    bool documentEdited_ = false, placing_ = false, placed_ = false, wasKey_ = false, wasMiniaturized_ = false;
    id title_, backgroundColor_, documentIcon_, delegate_, toolbar_;
    velt::Ref<NSView> contentView_;
    id initialFirstResponder_, defaultButtonCell_;
    QMainWindow* widget_ = nullptr;
};
