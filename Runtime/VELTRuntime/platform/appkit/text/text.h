// Text views, as far as they do not depend on how the text is kept: the base of the text view.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

/// A view that shows text and lets a person work with it. Positions count UTF-16 units.
class VELT_EXPORT NSText : public NSView {
    VELT_OBJECT(NSText, NSView)
public:
    using NSView::NSView;

    // The text.
    virtual id string() const = 0;
    /// Replaces the whole text; what was done before cannot be undone any more.
    virtual void setString(const id& text) = 0;
    /// Raises "NSRangeException" when the range goes beyond the end.
    virtual void replaceCharacters(NSRange range, const id& text) = 0;

    /// The selection; without a length the insertion point.
    virtual NSRange selectedRange() const = 0;
    virtual void setSelectedRange(NSRange range) = 0;
    virtual void scrollRangeToVisible(NSRange range) = 0;

    // Looks.
    // What is no font or no colour raises "VLCastException" with "'NSFont' expected" or "'NSColor' expected"; nil
    // brings the desktop's own.
    virtual id font() const = 0;
    virtual void setFont(const id& font) = 0;
    virtual id textColor() const = 0;
    virtual void setTextColor(const id& color) = 0;
    id backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const id& color);
    bool drawsBackground() const { return drawsBackground_; }
    void setDrawsBackground(bool flag);
    /// 0 left, 1 right, 2 centred, 3 justified, 4 by the text's direction.
    long alignment() const { return alignment_; }
    void setAlignment(long alignment);

    // Behaviour.
    bool isEditable() const { return editable_; }
    /// What can be edited can be selected.
    void setEditable(bool flag);
    bool isSelectable() const { return selectable_; }
    /// What cannot be selected cannot be edited.
    void setSelectable(bool flag);
    /// Pieces of the text may look different; without it, what is pasted comes without its looks.
    bool isRichText() const { return richText_; }
    virtual void setRichText(bool flag);
    id delegate() const { return delegate_; }
    void setDelegate(const id& delegate) { delegate_ = delegate; }

    // Sizes between which a view in a scroll view grows with its text. This library's scroll by themselves and keep
    // their size, so these are kept for programs.
    NSSize minSize() const { return minSize_; }
    void setMinSize(NSSize size) { minSize_ = size; }
    NSSize maxSize() const { return maxSize_; }
    void setMaxSize(NSSize size) { maxSize_ = size; }
    bool isHorizontallyResizable() const { return horizontallyResizable_; }
    void setHorizontallyResizable(bool flag) { horizontallyResizable_ = flag; }
    bool isVerticallyResizable() const { return verticallyResizable_; }
    void setVerticallyResizable(bool flag) { verticallyResizable_ = flag; }

    // What a person does with the selection.
    virtual void cut(const id& sender) = 0;
    virtual void copySelection(const id& sender) = 0;
    virtual void paste(const id& sender) = 0;
    virtual void deleteSelection(const id& sender) = 0;
    virtual void selectAll(const id& sender) = 0;

    bool isFlipped() const override { return true; }
    bool acceptsFirstResponder() const override { return selectable_; }
    static void describe(velt::ClassBuilder<NSText>& c);

protected:
    /// Tells the delegate, if it answers, and everyone else.
    void tell(std::string_view delegateSelector, std::string_view notification);

private:
    bool drawsBackground_ = true, editable_ = true, selectable_ = true, richText_ = true;
    bool horizontallyResizable_ = false, verticallyResizable_ = true;
    long alignment_ = 4;
    NSSize minSize_{}, maxSize_{1e7, 1e7};
    id backgroundColor_, delegate_;
};
