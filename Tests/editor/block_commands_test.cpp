#include "VELTRuntime/editor/block_commands.h"

#include "VELTRuntime/editor/source_document.h"
#include "VELTRuntime/values/text/utf.h"

#include "editor/generated_text.h"
#include "support/values.h"

namespace {

using velt::SourceDocument;
using Ranges = std::vector<NSRange>;
using Work = void (*)(velt::EditTarget&);

struct Document : SourceDocument {
    using SourceDocument::SourceDocument;
    Document(std::u16string_view text, Ranges ranges) : SourceDocument(text) { setSelectedRanges(std::move(ranges)); }
    void beep() override { ++beeps; }
    std::string after(Work command) {
        command(*this);
        return velt::utf8(buffer().text());
    }
    int beeps = 0;
};

TEST(ShiftRight, PutsTwoSpacesBeforeEachLine) {
    Document document(u"one\n  two\n\nthree", {{1, 11}});
    EXPECT_EQ("  one\n    two\n  \n  three", document.after(velt::shiftRight));
    EXPECT_EQ((Ranges{{0, 19}}), document.selectedRanges());
}

TEST(ShiftRight, LeavesALineAloneThatTheSelectionEndsBefore) {
    Document document(u"a\nb\n", {{0, 2}});
    EXPECT_EQ("  a\nb\n", document.after(velt::shiftRight));
    EXPECT_EQ((Ranges{{0, 4}}), document.selectedRanges());
}

TEST(ShiftRight, ShiftsTheLineOfACaret) {
    Document document(u"a\nbc", {{3, 0}});
    EXPECT_EQ("a\n  bc", document.after(velt::shiftRight));
    EXPECT_EQ((Ranges{{2, 2}}), document.selectedRanges());
    Document end(u"a\n", {{2, 0}});
    EXPECT_EQ("a\n  ", end.after(velt::shiftRight)) << "the empty last line";
}

TEST(ShiftRight, DoesNothingToAnEmptyText) {
    Document document;
    EXPECT_EQ("", document.after(velt::shiftRight));
    EXPECT_FALSE(document.canUndo());
    EXPECT_EQ(0, document.beeps);
}

TEST(ShiftLeft, TakesUpToTwoBlanks) {
    Document document(u"   a\n b\n\t\tc\nd\n\n", {{0, 16}});
    EXPECT_EQ(" a\nb\nc\nd\n\n", document.after(velt::shiftLeft));
}

TEST(ShiftLeft, CountsATabAsOneBlank) {
    Document document(u"\t  a", {{0, 0}});
    EXPECT_EQ(" a", document.after(velt::shiftLeft));
}

TEST(ShiftLeft, BeginsTheSelectionOneUnitEarlier) {
    Document document(u"  abcd", {{4, 2}});
    document.after(velt::shiftLeft);
    EXPECT_EQ((Ranges{{3, 0}}), document.selectedRanges());
    Document first(u"x\n  a\n  b\n", {{2, 8}});
    EXPECT_EQ("x\na\nb\n", first.after(velt::shiftLeft));
    EXPECT_EQ((Ranges{{2, 4}}), first.selectedRanges()) << "but not before its first line";
}

TEST(ShiftLeft, KeepsTheSelectionWithinAText) {
    Document document(u"  ", {{2, 0}});
    EXPECT_EQ("", document.after(velt::shiftLeft));
    EXPECT_EQ((Ranges{{0, 0}}), document.selectedRanges());
    Document empty;
    EXPECT_EQ("", empty.after(velt::shiftLeft));
}

TEST(Comment, PutsTheMarkerBeforeTheIndentation) {
    Document document(u"a\n  b\nc\n", {{1, 3}});
    EXPECT_EQ("'a\n'  b\nc\n", document.after(velt::comment));
    EXPECT_EQ((Ranges{{0, 8}}), document.selectedRanges()) << "the whole lines";
}

TEST(Comment, LeavesALineAloneThatTheSelectionEndsBefore) {
    Document document(u"a\nb\n", {{0, 2}});
    EXPECT_EQ("'a\nb\n", document.after(velt::comment));
    EXPECT_EQ((Ranges{{0, 3}}), document.selectedRanges());
}

TEST(Comment, BeepsForAnEmptyText) {
    Document document;
    document.after(velt::comment);
    document.after(velt::uncomment);
    EXPECT_EQ(2, document.beeps);
    EXPECT_FALSE(document.canUndo());
}

TEST(Uncomment, KeepsTheIndentation) {
    Document document(u"  'a\n\t''b\nc'\n'", {{0, 14}});
    EXPECT_EQ("  a\n\t'b\nc'\n", document.after(velt::uncomment));
    EXPECT_EQ((Ranges{{0, 11}}), document.selectedRanges());
}

TEST(BlockCommands, ShiftSeveralSelectionsOnTheirOwn) {
    Document document(u"a\nb\nc\nd\n", {{0, 1}, {4, 2}});
    EXPECT_EQ("  a\nb\n  c\nd\n", document.after(velt::shiftRight));
    EXPECT_EQ((Ranges{{0, 3}, {6, 4}}), document.selectedRanges());
    EXPECT_EQ("a\nb\nc\nd\n", document.after(velt::shiftLeft));
    EXPECT_EQ((Ranges{{0, 1}, {4, 2}}), document.selectedRanges());
}

TEST(BlockCommands, ShiftALineTwiceForTwoSelectionsInIt) {
    Document document(u"abc\n", {{0, 1}, {2, 1}});
    EXPECT_EQ("    abc\n", document.after(velt::shiftRight));
}

TEST(BlockCommands, KnowAllLineEnds) {
    Document document(u"a\r\nb\rc\u2028d", {{0, 8}});
    document.after(velt::comment);
    EXPECT_EQ(u"'a\r\n'b\r'c\u2028'd", document.buffer().text());
}

TEST(BlockCommands, GoOnWhenTwoLinesBecomeOne) {
    Document document(u"\r \n a", {{0, 5}});
    EXPECT_EQ("\r\na", document.after(velt::shiftLeft));
}

TEST(BlockCommands, LeaveOutWhatIsRefused) {
    Document document(u"a\nb\nc\n", {{0, 6}});
    document.allows = [](NSRange range, std::u16string_view) { return range.location != 3; };
    EXPECT_EQ("'a\nb\n'c\n", document.after(velt::comment));
    EXPECT_EQ((Ranges{{0, 8}}), document.selectedRanges());
    EXPECT_EQ("a\nb\n'c\n", [&] {
        document.allows = [](NSRange range, std::u16string_view) { return range.location == 0; };
        return document.after(velt::uncomment);
    }());
}

TEST(BlockCommands, AreUndoneInOneStep) {
    for (const Work command : {velt::shiftRight, velt::shiftLeft, velt::comment, velt::uncomment, velt::lowercase,
                               velt::uppercase, velt::insertTab}) {
        const std::u16string text = u"  'aB\n  'cD\n";
        const Ranges ranges{{0, 8}, {9, 2}};
        Document document(text, ranges);
        command(document);
        EXPECT_NE(text, document.buffer().text());
        document.undo();
        EXPECT_EQ(text, document.buffer().text());
        EXPECT_EQ(ranges, document.selectedRanges());
        EXPECT_FALSE(document.canUndo());
    }
}

TEST(CaseCommands, ChangeTheSelectedTexts) {
    Document document(u"straße und Weg", {{0, 6}, {11, 3}});
    EXPECT_EQ("STRASSE und WEG", document.after(velt::uppercase));
    EXPECT_EQ((Ranges{{15, 0}}), document.selectedRanges()) << "behind what was typed last";
    document.setSelectedRanges({{0, 2}, {12, 0}});
    EXPECT_EQ("stRASSE und WEG", document.after(velt::lowercase));
}

TEST(CaseCommands, AreTypedEachAsOneChange) {
    Document document(u"ab", {{0, 2}});
    std::string asked;
    document.allows = [&](NSRange range, std::u16string_view with) {
        asked += std::to_string(range.location) + "+" + std::to_string(range.length) + velt::text::toUtf8(with) + " ";
        return true;
    };
    velt::uppercase(document);
    EXPECT_EQ("0+2AB ", asked);
}

TEST(SelectedText, IsThatOfTheFirstRange) {
    const Document document(u"abcdef", {{3, 2}, {0, 1}});
    EXPECT_EQ(u"de", velt::selectedText(document));
    EXPECT_EQ(u"", velt::selectedText(Document(u"abc")));
}

TEST(Tab, TypesTwoSpaces) {
    Document document(u"ab", {{1, 0}});
    EXPECT_EQ("a  b", document.after(velt::insertTab));
    EXPECT_EQ((Ranges{{3, 0}}), document.selectedRanges());
    Document selected(u"abcd", {{1, 2}});
    EXPECT_EQ("a  d", selected.after(velt::insertTab));
}

TEST(Tab, ShiftsLinesWhenTheSelectionBeginsInTheirBlanksAndStillTypes) {
    Document document(u" a\nb\n", {{1, 3}});
    // The selection is from the line's start on then, and longer by four.
    EXPECT_EQ("  b\n", document.after(velt::insertTab));
    Document indented(u"    abc", {{2, 1}});
    EXPECT_EQ("     abc", indented.after(velt::insertTab));
}

using GeneratedBlocks = velt::test::GeneratedText;

TEST_F(GeneratedBlocks, KeepSelectionsInTheTextAndComeBackByUndoing) {
    constexpr std::u16string_view kPieces[] = {u"a", u"Ff\u00DF", u" ", u"\t", u"'", u"\n", u"\r", u"\r\n", u"\u2028"};
    constexpr Work kWorks[] = {velt::shiftRight, velt::shiftLeft, velt::comment,  velt::uncomment,
                               velt::lowercase,  velt::uppercase, velt::insertTab};
    for (int round = velt::test::iterations(1000) + 5; round-- > 0;) {
        const std::u16string first = text(kPieces, below(25));
        Document document(first);
        if (below(3) == 0) {
            document.allows = [this](NSRange, std::u16string_view) { return below(2) == 0; };
        }
        for (int i = 0; i < 8; ++i) {
            Ranges ranges{rangeIn(document.buffer().length())};
            if (below(2) == 0) ranges.push_back(rangeIn(document.buffer().length()));
            document.setSelectedRanges(ranges);
            kWorks[below(std::size(kWorks))](document);
            for (const NSRange range : document.selectedRanges()) {
                ASSERT_LE(velt::endOf(range), document.buffer().length());
            }
        }
        while (document.canUndo()) document.undo();
        ASSERT_EQ(first, document.buffer().text());
    }
}

TEST_F(GeneratedBlocks, ChangeEveryLineThatTheSelectionTouches) {
    constexpr std::u16string_view kPieces[] = {u"a", u" ", u"\t", u"'", u"\n", u"\n"};
    for (int round = velt::test::iterations(2000) + 5; round-- > 0;) {
        const std::u16string before = text(kPieces, 1 + below(25));
        const NSRange range = rangeIn(before.size());
        // Line by line, over plain lines.
        std::u16string right, left, marked, unmarked;
        for (std::size_t begin = 0, last = 0; !last;) {
            const std::size_t lineFeed = before.find(u'\n', begin);
            const std::size_t end = lineFeed == before.npos ? before.size() : lineFeed + 1;
            last = lineFeed == before.npos;
            const std::u16string line = before.substr(begin, end - begin);
            const bool holdsStart = range.location >= begin && (range.location < end || last);
            const bool touched = holdsStart || (begin > range.location && begin < velt::endOf(range));
            right += (touched ? u"  " : u"") + line;
            marked += (touched ? u"'" : u"") + line;
            const std::size_t blanks = std::min(line.find_first_not_of(u" \t"), line.size());
            left += touched ? line.substr(std::min<std::size_t>(blanks, 2)) : line;
            const bool isMarked = touched && blanks < line.size() && line[blanks] == u'\'';
            unmarked += isMarked ? line.substr(0, blanks) + line.substr(blanks + 1) : line;
            begin = end;
        }
        const auto after = [&](Work command) { return Document(before, {range}).after(command); };
        SCOPED_TRACE(velt::utf8(before));
        ASSERT_EQ(velt::utf8(right), after(velt::shiftRight));
        ASSERT_EQ(velt::utf8(left), after(velt::shiftLeft));
        ASSERT_EQ(velt::utf8(marked), after(velt::comment));
        ASSERT_EQ(velt::utf8(unmarked), after(velt::uncomment));
    }
}

}  // namespace
