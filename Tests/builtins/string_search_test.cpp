#include "support/generated.h"
#include "support/values.h"

using namespace velt::test;

namespace {
const id kWithCase = boolean(true), kWithoutCase = boolean(false);
}

TEST(InStr, SearchesFromAPosition) {
    EXPECT_VALUE("q 5", VELT_INSTR(str("abcabc"), str("c"), integer(3), kWithCase));
    EXPECT_VALUE("q 1", VELT_INSTR(str("abc"), str("B"), integer(0), kWithoutCase));
    EXPECT_VALUE("q -1", VELT_INSTR(str("abc"), str("B"), integer(0), kWithCase));
    EXPECT_VALUE("q -1", VELT_INSTR(str("abc"), str("c"), integer(3), kWithCase));
    EXPECT_VALUE("q -1", VELT_INSTR(str("abc"), str("c"), integer(-1), kWithCase));
    EXPECT_VALUE("q -1", VELT_INSTR(str("abc"), str(""), integer(0), kWithCase));
    EXPECT_VALUE("q -1", VELT_INSTR(str(""), str("a"), integer(0), kWithCase));
    EXPECT_VALUE("q 2", VELT_INSTR(str(u"e\u0301x"), str("x"), integer(0), kWithCase));
}

TEST(InStrRev, CountsItsStartFromTheEnd) {
    EXPECT_VALUE("q 3", VELT_INSTRREV(str("abcabc"), str("abc"), integer(-1), kWithCase));
    EXPECT_VALUE("q 0", VELT_INSTRREV(str("abcabc"), str("abc"), integer(-2), kWithCase));
    EXPECT_VALUE("q -1", VELT_INSTRREV(str("abcabc"), str("abc"), integer(1), kWithCase));
    EXPECT_VALUE("q -1", VELT_INSTRREV(str("abc"), str("abc"), integer(-2), kWithCase));
    EXPECT_VALUE("q 3", VELT_INSTRREV(str("abcABC"), str("abc"), integer(-1), kWithoutCase));
    EXPECT_VALUE("q -1", VELT_INSTRREV(str("abc"), str(""), integer(-1), kWithCase));
}

TEST(InStrRev, SearchesTheWholeStringForAStartBeforeItsBegin) {
    EXPECT_VALUE("q 3", VELT_INSTRREV(str("abcabc"), str("abc"), integer(-8), kWithCase));
    EXPECT_VALUE("q -1", VELT_INSTRREV(str("abcabc"), str("abc"), integer(-7), kWithCase));
    EXPECT_VALUE("q 3", VELT_INSTRREV(str("abcabc"), str("abc"), integer(LONG_MIN), kWithCase));
}

TEST(InStrRev, RaisesARangeErrorForAStartOfZero) {
    EXPECT_RAISES("NSRangeException: 'InStrRev': index 4 is out of range; the count is 3",
                  VELT_INSTRREV(str("abc"), str("a"), integer(0), kWithCase));
}

TEST(Count, CountsOverlappingOccurrences) {
    EXPECT_VALUE("q 2", VELT_COUNT(str("aaa"), str("aa"), kWithCase));
    EXPECT_VALUE("q 0", VELT_COUNT(str("aaa"), str(""), kWithCase));
    EXPECT_VALUE("q 0", VELT_COUNT(str(""), str("a"), kWithCase));
    EXPECT_VALUE("q 3", VELT_COUNT(str("aAa"), str("A"), kWithoutCase));
    EXPECT_VALUE("q 2", VELT_COUNT(str(u"\u00E9e\u0301"), str(u"\u00E9"), kWithCase));
}

TEST(StartsAndEndsWith, AreFalseForEmptyAndLongerStrings) {
    EXPECT_VALUE("c 0", VELT_STARTSWITH(str("abc"), str(""), kWithCase));
    EXPECT_VALUE("c 0", VELT_ENDSWITH(str("abc"), str(""), kWithCase));
    EXPECT_VALUE("c 1", VELT_ENDSWITH(str("abc"), str("BC"), kWithoutCase));
    EXPECT_VALUE("c 0", VELT_ENDSWITH(str("abc"), str("BC"), kWithCase));
    EXPECT_VALUE("c 1", VELT_STARTSWITH(str("abc"), str("ab"), kWithCase));
    EXPECT_VALUE("c 0", VELT_STARTSWITH(str("abc"), str("abcd"), kWithCase));
    EXPECT_VALUE("c 0", VELT_STARTSWITH(str("xabc"), str("abc"), kWithCase));
    EXPECT_VALUE("c 0", VELT_ENDSWITH(str("abcx"), str("abc"), kWithCase));
}

