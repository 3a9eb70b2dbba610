// language.bas as the translator writes it.
#include "editor/language.h"

namespace editor {

void Language::describe(velt::ClassBuilder<Language>& c) {
    c.property("keywords", &Language::keywords)
        .property("builtins", &Language::builtins)
        .property("types", &Language::types)
        .property("functions", &Language::functions)
        .property("members", &Language::members);
}

void Language::read(id folder) {
    VELTS("language.bas", "Language.Read", "12", "");
    keywords = VELT__NSMUTABLEARRAY(linesOf(VELT__STRING(VELT_CONCAT(folder, "/keywords.txt"_v))));
    VELTS("language.bas", "Language.Read", "13", "");
    builtins = VELT__NSMUTABLEARRAY(linesOf(VELT__STRING(VELT_CONCAT(folder, "/builtins.txt"_v))));
    VELTS("language.bas", "Language.Read", "14", "");
    types = VELT__NSMUTABLEARRAY(linesOf(VELT__STRING(VELT_CONCAT(folder, "/types.txt"_v))));
    VELTS("language.bas", "Language.Read", "15", "");
    id lines = VELT__NSMUTABLEARRAY(linesOf(VELT__STRING(VELT_CONCAT(folder, "/signatures.txt"_v))));
    VELTS("language.bas", "Language.Read", "16", "");
    const id lastFunction = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, lastFunction)); i = VELT_ADD(i, number(1))) {
        VELTS("language.bas", "Language.Read", "17", "");
        velt::Ref<Declaration> declared = velt::make<Declaration>();
        VELTS("language.bas", "Language.Read", "18", "");
        declared->read(VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(lines, i)));
        VELTS("language.bas", "Language.Read", "19", "");
        VELT_NSMUTABLEDICTIONARY_INSERT(functions, VELT_LCASE(declared->name), declared);
    }
    VELTS("language.bas", "Language.Read", "21", "");
    lines = VELT__NSMUTABLEARRAY(linesOf(VELT__STRING(VELT_CONCAT(folder, "/members.txt"_v))));
    VELTS("language.bas", "Language.Read", "22", "");
    const id lastMember = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, lastMember)); i = VELT_ADD(i, number(1))) {
        VELTS("language.bas", "Language.Read", "23", "");
        readMember(VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(lines, i)));
    }
}

void Language::readMember(id line) {
    VELTS("language.bas", "Language.ReadMember", "29", "");
    id owner = VELT__STRING(firstWord(VELT__STRING(line)));
    VELTS("language.bas", "Language.ReadMember", "30", "");
    velt::Ref<Declaration> declared = velt::make<Declaration>();
    VELTS("language.bas", "Language.ReadMember", "31", "");
    declared->read(VELT__STRING(VELT_MID(line, VELT_ADD(VELT_LEN(owner), number(1)), number(-1))));
    VELTS("language.bas", "Language.ReadMember", "32", "");
    declared->owner = VELT__STRING(owner);
    VELTS("language.bas", "Language.ReadMember", "33", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSMUTABLEDICTIONARY_CONTAINS(members, VELT_LCASE(owner)))))
        VELT_NSMUTABLEDICTIONARY_INSERT(members, VELT_LCASE(owner), velt::make<NSMutableArray>());
    VELTS("language.bas", "Language.ReadMember", "34", "");
    VELT_NSMUTABLEARRAY_APPEND(VELT_NSMUTABLEDICTIONARY_OBJECT(members, VELT_LCASE(owner)), declared);
}

id Language::linesOf(id path) {
    VELTS("language.bas", "Language.LinesOf", "39", "");
    id found = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("language.bas", "Language.LinesOf", "40", "");
    id lines = VELT__NSMUTABLEARRAY(VELT_SPLIT(VELT_READSTRING(path), VELT_CHARACTER(number(10))));
    VELTS("language.bas", "Language.LinesOf", "41", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("language.bas", "Language.LinesOf", "42", "");
        if (VELT_CBOOL(VELT_UNEQUAL(VELT_TRIM(VELT_NSMUTABLEARRAY_OBJECT(lines, i)), ""_v)))
            VELT_NSMUTABLEARRAY_APPEND(found, VELT_TRIM(VELT_NSMUTABLEARRAY_OBJECT(lines, i)));
    }
    VELTS("language.bas", "Language.LinesOf", "44", "");
    return VELT__NSMUTABLEARRAY(found);
}

id Language::membersOf(id className) {
    VELTS("language.bas", "Language.MembersOf", "49", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSMUTABLEDICTIONARY_CONTAINS(members, VELT_LCASE(className)))))
        return VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("language.bas", "Language.MembersOf", "50", "");
    return VELT__NSMUTABLEARRAY(VELT_NSMUTABLEDICTIONARY_OBJECT(members, VELT_LCASE(className)));
}

velt::Ref<Declaration> Language::builtin(id name) {
    VELTS("language.bas", "Language.Builtin", "55", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSMUTABLEDICTIONARY_CONTAINS(functions, VELT_LCASE(name))))) return nullptr;
    VELTS("language.bas", "Language.Builtin", "56", "");
    return toDeclaration(VELT_NSMUTABLEDICTIONARY_OBJECT(functions, VELT_LCASE(name)));
}

}  // namespace editor
