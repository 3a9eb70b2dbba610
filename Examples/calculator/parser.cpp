// parser.bas as the translator writes it: methods, recursion, failures with a place.
#include "parser.h"

#include "functions.h"

using calculator::applyFunction;
using calculator::applyOperator;
using calculator::argumentCount;
using calculator::raiseSyntaxError;

namespace {

const id kTrue = VELT_ID(BOOL{1});
const id kFalse = VELT_ID(BOOL{0});
const id kDeepestNesting = VELT_ID(200L);

}  // namespace

void Parser::prepare(id fileName) {
    VELTS("parser.bas", "Parser.Prepare", "16", "");
    file = VELT__STRING(fileName);
    VELTS("parser.bas", "Parser.Prepare", "18", "");
    levels_ =
        VELT__NSMUTABLEARRAY(VELT_SPLIT("OrElse Or Xor,AndAlso And,<> <= >= = < >,Shl Shr,&,+ -,Mod,\\,* /"_v, ","_v));
    VELTS("parser.bas", "Parser.Prepare", "19", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(levels_), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("parser.bas", "Parser.Prepare", "20", "");
        VELT_NSMUTABLEARRAY_REPLACE(levels_, VELT_SPLIT(VELT_NSMUTABLEARRAY_OBJECT(levels_, i), " "_v), i);
    }
    VELTS("parser.bas", "Parser.Prepare", "22", "");
    variables_ = velt::make<NSMutableDictionary>();
    VELTS("parser.bas", "Parser.Prepare", "23", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(variables_, "true"_v, kTrue);
    VELTS("parser.bas", "Parser.Prepare", "24", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(variables_, "false"_v, kFalse);
}

id Parser::evaluate(id source, id number) {
    VELTS("parser.bas", "Parser.Evaluate", "29", "");
    text_ = VELT__STRING(source);
    VELTS("parser.bas", "Parser.Evaluate", "30", "");
    line = VELT__STRING(VELT_CSTRING(number));
    VELTS("parser.bas", "Parser.Evaluate", "31", "");
    position_ = VELT__INTEGER(VELT_ID(0L));
    VELTS("parser.bas", "Parser.Evaluate", "32", "");
    depth_ = VELT__INTEGER(VELT_ID(0L));
    VELTS("parser.bas", "Parser.Evaluate", "33", "");
    id name = VELT__STRING(takeName());
    VELTS("parser.bas", "Parser.Evaluate", "34", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_GREATER(VELT_LEN(name), VELT_ID(0L)), takeOperator("="_v)))) {
        VELTS("parser.bas", "Parser.Evaluate", "35", "");
        id result = parseLevel(VELT_ID(0L));
        VELTS("parser.bas", "Parser.Evaluate", "36", "");
        expectEnd();
        VELTS("parser.bas", "Parser.Evaluate", "37", "");
        VELT_NSMUTABLEDICTIONARY_INSERT(variables_, VELT_LCASE(name), result);
        VELTS("parser.bas", "Parser.Evaluate", "38", "");
        return result;
    }
    VELTS("parser.bas", "Parser.Evaluate", "40", "");
    position_ = VELT__INTEGER(VELT_ID(0L));
    VELTS("parser.bas", "Parser.Evaluate", "41", "");
    id value = parseLevel(VELT_ID(0L));
    VELTS("parser.bas", "Parser.Evaluate", "42", "");
    expectEnd();
    VELTS("parser.bas", "Parser.Evaluate", "43", "");
    return value;
}

void Parser::fail(id reason) {
    VELTS("parser.bas", "Parser.Fail", "47", "");
    raiseSyntaxError(
        file, line,
        VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("column "_v, VELT_ADD(position_, VELT_ID(1L))), ": "_v), reason));
}

id Parser::peek() {
    VELTS("parser.bas", "Parser.Peek", "51", "");
    if (VELT_CBOOL(VELT_SMALLER(position_, VELT_LEN(text_)))) {
        VELTS("parser.bas", "Parser.Peek", "52", "");
        return VELT__STRING(VELT_AT(text_, position_));
    }
    VELTS("parser.bas", "Parser.Peek", "54", "");
    return VELT__STRING(""_v);
}