TEST(Contains, FindsAnywhere) {
    EXPECT_VALUE("c 1", VELT_CONTAINS(str("abc"), str("bc"), kWithCase));
    EXPECT_VALUE("c 0", VELT_CONTAINS(str("abc"), str(""), kWithCase));
    EXPECT_VALUE("c 1", VELT_CONTAINS(str("stra\xC3\x9F"
                                          "e"),
                                      str("SS"), kWithoutCase));
}

TEST(Compare, GivesTheOrder) {
    EXPECT_VALUE("q -1", VELT_COMPARE(str("a"), str("b"), kWithCase));
    EXPECT_VALUE("q 0", VELT_COMPARE(str("a"), str("A"), kWithoutCase));
    EXPECT_VALUE("q 1", VELT_COMPARE(str("a"), str("A"), kWithCase));
}

TEST(Replace, ReplacesFromLeftToRightWithoutOverlap) {
    EXPECT_VALUE("'xa'", VELT_REPLACE(str("aaa"), str("aa"), str("x"), kWithCase));
    EXPECT_VALUE("'x-x'", VELT_REPLACE(str("AB-ab"), str("ab"), str("x"), kWithoutCase));
    EXPECT_VALUE("'abc'", VELT_REPLACE(str("abc"), str(""), str("x"), kWithCase));
    EXPECT_VALUE("''", VELT_REPLACE(str("aaaa"), str("a"), str(""), kWithCase));
    EXPECT_VALUE("'axb'", VELT_REPLACE(str(u"ae\u0301b"), str(u"\u00E9"), str("x"), kWithCase));
}

TEST(Split, KeepsEmptyPieces) {
    EXPECT_VALUE("NSMutableArray (a, , b, )", VELT_SPLIT(str("a,,b,"), str(",")));
    EXPECT_VALUE("Q 4", VELT_NSARRAY_COUNT(VELT_SPLIT(str("a,,b,"), str(","))));
    EXPECT_VALUE("NSMutableArray (abc)", VELT_SPLIT(str("abc"), str(",")));
    EXPECT_VALUE("NSMutableArray (abc)", VELT_SPLIT(str("abc"), str("")));
    EXPECT_VALUE("NSMutableArray ()", VELT_SPLIT(str(""), str(",")));
    EXPECT_VALUE("Q 1", VELT_NSARRAY_COUNT(VELT_SPLIT(str(""), str(","))));
}

TEST(Join, TakesTheTextOfAnyElement) {
    EXPECT_VALUE("'a, 1, 2.5'", VELT_JOIN(array(str("a"), integer(1), real(2.5)), str(", ")));
    EXPECT_VALUE("''", VELT_JOIN(array(), str(", ")));
    EXPECT_VALUE("'(1)+{1, 2}'", VELT_JOIN(frozenArray(array(integer(1)), point(1, 2)), str("+")));
}

class GeneratedStrings : public Generated {};

TEST_F(GeneratedStrings, AreReplacedSplitAndCountedAsTheObviousWaySays) {
    for (int round = 0; round < iterations(20'000); ++round) {
        std::string text, find, with;
        for (std::size_t left = below(30); left > 0; --left) text += "ab,"[below(3)];
        for (std::size_t left = 1 + below(2); left > 0; --left) find += "ab,"[below(3)];
        for (std::size_t left = below(3); left > 0; --left) with += "xyz"[below(3)];
        std::string replaced = text;
        for (std::size_t at = 0; (at = replaced.find(find, at)) != replaced.npos; at += with.size())
            replaced.replace(at, find.size(), with);
        long count = 0;
        for (std::size_t at = text.find(find); at != text.npos; at = text.find(find, at + 1)) ++count;
        const id t = str(text), f = str(find);
        ASSERT_EQ(replaced, velt::utf8(VELT_REPLACE(t, f, str(with), kWithCase))) << text << " " << find;
        ASSERT_EQ(count, VELT_CINTEGER(VELT_COUNT(t, f, kWithCase))) << text << " " << find;
        ASSERT_EQ(text, velt::utf8(VELT_JOIN(VELT_SPLIT(t, f), f))) << text << " " << find;
    }
}
