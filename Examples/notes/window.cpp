// window.bas as the translator writes it.
#include "notes/window.h"

namespace notes {

void NotesWindow::describe(velt::ClassBuilder<NotesWindow>& c) {
    c.property("window", &NotesWindow::window)
        .property("bar", &NotesWindow::bar)
        .property("split", &NotesWindow::split)
        .property("table", &NotesWindow::table)
        .property("text", &NotesWindow::text)
        .property("search", &NotesWindow::search)
        .property("shown", &NotesWindow::shown)
        .property("fontSize", &NotesWindow::fontSize)
        .owns(&NotesWindow::book)
        .owns(&NotesWindow::current)
        .method("toolbarDefaultItemIdentifiers:", &NotesWindow::defaultItems)
        .method("toolbarAllowedItemIdentifiers:", &NotesWindow::allowedItems)
        .method("toolbar:itemForItemIdentifier:willBeInsertedIntoToolbar:", &NotesWindow::toolbarItem)
        .method("validateToolbarItem:", &NotesWindow::validateToolbarItem)
        .method("validateMenuItem:", &NotesWindow::validateMenuItem)
        .method("numberOfRowsInTableView:", &NotesWindow::rowCount)
        .method("tableView:objectValueForTableColumn:row:", &NotesWindow::rowValue)
        .method("tableView:sortDescriptorsDidChange:", &NotesWindow::sortingChanged)
        .method("tableViewSelectionDidChange:", &NotesWindow::tableViewSelectionDidChange)
        .method("textDidChange:", &NotesWindow::textDidChange)
        .method("textView:doCommandBySelector:", &NotesWindow::textCommand)
        .method("control:textView:doCommandBySelector:", &NotesWindow::fieldCommand)
        .method("newNote:", &NotesWindow::newNote)
        .method("editNote:", &NotesWindow::editNote)
        .method("showList:", &NotesWindow::showList)
        .method("findNotes:", &NotesWindow::findNotes)
        .method("searchNotes:", &NotesWindow::searchNotes)
        .method("biggerText:", &NotesWindow::biggerText)
        .method("smallerText:", &NotesWindow::smallerText)
        .method("splitView:constrainMinCoordinate:ofSubviewAt:", &NotesWindow::leastPosition)
        .method("splitView:constrainMaxCoordinate:ofSubviewAt:", &NotesWindow::mostPosition)
        .method("splitView:resizeSubviewsWithOldSize:", &NotesWindow::resizePanes);
}

void NotesWindow::build() {
    VELTS("window.bas", "NotesWindow.Build", "17", "");
    window = VELT_NSWINDOW_INIT(id(this), "");
    VELTS("window.bas", "NotesWindow.Build", "18", "");
    VELT_NSWINDOW_CONTENTMINSIZE(window, newSize(460, 260));
    VELTS("window.bas", "NotesWindow.Build", "19", "");
    VELT_NSWINDOW_CONTENTSIZE(window, newSize(780, 480));
    VELTS("window.bas", "NotesWindow.Build", "20", "");
    buildTable();
    VELTS("window.bas", "NotesWindow.Build", "21", "");
    text = VELT_NSTEXTVIEW_INIT(id(this), "");
    VELTS("window.bas", "NotesWindow.Build", "22", "");
    VELT_NSTEXTVIEW_RICHTEXT(text, boolean(false));
    VELTS("window.bas", "NotesWindow.Build", "23", "");
    VELT_NSTEXTVIEW_ALLOWSUNDO(text, boolean(true));
    VELTS("window.bas", "NotesWindow.Build", "24", "");
    VELT_NSVIEW_TOOLTIP(text, "Text of the note"_v);
    VELTS("window.bas", "NotesWindow.Build", "25", "");
    split = VELT_VERTICALSPLITVIEW_INIT(id(this), "");
    VELTS("window.bas", "NotesWindow.Build", "26", "");
    VELT_NSVIEW_FRAME(split, newRect(number(0), number(0), number(780), number(480)));
    VELTS("window.bas", "NotesWindow.Build", "27", "");
    VELT_NSVIEW_AUTORESIZINGMASK(split, number(18));
    VELTS("window.bas", "NotesWindow.Build", "28", "");
    VELT_PROPERTY(split, "dividerStyle"_v, number(2));
    VELTS("window.bas", "NotesWindow.Build", "29", "");
    VELT_PROPERTY(split, "delegate"_v, id(this));
    VELTS("window.bas", "NotesWindow.Build", "30", "");
    VELT_NSVIEW_APPEND(split, table);
    VELTS("window.bas", "NotesWindow.Build", "31", "");
    VELT_NSVIEW_APPEND(split, text);
    VELTS("window.bas", "NotesWindow.Build", "32", "");
    VELT_NSWINDOW_APPEND(window, split);
    VELTS("window.bas", "NotesWindow.Build", "33", "");
    search = VELT_NSSEARCHFIELD_INIT(id(this), "searchNotes:");
    VELTS("window.bas", "NotesWindow.Build", "34", "");
    VELT_NSVIEW_FRAME(search, newRect(number(0), number(0), number(200), number(26)));
    VELTS("window.bas", "NotesWindow.Build", "35", "");
    VELT_PROPERTY(VELT_NSCONTROL_CELL(search), "placeholderString"_v, "Search"_v);
    VELTS("window.bas", "NotesWindow.Build", "36", "");
    VELT_NSVIEW_TOOLTIP(search, "Show the notes in which this occurs"_v);
    VELTS("window.bas", "NotesWindow.Build", "37", "");
    bar = VELT_NSTOOLBAR_INIT(id(this), "notes");
    VELTS("window.bas", "NotesWindow.Build", "38", "");
    VELT_NSTOOLBAR_ALLOWSUSERCUSTOMIZATION(bar, boolean(true));
    VELTS("window.bas", "NotesWindow.Build", "39", "");
    VELT_NSTOOLBAR_AUTOSAVESCONFIGURATION(bar, boolean(true));
    VELTS("window.bas", "NotesWindow.Build", "40", "");
    VELT_NSWINDOW_SETTOOLBAR(window, bar);
    VELTS("window.bas", "NotesWindow.Build", "41", "");
    VELT_NSWINDOW_DELEGATE(window, id(this));
    VELTS("window.bas", "NotesWindow.Build", "42", "");
    VELT_NSWINDOW_INITIALFIRSTRESPONDER(window, table);
    VELTS("window.bas", "NotesWindow.Build", "43", "");
    VELT_NSWINDOW_RECALCULATEKEYVIEWLOOP(window);
}

void NotesWindow::buildTable() {
    VELTS("window.bas", "NotesWindow.BuildTable", "47", "");
    table = VELT_NSTABLEVIEW_INIT(id(this), "");
    VELTS("window.bas", "NotesWindow.BuildTable", "48", "");
    VELT_NSTABLEVIEW_USESALTERNATINGROWBACKGROUNDCOLORS(table, boolean(true));
    VELTS("window.bas", "NotesWindow.BuildTable", "49", "");
    VELT_NSTABLEVIEW_ROWHEIGHT(table, number(22));
    VELTS("window.bas", "NotesWindow.BuildTable", "50", "");
    VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table, "editNote"_v);
    VELTS("window.bas", "NotesWindow.BuildTable", "51", "");
    VELT_NSVIEW_TOOLTIP(table, "Notes"_v);
    VELTS("window.bas", "NotesWindow.BuildTable", "52", "");
    addColumn(VELT__STRING("title"_v), VELT__STRING("Title"_v), VELT__INTEGER(number(170)), boolean(true));
    VELTS("window.bas", "NotesWindow.BuildTable", "53", "");
    addColumn(VELT__STRING("changed"_v), VELT__STRING("Changed"_v), VELT__INTEGER(number(130)), boolean(false));
}

