// files.bas as the translator writes it.
#include "editor/files.h"

namespace editor {

void SourceEditor::describe(velt::ClassBuilder<SourceEditor>& c) {
    c.property("recentMenu", &SourceEditor::recentMenu)
        .property("unanswered", &SourceEditor::unanswered)
        .owns(&SourceEditor::closing)
        .owns(&SourceEditor::saving)
        .method("newFile:", &SourceEditor::newFile)
        .method("openFile:", &SourceEditor::openFile)
        .method("openRecent:", &SourceEditor::openRecent)
        .method("clearRecent:", &SourceEditor::clearRecent)
        .method("saveFile:", &SourceEditor::saveFile)
        .method("saveFileAs:", &SourceEditor::saveFileAs)
        .method("closeFile:", &SourceEditor::closeFile)
        .method("quit:", &SourceEditor::quit)
        .method("alertSheetDidEnd:returnCode:contextInfo:", &SourceEditor::alertSheetDidEnd)
        .method("savePanelDidEnd:returnCode:contextInfo:", &SourceEditor::savePanelDidEnd)
        .method("askNext:", &SourceEditor::askNext)
        .method("validateMenuItem:", &SourceEditor::validateMenuItem)
        .method("windowShouldClose:", &SourceEditor::windowShouldClose)
        .method("windowWillClose:", &SourceEditor::windowWillClose)
        .method("applicationShouldTerminate:", &SourceEditor::applicationShouldTerminate)
        .method("applicationDidFinishLaunching:", &SourceEditor::applicationDidFinishLaunching)
        .method("applicationWillTerminate:", &SourceEditor::applicationWillTerminate)
        .method("application:openFile:", &SourceEditor::applicationOpenFile)
        .method("showKeys:", &SourceEditor::showKeys);
}

void SourceEditor::open(id words, id paths) {
    VELTS("files.bas", "SourceEditor.Open", "11", "");
    language->read(VELT__STRING(words));
    VELTS("files.bas", "SourceEditor.Open", "12", "");
    build();
    VELTS("files.bas", "SourceEditor.Open", "13", "");
    fillRecentMenu();
    VELTS("files.bas", "SourceEditor.Open", "14", "");
    showSource(addSource());
    VELTS("files.bas", "SourceEditor.Open", "15", "");
    VELT_NSWINDOW_SHOW(window);
    VELTS("files.bas", "SourceEditor.Open", "16", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(paths), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("files.bas", "SourceEditor.Open", "17", "");
        openPath(VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(paths, i)));
    }
}

id SourceEditor::openPath(id path) {
    VELTS("files.bas", "SourceEditor.OpenPath", "23", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(sources), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("files.bas", "SourceEditor.OpenPath", "24", "");
        if (VELT_CBOOL(VELT_EQUAL(toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, i))->path, path))) {
            VELTS("files.bas", "SourceEditor.OpenPath", "25", "");
            showSource(toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, i)));
            VELTS("files.bas", "SourceEditor.OpenPath", "26", "");
            return VELT__BOOLEAN(boolean(true));
        }
    }
    VELTS("files.bas", "SourceEditor.OpenPath", "29", "");
    id reason = VELT__STRING(whyUnreadable(VELT__STRING(path)));
    VELTS("files.bas", "SourceEditor.OpenPath", "30", "");
    velt::Ref<Source> before = current();
    VELTS("files.bas", "SourceEditor.OpenPath", "31", "");
    velt::Ref<Source> opened = addSource();
    try {
        VELTS("files.bas", "SourceEditor.OpenPath", "33", "");
        opened->load(VELT__STRING(path));
    } catch (const NSException&) {
        VELTS("files.bas", "SourceEditor.OpenPath", "35", "");
        removeSource(opened);
        VELTS("files.bas", "SourceEditor.OpenPath", "36", "");
        tellOfFailure(VELT__STRING(VELT_CONCAT(VELT_CONCAT("“"_v, VELT_FILENAME(path)), "” cannot be opened."_v)),
                      VELT__STRING(reason));
        VELTS("files.bas", "SourceEditor.OpenPath", "37", "");
        return VELT__BOOLEAN(boolean(false));
    }
    VELTS("files.bas", "SourceEditor.OpenPath", "39", "");
    if (VELT_CBOOL(VELT_UNEQUAL(before, nil))) {
        VELTS("files.bas", "SourceEditor.OpenPath", "40", "");
        if (VELT_CBOOL(before->isUntouched())) removeSource(before);
    }
    VELTS("files.bas", "SourceEditor.OpenPath", "42", "");
    showSource(opened);
    VELTS("files.bas", "SourceEditor.OpenPath", "43", "");
    rememberFile(VELT__STRING(path));
    VELTS("files.bas", "SourceEditor.OpenPath", "44", "");
    return VELT__BOOLEAN(boolean(true));
}

