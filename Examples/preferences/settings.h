// settings.bas: the reader's settings, and the window in which a person changes them.
#pragma once

#include "preferences/values.h"

namespace reader {

/// The colour that a setting is the parts of, and the parts of a colour.
id keptColor(id key);
id colorParts(id red, id green, id blue);

class ReaderPreferences : public VLPreferences {
    VELT_OBJECT(ReaderPreferences, VLPreferences)

public:
    id owner, panes = velt::make<NSMutableArray>();
    id name, size, textColor, paperColor;

    static void describe(velt::ClassBuilder<ReaderPreferences>& c);
    id itemIdentifiers();
    id items();
    id defaults();
    void changed(id key);

    void buildGeneral(id pane);
    void buildAppearance(id pane);
    void buildAdvanced(id pane);
    id addPane(id width, id height);
    void addCaption(id pane, id caption, id y);
    void addRow(id pane, id caption, id control, id y, id width);
    void addBox(id pane, id caption, id key, id y);
    void showValues();
    void controlTextDidChange(id notification);
    void takeColor(id well);
    void forget(id sender);
    id closeIfKey();
};

}  // namespace reader
