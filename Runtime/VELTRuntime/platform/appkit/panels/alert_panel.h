// The window of an alert: icon and texts above, a view of the program, the buttons below, in the desktop's order.
#pragma once

#include "VELTRuntime/platform/appkit/controls/button.h"
#include "VELTRuntime/platform/appkit/panel.h"

#include <vector>

namespace velt {

struct AlertContents {
    id message, informative, icon;
    long style = 0;
    Ref<NSView> accessory;
    std::vector<Ref<NSButton>> buttons;  // tagged with their codes
};

class AlertPanel final : public NSPanel {
    VELT_OBJECT(AlertPanel, NSPanel)
public:
    AlertPanel();
    /// Lays out what it shows, and takes the size of that.
    void setContents(const AlertContents& contents);
    /// A button was pressed: ends the sheet or the session with its tag.
    void answer(const id& sender);
    /// The program's view and the buttons belong to nobody again.
    void releaseContents();

    /// Closing is cancelling, where a button does that.
    bool mayClose() override;
    bool endsProgramWhenLast() const override { return false; }
    static void describe(ClassBuilder<AlertPanel>& c);

private:
    AlertContents contents_;
};

}  // namespace velt
