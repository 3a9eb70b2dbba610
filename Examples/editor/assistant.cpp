// assistant.bas as the translator writes it.
#include "editor/assistant.h"

namespace editor {

void Assistant::describe(velt::ClassBuilder<Assistant>& c) { c.owns(&Assistant::language).owns(&Assistant::source); }

id Assistant::choices(id expression, id line) {
    VELTS("assistant.bas", "Assistant.Choices", "12", "");
    if (VELT_CBOOL(VELT_EQUAL(expression, "!§$%&/()=?"_v))) return VELT__NSMUTABLEARRAY(allNames(VELT__INTEGER(line)));
    VELTS("assistant.bas", "Assistant.Choices", "13", "");
    id members = VELT__NSMUTABLEARRAY(membersOf(VELT__STRING(typeOf(VELT__STRING(expression), VELT__INTEGER(line)))));
    VELTS("assistant.bas", "Assistant.Choices", "14", "");
    id found = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("assistant.bas", "Assistant.Choices", "15", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(members), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("assistant.bas", "Assistant.Choices", "16", "");
        VELT_NSMUTABLEARRAY_APPEND(found, toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(members, i))->choice());
    }
    VELTS("assistant.bas", "Assistant.Choices", "18", "");
    return VELT__NSMUTABLEARRAY(found);
}

id Assistant::allNames(id line) {
    VELTS("assistant.bas", "Assistant.AllNames", "23", "");
    id found = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("assistant.bas", "Assistant.AllNames", "24", "");
    id seen = VELT__NSMUTABLEARRAY(source->visibleIn(VELT__INTEGER(line)));
    VELTS("assistant.bas", "Assistant.AllNames", "25", "");
    const id lastSeen = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(seen), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, lastSeen)); i = VELT_ADD(i, number(1))) {
        VELTS("assistant.bas", "Assistant.AllNames", "26", "");
        VELT_NSMUTABLEARRAY_APPEND(found, toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(seen, i))->choice());
    }
    VELTS("assistant.bas", "Assistant.AllNames", "28", "");
    const id lastBuiltin = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(language->builtins), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, lastBuiltin)); i = VELT_ADD(i, number(1))) {
        VELTS("assistant.bas", "Assistant.AllNames", "29", "");
        velt::Ref<Declaration> builtin =
            language->builtin(VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(language->builtins, i)));
        VELTS("assistant.bas", "Assistant.AllNames", "30", "");
        if (VELT_CBOOL(VELT_UNEQUAL(builtin, nil))) VELT_NSMUTABLEARRAY_APPEND(found, builtin->choice());
    }
    VELTS("assistant.bas", "Assistant.AllNames", "32", "");
    appendAll(found, language->types);
    VELTS("assistant.bas", "Assistant.AllNames", "33", "");
    appendAll(found, language->keywords);
    VELTS("assistant.bas", "Assistant.AllNames", "34", "");
    return VELT__NSMUTABLEARRAY(found);
}

void Assistant::appendAll(id list, id added) {
    VELTS("assistant.bas", "Assistant.AppendAll", "38", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(added), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("assistant.bas", "Assistant.AppendAll", "39", "");
        VELT_NSMUTABLEARRAY_APPEND(list, VELT_NSMUTABLEARRAY_OBJECT(added, i));
    }
}

void Assistant::appendClasses(id list) {
    VELTS("assistant.bas", "Assistant.AppendClasses", "44", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(source->all), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("assistant.bas", "Assistant.AppendClasses", "45", "");
        if (VELT_CBOOL(VELT_EQUAL(toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(source->all, i))->kind, "class"_v)))
            VELT_NSMUTABLEARRAY_APPEND(list, toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(source->all, i))->name);
    }
}

