#include "VELTRuntime/editor/highlighter.h"

#include "VELTRuntime/editor/word_characters.h"

#include "editor/generated_text.h"
#include "editor/plain_highlighter.h"
#include "support/values.h"

namespace {

using velt::DisplayAttributes;
using velt::Highlighter;
using velt::Ink;
using velt::SourceBuffer;
using velt::Vocabulary;
using velt::WordLists;
using velt::test::array;
using velt::test::PlainHighlighter;
using velt::test::str;

WordLists someLists() {
    return {array(str("if"), str("dim"), str("Then"), str("both")), array(str("msgbox"), str("both")),
            array(str("integer"), str("été"), str("msgbox"))};
}

/// A text with its colours.
struct Coloured {
    explicit Coloured(std::u16string_view text) : buffer(text) {}

    /// A letter for each unit: k, b, t, s, c, and "." for none; in capitals, or "#", on a breakpoint.
    std::string inks() const {
        std::string shown;
        for (std::size_t at = 0; at < buffer.length(); ++at) {
            const auto [front, back] = attributes.at(at);
            const bool marked = back == Ink::Breakpoint;
            shown += (marked ? "#KBTSC" : ".kbtsc")[static_cast<std::size_t>(front)];
        }
        return shown;
    }
    std::string passed(std::optional<NSRange> visible = std::nullopt) {
        highlighter.highlight(words, breakpoints, visible);
        return inks();
    }

