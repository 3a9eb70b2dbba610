// assistant.bas: what is offered while somebody types.
#pragma once

#include "editor/language.h"

namespace editor {

class Assistant : public NSObject {
    VELT_OBJECT(Assistant, NSObject)

public:
    velt::Ref<Language> language;
    velt::Ref<Declarations> source = velt::make<Declarations>();

    static void describe(velt::ClassBuilder<Assistant>& c);
    id choices(id expression, id line);
    id allNames(id line);
    void appendAll(id list, id added);
    void appendClasses(id list);
    id signature(id expression, id line);
    velt::Ref<Declaration> meant(id expression, id line);
    id lastDot(id expression);
    id typeOf(id expression, id line);
    id membersOf(id typeName);
    velt::Ref<Declaration> memberNamed(id name, id typeName);
};

}  // namespace editor
