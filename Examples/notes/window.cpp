// window.bas as the translator writes it.
#include "notes/window.h"

namespace notes {

void NotesWindow::describe(velt::ClassBuilder<NotesWindow>& c) {
    c.property("window", &NotesWindow::window)
        .property("bar", &NotesWindow::bar)
        .property("split", &NotesWindow::split)
        .property("sidebar", &NotesWindow::sidebar)
        .property("table", &NotesWindow::table)
        .property("total", &NotesWindow::total)
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
    VELTS("window.bas", "NotesWindow.Build", "19", "");
    window = VELT_NSWINDOW_INIT(id(this), "");
    VELTS("window.bas", "NotesWindow.Build", "20", "");
    VELT_NSWINDOW_CONTENTMINSIZE(window, newSize(460, 260));
    VELTS("window.bas", "NotesWindow.Build", "21", "");
    VELT_NSWINDOW_CONTENTSIZE(window, newSize(780, 480));
    VELTS("window.bas", "NotesWindow.Build", "22", "");
    buildTable();
    VELTS("window.bas", "NotesWindow.Build", "23", "");
    buildSidebar();
    VELTS("window.bas", "NotesWindow.Build", "24", "");
    text = VELT_NSTEXTVIEW_INIT(id(this), "");
    VELTS("window.bas", "NotesWindow.Build", "25", "");
    VELT_NSTEXTVIEW_RICHTEXT(text, boolean(false));
    VELTS("window.bas", "NotesWindow.Build", "26", "");
    VELT_NSTEXTVIEW_ALLOWSUNDO(text, boolean(true));
    VELTS("window.bas", "NotesWindow.Build", "27", "");
    VELT_NSVIEW_TOOLTIP(text, "Text of the note"_v);
    VELTS("window.bas", "NotesWindow.Build", "28", "");
    split = VELT_VERTICALSPLITVIEW_INIT(id(this), "");
    VELTS("window.bas", "NotesWindow.Build", "29", "");
    VELT_NSVIEW_FRAME(split, newRect(number(0), number(0), number(780), number(480)));
    VELTS("window.bas", "NotesWindow.Build", "30", "");
    VELT_NSVIEW_AUTORESIZINGMASK(split, number(18));
    VELTS("window.bas", "NotesWindow.Build", "31", "");
    VELT_PROPERTY(split, "dividerStyle"_v, number(2));
    VELTS("window.bas", "NotesWindow.Build", "32", "");
    VELT_PROPERTY(split, "delegate"_v, id(this));
    VELTS("window.bas", "NotesWindow.Build", "33", "");
    VELT_NSVIEW_APPEND(split, sidebar);
    VELTS("window.bas", "NotesWindow.Build", "34", "");
    VELT_NSVIEW_APPEND(split, text);
    VELTS("window.bas", "NotesWindow.Build", "35", "");
    VELT_NSWINDOW_APPEND(window, split);
    VELTS("window.bas", "NotesWindow.Build", "36", "");
    search = VELT_NSSEARCHFIELD_INIT(id(this), "searchNotes:");
    VELTS("window.bas", "NotesWindow.Build", "37", "");
    VELT_NSVIEW_FRAME(search, newRect(number(0), number(0), number(200), number(26)));
    VELTS("window.bas", "NotesWindow.Build", "38", "");
    VELT_PROPERTY(VELT_NSCONTROL_CELL(search), "placeholderString"_v, "Search"_v);
    VELTS("window.bas", "NotesWindow.Build", "39", "");
    VELT_NSVIEW_TOOLTIP(search, "Show the notes in which this occurs"_v);
    VELTS("window.bas", "NotesWindow.Build", "40", "");
    bar = VELT_NSTOOLBAR_INIT(id(this), "notes");
    VELTS("window.bas", "NotesWindow.Build", "41", "");
    VELT_NSTOOLBAR_ALLOWSUSERCUSTOMIZATION(bar, boolean(true));
    VELTS("window.bas", "NotesWindow.Build", "42", "");
    VELT_NSTOOLBAR_AUTOSAVESCONFIGURATION(bar, boolean(true));
    VELTS("window.bas", "NotesWindow.Build", "43", "");
    VELT_NSWINDOW_SETTOOLBAR(window, bar);
    VELTS("window.bas", "NotesWindow.Build", "44", "");
    VELT_NSWINDOW_DELEGATE(window, id(this));
    VELTS("window.bas", "NotesWindow.Build", "45", "");
    VELT_NSWINDOW_INITIALFIRSTRESPONDER(window, table);
    VELTS("window.bas", "NotesWindow.Build", "46", "");
    VELT_NSWINDOW_RECALCULATEKEYVIEWLOOP(window);
}

void NotesWindow::buildTable() {
    VELTS("window.bas", "NotesWindow.BuildTable", "50", "");
    table = VELT_NSTABLEVIEW_INIT(id(this), "");
    VELTS("window.bas", "NotesWindow.BuildTable", "51", "");
    VELT_NSTABLEVIEW_USESALTERNATINGROWBACKGROUNDCOLORS(table, boolean(true));
    VELTS("window.bas", "NotesWindow.BuildTable", "52", "");
    VELT_NSTABLEVIEW_ROWHEIGHT(table, number(22));
    VELTS("window.bas", "NotesWindow.BuildTable", "53", "");
    VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table, "editNote"_v);
    VELTS("window.bas", "NotesWindow.BuildTable", "54", "");
    VELT_NSVIEW_TOOLTIP(table, "Notes"_v);
    VELTS("window.bas", "NotesWindow.BuildTable", "55", "");
    addColumn(VELT__STRING("title"_v), VELT__STRING("Title"_v), VELT__INTEGER(number(170)), boolean(true));
    VELTS("window.bas", "NotesWindow.BuildTable", "56", "");
    addColumn(VELT__STRING("changed"_v), VELT__STRING("Changed"_v), VELT__INTEGER(number(130)), boolean(false));
}

