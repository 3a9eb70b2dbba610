// declarations.bas as the translator writes it.
#include "editor/declarations.h"

namespace editor {

velt::Ref<Declaration> toDeclaration(const id& value) { return velt::Ref<Declaration>(velt::to<Declaration>(value)); }

void Declaration::describe(velt::ClassBuilder<Declaration>& c) {
    c.property("name", &Declaration::name)
        .property("parameters", &Declaration::parameters)
        .property("typeName", &Declaration::typeName)
        .property("kind", &Declaration::kind)
        .property("owner", &Declaration::owner)
        .property("parent", &Declaration::parent)
        .property("firstLine", &Declaration::firstLine)
        .property("lastLine", &Declaration::lastLine)
        .method("choice", &Declaration::choice)
        .method("signature", &Declaration::signature);
}

void Declaration::read(id text) {
    VELTS("declarations.bas", "Declaration.Read", "15", "");
    name = VELT__STRING(firstWord(VELT__STRING(text)));
    VELTS("declarations.bas", "Declaration.Read", "16", "");
    id rest = VELT__STRING(VELT_TRIM(VELT_MID(text, VELT_LEN(name), number(-1))));
    VELTS("declarations.bas", "Declaration.Read", "17", "");
    if (VELT_CBOOL(VELT_STARTSWITH(rest, "("_v, boolean(true)))) {
        VELTS("declarations.bas", "Declaration.Read", "18", "");
        id close = VELT__INTEGER(VELT_INSTR(rest, ")"_v, number(0), boolean(true)));
        VELTS("declarations.bas", "Declaration.Read", "19", "");
        if (VELT_CBOOL(VELT_SMALLER(close, number(0)))) close = VELT__INTEGER(VELT_SUB(VELT_LEN(rest), number(1)));
        VELTS("declarations.bas", "Declaration.Read", "20", "");
        parameters = VELT__STRING(VELT_LEFT(rest, VELT_ADD(close, number(1))));
        VELTS("declarations.bas", "Declaration.Read", "21", "");
        rest = VELT__STRING(VELT_TRIM(VELT_MID(rest, VELT_ADD(close, number(1)), number(-1))));
    }
    VELTS("declarations.bas", "Declaration.Read", "23", "");
    if (VELT_CBOOL(VELT_NOT(VELT_STARTSWITH(rest, "as "_v, boolean(false))))) return;
    VELTS("declarations.bas", "Declaration.Read", "24", "");
    rest = VELT__STRING(VELT_TRIM(VELT_MID(rest, number(3), number(-1))));
    VELTS("declarations.bas", "Declaration.Read", "25", "");
    if (VELT_CBOOL(VELT_STARTSWITH(rest, "new "_v, boolean(false))))
        rest = VELT__STRING(VELT_TRIM(VELT_MID(rest, number(4), number(-1))));
    VELTS("declarations.bas", "Declaration.Read", "26", "");
    typeName = VELT__STRING(firstWord(VELT__STRING(rest)));
}

id Declaration::choice() {
    VELTS("declarations.bas", "Declaration.Choice", "31", "");
    return VELT__STRING(VELT_CONCAT(name, parameters));
}

id Declaration::signature() {
    VELTS("declarations.bas", "Declaration.Signature", "36", "");
    if (VELT_CBOOL(VELT_EQUAL(typeName, ""_v))) return VELT__STRING(VELT_CONCAT(name, parameters));
    VELTS("declarations.bas", "Declaration.Signature", "37", "");
    return VELT__STRING(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(name, parameters), " As "_v), typeName));
}

void Declarations::describe(velt::ClassBuilder<Declarations>& c) {
    c.property("all", &Declarations::all).owns(&Declarations::classNow).owns(&Declarations::routineNow);
}

