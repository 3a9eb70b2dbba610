// Preferences windows, worked as a person does: panes by the toolbar, controls by what is written on them.
#pragma once

#include "panels_support.h"
#include "support/patience.h"

#include <QToolButton>

namespace velt::test {

/// Clicks a pane's button in the toolbar. The toolbar makes its buttons anew when another one is chosen, so nothing of
/// them is touched after the click.
inline void clickPane(NSWindow& window, const char* label, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QToolButton* found = nullptr;
    for (QToolButton* button : window.widget().findChildren<QToolButton*>()) {
        if (button->isVisible() && button->text() == QString::fromUtf8(label)) found = button;
    }
    ASSERT_NE(nullptr, found) << label;
    QWidget* top = found->window();
    QTest::mouseClick(top->windowHandle(), Qt::LeftButton, held, found->mapTo(top, found->rect().center()));
}

/// The view within another one that has that title or that tool tip; nil without one.
inline id viewNamed(const id& around, std::string_view name) {
    for (const Ref<NSView>& each : as<NSView>(around)->subviewList()) {
        const id view(each), tip = VELT_NSVIEW_TOOLTIP(view);
        if (is<NSButton>(view) && utf8(VELT_NSBUTTON_TITLE(view)) == name) return view;
        if (isString(tip) && utf8(tip) == name) return view;
        if (id within = viewNamed(view, name); !within.isNil()) return within;
    }
    return nil;
}

/// Closes a preferences window by the program's key, and goes back to the main window, as desktops do by themselves.
inline void closePreferences(NSWindow& prefs, NSWindow& main) {
    pressKey(prefs, Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(prefs.isVisible());
    EXPECT_TRUE(main.isVisible());
    main.makeKeyWindow();
    EXPECT_TRUE(hasKeyboard(main));
}

/// Clicks a control of the pane that is shown.
inline void clickNamed(NSWindow& window, const char* name) {
    const id found = viewNamed(window.contentView(), name);
    ASSERT_TRUE(is<NSView>(found)) << name;
    clickAt(as<NSView>(found)->widget());
}

}  // namespace velt::test
