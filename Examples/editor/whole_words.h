// whole_words.bas: searching for whole words.
#pragma once

#include "editor/values.h"

namespace editor {

class WholeWords : public NSObject {
    VELT_OBJECT(WholeWords, NSObject)

public:
    id word = VELT__STRING(""_v);
    id respectsCase = VELT__BOOLEAN(boolean(true));
    id replacements = VELT__INTEGER(number(0));

    static void describe(velt::ClassBuilder<WholeWords>& c);
    id standsAlone(id text, id place);
    id nextPlace(id text, id from);
    id previousPlace(id text, id limit);
    id replaced(id text, id replacement);
};

}  // namespace editor