void NotesWindow::buildSidebar() {
    VELTS("window.bas", "NotesWindow.BuildSidebar", "61", "");
    sidebar = velt::make<VLBackgroundView>();
    VELTS("window.bas", "NotesWindow.BuildSidebar", "62", "");
    VELT_NSVIEW_FRAME(sidebar, newRect(number(0), number(0), number(320), number(480)));
    VELTS("window.bas", "NotesWindow.BuildSidebar", "63", "");
    VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(sidebar, newColor(0.5, 0.5, 0.55, 0.25),
                                                newColor(0.5, 0.5, 0.55, 0.05));
    VELTS("window.bas", "NotesWindow.BuildSidebar", "64", "");
    VELT_NSVIEW_FRAME(table, newRect(number(8), number(32), number(304), number(440)));
    VELTS("window.bas", "NotesWindow.BuildSidebar", "65", "");
    VELT_NSVIEW_AUTORESIZINGMASK(table, number(18));
    VELTS("window.bas", "NotesWindow.BuildSidebar", "66", "");
    VELT_NSVIEW_APPEND(sidebar, table);
    VELTS("window.bas", "NotesWindow.BuildSidebar", "67", "");
    total = VELT_LABEL_INIT(id(this), "");
    VELTS("window.bas", "NotesWindow.BuildSidebar", "68", "");
    VELT_NSVIEW_FRAME(total, newRect(number(12), number(6), number(296), number(20)));
    VELTS("window.bas", "NotesWindow.BuildSidebar", "69", "");
    VELT_NSVIEW_AUTORESIZINGMASK(total, number(2));
    VELTS("window.bas", "NotesWindow.BuildSidebar", "70", "");
    VELT_NSVIEW_TOOLTIP(total, "How many notes are listed"_v);
    VELTS("window.bas", "NotesWindow.BuildSidebar", "71", "");
    VELT_NSVIEW_APPEND(sidebar, total);
}

void NotesWindow::addColumn(id key, id title, id width, id ascending) {
    VELTS("window.bas", "NotesWindow.AddColumn", "76", "");
    id column = VELT_NSTABLECOLUMN_INIT(id(this), "", key, title);
    VELTS("window.bas", "NotesWindow.AddColumn", "77", "");
    VELT_NSTABLECOLUMN_WIDTH(column, width);
    VELTS("window.bas", "NotesWindow.AddColumn", "78", "");
    VELT_NSTABLECOLUMN_EDITABLE(column, boolean(false));
    VELTS("window.bas", "NotesWindow.AddColumn", "79", "");
    VELT_PROPERTY(column, "sortDescriptorPrototype"_v, sortedBy(key, ascending));
    VELTS("window.bas", "NotesWindow.AddColumn", "80", "");
    VELT_NSTABLEVIEW_APPEND(table, column);
}

