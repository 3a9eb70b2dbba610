// The pure parts of completion: the expression before the caret, the candidates, the help for arguments.
#include "VELTRuntime/editor/argument_help.h"
#include "VELTRuntime/editor/completion_candidates.h"
#include "VELTRuntime/editor/completion_expression.h"
#include "VELTRuntime/editor/word_characters.h"
#include "VELTRuntime/values/text/utf.h"
#include "support/generated.h"

#include <algorithm>

namespace velt::test {

namespace {

std::string expression(std::u16string_view line) { return text::toUtf8(expressionAtEnd(line)); }

std::string names(const Candidates& candidates, const std::vector<std::size_t>& indexes) {
    std::string result;
    for (const std::size_t index : indexes) result.append(text::toUtf8(candidates.name(index))).append(" ");
    return result;
}

std::string help(std::u16string_view signature, std::size_t parameter) {
    return text::toUtf8(argumentHelp(signature, parameter));
}

class CompletionExpressionOfGeneratedLines : public Generated {};

}  // namespace

TEST(CompletionExpression, IsARunOfWordsDotsAndParentheses) {
    EXPECT_EQ("obj.items(3).na", expression(u"x = obj.items(3).na"));
    EXPECT_EQ("_a1.b", expression(u"\"s\"+_a1.b"));
    EXPECT_EQ("obj", expression(u"obj"));
    EXPECT_EQ("größe.öde", expression(u" größe.öde"));
    EXPECT_EQ("12.5", expression(u"12.5"));
}

TEST(CompletionExpression, IsEmptyBehindABreak) {
    for (const auto* line : {u"", u"a ", u"a+", u"a,", u"a\"", u"a\n", u"a\u00A0", u"a€"}) {
        EXPECT_EQ("", expression(line));
    }
}

TEST(CompletionExpression, LeavesOutTheCallAroundIt) {
    EXPECT_EQ("bar.ba", expression(u"foo(bar.ba"));
    EXPECT_EQ("", expression(u"foo("));
    EXPECT_EQ("c", expression(u"a(b(c"));
    EXPECT_EQ("b(c).d", expression(u"a(b(c).d"));
    EXPECT_EQ("a(b).c", expression(u"a(b).c"));
    EXPECT_EQ(")a", expression(u")a"));
}

TEST(CompletionExpression, TakesCharactersWhole) {
    EXPECT_EQ("a\U0001D400", expression(u"a\U0001D400"));
    EXPECT_EQ("e\u0301a", expression(u"+e\u0301a"));
    // A mark belongs to the sign that it stands on.
    EXPECT_EQ("a", expression(u"=\u0338a"));
    EXPECT_EQ("a", expression(u"\U0001F600a"));
}

TEST_F(CompletionExpressionOfGeneratedLines, IsTheLongestRunWithoutABreak) {
    const std::u16string_view pieces[] = {u"a", u"(", u")", u".", u" ", u"+", u"_", u"1", u"\U0001D400", u"ä", u"€"};
    for (int round = 0; round < iterations(5000); ++round) {
        std::u16string line;
        for (std::size_t count = below(14); count > 0; --count) line += pieces[below(std::size(pieces))];
        std::u16string run;
        for (std::size_t at = 0; at < line.size();) {
            const text::CodePoint c = text::codePointAt(line, at);
            run.append(line, at, c.length);
            if (endsWord(c.value) && c.value != U'.' && c.value != U'(' && c.value != U')') run.clear();
            at += c.length;
        }
        // The last parenthesis that opens and has no partner behind it.
        for (std::size_t at = run.size(); at-- > 0;) {
            const auto behind = run.begin() + static_cast<std::ptrdiff_t>(at);
            if (run[at] == u'(' && std::count(behind, run.end(), u')') < std::count(behind, run.end(), u'(')) {
                run.erase(0, at + 1);
                break;
            }
        }
        ASSERT_EQ(text::toUtf8(run), expression(line)) << text::toUtf8(line);
    }
}

TEST(Candidates, AreSortedWithCapitalsFirstAndDifferent) {
    const Candidates candidates =
        Candidates::sortedUnique({u"b", u"a", u"B", u"b", u"A", u"_", u"é", u"e\u0301", u"a"});
    EXPECT_EQ("A B _ a b é ", names(candidates, candidates.all()));
}

TEST(Candidates, StayAsTheyAreGiven) {
    const Candidates candidates = Candidates::asGiven({u"b", u"a", u"b"});
    EXPECT_EQ("b a b ", names(candidates, candidates.all()));
}

TEST(Candidates, AreFoundByTheirBeginningInAnyCase) {
    const Candidates candidates = Candidates::sortedUnique({u"Name", u"name", u"number", u"Äpfel", u"x"});
    EXPECT_EQ("Name name ", names(candidates, candidates.beginningWith(u"nA")));
    EXPECT_EQ("Äpfel ", names(candidates, candidates.beginningWith(u"äP")));
    EXPECT_EQ("", names(candidates, candidates.beginningWith(u"names")));
    EXPECT_EQ(candidates.all(), candidates.beginningWith(u""));
    EXPECT_TRUE(Candidates().all().empty());
}

TEST(ArgumentHelp, MarksTheParameterOfANumber) {
    EXPECT_EQ(
        "<font face=\"Monaco\" size=\"-1\">f(<font face=\"Monaco\" size=\"-1\" color=\"red\">a</font>, b) c</font>",
        help(u"f(a, b) c", 0));
    EXPECT_EQ(
        "<font face=\"Monaco\" size=\"-1\">f(a,<font face=\"Monaco\" size=\"-1\" color=\"red\"> b</font>) c</font>",
        help(u"f(a, b) c", 1));
}

TEST(ArgumentHelp, MarksNothingThatIsNotThere) {
    EXPECT_EQ("<font face=\"Monaco\" size=\"-1\">f(a, b) c</font>", help(u"f(a, b) c", 2));
    EXPECT_EQ("<font face=\"Monaco\" size=\"-1\">no parameters</font>", help(u"no parameters", 0));
    EXPECT_EQ("<font face=\"Monaco\" size=\"-1\">f(a</font>", help(u"f(a", 0));
    EXPECT_EQ("<font face=\"Monaco\" size=\"-1\"></font>", help(u"", 0));
}

TEST(ArgumentHelp, TakesACommaWithinParenthesesForNoParameters) {
    EXPECT_EQ("<font face=\"Monaco\" size=\"-1\">f(a(x, y),<font face=\"Monaco\" size=\"-1\" color=\"red\"> "
              "b()</font>)</font>",
              help(u"f(a(x, y), b())", 1));
}

TEST(ArgumentHelp, ReplacesEarlierMarkup) {
    const std::u16string first = argumentHelp(u"f(a, b)", 0);
    EXPECT_EQ(help(u"f(a, b)", 1), help(first, 1));
    EXPECT_EQ(help(u"f(a)", 0), help(u"<font face='Monaco' size=\"-1\">f(a)</font>", 0));
}

}  // namespace velt::test
