#include "support/values.h"

using namespace velt::test;

TEST(Len, CountsCodeUnitsAsAnUnsignedNumber) {
    EXPECT_VALUE("Q 3", VELT_LEN(str("abc")));
    EXPECT_VALUE("Q 2", VELT_LEN(str("\xF0\x9F\x98\x80")));
    EXPECT_VALUE("Q 0", VELT_LEN(str("")));
}

TEST(At, RaisesOutsideTheString) {
    EXPECT_VALUE("'a'", VELT_AT(str("abc"), integer(0)));
    EXPECT_VALUE("'c'", VELT_AT(str("abc"), str("2")));
    EXPECT_RAISES("VLException: 'At': Trying to read out of boundary", VELT_AT(str("abc"), integer(3)));
    EXPECT_RAISES("VLException: 'At': Trying to read out of boundary", VELT_AT(str("abc"), integer(-1)));
    EXPECT_RAISES("VLException: 'At': Trying to read out of boundary", VELT_AT(str(""), integer(0)));
}

TEST(Unicode, RaisesARangeErrorOutsideTheString) {
    EXPECT_VALUE("q 97", VELT_UNICODE(str("abc"), integer(0)));
    EXPECT_VALUE("q 8364", VELT_UNICODE(str("€"), integer(0)));
    EXPECT_RAISES("NSRangeException: 'Unicode': index 3 is out of range; the count is 3",
                  VELT_UNICODE(str("abc"), integer(3)));
    EXPECT_RAISES("NSRangeException: 'Unicode': index -1 is out of range; the count is 3",
                  VELT_UNICODE(str("abc"), integer(-1)));
}

TEST(Character, TakesTheLowSixteenBits) {
    EXPECT_VALUE("'A'", VELT_CHARACTER(integer(65601)));
    EXPECT_VALUE("'€'", VELT_CHARACTER(str("8364")));
    EXPECT_CAST_FAILURE("'Long' expected", VELT_CHARACTER(nil));
}

TEST(Space, RepeatsTheFillToTheCount) {
    EXPECT_VALUE("'ababa'", VELT_SPACE(integer(5), str("ab")));
    EXPECT_VALUE("''", VELT_SPACE(integer(0), str("ab")));
    EXPECT_VALUE("''", VELT_SPACE(integer(-5), str("")));
    EXPECT_RAISES("NSInvalidArgumentException: 'Space': an empty string cannot fill 2 characters",
                  VELT_SPACE(integer(2), str("")));
}

TEST(Space, GivesAStringThatCannotBeChangedUnlessEmpty) {
    EXPECT_RAISES("NSInvalidArgumentException: 'appendString:' on a string that cannot be changed",
                  velt::send(VELT_SPACE(integer(2), str(" ")), "appendString:", str("x")));
    EXPECT_RAISES("nothing", velt::send(VELT_SPACE(integer(0), str(" ")), "appendString:", str("x")));
}

TEST(Left, CutsTheCountToTheLength) {
    EXPECT_VALUE("'abc'", VELT_LEFT(str("abc"), integer(5)));
    EXPECT_VALUE("'ab'", VELT_LEFT(str("abc"), integer(2)));
    EXPECT_VALUE("''", VELT_LEFT(str("abc"), integer(-1)));
    EXPECT_VALUE("''", VELT_LEFT(str("abc"), integer(0)));
    EXPECT_VALUE("'ab'", VELT_LEFT(str("abc"), real(2.9)));
}

TEST(Mid, GoesToTheEndForALengthOfMinusOne) {
    EXPECT_VALUE("'cdef'", VELT_MID(str("abcdef"), integer(2), integer(-1)));
    EXPECT_VALUE("'ef'", VELT_MID(str("abcdef"), integer(4), integer(10)));
    EXPECT_VALUE("''", VELT_MID(str("abc"), integer(3), integer(1)));
    EXPECT_VALUE("''", VELT_MID(str("abc"), integer(5), integer(1)));
    EXPECT_VALUE("''", VELT_MID(str("abc"), integer(5), integer(-1)));
    EXPECT_VALUE("''", VELT_MID(str("abc"), integer(-1), integer(-1)));
    EXPECT_VALUE("''", VELT_MID(str("abc"), integer(0), integer(-2)));
    EXPECT_VALUE("'bc'", VELT_MID(str("abc"), integer(1), integer(LONG_MAX)));
    EXPECT_VALUE("'bc'", VELT_MID(str("xabcdefghijklmnopqrstuvwxyzbc"), integer(27), integer(-1)));
}

