// textstat.bas as the translator writes it: text, arrays, dictionaries, constants, a variable of the whole program.
#include "support/console.h"

using example::argumentList;
using example::location;
using example::print;
using example::printError;

namespace {

const id kTopWords = VELT_ID(20L);
const id kBarWidth = VELT_ID(30L);
id punctuation;

id wordBreaks() {
    VELTS("textstat.bas", "WordBreaks", "9", "");
    id breaks = VELT__NSMUTABLEARRAY(VELT_SPLIT("— – … · / 。 ， 、 ！ ？ ； ： 「 」 『 』 （ ） ・ 〜"_v, " "_v));
    VELTS("textstat.bas", "WordBreaks", "10", "");
    VELT_NSMUTABLEARRAY_APPEND(breaks, VELT_CHARACTER(VELT_ID(9L)));
    VELTS("textstat.bas", "WordBreaks", "11", "");
    VELT_NSMUTABLEARRAY_APPEND(breaks, VELT_CHARACTER(VELT_ID(10L)));
    VELTS("textstat.bas", "WordBreaks", "12", "");
    VELT_NSMUTABLEARRAY_APPEND(breaks, VELT_CHARACTER(VELT_ID(13L)));
    VELTS("textstat.bas", "WordBreaks", "13", "");
    VELT_NSMUTABLEARRAY_APPEND(breaks, VELT_CHARACTER(VELT_ID(160L)));
    VELTS("textstat.bas", "WordBreaks", "14", "");
    VELT_NSMUTABLEARRAY_APPEND(breaks, VELT_CHARACTER(VELT_ID(12288L)));
    VELTS("textstat.bas", "WordBreaks", "15", "");
    return VELT__NSMUTABLEARRAY(breaks);
}

id punctuationMarks() {
    VELTS("textstat.bas", "PunctuationMarks", "20", "");
    id result = velt::make<NSMutableDictionary>();
    VELTS("textstat.bas", "PunctuationMarks", "21", "");
    id marks = VELT__STRING(VELT_CONCAT(".,;:!?'()[]{}<>*_#=+-|~`^$%&@\\"_v, VELT_CHARACTER(VELT_ID(34L))));
    VELTS("textstat.bas", "PunctuationMarks", "22", "");
    marks = VELT__STRING(VELT_CONCAT(marks, "«»„“”‚‘’‹›¿¡†‡•§״׳؟،؛।॥"_v));
    VELTS("textstat.bas", "PunctuationMarks", "23", "");
    id last = VELT_SUB(VELT_LEN(marks), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("textstat.bas", "PunctuationMarks", "24", "");
        VELT_NSMUTABLEDICTIONARY_INSERT(result, VELT_AT(marks, i), VELT_ID(BOOL{1}));
    }
    VELTS("textstat.bas", "PunctuationMarks", "26", "");
    return VELT__NSMUTABLEDICTIONARY(result);
}

id trimWord(id word) {
    VELTS("textstat.bas", "TrimWord", "30", "");
    id first = VELT__INTEGER(VELT_ID(0L));
    VELTS("textstat.bas", "TrimWord", "31", "");
    id after = VELT__INTEGER(VELT_LEN(word));
    while (VELTS("textstat.bas", "TrimWord", "32", ""), VELT_CBOOL(VELT_SMALLER(first, after))) {
        VELTS("textstat.bas", "TrimWord", "33", "");
        if (VELT_CBOOL(
                VELT_EQUAL(VELT_NSMUTABLEDICTIONARY_CONTAINS(punctuation, VELT_AT(word, first)), VELT_ID(BOOL{0})))) {
            VELTS("textstat.bas", "TrimWord", "34", "");
            break;
        }
        VELTS("textstat.bas", "TrimWord", "36", "");
        first = VELT__INTEGER(VELT_ADD(first, VELT_ID(1L)));
    }
    while (VELTS("textstat.bas", "TrimWord", "38", ""), VELT_CBOOL(VELT_SMALLER(first, after))) {
        VELTS("textstat.bas", "TrimWord", "39", "");
        if (VELT_CBOOL(
                VELT_EQUAL(VELT_NSMUTABLEDICTIONARY_CONTAINS(punctuation, VELT_AT(word, VELT_SUB(after, VELT_ID(1L)))),
                           VELT_ID(BOOL{0})))) {
            VELTS("textstat.bas", "TrimWord", "40", "");
            break;
        }
        VELTS("textstat.bas", "TrimWord", "42", "");
        after = VELT__INTEGER(VELT_SUB(after, VELT_ID(1L)));
    }
    VELTS("textstat.bas", "TrimWord", "44", "");
    return VELT__STRING(VELT_MID(word, first, VELT_SUB(after, first)));
}

id countWords(id text, id table) {
    VELTS("textstat.bas", "CountWords", "49", "");
    id breaks = VELT__NSMUTABLEARRAY(wordBreaks());
    VELTS("textstat.bas", "CountWords", "50", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(breaks), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("textstat.bas", "CountWords", "51", "");
        text = VELT__STRING(VELT_REPLACE(text, VELT_NSMUTABLEARRAY_OBJECT(breaks, i), " "_v, VELT_ID(BOOL{1})));
    }
    VELTS("textstat.bas", "CountWords", "53", "");
    id pieces = VELT__NSMUTABLEARRAY(VELT_SPLIT(VELT_LCASE(text), " "_v));
    VELTS("textstat.bas", "CountWords", "54", "");
    id words = VELT__INTEGER(VELT_ID(0L));
    VELTS("textstat.bas", "CountWords", "55", "");
    last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(pieces), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("textstat.bas", "CountWords", "56", "");
        id word = VELT__STRING(trimWord(VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(pieces, i))));
        VELTS("textstat.bas", "CountWords", "57", "");
        if (VELT_CBOOL(VELT_GREATER(VELT_LEN(word), VELT_ID(0L)))) {
            VELTS("textstat.bas", "CountWords", "58", "");
            words = VELT__INTEGER(VELT_ADD(words, VELT_ID(1L)));
            VELTS("textstat.bas", "CountWords", "59", "");
            if (VELT_CBOOL(VELT_NSMUTABLEDICTIONARY_CONTAINS(table, word))) {
                VELTS("textstat.bas", "CountWords", "60", "");
                VELT_NSMUTABLEDICTIONARY_INSERT(table, word,
                                                VELT_ADD(VELT_NSMUTABLEDICTIONARY_OBJECT(table, word), VELT_ID(1L)));
            } else {
                VELTS("textstat.bas", "CountWords", "62", "");
                VELT_NSMUTABLEDICTIONARY_INSERT(table, word, VELT_ID(1L));
            }
        }
    }
    VELTS("textstat.bas", "CountWords", "66", "");
    return VELT__INTEGER(words);
}