void NotesWindow::addColumn(id key, id title, id width, id ascending) {
    VELTS("window.bas", "NotesWindow.AddColumn", "58", "");
    id column = VELT_NSTABLECOLUMN_INIT(id(this), "", key, title);
    VELTS("window.bas", "NotesWindow.AddColumn", "59", "");
    VELT_NSTABLECOLUMN_WIDTH(column, width);
    VELTS("window.bas", "NotesWindow.AddColumn", "60", "");
    VELT_NSTABLECOLUMN_EDITABLE(column, boolean(false));
    VELTS("window.bas", "NotesWindow.AddColumn", "61", "");
    VELT_PROPERTY(column, "sortDescriptorPrototype"_v, sortedBy(key, ascending));
    VELTS("window.bas", "NotesWindow.AddColumn", "62", "");
    VELT_NSTABLEVIEW_APPEND(table, column);
}

id NotesWindow::sortedBy(id key, id ascending) {
    VELTS("window.bas", "NotesWindow.SortedBy", "66", "");
    return VELT_NSOBJECT_PERFORMSELECTOR2(ofClass<NSSortDescriptor>(), "sortDescriptorWithKey:ascending:"_v, key,
                                          ascending);
}

id NotesWindow::defaultItems(id) {
    VELTS("window.bas", "NotesWindow.DefaultItems", "71", "");
    return VELT_SPLIT("newNote: deleteNote: NSToolbarFlexibleSpaceItem search"_v, " "_v);
}

