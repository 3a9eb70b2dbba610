// document.bas as the translator writes it.
#include "notes/document.h"

namespace notes {

void NotesDocument::describe(velt::ClassBuilder<NotesDocument>& c) {
    c.property("waiting", &NotesDocument::waiting)
        .method("newFile:", &NotesDocument::newFile)
        .method("openNotes:", &NotesDocument::openNotes)
        .method("saveNotes:", &NotesDocument::saveNotes)
        .method("saveNotesAs:", &NotesDocument::saveNotesAs)
        .method("closeNotes:", &NotesDocument::closeNotes)
        .method("quit:", &NotesDocument::quit)
        .method("deleteNote:", &NotesDocument::deleteNote)
        .method("alertSheetDidEnd:returnCode:contextInfo:", &NotesDocument::alertSheetDidEnd)
        .method("savePanelDidEnd:returnCode:contextInfo:", &NotesDocument::savePanelDidEnd)
        .method("proceedNow:", &NotesDocument::proceedNow)
        .method("windowShouldClose:", &NotesDocument::windowShouldClose)
        .method("windowWillClose:", &NotesDocument::windowWillClose)
        .method("applicationShouldTerminate:", &NotesDocument::applicationShouldTerminate)
        .method("applicationWillTerminate:", &NotesDocument::applicationWillTerminate)
        .method("application:openFile:", &NotesDocument::applicationOpenFile)
        .method("showKeys:", &NotesDocument::showKeys);
}

void NotesDocument::open() {
    VELTS("document.bas", "NotesDocument.Open", "8", "");
    build();
    VELTS("document.bas", "NotesDocument.Open", "9", "");
    restorePreferences();
    VELTS("document.bas", "NotesDocument.Open", "10", "");
    showBook(velt::make<Notebook>());
    VELTS("document.bas", "NotesDocument.Open", "11", "");
    VELT_NSWINDOW_SHOW(window);
    VELTS("document.bas", "NotesDocument.Open", "12", "");
    id last = VELT_NSUSERDEFAULTS_GET(nil, "File"_v);
    VELTS("document.bas", "NotesDocument.Open", "13", "");
    if (VELT_CBOOL(VELT_EQUAL(last, nil))) {
        VELTS("document.bas", "NotesDocument.Open", "14", "");
        showWelcome();
    } else if (VELTS("document.bas", "NotesDocument.Open", "15", ""),
               VELT_CBOOL(
                   VELT_ANDALSO(VELT_UNEQUAL(last, ""_v),
                                VELT_NSFILEMANAGER_EXISTS(VELT_NSFILEMANAGER_INIT(nil, ""), VELT_CSTRING(last))))) {
        VELTS("document.bas", "NotesDocument.Open", "16", "");
        openFile(VELT__STRING(last));
    }
}

void NotesDocument::showWelcome() {
    VELTS("document.bas", "NotesDocument.ShowWelcome", "22", "");
    velt::Ref<Notebook> opened = velt::make<Notebook>();
    VELTS("document.bas", "NotesDocument.ShowWelcome", "23", "");
    id path = VELT__STRING(VELT_CONCAT(VELT_NSBUNDLE_RESOURCEPATH(nil), "/welcome.notes"_v));
    VELTS("document.bas", "NotesDocument.ShowWelcome", "24", "");
    if (VELT_CBOOL(VELT_NSFILEMANAGER_EXISTS(VELT_NSFILEMANAGER_INIT(nil, ""), path))) {
        VELTS("document.bas", "NotesDocument.ShowWelcome", "25", "");
        opened->read(VELT__STRING(path));
        VELTS("document.bas", "NotesDocument.ShowWelcome", "26", "");
        opened->path = VELT__STRING(""_v);
    }
    VELTS("document.bas", "NotesDocument.ShowWelcome", "28", "");
    showBook(opened);
}

void NotesDocument::openFile(id path) {
    VELTS("document.bas", "NotesDocument.OpenFile", "33", "");
    velt::Ref<Notebook> opened = velt::make<Notebook>();
    try {
        VELTS("document.bas", "NotesDocument.OpenFile", "35", "");
        opened->read(VELT__STRING(path));
    } catch (const NSException&) {
        VELTS("document.bas", "NotesDocument.OpenFile", "37", "");
        report(VELT__STRING(VELT_CONCAT(VELT_CONCAT("“"_v, VELT_FILENAME(path)), "” cannot be opened."_v)),
               VELT__STRING("It is damaged, or no file of notes. Nothing in it was changed."_v));
        VELTS("document.bas", "NotesDocument.OpenFile", "38", "");
        return;
    }
    VELTS("document.bas", "NotesDocument.OpenFile", "40", "");
    showBook(opened);
}

id NotesDocument::saveFile(id path) {
    VELTS("document.bas", "NotesDocument.SaveFile", "44", "");
    if (VELT_CBOOL(VELT_NOT(book->save(VELT__STRING(path))))) {
        VELTS("document.bas", "NotesDocument.SaveFile", "45", "");
        report(
            VELT__STRING(VELT_CONCAT(VELT_CONCAT("“"_v, VELT_FILENAME(path)), "” cannot be saved."_v)),
            VELT__STRING("Choose a folder in which you may write, on a disk with room. Your notes are still here."_v));
        VELTS("document.bas", "NotesDocument.SaveFile", "46", "");
        return VELT__BOOLEAN(boolean(false));
    }
    VELTS("document.bas", "NotesDocument.SaveFile", "48", "");
    refresh();
    VELTS("document.bas", "NotesDocument.SaveFile", "49", "");
    return VELT__BOOLEAN(boolean(true));
}

void NotesDocument::report(id message, id advice) {
    VELTS("document.bas", "NotesDocument.Report", "53", "");
    VELT_BEGINALERTSHEET(id(this), message, advice, "report"_v, "OK"_v, nil, nil);
}

void NotesDocument::newFile(id) {
    VELTS("document.bas", "NotesDocument.NewFile", "58", "");
    askThen(VELT__STRING("new"_v));
}

void NotesDocument::openNotes(id) {
    VELTS("document.bas", "NotesDocument.OpenNotes", "62", "");
    askThen(VELT__STRING("open"_v));
}

void NotesDocument::saveNotes(id) {
    VELTS("document.bas", "NotesDocument.SaveNotes", "66", "");
    saveThen(VELT__STRING("nothing"_v));
}

void NotesDocument::saveNotesAs(id) {
    VELTS("document.bas", "NotesDocument.SaveNotesAs", "70", "");
    askForFile(VELT__STRING("nothing"_v));
}

void NotesDocument::closeNotes(id sender) {
    VELTS("document.bas", "NotesDocument.CloseNotes", "74", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(window, "performClose:"_v, sender);
}

void NotesDocument::quit(id sender) {
    VELTS("document.bas", "NotesDocument.Quit", "78", "");
    VELT_NSAPPLICATION_TERMINATE(application(), sender);
}

void NotesDocument::deleteNote(id) {
    VELTS("document.bas", "NotesDocument.DeleteNote", "82", "");
    if (VELT_CBOOL(VELT_UNEQUAL(current, nil))) {
        VELT_BEGINALERTSHEET(id(this), VELT_CONCAT(VELT_CONCAT("Delete “"_v, current->title), "”?"_v),
                             "A note that was deleted cannot be brought back."_v, "delete"_v, "Delete"_v, "Cancel"_v,
                             nil);
    }
}

void NotesDocument::askThen(id what) {
    VELTS("document.bas", "NotesDocument.AskThen", "87", "");
    if (VELT_CBOOL(book->edited)) {
        VELTS("document.bas", "NotesDocument.AskThen", "88", "");
        VELT_BEGINALERTSHEET(id(this), VELT_CONCAT(VELT_CONCAT("Save the changes to “"_v, book->name()), "”?"_v),
                             "They are lost if you do not save them."_v, what, "Save"_v, "Cancel"_v, "Don’t Save"_v);
    } else {
        VELTS("document.bas", "NotesDocument.AskThen", "90", "");
        proceed(VELT__STRING(what));
    }
}

void NotesDocument::alertSheetDidEnd(id, id code, id what) {
    VELTS("document.bas", "NotesDocument.AlertSheetDidEnd", "96", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "report"_v))) return;
    VELTS("document.bas", "NotesDocument.AlertSheetDidEnd", "97", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "delete"_v))) {
        VELTS("document.bas", "NotesDocument.AlertSheetDidEnd", "98", "");
        if (VELT_CBOOL(VELT_EQUAL(code, number(1000)))) removeNote();
    } else if (VELTS("document.bas", "NotesDocument.AlertSheetDidEnd", "99", ""),
               VELT_CBOOL(VELT_EQUAL(code, number(1000)))) {
        VELTS("document.bas", "NotesDocument.AlertSheetDidEnd", "100", "");
        saveThen(VELT__STRING(what));
    } else if (VELTS("document.bas", "NotesDocument.AlertSheetDidEnd", "101", ""),
               VELT_CBOOL(VELT_EQUAL(code, number(1002)))) {
        VELTS("document.bas", "NotesDocument.AlertSheetDidEnd", "102", "");
        proceed(VELT__STRING(what));
    } else {
        VELTS("document.bas", "NotesDocument.AlertSheetDidEnd", "104", "");
        give(VELT__STRING(what), boolean(false));
    }
}

