// The panel in which a person picks colours: one for the whole program.
#pragma once

#include "VELTRuntime/platform/appkit/panel.h"

class NSColor;

/// Stays in front of the program's windows. A person's colour goes to the active colour wells, as "changeColor:" to the
/// first responder, and as the panel's own action to its target.
class VELT_EXPORT NSColorPanel : public NSPanel {
    VELT_OBJECT(NSColorPanel, NSPanel)
public:
    NSColorPanel();
    static NSColorPanel& sharedColorPanel();
    /// The shared panel has been asked for.
    static bool sharedColorPanelExists();

    /// The colour that it shows.
    id color() const { return color_; }
    /// Shows a colour; nobody is told. nil changes nothing.
    void setColor(NSColor* color);
    /// A person may choose the opacity too; no in a new panel.
    bool showsAlpha() const { return showsAlpha_; }
    void setShowsAlpha(bool flag);
    id target() const { return target_; }
    void setTarget(const id& target) { target_ = target; }
    id actionName() const { return actionName_; }
    void setAction(const id& name) { actionName_ = name; }

    /// A person picked a colour.
    void picked(const id& color) noexcept;
    static void describe(velt::ClassBuilder<NSColorPanel>& c);

private:
    void syncDialog();

    bool showsAlpha_ = false;
    id color_, target_, actionName_;
};