id NotesWindow::allowedItems(id) {
    VELTS("window.bas", "NotesWindow.AllowedItems", "75", "");
    return VELT_SPLIT("newNote: deleteNote: biggerText: smallerText: search NSToolbarSpaceItem "
                      "NSToolbarFlexibleSpaceItem NSToolbarSeparatorItem"_v,
                      " "_v);
}

id NotesWindow::toolbarItem(id, id name, id inserted) {
    VELTS("window.bas", "NotesWindow.ToolbarItem", "79", "");
    if (VELT_CBOOL(VELT_EQUAL(name, "newNote:"_v))) {
        return labelled(VELT_NSTOOLBARITEM_INIT(id(this), "newNote:"), VELT__STRING("New Note"_v),
                        VELT__STRING("Write a new note"_v), VELT__STRING("new.png"_v));
    }
    VELTS("window.bas", "NotesWindow.ToolbarItem", "80", "");
    if (VELT_CBOOL(VELT_EQUAL(name, "deleteNote:"_v))) {
        return labelled(VELT_NSTOOLBARITEM_INIT(id(this), "deleteNote:"), VELT__STRING("Delete"_v),
                        VELT__STRING("Delete this note"_v), VELT__STRING("delete.png"_v));
    }
    VELTS("window.bas", "NotesWindow.ToolbarItem", "81", "");
    if (VELT_CBOOL(VELT_EQUAL(name, "biggerText:"_v))) {
        return labelled(VELT_NSTOOLBARITEM_INIT(id(this), "biggerText:"), VELT__STRING("Bigger"_v),
                        VELT__STRING("Make the text bigger"_v), VELT__STRING("bigger.png"_v));
    }
    VELTS("window.bas", "NotesWindow.ToolbarItem", "82", "");
    if (VELT_CBOOL(VELT_EQUAL(name, "smallerText:"_v))) {
        return labelled(VELT_NSTOOLBARITEM_INIT(id(this), "smallerText:"), VELT__STRING("Smaller"_v),
                        VELT__STRING("Make the text smaller"_v), VELT__STRING("smaller.png"_v));
    }
    VELTS("window.bas", "NotesWindow.ToolbarItem", "83", "");
    if (VELT_CBOOL(VELT_UNEQUAL(name, "search"_v))) return nil;
    VELTS("window.bas", "NotesWindow.ToolbarItem", "84", "");
    id item = VELT_NSTOOLBARITEM_INIT(id(this), "search");
    VELTS("window.bas", "NotesWindow.ToolbarItem", "85", "");
    VELT_NSTOOLBARITEM_PALETTELABEL(item, "Search"_v);
    VELTS("window.bas", "NotesWindow.ToolbarItem", "86", "");
    VELT_PROPERTY(item, "visibilityPriority"_v, number(1000));
    VELTS("window.bas", "NotesWindow.ToolbarItem", "87", "");
    if (VELT_CBOOL(inserted)) {
        VELTS("window.bas", "NotesWindow.ToolbarItem", "88", "");
        VELT_NSTOOLBARITEM_VIEW(item, search);
        VELTS("window.bas", "NotesWindow.ToolbarItem", "89", "");
        VELT_NSTOOLBARITEM_MINSIZE(item, newSize(120, 26));
        VELTS("window.bas", "NotesWindow.ToolbarItem", "90", "");
        VELT_NSTOOLBARITEM_MAXSIZE(item, newSize(220, 26));
    }
    VELTS("window.bas", "NotesWindow.ToolbarItem", "92", "");
    return item;
}