void Parser::skipBlanks() {
    while (VELTS("parser.bas", "Parser.SkipBlanks", "58", ""),
           VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(peek(), " "_v), VELT_EQUAL(peek(), VELT_CHARACTER(VELT_ID(9L)))))) {
        VELTS("parser.bas", "Parser.SkipBlanks", "59", "");
        position_ = VELT__INTEGER(VELT_ADD(position_, VELT_ID(1L)));
    }
}

void Parser::expectEnd() {
    VELTS("parser.bas", "Parser.ExpectEnd", "64", "");
    skipBlanks();
    VELTS("parser.bas", "Parser.ExpectEnd", "65", "");
    if (VELT_CBOOL(VELT_SMALLER(position_, VELT_LEN(text_)))) {
        VELTS("parser.bas", "Parser.ExpectEnd", "66", "");
        fail("the end of the line or an operator expected"_v);
    }
}

void Parser::expect(id sign) {
    VELTS("parser.bas", "Parser.Expect", "71", "");
    if (VELT_CBOOL(VELT_EQUAL(takeOperator(sign), kFalse))) {
        VELTS("parser.bas", "Parser.Expect", "72", "");
        fail(VELT_CONCAT(VELT_CONCAT("'"_v, sign), "' expected"_v));
    }
}

id Parser::isDigit(id sign) {
    VELTS("parser.bas", "Parser.IsDigit", "77", "");
    return VELT__BOOLEAN(VELT_CONTAINS("0123456789"_v, sign, kTrue));
}

id Parser::isNamePart(id sign) {
    VELTS("parser.bas", "Parser.IsNamePart", "81", "");
    return VELT__BOOLEAN(VELT_ANDALSO(VELT_GREATER(VELT_LEN(sign), VELT_ID(0L)),
                                      VELT_ORELSE(VELT_ORELSE(VELT_EQUAL(sign, "_"_v), isDigit(sign)),
                                                  VELT_UNEQUAL(VELT_LCASE(sign), VELT_UCASE(sign)))));
}

id Parser::takeName() {
    VELTS("parser.bas", "Parser.TakeName", "86", "");
    skipBlanks();
    VELTS("parser.bas", "Parser.TakeName", "87", "");
    id start = VELT__INTEGER(position_);
    VELTS("parser.bas", "Parser.TakeName", "88", "");
    if (VELT_CBOOL(isDigit(peek()))) {
        VELTS("parser.bas", "Parser.TakeName", "89", "");
        return VELT__STRING(""_v);
    }
    while (VELTS("parser.bas", "Parser.TakeName", "91", ""), VELT_CBOOL(isNamePart(peek()))) {
        VELTS("parser.bas", "Parser.TakeName", "92", "");
        position_ = VELT__INTEGER(VELT_ADD(position_, VELT_ID(1L)));
    }
    VELTS("parser.bas", "Parser.TakeName", "94", "");
    return VELT__STRING(VELT_MID(text_, start, VELT_SUB(position_, start)));
}

id Parser::takeOperator(id sign) {
    VELTS("parser.bas", "Parser.TakeOperator", "99", "");
    skipBlanks();
    VELTS("parser.bas", "Parser.TakeOperator", "100", "");
    if (VELT_CBOOL(
            VELT_EQUAL(VELT_STARTSWITH(VELT_MID(text_, position_, VELT_MINUS(VELT_ID(1L))), sign, kFalse), kFalse))) {
        VELTS("parser.bas", "Parser.TakeOperator", "101", "");
        return VELT__BOOLEAN(kFalse);
    }
    VELTS("parser.bas", "Parser.TakeOperator", "103", "");
    if (VELT_CBOOL(VELT_ANDALSO(isNamePart(VELT_AT(sign, VELT_ID(0L))),
                                isNamePart(VELT_MID(text_, VELT_ADD(position_, VELT_LEN(sign)), VELT_ID(1L)))))) {
        VELTS("parser.bas", "Parser.TakeOperator", "104", "");
        return VELT__BOOLEAN(kFalse);
    }
    VELTS("parser.bas", "Parser.TakeOperator", "106", "");
    position_ = VELT__INTEGER(VELT_ADD(position_, VELT_LEN(sign)));
    VELTS("parser.bas", "Parser.TakeOperator", "107", "");
    return VELT__BOOLEAN(kTrue);
}