id Assistant::signature(id expression, id line) {
    VELTS("assistant.bas", "Assistant.Signature", "51", "");
    velt::Ref<Declaration> declared = meant(VELT__STRING(expression), VELT__INTEGER(line));
    VELTS("assistant.bas", "Assistant.Signature", "52", "");
    if (VELT_CBOOL(VELT_EQUAL(declared, nil))) return VELT__STRING(""_v);
    VELTS("assistant.bas", "Assistant.Signature", "53", "");
    if (VELT_CBOOL(VELT_EQUAL(declared->parameters, ""_v))) return VELT__STRING(""_v);
    VELTS("assistant.bas", "Assistant.Signature", "54", "");
    return VELT__STRING(declared->signature());
}

velt::Ref<Declaration> Assistant::meant(id expression, id line) {
    VELTS("assistant.bas", "Assistant.Meant", "59", "");
    id dot = VELT__INTEGER(lastDot(VELT__STRING(expression)));
    VELTS("assistant.bas", "Assistant.Meant", "60", "");
    id name = VELT__STRING(firstWord(VELT__STRING(VELT_MID(expression, VELT_ADD(dot, number(1)), number(-1)))));
    VELTS("assistant.bas", "Assistant.Meant", "61", "");
    if (VELT_CBOOL(VELT_EQUAL(name, ""_v))) return nullptr;
    VELTS("assistant.bas", "Assistant.Meant", "62", "");
    if (VELT_CBOOL(VELT_GREATEREQUAL(dot, number(0))))
        return memberNamed(VELT__STRING(name),
                           VELT__STRING(typeOf(VELT__STRING(VELT_LEFT(expression, dot)), VELT__INTEGER(line))));
    VELTS("assistant.bas", "Assistant.Meant", "63", "");
    velt::Ref<Declaration> declared = source->named(VELT__STRING(name), VELT__INTEGER(line));
    VELTS("assistant.bas", "Assistant.Meant", "64", "");
    if (VELT_CBOOL(VELT_UNEQUAL(declared, nil))) return declared;
    VELTS("assistant.bas", "Assistant.Meant", "65", "");
    return language->builtin(VELT__STRING(name));
}

id Assistant::lastDot(id expression) {
    VELTS("assistant.bas", "Assistant.LastDot", "70", "");
    id depth = VELT__INTEGER(number(0));
    VELTS("assistant.bas", "Assistant.LastDot", "71", "");
    const id first = VELT_SUB(VELT_LEN(expression), number(1));
    for (id i = first; VELT_CBOOL(VELT_GREATEREQUAL(i, number(0))); i = VELT_SUB(i, number(1))) {
        VELTS("assistant.bas", "Assistant.LastDot", "72", "");
        id unit = VELT__STRING(VELT_AT(expression, i));
        VELTS("assistant.bas", "Assistant.LastDot", "73", "");
        if (VELT_CBOOL(VELT_EQUAL(unit, ")"_v))) depth = VELT__INTEGER(VELT_ADD(depth, number(1)));
        VELTS("assistant.bas", "Assistant.LastDot", "74", "");
        if (VELT_CBOOL(VELT_EQUAL(unit, "("_v))) depth = VELT__INTEGER(VELT_SUB(depth, number(1)));
        VELTS("assistant.bas", "Assistant.LastDot", "75", "");
        if (VELT_CBOOL(VELT_ANDALSO(VELT_EQUAL(unit, "."_v), VELT_EQUAL(depth, number(0))))) return VELT__INTEGER(i);
    }
    VELTS("assistant.bas", "Assistant.LastDot", "77", "");
    return VELT__INTEGER(number(-1));
}

