// The application's main menu in its windows: a menu bar above the contents, or the keys alone where there is no bar.
#pragma once

#include "VELTRuntime/values/value.h"

class NSMenu;
class NSWindow;

namespace velt {

/// Shows the application's main menu in a window, in place of one that it had.
void showMainMenu(NSWindow& window);

/// The main menu is another one: the windows that show the one before take it away.
void hideMainMenu(const id& menu);

}  // namespace velt
