// find_sheet.bas: the sheet that asks what to find.
#pragma once

#include "editor/search.h"

namespace editor {

class FindSheet : public NSObject {
    VELT_OBJECT(FindSheet, NSObject)

public:
    id owner, view, window, needle, replacement, ignoresCase, selectedOnly, wholeWords, message;
    velt::Ref<Search> search;

    static void describe(velt::ClassBuilder<FindSheet>& c);
    void build(id editor, velt::Ref<Search> sought);
    id addField(id caption, id y);
    id addBox(id caption, id x, id width);
    void addButton(id caption, id action, id x, id width, id key);
    void show(id shown);
    void take();
    void answer(id found);
    void findNext(id sender);
    void findPrevious(id sender);
    void replaceAll(id sender);
    void leave(id sender);
    void sheetDidEnd(id sheet, id code, id what);
};

}  // namespace editor