id NotesWindow::sortedBy(id key, id ascending) {
    VELTS("window.bas", "NotesWindow.SortedBy", "84", "");
    return VELT_NSOBJECT_PERFORMSELECTOR2(ofClass<NSSortDescriptor>(), "sortDescriptorWithKey:ascending:"_v, key,
                                          ascending);
}

id NotesWindow::defaultItems(id) {
    VELTS("window.bas", "NotesWindow.DefaultItems", "89", "");
    return VELT_SPLIT("newNote: deleteNote: NSToolbarFlexibleSpaceItem search"_v, " "_v);
}

id NotesWindow::allowedItems(id) {
    VELTS("window.bas", "NotesWindow.AllowedItems", "93", "");
    return VELT_SPLIT("newNote: deleteNote: biggerText: smallerText: search NSToolbarSpaceItem "
                      "NSToolbarFlexibleSpaceItem NSToolbarSeparatorItem"_v,
                      " "_v);
}

id NotesWindow::toolbarItem(id, id name, id inserted) {
    VELTS("window.bas", "NotesWindow.ToolbarItem", "97", "");
    if (VELT_CBOOL(VELT_EQUAL(name, "newNote:"_v))) {
        return labelled(VELT_NSTOOLBARITEM_INIT(id(this), "newNote:"), VELT__STRING("New Note"_v),
                        VELT__STRING("Write a new note"_v), VELT__STRING("new.png"_v));
    }
    VELTS("window.bas", "NotesWindow.ToolbarItem", "98", "");
    if (VELT_CBOOL(VELT_EQUAL(name, "deleteNote:"_v))) {
        return labelled(VELT_NSTOOLBARITEM_INIT(id(this), "deleteNote:"), VELT__STRING("Delete"_v),
                        VELT__STRING("Delete this note"_v), VELT__STRING("delete.png"_v));
    }
    VELTS("window.bas", "NotesWindow.ToolbarItem", "99", "");
    if (VELT_CBOOL(VELT_EQUAL(name, "biggerText:"_v))) {
        return labelled(VELT_NSTOOLBARITEM_INIT(id(this), "biggerText:"), VELT__STRING("Bigger"_v),
                        VELT__STRING("Make the text bigger"_v), VELT__STRING("bigger.png"_v));
    }
    VELTS("window.bas", "NotesWindow.ToolbarItem", "100", "");
    if (VELT_CBOOL(VELT_EQUAL(name, "smallerText:"_v))) {
        return labelled(VELT_NSTOOLBARITEM_INIT(id(this), "smallerText:"), VELT__STRING("Smaller"_v),
                        VELT__STRING("Make the text smaller"_v), VELT__STRING("smaller.png"_v));
    }
    VELTS("window.bas", "NotesWindow.ToolbarItem", "101", "");
    if (VELT_CBOOL(VELT_UNEQUAL(name, "search"_v))) return nil;
    VELTS("window.bas", "NotesWindow.ToolbarItem", "102", "");
    id item = VELT_NSTOOLBARITEM_INIT(id(this), "search");
    VELTS("window.bas", "NotesWindow.ToolbarItem", "103", "");
    VELT_NSTOOLBARITEM_PALETTELABEL(item, "Search"_v);
    VELTS("window.bas", "NotesWindow.ToolbarItem", "104", "");
    VELT_PROPERTY(item, "visibilityPriority"_v, number(1000));
    VELTS("window.bas", "NotesWindow.ToolbarItem", "105", "");
    if (VELT_CBOOL(inserted)) {
        VELTS("window.bas", "NotesWindow.ToolbarItem", "106", "");
        VELT_NSTOOLBARITEM_VIEW(item, search);
        VELTS("window.bas", "NotesWindow.ToolbarItem", "107", "");
        VELT_NSTOOLBARITEM_MINSIZE(item, newSize(120, 26));
        VELTS("window.bas", "NotesWindow.ToolbarItem", "108", "");
        VELT_NSTOOLBARITEM_MAXSIZE(item, newSize(220, 26));
    }
    VELTS("window.bas", "NotesWindow.ToolbarItem", "110", "");
    return item;
}

