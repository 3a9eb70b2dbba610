// menus.bas as the translator writes it.
#include "notes/document.h"

namespace notes {

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

void addItem(id menu, velt::Ref<NotesDocument> owner, id title, id action, id key) {
    VELTS("menus.bas", "AddItem", "12", "");
    id item = VELT_NSMENUITEM_INIT(owner, "", title);
    VELTS("menus.bas", "AddItem", "13", "");
    VELT_NSMENUITEM_ACTIONNAME(item, action);
    VELTS("menus.bas", "AddItem", "14", "");
    VELT_NSMENUITEM_KEYEQUIVALENT(item, key);
    VELTS("menus.bas", "AddItem", "15", "");
    VELT_NSMENU_APPENDMENUITEM(menu, item);
}

void addCommand(id menu, id title, id action, id key, id tag) {
    VELTS("menus.bas", "AddCommand", "20", "");
    id item = VELT_NSMENUITEM_INIT(nil, "", title);
    VELTS("menus.bas", "AddCommand", "21", "");
    VELT_PROPERTY(item, "action"_v, action);
    VELTS("menus.bas", "AddCommand", "22", "");
    VELT_NSMENUITEM_KEYEQUIVALENT(item, key);
    VELTS("menus.bas", "AddCommand", "23", "");
    VELT_NSMENUITEM_TAG(item, tag);
    VELTS("menus.bas", "AddCommand", "24", "");
    VELT_NSMENU_APPENDMENUITEM(menu, item);
}

}  // namespace

