// The application's main menu in its windows: a menu bar above the contents, or the keys alone where there is no bar.
#pragma once

#include "VELTRuntime/values/value.h"

class NSMenu;
class NSWindow;
class QKeyEvent;
class QWidget;

namespace velt {

/// Shows the application's main menu in a window, in place of one that it had.
void showMainMenu(NSWindow& window);

/// Who has the keyboard where a widget of the toolkit has it (null: nobody): a menu bar that is worked by keys has it
/// only in passing, and what is chosen from it is meant for who had it before.
QWidget* behindMenuBar(QWidget* focus);

/// An item of the main menu has that key.
bool mainMenuHasKey(const QKeyEvent& pressed);

/// The main menu is another one: the windows that show the one before take it away.
void hideMainMenu(const id& menu);

}  // namespace velt