void addTable(id total, id table) {
    VELTS("textstat.bas", "AddTable", "70", "");
    id keys = VELT__NSMUTABLEARRAY(VELT_NSMUTABLEDICTIONARY_KEYS(table));
    VELTS("textstat.bas", "AddTable", "71", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(keys), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("textstat.bas", "AddTable", "72", "");
        id word = VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(keys, i));
        VELTS("textstat.bas", "AddTable", "73", "");
        if (VELT_CBOOL(VELT_NSMUTABLEDICTIONARY_CONTAINS(total, word))) {
            VELTS("textstat.bas", "AddTable", "74", "");
            VELT_NSMUTABLEDICTIONARY_INSERT(
                total, word,
                VELT_ADD(VELT_NSMUTABLEDICTIONARY_OBJECT(total, word), VELT_NSMUTABLEDICTIONARY_OBJECT(table, word)));
        } else {
            VELTS("textstat.bas", "AddTable", "76", "");
            VELT_NSMUTABLEDICTIONARY_INSERT(total, word, VELT_NSMUTABLEDICTIONARY_OBJECT(table, word));
        }
    }
}

id placeFor(id number, id numbers) {
    VELTS("textstat.bas", "PlaceFor", "83", "");
    id place = VELT__INTEGER(VELT_NSMUTABLEARRAY_COUNT(numbers));
    while (VELTS("textstat.bas", "PlaceFor", "84", ""), VELT_CBOOL(VELT_GREATER(place, VELT_ID(0L)))) {
        VELTS("textstat.bas", "PlaceFor", "85", "");
        if (VELT_CBOOL(VELT_GREATEREQUAL(VELT_NSMUTABLEARRAY_OBJECT(numbers, VELT_SUB(place, VELT_ID(1L))), number))) {
            VELTS("textstat.bas", "PlaceFor", "86", "");
            break;
        }
        VELTS("textstat.bas", "PlaceFor", "88", "");
        place = VELT__INTEGER(VELT_SUB(place, VELT_ID(1L)));
    }
    VELTS("textstat.bas", "PlaceFor", "90", "");
    return VELT__INTEGER(place);
}

