#include "VELTRuntime/editor/recasing.h"

#include "formatting.h"

namespace velt::test {

namespace {

std::string recased(std::u16string line, const LanguageWords& words) {
    words.recasing().recase(line);
    return shown(line);
}
std::string recased(std::u16string line) { return recased(std::move(line), smallLanguage()); }

}  // namespace

TEST(Recasing, GivesWordsTheSpellingOfTheirList) {
    EXPECT_EQ("If Len(s) Then Dim w As NSWindow", recased(u"IF len(s) then DIM w as nswindow"));
}

TEST(Recasing, LeavesPartsOfWordsAlone) { EXPECT_EQ("iffy if_ _if if2 Not x", recased(u"iffy if_ _if if2 not x")); }

TEST(Recasing, BeginsAWordBehindDigits) { EXPECT_EQ("1If", recased(u"1if")); }

TEST(Recasing, EndsWordsAtPunctuationSymbolsAndWhiteSpace) {
    EXPECT_EQ("If.If,If+If\u00A0If\"If'If", recased(u"if.if,if+if\u00A0if\"if'if"));
}

TEST(Recasing, TakesTheLastSpellingOfAList) {
    EXPECT_EQ("IF", recased(u"if", {.keywords = {u"If", u"IF"}, .builtins = {}, .types = {}}));
}

TEST(Recasing, PrefersKeywordsToBuiltinsAndThemToTypes) {
    EXPECT_EQ("KEY BUILT Type",
              recased(u"key built type",
                      {.keywords = {u"KEY"}, .builtins = {u"Key", u"BUILT"}, .types = {u"key", u"Built", u"Type"}}));
}

TEST(Recasing, DoesNothingWithoutKeywords) {
    EXPECT_EQ("len", recased(u"len", {.keywords = {}, .builtins = {u"Len"}, .types = {}}));
}

TEST(Recasing, KnowsWordsOfAnyScriptAndLength) {
    const std::u16string longWord(100, u'x');
    std::u16string longSpelling = longWord;
    longSpelling.back() = u'X';
    const LanguageWords words{.keywords = {u"Für", u"ИЛИ", longSpelling}, .builtins = {}, .types = {}};
    EXPECT_EQ("Für ИЛИ", recased(u"FÜR или", words));
    EXPECT_EQ(shown(longSpelling), recased(longWord, words));
    EXPECT_EQ(std::string(101, 'x'), recased(std::u16string(101, u'x'), words));
}

TEST(Recasing, GoesOnBehindASpellingOfAnotherLength) {
    // The lower case of a dotted capital I is two characters.
    EXPECT_EQ("a İ If", recased(u"a i\u0307 if", {.keywords = {u"İ", u"If"}, .builtins = {}, .types = {}}));
}

TEST(Recasing, LeavesOutWhatIsNoStringOrNoList) {
    const Ref<NSMutableArray> keywords = make<NSMutableArray>();
    keywords->append(VELT_ID(7L));
    keywords->append(velt::string("If"));
    std::u16string line = u"if len";
    Recasing({.keywords = keywords, .builtins = velt::string("Len"), .types = nil}).recase(line);
    EXPECT_EQ("If len", shown(line));
}

TEST(Recasing, KnowsItsKeywordsInAnyCase) {
    const Recasing recasing = smallLanguage().recasing();
    EXPECT_TRUE(recasing.isKeyword(u"IF"));
    EXPECT_FALSE(recasing.isKeyword(u"len"));
    EXPECT_FALSE(recasing.isKeyword(u"nothing"));
    EXPECT_FALSE(Recasing().isKeyword(u"if"));
}

}  // namespace velt::test
