// window.bas: the window of notes.
#pragma once

#include "notes/notebook.h"

namespace notes {

class NotesWindow : public NSObject {
    VELT_OBJECT(NotesWindow, NSObject)

public:
    id window, bar, split, sidebar, table, total, text, search;
    velt::Ref<Notebook> book = velt::make<Notebook>();
    id shown = velt::make<NSMutableArray>();
    velt::Ref<Note> current;
    id fontSize = VELT_ID(13.0), listing = boolean(false);

    static void describe(velt::ClassBuilder<NotesWindow>& c);
    void build();
    void buildTable();
    void buildSidebar();
    void addColumn(id key, id title, id width, id ascending);
    id sortedBy(id key, id ascending);

    id defaultItems(id toolbar);
    id allowedItems(id toolbar);
    id toolbarItem(id toolbar, id name, id inserted);
    id labelled(id item, id label, id tip, id picture);
    id validateToolbarItem(id item);
    id validateMenuItem(id item);
    id isPossible(id action);

    id rowCount(id sender);
    id rowValue(id sender, id column, id row);
    void sortingChanged(id sender, id before);
    void tableViewSelectionDidChange(id notification);
    void listNotes();
    void fillTable(velt::Ref<Note> note);
    id totalText();
    id rowOf(velt::Ref<Note> note);
    void showNote(velt::Ref<Note> note);
    void showBook(velt::Ref<Notebook> opened);
    void refresh();
    void textDidChange(id notification);
    id textCommand(id view, id command);
    id fieldCommand(id field, id editor, id command);

    void newNote(id sender);
    void editNote(id sender);
    void showList(id sender);
    void findNotes(id sender);
    void searchNotes(id sender);
    void biggerText(id sender);
    void smallerText(id sender);
    void setFontSize(id size);

    id leastPosition(id sender, id position, id divider);
    id mostPosition(id sender, id position, id divider);
    void resizePanes(id sender, id before);
    void restorePreferences();
    void keepPreferences();
};

}  // namespace notes
