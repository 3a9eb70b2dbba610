// Panels: windows that help another one.
#pragma once

#include "VELTRuntime/platform/appkit/window.h"

class VELT_EXPORT NSPanel : public NSWindow {
    VELT_OBJECT(NSPanel, NSWindow)
public:
    NSPanel() : NSPanel(NSRect{}, velt::kTitledWindow | velt::kClosableWindow | velt::kResizableWindow) {}
    NSPanel(NSRect contentRect, unsigned long styleMask) : NSWindow(contentRect, styleMask) {
        setHidesOnDeactivate(true);
    }
    /// Stays in front of the program's other windows.
    bool isFloatingPanel() const { return floating_; }
    void setFloatingPanel(bool flag);
    static void describe(velt::ClassBuilder<NSPanel>& c);

protected:
    bool isPanel() const override { return true; }

private:
    bool floating_ = false;
};
