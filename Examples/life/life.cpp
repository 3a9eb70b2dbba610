// life.bas as the translator writes it: arrays of arrays, counted loops, a caught failure.
#include "support/console.h"

using example::argumentList;
using example::location;
using example::print;
using example::printError;

namespace {

id readBoard(id path) {
    VELTS("life.bas", "ReadBoard", "5", "");
    id lines = VELT__NSMUTABLEARRAY(VELT_SPLIT(VELT_READSTRING(path), VELT_CHARACTER(VELT_ID(10L))));
    VELTS("life.bas", "ReadBoard", "6", "");
    id width = VELT__INTEGER(VELT_ID(0L));
    VELTS("life.bas", "ReadBoard", "7", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), VELT_ID(1L));
    for (id y = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(y, last)); y = VELT_ADD(y, VELT_ID(1L))) {
        VELTS("life.bas", "ReadBoard", "8", "");
        width = VELT__INTEGER(VELT_MAX(width, VELT_LEN(VELT_NSMUTABLEARRAY_OBJECT(lines, y))));
    }
    VELTS("life.bas", "ReadBoard", "10", "");
    id board = velt::make<NSMutableArray>();
    VELTS("life.bas", "ReadBoard", "11", "");
    last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), VELT_ID(1L));
    for (id y = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(y, last)); y = VELT_ADD(y, VELT_ID(1L))) {
        VELTS("life.bas", "ReadBoard", "12", "");
        if (VELT_CBOOL(VELT_GREATER(VELT_LEN(VELT_NSMUTABLEARRAY_OBJECT(lines, y)), VELT_ID(0L)))) {
            VELTS("life.bas", "ReadBoard", "13", "");
            id row = velt::make<NSMutableArray>();
            VELTS("life.bas", "ReadBoard", "14", "");
            id lastX = VELT_SUB(width, VELT_ID(1L));
            for (id x = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(x, lastX)); x = VELT_ADD(x, VELT_ID(1L))) {
                VELTS("life.bas", "ReadBoard", "15", "");
                VELT_NSMUTABLEARRAY_APPEND(
                    row, VELT_EQUAL(VELT_MID(VELT_NSMUTABLEARRAY_OBJECT(lines, y), x, VELT_ID(1L)), "#"_v));
            }
            VELTS("life.bas", "ReadBoard", "17", "");
            VELT_NSMUTABLEARRAY_APPEND(board, row);
        }
    }
    VELTS("life.bas", "ReadBoard", "20", "");
    return VELT__NSMUTABLEARRAY(board);
}

id neighbours(id board, id x, id y) {
    VELTS("life.bas", "Neighbours", "24", "");
    id height = VELT__INTEGER(VELT_NSMUTABLEARRAY_COUNT(board));
    VELTS("life.bas", "Neighbours", "25", "");
    id width = VELT__INTEGER(VELT_NSMUTABLEARRAY_COUNT(VELT_NSMUTABLEARRAY_OBJECT(board, VELT_ID(0L))));
    VELTS("life.bas", "Neighbours", "26", "");
    id sum = VELT__INTEGER(VELT_ID(0L));
    VELTS("life.bas", "Neighbours", "27", "");
    for (id dy = VELT_MINUS(VELT_ID(1L)); VELT_CBOOL(VELT_SMALLEREQUAL(dy, VELT_ID(1L)));
         dy = VELT_ADD(dy, VELT_ID(1L))) {
        VELTS("life.bas", "Neighbours", "28", "");
        id row = VELT__NSMUTABLEARRAY(
            VELT_NSMUTABLEARRAY_OBJECT(board, VELT_MOD(VELT_ADD(VELT_ADD(y, dy), height), height)));
        VELTS("life.bas", "Neighbours", "29", "");
        for (id dx = VELT_MINUS(VELT_ID(1L)); VELT_CBOOL(VELT_SMALLEREQUAL(dx, VELT_ID(1L)));
             dx = VELT_ADD(dx, VELT_ID(1L))) {
            VELTS("life.bas", "Neighbours", "30", "");
            sum = VELT__INTEGER(
                VELT_ADD(sum, VELT_NSMUTABLEARRAY_OBJECT(row, VELT_MOD(VELT_ADD(VELT_ADD(x, dx), width), width))));
        }
    }
    VELTS("life.bas", "Neighbours", "33", "");
    return VELT__INTEGER(VELT_SUB(sum, VELT_NSMUTABLEARRAY_OBJECT(VELT_NSMUTABLEARRAY_OBJECT(board, y), x)));
}