void Parser::descend() {
    VELTS("parser.bas", "Parser.Descend", "111", "");
    depth_ = VELT__INTEGER(VELT_ADD(depth_, VELT_ID(1L)));
    VELTS("parser.bas", "Parser.Descend", "112", "");
    if (VELT_CBOOL(VELT_GREATER(depth_, kDeepestNesting))) {
        VELTS("parser.bas", "Parser.Descend", "113", "");
        fail("nested too deeply"_v);
    }
}

id Parser::parseLevel(id level) {
    VELTS("parser.bas", "Parser.ParseLevel", "118", "");
    if (VELT_CBOOL(VELT_EQUAL(level, VELT_NSMUTABLEARRAY_COUNT(levels_)))) {
        VELTS("parser.bas", "Parser.ParseLevel", "119", "");
        return parseSigned();
    }
    VELTS("parser.bas", "Parser.ParseLevel", "121", "");
    if (VELT_CBOOL(VELT_EQUAL(level, VELT_ID(2L)))) {
        VELTS("parser.bas", "Parser.ParseLevel", "122", "");
        if (VELT_CBOOL(takeOperator("Not"_v))) {
            VELTS("parser.bas", "Parser.ParseLevel", "123", "");
            descend();
            VELTS("parser.bas", "Parser.ParseLevel", "124", "");
            id operands = velt::make<NSMutableArray>();
            VELTS("parser.bas", "Parser.ParseLevel", "125", "");
            VELT_NSMUTABLEARRAY_APPEND(operands, parseLevel(VELT_ID(2L)));
            VELTS("parser.bas", "Parser.ParseLevel", "126", "");
            depth_ = VELT__INTEGER(VELT_SUB(depth_, VELT_ID(1L)));
            VELTS("parser.bas", "Parser.ParseLevel", "127", "");
            return applyFunction("Not"_v, operands, file, line);
        }
    }
    VELTS("parser.bas", "Parser.ParseLevel", "130", "");
    id result = parseLevel(VELT_ADD(level, VELT_ID(1L)));
    VELTS("parser.bas", "Parser.ParseLevel", "131", "");
    id i = VELT__INTEGER(VELT_ID(0L));
    while (VELTS("parser.bas", "Parser.ParseLevel", "132", ""),
           VELT_CBOOL(VELT_SMALLER(i, VELT_NSMUTABLEARRAY_COUNT(VELT_NSMUTABLEARRAY_OBJECT(levels_, level))))) {
        VELTS("parser.bas", "Parser.ParseLevel", "133", "");
        id sign = VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(VELT_NSMUTABLEARRAY_OBJECT(levels_, level), i));
        VELTS("parser.bas", "Parser.ParseLevel", "134", "");
        if (VELT_CBOOL(takeOperator(sign))) {
            VELTS("parser.bas", "Parser.ParseLevel", "135", "");
            id right = parseLevel(VELT_ADD(level, VELT_ID(1L)));
            VELTS("parser.bas", "Parser.ParseLevel", "136", "");
            result = applyOperator(sign, result, right, file, line);
            VELTS("parser.bas", "Parser.ParseLevel", "137", "");
            i = VELT__INTEGER(VELT_ID(0L));
        } else {
            VELTS("parser.bas", "Parser.ParseLevel", "139", "");
            i = VELT__INTEGER(VELT_ADD(i, VELT_ID(1L)));
        }
    }
    VELTS("parser.bas", "Parser.ParseLevel", "142", "");
    return result;
}

id Parser::parseSigned() {
    VELTS("parser.bas", "Parser.ParseSigned", "146", "");
    if (VELT_CBOOL(takeOperator("-"_v))) {
        VELTS("parser.bas", "Parser.ParseSigned", "147", "");
        descend();
        VELTS("parser.bas", "Parser.ParseSigned", "148", "");
        id operands = velt::make<NSMutableArray>();
        VELTS("parser.bas", "Parser.ParseSigned", "149", "");
        VELT_NSMUTABLEARRAY_APPEND(operands, parseSigned());
        VELTS("parser.bas", "Parser.ParseSigned", "150", "");
        depth_ = VELT__INTEGER(VELT_SUB(depth_, VELT_ID(1L)));
        VELTS("parser.bas", "Parser.ParseSigned", "151", "");
        return applyFunction("-"_v, operands, file, line);
    }
    VELTS("parser.bas", "Parser.ParseSigned", "153", "");
    return parsePrimary();
}