void Declarations::read(id text) {
    VELTS("declarations.bas", "Declarations.Read", "47", "");
    all = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("declarations.bas", "Declarations.Read", "48", "");
    classNow = nullptr;
    VELTS("declarations.bas", "Declarations.Read", "49", "");
    routineNow = nullptr;
    VELTS("declarations.bas", "Declarations.Read", "50", "");
    id lines = VELT__NSMUTABLEARRAY(VELT_SPLIT(text, VELT_CHARACTER(number(10))));
    VELTS("declarations.bas", "Declarations.Read", "51", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("declarations.bas", "Declarations.Read", "52", "");
        readLine(VELT__STRING(VELT_TRIM(withoutComment(VELT__STRING(VELT_REPLACE(
                     VELT_NSMUTABLEARRAY_OBJECT(lines, i), VELT_CHARACTER(number(13)), ""_v, boolean(true)))))),
                 VELT__INTEGER(VELT_ADD(i, number(1))));
    }
}

void Declarations::readLine(id line, id lineNumber) {
    VELTS("declarations.bas", "Declarations.ReadLine", "57", "");
    id word = VELT__STRING(VELT_LCASE(firstWord(VELT__STRING(line))));
    VELTS("declarations.bas", "Declarations.ReadLine", "58", "");
    if (VELT_CBOOL(VELT_EQUAL(word, ""_v))) return;
    VELTS("declarations.bas", "Declarations.ReadLine", "59", "");
    id rest = VELT__STRING(VELT_TRIM(VELT_MID(line, VELT_LEN(word), number(-1))));
    VELTS("declarations.bas", "Declarations.ReadLine", "60", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_ORELSE(VELT_EQUAL(word, "public"_v), VELT_EQUAL(word, "private"_v)),
                               VELT_EQUAL(word, "shared"_v)))) {
        VELTS("declarations.bas", "Declarations.ReadLine", "61", "");
        readLine(VELT__STRING(rest), VELT__INTEGER(lineNumber));
    } else if (VELTS("declarations.bas", "Declarations.ReadLine", "62", ""), VELT_CBOOL(VELT_EQUAL(word, "class"_v))) {
        VELTS("declarations.bas", "Declarations.ReadLine", "63", "");
        beginClass(VELT__STRING(rest), VELT__INTEGER(lineNumber));
    } else if (VELTS("declarations.bas", "Declarations.ReadLine", "64", ""), VELT_CBOOL(VELT_EQUAL(word, "end"_v))) {
        VELTS("declarations.bas", "Declarations.ReadLine", "65", "");
        endBlock(VELT__STRING(VELT_LCASE(firstWord(VELT__STRING(rest)))), VELT__INTEGER(lineNumber));
    } else if (VELTS("declarations.bas", "Declarations.ReadLine", "66", ""),
               VELT_CBOOL(beginsRoutine(VELT__STRING(word)))) {
        VELTS("declarations.bas", "Declarations.ReadLine", "67", "");
        beginRoutine(VELT__STRING(rest), VELT__INTEGER(lineNumber));
    } else if (VELTS("declarations.bas", "Declarations.ReadLine", "68", ""),
               VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(word, "dim"_v), VELT_EQUAL(word, "const"_v)))) {
        VELTS("declarations.bas", "Declarations.ReadLine", "69", "");
        readVariables(VELT__STRING(rest), VELT__INTEGER(lineNumber));
    } else if (VELTS("declarations.bas", "Declarations.ReadLine", "70", ""),
               VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(word, "for"_v), VELT_EQUAL(word, "catch"_v)))) {
        VELTS("declarations.bas", "Declarations.ReadLine", "71", "");
        if (VELT_CBOOL(VELT_STARTSWITH(rest, "each "_v, boolean(false))))
            rest = VELT__STRING(VELT_TRIM(VELT_MID(rest, number(5), number(-1))));
        VELTS("declarations.bas", "Declarations.ReadLine", "72", "");
        if (VELT_CBOOL(VELT_UNEQUAL(firstWord(VELT__STRING(rest)), ""_v)))
            addVariable(VELT__STRING(rest), VELT__INTEGER(lineNumber));
    }
}