id SourceEditor::whyUnreadable(id path) {
    VELTS("files.bas", "SourceEditor.WhyUnreadable", "49", "");
    id files = VELT_NSFILEMANAGER_INIT(nil, "");
    VELTS("files.bas", "SourceEditor.WhyUnreadable", "50", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSFILEMANAGER_EXISTS(files, path)))) return VELT__STRING("There is no such file."_v);
    VELTS("files.bas", "SourceEditor.WhyUnreadable", "51", "");
    if (VELT_CBOOL(VELT_NSFILEMANAGER_EXISTSDIRECTORY(files, path)))
        return VELT__STRING("It is a folder. Choose a file that lies in it."_v);
    VELTS("files.bas", "SourceEditor.WhyUnreadable", "52", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSFILEMANAGER_ISREADABLE(files, path))))
        return VELT__STRING("You may not read it. Ask its owner."_v);
    VELTS("files.bas", "SourceEditor.WhyUnreadable", "53", "");
    return VELT__STRING("It is not text in UTF-8, which sources are written in. Nothing in it was changed."_v);
}

void SourceEditor::tellOfFailure(id what, id advice) {
    VELTS("files.bas", "SourceEditor.TellOfFailure", "57", "");
    VELT_BEGINALERTSHEET(id(this), what, advice, "report"_v, "OK"_v, nil, nil);
}

void SourceEditor::rememberFile(id path) {
    VELTS("files.bas", "SourceEditor.RememberFile", "62", "");
    settings->remember(VELT__STRING(path));
    VELTS("files.bas", "SourceEditor.RememberFile", "63", "");
    fillRecentMenu();
}

void SourceEditor::fillRecentMenu() {
    VELTS("files.bas", "SourceEditor.FillRecentMenu", "67", "");
    if (VELT_CBOOL(VELT_EQUAL(recentMenu, nil))) return;
    VELTS("files.bas", "SourceEditor.FillRecentMenu", "68", "");
    VELT_NSMENU_REMOVEALL(recentMenu);
    VELTS("files.bas", "SourceEditor.FillRecentMenu", "69", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(settings->recent), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("files.bas", "SourceEditor.FillRecentMenu", "70", "");
        id item = VELT_NSMENUITEM_INIT(id(this),
                                       "openRecent:", VELT_FILENAME(VELT_NSMUTABLEARRAY_OBJECT(settings->recent, i)));
        VELTS("files.bas", "SourceEditor.FillRecentMenu", "71", "");
        VELT_NSMENUITEM_REPRESENTEDOBJECT(item, VELT_NSMUTABLEARRAY_OBJECT(settings->recent, i));
        VELTS("files.bas", "SourceEditor.FillRecentMenu", "72", "");
        VELT_NSMENU_APPENDMENUITEM(recentMenu, item);
    }
    VELTS("files.bas", "SourceEditor.FillRecentMenu", "74", "");
    VELT_NSMENU_APPENDSEPARATOR(recentMenu);
    VELTS("files.bas", "SourceEditor.FillRecentMenu", "75", "");
    VELT_NSMENU_APPENDMENUITEM(recentMenu, VELT_NSMENUITEM_INIT(id(this), "clearRecent:", "Clear Menu"_v));
}