id NotesWindow::labelled(id item, id label, id tip, id picture) {
    VELTS("window.bas", "NotesWindow.Labelled", "114", "");
    VELT_NSTOOLBARITEM_LABEL(item, label);
    VELTS("window.bas", "NotesWindow.Labelled", "115", "");
    VELT_NSTOOLBARITEM_PALETTELABEL(item, label);
    VELTS("window.bas", "NotesWindow.Labelled", "116", "");
    VELT_NSTOOLBARITEM_TOOLTIP(item, tip);
    VELTS("window.bas", "NotesWindow.Labelled", "117", "");
    id image = VELT_NSIMAGE_INIT(id(this), "", picture);
    VELTS("window.bas", "NotesWindow.Labelled", "118", "");
    if (VELT_CBOOL(VELT_UNEQUAL(image, nil))) VELT_NSTOOLBARITEM_IMAGE(item, image);
    VELTS("window.bas", "NotesWindow.Labelled", "119", "");
    return VELT__NSTOOLBARITEM(item);
}

id NotesWindow::validateToolbarItem(id item) {
    VELTS("window.bas", "NotesWindow.ValidateToolbarItem", "123", "");
    return VELT__BOOLEAN(isPossible(VELT__STRING(VELT_NSTOOLBARITEM_ITEMIDENTIFIER(item))));
}

id NotesWindow::validateMenuItem(id item) {
    VELTS("window.bas", "NotesWindow.ValidateMenuItem", "127", "");
    return VELT__BOOLEAN(isPossible(VELT__STRING(VELT_PROPERTY(item, "action"_v))));
}

id NotesWindow::isPossible(id action) {
    VELTS("window.bas", "NotesWindow.IsPossible", "131", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "deleteNote:"_v))) return VELT__BOOLEAN(VELT_UNEQUAL(current, nil));
    VELTS("window.bas", "NotesWindow.IsPossible", "132", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "editNote:"_v))) return VELT__BOOLEAN(VELT_UNEQUAL(current, nil));
    VELTS("window.bas", "NotesWindow.IsPossible", "133", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "saveNotes:"_v))) return VELT__BOOLEAN(book->edited);
    VELTS("window.bas", "NotesWindow.IsPossible", "134", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "biggerText:"_v))) return VELT__BOOLEAN(VELT_SMALLER(fontSize, number(36)));
    VELTS("window.bas", "NotesWindow.IsPossible", "135", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "smallerText:"_v))) return VELT__BOOLEAN(VELT_GREATER(fontSize, number(9)));
    VELTS("window.bas", "NotesWindow.IsPossible", "136", "");
    return VELT__BOOLEAN(boolean(true));
}

id NotesWindow::rowCount(id) {
    VELTS("window.bas", "NotesWindow.RowCount", "141", "");
    return VELT__INTEGER(VELT_NSMUTABLEARRAY_COUNT(shown));
}

id NotesWindow::rowValue(id, id column, id row) {
    VELTS("window.bas", "NotesWindow.RowValue", "145", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSTABLECOLUMN_IDENTIFIER(column), "title"_v))) {
        return toNote(VELT_NSMUTABLEARRAY_OBJECT(shown, row))->title;
    }
    VELTS("window.bas", "NotesWindow.RowValue", "146", "");
    return toNote(VELT_NSMUTABLEARRAY_OBJECT(shown, row))->dateText();
}

void NotesWindow::sortingChanged(id, id) {
    VELTS("window.bas", "NotesWindow.SortingChanged", "150", "");
    listNotes();
}

void NotesWindow::tableViewSelectionDidChange(id) {
    VELTS("window.bas", "NotesWindow.TableViewSelectionDidChange", "154", "");
    if (VELT_CBOOL(listing)) return;
    VELTS("window.bas", "NotesWindow.TableViewSelectionDidChange", "155", "");
    if (VELT_CBOOL(VELT_SMALLER(VELT_NSTABLEVIEW_SELECTEDROW(table), number(0)))) {
        VELTS("window.bas", "NotesWindow.TableViewSelectionDidChange", "156", "");
        showNote(nullptr);
    } else {
        VELTS("window.bas", "NotesWindow.TableViewSelectionDidChange", "158", "");
        showNote(toNote(VELT_NSMUTABLEARRAY_OBJECT(shown, VELT_NSTABLEVIEW_SELECTEDROW(table))));
    }
}

