// files.bas: files, and the questions that come before something is lost.
#pragma once

#include "editor/window.h"

namespace editor {

class SourceEditor : public SourceWindow {
    VELT_OBJECT(SourceEditor, SourceWindow)

public:
    id recentMenu, unanswered = velt::make<NSMutableArray>();
    velt::Ref<Source> closing, saving;

    static void describe(velt::ClassBuilder<SourceEditor>& c);
    void open(id words, id paths);
    id openPath(id path);
    velt::Ref<Source> sourceOf(id path);
    id whyUnreadable(id path);
    void tellOfFailure(id what, id advice);
    void rememberFile(id path);
    void fillRecentMenu();

    void newFile(id sender);
    void openFile(id sender);
    void openRecent(id sender);
    void clearRecent(id sender);
    void saveFile(id sender);
    void saveFileAs(id sender);
    void closeFile(id sender);
    void quit(id sender);

    id hasChanges();
    void askNext(id what);
    void alertSheetDidEnd(id alert, id code, id what);
    void goOn(id what);
    void saveThen(velt::Ref<Source> saved, id what);
    id saveTo(velt::Ref<Source> saved, id path);
    void askForFile(velt::Ref<Source> saved, id what);
    void savePanelDidEnd(id panel, id code, id what);
    void proceed(id what);
    void give(id what, id answer);

    id validateMenuItem(id item);
    id windowShouldClose(id sender);
    void windowWillClose(id notification);
    id applicationShouldTerminate(id sender);
    void applicationDidFinishLaunching(id notification);
    void applicationWillTerminate(id notification);
    id applicationOpenFile(id application, id path);
    void showKeys(id sender);
};

/// The main menu, whose items the editor answers.
id mainMenu(velt::Ref<SourceEditor> owner);

}  // namespace editor