id NotesWindow::labelled(id item, id label, id tip, id picture) {
    VELTS("window.bas", "NotesWindow.Labelled", "96", "");
    VELT_NSTOOLBARITEM_LABEL(item, label);
    VELTS("window.bas", "NotesWindow.Labelled", "97", "");
    VELT_NSTOOLBARITEM_PALETTELABEL(item, label);
    VELTS("window.bas", "NotesWindow.Labelled", "98", "");
    VELT_NSTOOLBARITEM_TOOLTIP(item, tip);
    VELTS("window.bas", "NotesWindow.Labelled", "99", "");
    id image = VELT_NSIMAGE_INIT(id(this), "", picture);
    VELTS("window.bas", "NotesWindow.Labelled", "100", "");
    if (VELT_CBOOL(VELT_UNEQUAL(image, nil))) VELT_NSTOOLBARITEM_IMAGE(item, image);
    VELTS("window.bas", "NotesWindow.Labelled", "101", "");
    return VELT__NSTOOLBARITEM(item);
}

id NotesWindow::validateToolbarItem(id item) {
    VELTS("window.bas", "NotesWindow.ValidateToolbarItem", "105", "");
    return VELT__BOOLEAN(isPossible(VELT__STRING(VELT_NSTOOLBARITEM_ITEMIDENTIFIER(item))));
}

id NotesWindow::validateMenuItem(id item) {
    VELTS("window.bas", "NotesWindow.ValidateMenuItem", "109", "");
    return VELT__BOOLEAN(isPossible(VELT__STRING(VELT_PROPERTY(item, "action"_v))));
}

id NotesWindow::isPossible(id action) {
    VELTS("window.bas", "NotesWindow.IsPossible", "113", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "deleteNote:"_v))) return VELT__BOOLEAN(VELT_UNEQUAL(current, nil));
    VELTS("window.bas", "NotesWindow.IsPossible", "114", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "editNote:"_v))) return VELT__BOOLEAN(VELT_UNEQUAL(current, nil));
    VELTS("window.bas", "NotesWindow.IsPossible", "115", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "saveNotes:"_v))) return VELT__BOOLEAN(book->edited);
    VELTS("window.bas", "NotesWindow.IsPossible", "116", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "biggerText:"_v))) return VELT__BOOLEAN(VELT_SMALLER(fontSize, number(36)));
    VELTS("window.bas", "NotesWindow.IsPossible", "117", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "smallerText:"_v))) return VELT__BOOLEAN(VELT_GREATER(fontSize, number(9)));
    VELTS("window.bas", "NotesWindow.IsPossible", "118", "");
    return VELT__BOOLEAN(boolean(true));
}

id NotesWindow::rowCount(id) {
    VELTS("window.bas", "NotesWindow.RowCount", "123", "");
    return VELT__INTEGER(VELT_NSMUTABLEARRAY_COUNT(shown));
}

id NotesWindow::rowValue(id, id column, id row) {
    VELTS("window.bas", "NotesWindow.RowValue", "127", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSTABLECOLUMN_IDENTIFIER(column), "title"_v))) {
        return toNote(VELT_NSMUTABLEARRAY_OBJECT(shown, row))->title;
    }
    VELTS("window.bas", "NotesWindow.RowValue", "128", "");
    return toNote(VELT_NSMUTABLEARRAY_OBJECT(shown, row))->dateText();
}

void NotesWindow::sortingChanged(id, id) {
    VELTS("window.bas", "NotesWindow.SortingChanged", "132", "");
    listNotes();
}