void NotesDocument::removeNote() {
    VELTS("document.bas", "NotesDocument.RemoveNote", "110", "");
    id row = VELT__INTEGER(rowOf(current));
    VELTS("document.bas", "NotesDocument.RemoveNote", "111", "");
    book->remove(current);
    VELTS("document.bas", "NotesDocument.RemoveNote", "112", "");
    VELT_NSMUTABLEARRAY_REMOVEOBJECT(shown, current);
    VELTS("document.bas", "NotesDocument.RemoveNote", "113", "");
    row = VELT__INTEGER(VELT_MIN(row, VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(shown), number(1))));
    VELTS("document.bas", "NotesDocument.RemoveNote", "114", "");
    velt::Ref<Note> note = nullptr;
    VELTS("document.bas", "NotesDocument.RemoveNote", "115", "");
    if (VELT_CBOOL(VELT_GREATEREQUAL(row, number(0)))) note = toNote(VELT_NSMUTABLEARRAY_OBJECT(shown, row));
    VELTS("document.bas", "NotesDocument.RemoveNote", "116", "");
    fillTable(note);
    VELTS("document.bas", "NotesDocument.RemoveNote", "117", "");
    showNote(note);
    VELTS("document.bas", "NotesDocument.RemoveNote", "118", "");
    refresh();
    VELTS("document.bas", "NotesDocument.RemoveNote", "119", "");
    showList(nil);
}

