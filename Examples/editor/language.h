// language.bas: what the editor knows of the language itself.
#pragma once

#include "editor/declarations.h"

namespace editor {

class Language : public NSObject {
    VELT_OBJECT(Language, NSObject)

public:
    id keywords = velt::make<NSMutableArray>(), builtins = velt::make<NSMutableArray>();
    id types = velt::make<NSMutableArray>();
    id functions = velt::make<NSMutableDictionary>(), members = velt::make<NSMutableDictionary>();

    static void describe(velt::ClassBuilder<Language>& c);
    void read(id folder);
    void readMember(id line);
    id linesOf(id path);
    id membersOf(id className);
    velt::Ref<Declaration> builtin(id name);
};

}  // namespace editor
