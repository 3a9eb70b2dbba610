// settings.bas: what a person set up.
#pragma once

#include "editor/values.h"

namespace editor {

class Settings : public NSObject {
    VELT_OBJECT(Settings, NSObject)

public:
    id fontSize = VELT_ID(12.0), formats = boolean(true), margin = boolean(true), completes = boolean(true);
    id recent = velt::make<NSMutableArray>(), frame;

    static void describe(velt::ClassBuilder<Settings>& c);
    void restore(id usual);
    void adopt();
    void keep();
    void remember(id path);
    void setFontSize(id size);
};

}  // namespace editor