id Parser::parsePrimary() {
    VELTS("parser.bas", "Parser.ParsePrimary", "157", "");
    skipBlanks();
    VELTS("parser.bas", "Parser.ParsePrimary", "158", "");
    if (VELT_CBOOL(takeOperator("("_v))) {
        VELTS("parser.bas", "Parser.ParsePrimary", "159", "");
        descend();
        VELTS("parser.bas", "Parser.ParsePrimary", "160", "");
        id inner = parseLevel(VELT_ID(0L));
        VELTS("parser.bas", "Parser.ParsePrimary", "161", "");
        depth_ = VELT__INTEGER(VELT_SUB(depth_, VELT_ID(1L)));
        VELTS("parser.bas", "Parser.ParsePrimary", "162", "");
        expect(")"_v);
        VELTS("parser.bas", "Parser.ParsePrimary", "163", "");
        return inner;
    }
    VELTS("parser.bas", "Parser.ParsePrimary", "165", "");
    if (VELT_CBOOL(VELT_EQUAL(peek(), VELT_CHARACTER(VELT_ID(34L))))) {
        VELTS("parser.bas", "Parser.ParsePrimary", "166", "");
        return parseString();
    }
    VELTS("parser.bas", "Parser.ParsePrimary", "168", "");
    if (VELT_CBOOL(takeOperator("&H"_v))) {
        VELTS("parser.bas", "Parser.ParsePrimary", "169", "");
        return parseHexadecimal();
    }
    VELTS("parser.bas", "Parser.ParsePrimary", "171", "");
    if (VELT_CBOOL(VELT_ORELSE(isDigit(peek()), VELT_EQUAL(peek(), "."_v)))) {
        VELTS("parser.bas", "Parser.ParsePrimary", "172", "");
        return parseNumber();
    }
    VELTS("parser.bas", "Parser.ParsePrimary", "174", "");
    id start = VELT__INTEGER(position_);
    VELTS("parser.bas", "Parser.ParsePrimary", "175", "");
    id name = VELT__STRING(takeName());
    VELTS("parser.bas", "Parser.ParsePrimary", "176", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_LEN(name), VELT_ID(0L)))) {
        VELTS("parser.bas", "Parser.ParsePrimary", "177", "");
        fail("a value expected"_v);
    }
    VELTS("parser.bas", "Parser.ParsePrimary", "179", "");
    if (VELT_CBOOL(takeOperator("("_v))) {
        VELTS("parser.bas", "Parser.ParsePrimary", "180", "");
        return parseCall(VELT__STRING(name), VELT__INTEGER(start));
    }
    VELTS("parser.bas", "Parser.ParsePrimary", "182", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEDICTIONARY_CONTAINS(variables_, VELT_LCASE(name)), kFalse))) {
        VELTS("parser.bas", "Parser.ParsePrimary", "183", "");
        position_ = VELT__INTEGER(start);
        VELTS("parser.bas", "Parser.ParsePrimary", "184", "");
        fail(VELT_CONCAT("there is no variable named "_v, name));
    }
    VELTS("parser.bas", "Parser.ParsePrimary", "186", "");
    return VELT_NSMUTABLEDICTIONARY_OBJECT(variables_, VELT_LCASE(name));
}