void NotesWindow::listNotes() {
    VELTS("window.bas", "NotesWindow.ListNotes", "164", "");
    id sorting = VELT_NSARRAY_OBJECT(VELT_PROPERTY(table, "sortDescriptors"_v), number(0));
    VELTS("window.bas", "NotesWindow.ListNotes", "165", "");
    shown = VELT__NSMUTABLEARRAY(book->matching(VELT__STRING(VELT_NSCONTROL_STRINGVALUE(search)),
                                                VELT__STRING(VELT_PROPERTY(sorting, "key"_v)),
                                                VELT__BOOLEAN(VELT_PROPERTY(sorting, "ascending"_v))));
    VELTS("window.bas", "NotesWindow.ListNotes", "166", "");
    velt::Ref<Note> note = current;
    VELTS("window.bas", "NotesWindow.ListNotes", "167", "");
    if (VELT_CBOOL(VELT_SMALLER(rowOf(note), number(0)))) note = nullptr;
    VELTS("window.bas", "NotesWindow.ListNotes", "168", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_EQUAL(note, nil), VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(shown), number(0))))) {
        note = toNote(VELT_NSMUTABLEARRAY_OBJECT(shown, number(0)));
    }
    VELTS("window.bas", "NotesWindow.ListNotes", "169", "");
    fillTable(note);
    VELTS("window.bas", "NotesWindow.ListNotes", "170", "");
    showNote(note);
}

