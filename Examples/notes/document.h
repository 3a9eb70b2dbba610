// document.bas: files of notes, and the questions that come before something is lost.
#pragma once

#include "notes/window.h"

namespace notes {

class NotesDocument : public NotesWindow {
    VELT_OBJECT(NotesDocument, NotesWindow)

public:
    id waiting = VELT__STRING(""_v);

    static void describe(velt::ClassBuilder<NotesDocument>& c);
    void open();
    void showWelcome();
    void openFile(id path);
    id saveFile(id path);
    void report(id message, id advice);

    void newFile(id sender);
    void openNotes(id sender);
    void saveNotes(id sender);
    void saveNotesAs(id sender);
    void closeNotes(id sender);
    void quit(id sender);
    void deleteNote(id sender);

    void askThen(id what);
    void alertSheetDidEnd(id alert, id code, id what);
    void removeNote();
    void saveThen(id what);
    void askForFile(id what);
    void savePanelDidEnd(id panel, id code, id what);
    void proceed(id what);
    void proceedNow(id what);
    void give(id what, id answer);
    void chooseFile();

    id windowShouldClose(id sender);
    void windowWillClose(id notification);
    id applicationShouldTerminate(id sender);
    void applicationWillTerminate(id notification);
    id applicationOpenFile(id application, id path);
    void showKeys(id sender);
};

/// The main menu, whose items the document answers.
id mainMenu(velt::Ref<NotesDocument> owner);

}  // namespace notes
