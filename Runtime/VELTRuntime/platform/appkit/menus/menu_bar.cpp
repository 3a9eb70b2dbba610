#include "VELTRuntime/platform/appkit/menus/menu_bar.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/menus/menu.h"
#include "VELTRuntime/platform/appkit/panel.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QMainWindow>
#include <QMenuBar>

namespace velt {

void showMainMenu(NSWindow& window) {
    const id main = NSApplication::sharedApplication().mainMenu();
    QMainWindow& shown = window.widget();
    const bool hasBar = !is<NSPanel>(id(static_cast<NSObject*>(&window))) && (window.styleMask() & kTitledWindow);
    if (!is<NSMenu>(main)) {
        if (!shown.menuWidget()) return;
        shown.setMenuBar(nullptr);
        window.menuBarChanged();
        return;
    }
    NSMenu& menu = *as<NSMenu>(main);
    if (!hasBar) {
        menu.addHost(shown);
        return;
    }
    if (!shown.menuWidget()) shown.setMenuBar(new QMenuBar(&shown));
    if (menu.isHostedBy(*shown.menuWidget())) return;
    menu.addHost(*shown.menuWidget());
    shown.menuWidget()->setVisible(true);
    window.menuBarChanged();
}

void hideMainMenu(const id& menu) {
    if (is<NSMenu>(menu)) as<NSMenu>(menu)->removeHosts();
}

}  // namespace velt
