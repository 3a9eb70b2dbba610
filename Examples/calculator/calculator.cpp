// calculator.bas as the translator writes it: an object of the program's class, messages, failures caught and reported.
#include "parser.h"
#include "support/console.h"

using example::argumentList;
using example::location;
using example::print;
using example::printError;
using example::readLine;

namespace {

const id kTrue = VELT_ID(BOOL{1});
const id kFalse = VELT_ID(BOOL{0});

id shown(id value) {
    VELTS("calculator.bas", "Shown", "4", "");
    if (VELT_CBOOL(VELT_ISSTRING(value))) {
        VELTS("calculator.bas", "Shown", "5", "");
        return VELT__STRING(
            VELT_CONCAT(VELT_CONCAT(VELT_CHARACTER(VELT_ID(34L)), value), VELT_CHARACTER(VELT_ID(34L))));
    }
    VELTS("calculator.bas", "Shown", "7", "");
    return VELT__STRING(VELT_INFO(value));
}

id evaluateLine(id parser, id source, id number) {
    VELTS("calculator.bas", "EvaluateLine", "11", "");
    id text = VELT__STRING(VELT_REPLACE(source, VELT_CHARACTER(VELT_ID(13L)), ""_v, kTrue));
    VELTS("calculator.bas", "EvaluateLine", "12", "");
    id expression = VELT__STRING(VELT_TRIM(text));
    VELTS("calculator.bas", "EvaluateLine", "13", "");
    if (VELT_CBOOL(
            VELT_ORELSE(VELT_EQUAL(VELT_LEN(expression), VELT_ID(0L)), VELT_STARTSWITH(expression, "'"_v, kTrue)))) {
        VELTS("calculator.bas", "EvaluateLine", "14", "");
        return VELT__BOOLEAN(kTrue);
    }
    try {
        VELTS("calculator.bas", "EvaluateLine", "17", "");
        id value = velt::send(parser, "Evaluate::", text, number);
        VELTS("calculator.bas", "EvaluateLine", "18", "");
        print(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(expression, " → "_v), shown(value)), " ("_v),
                                      VELT_TYPENAME(value)),
                          ")"_v));
    } catch (const NSException& failure) {
        VELTS("calculator.bas", "EvaluateLine", "20", "");
        printError(velt::string(velt::reportText(failure)));
        VELTS("calculator.bas", "EvaluateLine", "21", "");
        return VELT__BOOLEAN(kFalse);
    }
    VELTS("calculator.bas", "EvaluateLine", "23", "");
    return VELT__BOOLEAN(kTrue);
}

id evaluateFile(id path) {
    VELTS("calculator.bas", "EvaluateFile", "27", "");
    id lines = VELT__NSMUTABLEARRAY(VELT_SPLIT(VELT_READSTRING(location(path)), VELT_CHARACTER(VELT_ID(10L))));
    VELTS("calculator.bas", "EvaluateFile", "28", "");
    id parser = velt::make<Parser>();
    VELTS("calculator.bas", "EvaluateFile", "29", "");
    velt::send(parser, "Prepare:", VELT_FILENAME(path));
    VELTS("calculator.bas", "EvaluateFile", "30", "");
    id good = VELT__BOOLEAN(kTrue);
    VELTS("calculator.bas", "EvaluateFile", "31", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("calculator.bas", "EvaluateFile", "32", "");
        if (VELT_CBOOL(VELT_EQUAL(evaluateLine(parser, VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(lines, i)),
                                               VELT__INTEGER(VELT_ADD(i, VELT_ID(1L)))),
                                  kFalse))) {
            VELTS("calculator.bas", "EvaluateFile", "33", "");
            good = VELT__BOOLEAN(kFalse);
        }
    }
    VELTS("calculator.bas", "EvaluateFile", "36", "");
    return VELT__BOOLEAN(good);
}

id evaluateInput() {
    VELTS("calculator.bas", "EvaluateInput", "40", "");
    id parser = velt::make<Parser>();
    VELTS("calculator.bas", "EvaluateInput", "41", "");
    velt::send(parser, "Prepare:", "input"_v);
    VELTS("calculator.bas", "EvaluateInput", "42", "");
    id good = VELT__BOOLEAN(kTrue);
    VELTS("calculator.bas", "EvaluateInput", "43", "");
    id number = VELT__INTEGER(VELT_ID(1L));
    VELTS("calculator.bas", "EvaluateInput", "44", "");
    id source = VELT__STRING(readLine());
    while (VELTS("calculator.bas", "EvaluateInput", "45", ""), VELT_CBOOL(VELT_UNEQUAL(source, nil))) {
        VELTS("calculator.bas", "EvaluateInput", "46", "");
        if (VELT_CBOOL(VELT_EQUAL(evaluateLine(parser, VELT__STRING(source), VELT__INTEGER(number)), kFalse))) {
            VELTS("calculator.bas", "EvaluateInput", "47", "");
            good = VELT__BOOLEAN(kFalse);
        }
        VELTS("calculator.bas", "EvaluateInput", "49", "");
        number = VELT__INTEGER(VELT_ADD(number, VELT_ID(1L)));
        VELTS("calculator.bas", "EvaluateInput", "50", "");
        source = VELT__STRING(readLine());
    }
    VELTS("calculator.bas", "EvaluateInput", "52", "");
    return VELT__BOOLEAN(good);
}

id mainFunction(id arguments) {
    VELTS("calculator.bas", "Main", "56", "");
    id good = VELT__BOOLEAN(kTrue);
    try {
        VELTS("calculator.bas", "Main", "58", "");
        if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(0L)))) {
            VELTS("calculator.bas", "Main", "59", "");
            good = VELT__BOOLEAN(evaluateFile(VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(arguments, VELT_ID(0L)))));
        } else {
            VELTS("calculator.bas", "Main", "61", "");
            good = VELT__BOOLEAN(evaluateInput());
        }
    } catch (const NSException& failure) {
        VELTS("calculator.bas", "Main", "64", "");
        printError(VELT_CONCAT(
            VELT_CONCAT(VELT_CONCAT("calculator: "_v, VELT_NSMUTABLEARRAY_OBJECT(arguments, VELT_ID(0L))), ": "_v),
            velt::string(failure.reason())));
        VELTS("calculator.bas", "Main", "65", "");
        return VELT_ID(1L);
    }
    VELTS("calculator.bas", "Main", "67", "");
    if (VELT_CBOOL(good)) {
        VELTS("calculator.bas", "Main", "68", "");
        return VELT_ID(0L);
    }
    VELTS("calculator.bas", "Main", "70", "");
    return VELT_ID(1L);
}

int program(int count, char** arguments) {
    return static_cast<int>(VELT_CINTEGER(mainFunction(argumentList(count, arguments))));
}

}  // namespace

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