id column(id value, id width) {
    VELTS("textstat.bas", "Column", "94", "");
    return VELT__STRING(VELT_RIGHT(VELT_CONCAT(VELT_SPACE(width, " "_v), value), width));
}

void showWords(id table) {
    VELTS("textstat.bas", "ShowWords", "98", "");
    id keys = VELT__NSMUTABLEARRAY(VELT_NSMUTABLEDICTIONARY_KEYS(table));
    VELTS("textstat.bas", "ShowWords", "99", "");
    id words = velt::make<NSMutableArray>();
    VELTS("textstat.bas", "ShowWords", "100", "");
    id counts = velt::make<NSMutableArray>();
    VELTS("textstat.bas", "ShowWords", "101", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(keys), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("textstat.bas", "ShowWords", "102", "");
        id number = VELT__INTEGER(VELT_NSMUTABLEDICTIONARY_OBJECT(table, VELT_NSMUTABLEARRAY_OBJECT(keys, i)));
        VELTS("textstat.bas", "ShowWords", "103", "");
        id place = VELT__INTEGER(placeFor(VELT__INTEGER(number), VELT__NSMUTABLEARRAY(counts)));
        VELTS("textstat.bas", "ShowWords", "104", "");
        if (VELT_CBOOL(VELT_SMALLER(place, kTopWords))) {
            VELTS("textstat.bas", "ShowWords", "105", "");
            VELT_NSMUTABLEARRAY_INSERT(words, VELT_NSMUTABLEARRAY_OBJECT(keys, i), place);
            VELTS("textstat.bas", "ShowWords", "106", "");
            VELT_NSMUTABLEARRAY_INSERT(counts, number, place);
            VELTS("textstat.bas", "ShowWords", "107", "");
            if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(counts), kTopWords))) {
                VELTS("textstat.bas", "ShowWords", "108", "");
                VELT_NSMUTABLEARRAY_REMOVE(words, kTopWords);
                VELTS("textstat.bas", "ShowWords", "109", "");
                VELT_NSMUTABLEARRAY_REMOVE(counts, kTopWords);
            }
        }
    }
    VELTS("textstat.bas", "ShowWords", "113", "");
    print("  most frequent words"_v);
    VELTS("textstat.bas", "ShowWords", "114", "");
    last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(words), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("textstat.bas", "ShowWords", "115", "");
        id bar = VELT__STRING(
            VELT_SPACE(VELT_MAX(VELT_ID(1L), VELT_IDIV(VELT_MUL(kBarWidth, VELT_NSMUTABLEARRAY_OBJECT(counts, i)),
                                                       VELT_NSMUTABLEARRAY_OBJECT(counts, VELT_ID(0L)))),
                       "█"_v));
        VELTS("textstat.bas", "ShowWords", "116", "");
        print(VELT_CONCAT(
            VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(column(VELT_NSMUTABLEARRAY_OBJECT(counts, i), VELT_ID(8L)), "  "_v),
                                    VELT_LEFT(VELT_CONCAT(bar, VELT_SPACE(kBarWidth, " "_v)), kBarWidth)),
                        "  "_v),
            VELT_NSMUTABLEARRAY_OBJECT(words, i)));
    }
}

