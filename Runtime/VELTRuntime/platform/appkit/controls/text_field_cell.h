// The cell of a text field: a line or a few of text, how it looks, and what a person's typing makes of it.
#pragma once

#include "VELTRuntime/platform/appkit/controls/cell.h"

class NSAttributedString;

class VELT_EXPORT NSTextFieldCell : public NSActionCell {
    VELT_OBJECT(NSTextFieldCell, NSActionCell)
public:
    /// How a line that is too long is shown.
    enum class LineBreak : long {
        WordWrap = 0,
        CharWrap = 1,
        Clip = 2,
        TruncateHead = 3,
        TruncateTail = 4,
        TruncateMiddle = 5
    };
    enum class Bezel : unsigned long { Square = 0, Rounded = 1 };

    using NSActionCell::NSActionCell;

    // The value. A formatter is any object of the program that answers "stringForObjectValue:" (what is shown for a
    // value) or "objectValueForString:" (the value that a text means; nil when it means none).
    void setObjectValue(const id& value) override;
    id stringValue() const override;
    id formatter() const { return formatter_; }
    void setFormatter(const id& formatter);

    // Looks.
    id placeholderString() const { return placeholder_; }
    void setPlaceholderString(const id& text);
    /// The colours; the desktop's own when the program set none, and again for nil. Anything else raises
    /// "VLCastException" with "'NSColor' expected".
    id textColor() const;
    void setTextColor(const id& color);
    bool hasOwnTextColor() const { return !textColor_.isNil(); }
    id backgroundColor() const;
    void setBackgroundColor(const id& color);
    bool hasOwnBackgroundColor() const { return !backgroundColor_.isNil(); }
    bool drawsBackground() const { return drawsBackground_; }
    void setDrawsBackground(bool flag);
    unsigned long bezelStyle() const { return bezelStyle_; }
    void setBezelStyle(unsigned long style);
    long lineBreakMode() const { return lineBreakMode_; }
    void setLineBreakMode(long mode);
    bool usesSingleLineMode() const { return singleLine_; }
    void setUsesSingleLineMode(bool flag);
    /// Nothing but text: not to be worked, without a frame.
    bool isLabel() const { return !isSelectable() && !isBezeled() && !isBordered(); }

    // Behaviour.
    bool allowsEditingTextAttributes() const { return allowsEditingTextAttributes_; }
    void setAllowsEditingTextAttributes(bool flag);
    /// The action goes out whenever an edit ends, not on Return alone.
    bool sendsActionOnEndEditing() const { return sendsActionOnEndEditing_; }
    void setSendsActionOnEndEditing(bool flag) { sendsActionOnEndEditing_ = flag; }

    /// A person changed the text to this; it is the value while it is being edited.
    virtual void takeTyped(const id& text);
    /// The edit is over. False when the formatter finds no value in the text, which stays as it is.
    virtual bool finishTyping();
    /// Forgets that somebody is typing.
    void dropTyping() { typed_ = nil; }

    /// The value when it is a text with attributes that is shown with them; null otherwise.
    virtual const NSAttributedString* richText() const;

    NSSize cellSize() const override;
    static void describe(velt::ClassBuilder<NSTextFieldCell>& c);

protected:
    /// Room to both sides of the text for what else a field shows.
    virtual double roomBeside() const { return 0; }

private:
    id read(const id& text) const;

    id formatter_, placeholder_, textColor_, backgroundColor_;
    id typed_;  // what stands in the field while the formatter has not read it
    unsigned long bezelStyle_ = 0;
    long lineBreakMode_ = 0;
    bool drawsBackground_ = false, singleLine_ = false, allowsEditingTextAttributes_ = false;
    bool sendsActionOnEndEditing_ = true;
};
