// preferences.bas: the window in which a person sets the editor up.
#pragma once

#include "editor/values.h"
#include "support/window_values.h"

namespace editor {

class Preferences : public VLPreferences {
    VELT_OBJECT(Preferences, VLPreferences)

public:
    id owner, panes = velt::make<NSMutableArray>(), size;

    static void describe(velt::ClassBuilder<Preferences>& c);
    id itemIdentifiers();
    id items();
    id defaults();
    void changed(id key);
    void buildText(id pane);
    void buildEditing(id pane);
    id addPane(id height);
    void addBox(id pane, id caption, id key, id y);
    void showSize();
    id closeIfKey();
};

}  // namespace editor