id Declarations::beginsRoutine(id word) {
    VELTS("declarations.bas", "Declarations.BeginsRoutine", "77", "");
    return VELT__BOOLEAN(VELT_CONTAINS(" sub function action ibaction iboutlet property event delegate "_v,
                                       VELT_CONCAT(VELT_CONCAT(" "_v, word), " "_v), boolean(true)));
}

void Declarations::beginClass(id rest, id lineNumber) {
    VELTS("declarations.bas", "Declarations.BeginClass", "81", "");
    velt::Ref<Declaration> declared = velt::make<Declaration>();
    VELTS("declarations.bas", "Declarations.BeginClass", "82", "");
    declared->read(VELT__STRING(rest));
    VELTS("declarations.bas", "Declarations.BeginClass", "83", "");
    declared->kind = VELT__STRING("class"_v);
    VELTS("declarations.bas", "Declarations.BeginClass", "84", "");
    declared->firstLine = VELT__INTEGER(lineNumber);
    VELTS("declarations.bas", "Declarations.BeginClass", "85", "");
    declared->lastLine = VELT__INTEGER(number(2147483647));
    VELTS("declarations.bas", "Declarations.BeginClass", "86", "");
    id marker = VELT__INTEGER(VELT_INSTR(rest, " inherits "_v, number(0), boolean(false)));
    VELTS("declarations.bas", "Declarations.BeginClass", "87", "");
    if (VELT_CBOOL(VELT_GREATEREQUAL(marker, number(0))))
        declared->parent =
            VELT__STRING(firstWord(VELT__STRING(VELT_TRIM(VELT_MID(rest, VELT_ADD(marker, number(10)), number(-1))))));
    VELTS("declarations.bas", "Declarations.BeginClass", "88", "");
    VELT_NSMUTABLEARRAY_APPEND(all, declared);
    VELTS("declarations.bas", "Declarations.BeginClass", "89", "");
    classNow = declared;
    VELTS("declarations.bas", "Declarations.BeginClass", "90", "");
    routineNow = nullptr;
}

void Declarations::beginRoutine(id rest, id lineNumber) {
    VELTS("declarations.bas", "Declarations.BeginRoutine", "94", "");
    velt::Ref<Declaration> declared = velt::make<Declaration>();
    VELTS("declarations.bas", "Declarations.BeginRoutine", "95", "");
    declared->read(VELT__STRING(rest));
    VELTS("declarations.bas", "Declarations.BeginRoutine", "96", "");
    if (VELT_CBOOL(VELT_EQUAL(declared->name, ""_v))) return;
    VELTS("declarations.bas", "Declarations.BeginRoutine", "97", "");
    if (VELT_CBOOL(VELT_EQUAL(declared->parameters, ""_v))) declared->parameters = VELT__STRING("()"_v);
    VELTS("declarations.bas", "Declarations.BeginRoutine", "98", "");
    declared->kind = VELT__STRING("routine"_v);
    VELTS("declarations.bas", "Declarations.BeginRoutine", "99", "");
    declared->firstLine = VELT__INTEGER(lineNumber);
    VELTS("declarations.bas", "Declarations.BeginRoutine", "100", "");
    declared->lastLine = VELT__INTEGER(number(2147483647));
    VELTS("declarations.bas", "Declarations.BeginRoutine", "101", "");
    if (VELT_CBOOL(VELT_UNEQUAL(classNow, nil))) declared->owner = VELT__STRING(classNow->name);
    VELTS("declarations.bas", "Declarations.BeginRoutine", "102", "");
    VELT_NSMUTABLEARRAY_APPEND(all, declared);
    VELTS("declarations.bas", "Declarations.BeginRoutine", "103", "");
    routineNow = declared;
    VELTS("declarations.bas", "Declarations.BeginRoutine", "104", "");
    addVariables(
        VELT__STRING(VELT_MID(declared->parameters, number(1), VELT_SUB(VELT_LEN(declared->parameters), number(2)))),
        VELT__INTEGER(lineNumber));
}

