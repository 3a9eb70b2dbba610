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
    velt::Ref<Source> shown = sourceOf(VELT__STRING(path));
    VELTS("files.bas", "SourceEditor.OpenPath", "24", "");
    if (VELT_CBOOL(VELT_UNEQUAL(shown, nil))) {
        VELTS("files.bas", "SourceEditor.OpenPath", "25", "");
        showSource(shown);
        VELTS("files.bas", "SourceEditor.OpenPath", "26", "");
        return VELT__BOOLEAN(boolean(true));
    }
    VELTS("files.bas", "SourceEditor.OpenPath", "28", "");
    id reason = VELT__STRING(whyUnreadable(VELT__STRING(path)));
    VELTS("files.bas", "SourceEditor.OpenPath", "29", "");
    velt::Ref<Source> before = current();
    VELTS("files.bas", "SourceEditor.OpenPath", "30", "");
    velt::Ref<Source> opened = addSource();
    try {
        VELTS("files.bas", "SourceEditor.OpenPath", "32", "");
        opened->load(VELT__STRING(path));
    } catch (const NSException&) {
        VELTS("files.bas", "SourceEditor.OpenPath", "34", "");
        removeSource(opened);
        VELTS("files.bas", "SourceEditor.OpenPath", "35", "");
        tellOfFailure(VELT__STRING(VELT_CONCAT(VELT_CONCAT("“"_v, VELT_FILENAME(path)), "” cannot be opened."_v)),
                      VELT__STRING(reason));
        VELTS("files.bas", "SourceEditor.OpenPath", "36", "");
        return VELT__BOOLEAN(boolean(false));
    }
    VELTS("files.bas", "SourceEditor.OpenPath", "38", "");
    if (VELT_CBOOL(VELT_UNEQUAL(before, nil))) {
        VELTS("files.bas", "SourceEditor.OpenPath", "39", "");
        if (VELT_CBOOL(before->isUntouched())) removeSource(before);
    }
    VELTS("files.bas", "SourceEditor.OpenPath", "41", "");
    showSource(opened);
    VELTS("files.bas", "SourceEditor.OpenPath", "42", "");
    rememberFile(VELT__STRING(path));
    VELTS("files.bas", "SourceEditor.OpenPath", "43", "");
    return VELT__BOOLEAN(boolean(true));
}

velt::Ref<Source> SourceEditor::sourceOf(id path) {
    VELTS("files.bas", "SourceEditor.SourceOf", "48", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(sources), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("files.bas", "SourceEditor.SourceOf", "49", "");
        if (VELT_CBOOL(VELT_EQUAL(toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, i))->path, path)))
            return toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, i));
    }
    VELTS("files.bas", "SourceEditor.SourceOf", "51", "");
    return nullptr;
}

id SourceEditor::whyUnreadable(id path) {
    VELTS("files.bas", "SourceEditor.WhyUnreadable", "56", "");
    id files = VELT_NSFILEMANAGER_INIT(nil, "");
    VELTS("files.bas", "SourceEditor.WhyUnreadable", "57", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSFILEMANAGER_EXISTS(files, path)))) return VELT__STRING("There is no such file."_v);
    VELTS("files.bas", "SourceEditor.WhyUnreadable", "58", "");
    if (VELT_CBOOL(VELT_NSFILEMANAGER_EXISTSDIRECTORY(files, path)))
        return VELT__STRING("It is a folder. Choose a file that lies in it."_v);
    VELTS("files.bas", "SourceEditor.WhyUnreadable", "59", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSFILEMANAGER_ISREADABLE(files, path))))
        return VELT__STRING("You may not read it. Ask its owner."_v);
    VELTS("files.bas", "SourceEditor.WhyUnreadable", "60", "");
    return VELT__STRING("It is not text in UTF-8, which sources are written in. Nothing in it was changed."_v);
}

void SourceEditor::tellOfFailure(id what, id advice) {
    VELTS("files.bas", "SourceEditor.TellOfFailure", "64", "");
    VELT_BEGINALERTSHEET(id(this), what, advice, "report"_v, "OK"_v, nil, nil);
}

void SourceEditor::rememberFile(id path) {
    VELTS("files.bas", "SourceEditor.RememberFile", "69", "");
    settings->remember(VELT__STRING(path));
    VELTS("files.bas", "SourceEditor.RememberFile", "70", "");
    fillRecentMenu();
}

