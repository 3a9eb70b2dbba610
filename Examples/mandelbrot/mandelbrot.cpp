// mandelbrot.bas as the translator writes it: Doubles in a loop with a condition.
#include "support/console.h"

using example::argumentList;
using example::print;
using example::printError;

namespace {

id stepsToEscape(id x, id y, id limit) {
    VELTS("mandelbrot.bas", "StepsToEscape", "4", "");
    id a = VELT__DOUBLE(VELT_ID(0.0));
    VELTS("mandelbrot.bas", "StepsToEscape", "5", "");
    id b = VELT__DOUBLE(VELT_ID(0.0));
    VELTS("mandelbrot.bas", "StepsToEscape", "6", "");
    id n = VELT__INTEGER(VELT_ID(0L));
    while (VELTS("mandelbrot.bas", "StepsToEscape", "7", ""),
           VELT_CBOOL(VELT_ANDALSO(VELT_SMALLEREQUAL(VELT_ADD(VELT_MUL(a, a), VELT_MUL(b, b)), VELT_ID(4.0)),
                                   VELT_SMALLER(n, limit)))) {
        VELTS("mandelbrot.bas", "StepsToEscape", "8", "");
        id t = VELT__DOUBLE(VELT_ADD(VELT_SUB(VELT_MUL(a, a), VELT_MUL(b, b)), x));
        VELTS("mandelbrot.bas", "StepsToEscape", "9", "");
        b = VELT__DOUBLE(VELT_ADD(VELT_MUL(VELT_MUL(VELT_ID(2.0), a), b), y));
        VELTS("mandelbrot.bas", "StepsToEscape", "10", "");
        a = VELT__DOUBLE(t);
        VELTS("mandelbrot.bas", "StepsToEscape", "11", "");
        n = VELT__INTEGER(VELT_ADD(n, VELT_ID(1L)));
    }
    VELTS("mandelbrot.bas", "StepsToEscape", "13", "");
    return VELT__INTEGER(n);
}

id row(id y, id width, id limit) {
    VELTS("mandelbrot.bas", "Row", "17", "");
    id shades = VELT__STRING(".,:;-=+*%@"_v);
    VELTS("mandelbrot.bas", "Row", "18", "");
    id text = VELT__STRING(""_v);
    VELTS("mandelbrot.bas", "Row", "19", "");
    id last = VELT_SUB(width, VELT_ID(1L));
    for (id column = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(column, last)); column = VELT_ADD(column, VELT_ID(1L))) {
        VELTS("mandelbrot.bas", "Row", "20", "");
        id x = VELT__DOUBLE(VELT_ADD(VELT_MINUS(VELT_ID(2.2)),
                                     VELT_DIV(VELT_MUL(VELT_ID(3.2), VELT_ADD(column, VELT_ID(0.5))), width)));
        VELTS("mandelbrot.bas", "Row", "21", "");
        id steps = VELT__INTEGER(stepsToEscape(VELT__DOUBLE(x), VELT__DOUBLE(y), VELT__INTEGER(limit)));
        VELTS("mandelbrot.bas", "Row", "22", "");
        if (VELT_CBOOL(VELT_EQUAL(steps, limit))) {
            VELTS("mandelbrot.bas", "Row", "23", "");
            text = VELT__STRING(VELT_CONCAT(text, " "_v));
        } else {
            VELTS("mandelbrot.bas", "Row", "25", "");
            text = VELT__STRING(VELT_CONCAT(text, VELT_AT(shades, VELT_MOD(steps, VELT_LEN(shades)))));
        }
    }
    VELTS("mandelbrot.bas", "Row", "28", "");
    return VELT__STRING(text);
}

id argument(id arguments, id index, id usual) {
    VELTS("mandelbrot.bas", "Argument", "32", "");
    if (VELT_CBOOL(VELT_GREATEREQUAL(index, VELT_NSMUTABLEARRAY_COUNT(arguments)))) {
        VELTS("mandelbrot.bas", "Argument", "33", "");
        return VELT__INTEGER(usual);
    }
    VELTS("mandelbrot.bas", "Argument", "35", "");
    return VELT__INTEGER(VELT_ID(VELT_CINTEGER(VELT_NSMUTABLEARRAY_OBJECT(arguments, index))));
}

id mainFunction(id arguments) {
    VELTS("mandelbrot.bas", "Main", "39", "");
    id width = VELT__INTEGER(argument(arguments, VELT_ID(0L), VELT_ID(72L)));
    VELTS("mandelbrot.bas", "Main", "40", "");
    id height = VELT__INTEGER(argument(arguments, VELT_ID(1L), VELT_ID(28L)));
    VELTS("mandelbrot.bas", "Main", "41", "");
    id limit = VELT__INTEGER(argument(arguments, VELT_ID(2L), VELT_ID(200L)));
    VELTS("mandelbrot.bas", "Main", "42", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_ORELSE(VELT_SMALLER(width, VELT_ID(1L)), VELT_SMALLER(height, VELT_ID(1L))),
                               VELT_SMALLER(limit, VELT_ID(1L))))) {
        VELTS("mandelbrot.bas", "Main", "43", "");
        printError("mandelbrot: WIDTH, HEIGHT and ITERATIONS are numbers from 1 on"_v);
        VELTS("mandelbrot.bas", "Main", "44", "");
        return VELT_ID(2L);
    }
    VELTS("mandelbrot.bas", "Main", "46", "");
    id last = VELT_SUB(height, VELT_ID(1L));
    for (id line = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(line, last)); line = VELT_ADD(line, VELT_ID(1L))) {
        VELTS("mandelbrot.bas", "Main", "47", "");
        print(row(VELT__DOUBLE(VELT_ADD(VELT_MINUS(VELT_ID(1.2)),
                                        VELT_DIV(VELT_MUL(VELT_ID(2.4), VELT_ADD(line, VELT_ID(0.5))), height))),
                  VELT__INTEGER(width), VELT__INTEGER(limit)));
    }
    VELTS("mandelbrot.bas", "Main", "49", "");
    return VELT_ID(0L);
}

int program(int count, char** arguments) {
    return static_cast<int>(VELT_CINTEGER(mainFunction(argumentList(count, arguments))));
}

}  // namespace

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