void SourceEditor::newFile(id) {
    VELTS("files.bas", "SourceEditor.NewFile", "80", "");
    showSource(addSource());
}

void SourceEditor::openFile(id) {
    VELTS("files.bas", "SourceEditor.OpenFile", "84", "");
    VELT_NSOPENPANEL_ALLOWSMULTIPLESELECTION(nil, boolean(true));
    VELTS("files.bas", "SourceEditor.OpenFile", "85", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSOPENPANEL_RUN(nil)))) return;
    VELTS("files.bas", "SourceEditor.OpenFile", "86", "");
    id paths = VELT__NSARRAY(VELT_NSOPENPANEL_FILENAMES(nil));
    VELTS("files.bas", "SourceEditor.OpenFile", "87", "");
    const id last = VELT_SUB(VELT_NSARRAY_COUNT(paths), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("files.bas", "SourceEditor.OpenFile", "88", "");
        openPath(VELT__STRING(VELT_NSARRAY_OBJECT(paths, i)));
    }
}

void SourceEditor::openRecent(id sender) {
    VELTS("files.bas", "SourceEditor.OpenRecent", "94", "");
    id path = VELT__STRING(VELT_NSMENUITEM_REPRESENTEDOBJECT(sender));
    VELTS("files.bas", "SourceEditor.OpenRecent", "95", "");
    if (VELT_CBOOL(openPath(VELT__STRING(path)))) return;
    VELTS("files.bas", "SourceEditor.OpenRecent", "96", "");
    VELT_NSMUTABLEARRAY_REMOVEOBJECT(settings->recent, path);
    VELTS("files.bas", "SourceEditor.OpenRecent", "97", "");
    fillRecentMenu();
}

void SourceEditor::clearRecent(id) {
    VELTS("files.bas", "SourceEditor.ClearRecent", "101", "");
    VELT_NSMUTABLEARRAY_REMOVEALL(settings->recent);
    VELTS("files.bas", "SourceEditor.ClearRecent", "102", "");
    fillRecentMenu();
}

void SourceEditor::saveFile(id) {
    VELTS("files.bas", "SourceEditor.SaveFile", "106", "");
    saveThen(current(), VELT__STRING("nothing"_v));
}

void SourceEditor::saveFileAs(id) {
    VELTS("files.bas", "SourceEditor.SaveFileAs", "110", "");
    askForFile(current(), VELT__STRING("nothing"_v));
}

void SourceEditor::closeFile(id) {
    VELTS("files.bas", "SourceEditor.CloseFile", "114", "");
    if (VELT_CBOOL(preferences->closeIfKey())) return;
    VELTS("files.bas", "SourceEditor.CloseFile", "115", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(sources), number(1)))) {
        VELTS("files.bas", "SourceEditor.CloseFile", "116", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(window, "performClose:"_v, id(this));
        VELTS("files.bas", "SourceEditor.CloseFile", "117", "");
        return;
    }
    VELTS("files.bas", "SourceEditor.CloseFile", "119", "");
    closing = current();
    VELTS("files.bas", "SourceEditor.CloseFile", "120", "");
    VELT_NSMUTABLEARRAY_REMOVEALL(unanswered);
    VELTS("files.bas", "SourceEditor.CloseFile", "121", "");
    if (VELT_CBOOL(closing->edited)) VELT_NSMUTABLEARRAY_APPEND(unanswered, closing);
    VELTS("files.bas", "SourceEditor.CloseFile", "122", "");
    askNext(VELT__STRING("tab"_v));
}

void SourceEditor::quit(id sender) {
    VELTS("files.bas", "SourceEditor.Quit", "126", "");
    VELT_NSAPPLICATION_TERMINATE(application(), sender);
}

