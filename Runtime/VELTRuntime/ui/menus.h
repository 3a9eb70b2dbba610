// Menus and their items.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/menus.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// A menu of that title (ASCII), whose items are enabled as the program says. The owner is ignored.
VELT_EXPORT id VELT_NSMENU_INIT(const id& owner, const char* title);
/// The same with the title from the third argument; the second is ignored.
VELT_EXPORT id VELT_NSMENU_INIT(const id& owner, const char* ignored, const id& title);
/// An item without a key equivalent, titled with the action's name. The owner is its target; its action is the owner's
/// method of that name, if the owner has it.
VELT_EXPORT id VELT_NSMENUITEM_INIT(const id& owner, const char* action);
/// The same with the title from the third argument.
VELT_EXPORT id VELT_NSMENUITEM_INIT(const id& owner, const char* action, const id& title);

/// Adds at the end: an item as it is, a menu as the submenu of a new item, anything else as the title of a new item.
VELT_EXPORT id VELT_NSMENU_APPEND(const id& menu, const id& value);
/// Adds a new item with that submenu and its title, at the end, in front or at a position (an integer). Raises
/// "'NSMenu' expected".
VELT_EXPORT id VELT_NSMENU_APPENDMENU(const id& menu, const id& submenu);
VELT_EXPORT id VELT_NSMENU_PREPENDMENU(const id& menu, const id& submenu);
VELT_EXPORT id VELT_NSMENU_INSERTMENU(const id& menu, const id& submenu, const id& index);
/// Inserts an item as it is, or a new item titled with the value, in front or at a position.
VELT_EXPORT id VELT_NSMENU_PREPENDMENUITEM(const id& menu, const id& value);
VELT_EXPORT id VELT_NSMENU_INSERTMENUITEM(const id& menu, const id& value, const id& index);
/// Adds a separator at the end, in front or at a position.
VELT_EXPORT id VELT_NSMENU_APPENDSEPARATOR(const id& menu);
VELT_EXPORT id VELT_NSMENU_PREPENDSEPARATOR(const id& menu);
VELT_EXPORT id VELT_NSMENU_INSERTSEPARATOR(const id& menu, const id& index);
/// Removes all items.
VELT_EXPORT id VELT_NSMENU_REMOVEALL(const id& menu);

/// Always a new empty string; programs rely on it.
VELT_EXPORT id VELT_NSMENUITEM_ACTIONNAME(const id& item);
/// Lets the item call a method of its target: the one of that name with a colon behind it, or else the one of that
/// name. Nothing when the target has neither. The name goes through VELT_CSTRING.
VELT_EXPORT id VELT_NSMENUITEM_ACTIONNAME(const id& item, const id& name);