TEST(Right, GivesAllButTheFirstForACountThatReachesTheLength) {
    EXPECT_VALUE("'ef'", VELT_RIGHT(str("abcdef"), integer(2)));
    EXPECT_VALUE("'bc'", VELT_RIGHT(str("abc"), integer(3)));
    EXPECT_VALUE("'bc'", VELT_RIGHT(str("abc"), integer(9)));
    EXPECT_VALUE("''", VELT_RIGHT(str(""), integer(1)));
    EXPECT_VALUE("''", VELT_RIGHT(str("abc"), integer(-1)));
    EXPECT_VALUE("''", VELT_RIGHT(str("abc"), integer(0)));
    EXPECT_VALUE("''", VELT_RIGHT(str("a"), integer(1)));
}

TEST(StringResults, AreNewStringsThatMayBeChanged) {
    const std::string longText(100, 'x');
    const id text = str(longText);
    for (const id& result :
         {VELT_LEFT(text, integer(200)), VELT_MID(text, integer(0), integer(-1)), VELT_RIGHT(text, integer(200)),
          VELT_TRIM(text), VELT_REPLACE(text, str("y"), str("z"), boolean(true)), VELT_APPEND(text, str("")),
          VELT_LCASE(text), VELT_FILENAME(text), VELT_AT(text, integer(0)), VELT_CSTRING(text)}) {
        EXPECT_FALSE(result == text);
        velt::send(result, "appendString:", str("!"));
        velt::send(result, "setString:", str("gone"));
        EXPECT_EQ(longText, velt::utf8(text));
    }
}

TEST(StringBuiltIns, CheckKindsBeforeAnythingElse) {
    const id t = str("t"), z = integer(0), f = boolean(true);
    for (const id& wrong : {id(), integer(1), array(), data("x"), point(1, 2)}) {
        const char* reason = "'String' expected";
        EXPECT_CAST_FAILURE(reason, VELT_LEN(wrong));
        EXPECT_CAST_FAILURE(reason, VELT_AT(wrong, nil));
        EXPECT_CAST_FAILURE(reason, VELT_UNICODE(wrong, nil));
        EXPECT_CAST_FAILURE(reason, VELT_SPACE(nil, wrong));
        EXPECT_CAST_FAILURE(reason, VELT_LEFT(wrong, nil));
        EXPECT_CAST_FAILURE(reason, VELT_MID(wrong, nil, nil));
        EXPECT_CAST_FAILURE(reason, VELT_RIGHT(wrong, nil));
        for (const auto search : {VELT_INSTR, VELT_INSTRREV}) {
            EXPECT_CAST_FAILURE(reason, search(wrong, t, nil, nil));
            EXPECT_CAST_FAILURE(reason, search(t, wrong, nil, nil));
        }
        for (const auto test : {VELT_CONTAINS, VELT_COUNT, VELT_STARTSWITH, VELT_ENDSWITH, VELT_COMPARE}) {
            EXPECT_CAST_FAILURE(reason, test(wrong, t, nil));
            EXPECT_CAST_FAILURE(reason, test(t, wrong, nil));
        }
        EXPECT_CAST_FAILURE(reason, VELT_REPLACE(wrong, t, t, nil));
        EXPECT_CAST_FAILURE(reason, VELT_REPLACE(t, wrong, t, nil));
        EXPECT_CAST_FAILURE(reason, VELT_REPLACE(t, t, wrong, nil));
        for (const auto pair : {VELT_SPLIT, VELT_APPEND, VELT_PREPEND, VELT_WRITESTRING}) {
            EXPECT_CAST_FAILURE(reason, pair(wrong, t));
            EXPECT_CAST_FAILURE(reason, pair(t, wrong));
        }
        EXPECT_CAST_FAILURE(reason, VELT_JOIN(array(), wrong));
        for (const auto unary :
             {VELT_TRIM, VELT_LCASE, VELT_UCASE, VELT_FILENAME, VELT_FILEEXTENSION, VELT_FILEPATH, VELT_READSTRING}) {
            EXPECT_CAST_FAILURE(reason, unary(wrong));
        }
    }
    for (const id& wrong : {id(), t, emptyDictionary()}) EXPECT_CAST_FAILURE("'Array' expected", VELT_JOIN(wrong, nil));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_LEFT(t, nil));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_MID(t, z, nil));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_RIGHT(t, array()));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_AT(t, nil));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_UNICODE(t, nil));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_SPACE(nil, t));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_INSTR(t, t, nil, f));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_INSTRREV(t, t, nil, f));
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_INSTR(t, t, z, nil));
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_COUNT(t, t, array()));
}
