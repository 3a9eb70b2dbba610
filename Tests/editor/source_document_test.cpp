#include "VELTRuntime/editor/source_document.h"

#include "editor/generated_text.h"

namespace {

using velt::CommandScope;
using velt::SourceDocument;

TEST(SourceDocuments, TypeInThePlaceOfTheSelection) {
    SourceDocument document(u"abc");
    document.select({1, 1});
    document.insertText(u"xyz");
    EXPECT_EQ(u"axyzc", document.buffer().text());
    EXPECT_EQ((NSRange{4, 0}), document.selectedRange());
}

TEST(SourceDocuments, UndoAndRedoWholeCommandsWithTheirSelections) {
    SourceDocument document(u"abc");
    document.setSelectedRanges({{0, 1}, {2, 1}});
    {
        const CommandScope scope(document);
        document.change({0, 1}, u"12");
        document.change({4, 0}, u"3");
        document.select({5, 0});
    }
    EXPECT_EQ(u"12bc3", document.buffer().text());
    document.undo();
    EXPECT_EQ(u"abc", document.buffer().text());
    EXPECT_EQ((std::vector<NSRange>{{0, 1}, {2, 1}}), document.selectedRanges());
    EXPECT_FALSE(document.canUndo());
    document.redo();
    EXPECT_EQ(u"12bc3", document.buffer().text());
    EXPECT_EQ((NSRange{5, 0}), document.selectedRange());
    EXPECT_FALSE(document.canRedo());
}

TEST(SourceDocuments, ForgetWhatWasUndoneWithTheNextChange) {
    SourceDocument document(u"");
    document.insertText(u"a");
    document.undo();
    EXPECT_TRUE(document.canRedo());
    document.insertText(u"b");
    EXPECT_FALSE(document.canRedo());
    document.redo();
    EXPECT_EQ(u"b", document.buffer().text());
}

TEST(SourceDocuments, KeepNoCommandThatChangedNothing) {
    SourceDocument document(u"a");
    { const CommandScope scope(document); }
    EXPECT_FALSE(document.canUndo());
    document.undo();
    EXPECT_EQ(u"a", document.buffer().text());
}

TEST(SourceDocuments, RefuseWhatIsNotAllowed) {
    SourceDocument document(u"abc");
    document.allows = [](NSRange range, std::u16string_view with) { return range.location > 0 && with != u"no"; };
    EXPECT_FALSE(document.change({0, 1}, u"x"));
    EXPECT_FALSE(document.change({1, 1}, u"no"));
    document.select({0, 2});
    document.insertText(u"x");
    EXPECT_EQ((NSRange{0, 2}), document.selectedRange());
    EXPECT_TRUE(document.change({1, 1}, u"yes"));
    EXPECT_EQ(u"ayesc", document.buffer().text());
}

TEST(SourceDocuments, ShortenSelectionsToTheText) {
    SourceDocument document(u"abcdef");
    document.setSelectedRanges({{1, 5}, {100, 5}});
    EXPECT_EQ((std::vector<NSRange>{{1, 5}, {6, 0}}), document.selectedRanges());
    document.change({2, 4}, u"");
    EXPECT_EQ((std::vector<NSRange>{{1, 1}, {2, 0}}), document.selectedRanges());
}

using GeneratedDocuments = velt::test::GeneratedText;

TEST_F(GeneratedDocuments, ComeBackByUndoingAndGoForthByRedoing) {
    constexpr std::u16string_view kPieces[] = {u"a", u"b", u"\n", u"\r\n"};
    for (int round = velt::test::iterations(200) + 2; round-- > 0;) {
        const std::u16string first = text(kPieces, below(20));
        SourceDocument document(first);
        std::vector<std::u16string> after;
        for (std::size_t commands = below(8); commands-- > 0;) {
            const std::u16string before = document.buffer().text();
            {
                const CommandScope scope(document);
                for (std::size_t edits = 1 + below(4); edits-- > 0;) {
                    document.select(rangeIn(document.buffer().length()));
                    document.insertText(text(kPieces, below(4)));
                }
            }
            after.push_back(document.buffer().text());
        }
        const std::u16string last = document.buffer().text();
        for (std::size_t i = after.size(); i-- > 0;) {
            ASSERT_EQ(after[i], document.buffer().text());
            document.undo();
        }
        ASSERT_EQ(first, document.buffer().text());
        ASSERT_FALSE(document.canUndo());
        while (document.canRedo()) document.redo();
        ASSERT_EQ(last, document.buffer().text());
    }
}

}  // namespace