void NotesWindow::tableViewSelectionDidChange(id) {
    VELTS("window.bas", "NotesWindow.TableViewSelectionDidChange", "136", "");
    if (VELT_CBOOL(listing)) return;
    VELTS("window.bas", "NotesWindow.TableViewSelectionDidChange", "137", "");
    if (VELT_CBOOL(VELT_SMALLER(VELT_NSTABLEVIEW_SELECTEDROW(table), number(0)))) {
        VELTS("window.bas", "NotesWindow.TableViewSelectionDidChange", "138", "");
        showNote(nullptr);
    } else {
        VELTS("window.bas", "NotesWindow.TableViewSelectionDidChange", "140", "");
        showNote(toNote(VELT_NSMUTABLEARRAY_OBJECT(shown, VELT_NSTABLEVIEW_SELECTEDROW(table))));
    }
}

void NotesWindow::listNotes() {
    VELTS("window.bas", "NotesWindow.ListNotes", "146", "");
    id sorting = VELT_NSARRAY_OBJECT(VELT_PROPERTY(table, "sortDescriptors"_v), number(0));
    VELTS("window.bas", "NotesWindow.ListNotes", "147", "");
    shown = VELT__NSMUTABLEARRAY(book->matching(VELT__STRING(VELT_NSCONTROL_STRINGVALUE(search)),
                                                VELT__STRING(VELT_PROPERTY(sorting, "key"_v)),
                                                VELT__BOOLEAN(VELT_PROPERTY(sorting, "ascending"_v))));
    VELTS("window.bas", "NotesWindow.ListNotes", "148", "");
    velt::Ref<Note> note = current;
    VELTS("window.bas", "NotesWindow.ListNotes", "149", "");
    if (VELT_CBOOL(VELT_SMALLER(rowOf(note), number(0)))) note = nullptr;
    VELTS("window.bas", "NotesWindow.ListNotes", "150", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_EQUAL(note, nil), VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(shown), number(0))))) {
        note = toNote(VELT_NSMUTABLEARRAY_OBJECT(shown, number(0)));
    }
    VELTS("window.bas", "NotesWindow.ListNotes", "151", "");
    fillTable(note);
    VELTS("window.bas", "NotesWindow.ListNotes", "152", "");
    showNote(note);
}

