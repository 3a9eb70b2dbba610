// Text fields: a person types into them, or only reads them; labels are text fields too.
#pragma once

#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/platform/appkit/controls/text_field_cell.h"

#include <memory>
#include <string_view>

namespace velt {
class FieldEditor;
class FieldWidget;
}  // namespace velt

class VELT_EXPORT NSTextField : public NSControl {
    VELT_OBJECT(NSTextField, NSControl)
public:
    /// By what an edit ended; programs find it under "NSTextMovement" in what the notification carries.
    enum class Movement : long { Other = 0, Return = 16, Tab = 17, BackTab = 18, Cancel = 23 };

    NSTextField() = default;
    ~NSTextField() override;

    NSTextFieldCell& textCell() const { return static_cast<NSTextFieldCell&>(cellObject()); }

    // The cell's properties.
    bool isEditable() const { return cellObject().isEditable(); }
    void setEditable(bool flag) { cellObject().setEditable(flag); }
    bool isSelectable() const { return cellObject().isSelectable(); }
    void setSelectable(bool flag) { cellObject().setSelectable(flag); }
    bool isBezeled() const { return cellObject().isBezeled(); }
    void setBezeled(bool flag) { cellObject().setBezeled(flag); }
    bool isBordered() const { return cellObject().isBordered(); }
    void setBordered(bool flag) { cellObject().setBordered(flag); }
    unsigned long bezelStyle() const { return textCell().bezelStyle(); }
    void setBezelStyle(unsigned long style) { textCell().setBezelStyle(style); }
    bool drawsBackground() const { return textCell().drawsBackground(); }
    void setDrawsBackground(bool flag) { textCell().setDrawsBackground(flag); }
    id textColor() const { return textCell().textColor(); }
    void setTextColor(const id& color) { textCell().setTextColor(color); }
    id backgroundColor() const { return textCell().backgroundColor(); }
    void setBackgroundColor(const id& color) { textCell().setBackgroundColor(color); }
    id placeholderString() const { return textCell().placeholderString(); }
    void setPlaceholderString(const id& text) { textCell().setPlaceholderString(text); }
    long lineBreakMode() const { return textCell().lineBreakMode(); }
    void setLineBreakMode(long mode) { textCell().setLineBreakMode(mode); }
    bool allowsEditingTextAttributes() const { return textCell().allowsEditingTextAttributes(); }
    void setAllowsEditingTextAttributes(bool flag) { textCell().setAllowsEditingTextAttributes(flag); }
    id formatter() const { return textCell().formatter(); }
    void setFormatter(const id& formatter) { textCell().setFormatter(formatter); }

    /// Gives the field the keyboard with all of its text selected; nothing for one whose text cannot be selected.
    void selectText(const id& sender);
    /// What the person edits with, while the field has the keyboard; nil otherwise.
    id currentEditor() const;
    /// Somebody has changed the text and not ended the edit.
    bool isEditing() const { return editing_; }
    /// Ends the edit, putting the old value back; whether there was one. The delegate hears nothing.
    bool abortEditing();
    /// The value is what stands in the field; it always is.
    void validateEditing() {}

    // Edits of the text, as menus and shortcuts ask for them.
    virtual void cutText(const id& sender);
    virtual void copyText(const id& sender);
    virtual void pasteText(const id& sender);
    virtual void deleteText(const id& sender);
    void selectAllText(const id& sender);
    void undoTyping(const id& sender);
    void redoTyping(const id& sender);

    bool resignFirstResponder() override;
    void moveToWindow(NSWindow* window) override;
    void cellChanged(NSCell& cell) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSTextField>& c);

    // What the widget reports, each from an event of the toolkit.
    /// A person changed the text.
    void typed() noexcept;
    /// A key stands for that command ("insertNewline:", "moveUp:", …). True when somebody took it.
    bool command(std::string_view selector) noexcept;
    /// The keyboard went elsewhere. False when the edit may not end.
    bool keyboardLeft() noexcept;

    // What the widget asks.
    /// Wraps its text over several lines.
    bool showsSeveralLines() const;
    /// Dots stand for the text, and it leaves the field by the program alone.
    bool isSecret() const;
    /// The part of the value that stands in the editor.
    virtual id editedText() const { return stringValue(); }
    velt::FieldEditor* editor() const;
    velt::FieldWidget* fieldWidget() const;

protected:
    velt::Ref<NSCell> makeCell() const override;
    bool takesKeys() const override { return isSelectable(); }
    std::unique_ptr<QWidget> makeWidget() final;
    virtual std::unique_ptr<velt::FieldWidget> makeFieldWidget();
    void syncWidget(QWidget& widget) override;
    /// Gives a field's new cell what all fields start with.
    static void prepareCell(NSTextFieldCell& cell);

    /// What stands in the field becomes the value, after whoever may refuse was asked.
    virtual void takeTyped();
    /// A command that nobody else took; what is left to the editor itself gives false.
    virtual bool perform(std::string_view selector);
    /// The text was changed and the program told.
    virtual void textChanged() {}
    /// An edit ends with Return: the action, and the text selected. False when nobody took it.
    virtual bool finishWithReturn();
    /// Ends the edit and sends the action if one was going on. False when somebody refuses.
    bool leave(Movement movement);
    bool endEditing(Movement movement);
    /// The edit is about to end, and may be held up once more by false.
    virtual bool endingEdit(Movement) { return true; }
    /// Sends the action; false when nobody answers it.
    bool sendOwnAction();
    void beginEditing();

    /// The delegate's answer to a question; yes without one.
    bool delegateAllows(std::string_view selector);
    /// Tells the delegate, then everybody.
    void tell(std::string_view delegateSelector, std::string_view notification, const id& userInfo = nil);

private:
    bool cancel();
    /// The edit is over: the delegate and everybody hear by what.
    void editingEnded(Movement movement);

    bool editing_ = false;
    bool telling_ = false;  // the delegate hears of a change: what it sets belongs to the edit
    bool asking_ = false;   // the delegate is asked whether the edit may end
    id before_;             // what Escape brings back
    mutable id fieldText_;  // made when a program asks for it first
};