void showLongestLines(id lines) {
    VELTS("textstat.bas", "ShowLongestLines", "121", "");
    id places = velt::make<NSMutableArray>();
    VELTS("textstat.bas", "ShowLongestLines", "122", "");
    id lengths = velt::make<NSMutableArray>();
    VELTS("textstat.bas", "ShowLongestLines", "123", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("textstat.bas", "ShowLongestLines", "124", "");
        id place = VELT__INTEGER(
            placeFor(VELT__INTEGER(VELT_LEN(VELT_NSMUTABLEARRAY_OBJECT(lines, i))), VELT__NSMUTABLEARRAY(lengths)));
        VELTS("textstat.bas", "ShowLongestLines", "125", "");
        if (VELT_CBOOL(VELT_ANDALSO(VELT_SMALLER(place, VELT_ID(3L)),
                                    VELT_GREATER(VELT_LEN(VELT_NSMUTABLEARRAY_OBJECT(lines, i)), VELT_ID(0L))))) {
            VELTS("textstat.bas", "ShowLongestLines", "126", "");
            VELT_NSMUTABLEARRAY_INSERT(places, i, place);
            VELTS("textstat.bas", "ShowLongestLines", "127", "");
            VELT_NSMUTABLEARRAY_INSERT(lengths, VELT_LEN(VELT_NSMUTABLEARRAY_OBJECT(lines, i)), place);
            VELTS("textstat.bas", "ShowLongestLines", "128", "");
            if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(lengths), VELT_ID(3L)))) {
                VELTS("textstat.bas", "ShowLongestLines", "129", "");
                VELT_NSMUTABLEARRAY_REMOVE(places, VELT_ID(3L));
                VELTS("textstat.bas", "ShowLongestLines", "130", "");
                VELT_NSMUTABLEARRAY_REMOVE(lengths, VELT_ID(3L));
            }
        }
    }
    VELTS("textstat.bas", "ShowLongestLines", "134", "");
    print("  longest lines"_v);
    VELTS("textstat.bas", "ShowLongestLines", "135", "");
    last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(places), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("textstat.bas", "ShowLongestLines", "136", "");
        id line = VELT__STRING(VELT_TRIM(VELT_NSMUTABLEARRAY_OBJECT(lines, VELT_NSMUTABLEARRAY_OBJECT(places, i))));
        VELTS("textstat.bas", "ShowLongestLines", "137", "");
        if (VELT_CBOOL(VELT_GREATER(VELT_LEN(line), VELT_ID(60L)))) {
            VELTS("textstat.bas", "ShowLongestLines", "138", "");
            line = VELT__STRING(VELT_CONCAT(VELT_LEFT(line, VELT_ID(60L)), "…"_v));
        }
        VELTS("textstat.bas", "ShowLongestLines", "140", "");
        print(VELT_CONCAT(
            VELT_CONCAT(
                VELT_CONCAT(VELT_CONCAT(column(VELT_NSMUTABLEARRAY_OBJECT(lengths, i), VELT_ID(8L)), "  line "_v),
                            VELT_ADD(VELT_NSMUTABLEARRAY_OBJECT(places, i), VELT_ID(1L))),
                ": "_v),
            line));
    }
}

void showOccurrences(id text, id finds) {
    VELTS("textstat.bas", "ShowOccurrences", "145", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(finds), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("textstat.bas", "ShowOccurrences", "146", "");
        id sameCase = VELT__INTEGER(VELT_COUNT(text, VELT_NSMUTABLEARRAY_OBJECT(finds, i), VELT_ID(BOOL{1})));
        VELTS("textstat.bas", "ShowOccurrences", "147", "");
        id anyCase = VELT__INTEGER(VELT_COUNT(text, VELT_NSMUTABLEARRAY_OBJECT(finds, i), VELT_ID(BOOL{0})));
        VELTS("textstat.bas", "ShowOccurrences", "148", "");
        print(VELT_CONCAT(
            VELT_CONCAT(
                VELT_CONCAT(
                    VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("  "_v, VELT_CHARACTER(VELT_ID(34L))),
                                                                    VELT_NSMUTABLEARRAY_OBJECT(finds, i)),
                                                        VELT_CHARACTER(VELT_ID(34L))),
                                            ": "_v),
                                sameCase),
                    " in this case, "_v),
                anyCase),
            " in any case"_v));
    }
}