id nextBoard(id board) {
    VELTS("life.bas", "NextBoard", "37", "");
    id result = velt::make<NSMutableArray>();
    VELTS("life.bas", "NextBoard", "38", "");
    id lastY = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(board), VELT_ID(1L));
    for (id y = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(y, lastY)); y = VELT_ADD(y, VELT_ID(1L))) {
        VELTS("life.bas", "NextBoard", "39", "");
        id row = velt::make<NSMutableArray>();
        VELTS("life.bas", "NextBoard", "40", "");
        id lastX = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(VELT_NSMUTABLEARRAY_OBJECT(board, y)), VELT_ID(1L));
        for (id x = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(x, lastX)); x = VELT_ADD(x, VELT_ID(1L))) {
            VELTS("life.bas", "NextBoard", "41", "");
            id n = VELT__INTEGER(neighbours(board, x, y));
            VELTS("life.bas", "NextBoard", "42", "");
            VELT_NSMUTABLEARRAY_APPEND(
                row, VELT_ORELSE(VELT_EQUAL(n, VELT_ID(3L)),
                                 VELT_ANDALSO(VELT_EQUAL(n, VELT_ID(2L)),
                                              VELT_NSMUTABLEARRAY_OBJECT(VELT_NSMUTABLEARRAY_OBJECT(board, y), x))));
        }
        VELTS("life.bas", "NextBoard", "44", "");
        VELT_NSMUTABLEARRAY_APPEND(result, row);
    }
    VELTS("life.bas", "NextBoard", "46", "");
    return VELT__NSMUTABLEARRAY(result);
}

void showBoard(id board, id generation) {
    VELTS("life.bas", "ShowBoard", "50", "");
    id population = VELT__INTEGER(VELT_ID(0L));
    VELTS("life.bas", "ShowBoard", "51", "");
    id picture = velt::make<NSMutableArray>();
    VELTS("life.bas", "ShowBoard", "52", "");
    id lastY = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(board), VELT_ID(1L));
    for (id y = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(y, lastY)); y = VELT_ADD(y, VELT_ID(1L))) {
        VELTS("life.bas", "ShowBoard", "53", "");
        id row = VELT__STRING(""_v);
        VELTS("life.bas", "ShowBoard", "54", "");
        id lastX = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(VELT_NSMUTABLEARRAY_OBJECT(board, y)), VELT_ID(1L));
        for (id x = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(x, lastX)); x = VELT_ADD(x, VELT_ID(1L))) {
            VELTS("life.bas", "ShowBoard", "55", "");
            if (VELT_CBOOL(VELT_NSMUTABLEARRAY_OBJECT(VELT_NSMUTABLEARRAY_OBJECT(board, y), x))) {
                VELTS("life.bas", "ShowBoard", "56", "");
                population = VELT__INTEGER(VELT_ADD(population, VELT_ID(1L)));
                VELTS("life.bas", "ShowBoard", "57", "");
                row = VELT__STRING(VELT_CONCAT(row, "#"_v));
            } else {
                VELTS("life.bas", "ShowBoard", "59", "");
                row = VELT__STRING(VELT_CONCAT(row, "."_v));
            }
        }
        VELTS("life.bas", "ShowBoard", "62", "");
        VELT_NSMUTABLEARRAY_APPEND(picture, row);
    }
    VELTS("life.bas", "ShowBoard", "64", "");
    print(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("Generation "_v, generation), ", population "_v), population));
    VELTS("life.bas", "ShowBoard", "65", "");
    print(VELT_JOIN(picture, VELT_CHARACTER(VELT_ID(10L))));
}

id mainFunction(id arguments) {
    VELTS("life.bas", "Main", "69", "");
    id generations = VELT__INTEGER(VELT_ID(4L));
    VELTS("life.bas", "Main", "70", "");
    id path = VELT__STRING(VELT_CONCAT(velt::string(VELT_EXAMPLE_FOLDER), "/glider.txt"_v));
    VELTS("life.bas", "Main", "71", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(0L)))) {
        VELTS("life.bas", "Main", "72", "");
        generations = VELT__INTEGER(
            VELT_MAX(VELT_ID(0L), VELT_ID(VELT_CINTEGER(VELT_NSMUTABLEARRAY_OBJECT(arguments, VELT_ID(0L))))));
    }
    VELTS("life.bas", "Main", "74", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(1L)))) {
        VELTS("life.bas", "Main", "75", "");
        path = VELT__STRING(location(VELT_NSMUTABLEARRAY_OBJECT(arguments, VELT_ID(1L))));
    }
    try {
        VELTS("life.bas", "Main", "78", "");
        id board = VELT__NSMUTABLEARRAY(readBoard(path));
        VELTS("life.bas", "Main", "79", "");
        showBoard(board, VELT_ID(0L));
        VELTS("life.bas", "Main", "80", "");
        for (id generation = VELT_ID(1L); VELT_CBOOL(VELT_SMALLEREQUAL(generation, generations));
             generation = VELT_ADD(generation, VELT_ID(1L))) {
            VELTS("life.bas", "Main", "81", "");
            board = VELT__NSMUTABLEARRAY(nextBoard(board));
        }
        VELTS("life.bas", "Main", "83", "");
        showBoard(board, generations);
    } catch (const NSException& failure) {
        VELTS("life.bas", "Main", "85", "");
        printError(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("life: cannot read "_v, path), ": "_v),
                               velt::string(failure.reason())));
        VELTS("life.bas", "Main", "86", "");
        return VELT_ID(1L);
    }
    VELTS("life.bas", "Main", "88", "");
    return VELT_ID(0L);
}

int program(int count, char** arguments) {
    return static_cast<int>(VELT_CINTEGER(mainFunction(argumentList(count, arguments))));
}

}  // namespace

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
