// search.bas: what is sought, and the searches in a view.
#pragma once

#include "editor/whole_words.h"
#include "support/window_values.h"

namespace editor {

class Search : public NSObject {
    VELT_OBJECT(Search, NSObject)

public:
    id needle = VELT__STRING(""_v), replacement = VELT__STRING(""_v);
    id ignoresCase = boolean(true), selectedOnly = boolean(false), wholeWords = boolean(false);
    velt::Ref<WholeWords> words = velt::make<WholeWords>();

    static void describe(velt::ClassBuilder<Search>& c);
    void prepare(id view);
    id findNext(id view);
    id findPrevious(id view);
    id choose(id view, id place);
    id isFound(id view);
    id replaceOne(id view);
    id replaceAll(id view);
};

}  // namespace editor