id SourceEditor::hasChanges() {
    VELTS("files.bas", "SourceEditor.HasChanges", "131", "");
    VELT_NSMUTABLEARRAY_REMOVEALL(unanswered);
    VELTS("files.bas", "SourceEditor.HasChanges", "132", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(sources), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("files.bas", "SourceEditor.HasChanges", "133", "");
        if (VELT_CBOOL(toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, i))->edited))
            VELT_NSMUTABLEARRAY_APPEND(unanswered, VELT_NSMUTABLEARRAY_OBJECT(sources, i));
    }
    VELTS("files.bas", "SourceEditor.HasChanges", "135", "");
    return VELT__BOOLEAN(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(unanswered), number(0)));
}

void SourceEditor::askNext(id what) {
    VELTS("files.bas", "SourceEditor.AskNext", "140", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(unanswered), number(0)))) {
        VELTS("files.bas", "SourceEditor.AskNext", "141", "");
        proceed(VELT__STRING(what));
        VELTS("files.bas", "SourceEditor.AskNext", "142", "");
        return;
    }
    VELTS("files.bas", "SourceEditor.AskNext", "144", "");
    showSource(toSource(VELT_NSMUTABLEARRAY_OBJECT(unanswered, number(0))));
    VELTS("files.bas", "SourceEditor.AskNext", "145", "");
    VELT_BEGINALERTSHEET(id(this), VELT_CONCAT(VELT_CONCAT("Save the changes to “"_v, current()->name()), "”?"_v),
                         "They are lost if you do not save them."_v, what, "Save"_v, "Cancel"_v, "Don’t Save"_v);
}

void SourceEditor::alertSheetDidEnd(id, id code, id what) {
    VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "150", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "report"_v))) return;
    VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "151", "");
    if (VELT_CBOOL(VELT_EQUAL(code, number(1000)))) {
        VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "152", "");
        saveThen(toSource(VELT_NSMUTABLEARRAY_OBJECT(unanswered, number(0))), VELT__STRING(what));
    } else if (VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "153", ""),
               VELT_CBOOL(VELT_EQUAL(code, number(1002)))) {
        VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "154", "");
        goOn(VELT__STRING(what));
    } else {
        VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "156", "");
        give(VELT__STRING(what), boolean(false));
    }
}

void SourceEditor::goOn(id what) {
    VELTS("files.bas", "SourceEditor.GoOn", "162", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "nothing"_v))) return;
    VELTS("files.bas", "SourceEditor.GoOn", "163", "");
    VELT_NSMUTABLEARRAY_REMOVE(unanswered, number(0));
    VELTS("files.bas", "SourceEditor.GoOn", "164", "");
    VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(id(this), "askNext:"_v, what);
}

void SourceEditor::saveThen(velt::Ref<Source> saved, id what) {
    VELTS("files.bas", "SourceEditor.SaveThen", "168", "");
    if (VELT_CBOOL(VELT_EQUAL(saved->path, ""_v))) {
        VELTS("files.bas", "SourceEditor.SaveThen", "169", "");
        askForFile(saved, VELT__STRING(what));
    } else if (VELTS("files.bas", "SourceEditor.SaveThen", "170", ""),
               VELT_CBOOL(saveTo(saved, VELT__STRING(saved->path)))) {
        VELTS("files.bas", "SourceEditor.SaveThen", "171", "");
        goOn(VELT__STRING(what));
    } else {
        VELTS("files.bas", "SourceEditor.SaveThen", "173", "");
        give(VELT__STRING(what), boolean(false));
    }
}

id SourceEditor::saveTo(velt::Ref<Source> saved, id path) {
    VELTS("files.bas", "SourceEditor.SaveTo", "178", "");
    if (VELT_CBOOL(VELT_NOT(saved->save(VELT__STRING(path))))) {
        VELTS("files.bas", "SourceEditor.SaveTo", "179", "");
        tellOfFailure(
            VELT__STRING(VELT_CONCAT(VELT_CONCAT("“"_v, VELT_FILENAME(path)), "” cannot be saved."_v)),
            VELT__STRING("Choose a folder in which you may write, on a disk with room. Your text is still here."_v));
        VELTS("files.bas", "SourceEditor.SaveTo", "180", "");
        return VELT__BOOLEAN(boolean(false));
    }
    VELTS("files.bas", "SourceEditor.SaveTo", "182", "");
    say(VELT__STRING("Saved."_v));
    VELTS("files.bas", "SourceEditor.SaveTo", "183", "");
    rememberFile(VELT__STRING(path));
    VELTS("files.bas", "SourceEditor.SaveTo", "184", "");
    return VELT__BOOLEAN(boolean(true));
}