void Declarations::endBlock(id word, id lineNumber) {
    VELTS("declarations.bas", "Declarations.EndBlock", "108", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_EQUAL(word, "class"_v), VELT_UNEQUAL(classNow, nil)))) {
        VELTS("declarations.bas", "Declarations.EndBlock", "109", "");
        classNow->lastLine = VELT__INTEGER(lineNumber);
        VELTS("declarations.bas", "Declarations.EndBlock", "110", "");
        classNow = nullptr;
        VELTS("declarations.bas", "Declarations.EndBlock", "111", "");
        routineNow = nullptr;
    } else if (VELTS("declarations.bas", "Declarations.EndBlock", "112", ""),
               VELT_CBOOL(VELT_ANDALSO(beginsRoutine(VELT__STRING(word)), VELT_UNEQUAL(routineNow, nil)))) {
        VELTS("declarations.bas", "Declarations.EndBlock", "113", "");
        routineNow->lastLine = VELT__INTEGER(lineNumber);
        VELTS("declarations.bas", "Declarations.EndBlock", "114", "");
        routineNow = nullptr;
    }
}

void Declarations::readVariables(id text, id lineNumber) {
    VELTS("declarations.bas", "Declarations.ReadVariables", "120", "");
    id equals = VELT__INTEGER(VELT_INSTR(text, "="_v, number(0), boolean(true)));
    VELTS("declarations.bas", "Declarations.ReadVariables", "121", "");
    if (VELT_CBOOL(VELT_GREATEREQUAL(equals, number(0)))) text = VELT__STRING(VELT_LEFT(text, equals));
    VELTS("declarations.bas", "Declarations.ReadVariables", "122", "");
    addVariables(VELT__STRING(text), VELT__INTEGER(lineNumber));
}

void Declarations::addVariables(id text, id lineNumber) {
    VELTS("declarations.bas", "Declarations.AddVariables", "127", "");
    id pieces = VELT__NSMUTABLEARRAY(VELT_SPLIT(text, ","_v));
    VELTS("declarations.bas", "Declarations.AddVariables", "128", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(pieces), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("declarations.bas", "Declarations.AddVariables", "129", "");
        addVariable(VELT__STRING(VELT_TRIM(VELT_NSMUTABLEARRAY_OBJECT(pieces, i))), VELT__INTEGER(lineNumber));
    }
}

void Declarations::addVariable(id text, id lineNumber) {
    VELTS("declarations.bas", "Declarations.AddVariable", "134", "");
    id word = VELT__STRING(VELT_LCASE(firstWord(VELT__STRING(text))));
    VELTS("declarations.bas", "Declarations.AddVariable", "135", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_ORELSE(VELT_EQUAL(word, "byval"_v), VELT_EQUAL(word, "byref"_v)),
                               VELT_EQUAL(word, "optional"_v))))
        text = VELT__STRING(VELT_TRIM(VELT_MID(text, VELT_LEN(word), number(-1))));
    VELTS("declarations.bas", "Declarations.AddVariable", "136", "");
    velt::Ref<Declaration> declared = velt::make<Declaration>();
    VELTS("declarations.bas", "Declarations.AddVariable", "137", "");
    declared->read(VELT__STRING(text));
    VELTS("declarations.bas", "Declarations.AddVariable", "138", "");
    if (VELT_CBOOL(VELT_EQUAL(declared->name, ""_v))) return;
    VELTS("declarations.bas", "Declarations.AddVariable", "139", "");
    declared->parameters = VELT__STRING(""_v);
    VELTS("declarations.bas", "Declarations.AddVariable", "140", "");
    declared->kind = VELT__STRING("variable"_v);
    VELTS("declarations.bas", "Declarations.AddVariable", "141", "");
    declared->firstLine = VELT__INTEGER(lineNumber);
    VELTS("declarations.bas", "Declarations.AddVariable", "142", "");
    if (VELT_CBOOL(VELT_UNEQUAL(routineNow, nil))) {
        VELTS("declarations.bas", "Declarations.AddVariable", "143", "");
        declared->parent = VELT__STRING(routineNow->name);
        VELTS("declarations.bas", "Declarations.AddVariable", "144", "");
        declared->firstLine = VELT__INTEGER(routineNow->firstLine);
    } else if (VELTS("declarations.bas", "Declarations.AddVariable", "145", ""),
               VELT_CBOOL(VELT_UNEQUAL(classNow, nil))) {
        VELTS("declarations.bas", "Declarations.AddVariable", "146", "");
        declared->owner = VELT__STRING(classNow->name);
    }
    VELTS("declarations.bas", "Declarations.AddVariable", "148", "");
    VELT_NSMUTABLEARRAY_APPEND(all, declared);
}

