#include "VELTRuntime/editor/search_commands.h"

#include "VELTRuntime/editor/source_document.h"

#include "editor/generated_text.h"
#include "support/values.h"

namespace {

using velt::FindOptions;
using velt::SourceDocument;

/// Keeps a record of what a person would see and hear.
struct Document : SourceDocument {
    explicit Document(std::u16string_view text, NSRange selection = {}) : SourceDocument(text) { select(selection); }
    void reveal(NSRange range) override { said += "reveal " + shown(range); }
    void showFindIndicator(NSRange range) override { said += "indicate " + shown(range); }
    void highlightVisibleLines() override { said += "highlight lines; "; }
    void highlightAll() override { said += "highlight all; "; }
    void beep() override { said += "beep; "; }
    static std::string shown(NSRange range) {
        return std::to_string(range.location) + "+" + std::to_string(range.length) + "; ";
    }
    std::string text() const { return velt::utf8(buffer().text()); }
    std::string said;
};

constexpr FindOptions kIgnoringCase{true, false, false}, kInSelection{false, true, false};

TEST(FindNext, SelectsAndShowsTheMatch) {
    Document document(u"one two one two");
    EXPECT_EQ(true, velt::findNext(document, u"two", {}));
    EXPECT_EQ((NSRange{4, 3}), document.selectedRange());
    EXPECT_EQ("reveal 4+3; indicate 4+3; highlight lines; ", document.said);
    EXPECT_EQ(true, velt::findNext(document, u"two", {}));
    EXPECT_EQ((NSRange{12, 3}), document.selectedRange());
    EXPECT_EQ(true, velt::findNext(document, u"two", {}));
    EXPECT_EQ((NSRange{4, 3}), document.selectedRange()) << "from the start again";
}

TEST(FindNext, BeginsOneUnitBehindTheCaret) {
    Document document(u"aaa");
    velt::findNext(document, u"a", {});
    EXPECT_EQ((NSRange{1, 1}), document.selectedRange());
}

TEST(FindNext, NeverFindsAMatchAtTheVeryStart) {
    Document document(u"one two", {3, 0});
    EXPECT_EQ(false, velt::findNext(document, u"one", {}));
    EXPECT_EQ((NSRange{3, 0}), document.selectedRange());
    EXPECT_EQ("", document.said);
}

TEST(FindNext, GivesNothingForAnEmptyTextOrNeedle) {
    Document empty(u""), document(u"abc");
    EXPECT_EQ(std::nullopt, velt::findNext(empty, u"a", {}));
    EXPECT_EQ(std::nullopt, velt::findNext(document, u"", {}));
    EXPECT_EQ(std::nullopt, velt::findPrevious(empty, u"a", {}));
    EXPECT_EQ(std::nullopt, velt::findPrevious(document, u"", {}));
}

TEST(FindNext, MindsCaseUnlessToldNotTo) {
    Document document(u" Straße");
    EXPECT_EQ(false, velt::findNext(document, u"STRASSE", {}));
    EXPECT_EQ(true, velt::findNext(document, u"STRASSE", kIgnoringCase));
    EXPECT_EQ((NSRange{1, 6}), document.selectedRange());
}

TEST(FindNext, SearchesTheSelectionFromItsStart) {
    Document document(u"ab ab ab", {3, 4});
    EXPECT_EQ(true, velt::findNext(document, u"ab", kInSelection));
    EXPECT_EQ((NSRange{3, 2}), document.selectedRange());
    EXPECT_EQ(true, velt::findNext(document, u"ab", kInSelection));
    EXPECT_EQ((NSRange{3, 2}), document.selectedRange()) << "which is the match itself now";
    document.select({4, 3});
    EXPECT_EQ(false, velt::findNext(document, u"ab", kInSelection)) << "a match beyond its end";
    document.select({1, 0});
    EXPECT_EQ(true, velt::findNext(document, u"ab", kInSelection)) << "a caret is no selection";
    EXPECT_EQ((NSRange{3, 2}), document.selectedRange());
}

TEST(FindNext, PaysNoHeedToWholeWords) {
    Document document(u"a two");
    EXPECT_EQ(true, velt::findNext(document, u"w", {false, false, true}));
}

TEST(FindPrevious, SearchesBeforeTheUnitBeforeTheCaret) {
    Document document(u"ab ab ab", {8, 0});
    EXPECT_EQ(true, velt::findPrevious(document, u"ab", {}));
    EXPECT_EQ((NSRange{3, 2}), document.selectedRange()) << "the last one ends at the caret";
    EXPECT_EQ(true, velt::findPrevious(document, u"ab", {}));
    EXPECT_EQ((NSRange{0, 2}), document.selectedRange());
    EXPECT_EQ("reveal 3+2; indicate 3+2; highlight lines; reveal 0+2; indicate 0+2; highlight lines; ", document.said);
    EXPECT_EQ(true, velt::findPrevious(document, u"ab", {}));
    EXPECT_EQ((NSRange{3, 2}), document.selectedRange()) << "from the end again, but for the last unit";
}

TEST(FindPrevious, NeverFindsAMatchAtTheVeryEndFromTheTop) {
    Document document(u"one two");
    EXPECT_EQ(false, velt::findPrevious(document, u"two", {}));
    EXPECT_EQ(true, velt::findPrevious(document, u"tw", {}));
}

TEST(FindPrevious, SearchesWithinTheSelection) {
    Document document(u"ab ab ab", {0, 7});
    EXPECT_EQ(true, velt::findPrevious(document, u"ab", kInSelection));
    EXPECT_EQ((NSRange{3, 2}), document.selectedRange());
    document.select({4, 3});
    EXPECT_EQ(false, velt::findPrevious(document, u"ab", kInSelection));
}

TEST(Replace, NeedsASelection) {
    Document document(u"abc", {1, 0});
    EXPECT_FALSE(velt::replaceSelection(document, u"x"));
    EXPECT_EQ("abc", document.text());
    document.select({1, 1});
    EXPECT_TRUE(velt::replaceSelection(document, u"xyz"));
    EXPECT_EQ("axyzc", document.text());
    EXPECT_EQ((NSRange{1, 3}), document.selectedRange());
    EXPECT_EQ("highlight lines; ", document.said);
}

TEST(Replace, FailsWhenItIsRefused) {
    Document document(u"abc", {1, 1});
    document.allows = [](NSRange, std::u16string_view) { return false; };
    EXPECT_FALSE(velt::replaceSelection(document, u"x"));
    EXPECT_EQ(false, velt::replaceAndFind(document, u"c", u"x", {}));
    EXPECT_EQ((NSRange{1, 1}), document.selectedRange());
    EXPECT_EQ(0u, velt::replaceAll(document, u"b", u"x", {}));
    EXPECT_EQ("abc", document.text());
}

TEST(ReplaceAndFind, GoesOnToTheNextMatch) {
    Document document(u"-a-a", {1, 1});
    EXPECT_EQ(true, velt::replaceAndFind(document, u"a", u"b", {}));
    EXPECT_EQ("-b-a", document.text());
    EXPECT_EQ((NSRange{3, 1}), document.selectedRange());
    EXPECT_EQ(false, velt::replaceAndFind(document, u"a", u"b", {}));
    EXPECT_EQ("-b-b", document.text()) << "replaced, but no other match";
    document.select({0, 0});
    EXPECT_EQ(false, velt::replaceAndFind(document, u"b", u"c", {}));
    EXPECT_EQ("-b-b", document.text());
}

TEST(ReplaceAll, ReplacesEveryMatchInOneStep) {
    Document document(u"-one, one, One", {5, 0});
    EXPECT_EQ(2u, velt::replaceAll(document, u"one", u"three", {}));
    EXPECT_EQ("-three, three, One", document.text());
    EXPECT_TRUE(document.said.ends_with("highlight all; "));
    document.undo();
    EXPECT_EQ("-one, one, One", document.text());
    EXPECT_EQ((NSRange{5, 0}), document.selectedRange());
    EXPECT_EQ(3u, velt::replaceAll(document, u"one", u"", kIgnoringCase));
    EXPECT_EQ("-, , ", document.text());
}

TEST(ReplaceAll, EndsWhenTheReplacementHoldsTheNeedle) {
    Document document(u"banana");
    EXPECT_EQ(3u, velt::replaceAll(document, u"a", u"aa", {}));
    EXPECT_EQ("baanaanaa", document.text());
    Document selected(u"banana", {1, 5});
    EXPECT_EQ(3u, velt::replaceAll(selected, u"a", u"aa", kInSelection));
    EXPECT_EQ("baanaanaa", selected.text());
}

TEST(ReplaceAll, ReplacesMatchesSideBySide) {
    Document document(u"xaaaa");
    EXPECT_EQ(4u, velt::replaceAll(document, u"a", u"b", {}));
    EXPECT_EQ("xbbbb", document.text());
}

TEST(ReplaceAll, LeavesAMatchAtTheVeryStart) {
    Document document(u"aba");
    EXPECT_EQ(1u, velt::replaceAll(document, u"a", u"x", {}));
    EXPECT_EQ("abx", document.text());
}

TEST(ReplaceAll, KeepsToTheSelectionAndKeepsItSelected) {
    Document document(u"a a a a", {0, 5});
    EXPECT_EQ(3u, velt::replaceAll(document, u"a", u"bcd", kInSelection));
    EXPECT_EQ("bcd bcd bcd a", document.text());
    EXPECT_EQ((NSRange{0, 11}), document.selectedRange());
}

TEST(ReplaceAll, MovesTheSelectionsEndByTheLengthsOfTheTexts) {
    Document document(u"\u00DF\u00DF\u00DF x", {0, 3});
    EXPECT_EQ(2u, velt::replaceAll(document, u"ss", u"-", {true, true, false}));
    EXPECT_EQ("--\u00DF x", document.text()) << "each match is one unit, but the needle has two";
}

TEST(ReplaceAll, GivesNoneForNothing) {
    Document empty(u""), document(u"abc");
    EXPECT_EQ(0u, velt::replaceAll(empty, u"a", u"b", {}));
    EXPECT_EQ(0u, velt::replaceAll(document, u"", u"b", {}));
    EXPECT_EQ(0u, velt::replaceAll(document, u"x", u"b", {}));
    EXPECT_FALSE(document.canUndo());
}

TEST(GoToLine, SelectsAWholeLine) {
    Document document(u"a\nbc\r\nd");
    EXPECT_TRUE(velt::goToLine(document, 2));
    EXPECT_EQ((NSRange{2, 4}), document.selectedRange());
    EXPECT_EQ("reveal 2+4; ", document.said);
    EXPECT_TRUE(velt::goToLine(document, 3));
    EXPECT_EQ((NSRange{6, 1}), document.selectedRange());
}

TEST(GoToLine, SelectsTheEmptyEndOneBehindTheLastLine) {
    for (const std::u16string_view text : {u"a\nb", u"a\nb\n"}) {
        Document document(text);
        EXPECT_TRUE(velt::goToLine(document, 3));
        EXPECT_EQ((NSRange{text.size(), 0}), document.selectedRange());
        document.said.clear();
        EXPECT_FALSE(velt::goToLine(document, 4));
        EXPECT_EQ("beep; ", document.said);
    }
    Document empty(u"");
    EXPECT_TRUE(velt::goToLine(empty, 1));
    EXPECT_FALSE(velt::goToLine(empty, 2));
}

TEST(GoToLine, TakesTheFirstLineForNumbersBelowOne) {
    Document document(u"a\nb", {3, 0});
    EXPECT_TRUE(velt::goToLine(document, 0));
    EXPECT_EQ((NSRange{0, 2}), document.selectedRange());
    EXPECT_TRUE(velt::goToLine(document, -100));
    EXPECT_EQ((NSRange{0, 2}), document.selectedRange());
}

/// Finding and replacing one after the other, as findNext is defined, but for what was put in: a unit that no needle
/// holds stands before it, so that no match reaches over it.
class GeneratedReplacing : public velt::test::GeneratedText {
protected:
    struct Slow {
        std::u16string text;
        std::vector<bool> isNew;
        std::size_t count = 0;
    };
    static std::optional<std::size_t> nextOld(const Slow& slow, std::size_t from, const std::u16string& needle) {
        for (std::size_t at = slow.text.find(needle, from); at != std::u16string::npos;
             at = slow.text.find(needle, at + 1)) {
            bool isOld = true;
            for (std::size_t i = 0; i < needle.size(); ++i) isOld = isOld && !slow.isNew[at + i];
            if (isOld) return at;
        }
        return std::nullopt;
    }
    static Slow replaced(const std::u16string& text, const std::u16string& needle, const std::u16string& with) {
        Slow slow{text, std::vector<bool>(text.size()), 0};
        std::size_t caret = 0;
        for (;;) {
            auto match = nextOld(slow, caret + 1, needle);
            if (!match) match = nextOld(slow, 1, needle);
            if (!match) break;
            const std::u16string put = u"\uE000" + with;
            slow.text.replace(*match, needle.size(), put);
            const auto at = slow.isNew.begin() + static_cast<std::ptrdiff_t>(*match);
            slow.isNew.insert(slow.isNew.erase(at, at + static_cast<std::ptrdiff_t>(needle.size())), put.size(), true);
            caret = *match + put.size();
            ++slow.count;
        }
        std::erase(slow.text, u'\uE000');
        return slow;
    }
};

TEST_F(GeneratedReplacing, IsFindingAndReplacingAgainAndAgain) {
    constexpr std::u16string_view kPieces[] = {u"a", u"a", u"b", u"\n"};
    for (int round = velt::test::iterations(20000) + 20; round-- > 0;) {
        const std::u16string before = text(kPieces, below(30));
        const std::u16string needle = text(kPieces, 1 + below(3)), with = text(kPieces, below(4));
        const Slow slow = before.empty() ? Slow{} : replaced(before, needle, with);
        Document document(before, rangeIn(before.size()));
        ASSERT_EQ(slow.count, velt::replaceAll(document, needle, with, {}));
        ASSERT_EQ(velt::utf8(slow.text), document.text()) << velt::utf8(before) << " / " << velt::utf8(needle);
        if (slow.count == 0) continue;
        document.undo();
        ASSERT_EQ(velt::utf8(before), document.text());
        ASSERT_FALSE(document.canUndo());
    }
}

}  // namespace