void showFile(id path, id finds, id totals, id allWords) {
    VELTS("textstat.bas", "ShowFile", "154", "");
    id text = VELT__STRING(VELT_READSTRING(location(path)));
    VELTS("textstat.bas", "ShowFile", "155", "");
    id lines = VELT__NSMUTABLEARRAY(VELT_SPLIT(VELT_REPLACE(text, VELT_CHARACTER(VELT_ID(13L)), ""_v, VELT_ID(BOOL{1})),
                                               VELT_CHARACTER(VELT_ID(10L))));
    VELTS("textstat.bas", "ShowFile", "156", "");
    if (VELT_CBOOL(VELT_EQUAL(
            VELT_LEN(VELT_NSMUTABLEARRAY_OBJECT(lines, VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), VELT_ID(1L)))),
            VELT_ID(0L)))) {
        VELTS("textstat.bas", "ShowFile", "157", "");
        VELT_NSMUTABLEARRAY_REMOVE(lines, VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), VELT_ID(1L)));
    }
    VELTS("textstat.bas", "ShowFile", "159", "");
    id table = velt::make<NSMutableDictionary>();
    VELTS("textstat.bas", "ShowFile", "160", "");
    id words = VELT__INTEGER(countWords(VELT__STRING(text), VELT__NSMUTABLEDICTIONARY(table)));
    VELTS("textstat.bas", "ShowFile", "161", "");
    print(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(path, ": "_v),
                                                                                  VELT_NSMUTABLEARRAY_COUNT(lines)),
                                                                      " lines, "_v),
                                                          words),
                                              " words, "_v),
                                  VELT_NSMUTABLEDICTIONARY_COUNT(table)),
                      " distinct words"_v));
    VELTS("textstat.bas", "ShowFile", "162", "");
    showWords(VELT__NSMUTABLEDICTIONARY(table));
    VELTS("textstat.bas", "ShowFile", "163", "");
    showLongestLines(VELT__NSMUTABLEARRAY(lines));
    VELTS("textstat.bas", "ShowFile", "164", "");
    showOccurrences(VELT__STRING(text), VELT__NSMUTABLEARRAY(finds));
    VELTS("textstat.bas", "ShowFile", "165", "");
    print(""_v);
    VELTS("textstat.bas", "ShowFile", "166", "");
    VELT_NSMUTABLEARRAY_REPLACE(
        totals, VELT_ADD(VELT_NSMUTABLEARRAY_OBJECT(totals, VELT_ID(0L)), VELT_NSMUTABLEARRAY_COUNT(lines)),
        VELT_ID(0L));
    VELTS("textstat.bas", "ShowFile", "167", "");
    VELT_NSMUTABLEARRAY_REPLACE(totals, VELT_ADD(VELT_NSMUTABLEARRAY_OBJECT(totals, VELT_ID(1L)), words), VELT_ID(1L));
    VELTS("textstat.bas", "ShowFile", "168", "");
    VELT_NSMUTABLEARRAY_REPLACE(totals, VELT_ADD(VELT_NSMUTABLEARRAY_OBJECT(totals, VELT_ID(2L)), VELT_ID(1L)),
                                VELT_ID(2L));
    VELTS("textstat.bas", "ShowFile", "169", "");
    addTable(VELT__NSMUTABLEDICTIONARY(allWords), VELT__NSMUTABLEDICTIONARY(table));
}