void NotesDocument::saveThen(id what) {
    VELTS("document.bas", "NotesDocument.SaveThen", "123", "");
    if (VELT_CBOOL(VELT_EQUAL(book->path, ""_v))) {
        VELTS("document.bas", "NotesDocument.SaveThen", "124", "");
        askForFile(VELT__STRING(what));
    } else if (VELTS("document.bas", "NotesDocument.SaveThen", "125", ""),
               VELT_CBOOL(saveFile(VELT__STRING(book->path)))) {
        VELTS("document.bas", "NotesDocument.SaveThen", "126", "");
        proceed(VELT__STRING(what));
    } else {
        VELTS("document.bas", "NotesDocument.SaveThen", "128", "");
        give(VELT__STRING(what), boolean(false));
    }
}

void NotesDocument::askForFile(id what) {
    VELTS("document.bas", "NotesDocument.AskForFile", "133", "");
    id panel = VELT_NSOBJECT_PERFORMSELECTOR0(ofClass<NSSavePanel>(), "savePanel"_v);
    VELTS("document.bas", "NotesDocument.AskForFile", "134", "");
    VELT_NSSAVEPANEL_TITLE(panel, "Save Notes"_v);
    VELTS("document.bas", "NotesDocument.AskForFile", "135", "");
    VELT_PROPERTY(panel, "requiredFileType"_v, "notes"_v);
    VELTS("document.bas", "NotesDocument.AskForFile", "136", "");
    velt::send(panel, "beginSheetForDirectory:file:modalForWindow:modalDelegate:didEndSelector:contextInfo:", nil,
               book->name(), window, id(this), "savePanelDidEnd:returnCode:contextInfo:"_v, what);
}

void NotesDocument::savePanelDidEnd(id panel, id code, id what) {
    VELTS("document.bas", "NotesDocument.SavePanelDidEnd", "140", "");
    id saved = VELT__BOOLEAN(boolean(false));
    VELTS("document.bas", "NotesDocument.SavePanelDidEnd", "141", "");
    if (VELT_CBOOL(VELT_EQUAL(code, number(1)))) {
        saved = VELT__BOOLEAN(saveFile(VELT__STRING(VELT_CSTRING(VELT_PROPERTY(panel, "filename"_v)))));
    }
    VELTS("document.bas", "NotesDocument.SavePanelDidEnd", "142", "");
    if (VELT_CBOOL(saved)) {
        VELTS("document.bas", "NotesDocument.SavePanelDidEnd", "143", "");
        proceed(VELT__STRING(what));
    } else {
        VELTS("document.bas", "NotesDocument.SavePanelDidEnd", "145", "");
        give(VELT__STRING(what), boolean(false));
    }
}

void NotesDocument::proceed(id what) {
    VELTS("document.bas", "NotesDocument.Proceed", "151", "");
    VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(id(this), "proceedNow:"_v, what);
}

