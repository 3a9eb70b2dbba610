// An open completion as programs see it.
#pragma once

#include "VELTRuntime/platform/object/class.h"

/// What a completion was opened with.
class VELT_EXPORT runningcompletion final : public NSObject {  // NOLINT(readability-identifier-naming)
    VELT_OBJECT(runningcompletion, NSObject)
public:
    bool as = false, members = false, arguments = false;
    NSRange typed;
    id candidates, view;

    static void describe(velt::ClassBuilder<runningcompletion>& c) {
        c.property("bAs", &runningcompletion::as)
            .property("bClass", &runningcompletion::members)
            .property("bBuiltin", &runningcompletion::arguments)
            .property("triggerRange", &runningcompletion::typed)
            .property("completionList", &runningcompletion::candidates)
            .property("textview", &runningcompletion::view);
    }
};
