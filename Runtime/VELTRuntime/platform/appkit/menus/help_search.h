// The search field of the Help menu: finds items of the main menu by their titles.
#pragma once

class NSMenu;
class QMenu;

namespace velt {

/// The menu is the Help menu of the main menu: the one that the program named as such, or else the one titled "Help".
/// When the program names a menu that is not in the main menu, there is none.
bool isHelpMenu(const NSMenu& menu);

/// Puts the search field at the top of a menu that is about to be shown, or takes it away.
void showHelpSearch(QMenu& widget, const NSMenu& menu);

}  // namespace velt