void SourceEditor::fillRecentMenu() {
    VELTS("files.bas", "SourceEditor.FillRecentMenu", "74", "");
    if (VELT_CBOOL(VELT_EQUAL(recentMenu, nil))) return;
    VELTS("files.bas", "SourceEditor.FillRecentMenu", "75", "");
    VELT_NSMENU_REMOVEALL(recentMenu);
    VELTS("files.bas", "SourceEditor.FillRecentMenu", "76", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(settings->recent), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("files.bas", "SourceEditor.FillRecentMenu", "77", "");
        id item = VELT_NSMENUITEM_INIT(id(this),
                                       "openRecent:", VELT_FILENAME(VELT_NSMUTABLEARRAY_OBJECT(settings->recent, i)));
        VELTS("files.bas", "SourceEditor.FillRecentMenu", "78", "");
        VELT_NSMENUITEM_REPRESENTEDOBJECT(item, VELT_NSMUTABLEARRAY_OBJECT(settings->recent, i));
        VELTS("files.bas", "SourceEditor.FillRecentMenu", "79", "");
        VELT_NSMENU_APPENDMENUITEM(recentMenu, item);
    }
    VELTS("files.bas", "SourceEditor.FillRecentMenu", "81", "");
    VELT_NSMENU_APPENDSEPARATOR(recentMenu);
    VELTS("files.bas", "SourceEditor.FillRecentMenu", "82", "");
    VELT_NSMENU_APPENDMENUITEM(recentMenu, VELT_NSMENUITEM_INIT(id(this), "clearRecent:", "Clear Menu"_v));
}

void SourceEditor::newFile(id) {
    VELTS("files.bas", "SourceEditor.NewFile", "87", "");
    showSource(addSource());
}

void SourceEditor::openFile(id) {
    VELTS("files.bas", "SourceEditor.OpenFile", "91", "");
    VELT_NSOPENPANEL_ALLOWSMULTIPLESELECTION(nil, boolean(true));
    VELTS("files.bas", "SourceEditor.OpenFile", "92", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSOPENPANEL_RUN(nil)))) return;
    VELTS("files.bas", "SourceEditor.OpenFile", "93", "");
    id paths = VELT__NSARRAY(VELT_NSOPENPANEL_FILENAMES(nil));
    VELTS("files.bas", "SourceEditor.OpenFile", "94", "");
    const id last = VELT_SUB(VELT_NSARRAY_COUNT(paths), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("files.bas", "SourceEditor.OpenFile", "95", "");
        openPath(VELT__STRING(VELT_NSARRAY_OBJECT(paths, i)));
    }
}

void SourceEditor::openRecent(id sender) {
    VELTS("files.bas", "SourceEditor.OpenRecent", "101", "");
    id path = VELT__STRING(VELT_NSMENUITEM_REPRESENTEDOBJECT(sender));
    VELTS("files.bas", "SourceEditor.OpenRecent", "102", "");
    if (VELT_CBOOL(openPath(VELT__STRING(path)))) return;
    VELTS("files.bas", "SourceEditor.OpenRecent", "103", "");
    VELT_NSMUTABLEARRAY_REMOVEOBJECT(settings->recent, path);
    VELTS("files.bas", "SourceEditor.OpenRecent", "104", "");
    fillRecentMenu();
}

void SourceEditor::clearRecent(id) {
    VELTS("files.bas", "SourceEditor.ClearRecent", "108", "");
    VELT_NSMUTABLEARRAY_REMOVEALL(settings->recent);
    VELTS("files.bas", "SourceEditor.ClearRecent", "109", "");
    fillRecentMenu();
}

void SourceEditor::saveFile(id) {
    VELTS("files.bas", "SourceEditor.SaveFile", "113", "");
    saveThen(current(), VELT__STRING("nothing"_v));
}

void SourceEditor::saveFileAs(id) {
    VELTS("files.bas", "SourceEditor.SaveFileAs", "117", "");
    askForFile(current(), VELT__STRING("nothing"_v));
}

void SourceEditor::closeFile(id) {
    VELTS("files.bas", "SourceEditor.CloseFile", "121", "");
    if (VELT_CBOOL(preferences->closeIfKey())) return;
    VELTS("files.bas", "SourceEditor.CloseFile", "122", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(sources), number(1)))) {
        VELTS("files.bas", "SourceEditor.CloseFile", "123", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(window, "performClose:"_v, id(this));
        VELTS("files.bas", "SourceEditor.CloseFile", "124", "");
        return;
    }
    VELTS("files.bas", "SourceEditor.CloseFile", "126", "");
    closing = current();
    VELTS("files.bas", "SourceEditor.CloseFile", "127", "");
    VELT_NSMUTABLEARRAY_REMOVEALL(unanswered);
    VELTS("files.bas", "SourceEditor.CloseFile", "128", "");
    if (VELT_CBOOL(closing->edited)) VELT_NSMUTABLEARRAY_APPEND(unanswered, closing);
    VELTS("files.bas", "SourceEditor.CloseFile", "129", "");
    askNext(VELT__STRING("tab"_v));
}