void NotesWindow::fillTable(velt::Ref<Note> note) {
    VELTS("window.bas", "NotesWindow.FillTable", "157", "");
    listing = VELT__BOOLEAN(boolean(true));
    VELTS("window.bas", "NotesWindow.FillTable", "158", "");
    VELT_NSTABLEVIEW_RELOADDATA(table);
    VELTS("window.bas", "NotesWindow.FillTable", "159", "");
    VELT_NSTABLEVIEW_SELECTROW(table, rowOf(note));
    VELTS("window.bas", "NotesWindow.FillTable", "160", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(table, "scrollRowToVisible:"_v, rowOf(note));
    VELTS("window.bas", "NotesWindow.FillTable", "161", "");
    listing = VELT__BOOLEAN(boolean(false));
}

id NotesWindow::rowOf(velt::Ref<Note> note) {
    VELTS("window.bas", "NotesWindow.RowOf", "165", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(shown), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("window.bas", "NotesWindow.RowOf", "166", "");
        if (VELT_CBOOL(VELT_EQUALEQUAL(VELT_NSMUTABLEARRAY_OBJECT(shown, i), note))) return VELT__INTEGER(i);
    }
    VELTS("window.bas", "NotesWindow.RowOf", "168", "");
    return VELT__INTEGER(number(-1));
}

void NotesWindow::showNote(velt::Ref<Note> note) {
    VELTS("window.bas", "NotesWindow.ShowNote", "173", "");
    if (VELT_CBOOL(VELT_EQUALEQUAL(note, current))) return;
    VELTS("window.bas", "NotesWindow.ShowNote", "174", "");
    current = note;
    VELTS("window.bas", "NotesWindow.ShowNote", "175", "");
    if (VELT_CBOOL(VELT_EQUAL(note, nil))) {
        VELTS("window.bas", "NotesWindow.ShowNote", "176", "");
        VELT_NSTEXTVIEW_VALUE(text, ""_v);
    } else {
        VELTS("window.bas", "NotesWindow.ShowNote", "178", "");
        VELT_NSTEXTVIEW_VALUE(text, note->text);
        VELTS("window.bas", "NotesWindow.ShowNote", "179", "");
        VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(text);
    }
    VELTS("window.bas", "NotesWindow.ShowNote", "181", "");
    VELT_NSTEXTVIEW_FONT(text, VELT_NSOBJECT_PERFORMSELECTOR1(ofClass<NSFont>(), "systemFontOfSize:"_v, fontSize));
    VELTS("window.bas", "NotesWindow.ShowNote", "182", "");
    VELT_NSTEXT_EDITABLE(text, VELT_UNEQUAL(note, nil));
    VELTS("window.bas", "NotesWindow.ShowNote", "183", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(bar, "validateVisibleItems"_v);
}

void NotesWindow::showBook(velt::Ref<Notebook> opened) {
    VELTS("window.bas", "NotesWindow.ShowBook", "188", "");
    book = opened;
    VELTS("window.bas", "NotesWindow.ShowBook", "189", "");
    VELT_NSCONTROL_STRINGVALUE(search, ""_v);
    VELTS("window.bas", "NotesWindow.ShowBook", "190", "");
    current = nullptr;
    VELTS("window.bas", "NotesWindow.ShowBook", "191", "");
    VELT_NSTEXTVIEW_VALUE(text, ""_v);
    VELTS("window.bas", "NotesWindow.ShowBook", "192", "");
    VELT_NSTEXT_EDITABLE(text, boolean(false));
    VELTS("window.bas", "NotesWindow.ShowBook", "193", "");
    listNotes();
    VELTS("window.bas", "NotesWindow.ShowBook", "194", "");
    refresh();
}

void NotesWindow::refresh() {
    VELTS("window.bas", "NotesWindow.Refresh", "199", "");
    VELT_NSWINDOW_TITLE(window, book->name());
    VELTS("window.bas", "NotesWindow.Refresh", "200", "");
    VELT_PROPERTY(window, "documentEdited"_v, book->edited);
    VELTS("window.bas", "NotesWindow.Refresh", "201", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(bar, "validateVisibleItems"_v);
}

void NotesWindow::textDidChange(id) {
    VELTS("window.bas", "NotesWindow.TextDidChange", "206", "");
    if (VELT_CBOOL(VELT_EQUAL(current, nil))) return;
    VELTS("window.bas", "NotesWindow.TextDidChange", "207", "");
    book->change(current, VELT__STRING(VELT_NSTEXTVIEW_VALUE(text)));
    VELTS("window.bas", "NotesWindow.TextDidChange", "208", "");
    id sorting = VELT_NSARRAY_OBJECT(VELT_PROPERTY(table, "sortDescriptors"_v), number(0));
    VELTS("window.bas", "NotesWindow.TextDidChange", "209", "");
    VELT_NSMUTABLEARRAY_REMOVEOBJECT(shown, current);
    VELTS("window.bas", "NotesWindow.TextDidChange", "210", "");
    VELT_NSMUTABLEARRAY_INSERT(shown, current,
                               book->place(current, shown, VELT__STRING(VELT_PROPERTY(sorting, "key"_v)),
                                           VELT__BOOLEAN(VELT_PROPERTY(sorting, "ascending"_v))));
    VELTS("window.bas", "NotesWindow.TextDidChange", "211", "");
    fillTable(current);
    VELTS("window.bas", "NotesWindow.TextDidChange", "212", "");
    refresh();
}

id NotesWindow::textCommand(id view, id command) {
    VELTS("window.bas", "NotesWindow.TextCommand", "217", "");
    if (VELT_CBOOL(VELT_UNEQUAL(command, "cancelOperation:"_v))) return VELT__BOOLEAN(boolean(false));
    VELTS("window.bas", "NotesWindow.TextCommand", "218", "");
    showList(view);
    VELTS("window.bas", "NotesWindow.TextCommand", "219", "");
    return VELT__BOOLEAN(boolean(true));
}

id NotesWindow::fieldCommand(id field, id, id command) {
    VELTS("window.bas", "NotesWindow.FieldCommand", "224", "");
    if (VELT_CBOOL(VELT_UNEQUAL(command, "moveDown:"_v))) return VELT__BOOLEAN(boolean(false));
    VELTS("window.bas", "NotesWindow.FieldCommand", "225", "");
    showList(field);
    VELTS("window.bas", "NotesWindow.FieldCommand", "226", "");
    return VELT__BOOLEAN(boolean(true));
}

void NotesWindow::newNote(id sender) {
    VELTS("window.bas", "NotesWindow.NewNote", "230", "");
    VELT_NSCONTROL_STRINGVALUE(search, ""_v);
    VELTS("window.bas", "NotesWindow.NewNote", "231", "");
    velt::Ref<Note> note = book->add();
    VELTS("window.bas", "NotesWindow.NewNote", "232", "");
    listNotes();
    VELTS("window.bas", "NotesWindow.NewNote", "233", "");
    fillTable(note);
    VELTS("window.bas", "NotesWindow.NewNote", "234", "");
    showNote(note);
    VELTS("window.bas", "NotesWindow.NewNote", "235", "");
    refresh();
    VELTS("window.bas", "NotesWindow.NewNote", "236", "");
    editNote(sender);
}

void NotesWindow::editNote(id) {
    VELTS("window.bas", "NotesWindow.EditNote", "240", "");
    if (VELT_CBOOL(VELT_UNEQUAL(current, nil))) VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, text);
}

void NotesWindow::showList(id) {
    VELTS("window.bas", "NotesWindow.ShowList", "244", "");
    VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, table);
}

void NotesWindow::findNotes(id) {
    VELTS("window.bas", "NotesWindow.FindNotes", "248", "");
    VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, search);
    VELTS("window.bas", "NotesWindow.FindNotes", "249", "");
    VELT_NSTEXTFIELD_SELECTTEXT(search);
}