void NotesWindow::fillTable(velt::Ref<Note> note) {
    VELTS("window.bas", "NotesWindow.FillTable", "175", "");
    listing = VELT__BOOLEAN(boolean(true));
    VELTS("window.bas", "NotesWindow.FillTable", "176", "");
    VELT_NSTABLEVIEW_RELOADDATA(table);
    VELTS("window.bas", "NotesWindow.FillTable", "177", "");
    VELT_NSTABLEVIEW_SELECTROW(table, rowOf(note));
    VELTS("window.bas", "NotesWindow.FillTable", "178", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(table, "scrollRowToVisible:"_v, rowOf(note));
    VELTS("window.bas", "NotesWindow.FillTable", "179", "");
    listing = VELT__BOOLEAN(boolean(false));
    VELTS("window.bas", "NotesWindow.FillTable", "180", "");
    VELT_NSCONTROL_STRINGVALUE(total, totalText());
}

id NotesWindow::totalText() {
    VELTS("window.bas", "NotesWindow.TotalText", "184", "");
    id count = VELT__INTEGER(VELT_NSMUTABLEARRAY_COUNT(book->notes));
    VELTS("window.bas", "NotesWindow.TotalText", "185", "");
    id words = VELT__STRING(VELT_CONCAT(VELT_CSTRING(count), " notes"_v));
    VELTS("window.bas", "NotesWindow.TotalText", "186", "");
    if (VELT_CBOOL(VELT_EQUAL(count, number(1)))) words = VELT__STRING("1 note"_v);
    VELTS("window.bas", "NotesWindow.TotalText", "187", "");
    if (VELT_CBOOL(VELT_SMALLER(VELT_NSMUTABLEARRAY_COUNT(shown), count)))
        return VELT__STRING(VELT_CONCAT(VELT_CONCAT(VELT_CSTRING(VELT_NSMUTABLEARRAY_COUNT(shown)), " of "_v), words));
    VELTS("window.bas", "NotesWindow.TotalText", "188", "");
    return VELT__STRING(words);
}

id NotesWindow::rowOf(velt::Ref<Note> note) {
    VELTS("window.bas", "NotesWindow.RowOf", "192", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(shown), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("window.bas", "NotesWindow.RowOf", "193", "");
        if (VELT_CBOOL(VELT_EQUALEQUAL(VELT_NSMUTABLEARRAY_OBJECT(shown, i), note))) return VELT__INTEGER(i);
    }
    VELTS("window.bas", "NotesWindow.RowOf", "195", "");
    return VELT__INTEGER(number(-1));
}

void NotesWindow::showNote(velt::Ref<Note> note) {
    VELTS("window.bas", "NotesWindow.ShowNote", "200", "");
    if (VELT_CBOOL(VELT_EQUALEQUAL(note, current))) return;
    VELTS("window.bas", "NotesWindow.ShowNote", "201", "");
    current = note;
    VELTS("window.bas", "NotesWindow.ShowNote", "202", "");
    if (VELT_CBOOL(VELT_EQUAL(note, nil))) {
        VELTS("window.bas", "NotesWindow.ShowNote", "203", "");
        VELT_NSTEXTVIEW_VALUE(text, ""_v);
    } else {
        VELTS("window.bas", "NotesWindow.ShowNote", "205", "");
        VELT_NSTEXTVIEW_VALUE(text, note->text);
        VELTS("window.bas", "NotesWindow.ShowNote", "206", "");
        VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(text);
    }
    VELTS("window.bas", "NotesWindow.ShowNote", "208", "");
    VELT_NSTEXTVIEW_FONT(text, VELT_NSOBJECT_PERFORMSELECTOR1(ofClass<NSFont>(), "systemFontOfSize:"_v, fontSize));
    VELTS("window.bas", "NotesWindow.ShowNote", "209", "");
    VELT_NSTEXT_EDITABLE(text, VELT_UNEQUAL(note, nil));
    VELTS("window.bas", "NotesWindow.ShowNote", "210", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(bar, "validateVisibleItems"_v);
}

void NotesWindow::showBook(velt::Ref<Notebook> opened) {
    VELTS("window.bas", "NotesWindow.ShowBook", "215", "");
    book = opened;
    VELTS("window.bas", "NotesWindow.ShowBook", "216", "");
    VELT_NSCONTROL_STRINGVALUE(search, ""_v);
    VELTS("window.bas", "NotesWindow.ShowBook", "217", "");
    current = nullptr;
    VELTS("window.bas", "NotesWindow.ShowBook", "218", "");
    VELT_NSTEXTVIEW_VALUE(text, ""_v);
    VELTS("window.bas", "NotesWindow.ShowBook", "219", "");
    VELT_NSTEXT_EDITABLE(text, boolean(false));
    VELTS("window.bas", "NotesWindow.ShowBook", "220", "");
    listNotes();
    VELTS("window.bas", "NotesWindow.ShowBook", "221", "");
    refresh();
}

void NotesWindow::refresh() {
    VELTS("window.bas", "NotesWindow.Refresh", "226", "");
    VELT_NSWINDOW_TITLE(window, book->name());
    VELTS("window.bas", "NotesWindow.Refresh", "227", "");
    VELT_PROPERTY(window, "documentEdited"_v, book->edited);
    VELTS("window.bas", "NotesWindow.Refresh", "228", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(bar, "validateVisibleItems"_v);
}

void NotesWindow::textDidChange(id) {
    VELTS("window.bas", "NotesWindow.TextDidChange", "233", "");
    if (VELT_CBOOL(VELT_EQUAL(current, nil))) return;
    VELTS("window.bas", "NotesWindow.TextDidChange", "234", "");
    book->change(current, VELT__STRING(VELT_NSTEXTVIEW_VALUE(text)));
    VELTS("window.bas", "NotesWindow.TextDidChange", "235", "");
    id sorting = VELT_NSARRAY_OBJECT(VELT_PROPERTY(table, "sortDescriptors"_v), number(0));
    VELTS("window.bas", "NotesWindow.TextDidChange", "236", "");
    VELT_NSMUTABLEARRAY_REMOVEOBJECT(shown, current);
    VELTS("window.bas", "NotesWindow.TextDidChange", "237", "");
    VELT_NSMUTABLEARRAY_INSERT(shown, current,
                               book->place(current, shown, VELT__STRING(VELT_PROPERTY(sorting, "key"_v)),
                                           VELT__BOOLEAN(VELT_PROPERTY(sorting, "ascending"_v))));
    VELTS("window.bas", "NotesWindow.TextDidChange", "238", "");
    fillTable(current);
    VELTS("window.bas", "NotesWindow.TextDidChange", "239", "");
    refresh();
}

id NotesWindow::textCommand(id view, id command) {
    VELTS("window.bas", "NotesWindow.TextCommand", "244", "");
    if (VELT_CBOOL(VELT_UNEQUAL(command, "cancelOperation:"_v))) return VELT__BOOLEAN(boolean(false));
    VELTS("window.bas", "NotesWindow.TextCommand", "245", "");
    showList(view);
    VELTS("window.bas", "NotesWindow.TextCommand", "246", "");
    return VELT__BOOLEAN(boolean(true));
}

id NotesWindow::fieldCommand(id field, id, id command) {
    VELTS("window.bas", "NotesWindow.FieldCommand", "251", "");
    if (VELT_CBOOL(VELT_UNEQUAL(command, "moveDown:"_v))) return VELT__BOOLEAN(boolean(false));
    VELTS("window.bas", "NotesWindow.FieldCommand", "252", "");
    showList(field);
    VELTS("window.bas", "NotesWindow.FieldCommand", "253", "");
    return VELT__BOOLEAN(boolean(true));
}

void NotesWindow::newNote(id sender) {
    VELTS("window.bas", "NotesWindow.NewNote", "257", "");
    VELT_NSCONTROL_STRINGVALUE(search, ""_v);
    VELTS("window.bas", "NotesWindow.NewNote", "258", "");
    velt::Ref<Note> note = book->add();
    VELTS("window.bas", "NotesWindow.NewNote", "259", "");
    listNotes();
    VELTS("window.bas", "NotesWindow.NewNote", "260", "");
    fillTable(note);
    VELTS("window.bas", "NotesWindow.NewNote", "261", "");
    showNote(note);
    VELTS("window.bas", "NotesWindow.NewNote", "262", "");
    refresh();
    VELTS("window.bas", "NotesWindow.NewNote", "263", "");
    editNote(sender);
}

void NotesWindow::editNote(id) {
    VELTS("window.bas", "NotesWindow.EditNote", "267", "");
    if (VELT_CBOOL(VELT_UNEQUAL(current, nil))) VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, text);
}

void NotesWindow::showList(id) {
    VELTS("window.bas", "NotesWindow.ShowList", "271", "");
    VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, table);
}

void NotesWindow::findNotes(id) {
    VELTS("window.bas", "NotesWindow.FindNotes", "275", "");
    VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, search);
    VELTS("window.bas", "NotesWindow.FindNotes", "276", "");
    VELT_NSTEXTFIELD_SELECTTEXT(search);
}