id Parser::parseCall(id name, id start) {
    VELTS("parser.bas", "Parser.ParseCall", "190", "");
    id wanted = VELT__INTEGER(argumentCount(name));
    VELTS("parser.bas", "Parser.ParseCall", "191", "");
    if (VELT_CBOOL(VELT_SMALLER(wanted, VELT_ID(0L)))) {
        VELTS("parser.bas", "Parser.ParseCall", "192", "");
        position_ = VELT__INTEGER(start);
        VELTS("parser.bas", "Parser.ParseCall", "193", "");
        fail(VELT_CONCAT("there is no function named "_v, name));
    }
    VELTS("parser.bas", "Parser.ParseCall", "195", "");
    id arguments = velt::make<NSMutableArray>();
    VELTS("parser.bas", "Parser.ParseCall", "196", "");
    descend();
    while (VELTS("parser.bas", "Parser.ParseCall", "197", ""),
           VELT_CBOOL(VELT_SMALLER(VELT_NSMUTABLEARRAY_COUNT(arguments), wanted))) {
        VELTS("parser.bas", "Parser.ParseCall", "198", "");
        if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(0L)))) {
            VELTS("parser.bas", "Parser.ParseCall", "199", "");
            expect(","_v);
        }
        VELTS("parser.bas", "Parser.ParseCall", "201", "");
        VELT_NSMUTABLEARRAY_APPEND(arguments, parseLevel(VELT_ID(0L)));
    }
    VELTS("parser.bas", "Parser.ParseCall", "203", "");
    depth_ = VELT__INTEGER(VELT_SUB(depth_, VELT_ID(1L)));
    VELTS("parser.bas", "Parser.ParseCall", "204", "");
    expect(")"_v);
    VELTS("parser.bas", "Parser.ParseCall", "205", "");
    return applyFunction(name, arguments, file, line);
}

void Parser::takeDigits() {
    while (VELTS("parser.bas", "Parser.TakeDigits", "209", ""), VELT_CBOOL(isDigit(peek()))) {
        VELTS("parser.bas", "Parser.TakeDigits", "210", "");
        position_ = VELT__INTEGER(VELT_ADD(position_, VELT_ID(1L)));
    }
}

id Parser::parseNumber() {
    VELTS("parser.bas", "Parser.ParseNumber", "216", "");
    id start = VELT__INTEGER(position_);
    VELTS("parser.bas", "Parser.ParseNumber", "217", "");
    takeDigits();
    VELTS("parser.bas", "Parser.ParseNumber", "218", "");
    id floating = VELT__BOOLEAN(VELT_EQUAL(peek(), "."_v));
    VELTS("parser.bas", "Parser.ParseNumber", "219", "");
    if (VELT_CBOOL(floating)) {
        VELTS("parser.bas", "Parser.ParseNumber", "220", "");
        position_ = VELT__INTEGER(VELT_ADD(position_, VELT_ID(1L)));
        VELTS("parser.bas", "Parser.ParseNumber", "221", "");
        takeDigits();
    }
    VELTS("parser.bas", "Parser.ParseNumber", "223", "");
    id mantissa = VELT__INTEGER(position_);
    VELTS("parser.bas", "Parser.ParseNumber", "224", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_LCASE(peek()), "e"_v))) {
        VELTS("parser.bas", "Parser.ParseNumber", "225", "");
        position_ = VELT__INTEGER(VELT_ADD(position_, VELT_ID(1L)));
        VELTS("parser.bas", "Parser.ParseNumber", "226", "");
        if (VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(peek(), "+"_v), VELT_EQUAL(peek(), "-"_v)))) {
            VELTS("parser.bas", "Parser.ParseNumber", "227", "");
            position_ = VELT__INTEGER(VELT_ADD(position_, VELT_ID(1L)));
        }
        VELTS("parser.bas", "Parser.ParseNumber", "229", "");
        if (VELT_CBOOL(isDigit(peek()))) {
            VELTS("parser.bas", "Parser.ParseNumber", "230", "");
            takeDigits();
            VELTS("parser.bas", "Parser.ParseNumber", "231", "");
            floating = VELT__BOOLEAN(kTrue);
        } else {
            VELTS("parser.bas", "Parser.ParseNumber", "233", "");
            position_ = VELT__INTEGER(mantissa);
        }
    }
    VELTS("parser.bas", "Parser.ParseNumber", "236", "");
    id digits = VELT__STRING(VELT_MID(text_, start, VELT_SUB(position_, start)));
    VELTS("parser.bas", "Parser.ParseNumber", "237", "");
    if (VELT_CBOOL(VELT_EQUAL(digits, "."_v))) {
        VELTS("parser.bas", "Parser.ParseNumber", "238", "");
        fail("a number expected"_v);
    }
    VELTS("parser.bas", "Parser.ParseNumber", "240", "");
    if (VELT_CBOOL(VELT_EQUAL(peek(), "!"_v))) {
        VELTS("parser.bas", "Parser.ParseNumber", "241", "");
        position_ = VELT__INTEGER(VELT_ADD(position_, VELT_ID(1L)));
        VELTS("parser.bas", "Parser.ParseNumber", "242", "");
        return VELT_ID(VELT_CSINGLE(digits));
    }
    VELTS("parser.bas", "Parser.ParseNumber", "244", "");
    if (VELT_CBOOL(floating)) {
        VELTS("parser.bas", "Parser.ParseNumber", "245", "");
        return VELT_ID(VELT_CDOUBLE(digits));
    }
    VELTS("parser.bas", "Parser.ParseNumber", "247", "");
    return VELT_ID(VELT_CINTEGER(digits));
}