void NotesWindow::searchNotes(id) {
    VELTS("window.bas", "NotesWindow.SearchNotes", "253", "");
    listNotes();
}

void NotesWindow::biggerText(id) {
    VELTS("window.bas", "NotesWindow.BiggerText", "257", "");
    setFontSize(VELT__DOUBLE(VELT_ADD(fontSize, number(1))));
}

void NotesWindow::smallerText(id) {
    VELTS("window.bas", "NotesWindow.SmallerText", "261", "");
    setFontSize(VELT__DOUBLE(VELT_SUB(fontSize, number(1))));
}

void NotesWindow::setFontSize(id size) {
    VELTS("window.bas", "NotesWindow.SetFontSize", "265", "");
    fontSize = VELT__DOUBLE(VELT_MAX(VELT_ID(9.0), VELT_MIN(VELT_ID(36.0), size)));
    VELTS("window.bas", "NotesWindow.SetFontSize", "266", "");
    VELT_NSTEXTVIEW_FONT(text, VELT_NSOBJECT_PERFORMSELECTOR1(ofClass<NSFont>(), "systemFontOfSize:"_v, fontSize));
    VELTS("window.bas", "NotesWindow.SetFontSize", "267", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(bar, "validateVisibleItems"_v);
}

id NotesWindow::leastPosition(id, id, id) {
    VELTS("window.bas", "NotesWindow.LeastPosition", "272", "");
    return VELT__DOUBLE(VELT_ID(180.0));
}

id NotesWindow::mostPosition(id, id position, id) {
    VELTS("window.bas", "NotesWindow.MostPosition", "276", "");
    return VELT__DOUBLE(VELT_SUB(position, VELT_ID(200.0)));
}

void NotesWindow::resizePanes(id, id) {
    VELTS("window.bas", "NotesWindow.ResizePanes", "281", "");
    id left = VELT__DOUBLE(VELT_NSVIEW_WIDTH(table));
    VELTS("window.bas", "NotesWindow.ResizePanes", "282", "");
    id right =
        VELT__DOUBLE(VELT_SUB(VELT_SUB(VELT_NSVIEW_WIDTH(split), left), VELT_PROPERTY(split, "dividerThickness"_v)));
    VELTS("window.bas", "NotesWindow.ResizePanes", "283", "");
    VELT_NSVIEW_FRAME(table, newRect(number(0), number(0), left, VELT_NSVIEW_HEIGHT(split)));
    VELTS("window.bas", "NotesWindow.ResizePanes", "284", "");
    VELT_NSVIEW_FRAME(text,
                      newRect(VELT_SUB(VELT_NSVIEW_WIDTH(split), right), number(0), right, VELT_NSVIEW_HEIGHT(split)));
}

void NotesWindow::restorePreferences() {
    VELTS("window.bas", "NotesWindow.RestorePreferences", "289", "");
    id usual = VELT__NSMUTABLEDICTIONARY(velt::make<NSMutableDictionary>());
    VELTS("window.bas", "NotesWindow.RestorePreferences", "290", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "FontSize"_v, VELT_ID(13.0));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "291", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "SortKey"_v, "changed"_v);
    VELTS("window.bas", "NotesWindow.RestorePreferences", "292", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "SortAscending"_v, boolean(false));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "293", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "ListWidth"_v, VELT_ID(310.0));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "294", "");
    VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(nil, usual);
    VELTS("window.bas", "NotesWindow.RestorePreferences", "295", "");
    id sorting = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("window.bas", "NotesWindow.RestorePreferences", "296", "");
    VELT_NSMUTABLEARRAY_APPEND(sorting, sortedBy(VELT__STRING(VELT_NSUSERDEFAULTS_GET(nil, "SortKey"_v)),
                                                 VELT__BOOLEAN(VELT_NSUSERDEFAULTS_GET(nil, "SortAscending"_v))));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "297", "");
    VELT_PROPERTY(table, "sortDescriptors"_v, sorting);
    VELTS("window.bas", "NotesWindow.RestorePreferences", "298", "");
    setFontSize(VELT__DOUBLE(VELT_NSUSERDEFAULTS_GET(nil, "FontSize"_v)));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "299", "");
    id frame = VELT__NSARRAY(VELT_NSUSERDEFAULTS_GET(nil, "WindowFrame"_v));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "300", "");
    if (VELT_CBOOL(VELT_EQUAL(frame, nil))) {
        VELTS("window.bas", "NotesWindow.RestorePreferences", "301", "");
        VELT_NSWINDOW_CENTER(window);
    } else {
        VELTS("window.bas", "NotesWindow.RestorePreferences", "303", "");
        VELT_NSWINDOW_FRAME(window,
                            newRect(VELT_NSARRAY_OBJECT(frame, number(0)), VELT_NSARRAY_OBJECT(frame, number(1)),
                                    VELT_NSARRAY_OBJECT(frame, number(2)), VELT_NSARRAY_OBJECT(frame, number(3))));
    }
    VELTS("window.bas", "NotesWindow.RestorePreferences", "305", "");
    VELT_NSOBJECT_PERFORMSELECTOR2(split, "setPosition:ofDividerAtIndex:"_v,
                                   VELT_NSUSERDEFAULTS_GET(nil, "ListWidth"_v), number(0));
}