void NotesWindow::searchNotes(id) {
    VELTS("window.bas", "NotesWindow.SearchNotes", "280", "");
    listNotes();
}

void NotesWindow::biggerText(id) {
    VELTS("window.bas", "NotesWindow.BiggerText", "284", "");
    setFontSize(VELT__DOUBLE(VELT_ADD(fontSize, number(1))));
}

void NotesWindow::smallerText(id) {
    VELTS("window.bas", "NotesWindow.SmallerText", "288", "");
    setFontSize(VELT__DOUBLE(VELT_SUB(fontSize, number(1))));
}

void NotesWindow::setFontSize(id size) {
    VELTS("window.bas", "NotesWindow.SetFontSize", "292", "");
    fontSize = VELT__DOUBLE(VELT_MAX(VELT_ID(9.0), VELT_MIN(VELT_ID(36.0), size)));
    VELTS("window.bas", "NotesWindow.SetFontSize", "293", "");
    VELT_NSTEXTVIEW_FONT(text, VELT_NSOBJECT_PERFORMSELECTOR1(ofClass<NSFont>(), "systemFontOfSize:"_v, fontSize));
    VELTS("window.bas", "NotesWindow.SetFontSize", "294", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(bar, "validateVisibleItems"_v);
}

id NotesWindow::leastPosition(id, id, id) {
    VELTS("window.bas", "NotesWindow.LeastPosition", "299", "");
    return VELT__DOUBLE(VELT_ID(180.0));
}

id NotesWindow::mostPosition(id, id position, id) {
    VELTS("window.bas", "NotesWindow.MostPosition", "303", "");
    return VELT__DOUBLE(VELT_SUB(position, VELT_ID(200.0)));
}

void NotesWindow::resizePanes(id, id) {
    VELTS("window.bas", "NotesWindow.ResizePanes", "308", "");
    id left = VELT__DOUBLE(VELT_NSVIEW_WIDTH(sidebar));
    VELTS("window.bas", "NotesWindow.ResizePanes", "309", "");
    id right =
        VELT__DOUBLE(VELT_SUB(VELT_SUB(VELT_NSVIEW_WIDTH(split), left), VELT_PROPERTY(split, "dividerThickness"_v)));
    VELTS("window.bas", "NotesWindow.ResizePanes", "310", "");
    VELT_NSVIEW_FRAME(sidebar, newRect(number(0), number(0), left, VELT_NSVIEW_HEIGHT(split)));
    VELTS("window.bas", "NotesWindow.ResizePanes", "311", "");
    VELT_NSVIEW_FRAME(text,
                      newRect(VELT_SUB(VELT_NSVIEW_WIDTH(split), right), number(0), right, VELT_NSVIEW_HEIGHT(split)));
}

void NotesWindow::restorePreferences() {
    VELTS("window.bas", "NotesWindow.RestorePreferences", "316", "");
    id usual = VELT__NSMUTABLEDICTIONARY(velt::make<NSMutableDictionary>());
    VELTS("window.bas", "NotesWindow.RestorePreferences", "317", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "FontSize"_v, VELT_ID(13.0));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "318", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "SortKey"_v, "changed"_v);
    VELTS("window.bas", "NotesWindow.RestorePreferences", "319", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "SortAscending"_v, boolean(false));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "320", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "ListWidth"_v, VELT_ID(326.0));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "321", "");
    VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(nil, usual);
    VELTS("window.bas", "NotesWindow.RestorePreferences", "322", "");
    id sorting = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("window.bas", "NotesWindow.RestorePreferences", "323", "");
    VELT_NSMUTABLEARRAY_APPEND(sorting, sortedBy(VELT__STRING(VELT_NSUSERDEFAULTS_GET(nil, "SortKey"_v)),
                                                 VELT__BOOLEAN(VELT_NSUSERDEFAULTS_GET(nil, "SortAscending"_v))));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "324", "");
    VELT_PROPERTY(table, "sortDescriptors"_v, sorting);
    VELTS("window.bas", "NotesWindow.RestorePreferences", "325", "");
    setFontSize(VELT__DOUBLE(VELT_NSUSERDEFAULTS_GET(nil, "FontSize"_v)));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "326", "");
    id frame = VELT__NSARRAY(VELT_NSUSERDEFAULTS_GET(nil, "WindowFrame"_v));
    VELTS("window.bas", "NotesWindow.RestorePreferences", "327", "");
    if (VELT_CBOOL(VELT_EQUAL(frame, nil))) {
        VELTS("window.bas", "NotesWindow.RestorePreferences", "328", "");
        VELT_NSWINDOW_CENTER(window);
    } else {
        VELTS("window.bas", "NotesWindow.RestorePreferences", "330", "");
        VELT_NSWINDOW_FRAME(window,
                            newRect(VELT_NSARRAY_OBJECT(frame, number(0)), VELT_NSARRAY_OBJECT(frame, number(1)),
                                    VELT_NSARRAY_OBJECT(frame, number(2)), VELT_NSARRAY_OBJECT(frame, number(3))));
    }
    VELTS("window.bas", "NotesWindow.RestorePreferences", "332", "");
    VELT_NSOBJECT_PERFORMSELECTOR2(split, "setPosition:ofDividerAtIndex:"_v,
                                   VELT_NSUSERDEFAULTS_GET(nil, "ListWidth"_v), number(0));
}