void NotesDocument::proceedNow(id what) {
    VELTS("document.bas", "NotesDocument.ProceedNow", "155", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "new"_v))) {
        VELTS("document.bas", "NotesDocument.ProceedNow", "156", "");
        showBook(velt::make<Notebook>());
    } else if (VELTS("document.bas", "NotesDocument.ProceedNow", "157", ""), VELT_CBOOL(VELT_EQUAL(what, "open"_v))) {
        VELTS("document.bas", "NotesDocument.ProceedNow", "158", "");
        chooseFile();
    } else if (VELTS("document.bas", "NotesDocument.ProceedNow", "159", ""), VELT_CBOOL(VELT_EQUAL(what, "read"_v))) {
        VELTS("document.bas", "NotesDocument.ProceedNow", "160", "");
        openFile(VELT__STRING(waiting));
    } else if (VELTS("document.bas", "NotesDocument.ProceedNow", "161", ""), VELT_CBOOL(VELT_EQUAL(what, "close"_v))) {
        VELTS("document.bas", "NotesDocument.ProceedNow", "162", "");
        keepPreferences();
        VELTS("document.bas", "NotesDocument.ProceedNow", "163", "");
        book->edited = VELT__BOOLEAN(boolean(false));
        VELTS("document.bas", "NotesDocument.ProceedNow", "164", "");
        VELT_NSWINDOW_CLOSE(window);
    } else {
        VELTS("document.bas", "NotesDocument.ProceedNow", "166", "");
        give(VELT__STRING(what), boolean(true));
    }
}

void NotesDocument::give(id what, id answer) {
    VELTS("document.bas", "NotesDocument.Give", "172", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "quit"_v))) {
        VELT_NSOBJECT_PERFORMSELECTOR1(application(), "replyToApplicationShouldTerminate:"_v, answer);
    }
}

void NotesDocument::chooseFile() {
    VELTS("document.bas", "NotesDocument.ChooseFile", "176", "");
    id types = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("document.bas", "NotesDocument.ChooseFile", "177", "");
    VELT_NSMUTABLEARRAY_APPEND(types, "notes"_v);
    VELTS("document.bas", "NotesDocument.ChooseFile", "178", "");
    VELT_NSOPENPANEL_TYPES(nil, types);
    VELTS("document.bas", "NotesDocument.ChooseFile", "179", "");
    if (VELT_CBOOL(VELT_NSOPENPANEL_RUN(nil))) openFile(VELT__STRING(VELT_NSOPENPANEL_FILENAME(nil)));
}

id NotesDocument::windowShouldClose(id) {
    VELTS("document.bas", "NotesDocument.WindowShouldClose", "184", "");
    if (VELT_CBOOL(VELT_NOT(book->edited))) return VELT__BOOLEAN(boolean(true));
    VELTS("document.bas", "NotesDocument.WindowShouldClose", "185", "");
    askThen(VELT__STRING("close"_v));
    VELTS("document.bas", "NotesDocument.WindowShouldClose", "186", "");
    return VELT__BOOLEAN(boolean(false));
}

void NotesDocument::windowWillClose(id) {
    VELTS("document.bas", "NotesDocument.WindowWillClose", "190", "");
    keepPreferences();
}

id NotesDocument::applicationShouldTerminate(id) {
    VELTS("document.bas", "NotesDocument.ApplicationShouldTerminate", "195", "");
    if (VELT_CBOOL(VELT_UNEQUAL(VELT_PROPERTY(window, "attachedSheet"_v), nil))) return VELT__INTEGER(number(0));
    VELTS("document.bas", "NotesDocument.ApplicationShouldTerminate", "196", "");
    if (VELT_CBOOL(VELT_NOT(book->edited))) return VELT__INTEGER(number(1));
    VELTS("document.bas", "NotesDocument.ApplicationShouldTerminate", "197", "");
    VELT_NSWINDOW_SHOW(window);
    VELTS("document.bas", "NotesDocument.ApplicationShouldTerminate", "198", "");
    askThen(VELT__STRING("quit"_v));
    VELTS("document.bas", "NotesDocument.ApplicationShouldTerminate", "199", "");
    return VELT__INTEGER(number(2));
}

void NotesDocument::applicationWillTerminate(id) {
    VELTS("document.bas", "NotesDocument.ApplicationWillTerminate", "203", "");
    keepPreferences();
}

id NotesDocument::applicationOpenFile(id, id path) {
    VELTS("document.bas", "NotesDocument.ApplicationOpenFile", "207", "");
    waiting = VELT__STRING(path);
    VELTS("document.bas", "NotesDocument.ApplicationOpenFile", "208", "");
    askThen(VELT__STRING("read"_v));
    VELTS("document.bas", "NotesDocument.ApplicationOpenFile", "209", "");
    return VELT__BOOLEAN(boolean(true));
}

void NotesDocument::showKeys(id) {
    VELTS("document.bas", "NotesDocument.ShowKeys", "213", "");
    VELT_INFORMATIONALALERTPANEL("Notes by keys"_v,
                                 "In the list, the arrows choose a note and Return leads into its text. Escape leads "
                                 "from the text back to the list, and clears the search field. Tab goes round."_v,
                                 nil, nil, nil);
}

}  // namespace notes
