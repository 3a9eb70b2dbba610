// whole_words.bas as the translator writes it.
#include "editor/whole_words.h"

#include "editor/source_text.h"

namespace editor {

void WholeWords::describe(velt::ClassBuilder<WholeWords>& c) {
    c.property("word", &WholeWords::word)
        .property("respectsCase", &WholeWords::respectsCase)
        .property("replacements", &WholeWords::replacements);
}

id WholeWords::standsAlone(id text, id place) {
    VELTS("whole_words.bas", "WholeWords.StandsAlone", "10", "");
    if (VELT_CBOOL(VELT_GREATER(place, number(0)))) {
        VELTS("whole_words.bas", "WholeWords.StandsAlone", "11", "");
        if (VELT_CBOOL(VELT_ANDALSO(isWordUnit(VELT__INTEGER(VELT_UNICODE(text, VELT_SUB(place, number(1))))),
                                    isWordUnit(VELT__INTEGER(VELT_UNICODE(word, number(0)))))))
            return VELT__BOOLEAN(boolean(false));
    }
    VELTS("whole_words.bas", "WholeWords.StandsAlone", "13", "");
    id behind = VELT__INTEGER(VELT_ADD(place, VELT_LEN(word)));
    VELTS("whole_words.bas", "WholeWords.StandsAlone", "14", "");
    if (VELT_CBOOL(VELT_GREATEREQUAL(behind, VELT_LEN(text)))) return VELT__BOOLEAN(boolean(true));
    VELTS("whole_words.bas", "WholeWords.StandsAlone", "15", "");
    return VELT__BOOLEAN(
        VELT_NOT(VELT_ANDALSO(isWordUnit(VELT__INTEGER(VELT_UNICODE(text, behind))),
                              isWordUnit(VELT__INTEGER(VELT_UNICODE(word, VELT_SUB(VELT_LEN(word), number(1))))))));
}

id WholeWords::nextPlace(id text, id from) {
    VELTS("whole_words.bas", "WholeWords.NextPlace", "20", "");
    if (VELT_CBOOL(VELT_EQUAL(word, ""_v))) return VELT__INTEGER(number(-1));
    VELTS("whole_words.bas", "WholeWords.NextPlace", "21", "");
    id place = VELT__INTEGER(VELT_INSTR(text, word, from, respectsCase));
    while (VELTS("whole_words.bas", "WholeWords.NextPlace", "22", ""),
           VELT_CBOOL(VELT_GREATEREQUAL(place, number(0)))) {
        VELTS("whole_words.bas", "WholeWords.NextPlace", "23", "");
        if (VELT_CBOOL(standsAlone(text, VELT__INTEGER(place)))) return VELT__INTEGER(place);
        VELTS("whole_words.bas", "WholeWords.NextPlace", "24", "");
        place = VELT__INTEGER(VELT_INSTR(text, word, VELT_ADD(place, number(1)), respectsCase));
    }
    VELTS("whole_words.bas", "WholeWords.NextPlace", "26", "");
    return VELT__INTEGER(number(-1));
}

id WholeWords::previousPlace(id text, id limit) {
    VELTS("whole_words.bas", "WholeWords.PreviousPlace", "31", "");
    id found = VELT__INTEGER(number(-1));
    VELTS("whole_words.bas", "WholeWords.PreviousPlace", "32", "");
    id place = VELT__INTEGER(nextPlace(text, VELT__INTEGER(number(0))));
    while (VELTS("whole_words.bas", "WholeWords.PreviousPlace", "33", ""),
           VELT_CBOOL(VELT_ANDALSO(VELT_GREATEREQUAL(place, number(0)),
                                   VELT_SMALLEREQUAL(VELT_ADD(place, VELT_LEN(word)), limit)))) {
        VELTS("whole_words.bas", "WholeWords.PreviousPlace", "34", "");
        found = VELT__INTEGER(place);
        VELTS("whole_words.bas", "WholeWords.PreviousPlace", "35", "");
        place = VELT__INTEGER(nextPlace(text, VELT__INTEGER(VELT_ADD(place, number(1)))));
    }
    VELTS("whole_words.bas", "WholeWords.PreviousPlace", "37", "");
    return VELT__INTEGER(found);
}

id WholeWords::replaced(id text, id replacement) {
    VELTS("whole_words.bas", "WholeWords.Replaced", "42", "");
    id pieces = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("whole_words.bas", "WholeWords.Replaced", "43", "");
    id from = VELT__INTEGER(number(0));
    VELTS("whole_words.bas", "WholeWords.Replaced", "44", "");
    replacements = VELT__INTEGER(number(0));
    VELTS("whole_words.bas", "WholeWords.Replaced", "45", "");
    id place = VELT__INTEGER(nextPlace(text, VELT__INTEGER(number(0))));
    while (VELTS("whole_words.bas", "WholeWords.Replaced", "46", ""), VELT_CBOOL(VELT_GREATEREQUAL(place, number(0)))) {
        VELTS("whole_words.bas", "WholeWords.Replaced", "47", "");
        VELT_NSMUTABLEARRAY_APPEND(pieces, VELT_MID(text, from, VELT_SUB(place, from)));
        VELTS("whole_words.bas", "WholeWords.Replaced", "48", "");
        replacements = VELT__INTEGER(VELT_ADD(replacements, number(1)));
        VELTS("whole_words.bas", "WholeWords.Replaced", "49", "");
        from = VELT__INTEGER(VELT_ADD(place, VELT_LEN(word)));
        VELTS("whole_words.bas", "WholeWords.Replaced", "50", "");
        place = VELT__INTEGER(nextPlace(text, VELT__INTEGER(from)));
    }
    VELTS("whole_words.bas", "WholeWords.Replaced", "52", "");
    VELT_NSMUTABLEARRAY_APPEND(pieces, VELT_MID(text, from, number(-1)));
    VELTS("whole_words.bas", "WholeWords.Replaced", "53", "");
    return VELT__STRING(VELT_JOIN(pieces, replacement));
}

}  // namespace editor
