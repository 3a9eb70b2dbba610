// window.bas as the translator writes it.
#include "editor/window.h"

namespace editor {

void SourceWindow::describe(velt::ClassBuilder<SourceWindow>& c) {
    c.property("window", &SourceWindow::window)
        .property("tabs", &SourceWindow::tabs)
        .property("message", &SourceWindow::message)
        .property("position", &SourceWindow::position)
        .property("sources", &SourceWindow::sources)
        .owns(&SourceWindow::language)
        .owns(&SourceWindow::settings)
        .owns(&SourceWindow::search)
        .owns(&SourceWindow::findSheet)
        .owns(&SourceWindow::preferences)
        .method("tabView:didSelectTabViewItem:", &SourceWindow::didSelectTab)
        .method("sourceChanged:", &SourceWindow::sourceChanged)
        .method("sourceMoved:", &SourceWindow::sourceMoved)
        .method("settingsChanged:", &SourceWindow::settingsChanged)
        .method("replaced:", &SourceWindow::replaced)
        .method("sourceCommand:", &SourceWindow::sourceCommand)
        .method("toggleBreakpoint:", &SourceWindow::toggleBreakpoint)
        .method("showFind:", &SourceWindow::showFind)
        .method("findNext:", &SourceWindow::findNext)
        .method("findPrevious:", &SourceWindow::findPrevious)
        .method("useSelection:", &SourceWindow::useSelection)
        .method("replaceOne:", &SourceWindow::replaceOne)
        .method("replaceAll:", &SourceWindow::replaceAll)
        .method("goToLine:", &SourceWindow::goToLine)
        .method("biggerText:", &SourceWindow::biggerText)
        .method("smallerText:", &SourceWindow::smallerText)
        .method("showPreferences:", &SourceWindow::showPreferences)
        .method("nextTab:", &SourceWindow::nextTab)
        .method("previousTab:", &SourceWindow::previousTab)
        .method("printSource:", &SourceWindow::printSource);
}

void SourceWindow::build() {
    VELTS("window.bas", "SourceWindow.Build", "17", "");
    settings->restore(preferences->defaults());
    VELTS("window.bas", "SourceWindow.Build", "18", "");
    window = VELT_NSWINDOW_INIT(id(this), "");
    VELTS("window.bas", "SourceWindow.Build", "19", "");
    VELT_NSWINDOW_CONTENTMINSIZE(window, newSize(420, 260));
    VELTS("window.bas", "SourceWindow.Build", "20", "");
    VELT_NSWINDOW_CONTENTSIZE(window, newSize(860, 620));
    VELTS("window.bas", "SourceWindow.Build", "21", "");
    tabs = VELT_NSTABVIEW_INIT(id(this), "");
    VELTS("window.bas", "SourceWindow.Build", "22", "");
    VELT_NSVIEW_FRAME(tabs, newRect(0, 26, 860, 594));
    VELTS("window.bas", "SourceWindow.Build", "23", "");
    VELT_NSVIEW_AUTORESIZINGMASK(tabs, number(18));
    VELTS("window.bas", "SourceWindow.Build", "24", "");
    VELT_PROPERTY(tabs, "delegate"_v, id(this));
    VELTS("window.bas", "SourceWindow.Build", "25", "");
    VELT_NSWINDOW_APPEND(window, tabs);
    VELTS("window.bas", "SourceWindow.Build", "26", "");
    message = VELT_LABEL_INIT(id(this), "");
    VELTS("window.bas", "SourceWindow.Build", "27", "");
    VELT_NSVIEW_FRAME(message, newRect(10, 3, 600, 20));
    VELTS("window.bas", "SourceWindow.Build", "28", "");
    VELT_NSVIEW_AUTORESIZINGMASK(message, number(2));
    VELTS("window.bas", "SourceWindow.Build", "29", "");
    VELT_NSWINDOW_APPEND(window, message);
    VELTS("window.bas", "SourceWindow.Build", "30", "");
    position = VELT_LABEL_INIT(id(this), "");
    VELTS("window.bas", "SourceWindow.Build", "31", "");
    VELT_NSVIEW_FRAME(position, newRect(620, 3, 230, 20));
    VELTS("window.bas", "SourceWindow.Build", "32", "");
    VELT_NSVIEW_AUTORESIZINGMASK(position, number(1));
    VELTS("window.bas", "SourceWindow.Build", "33", "");
    VELT_NSCONTROL_ALIGNMENT(position, number(1));
    VELTS("window.bas", "SourceWindow.Build", "34", "");
    VELT_NSWINDOW_APPEND(window, position);
    VELTS("window.bas", "SourceWindow.Build", "35", "");
    VELT_NSWINDOW_DELEGATE(window, id(this));
    VELTS("window.bas", "SourceWindow.Build", "36", "");
    findSheet->build(id(this), search);
    VELTS("window.bas", "SourceWindow.Build", "37", "");
    preferences->owner = id(this);
    VELTS("window.bas", "SourceWindow.Build", "38", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(preferences, "initWithWindowNibName:"_v, "Preferences"_v);
    VELTS("window.bas", "SourceWindow.Build", "39", "");
    if (VELT_CBOOL(VELT_EQUAL(settings->frame, nil))) {
        VELTS("window.bas", "SourceWindow.Build", "40", "");
        VELT_NSWINDOW_CENTER(window);
    } else {
        VELTS("window.bas", "SourceWindow.Build", "42", "");
        VELT_NSWINDOW_FRAME(window, VELT_RECT_INIT(nil, "", VELT_NSARRAY_OBJECT(settings->frame, number(0)),
                                                   VELT_NSARRAY_OBJECT(settings->frame, number(1)),
                                                   VELT_NSARRAY_OBJECT(settings->frame, number(2)),
                                                   VELT_NSARRAY_OBJECT(settings->frame, number(3))));
    }
}

velt::Ref<Source> SourceWindow::current() {
    VELTS("window.bas", "SourceWindow.Current", "48", "");
    return toSource(VELT_PROPERTY(tabs, "selectedTabViewItem.identifier"_v));
}

velt::Ref<Source> SourceWindow::addSource() {
    VELTS("window.bas", "SourceWindow.AddSource", "52", "");
    velt::Ref<Source> added = velt::make<Source>();
    VELTS("window.bas", "SourceWindow.AddSource", "53", "");
    untitled = VELT__INTEGER(VELT_ADD(untitled, number(1)));
    VELTS("window.bas", "SourceWindow.AddSource", "54", "");
    added->title = VELT__STRING("Untitled"_v);
    VELTS("window.bas", "SourceWindow.AddSource", "55", "");
    if (VELT_CBOOL(VELT_GREATER(untitled, number(1))))
        added->title = VELT__STRING(VELT_CONCAT("Untitled "_v, VELT_CSTRING(untitled)));
    VELTS("window.bas", "SourceWindow.AddSource", "56", "");
    added->build(id(this), language, settings);
    VELTS("window.bas", "SourceWindow.AddSource", "57", "");
    VELT_NSMUTABLEARRAY_APPEND(sources, added);
    VELTS("window.bas", "SourceWindow.AddSource", "58", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(tabs, "addTabViewItem:"_v, added->item);
    VELTS("window.bas", "SourceWindow.AddSource", "59", "");
    return added;
}

void SourceWindow::removeSource(velt::Ref<Source> removed) {
    VELTS("window.bas", "SourceWindow.RemoveSource", "63", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(removed->view, "stopCompletionTimer"_v);
    VELTS("window.bas", "SourceWindow.RemoveSource", "64", "");
    VELT_NSMUTABLEARRAY_REMOVEOBJECT(sources, removed);
    VELTS("window.bas", "SourceWindow.RemoveSource", "65", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(tabs, "removeTabViewItem:"_v, removed->item);
    VELTS("window.bas", "SourceWindow.RemoveSource", "66", "");
    showSource(current());
}

void SourceWindow::showSource(velt::Ref<Source> shown) {
    VELTS("window.bas", "SourceWindow.ShowSource", "71", "");
    if (VELT_CBOOL(VELT_EQUAL(shown, nil))) return;
    VELTS("window.bas", "SourceWindow.ShowSource", "72", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(tabs, "selectTabViewItem:"_v, shown->item);
    VELTS("window.bas", "SourceWindow.ShowSource", "73", "");
    VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, shown->view);
    VELTS("window.bas", "SourceWindow.ShowSource", "74", "");
    refresh();
}

void SourceWindow::didSelectTab(id, id) {
    VELTS("window.bas", "SourceWindow.DidSelectTab", "78", "");
    say(VELT__STRING(""_v));
    VELTS("window.bas", "SourceWindow.DidSelectTab", "79", "");
    refresh();
}

void SourceWindow::refresh() {
    VELTS("window.bas", "SourceWindow.Refresh", "84", "");
    velt::Ref<Source> shown = current();
    VELTS("window.bas", "SourceWindow.Refresh", "85", "");
    if (VELT_CBOOL(VELT_EQUAL(shown, nil))) return;
    VELTS("window.bas", "SourceWindow.Refresh", "86", "");
    VELT_NSWINDOW_TITLE(window, shown->name());
    VELTS("window.bas", "SourceWindow.Refresh", "87", "");
    VELT_PROPERTY(window, "documentEdited"_v, shown->edited);
    VELTS("window.bas", "SourceWindow.Refresh", "88", "");
    VELT_NSCONTROL_STRINGVALUE(
        position, VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("Line "_v, VELT_CSTRING(shown->lineNumber())), ", column "_v),
                              VELT_CSTRING(shown->column())));
}

void SourceWindow::say(id what) {
    VELTS("window.bas", "SourceWindow.Say", "92", "");
    VELT_NSCONTROL_STRINGVALUE(message, what);
}

void SourceWindow::sourceChanged(id) {
    VELTS("window.bas", "SourceWindow.SourceChanged", "96", "");
    refresh();
}

void SourceWindow::sourceMoved(id moved) {
    VELTS("window.bas", "SourceWindow.SourceMoved", "100", "");
    if (VELT_CBOOL(VELT_EQUALEQUAL(moved, current()))) {
        VELTS("window.bas", "SourceWindow.SourceMoved", "101", "");
        say(VELT__STRING(""_v));
        VELTS("window.bas", "SourceWindow.SourceMoved", "102", "");
        refresh();
    }
}

void SourceWindow::settingsChanged(id) {
    VELTS("window.bas", "SourceWindow.SettingsChanged", "107", "");
    settings->adopt();
    VELTS("window.bas", "SourceWindow.SettingsChanged", "108", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(sources), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("window.bas", "SourceWindow.SettingsChanged", "109", "");
        toSource(VELT_NSMUTABLEARRAY_OBJECT(sources, i))->dress();
    }
}

void SourceWindow::sourceCommand(id sender) {
    VELTS("window.bas", "SourceWindow.SourceCommand", "115", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(current()->view, VELT_NSMENUITEM_REPRESENTEDOBJECT(sender));
}

void SourceWindow::toggleBreakpoint(id) {
    VELTS("window.bas", "SourceWindow.ToggleBreakpoint", "119", "");
    VELT_VLTEXTVIEW_TOGGLEBREAKPOINT(current()->view);
    VELTS("window.bas", "SourceWindow.ToggleBreakpoint", "120", "");
    id count = VELT__INTEGER(VELT_NSARRAY_COUNT(VELT_VLTEXTVIEW_BREAKPOINTS(current()->view)));
    VELTS("window.bas", "SourceWindow.ToggleBreakpoint", "121", "");
    if (VELT_CBOOL(VELT_EQUAL(count, number(1)))) {
        VELTS("window.bas", "SourceWindow.ToggleBreakpoint", "122", "");
        say(VELT__STRING("1 breakpoint."_v));
    } else {
        VELTS("window.bas", "SourceWindow.ToggleBreakpoint", "124", "");
        say(VELT__STRING(VELT_CONCAT(VELT_CSTRING(count), " breakpoints."_v)));
    }
}

void SourceWindow::showFind(id) {
    VELTS("window.bas", "SourceWindow.ShowFind", "130", "");
    findSheet->show(current()->view);
}

void SourceWindow::findNext(id) {
    VELTS("window.bas", "SourceWindow.FindNext", "134", "");
    report(VELT__BOOLEAN(search->findNext(current()->view)));
}

void SourceWindow::findPrevious(id) {
    VELTS("window.bas", "SourceWindow.FindPrevious", "138", "");
    report(VELT__BOOLEAN(search->findPrevious(current()->view)));
}

void SourceWindow::replaceOne(id) {
    VELTS("window.bas", "SourceWindow.ReplaceOne", "142", "");
    report(VELT__BOOLEAN(search->replaceOne(current()->view)));
}

void SourceWindow::replaceAll(id) {
    VELTS("window.bas", "SourceWindow.ReplaceAll", "146", "");
    replaced(search->replaceAll(current()->view));
}

void SourceWindow::report(id found) {
    VELTS("window.bas", "SourceWindow.Report", "150", "");
    if (VELT_CBOOL(found)) return;
    VELTS("window.bas", "SourceWindow.Report", "151", "");
    VELT_BEEP();
    VELTS("window.bas", "SourceWindow.Report", "152", "");
    say(VELT__STRING(VELT_CONCAT(VELT_CONCAT("“"_v, search->needle), "” was not found."_v)));
}

void SourceWindow::replaced(id count) {
    VELTS("window.bas", "SourceWindow.Replaced", "156", "");
    if (VELT_CBOOL(VELT_EQUAL(count, number(1)))) {
        VELTS("window.bas", "SourceWindow.Replaced", "157", "");
        say(VELT__STRING("1 occurrence replaced."_v));
    } else {
        VELTS("window.bas", "SourceWindow.Replaced", "159", "");
        say(VELT__STRING(VELT_CONCAT(VELT_CSTRING(count), " occurrences replaced."_v)));
    }
}

void SourceWindow::useSelection(id) {
    VELTS("window.bas", "SourceWindow.UseSelection", "164", "");
    search->needle = VELT__STRING(VELT_NSTEXTVIEW_SELECTEDTEXT(current()->view));
}

void SourceWindow::goToLine(id) {
    VELTS("window.bas", "SourceWindow.GoToLine", "168", "");
    id lines = VELT__INTEGER(VELT_ADD(
        VELT_COUNT(VELT_NSTEXTVIEW_VALUE(current()->view), VELT_CHARACTER(number(10)), boolean(true)), number(1)));
    VELTS("window.bas", "SourceWindow.GoToLine", "169", "");
    id answer =
        VELT_INPUTPANEL("Go to line"_v, VELT_CONCAT(VELT_CONCAT("A number from 1 to "_v, VELT_CSTRING(lines)), "."_v),
                        VELT_CSTRING(current()->lineNumber()));
    VELTS("window.bas", "SourceWindow.GoToLine", "170", "");
    if (VELT_CBOOL(VELT_EQUAL(answer, nil))) return;
    VELTS("window.bas", "SourceWindow.GoToLine", "171", "");
    id line = VELT__INTEGER(number(VELT_CINTEGER(VELT_TRIM(answer))));
    VELTS("window.bas", "SourceWindow.GoToLine", "172", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_GREATEREQUAL(line, number(1)), VELT_SMALLEREQUAL(line, lines)))) {
        VELTS("window.bas", "SourceWindow.GoToLine", "173", "");
        VELT_VLTEXTVIEW_GOTOLINE(current()->view, line);
    } else {
        VELTS("window.bas", "SourceWindow.GoToLine", "175", "");
        VELT_BEEP();
        VELTS("window.bas", "SourceWindow.GoToLine", "176", "");
        say(VELT__STRING(VELT_CONCAT(VELT_CONCAT("There is no line “"_v, answer), "”."_v)));
    }
}

void SourceWindow::biggerText(id) {
    VELTS("window.bas", "SourceWindow.BiggerText", "182", "");
    settings->setFontSize(VELT__DOUBLE(VELT_ADD(settings->fontSize, number(1))));
}

void SourceWindow::smallerText(id) {
    VELTS("window.bas", "SourceWindow.SmallerText", "186", "");
    settings->setFontSize(VELT__DOUBLE(VELT_SUB(settings->fontSize, number(1))));
}

void SourceWindow::showPreferences(id sender) {
    VELTS("window.bas", "SourceWindow.ShowPreferences", "190", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(preferences, "showWindow:"_v, sender);
}

void SourceWindow::nextTab(id) {
    VELTS("window.bas", "SourceWindow.NextTab", "195", "");
    goBy(number(1));
}

void SourceWindow::previousTab(id) {
    VELTS("window.bas", "SourceWindow.PreviousTab", "199", "");
    goBy(VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(sources), number(1)));
}

void SourceWindow::goBy(id tabCount) {
    VELTS("window.bas", "SourceWindow.GoBy", "203", "");
    id index = VELT__INTEGER(VELT_NSOBJECT_PERFORMSELECTOR1(tabs, "indexOfTabViewItem:"_v, current()->item));
    VELTS("window.bas", "SourceWindow.GoBy", "204", "");
    showSource(toSource(
        VELT_NSMUTABLEARRAY_OBJECT(sources, VELT_MOD(VELT_ADD(index, tabCount), VELT_NSMUTABLEARRAY_COUNT(sources)))));
}

void SourceWindow::printSource(id) {
    VELTS("window.bas", "SourceWindow.PrintSource", "208", "");
    velt::send(current()->view, "PrintShowingPrintPanel:::", "Editor"_v, current()->name(), boolean(true));
}

void SourceWindow::keepSettings() {
    VELTS("window.bas", "SourceWindow.KeepSettings", "212", "");
    id frame = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("window.bas", "SourceWindow.KeepSettings", "213", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_X(window));
    VELTS("window.bas", "SourceWindow.KeepSettings", "214", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_Y(window));
    VELTS("window.bas", "SourceWindow.KeepSettings", "215", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_WIDTH(window));
    VELTS("window.bas", "SourceWindow.KeepSettings", "216", "");
    VELT_NSMUTABLEARRAY_APPEND(frame, VELT_NSWINDOW_HEIGHT(window));
    VELTS("window.bas", "SourceWindow.KeepSettings", "217", "");
    settings->frame = VELT__NSARRAY(frame);
    VELTS("window.bas", "SourceWindow.KeepSettings", "218", "");
    settings->keep();
}

}  // namespace editor