void SourceEditor::quit(id sender) {
    VELTS("files.bas", "SourceEditor.Quit", "133", "");
    VELT_NSAPPLICATION_TERMINATE(application(), sender);
}

id SourceEditor::hasChanges() {
    VELTS("files.bas", "SourceEditor.HasChanges", "138", "");
    VELT_NSMUTABLEARRAY_REMOVEALL(unanswered);
    VELTS("files.bas", "SourceEditor.HasChanges", "139", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(sources), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("files.bas", "SourceEditor.HasChanges", "140", "");
        if (VELT_CBOOL(toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, i))->edited))
            VELT_NSMUTABLEARRAY_APPEND(unanswered, VELT_NSMUTABLEARRAY_OBJECT(sources, i));
    }
    VELTS("files.bas", "SourceEditor.HasChanges", "142", "");
    return VELT__BOOLEAN(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(unanswered), number(0)));
}

void SourceEditor::askNext(id what) {
    VELTS("files.bas", "SourceEditor.AskNext", "147", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(unanswered), number(0)))) {
        VELTS("files.bas", "SourceEditor.AskNext", "148", "");
        proceed(VELT__STRING(what));
        VELTS("files.bas", "SourceEditor.AskNext", "149", "");
        return;
    }
    VELTS("files.bas", "SourceEditor.AskNext", "151", "");
    showSource(toSource(VELT_NSMUTABLEARRAY_OBJECT(unanswered, number(0))));
    VELTS("files.bas", "SourceEditor.AskNext", "152", "");
    VELT_BEGINALERTSHEET(id(this), VELT_CONCAT(VELT_CONCAT("Save the changes to “"_v, current()->name()), "”?"_v),
                         "They are lost if you do not save them."_v, what, "Save"_v, "Cancel"_v, "Don’t Save"_v);
}

void SourceEditor::alertSheetDidEnd(id, id code, id what) {
    VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "157", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "report"_v))) return;
    VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "158", "");
    if (VELT_CBOOL(VELT_EQUAL(code, number(1000)))) {
        VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "159", "");
        saveThen(toSource(VELT_NSMUTABLEARRAY_OBJECT(unanswered, number(0))), VELT__STRING(what));
    } else if (VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "160", ""),
               VELT_CBOOL(VELT_EQUAL(code, number(1002)))) {
        VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "161", "");
        goOn(VELT__STRING(what));
    } else {
        VELTS("files.bas", "SourceEditor.AlertSheetDidEnd", "163", "");
        give(VELT__STRING(what), boolean(false));
    }
}

void SourceEditor::goOn(id what) {
    VELTS("files.bas", "SourceEditor.GoOn", "169", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "nothing"_v))) return;
    VELTS("files.bas", "SourceEditor.GoOn", "170", "");
    VELT_NSMUTABLEARRAY_REMOVE(unanswered, number(0));
    VELTS("files.bas", "SourceEditor.GoOn", "171", "");
    VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(id(this), "askNext:"_v, what);
}

void SourceEditor::saveThen(velt::Ref<Source> saved, id what) {
    VELTS("files.bas", "SourceEditor.SaveThen", "175", "");
    if (VELT_CBOOL(VELT_EQUAL(saved->path, ""_v))) {
        VELTS("files.bas", "SourceEditor.SaveThen", "176", "");
        askForFile(saved, VELT__STRING(what));
    } else if (VELTS("files.bas", "SourceEditor.SaveThen", "177", ""),
               VELT_CBOOL(saveTo(saved, VELT__STRING(saved->path)))) {
        VELTS("files.bas", "SourceEditor.SaveThen", "178", "");
        goOn(VELT__STRING(what));
    } else {
        VELTS("files.bas", "SourceEditor.SaveThen", "180", "");
        give(VELT__STRING(what), boolean(false));
    }
}