    SourceBuffer buffer;
    DisplayAttributes attributes{buffer};
    Highlighter highlighter{buffer, attributes};
    Vocabulary words{someLists()};
    std::vector<std::int64_t> breakpoints;
};

std::string coloured(std::u16string_view text) { return Coloured(text).passed(); }

TEST(Highlighting, ColoursKeywordsBuiltinsAndTypes) {
    EXPECT_EQ("kk.bbbbbb.ttttttt.kkk.", coloured(u"if msgbox integer dim "));
    EXPECT_EQ(".ttt.", coloured(u"(été)"));
}

TEST(Highlighting, TakesTheFirstListThatHoldsAWord) { EXPECT_EQ("kkkk.bbbbbb", coloured(u"both msgbox")); }

TEST(Highlighting, MindsTheCaseOfWords) { EXPECT_EQ("...kkkk.....", coloured(u"IF Then THEN")); }

TEST(Highlighting, ColoursWholeWordsOnly) {
    EXPECT_EQ("............................", coloured(u"ifs dim_ _dim dimé if2 wif x"));
    EXPECT_EQ("kk", coloured(u"if")) << "the whole text";
    EXPECT_EQ("kk.kk.kk.", coloured(u"if+if-if$"));
}

TEST(Highlighting, SkipsDigitsBeforeAWord) { EXPECT_EQ(".kk.", coloured(u"1if ")); }

TEST(Highlighting, ColoursStringsWithTheirQuotes) {
    EXPECT_EQ(".ssss..ss.", coloured(u"(\"if\" &\"\")"));
    EXPECT_EQ("ssssssss", coloured(u"\"two\nli\"")) << "over lines";
}

TEST(Highlighting, LeavesAStringWithoutItsEndUncoloured) {
    EXPECT_EQ("ss..", coloured(u"\"\" \""));
    EXPECT_EQ(".kk", coloured(u"\"if"));
}

TEST(Highlighting, GoesOnBehindAnEscapedQuote) {
    EXPECT_EQ("sssssss", coloured(u"\"a \\\"b\""));
    EXPECT_EQ("ssssss.", coloured(u"\"ab\\\\\"x")) << "two backslashes do not escape";
    EXPECT_EQ("......", coloured(u"\"a \\\"b")) << "no quote behind the escaped one";
}

TEST(Highlighting, TakesNoQuoteWithinTheFirstThreeUnitsAsEscaped) {
    EXPECT_EQ("sss.", coloured(u"\"\\\"b"));
    EXPECT_EQ(".sssss", coloured(u"x\"\\\"b\""));
}

TEST(Highlighting, ColoursCommentsToTheEndOfTheirLine) {
    EXPECT_EQ("kk.cccccckk", coloured(u"if 'x if\nif")) << "keywords in comments, too, and the line end";
    EXPECT_EQ(".ccccc", coloured(u"x'a\"b\""));
}

TEST(Highlighting, BeginsNoCommentWithinAString) { EXPECT_EQ("sssss.kk.....", coloured(u"\"a'b\" if     ")); }

TEST(Highlighting, BeginsCommentsInStringsBelowTheFirstScreen) {
    Coloured text(u"x\nx\nx\nx\n\"a'b\"\n");
    EXPECT_EQ("........ssccc"
              "c",
              text.passed(NSRange{8, 1}));
    EXPECT_EQ("........sssss.", text.passed());
}

TEST(Highlighting, ColoursTheLinesThatAreSeen) {
    Coloured text(u"if\nif\nif\nif");
    EXPECT_EQ("...kk......", text.passed(NSRange{4, 0}));
    EXPECT_EQ("...kk.kk...", text.passed(NSRange{7, 1})) << "what was coloured stays";
    EXPECT_EQ("...kk.kk.kk", text.passed(NSRange{5, 4})) << "up to the line of the end";
    EXPECT_EQ("...kk.kk.kk", text.passed(NSRange{100, 5}));
}

TEST(Highlighting, LaysStringsOverTheWholeTextInEachPass) {
    Coloured text(u"'\"a\"\nif\n");
    EXPECT_EQ("ccccckk.", text.passed());
    EXPECT_EQ("csssckk.", text.passed(NSRange{5, 0})) << "over a comment that is not seen";
    EXPECT_EQ("ccccckk.", text.passed());
}

TEST(Highlighting, LeavesFormerStringsOutOfSightAsTheyWere) {
    Coloured text(u"\n\"a\" b \"c\"");
    EXPECT_EQ(".sss...sss", text.passed());
    text.buffer.replace({0, 0}, u"\"");
    EXPECT_EQ("sssssssssss", text.passed(NSRange{0, 0}));
    EXPECT_EQ("sss.sssss..", text.passed());
}

TEST(Highlighting, DoesNothingWithoutKeywords) {
    Coloured text(u"\"a\"");
    text.highlighter.highlight(WordLists{array(), array(str("a")), array()}, {});
    text.highlighter.highlight(WordLists{}, {});
    EXPECT_EQ("...", text.inks());
}

TEST(Highlighting, DoesNothingInAnEmptyRange) {
    Coloured text(u"\"a\"\n");
    EXPECT_EQ("....", text.passed(NSRange{4, 0}));
}

TEST(Highlighting, KeepsToTheWordsOfTheFirstPass) {
    Coloured text(u"velt_first velt_second ");
    const id keywords = array(str("velt_first"));
    text.highlighter.highlight(WordLists{keywords, nil, nil}, {});
    const std::string before = text.inks();
    const Vocabulary& shared = Vocabulary::shared(WordLists{keywords, nil, nil});
    EXPECT_EQ(shared.inkOf(u"velt_first") == Ink::Keyword ? "kkkkkkkkkk............." : ".......................",
              before);
    velt::mutableArrayOf(keywords)->append(str("velt_second"));
    text.highlighter.highlight(WordLists{keywords, nil, nil}, {});
    EXPECT_EQ(before, text.inks());
    text.highlighter.highlight(WordLists{array(str("velt_second")), nil, nil}, {});
    EXPECT_EQ(before, text.inks());
    EXPECT_EQ(&shared, &Vocabulary::shared(someLists()));
}

TEST(Highlighting, MarksTheLinesOfBreakpoints) {
    Coloured text(u"if\nab\n\"\"\n");
    text.breakpoints = {3};
    EXPECT_EQ("kk.###ss.", text.passed());
    text.breakpoints = {1, 6};
    EXPECT_EQ("kK#...SS#", text.passed()) << "the first line's is stored as 1";
    text.breakpoints = {0, -5, 9, 100};
    EXPECT_EQ("kk....ss.", text.passed());
}

TEST(Highlighting, MarksTheLastLineOnlyWhenItEnds) {
    Coloured text(u"a\nb");
    text.breakpoints = {2};
    EXPECT_EQ("...", text.passed());
    text.buffer.replace({3, 0}, u"\n");
    EXPECT_EQ("..##", text.passed());
}

TEST(Highlighting, MarksTwoLinesForABreakpointOnAnEmptyOne) {
    Coloured text(u"a\n\nb\nc");
    text.breakpoints = {2};
    EXPECT_EQ("..###.", text.passed());
}

TEST(Highlighting, KeepsTheMarksOutOfSightButInStrings) {
    Coloured text(u"a\nb\"\"c\nd\n");
    text.breakpoints = {2};
    EXPECT_EQ("..#SS##..", text.passed());
    text.breakpoints = {};
    EXPECT_EQ("..#ss##..", text.passed(NSRange{7, 0}));
    EXPECT_EQ("...ss....", text.passed());
}

TEST(Highlighting, GivesTheSameTwice) {
    Coloured text(u"if \"a\" 'dim\ndim x\n");
    text.breakpoints = {12};
    const std::string once = text.passed();
    EXPECT_EQ(once, text.passed());
    EXPECT_EQ(once, text.passed(NSRange{13, 1}));
}

TEST(Words, BeginWithLettersAndEndBeforeMarks) {
    for (const char32_t each : U"aZ_éßΩЖ中ªʰ𝔞") {
        if (each != 0) {
            EXPECT_TRUE(velt::startsWord(each) && !velt::endsWord(each)) << static_cast<unsigned>(each);
        }
    }
    for (const char32_t each : U"09٣\u200B") {
        if (each != 0) {
            EXPECT_FALSE(velt::startsWord(each) || velt::endsWord(each)) << static_cast<unsigned>(each);
        }
    }
    for (const char32_t each : U" \t\n\r\u0085\u00A0\u2028+-*/\\<>=$.,:;!?\"'()[]{}@#%&^`|~€§«—") {
        if (each != 0) {
            EXPECT_TRUE(velt::endsWord(each) && !velt::startsWord(each)) << static_cast<unsigned>(each);
        }
    }
}

using GeneratedHighlighting = velt::test::GeneratedText;

TEST_F(GeneratedHighlighting, IsWhatClearingAndColouringAnewGive) {
    constexpr std::u16string_view kPieces[] = {u"\"",     u"\"",      u"'",  u"\\",  u"\n",    u"\n",
                                               u"\r\n",   u" ",       u"if", u"dim", u"both",  u"_",
                                               u"msgbox", u"integer", u"1",  u"é",   u"\u2028"};
    const Vocabulary words(someLists());
    for (int round = velt::test::iterations(300) + 3; round-- > 0;) {
        const std::u16string first = text(kPieces, below(50));
        SourceBuffer buffer(first);
        DisplayAttributes attributes(buffer);
        Highlighter highlighter(buffer, attributes);
        PlainHighlighter plain(first);
        std::vector<std::int64_t> breakpoints;
        for (int step = 0; step < 40; ++step) {
            for (std::size_t edits = below(3); edits-- > 0;) {
                const NSRange range = shortRangeIn(buffer.length());
                const std::u16string with = text(kPieces, below(4));
                buffer.replace(range, with);
                plain.replace(range, with);
            }
            if (below(4) == 0) {
                breakpoints.clear();
                for (std::size_t i = below(4); i-- > 0;) {
                    breakpoints.push_back(static_cast<std::int64_t>(below(buffer.length() + 5)) - 2);
                }
            }
            if (below(10) == 0) {
                const NSRange range = rangeIn(buffer.length());
                attributes.set(range, {Ink::Type, Ink::Breakpoint});
                plain.set(range.location, velt::endOf(range), {Ink::Type, Ink::Breakpoint});
            }
            std::optional<NSRange> visible;
            if (below(5) > 0) visible = shortRangeIn(buffer.length());
            SCOPED_TRACE(velt::utf8(plain.text()));
            highlighter.highlight(words, breakpoints, visible);
            plain.highlight(words, breakpoints, visible);
            ASSERT_EQ(plain.text(), buffer.text());
            for (std::size_t at = 0; at < buffer.length(); ++at) {
                ASSERT_EQ(plain.inks()[at], attributes.at(at)) << "at " << at;
            }
        }
    }
}

}  // namespace
