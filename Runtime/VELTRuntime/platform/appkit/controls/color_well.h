// Colour wells: small fields that show a colour, and take another one from the colour panel or by dragging.
#pragma once

#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/controls/control.h"

/// Black and with a border when it is new.
class VELT_EXPORT NSColorWell : public NSControl {
    VELT_OBJECT(NSColorWell, NSControl)
public:
    ~NSColorWell() override;

    /// The colour; also the control's value.
    id color() const;
    /// Shows a colour, in the panel too while the well is active. nil changes nothing.
    void setColor(const id& color);
    /// Takes the colour of another object ("color").
    void takeColorFrom(const id& source);
    bool isBordered() const { return cellObject().isBordered(); }
    void setBordered(bool flag) { cellObject().setBordered(flag); }
    /// The colours that a person picks in the panel are this well's. Activating opens the panel; an exclusive well
    /// deactivates the others.
    bool isActive() const;
    void activate(bool exclusive);
    void deactivate();

    /// A person's colour for this well: it is shown, and the action is sent.
    void take(const id& color);
    /// A press: active or not any more.
    void performClick(const id& sender) override;
    static void takeColorForActive(const id& color);
    static void deactivateAll();

    void cellChanged(NSCell& cell) override;
    void moveToWindow(NSWindow* window) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSColorWell>& c);

protected:
    velt::Ref<NSCell> makeCell() const override;
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
};