id SourceEditor::saveTo(velt::Ref<Source> saved, id path) {
    VELTS("files.bas", "SourceEditor.SaveTo", "186", "");
    velt::Ref<Source> shown = sourceOf(VELT__STRING(path));
    VELTS("files.bas", "SourceEditor.SaveTo", "187", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_UNEQUAL(shown, nil), VELT_UNEQUAL(shown, saved)))) {
        VELTS("files.bas", "SourceEditor.SaveTo", "188", "");
        tellOfFailure(
            VELT__STRING(VELT_CONCAT(VELT_CONCAT("“"_v, VELT_FILENAME(path)), "” cannot be saved."_v)),
            VELT__STRING(
                "The file is open in another tab. Close that tab first, or choose another name. Your text is still here."_v));
        VELTS("files.bas", "SourceEditor.SaveTo", "189", "");
        return VELT__BOOLEAN(boolean(false));
    }
    VELTS("files.bas", "SourceEditor.SaveTo", "191", "");
    if (VELT_CBOOL(VELT_NOT(saved->save(VELT__STRING(path))))) {
        VELTS("files.bas", "SourceEditor.SaveTo", "192", "");
        tellOfFailure(
            VELT__STRING(VELT_CONCAT(VELT_CONCAT("“"_v, VELT_FILENAME(path)), "” cannot be saved."_v)),
            VELT__STRING("Choose a folder in which you may write, on a disk with room. Your text is still here."_v));
        VELTS("files.bas", "SourceEditor.SaveTo", "193", "");
        return VELT__BOOLEAN(boolean(false));
    }
    VELTS("files.bas", "SourceEditor.SaveTo", "195", "");
    say(VELT__STRING("Saved."_v));
    VELTS("files.bas", "SourceEditor.SaveTo", "196", "");
    rememberFile(VELT__STRING(path));
    VELTS("files.bas", "SourceEditor.SaveTo", "197", "");
    return VELT__BOOLEAN(boolean(true));
}

void SourceEditor::askForFile(velt::Ref<Source> saved, id what) {
    VELTS("files.bas", "SourceEditor.AskForFile", "201", "");
    saving = saved;
    VELTS("files.bas", "SourceEditor.AskForFile", "202", "");
    id panel = VELT_NSOBJECT_PERFORMSELECTOR0(ofClass<NSSavePanel>(), "savePanel"_v);
    VELTS("files.bas", "SourceEditor.AskForFile", "203", "");
    VELT_NSSAVEPANEL_TITLE(panel, "Save Source"_v);
    VELTS("files.bas", "SourceEditor.AskForFile", "204", "");
    VELT_PROPERTY(panel, "requiredFileType"_v, "bas"_v);
    VELTS("files.bas", "SourceEditor.AskForFile", "205", "");
    velt::send(panel, "beginSheetForDirectory:file:modalForWindow:modalDelegate:didEndSelector:contextInfo:", nil,
               saved->name(), window, id(this), "savePanelDidEnd:returnCode:contextInfo:"_v, what);
}

void SourceEditor::savePanelDidEnd(id panel, id code, id what) {
    VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "209", "");
    id saved = VELT__BOOLEAN(boolean(false));
    VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "210", "");
    if (VELT_CBOOL(VELT_EQUAL(code, number(1))))
        saved = VELT__BOOLEAN(saveTo(saving, VELT__STRING(VELT_CSTRING(VELT_PROPERTY(panel, "filename"_v)))));
    VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "211", "");
    saving = nullptr;
    VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "212", "");
    if (VELT_CBOOL(saved)) {
        VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "213", "");
        goOn(VELT__STRING(what));
    } else {
        VELTS("files.bas", "SourceEditor.SavePanelDidEnd", "215", "");
        give(VELT__STRING(what), boolean(false));
    }
}

void SourceEditor::proceed(id what) {
    VELTS("files.bas", "SourceEditor.Proceed", "220", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "tab"_v))) {
        VELTS("files.bas", "SourceEditor.Proceed", "221", "");
        removeSource(closing);
        VELTS("files.bas", "SourceEditor.Proceed", "222", "");
        closing = nullptr;
    } else if (VELTS("files.bas", "SourceEditor.Proceed", "223", ""), VELT_CBOOL(VELT_EQUAL(what, "window"_v))) {
        VELTS("files.bas", "SourceEditor.Proceed", "225", "");
        const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(sources), number(1));
        for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
            VELTS("files.bas", "SourceEditor.Proceed", "226", "");
            toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, i))->edited = VELT__BOOLEAN(boolean(false));
        }
        VELTS("files.bas", "SourceEditor.Proceed", "228", "");
        VELT_NSWINDOW_CLOSE(window);
    } else {
        VELTS("files.bas", "SourceEditor.Proceed", "230", "");
        give(VELT__STRING(what), boolean(true));
    }
}

void SourceEditor::give(id what, id answer) {
    VELTS("files.bas", "SourceEditor.Give", "236", "");
    VELT_NSMUTABLEARRAY_REMOVEALL(unanswered);
    VELTS("files.bas", "SourceEditor.Give", "237", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "quit"_v)))
        VELT_NSOBJECT_PERFORMSELECTOR1(application(), "replyToApplicationShouldTerminate:"_v, answer);
}