velt::Ref<Declaration> Declarations::around(id kind, id line) {
    VELTS("declarations.bas", "Declarations.Around", "153", "");
    velt::Ref<Declaration> found = nullptr;
    VELTS("declarations.bas", "Declarations.Around", "154", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(all), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("declarations.bas", "Declarations.Around", "155", "");
        velt::Ref<Declaration> declared = toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(all, i));
        VELTS("declarations.bas", "Declarations.Around", "156", "");
        if (VELT_CBOOL(VELT_ANDALSO(
                VELT_ANDALSO(VELT_EQUAL(declared->kind, kind), VELT_SMALLEREQUAL(declared->firstLine, line)),
                VELT_SMALLEREQUAL(line, declared->lastLine))))
            found = declared;
    }
    VELTS("declarations.bas", "Declarations.Around", "158", "");
    return found;
}

id Declarations::visibleIn(id line) {
    VELTS("declarations.bas", "Declarations.VisibleIn", "163", "");
    id found = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("declarations.bas", "Declarations.VisibleIn", "164", "");
    velt::Ref<Declaration> routine = around(VELT__STRING("routine"_v), VELT__INTEGER(line));
    VELTS("declarations.bas", "Declarations.VisibleIn", "165", "");
    velt::Ref<Declaration> within = around(VELT__STRING("class"_v), VELT__INTEGER(line));
    VELTS("declarations.bas", "Declarations.VisibleIn", "166", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(all), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("declarations.bas", "Declarations.VisibleIn", "167", "");
        velt::Ref<Declaration> declared = toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(all, i));
        VELTS("declarations.bas", "Declarations.VisibleIn", "168", "");
        id seen = VELT__BOOLEAN(VELT_EQUAL(declared->owner, ""_v));
        VELTS("declarations.bas", "Declarations.VisibleIn", "169", "");
        if (VELT_CBOOL(VELT_ANDALSO(VELT_EQUAL(declared->kind, "variable"_v), VELT_UNEQUAL(declared->parent, ""_v)))) {
            VELTS("declarations.bas", "Declarations.VisibleIn", "170", "");
            seen = VELT__BOOLEAN(boolean(false));
            VELTS("declarations.bas", "Declarations.VisibleIn", "171", "");
            if (VELT_CBOOL(VELT_UNEQUAL(routine, nil)))
                seen = VELT__BOOLEAN(VELT_EQUAL(declared->firstLine, routine->firstLine));
        } else if (VELTS("declarations.bas", "Declarations.VisibleIn", "172", ""),
                   VELT_CBOOL(VELT_UNEQUAL(within, nil))) {
            VELTS("declarations.bas", "Declarations.VisibleIn", "173", "");
            if (VELT_CBOOL(VELT_EQUAL(declared->owner, within->name))) seen = VELT__BOOLEAN(boolean(true));
        }
        VELTS("declarations.bas", "Declarations.VisibleIn", "175", "");
        if (VELT_CBOOL(seen)) VELT_NSMUTABLEARRAY_APPEND(found, declared);
    }
    VELTS("declarations.bas", "Declarations.VisibleIn", "177", "");
    return VELT__NSMUTABLEARRAY(found);
}

