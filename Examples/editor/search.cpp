// search.bas as the translator writes it.
#include "editor/search.h"

namespace editor {

void Search::describe(velt::ClassBuilder<Search>& c) {
    c.property("needle", &Search::needle)
        .property("replacement", &Search::replacement)
        .property("ignoresCase", &Search::ignoresCase)
        .property("selectedOnly", &Search::selectedOnly)
        .property("wholeWords", &Search::wholeWords)
        .owns(&Search::words);
}

void Search::prepare(id view) {
    VELTS("search.bas", "Search.Prepare", "12", "");
    VELT_VLTEXTVIEW_FINDSETOPTIONIGNORECASE(view, ignoresCase);
    VELTS("search.bas", "Search.Prepare", "13", "");
    VELT_VLTEXTVIEW_FINDSETOPTIONSELECTEDTEXTONLY(view, selectedOnly);
    VELTS("search.bas", "Search.Prepare", "14", "");
    VELT_VLTEXTVIEW_FINDSETOPTIONWHOLEWORDSONLY(view, wholeWords);
    VELTS("search.bas", "Search.Prepare", "15", "");
    words->word = VELT__STRING(needle);
    VELTS("search.bas", "Search.Prepare", "16", "");
    words->respectsCase = VELT__BOOLEAN(VELT_NOT(ignoresCase));
}

id Search::findNext(id view) {
    VELTS("search.bas", "Search.FindNext", "20", "");
    prepare(view);
    VELTS("search.bas", "Search.FindNext", "21", "");
    if (VELT_CBOOL(VELT_NOT(wholeWords)))
        return VELT__BOOLEAN(boolean(VELT_CBOOL(VELT_VLTEXTVIEW_FINDNEXT(view, needle))));
    VELTS("search.bas", "Search.FindNext", "22", "");
    id selection = VELT_PROPERTY(view, "selectedRange"_v);
    VELTS("search.bas", "Search.FindNext", "23", "");
    id text = VELT__STRING(VELT_NSTEXTVIEW_VALUE(view));
    VELTS("search.bas", "Search.FindNext", "24", "");
    if (VELT_CBOOL(VELT_ANDALSO(selectedOnly, VELT_GREATER(VELT_RANGE_LENGTH(selection), number(0))))) {
        VELTS("search.bas", "Search.FindNext", "25", "");
        id within = VELT__INTEGER(words->nextPlace(text, VELT__INTEGER(VELT_RANGE_LOCATION(selection))));
        VELTS("search.bas", "Search.FindNext", "26", "");
        if (VELT_CBOOL(VELT_GREATER(VELT_ADD(within, VELT_LEN(needle)),
                                    VELT_ADD(VELT_RANGE_LOCATION(selection), VELT_RANGE_LENGTH(selection)))))
            return VELT__BOOLEAN(boolean(false));
        VELTS("search.bas", "Search.FindNext", "27", "");
        return VELT__BOOLEAN(choose(view, VELT__INTEGER(within)));
    }
    VELTS("search.bas", "Search.FindNext", "29", "");
    id place =
        VELT__INTEGER(words->nextPlace(text, VELT__INTEGER(VELT_ADD(VELT_RANGE_LOCATION(selection), number(1)))));
    VELTS("search.bas", "Search.FindNext", "30", "");
    if (VELT_CBOOL(VELT_SMALLER(place, number(0))))
        place = VELT__INTEGER(words->nextPlace(text, VELT__INTEGER(number(0))));
    VELTS("search.bas", "Search.FindNext", "31", "");
    return VELT__BOOLEAN(choose(view, VELT__INTEGER(place)));
}

id Search::findPrevious(id view) {
    VELTS("search.bas", "Search.FindPrevious", "35", "");
    prepare(view);
    VELTS("search.bas", "Search.FindPrevious", "36", "");
    if (VELT_CBOOL(VELT_NOT(wholeWords)))
        return VELT__BOOLEAN(boolean(VELT_CBOOL(VELT_VLTEXTVIEW_FINDPREVIOUS(view, needle))));
    VELTS("search.bas", "Search.FindPrevious", "37", "");
    id selection = VELT_PROPERTY(view, "selectedRange"_v);
    VELTS("search.bas", "Search.FindPrevious", "38", "");
    id text = VELT__STRING(VELT_NSTEXTVIEW_VALUE(view));
    VELTS("search.bas", "Search.FindPrevious", "39", "");
    if (VELT_CBOOL(VELT_ANDALSO(selectedOnly, VELT_GREATER(VELT_RANGE_LENGTH(selection), number(0))))) {
        VELTS("search.bas", "Search.FindPrevious", "40", "");
        id within = VELT__INTEGER(words->previousPlace(
            text, VELT__INTEGER(VELT_ADD(VELT_RANGE_LOCATION(selection), VELT_RANGE_LENGTH(selection)))));
        VELTS("search.bas", "Search.FindPrevious", "41", "");
        if (VELT_CBOOL(VELT_SMALLER(within, VELT_RANGE_LOCATION(selection)))) return VELT__BOOLEAN(boolean(false));
        VELTS("search.bas", "Search.FindPrevious", "42", "");
        return VELT__BOOLEAN(choose(view, VELT__INTEGER(within)));
    }
    VELTS("search.bas", "Search.FindPrevious", "44", "");
    id place = VELT__INTEGER(words->previousPlace(text, VELT__INTEGER(VELT_RANGE_LOCATION(selection))));
    VELTS("search.bas", "Search.FindPrevious", "45", "");
    if (VELT_CBOOL(VELT_SMALLER(place, number(0))))
        place = VELT__INTEGER(words->previousPlace(text, VELT__INTEGER(VELT_LEN(text))));
    VELTS("search.bas", "Search.FindPrevious", "46", "");
    return VELT__BOOLEAN(choose(view, VELT__INTEGER(place)));
}

id Search::choose(id view, id place) {
    VELTS("search.bas", "Search.Choose", "51", "");
    if (VELT_CBOOL(VELT_SMALLER(place, number(0)))) return VELT__BOOLEAN(boolean(false));
    VELTS("search.bas", "Search.Choose", "52", "");
    id found = VELT_RANGE_INIT(nil, "", place, VELT_LEN(needle));
    VELTS("search.bas", "Search.Choose", "53", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(view, "setSelectedRange:"_v, found);
    VELTS("search.bas", "Search.Choose", "54", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(view, "scrollRangeToVisible:"_v, found);
    VELTS("search.bas", "Search.Choose", "55", "");
    return VELT__BOOLEAN(boolean(true));
}

id Search::isFound(id view) {
    VELTS("search.bas", "Search.IsFound", "60", "");
    if (VELT_CBOOL(VELT_EQUAL(needle, ""_v))) return VELT__BOOLEAN(boolean(false));
    VELTS("search.bas", "Search.IsFound", "61", "");
    return VELT__BOOLEAN(
        VELT_EQUAL(VELT_COMPARE(VELT_NSTEXTVIEW_SELECTEDTEXT(view), needle, VELT_NOT(ignoresCase)), number(0)));
}

id Search::replaceOne(id view) {
    VELTS("search.bas", "Search.ReplaceOne", "66", "");
    if (VELT_CBOOL(isFound(view))) VELT_VLTEXTVIEW_FINDREPLACE(view, replacement);
    VELTS("search.bas", "Search.ReplaceOne", "67", "");
    return VELT__BOOLEAN(findNext(view));
}

id Search::replaceAll(id view) {
    VELTS("search.bas", "Search.ReplaceAll", "72", "");
    prepare(view);
    VELTS("search.bas", "Search.ReplaceAll", "73", "");
    if (VELT_CBOOL(VELT_EQUAL(needle, ""_v))) return VELT__INTEGER(number(0));
    VELTS("search.bas", "Search.ReplaceAll", "74", "");
    if (VELT_CBOOL(VELT_NOT(wholeWords)))
        return VELT__INTEGER(VELT_VLTEXTVIEW_FINDREPLACEALL(view, needle, replacement));
    VELTS("search.bas", "Search.ReplaceAll", "75", "");
    id text = VELT__STRING(VELT_NSTEXTVIEW_VALUE(view));
    VELTS("search.bas", "Search.ReplaceAll", "76", "");
    id place = VELT_PROPERTY(view, "selectedRange"_v);
    VELTS("search.bas", "Search.ReplaceAll", "77", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_NOT(selectedOnly), VELT_EQUAL(VELT_RANGE_LENGTH(place), number(0)))))
        place = VELT_RANGE_INIT(nil, "", number(0), VELT_LEN(text));
    VELTS("search.bas", "Search.ReplaceAll", "78", "");
    id changed = VELT__STRING(words->replaced(
        VELT__STRING(VELT_MID(text, VELT_RANGE_LOCATION(place), VELT_RANGE_LENGTH(place))), VELT__STRING(replacement)));
    VELTS("search.bas", "Search.ReplaceAll", "79", "");
    if (VELT_CBOOL(VELT_EQUAL(words->replacements, number(0)))) return VELT__INTEGER(number(0));
    VELTS("search.bas", "Search.ReplaceAll", "80", "");
    if (VELT_CBOOL(VELT_NOT(
            VELT_NSOBJECT_PERFORMSELECTOR2(view, "shouldChangeTextInRange:replacementString:"_v, place, changed))))
        return VELT__INTEGER(number(0));
    VELTS("search.bas", "Search.ReplaceAll", "81", "");
    VELT_NSOBJECT_PERFORMSELECTOR2(view, "replaceCharactersInRange:withString:"_v, place, changed);
    VELTS("search.bas", "Search.ReplaceAll", "82", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(view, "didChangeText"_v);
    VELTS("search.bas", "Search.ReplaceAll", "83", "");
    return VELT__INTEGER(words->replacements);
}

}  // namespace editor
