// window.bas: the window, and the commands that work on a source.
#pragma once

#include "editor/find_sheet.h"
#include "editor/preferences.h"
#include "editor/source.h"

namespace editor {

class SourceWindow : public NSObject {
    VELT_OBJECT(SourceWindow, NSObject)

public:
    id window, tabs, message, position, sources = velt::make<NSMutableArray>(), untitled = number(0);
    velt::Ref<Language> language = velt::make<Language>();
    velt::Ref<Settings> settings = velt::make<Settings>();
    velt::Ref<Search> search = velt::make<Search>();
    velt::Ref<FindSheet> findSheet = velt::make<FindSheet>();
    velt::Ref<Preferences> preferences = velt::make<Preferences>();

    static void describe(velt::ClassBuilder<SourceWindow>& c);
    void build();
    velt::Ref<Source> current();
    velt::Ref<Source> addSource();
    void removeSource(velt::Ref<Source> removed);
    void showSource(velt::Ref<Source> shown);
    void didSelectTab(id sender, id item);
    void refresh();
    void say(id what);

    void sourceChanged(id changed);
    void sourceMoved(id moved);
    void settingsChanged(id sender);
    void sourceCommand(id sender);
    void toggleBreakpoint(id sender);

    void showFind(id sender);
    void findNext(id sender);
    void findPrevious(id sender);
    void replaceOne(id sender);
    void replaceAll(id sender);
    void report(id found);
    void replaced(id count);
    void useSelection(id sender);
    void goToLine(id sender);

    void biggerText(id sender);
    void smallerText(id sender);
    void showPreferences(id sender);
    void nextTab(id sender);
    void previousTab(id sender);
    void goBy(id tabCount);
    void printSource(id sender);
    void keepSettings();
};

}  // namespace editor