void SourceEditor::askForFile(velt::Ref<Source> saved, id what) {
    VELTS("files.bas", "SourceEditor.AskForFile", "188", "");
    saving = saved;
    VELTS("files.bas", "SourceEditor.AskForFile", "189", "");
    id panel = VELT_NSOBJECT_PERFORMSELECTOR0(ofClass<NSSavePanel>(), "savePanel"_v);
    VELTS("files.bas", "SourceEditor.AskForFile", "190", "");
    VELT_NSSAVEPANEL_TITLE(panel, "Save Source"_v);
    VELTS("files.bas", "SourceEditor.AskForFile", "191", "");
    VELT_PROPERTY(panel, "requiredFileType"_v, "bas"_v);
    VELTS("files.bas", "SourceEditor.AskForFile", "192", "");
    velt::send(panel, "beginSheetForDirectory:file:modalForWindow:modalDelegate:didEndSelector:contextInfo:", nil,
               saved->name(), window, id(this), "savePanelDidEnd:returnCode:contextInfo:"_v, what);
}

void SourceEditor::savePanelDidEnd(id panel, id code, id what) {
    VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "196", "");
    id saved = VELT__BOOLEAN(boolean(false));
    VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "197", "");
    if (VELT_CBOOL(VELT_EQUAL(code, number(1))))
        saved = VELT__BOOLEAN(saveTo(saving, VELT__STRING(VELT_CSTRING(VELT_PROPERTY(panel, "filename"_v)))));
    VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "198", "");
    saving = nullptr;
    VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "199", "");
    if (VELT_CBOOL(saved)) {
        VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "200", "");
        goOn(VELT__STRING(what));
    } else {
        VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "202", "");
        give(VELT__STRING(what), boolean(false));
    }
}

void SourceEditor::proceed(id what) {
    VELTS("files.bas", "SourceEditor.Proceed", "207", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "tab"_v))) {
        VELTS("files.bas", "SourceEditor.Proceed", "208", "");
        removeSource(closing);
        VELTS("files.bas", "SourceEditor.Proceed", "209", "");
        closing = nullptr;
    } else if (VELTS("files.bas", "SourceEditor.Proceed", "210", ""), VELT_CBOOL(VELT_EQUAL(what, "window"_v))) {
        VELTS("files.bas", "SourceEditor.Proceed", "212", "");
        const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(sources), number(1));
        for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
            VELTS("files.bas", "SourceEditor.Proceed", "213", "");
            toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, i))->edited = VELT__BOOLEAN(boolean(false));
        }
        VELTS("files.bas", "SourceEditor.Proceed", "215", "");
        VELT_NSWINDOW_CLOSE(window);
    } else {
        VELTS("files.bas", "SourceEditor.Proceed", "217", "");
        give(VELT__STRING(what), boolean(true));
    }
}

void SourceEditor::give(id what, id answer) {
    VELTS("files.bas", "SourceEditor.Give", "223", "");
    VELT_NSMUTABLEARRAY_REMOVEALL(unanswered);
    VELTS("files.bas", "SourceEditor.Give", "224", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "quit"_v)))
        VELT_NSOBJECT_PERFORMSELECTOR1(application(), "replyToApplicationShouldTerminate:"_v, answer);
}

