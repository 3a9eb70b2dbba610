// declarations.bas: the names that a source declares.
#pragma once

#include "editor/source_text.h"

namespace editor {

/// A name with what is known of it. A class has a parent; so has a variable of a routine, which begins with the
/// routine.
class Declaration : public NSObject {
    VELT_OBJECT(Declaration, NSObject)

public:
    id name = VELT__STRING(""_v), parameters = VELT__STRING(""_v), typeName = VELT__STRING(""_v);
    id kind = VELT__STRING(""_v), owner = VELT__STRING(""_v), parent = VELT__STRING(""_v);
    id firstLine = number(0), lastLine = number(0);

    static void describe(velt::ClassBuilder<Declaration>& c);
    void read(id text);
    id choice();
    id signature();
};

velt::Ref<Declaration> toDeclaration(const id& value);

class Declarations : public NSObject {
    VELT_OBJECT(Declarations, NSObject)

public:
    id all = velt::make<NSMutableArray>();
    velt::Ref<Declaration> classNow, routineNow;

    static void describe(velt::ClassBuilder<Declarations>& c);
    void read(id text);
    void readLine(id line, id lineNumber);
    id beginsRoutine(id word);
    void beginClass(id rest, id lineNumber);
    void beginRoutine(id rest, id lineNumber);
    void endBlock(id word, id lineNumber);
    void readVariables(id text, id lineNumber);
    void addVariables(id text, id lineNumber);
    void addVariable(id text, id lineNumber);
    velt::Ref<Declaration> around(id kind, id line);
    id visibleIn(id line);
    velt::Ref<Declaration> named(id name, id line);
    id membersOf(id className);
    velt::Ref<Declaration> classNamed(id className);
};

}  // namespace editor
