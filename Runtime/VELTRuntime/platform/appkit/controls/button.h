// Buttons: controls that are pressed.
#pragma once

#include "VELTRuntime/platform/appkit/controls/button_cell.h"
#include "VELTRuntime/platform/appkit/controls/control.h"

class VELT_EXPORT NSButton : public NSControl {
    VELT_OBJECT(NSButton, NSControl)
public:
    NSButtonCell& buttonCell() const { return *velt::as<NSButtonCell>(cell()); }

    /// A press as a person's: the button is seen pressed for a moment; the action is sent at once.
    void performClick(const id& sender) override;
    /// Presses the button when the event is its key equivalent; whether it was.
    bool performKeyEquivalent(NSEvent* event);
    /// Shows it pressed, or not.
    void highlight(bool flag) { cellObject().setHighlighted(flag); }
    /// The widget was pressed and let go within it: the state follows, the action is sent.
    void pressed() noexcept;
    /// The radio buttons of its group: those of the superview that send the same action.
    std::vector<velt::Ref<NSButton>> radioGroup() const;

    // The cell's properties.
    id title() const { return buttonCell().title(); }
    void setTitle(const id& value) { buttonCell().setTitle(value); }
    id alternateTitle() const { return buttonCell().alternateTitle(); }
    void setAlternateTitle(const id& value) { buttonCell().setAlternateTitle(value); }
    id attributedTitle() const { return buttonCell().attributedTitle(); }
    void setAttributedTitle(const id& value) { buttonCell().setAttributedTitle(value); }
    id attributedAlternateTitle() const { return buttonCell().attributedAlternateTitle(); }
    void setAttributedAlternateTitle(const id& value) { buttonCell().setAttributedAlternateTitle(value); }
    id image() const { return buttonCell().image(); }
    void setImage(const id& value) { buttonCell().setImage(value); }
    id alternateImage() const { return buttonCell().alternateImage(); }
    void setAlternateImage(const id& value) { buttonCell().setAlternateImage(value); }
    unsigned long imagePosition() const { return buttonCell().imagePosition(); }
    void setImagePosition(unsigned long value) { buttonCell().setImagePosition(value); }
    unsigned long bezelStyle() const { return buttonCell().bezelStyle(); }
    void setBezelStyle(unsigned long value) { buttonCell().setBezelStyle(value); }
    id keyEquivalent() const { return buttonCell().keyEquivalent(); }
    void setKeyEquivalent(const id& value) { buttonCell().setKeyEquivalent(value); }
    unsigned long keyEquivalentModifierMask() const { return buttonCell().keyEquivalentModifierMask(); }
    void setKeyEquivalentModifierMask(unsigned long value) { buttonCell().setKeyEquivalentModifierMask(value); }
    long state() const { return buttonCell().state(); }
    void setState(long value) { buttonCell().setState(value); }
    id sound() const { return buttonCell().sound(); }
    void setSound(const id& value) { buttonCell().setSound(value); }
    bool allowsMixedState() const { return buttonCell().allowsMixedState(); }
    void setAllowsMixedState(bool value) { buttonCell().setAllowsMixedState(value); }
    bool isTransparent() const { return buttonCell().isTransparent(); }
    void setTransparent(bool flag) { buttonCell().setTransparent(flag); }
    bool isBordered() const { return buttonCell().isBordered(); }
    void setBordered(bool flag) { buttonCell().setBordered(flag); }
    void setButtonType(long type) { buttonCell().setButtonType(type); }
    void setNextState() { buttonCell().setNextState(); }

    void cellChanged(NSCell& cell) override;
    void moveToWindow(NSWindow* window) override;
    static void describe(velt::ClassBuilder<NSButton>& c);

protected:
    velt::Ref<NSCell> makeCell() const override;
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;

private:
    void followKeyEquivalent();
    bool madeDefault_ = false;  // by its key equivalent
};