void NotesWindow::keepPreferences() {
    VELTS("window.bas", "NotesWindow.KeepPreferences", "309", "");
    id frame = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("window.bas", "NotesWindow.KeepPreferences", "310", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_X(window));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "311", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_Y(window));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "312", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_WIDTH(window));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "313", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_HEIGHT(window));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "314", "");
    VELT_NSUSERDEFAULTS_SET(nil, "WindowFrame"_v, frame);
    VELTS("window.bas", "NotesWindow.KeepPreferences", "315", "");
    VELT_NSUSERDEFAULTS_SET(nil, "ListWidth"_v, VELT_NSVIEW_WIDTH(table));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "316", "");
    VELT_NSUSERDEFAULTS_SET(nil, "FontSize"_v, fontSize);
    VELTS("window.bas", "NotesWindow.KeepPreferences", "317", "");
    id sorting = VELT_NSARRAY_OBJECT(VELT_PROPERTY(table, "sortDescriptors"_v), number(0));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "318", "");
    VELT_NSUSERDEFAULTS_SET(nil, "SortKey"_v, VELT_PROPERTY(sorting, "key"_v));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "319", "");
    VELT_NSUSERDEFAULTS_SET(nil, "SortAscending"_v, VELT_PROPERTY(sorting, "ascending"_v));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "320", "");
    VELT_NSUSERDEFAULTS_SET(nil, "File"_v, book->path);
    VELTS("window.bas", "NotesWindow.KeepPreferences", "321", "");
    VELT_NSUSERDEFAULTS_SYNCHRONIZE(nil);
}

}  // namespace notes