id mainFunction(id arguments) {
    VELTS("textstat.bas", "Main", "173", "");
    id paths = velt::make<NSMutableArray>();
    VELTS("textstat.bas", "Main", "174", "");
    id finds = velt::make<NSMutableArray>();
    VELTS("textstat.bas", "Main", "175", "");
    id i = VELT__INTEGER(VELT_ID(0L));
    while (VELTS("textstat.bas", "Main", "176", ""),
           VELT_CBOOL(VELT_SMALLER(i, VELT_NSMUTABLEARRAY_COUNT(arguments)))) {
        VELTS("textstat.bas", "Main", "177", "");
        id argument = VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(arguments, i));
        VELTS("textstat.bas", "Main", "178", "");
        if (VELT_CBOOL(VELT_EQUAL(argument, "--help"_v))) {
            VELTS("textstat.bas", "Main", "179", "");
            print("textstat [--find WORD]... [FILE or URL]..."_v);
            VELTS("textstat.bas", "Main", "180", "");
            return VELT_ID(0L);
        } else if (VELTS("textstat.bas", "Main", "181", ""),
                   VELT_CBOOL(
                       VELT_ANDALSO(VELT_EQUAL(argument, "--find"_v),
                                    VELT_SMALLER(VELT_ADD(i, VELT_ID(1L)), VELT_NSMUTABLEARRAY_COUNT(arguments))))) {
            VELTS("textstat.bas", "Main", "182", "");
            i = VELT__INTEGER(VELT_ADD(i, VELT_ID(1L)));
            VELTS("textstat.bas", "Main", "183", "");
            VELT_NSMUTABLEARRAY_APPEND(finds, VELT_NSMUTABLEARRAY_OBJECT(arguments, i));
        } else if (VELTS("textstat.bas", "Main", "184", ""),
                   VELT_CBOOL(VELT_STARTSWITH(argument, "--"_v, VELT_ID(BOOL{1})))) {
            VELTS("textstat.bas", "Main", "185", "");
            printError(
                VELT_CONCAT(VELT_CONCAT("textstat: "_v, argument), ": no such option, or its word is missing"_v));
            VELTS("textstat.bas", "Main", "186", "");
            return VELT_ID(2L);
        } else {
            VELTS("textstat.bas", "Main", "188", "");
            VELT_NSMUTABLEARRAY_APPEND(paths, argument);
        }
        VELTS("textstat.bas", "Main", "190", "");
        i = VELT__INTEGER(VELT_ADD(i, VELT_ID(1L)));
    }
    VELTS("textstat.bas", "Main", "192", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(paths), VELT_ID(0L)))) {
        VELTS("textstat.bas", "Main", "193", "");
        VELT_NSMUTABLEARRAY_APPEND(paths, "/usr/share/common-licenses/GPL-3"_v);
        VELTS("textstat.bas", "Main", "194", "");
        VELT_NSMUTABLEARRAY_APPEND(paths, VELT_CONCAT(velt::string(VELT_EXAMPLE_FOLDER), "/manyscripts.txt"_v));
    }
    VELTS("textstat.bas", "Main", "196", "");
    punctuation = VELT__NSMUTABLEDICTIONARY(punctuationMarks());
    VELTS("textstat.bas", "Main", "197", "");
    id totals = velt::make<NSMutableArray>();
    VELTS("textstat.bas", "Main", "198", "");
    for (i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, VELT_ID(2L))); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("textstat.bas", "Main", "199", "");
        VELT_NSMUTABLEARRAY_APPEND(totals, VELT_ID(0L));
    }
    VELTS("textstat.bas", "Main", "201", "");
    id allWords = velt::make<NSMutableDictionary>();
    VELTS("textstat.bas", "Main", "202", "");
    id status = VELT__INTEGER(VELT_ID(0L));
    VELTS("textstat.bas", "Main", "203", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(paths), VELT_ID(1L));
    for (i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        try {
            VELTS("textstat.bas", "Main", "205", "");
            showFile(VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(paths, i)), VELT__NSMUTABLEARRAY(finds),
                     VELT__NSMUTABLEARRAY(totals), VELT__NSMUTABLEDICTIONARY(allWords));
        } catch (const NSException& failure) {
            VELTS("textstat.bas", "Main", "207", "");
            printError(
                VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("textstat: "_v, VELT_NSMUTABLEARRAY_OBJECT(paths, i)), ": "_v),
                            velt::string(failure.reason())));
            VELTS("textstat.bas", "Main", "208", "");
            status = VELT__INTEGER(VELT_ID(1L));
        }
    }
    VELTS("textstat.bas", "Main", "211", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_OBJECT(totals, VELT_ID(2L)), VELT_ID(1L)))) {
        VELTS("textstat.bas", "Main", "212", "");
        print(VELT_CONCAT(
            VELT_CONCAT(
                VELT_CONCAT(
                    VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("total: "_v, VELT_NSMUTABLEARRAY_OBJECT(
                                                                                                 totals, VELT_ID(2L))),
                                                                    " files, "_v),
                                                        VELT_NSMUTABLEARRAY_OBJECT(totals, VELT_ID(0L))),
                                            " lines, "_v),
                                VELT_NSMUTABLEARRAY_OBJECT(totals, VELT_ID(1L))),
                    " words, "_v),
                VELT_NSMUTABLEDICTIONARY_COUNT(allWords)),
            " distinct words"_v));
    }
    VELTS("textstat.bas", "Main", "214", "");
    return VELT__INTEGER(status);
}

int program(int count, char** arguments) {
    return static_cast<int>(VELT_CINTEGER(mainFunction(argumentList(count, arguments))));
}

}  // namespace

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