id SourceEditor::validateMenuItem(id item) {
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "242", "");
    id action = VELT__STRING(VELT_PROPERTY(item, "action"_v));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "243", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "clearRecent:"_v)))
        return VELT__BOOLEAN(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(settings->recent), number(0)));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "244", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "saveFile:"_v)))
        return VELT__BOOLEAN(VELT_ORELSE(current()->edited, VELT_EQUAL(current()->path, ""_v)));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "245", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "printSource:"_v)))
        return VELT__BOOLEAN(VELT_NSOBJECT_RESPONDSTOSELECTOR(current()->view, "PrintShowingPrintPanel:::"_v));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "246", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(action, "nextTab:"_v), VELT_EQUAL(action, "previousTab:"_v))))
        return VELT__BOOLEAN(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(sources), number(1)));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "247", "");
    if (VELT_CBOOL(VELT_EQUAL(action, "useSelection:"_v)))
        return VELT__BOOLEAN(VELT_UNEQUAL(VELT_NSTEXTVIEW_SELECTEDTEXT(current()->view), ""_v));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "248", "");
    if (VELT_CBOOL(VELT_CONTAINS(" findNext: findPrevious: replaceOne: replaceAll: "_v,
                                 VELT_CONCAT(VELT_CONCAT(" "_v, action), " "_v), boolean(true))))
        return VELT__BOOLEAN(VELT_UNEQUAL(search->needle, ""_v));
    VELTS("files.bas", "SourceEditor.ValidateMenuItem", "249", "");
    return VELT__BOOLEAN(boolean(true));
}

id SourceEditor::windowShouldClose(id) {
    VELTS("files.bas", "SourceEditor.WindowShouldClose", "253", "");
    if (VELT_CBOOL(VELT_NOT(hasChanges()))) return VELT__BOOLEAN(boolean(true));
    VELTS("files.bas", "SourceEditor.WindowShouldClose", "254", "");
    askNext(VELT__STRING("window"_v));
    VELTS("files.bas", "SourceEditor.WindowShouldClose", "255", "");
    return VELT__BOOLEAN(boolean(false));
}

void SourceEditor::windowWillClose(id) {
    VELTS("files.bas", "SourceEditor.WindowWillClose", "259", "");
    keepSettings();
    VELTS("files.bas", "SourceEditor.WindowWillClose", "260", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(preferences, "close"_v);
}

id SourceEditor::applicationShouldTerminate(id) {
    VELTS("files.bas", "SourceEditor.ApplicationShouldTerminate", "265", "");
    if (VELT_CBOOL(VELT_UNEQUAL(VELT_PROPERTY(window, "attachedSheet"_v), nil))) return VELT__INTEGER(number(0));
    VELTS("files.bas", "SourceEditor.ApplicationShouldTerminate", "266", "");
    if (VELT_CBOOL(VELT_NOT(hasChanges()))) return VELT__INTEGER(number(1));
    VELTS("files.bas", "SourceEditor.ApplicationShouldTerminate", "267", "");
    VELT_NSWINDOW_SHOW(window);
    VELTS("files.bas", "SourceEditor.ApplicationShouldTerminate", "268", "");
    askNext(VELT__STRING("quit"_v));
    VELTS("files.bas", "SourceEditor.ApplicationShouldTerminate", "269", "");
    return VELT__INTEGER(number(2));
}

void SourceEditor::applicationDidFinishLaunching(id) {
    VELTS("files.bas", "SourceEditor.ApplicationDidFinishLaunching", "274", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(sources), number(0))))
        showSource(toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, number(0))));
}

void SourceEditor::applicationWillTerminate(id) {
    VELTS("files.bas", "SourceEditor.ApplicationWillTerminate", "278", "");
    keepSettings();
}

id SourceEditor::applicationOpenFile(id, id path) {
    VELTS("files.bas", "SourceEditor.ApplicationOpenFile", "282", "");
    return VELT__BOOLEAN(openPath(VELT__STRING(path)));
}

void SourceEditor::showKeys(id) {
    VELTS("files.bas", "SourceEditor.ShowKeys", "286", "");
    VELT_INFORMATIONALALERTPANEL(
        "The editor by keys"_v,
        "Escape offers every name that fits. Behind a dot come the members, behind a parenthesis the arguments, behind “As” the types; the arrows choose one and Return takes it. Tab shifts the selected lines. Ctrl+Page Down and Ctrl+Page Up go from tab to tab."_v,
        nil, nil, nil);
}

}  // namespace editor
