#include "VELTRuntime/platform/appkit/menus/menu_bar.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/menus/key_equivalents.h"
#include "VELTRuntime/platform/appkit/menus/menu.h"
#include "VELTRuntime/platform/appkit/panel.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>
#include <algorithm>

namespace velt {

namespace {

/// A menu bar that knows from whom it took the keyboard.
class MenuBar final : public QMenuBar {
public:
    explicit MenuBar(QWidget* parent) : QMenuBar(parent) {
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget* old, QWidget* now) {
            if (now == this && old && old->window() == window()) before_ = old;
        });
    }
    QWidget* before() const { return before_; }

private:
    QPointer<QWidget> before_;
};

bool hasKey(const NSMenu& menu, const QKeySequence& pressed) {
    return std::any_of(menu.items().begin(), menu.items().end(), [&](const Ref<NSMenuItem>& item) {
        if (item->isHidden()) return false;
        const id within = item->submenu();
        if (is<NSMenu>(within)) return hasKey(*as<NSMenu>(within), pressed);
        return shortcutOf(item->keyEquivalent(), item->keyEquivalentModifierMask()) == pressed;
    });
}

}  // namespace

QWidget* behindMenuBar(QWidget* focus) {
    auto* bar = dynamic_cast<MenuBar*>(focus);
    return bar ? bar->before() : focus;
}

void showMainMenu(NSWindow& window) {
    const id main = NSApplication::sharedApplication().mainMenu();
    QMainWindow& shown = window.widget();
    const bool hasBar = !is<NSPanel>(id(static_cast<NSObject*>(&window))) && (window.styleMask() & kTitledWindow);
    if (!is<NSMenu>(main)) {
        if (shown.menuWidget()) window.changeBar([](QMainWindow& widget) { widget.setMenuBar(nullptr); });
        return;
    }
    NSMenu& menu = *as<NSMenu>(main);
    if (!hasBar) {
        menu.addHost(shown);
        return;
    }
    if (shown.menuWidget() && menu.isHostedBy(*shown.menuWidget())) return;
    window.changeBar([&](QMainWindow& widget) {
        if (!widget.menuWidget()) widget.setMenuBar(new MenuBar(&widget));
        menu.addHost(*widget.menuWidget());
        widget.menuWidget()->setVisible(true);
    });
}

bool mainMenuHasKey(const QKeyEvent& pressed) {
    const id main = NSApplication::sharedApplication().mainMenu();
    return is<NSMenu>(main) && hasKey(*as<NSMenu>(main), QKeySequence(pressed.keyCombination()));
}

void hideMainMenu(const id& menu) {
    if (is<NSMenu>(menu)) as<NSMenu>(menu)->removeHosts();
}

}  // namespace velt