id Parser::parseHexadecimal() {
    VELTS("parser.bas", "Parser.ParseHexadecimal", "251", "");
    id number = VELT__INTEGER(VELT_ID(0L));
    VELTS("parser.bas", "Parser.ParseHexadecimal", "252", "");
    id start = VELT__INTEGER(position_);
    while (VELTS("parser.bas", "Parser.ParseHexadecimal", "253", ""),
           VELT_CBOOL(VELT_GREATEREQUAL(VELT_INSTR("0123456789ABCDEF"_v, peek(), VELT_ID(0L), kFalse), VELT_ID(0L)))) {
        VELTS("parser.bas", "Parser.ParseHexadecimal", "254", "");
        number = VELT__INTEGER(
            VELT_OR(VELT_SHL(number, VELT_ID(4L)), VELT_INSTR("0123456789ABCDEF"_v, peek(), VELT_ID(0L), kFalse)));
        VELTS("parser.bas", "Parser.ParseHexadecimal", "255", "");
        position_ = VELT__INTEGER(VELT_ADD(position_, VELT_ID(1L)));
    }
    VELTS("parser.bas", "Parser.ParseHexadecimal", "257", "");
    if (VELT_CBOOL(VELT_EQUAL(position_, start))) {
        VELTS("parser.bas", "Parser.ParseHexadecimal", "258", "");
        fail("a hexadecimal digit expected"_v);
    }
    VELTS("parser.bas", "Parser.ParseHexadecimal", "260", "");
    return VELT__INTEGER(number);
}

id Parser::parseString() {
    VELTS("parser.bas", "Parser.ParseString", "265", "");
    id result = VELT__STRING(""_v);
    while (VELTS("parser.bas", "Parser.ParseString", "266", ""),
           VELT_CBOOL(VELT_EQUAL(peek(), VELT_CHARACTER(VELT_ID(34L))))) {
        VELTS("parser.bas", "Parser.ParseString", "267", "");
        id close =
            VELT__INTEGER(VELT_INSTR(text_, VELT_CHARACTER(VELT_ID(34L)), VELT_ADD(position_, VELT_ID(1L)), kTrue));
        VELTS("parser.bas", "Parser.ParseString", "268", "");
        if (VELT_CBOOL(VELT_SMALLER(close, VELT_ID(0L)))) {
            VELTS("parser.bas", "Parser.ParseString", "269", "");
            fail("the string has no end"_v);
        }
        VELTS("parser.bas", "Parser.ParseString", "271", "");
        result = VELT__STRING(VELT_CONCAT(result, VELT_MID(text_, VELT_ADD(position_, VELT_ID(1L)),
                                                           VELT_SUB(VELT_SUB(close, position_), VELT_ID(1L)))));
        VELTS("parser.bas", "Parser.ParseString", "272", "");
        position_ = VELT__INTEGER(VELT_ADD(close, VELT_ID(1L)));
        VELTS("parser.bas", "Parser.ParseString", "273", "");
        if (VELT_CBOOL(VELT_EQUAL(peek(), VELT_CHARACTER(VELT_ID(34L))))) {
            VELTS("parser.bas", "Parser.ParseString", "274", "");
            result = VELT__STRING(VELT_CONCAT(result, VELT_CHARACTER(VELT_ID(34L))));
        }
    }
    VELTS("parser.bas", "Parser.ParseString", "277", "");
    return VELT__STRING(result);
}