id mainMenu(velt::Ref<NotesDocument> owner) {
    VELTS("menus.bas", "MainMenu", "28", "");
    id main = VELT_NSMENU_INIT(nil, "", "Notes"_v);
    VELTS("menus.bas", "MainMenu", "29", "");
    id menu = newMenu(main, VELT__STRING("File"_v));
    VELTS("menus.bas", "MainMenu", "30", "");
    addItem(menu, owner, VELT__STRING("New"_v), VELT__STRING("newFile"_v), VELT__STRING("N"_v));
    VELTS("menus.bas", "MainMenu", "31", "");
    addItem(menu, owner, VELT__STRING("Open…"_v), VELT__STRING("openNotes"_v), VELT__STRING("o"_v));
    VELTS("menus.bas", "MainMenu", "32", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "33", "");
    addItem(menu, owner, VELT__STRING("Save"_v), VELT__STRING("saveNotes"_v), VELT__STRING("s"_v));
    VELTS("menus.bas", "MainMenu", "34", "");
    addItem(menu, owner, VELT__STRING("Save As…"_v), VELT__STRING("saveNotesAs"_v), VELT__STRING("S"_v));
    VELTS("menus.bas", "MainMenu", "35", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "36", "");
    addItem(menu, owner, VELT__STRING("Close"_v), VELT__STRING("closeNotes"_v), VELT__STRING("w"_v));
    VELTS("menus.bas", "MainMenu", "37", "");
    addItem(menu, owner, VELT__STRING("Quit"_v), VELT__STRING("quit"_v), VELT__STRING("q"_v));
    VELTS("menus.bas", "MainMenu", "38", "");
    menu = newMenu(main, VELT__STRING("Edit"_v));
    VELTS("menus.bas", "MainMenu", "39", "");
    addCommand(menu, VELT__STRING("Undo"_v), VELT__STRING("undo:"_v), VELT__STRING("z"_v), VELT__INTEGER(number(0)));
    VELTS("menus.bas", "MainMenu", "40", "");
    addCommand(menu, VELT__STRING("Redo"_v), VELT__STRING("redo:"_v), VELT__STRING("Z"_v), VELT__INTEGER(number(0)));
    VELTS("menus.bas", "MainMenu", "41", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "42", "");
    addCommand(menu, VELT__STRING("Cut"_v), VELT__STRING("cut:"_v), VELT__STRING("x"_v), VELT__INTEGER(number(0)));
    VELTS("menus.bas", "MainMenu", "43", "");
    addCommand(menu, VELT__STRING("Copy"_v), VELT__STRING("copy:"_v), VELT__STRING("c"_v), VELT__INTEGER(number(0)));
    VELTS("menus.bas", "MainMenu", "44", "");
    addCommand(menu, VELT__STRING("Paste"_v), VELT__STRING("paste:"_v), VELT__STRING("v"_v), VELT__INTEGER(number(0)));
    VELTS("menus.bas", "MainMenu", "45", "");
    addCommand(menu, VELT__STRING("Select All"_v), VELT__STRING("selectAll:"_v), VELT__STRING("a"_v),
               VELT__INTEGER(number(0)));
    VELTS("menus.bas", "MainMenu", "46", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "47", "");
    addCommand(menu, VELT__STRING("Find in Note…"_v), VELT__STRING("performFindPanelAction:"_v), VELT__STRING("f"_v),
               VELT__INTEGER(number(1)));
    VELTS("menus.bas", "MainMenu", "48", "");
    addCommand(menu, VELT__STRING("Find Next"_v), VELT__STRING("performFindPanelAction:"_v), VELT__STRING("g"_v),
               VELT__INTEGER(number(2)));
    VELTS("menus.bas", "MainMenu", "49", "");
    addCommand(menu, VELT__STRING("Find Previous"_v), VELT__STRING("performFindPanelAction:"_v), VELT__STRING("G"_v),
               VELT__INTEGER(number(3)));
    VELTS("menus.bas", "MainMenu", "50", "");
    addItem(menu, owner, VELT__STRING("Search Notes"_v), VELT__STRING("findNotes"_v), VELT__STRING("F"_v));
    VELTS("menus.bas", "MainMenu", "51", "");
    menu = newMenu(main, VELT__STRING("Note"_v));
    VELTS("menus.bas", "MainMenu", "52", "");
    addItem(menu, owner, VELT__STRING("New Note"_v), VELT__STRING("newNote"_v), VELT__STRING("n"_v));
    VELTS("menus.bas", "MainMenu", "53", "");
    addItem(menu, owner, VELT__STRING("Edit Note"_v), VELT__STRING("editNote"_v), VELT__STRING("t"_v));
    VELTS("menus.bas", "MainMenu", "54", "");
    addItem(menu, owner, VELT__STRING("Show List"_v), VELT__STRING("showList"_v), VELT__STRING("l"_v));
    VELTS("menus.bas", "MainMenu", "55", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "56", "");
    addItem(menu, owner, VELT__STRING("Delete Note…"_v), VELT__STRING("deleteNote"_v),
            VELT__STRING(VELT_CHARACTER(number(127))));
    VELTS("menus.bas", "MainMenu", "57", "");
    menu = newMenu(main, VELT__STRING("View"_v));
    VELTS("menus.bas", "MainMenu", "58", "");
    addItem(menu, owner, VELT__STRING("Bigger Text"_v), VELT__STRING("biggerText"_v), VELT__STRING("+"_v));
    VELTS("menus.bas", "MainMenu", "59", "");
    addItem(menu, owner, VELT__STRING("Smaller Text"_v), VELT__STRING("smallerText"_v), VELT__STRING("-"_v));
    VELTS("menus.bas", "MainMenu", "60", "");
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELTS("menus.bas", "MainMenu", "61", "");
    addCommand(menu, VELT__STRING("Customize Toolbar…"_v), VELT__STRING("runToolbarCustomizationPalette:"_v),
               VELT__STRING(""_v), VELT__INTEGER(number(0)));
    VELTS("menus.bas", "MainMenu", "62", "");
    menu = newMenu(main, VELT__STRING("Help"_v));
    VELTS("menus.bas", "MainMenu", "63", "");
    addItem(menu, owner, VELT__STRING("Notes by Keys"_v), VELT__STRING("showKeys"_v), VELT__STRING(""_v));
    VELTS("menus.bas", "MainMenu", "64", "");
    VELT_PROPERTY(application(), "helpMenu"_v, menu);
    VELTS("menus.bas", "MainMenu", "65", "");
    return VELT__NSMENU(main);
}

}  // namespace notes
