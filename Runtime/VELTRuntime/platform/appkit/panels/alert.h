// Alerts: a question or a message with an icon and buttons, in a window of its own or as a sheet.
#pragma once

#include "VELTRuntime/platform/appkit/panel.h"

#include <vector>

class NSButton;

namespace velt {
class AlertPanel;

/// The codes of an alert that was made with its buttons: the default one, the alternate, the other.
inline constexpr long kAlertDefault = 1, kAlertAlternate = 0, kAlertOther = -1;
/// The code of the first button that was added to an alert; the next ones count on from it.
inline constexpr long kAlertFirstButton = 1000;
}  // namespace velt

class VELT_EXPORT NSAlert : public NSObject {
    VELT_OBJECT(NSAlert, NSObject)
public:
    enum Style : long { Warning = 0, Informational = 1, Critical = 2 };

    NSAlert();
    ~NSAlert() override;
    /// An alert with up to three buttons, whose codes are 1, 0 and -1; a nil title leaves a button out. Without any it
    /// has the platform's single button.
    static velt::Ref<NSAlert> withTexts(const id& message, const id& defaultButton, const id& alternateButton,
                                        const id& otherButton, const id& informative);

    id messageText() const { return messageText_; }
    void setMessageText(const id& text);
    id informativeText() const { return informativeText_; }
    void setInformativeText(const id& text);
    long alertStyle() const { return style_; }
    void setAlertStyle(long style);
    /// An image in place of the desktop's icon for the style.
    id icon() const { return icon_; }
    void setIcon(const id& image);
    /// A view between the texts and the buttons, in its own size.
    id accessoryView() const { return accessory_; }
    void setAccessoryView(NSView* view);
    /// Adds a button behind the others, which may be set up further; its code is 1000 for the first, then 1001 and on.
    id addButtonWithTitle(const id& title);
    /// New array of the buttons.
    id buttons() const;
    /// The panel that shows it; made anew for each showing.
    id window();

    /// Shows the alert and waits for the answer; returns the button's code.
    long runModal();
    /// Shows the alert as a window's sheet, and returns; the delegate is sent the message with the alert, the code and
    /// the context. Without a window it stands alone.
    void beginSheet(NSWindow* window, const id& delegate, const id& didEnd, const id& context);

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSAlert>& c);

private:
    struct Answer {
        velt::Ref<NSButton> button;
        long code;
    };
    void add(const id& title, long code);
    velt::AlertPanel& panel();
    void textsChanged();

    id messageText_, informativeText_, icon_, accessory_;
    long style_ = Warning;
    std::vector<Answer> answers_;
    velt::Ref<velt::AlertPanel> panel_;
};

/// Message panels: a title (nil: none), a message, and up to three buttons (nil: absent; all nil: the platform's single
/// one). They wait for the answer: 1 for the default button, 0 for the alternate, -1 for the other.
VELT_EXPORT long NSRunAlertPanel(const id& title, const id& message, const id& defaultButton, const id& alternateButton,
                                 const id& otherButton);
VELT_EXPORT long NSRunInformationalAlertPanel(const id& title, const id& message, const id& defaultButton,
                                              const id& alternateButton, const id& otherButton);
VELT_EXPORT long NSRunCriticalAlertPanel(const id& title, const id& message, const id& defaultButton,
                                         const id& alternateButton, const id& otherButton);