id Assistant::typeOf(id expression, id line) {
    VELTS("assistant.bas", "Assistant.TypeOf", "82", "");
    velt::Ref<Declaration> within = source->around(VELT__STRING("class"_v), VELT__INTEGER(line));
    VELTS("assistant.bas", "Assistant.TypeOf", "83", "");
    if (VELT_CBOOL(VELT_UNEQUAL(within, nil))) {
        VELTS("assistant.bas", "Assistant.TypeOf", "84", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_LCASE(expression), "me"_v))) return VELT__STRING(within->name);
        VELTS("assistant.bas", "Assistant.TypeOf", "85", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_LCASE(expression), "mybase"_v))) return VELT__STRING(within->parent);
    }
    VELTS("assistant.bas", "Assistant.TypeOf", "87", "");
    velt::Ref<Declaration> declared = meant(VELT__STRING(expression), VELT__INTEGER(line));
    VELTS("assistant.bas", "Assistant.TypeOf", "88", "");
    if (VELT_CBOOL(VELT_EQUAL(declared, nil))) {
        VELTS("assistant.bas", "Assistant.TypeOf", "89", "");
        if (VELT_CBOOL(VELT_GREATEREQUAL(lastDot(VELT__STRING(expression)), number(0)))) return VELT__STRING(""_v);
        VELTS("assistant.bas", "Assistant.TypeOf", "90", "");
        return VELT__STRING(firstWord(VELT__STRING(expression)));
    }
    VELTS("assistant.bas", "Assistant.TypeOf", "92", "");
    if (VELT_CBOOL(VELT_EQUAL(declared->kind, "class"_v))) return VELT__STRING(declared->name);
    VELTS("assistant.bas", "Assistant.TypeOf", "93", "");
    if (VELT_CBOOL(
            VELT_ANDALSO(VELT_ENDSWITH(expression, ")"_v, boolean(true)), VELT_EQUAL(declared->parameters, ""_v))))
        return VELT__STRING(""_v);
    VELTS("assistant.bas", "Assistant.TypeOf", "94", "");
    return VELT__STRING(declared->typeName);
}

id Assistant::membersOf(id typeName) {
    VELTS("assistant.bas", "Assistant.MembersOf", "99", "");
    id found = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("assistant.bas", "Assistant.MembersOf", "100", "");
    id steps = VELT__INTEGER(number(0));
    while (VELTS("assistant.bas", "Assistant.MembersOf", "101", ""), VELT_CBOOL(VELT_SMALLER(steps, number(32)))) {
        VELTS("assistant.bas", "Assistant.MembersOf", "102", "");
        velt::Ref<Declaration> declared = source->classNamed(VELT__STRING(typeName));
        VELTS("assistant.bas", "Assistant.MembersOf", "103", "");
        if (VELT_CBOOL(VELT_EQUAL(declared, nil))) break;
        VELTS("assistant.bas", "Assistant.MembersOf", "104", "");
        appendAll(found, source->membersOf(VELT__STRING(typeName)));
        VELTS("assistant.bas", "Assistant.MembersOf", "105", "");
        typeName = VELT__STRING(declared->parent);
        VELTS("assistant.bas", "Assistant.MembersOf", "106", "");
        steps = VELT__INTEGER(VELT_ADD(steps, number(1)));
    }
    VELTS("assistant.bas", "Assistant.MembersOf", "108", "");
    appendAll(found, language->membersOf(VELT__STRING(typeName)));
    VELTS("assistant.bas", "Assistant.MembersOf", "109", "");
    return VELT__NSMUTABLEARRAY(found);
}

velt::Ref<Declaration> Assistant::memberNamed(id name, id typeName) {
    VELTS("assistant.bas", "Assistant.MemberNamed", "113", "");
    id members = VELT__NSMUTABLEARRAY(membersOf(VELT__STRING(typeName)));
    VELTS("assistant.bas", "Assistant.MemberNamed", "114", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(members), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("assistant.bas", "Assistant.MemberNamed", "115", "");
        if (VELT_CBOOL(
                VELT_EQUAL(VELT_LCASE(toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(members, i))->name), VELT_LCASE(name))))
            return toDeclaration(VELT_NSMUTABLEARRAY_OBJECT(members, i));
    }
    VELTS("assistant.bas", "Assistant.MemberNamed", "117", "");
    return nullptr;
}

}  // namespace editor