id SourceEditor::validateMenuItem(id item) {
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "229", "");
    id action = VELT__STRING(VELT_PROPERTY(item, "action"_v));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "230", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "clearRecent:"_v)))
        return VELT__BOOLEAN(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(settings->recent), number(0)));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "231", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "saveFile:"_v)))
        return VELT__BOOLEAN(VELT_ORELSE(current()->edited, VELT_EQUAL(current()->path, ""_v)));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "232", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "printSource:"_v)))
        return VELT__BOOLEAN(VELT_NSOBJECT_RESPONDSTOSELECTOR(current()->view, "PrintShowingPrintPanel:::"_v));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "233", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(action, "nextTab:"_v), VELT_EQUAL(action, "previousTab:"_v))))
        return VELT__BOOLEAN(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(sources), number(1)));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "234", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "useSelection:"_v)))
        return VELT__BOOLEAN(VELT_UNEQUAL(VELT_NSTEXTVIEW_SELECTEDTEXT(current()->view), ""_v));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "235", "");
    if (VELT_CBOOL(VELT_CONTAINS(" findNext: findPrevious: replaceOne: replaceAll: "_v,
                                 VELT_CONCAT(VELT_CONCAT(" "_v, action), " "_v), boolean(true))))
        return VELT__BOOLEAN(VELT_UNEQUAL(search->needle, ""_v));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "236", "");
    return VELT__BOOLEAN(boolean(true));
}

id SourceEditor::windowShouldClose(id) {
    VELTS("files.bas", "SourceEditor.WindowShouldClose", "240", "");
    if (VELT_CBOOL(VELT_NOT(hasChanges()))) return VELT__BOOLEAN(boolean(true));
    VELTS("files.bas", "SourceEditor.WindowShouldClose", "241", "");
    askNext(VELT__STRING("window"_v));
    VELTS("files.bas", "SourceEditor.WindowShouldClose", "242", "");
    return VELT__BOOLEAN(boolean(false));
}

void SourceEditor::windowWillClose(id) {
    VELTS("files.bas", "SourceEditor.WindowWillClose", "246", "");
    keepSettings();
    VELTS("files.bas", "SourceEditor.WindowWillClose", "247", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(preferences, "close"_v);
}

id SourceEditor::applicationShouldTerminate(id) {
    VELTS("files.bas", "SourceEditor.ApplicationShouldTerminate", "252", "");
    if (VELT_CBOOL(VELT_UNEQUAL(VELT_PROPERTY(window, "attachedSheet"_v), nil))) return VELT__INTEGER(number(0));
    VELTS("files.bas", "SourceEditor.ApplicationShouldTerminate", "253", "");
    if (VELT_CBOOL(VELT_NOT(hasChanges()))) return VELT__INTEGER(number(1));
    VELTS("files.bas", "SourceEditor.ApplicationShouldTerminate", "254", "");
    VELT_NSWINDOW_SHOW(window);
    VELTS("files.bas", "SourceEditor.ApplicationShouldTerminate", "255", "");
    askNext(VELT__STRING("quit"_v));
    VELTS("files.bas", "SourceEditor.ApplicationShouldTerminate", "256", "");
    return VELT__INTEGER(number(2));
}

void SourceEditor::applicationDidFinishLaunching(id) {
    VELTS("files.bas", "SourceEditor.ApplicationDidFinishLaunching", "261", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(sources), number(0))))
        showSource(toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, number(0))));
}

void SourceEditor::applicationWillTerminate(id) {
    VELTS("files.bas", "SourceEditor.ApplicationWillTerminate", "265", "");
    keepSettings();
}

id SourceEditor::applicationOpenFile(id, id path) {
    VELTS("files.bas", "SourceEditor.ApplicationOpenFile", "269", "");
    return VELT__BOOLEAN(openPath(VELT__STRING(path)));
}

void SourceEditor::showKeys(id) {
    VELTS("files.bas", "SourceEditor.ShowKeys", "273", "");
    VELT_INFORMATIONALALERTPANEL(
        "The editor by keys"_v,
        "Escape offers every name that fits. Behind a dot come the members, behind a parenthesis the arguments, behind “As” the types; the arrows choose one and Return takes it. Tab shifts the selected lines. Ctrl+Page Down and Ctrl+Page Up go from tab to tab."_v,
        nil, nil, nil);
}

}  // namespace editor