void NotesWindow::keepPreferences() {
    VELTS("window.bas", "NotesWindow.KeepPreferences", "336", "");
    id frame = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("window.bas", "NotesWindow.KeepPreferences", "337", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_X(window));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "338", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_Y(window));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "339", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_WIDTH(window));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "340", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_HEIGHT(window));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "341", "");
    VELT_NSUSERDEFAULTS_SET(nil, "WindowFrame"_v, frame);
    VELTS("window.bas", "NotesWindow.KeepPreferences", "342", "");
    VELT_NSUSERDEFAULTS_SET(nil, "ListWidth"_v, VELT_NSVIEW_WIDTH(sidebar));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "343", "");
    VELT_NSUSERDEFAULTS_SET(nil, "FontSize"_v, fontSize);
    VELTS("window.bas", "NotesWindow.KeepPreferences", "344", "");
    id sorting = VELT_NSARRAY_OBJECT(VELT_PROPERTY(table, "sortDescriptors"_v), number(0));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "345", "");
    VELT_NSUSERDEFAULTS_SET(nil, "SortKey"_v, VELT_PROPERTY(sorting, "key"_v));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "346", "");
    VELT_NSUSERDEFAULTS_SET(nil, "SortAscending"_v, VELT_PROPERTY(sorting, "ascending"_v));
    VELTS("window.bas", "NotesWindow.KeepPreferences", "347", "");
    VELT_NSUSERDEFAULTS_SET(nil, "File"_v, book->path);
    VELTS("window.bas", "NotesWindow.KeepPreferences", "348", "");
    VELT_NSUSERDEFAULTS_SYNCHRONIZE(nil);
}

}  // namespace notes
