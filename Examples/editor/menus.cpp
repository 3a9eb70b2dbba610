// menus.bas as the translator writes it.
#include "editor/files.h"

namespace editor {

namespace {
id newMenu(id main, id title) {
    VELTS("menus.bas", "NewMenu", "4", "");
    id menu = VELT_NSMENU_INIT(nil, "", title);
    VELTS("menus.bas", "NewMenu", "5", "");
    VELT_PROPERTY(menu, "autoenablesItems"_v, boolean(true));
    VELTS("menus.bas", "NewMenu", "6", "");
    VELT_NSMENU_APPENDMENU(main, menu);
    VELTS("menus.bas", "NewMenu", "7", "");
    return VELT__NSMENU(menu);
}

id addItem(id menu, velt::Ref<SourceEditor> owner, id title, id action, id key) {
    VELTS("menus.bas", "AddItem", "12", "");
    id item = VELT_NSMENUITEM_INIT(owner, "", title);
    VELTS("menus.bas", "AddItem", "13", "");
    VELT_NSMENUITEM_ACTIONNAME(item, action);
    VELTS("menus.bas", "AddItem", "14", "");
    VELT_NSMENUITEM_KEYEQUIVALENT(item, key);
    VELTS("menus.bas", "AddItem", "15", "");
    VELT_NSMENU_APPENDMENUITEM(menu, item);
    VELTS("menus.bas", "AddItem", "16", "");
    return VELT__NSMENUITEM(item);
}

void addSourceItem(id menu, velt::Ref<SourceEditor> owner, id title, id command, id key) {
    VELTS("menus.bas", "AddSourceItem", "21", "");
    id item = VELT__NSMENUITEM(addItem(menu, owner, title, VELT__STRING("sourceCommand"_v), key));
    VELTS("menus.bas", "AddSourceItem", "22", "");
    VELT_NSMENUITEM_REPRESENTEDOBJECT(item, command);
}

void addCommand(id menu, id title, id action, id key) {
    VELTS("menus.bas", "AddCommand", "27", "");
    id item = VELT_NSMENUITEM_INIT(nil, "", title);
    VELTS("menus.bas", "AddCommand", "28", "");
    VELT_PROPERTY(item, "action"_v, action);
    VELTS("menus.bas", "AddCommand", "29", "");
    VELT_NSMENUITEM_KEYEQUIVALENT(item, key);
    VELTS("menus.bas", "AddCommand", "30", "");
    VELT_NSMENU_APPENDMENUITEM(menu, item);
}

}  // namespace

id mainMenu(velt::Ref<SourceEditor> owner) {
    VELTS("menus.bas", "MainMenu", "34", "");
    id main = VELT_NSMENU_INIT(nil, "", "Editor"_v);
    VELTS("menus.bas", "MainMenu", "35", "");
    id menu = newMenu(main, VELT__STRING("File"_v));
    VELTS("menus.bas", "MainMenu", "36", "");
    addItem(menu, owner, VELT__STRING("New"_v), VELT__STRING("newFile"_v), VELT__STRING("n"_v));
    VELTS("menus.bas", "MainMenu", "37", "");
    addItem(menu, owner, VELT__STRING("Open…"_v), VELT__STRING("openFile"_v), VELT__STRING("o"_v));
    VELTS("menus.bas", "MainMenu", "38", "");
    owner->recentMenu = newMenu(menu, VELT__STRING("Open Recent"_v));
    VELTS("menus.bas", "MainMenu", "39", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "40", "");
    addItem(menu, owner, VELT__STRING("Save"_v), VELT__STRING("saveFile"_v), VELT__STRING("s"_v));
    VELTS("menus.bas", "MainMenu", "41", "");
    addItem(menu, owner, VELT__STRING("Save As…"_v), VELT__STRING("saveFileAs"_v), VELT__STRING("S"_v));
    VELTS("menus.bas", "MainMenu", "42", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "43", "");
    addItem(menu, owner, VELT__STRING("Print…"_v), VELT__STRING("printSource"_v), VELT__STRING("p"_v));
    VELTS("menus.bas", "MainMenu", "44", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "45", "");
    addItem(menu, owner, VELT__STRING("Close"_v), VELT__STRING("closeFile"_v), VELT__STRING("w"_v));
    VELTS("menus.bas", "MainMenu", "46", "");
    addItem(menu, owner, VELT__STRING("Quit"_v), VELT__STRING("quit"_v), VELT__STRING("q"_v));
    VELTS("menus.bas", "MainMenu", "47", "");
    menu = newMenu(main, VELT__STRING("Edit"_v));
    VELTS("menus.bas", "MainMenu", "48", "");
    addCommand(menu, VELT__STRING("Undo"_v), VELT__STRING("undo:"_v), VELT__STRING("z"_v));
    VELTS("menus.bas", "MainMenu", "49", "");
    addCommand(menu, VELT__STRING("Redo"_v), VELT__STRING("redo:"_v), VELT__STRING("Z"_v));
    VELTS("menus.bas", "MainMenu", "50", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "51", "");
    addCommand(menu, VELT__STRING("Cut"_v), VELT__STRING("cut:"_v), VELT__STRING("x"_v));
    VELTS("menus.bas", "MainMenu", "52", "");
    addCommand(menu, VELT__STRING("Copy"_v), VELT__STRING("copy:"_v), VELT__STRING("c"_v));
    VELTS("menus.bas", "MainMenu", "53", "");
    addCommand(menu, VELT__STRING("Paste"_v), VELT__STRING("paste:"_v), VELT__STRING("v"_v));
    VELTS("menus.bas", "MainMenu", "54", "");
    addCommand(menu, VELT__STRING("Select All"_v), VELT__STRING("selectAll:"_v), VELT__STRING("a"_v));
    VELTS("menus.bas", "MainMenu", "55", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "56", "");
    addItem(menu, owner, VELT__STRING("Preferences…"_v), VELT__STRING("showPreferences"_v), VELT__STRING(","_v));
    VELTS("menus.bas", "MainMenu", "57", "");
    menu = newMenu(main, VELT__STRING("Search"_v));
    VELTS("menus.bas", "MainMenu", "58", "");
    addItem(menu, owner, VELT__STRING("Find and Replace…"_v), VELT__STRING("showFind"_v), VELT__STRING("f"_v));
    VELTS("menus.bas", "MainMenu", "59", "");
    addItem(menu, owner, VELT__STRING("Find Next"_v), VELT__STRING("findNext"_v), VELT__STRING("g"_v));
    VELTS("menus.bas", "MainMenu", "60", "");
    addItem(menu, owner, VELT__STRING("Find Previous"_v), VELT__STRING("findPrevious"_v), VELT__STRING("G"_v));
    VELTS("menus.bas", "MainMenu", "61", "");
    addItem(menu, owner, VELT__STRING("Find the Selection"_v), VELT__STRING("useSelection"_v), VELT__STRING("e"_v));
    VELTS("menus.bas", "MainMenu", "62", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "63", "");
    addItem(menu, owner, VELT__STRING("Replace and Find Next"_v), VELT__STRING("replaceOne"_v), VELT__STRING("r"_v));
    VELTS("menus.bas", "MainMenu", "64", "");
    addItem(menu, owner, VELT__STRING("Replace All"_v), VELT__STRING("replaceAll"_v), VELT__STRING("R"_v));
    VELTS("menus.bas", "MainMenu", "65", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "66", "");
    addItem(menu, owner, VELT__STRING("Go to Line…"_v), VELT__STRING("goToLine"_v), VELT__STRING("l"_v));
    VELTS("menus.bas", "MainMenu", "67", "");
    menu = newMenu(main, VELT__STRING("Source"_v));
    VELTS("menus.bas", "MainMenu", "68", "");
    addSourceItem(menu, owner, VELT__STRING("Shift Right"_v), VELT__STRING("_shiftRight"_v), VELT__STRING("]"_v));
    VELTS("menus.bas", "MainMenu", "69", "");
    addSourceItem(menu, owner, VELT__STRING("Shift Left"_v), VELT__STRING("_shiftLeft"_v), VELT__STRING("["_v));
    VELTS("menus.bas", "MainMenu", "70", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "71", "");
    addSourceItem(menu, owner, VELT__STRING("Comment"_v), VELT__STRING("_comment"_v), VELT__STRING("k"_v));
    VELTS("menus.bas", "MainMenu", "72", "");
    addSourceItem(menu, owner, VELT__STRING("Uncomment"_v), VELT__STRING("_uncomment"_v), VELT__STRING("K"_v));
    VELTS("menus.bas", "MainMenu", "73", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "74", "");
    addSourceItem(menu, owner, VELT__STRING("Upper Case"_v), VELT__STRING("_uppercase"_v), VELT__STRING("U"_v));
    VELTS("menus.bas", "MainMenu", "75", "");
    addSourceItem(menu, owner, VELT__STRING("Lower Case"_v), VELT__STRING("_lowercase"_v), VELT__STRING("u"_v));
    VELTS("menus.bas", "MainMenu", "76", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "77", "");
    addSourceItem(menu, owner, VELT__STRING("Format"_v), VELT__STRING("_autoFormat"_v), VELT__STRING("I"_v));
    VELTS("menus.bas", "MainMenu", "78", "");
    addItem(menu, owner, VELT__STRING("Breakpoint"_v), VELT__STRING("toggleBreakpoint"_v), VELT__STRING("b"_v));
    VELTS("menus.bas", "MainMenu", "79", "");
    menu = newMenu(main, VELT__STRING("View"_v));
    VELTS("menus.bas", "MainMenu", "80", "");
    addItem(menu, owner, VELT__STRING("Bigger Text"_v), VELT__STRING("biggerText"_v), VELT__STRING("+"_v));
    VELTS("menus.bas", "MainMenu", "81", "");
    addItem(menu, owner, VELT__STRING("Smaller Text"_v), VELT__STRING("smallerText"_v), VELT__STRING("-"_v));
    VELTS("menus.bas", "MainMenu", "82", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "83", "");
    addItem(menu, owner, VELT__STRING("Next Tab"_v), VELT__STRING("nextTab"_v),
            VELT__STRING(VELT_CHARACTER(number(63277))));
    VELTS("menus.bas", "MainMenu", "84", "");
    addItem(menu, owner, VELT__STRING("Previous Tab"_v), VELT__STRING("previousTab"_v),
            VELT__STRING(VELT_CHARACTER(number(63276))));
    VELTS("menus.bas", "MainMenu", "85", "");
    menu = newMenu(main, VELT__STRING("Help"_v));
    VELTS("menus.bas", "MainMenu", "86", "");
    addItem(menu, owner, VELT__STRING("The Editor by Keys"_v), VELT__STRING("showKeys"_v), VELT__STRING(""_v));
    VELTS("menus.bas", "MainMenu", "87", "");
    VELT_PROPERTY(application(), "helpMenu"_v, menu);
    VELTS("menus.bas", "MainMenu", "88", "");
    return VELT__NSMENU(main);
}

}  // namespace editor
