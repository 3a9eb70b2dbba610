#include "VELTRuntime/editor/operator_spacing.h"

#include "formatting.h"
#include "support/generated.h"

#include <set>

namespace velt::test {

namespace {

std::string spaced(std::u16string code) {
    static const Recasing recasing = smallLanguage().recasing();
    spaceOperators(code, recasing);
    return shown(code);
}

struct Example {
    const char16_t* code;
    const char* spaced;
};

class OperatorSpacingOfGeneratedCode : public Generated {};

}  // namespace

TEST(OperatorSpacing, PutsBlanksAroundEveryOperator) {
    for (const auto& [code, expected] :
         {Example{u"a+b", "a + b"}, Example{u"a-b", "a - b"}, Example{u"a/b", "a / b"}, Example{u"a\\b", "a \\ b"},
          Example{u"a*b", "a * b"}, Example{u"a&b", "a & b"}, Example{u"a:=b", "a := b"}, Example{u"a<>b", "a <> b"},
          Example{u"a>=b", "a >= b"}, Example{u"a<=b", "a <= b"}, Example{u"a=b", "a = b"}, Example{u"a>b", "a > b"},
          Example{u"a<b", "a < b"}, Example{u"x:=y<>z", "x := y <> z"}}) {
        EXPECT_EQ(expected, spaced(code));
    }
}

TEST(OperatorSpacing, KeepsWhatIsSpacedAlready) {
    for (const auto& [code, expected] :
         {Example{u"a := b <> c", "a := b <> c"}, Example{u"a >= b + c", "a >= b + c"},
          Example{u"f(a, b) & c", "f(a, b) & c"}, Example{u"a   =   b", "a = b"}, Example{u"a\t=\tb\r\n", "a = b\n"}}) {
        EXPECT_EQ(expected, spaced(code));
    }
}

TEST(OperatorSpacing, MendsOperatorsThatBlanksTore) {
    EXPECT_EQ("a <> b", spaced(u"a < > b"));
    EXPECT_EQ("a <= b", spaced(u"a < = b"));
    EXPECT_EQ("a >= b", spaced(u"a > = b"));
    EXPECT_EQ("a := b", spaced(u"a : = b"));
}

TEST(OperatorSpacing, ClosesUpSigns) {
    EXPECT_EQ("a = - -b", spaced(u"a = - - b"));
    EXPECT_EQ("a + +b", spaced(u"a++b"));
    EXPECT_EQ("a + -b", spaced(u"a+-b"));
    EXPECT_EQ("a - +b", spaced(u"a-+b"));
    EXPECT_EQ("a = - b", spaced(u"a=-b"));
}

TEST(OperatorSpacing, ClosesUpDotsCommasAndParentheses) {
    EXPECT_EQ("a.b", spaced(u"a . b"));
    EXPECT_EQ("a.b.c", spaced(u"a .b. c"));
    EXPECT_EQ("f(a, b)", spaced(u"f(a,b)"));
    EXPECT_EQ("f(a, b)", spaced(u"f( a  ,  b )"));
    EXPECT_EQ("(a + b) * c", spaced(u"( a+b )*c"));
}

TEST(OperatorSpacing, JoinsACallToTheParenthesisBehindIt) {
    EXPECT_EQ("foo(a, b)", spaced(u"foo ( a , b )"));
    EXPECT_EQ("foo()", spaced(u"foo ( )"));
    EXPECT_EQ("a.foo_2(b(c))", spaced(u"a . foo_2 ( b ( c ) )"));
    EXPECT_EQ("foo(a) + foo((b))", spaced(u"foo  \t(\ta )+foo ( ( b ) )"));
}

TEST(OperatorSpacing, KeepsTheBlankBehindAKeywordOrAnOperator) {
    EXPECT_EQ("if (a) and (b)", spaced(u"if ( a ) and ( b )"));
    EXPECT_EQ("a = (b)", spaced(u"a=( b )"));
    EXPECT_EQ("foo (a)", spaced(u"foo (a)"));
    EXPECT_EQ("a(1) (2)", spaced(u"a(1) ( 2 )"));
    EXPECT_EQ("1 (2)", spaced(u"1 ( 2 )"));
    EXPECT_EQ("foo (- a)", spaced(u"foo (-a)"));
}

TEST(OperatorSpacing, ReadsAnExclamationMarkWithABlankAsADot) {
    EXPECT_EQ("a.b", spaced(u"a !b"));
    EXPECT_EQ("a.b", spaced(u"a! b"));
    EXPECT_EQ("a!b", spaced(u"a!b"));
}

TEST(OperatorSpacing, ClosesUpADotThatAnExclamationMarkBecameOnlyTheNextTime) {
    EXPECT_EQ("a. < b", spaced(u"a !<b"));
    EXPECT_EQ("a.< b", spaced(u"a. < b"));
}

TEST(OperatorSpacing, KeepsMarkupTogether) {
    EXPECT_EQ("a<objc>b</objc>c", spaced(u"a <objc> b </objc> c"));
    EXPECT_EQ("a<string>b</string>c", spaced(u"a <string> b </string> c"));
    EXPECT_EQ("a < other > b", spaced(u"a <other> b"));
}

TEST(OperatorSpacing, HasARowForEachReplacementInItsOrder) {
    const auto rules = spacingRules();
    ASSERT_EQ(36U, rules.size());
    std::set<std::u16string_view> from;
    for (const SpacingRule& rule : rules) {
        EXPECT_TRUE(from.insert(rule.from).second) << shown(rule.from);
        // What is repeated gets shorter, so that it ends.
        if (rule.repeats) {
            EXPECT_LT(rule.to.size(), rule.from.size()) << shown(rule.from);
        }
    }
    EXPECT_EQ(u"\r", rules.front().from);
    EXPECT_EQ(u" < / string > ", rules.back().from);
}

TEST_F(OperatorSpacingOfGeneratedCode, IsFinishedAfterOneTime) {
    const std::u16string_view pieces[] = {u"a", u"b2", u"(", u")", u",", u".", u"+",  u"-",  u"*",    u"=",       u"<",
                                          u">", u":",  u" ", u" ", u"/", u"&", u"\t", u"if", u"objc", u"<string>"};
    for (int round = 0; round < iterations(10000); ++round) {
        std::u16string code;
        for (std::size_t count = below(14); count > 0; --count) code += pieces[below(std::size(pieces))];
        const std::string once = spaced(code);
        ASSERT_EQ(once, spaced(text::fromUtf8(once).value())) << shown(code);
        for (const char* gone : {"  ", "( ", " )", " ,", " .", "\t"}) EXPECT_EQ(once.npos, once.find(gone)) << once;
    }
}

TEST(OperatorSpacing, TakesATimeLinearInALineOfAnyLength) {
    std::u16string code;
    for (int i = 0; i < 20000; ++i) code += u"a ( b . ! - - ";
    const std::string once = spaced(code);
    EXPECT_EQ("a(b", once.substr(0, 3));
    EXPECT_LT(once.size(), code.size());
}

}  // namespace velt::test