velt::Ref<Declaration> Declarations::named(id name, id line) {
    VELTS("declarations.bas", "Declarations.Named", "182", "");
    id seen = VELT__NSMUTABLEARRAY(visibleIn(VELT__INTEGER(line)));
    VELTS("declarations.bas", "Declarations.Named", "183", "");
    velt::Ref<Declaration> found = nullptr;
    VELTS("declarations.bas", "Declarations.Named", "184", "");
    id nearest = VELT__INTEGER(number(-1));
    VELTS("declarations.bas", "Declarations.Named", "185", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(seen), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("declarations.bas", "Declarations.Named", "186", "");
        velt::Ref<Declaration> declared = toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(seen, i));
        VELTS("declarations.bas", "Declarations.Named", "187", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_LCASE(declared->name), VELT_LCASE(name)))) {
            VELTS("declarations.bas", "Declarations.Named", "188", "");
            id nearness = VELT__INTEGER(number(0));
            VELTS("declarations.bas", "Declarations.Named", "189", "");
            if (VELT_CBOOL(VELT_UNEQUAL(declared->owner, ""_v))) nearness = VELT__INTEGER(number(1));
            VELTS("declarations.bas", "Declarations.Named", "190", "");
            if (VELT_CBOOL(
                    VELT_ANDALSO(VELT_EQUAL(declared->kind, "variable"_v), VELT_UNEQUAL(declared->parent, ""_v))))
                nearness = VELT__INTEGER(number(2));
            VELTS("declarations.bas", "Declarations.Named", "191", "");
            if (VELT_CBOOL(VELT_GREATER(nearness, nearest))) {
                VELTS("declarations.bas", "Declarations.Named", "192", "");
                found = declared;
                VELTS("declarations.bas", "Declarations.Named", "193", "");
                nearest = VELT__INTEGER(nearness);
            }
        }
    }
    VELTS("declarations.bas", "Declarations.Named", "197", "");
    return found;
}

id Declarations::membersOf(id className) {
    VELTS("declarations.bas", "Declarations.MembersOf", "202", "");
    id found = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("declarations.bas", "Declarations.MembersOf", "203", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(all), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("declarations.bas", "Declarations.MembersOf", "204", "");
        velt::Ref<Declaration> declared = toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(all, i));
        VELTS("declarations.bas", "Declarations.MembersOf", "205", "");
        if (VELT_CBOOL(VELT_ANDALSO(VELT_UNEQUAL(declared->owner, ""_v),
                                    VELT_EQUAL(VELT_LCASE(declared->owner), VELT_LCASE(className)))))
            VELT_NSMUTABLEARRAY_APPEND(found, declared);
    }
    VELTS("declarations.bas", "Declarations.MembersOf", "207", "");
    return VELT__NSMUTABLEARRAY(found);
}

velt::Ref<Declaration> Declarations::classNamed(id className) {
    VELTS("declarations.bas", "Declarations.ClassNamed", "212", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(all), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("declarations.bas", "Declarations.ClassNamed", "213", "");
        velt::Ref<Declaration> declared = toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(all, i));
        VELTS("declarations.bas", "Declarations.ClassNamed", "214", "");
        if (VELT_CBOOL(VELT_ANDALSO(VELT_EQUAL(declared->kind, "class"_v),
                                    VELT_EQUAL(VELT_LCASE(declared->name), VELT_LCASE(className)))))
            return declared;
    }
    VELTS("declarations.bas", "Declarations.ClassNamed", "216", "");
    return nullptr;
}

}  // namespace editor
