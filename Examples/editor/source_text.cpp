// source_text.bas as the translator writes it.
#include "editor/source_text.h"

namespace editor {

id isWordUnit(id unit) {
    VELTS("source_text.bas", "IsWordUnit", "5", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_GREATEREQUAL(unit, number(48)), VELT_SMALLEREQUAL(unit, number(57)))))
        return VELT__BOOLEAN(boolean(true));
    VELTS("source_text.bas", "IsWordUnit", "6", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_GREATEREQUAL(unit, number(65)), VELT_SMALLEREQUAL(unit, number(90)))))
        return VELT__BOOLEAN(boolean(true));
    VELTS("source_text.bas", "IsWordUnit", "7", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_GREATEREQUAL(unit, number(97)), VELT_SMALLEREQUAL(unit, number(122)))))
        return VELT__BOOLEAN(boolean(true));
    VELTS("source_text.bas", "IsWordUnit", "8", "");
    return VELT__BOOLEAN(VELT_ORELSE(VELT_EQUAL(unit, number(95)), VELT_GREATEREQUAL(unit, number(192))));
}

id firstWord(id text) {
    VELTS("source_text.bas", "FirstWord", "13", "");
    id length = VELT__INTEGER(number(0));
    while (VELTS("source_text.bas", "FirstWord", "14", ""), VELT_CBOOL(VELT_SMALLER(length, VELT_LEN(text)))) {
        VELTS("source_text.bas", "FirstWord", "15", "");
        if (VELT_CBOOL(VELT_NOT(isWordUnit(VELT__INTEGER(VELT_UNICODE(text, length)))))) break;
        VELTS("source_text.bas", "FirstWord", "16", "");
        length = VELT__INTEGER(VELT_ADD(length, number(1)));
    }
    VELTS("source_text.bas", "FirstWord", "18", "");
    return VELT__STRING(VELT_LEFT(text, length));
}

id withoutComment(id line) {
    VELTS("source_text.bas", "WithoutComment", "23", "");
    if (VELT_CBOOL(VELT_NOT(VELT_CONTAINS(line, "'"_v, boolean(true))))) return VELT__STRING(line);
    VELTS("source_text.bas", "WithoutComment", "24", "");
    id inString = VELT__BOOLEAN(boolean(false));
    VELTS("source_text.bas", "WithoutComment", "25", "");
    const id last = VELT_SUB(VELT_LEN(line), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("source_text.bas", "WithoutComment", "26", "");
        id unit = VELT__INTEGER(VELT_UNICODE(line, i));
        VELTS("source_text.bas", "WithoutComment", "27", "");
        if (VELT_CBOOL(VELT_EQUAL(unit, number(34)))) inString = VELT__BOOLEAN(VELT_NOT(inString));
        VELTS("source_text.bas", "WithoutComment", "28", "");
        if (VELT_CBOOL(VELT_ANDALSO(VELT_EQUAL(unit, number(39)), VELT_NOT(inString))))
            return VELT__STRING(VELT_LEFT(line, i));
    }
    VELTS("source_text.bas", "WithoutComment", "30", "");
    return VELT__STRING(line);
}

id goesOnAsCode(id part) {
    VELTS("source_text.bas", "GoesOnAsCode", "35", "");
    id quotes = VELT__INTEGER(VELT_COUNT(part, VELT_CHARACTER(number(34)), boolean(true)));
    VELTS("source_text.bas", "GoesOnAsCode", "36", "");
    return VELT__BOOLEAN(
        VELT_ANDALSO(VELT_EQUAL(VELT_MOD(quotes, number(2)), number(0)), VELT_EQUAL(withoutComment(part), part)));
}

}  // namespace editor
