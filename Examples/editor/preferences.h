// preferences.bas: the sheet in which a person sets the editor up.
#pragma once

#include "editor/settings.h"
#include "editor/window_values.h"

namespace editor {

class Preferences : public NSObject {
    VELT_OBJECT(Preferences, NSObject)

public:
    id owner, window, fontSizes, formats, margin;
    velt::Ref<Settings> settings;

    static void describe(velt::ClassBuilder<Preferences>& c);
    void build(id editor, velt::Ref<Settings> kept);
    id addBox(id caption, id y);
    void addButton(id caption, id action, id x, id key);
    void show();
    void done(id sender);
    void leave(id sender);
    void sheetDidEnd(id sheet, id code, id what);
};

}  // namespace editor
