// Controls: views that show a value and let a person change it, and say so by sending an action.
//
// What a control shows is its cell's; the control shows it with a widget and hands the person's changes back.
#pragma once

#include "VELTRuntime/platform/appkit/controls/cell.h"
#include "VELTRuntime/platform/appkit/view.h"

class VELT_EXPORT NSControl : public NSView {
    VELT_OBJECT(NSControl, NSView)
public:
    ~NSControl() override;

    /// The cell; the control's own kind is made when it is first needed.
    id cell() const { return velt::Ref<NSCell>(&cellObject()); }
    /// Shows another cell. Raises "NSInvalidArgumentException" when it is not of the kind that this control shows.
    void setCell(const id& cell);
    NSCell& cellObject() const {
        if (!cell_) [[unlikely]]
            adopt(makeCell());
        return *cell_;
    }
    id selectedCell() const { return cell(); }

    // The cell's properties.
    id objectValue() const { return cellObject().objectValue(); }
    void setObjectValue(const id& value) { cellObject().setObjectValue(value); }
    id stringValue() const { return cellObject().stringValue(); }
    void setStringValue(const id& text) { cellObject().setStringValue(text); }
    double doubleValue() const { return cellObject().doubleValue(); }
    void setDoubleValue(double value) { cellObject().setDoubleValue(value); }
    float floatValue() const { return cellObject().floatValue(); }
    void setFloatValue(float value) { cellObject().setFloatValue(value); }
    long integerValue() const { return cellObject().integerValue(); }
    void setIntegerValue(long value) { cellObject().setIntegerValue(value); }
    id attributedStringValue() const { return cellObject().attributedStringValue(); }
    void setAttributedStringValue(const id& text) { cellObject().setAttributedStringValue(text); }
    id font() const { return cellObject().font(); }
    void setFont(const id& font) { cellObject().setFont(font); }
    long alignment() const { return cellObject().alignment(); }
    void setAlignment(long alignment) { cellObject().setAlignment(alignment); }
    bool isEnabled() const { return cellObject().isEnabled(); }
    void setEnabled(bool flag) { cellObject().setEnabled(flag); }
    bool isContinuous() const { return cellObject().isContinuous(); }
    void setContinuous(bool flag) { cellObject().setContinuous(flag); }
    bool refusesFirstResponder() const { return cellObject().refusesFirstResponder(); }
    void setRefusesFirstResponder(bool flag) { cellObject().setRefusesFirstResponder(flag); }
    id target() const { return cellObject().target(); }
    void setTarget(const id& target) { cellObject().setTarget(target); }
    id actionName() const { return cellObject().actionName(); }
    void setActionName(const id& name) { cellObject().setActionName(name); }
    long tag() const override { return tag_; }
    void setTag(long tag) { tag_ = tag; }
    id delegate() const { return delegate_; }
    virtual void setDelegate(const id& delegate) { delegate_ = delegate; }

    /// Resizes the frame to the smallest size in which all of the cell can be seen; the upper left corner stays.
    void sizeToFit();
    /// A person's click; sends the action when the control is enabled.
    virtual void performClick(const id& sender);
    /// Sends an action with the control as its sender; whether somebody answered.
    bool sendAction(velt::Selector action, const id& target);
    /// Sends the cell's action: a person worked the control. Safe to call from an event of the toolkit: an exception is
    /// reported, and the control lives until it is over.
    void worked() noexcept;

    bool acceptsFirstResponder() const override;
    /// The cell has changed; the widget is told anew.
    virtual void cellChanged(NSCell&) { changed(); }

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSControl>& c);

protected:
    /// A new cell of the kind that the control shows.
    virtual velt::Ref<NSCell> makeCell() const;
    /// A person may give it the keyboard.
    virtual bool takesKeys() const { return true; }
    /// Tells the widget what all controls share: enabled, font, direction, name for those who cannot see.
    void syncWidget(QWidget& widget) override;
    /// Connects a new widget: a subclass of a program that answers "mouseDown:" and the like itself gets those events.
    void watchEvents(QWidget& widget);
    void drawRect(NSRect) override {}

private:
    void adopt(velt::Ref<NSCell> cell) const;

    mutable velt::Ref<NSCell> cell_;
    long tag_ = 0;
    id delegate_;
};
