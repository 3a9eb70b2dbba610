#include "VELTRuntime/editor/breakpoints.h"

#include "editor/generated_text.h"
#include "support/values.h"

namespace {

using velt::SourceBuffer;
using velt::test::array;
using velt::test::integer;
using velt::test::shortNumber;
using velt::test::str;

struct Entries {
    template <class... Values> explicit Entries(const Values&... values) : array(velt::test::array(values...)) {}
    NSMutableArray& operator*() const { return *velt::mutableArrayOf(array); }
    std::vector<std::int64_t> positions() const { return velt::positionsIn(**this); }
    id array;
};

using Positions = std::vector<std::int64_t>;

TEST(CurrentLines, AreCountedFromOne) {
    const SourceBuffer buffer(u"a\nb\r\nc\n");
    EXPECT_EQ(1u, velt::currentLine(buffer, 0));
    EXPECT_EQ(1u, velt::currentLine(buffer, 1));
    EXPECT_EQ(2u, velt::currentLine(buffer, 2));
    EXPECT_EQ(2u, velt::currentLine(buffer, 4));
    EXPECT_EQ(3u, velt::currentLine(buffer, 5));
    EXPECT_EQ(3u, velt::currentLine(buffer, 7)) << "behind the last line end";
    EXPECT_EQ(2u, velt::currentLine(SourceBuffer(u"a\nb"), 3));
}

TEST(CurrentLines, AreNoneInAnEmptyText) { EXPECT_EQ(0u, velt::currentLine(SourceBuffer(), 0)); }

using GeneratedLines = velt::test::GeneratedText;

TEST_F(GeneratedLines, AreWhatAWalkOverTheLinesCounts) {
    constexpr std::u16string_view kPieces[] = {u"a", u"\n", u"\r", u"\r\n", u"\u0085", u"\u2028", u"\u2029"};
    for (int round = velt::test::iterations(500) + 5; round-- > 0;) {
        const SourceBuffer buffer(text(kPieces, 1 + below(20)));
        for (std::size_t caret = 0; caret <= buffer.length(); ++caret) {
            std::size_t position = 0, count = 0;
            do {
                position = velt::endOf(buffer.lineRange({position, 0}));
                ++count;
            } while (position <= caret && position < buffer.length());
            ASSERT_EQ(count, velt::currentLine(buffer, caret));
        }
    }
}

TEST(Breakpoints, AreToggled) {
    const SourceBuffer buffer(u"one\ntwo\nthree\n");
    const Entries entries;
    EXPECT_TRUE(velt::toggleBreakpoint(buffer, 10, *entries));
    EXPECT_EQ(Positions{8}, entries.positions());
    EXPECT_VALUE("s 8", (*entries).at(0));
    EXPECT_TRUE(velt::toggleBreakpoint(buffer, 5, *entries));
    EXPECT_EQ((Positions{8, 4}), entries.positions());
    EXPECT_TRUE(velt::toggleBreakpoint(buffer, 13, *entries));
    EXPECT_EQ(Positions{4}, entries.positions());
}

TEST(Breakpoints, OfTheFirstLineAreOnlyEverAdded) {
    const SourceBuffer buffer(u"one\ntwo\n");
    const Entries entries;
    velt::toggleBreakpoint(buffer, 2, *entries);
    velt::toggleBreakpoint(buffer, 0, *entries);
    EXPECT_EQ((Positions{1, 1}), entries.positions());
}

TEST(Breakpoints, OfTheFirstLineAreRemovedWhenStoredAsZero) {
    const Entries entries(integer(4), integer(0));
    velt::toggleBreakpoint(SourceBuffer(u"one\ntwo"), 1, *entries);
    EXPECT_EQ(Positions{4}, entries.positions());
}

TEST(Breakpoints, AreNotToggledInAnEmptyText) {
    const Entries entries;
    EXPECT_FALSE(velt::toggleBreakpoint(SourceBuffer(), 0, *entries));
    EXPECT_TRUE(entries.positions().empty());
}

TEST(Breakpoints, AreLookedForByLineFeedsButCountedByAllLineEnds) {
    const SourceBuffer buffer(u"a\rb\nc\nd");
    const Entries entries;
    // The third line by its number, the second one by its line feeds.
    velt::toggleBreakpoint(buffer, 4, *entries);
    EXPECT_EQ(Positions{4}, entries.positions());
    velt::toggleBreakpoint(buffer, 4, *entries);
    EXPECT_EQ((Positions{4, 4}), entries.positions());
    velt::toggleBreakpoint(buffer, 2, *entries);
    EXPECT_EQ(Positions{4}, entries.positions()) << "the caret was in another line";
}

TEST(Breakpoints, BehindTheLastLineEndAreOnlyEverAdded) {
    const SourceBuffer buffer(u"a\nb\n");
    const Entries entries;
    velt::toggleBreakpoint(buffer, 4, *entries);
    velt::toggleBreakpoint(buffer, 4, *entries);
    EXPECT_EQ((Positions{4, 4}), entries.positions());
}

TEST(Breakpoints, OfALineAreToggledAsAPersonSeesThem) {
    const SourceBuffer buffer(u"one\ntwo\nthree\n");
    const Entries entries;
    EXPECT_TRUE(velt::toggleBreakpointOfLine(buffer, 2, *entries));
    EXPECT_TRUE(velt::toggleBreakpointOfLine(buffer, 1, *entries));
    EXPECT_EQ((Positions{4, 1}), entries.positions());
    EXPECT_TRUE(velt::toggleBreakpointOfLine(buffer, 1, *entries));
    EXPECT_EQ(Positions{4}, entries.positions());
    EXPECT_TRUE(velt::toggleBreakpointOfLine(buffer, 2, *entries));
    EXPECT_EQ(Positions{}, entries.positions());
    for (const std::size_t line : {0U, 4U, 5U}) {
        EXPECT_FALSE(velt::toggleBreakpointOfLine(buffer, line, *entries)) << line;
    }
    EXPECT_EQ(Positions{}, entries.positions());
}

TEST(Breakpoints, OfALineGoTogetherWhereverTheyLie) {
    const SourceBuffer buffer(u"one\ntwo\n");
    const Entries entries(shortNumber(1), shortNumber(5), shortNumber(1), shortNumber(-3), shortNumber(0),
                          shortNumber(300));
    EXPECT_TRUE(velt::toggleBreakpointOfLine(buffer, 1, *entries));
    EXPECT_EQ((Positions{5, -3, 0, 300}), entries.positions());
    EXPECT_TRUE(velt::toggleBreakpointOfLine(buffer, 2, *entries));
    EXPECT_EQ((Positions{-3, 0, 300}), entries.positions());
}

TEST(Breakpoints, BeyondSixteenBitsBecomeNegative) {
    std::u16string text(40000, u'x');
    text.append(u"\ny\n");
    const SourceBuffer buffer(text);
    const Entries entries;
    velt::toggleBreakpoint(buffer, 40001, *entries);
    EXPECT_EQ(Positions{40001 - 65536}, entries.positions());
    velt::toggleBreakpoint(buffer, 40001, *entries);
    EXPECT_EQ(2u, entries.positions().size()) << "it is not found again";
}

TEST(Breakpoints, AreReadAsIntegers) {
    EXPECT_EQ((Positions{12, 3}), Entries(str("12"), integer(3)).positions());
    const Entries entries(array());
    EXPECT_CAST_FAILURE("'Integer' expected", entries.positions());
}

TEST(Entries, MoveFromAPositionOn) {
    const Entries entries(integer(3), shortNumber(5), str("9"), integer(-7));
    EXPECT_TRUE(velt::moveEntries(*entries, 5, 1));
    EXPECT_EQ((Positions{3, 6, 10, -7}), entries.positions());
    EXPECT_VALUE("s 10", (*entries).at(2));
    EXPECT_FALSE(velt::moveEntries(*entries, 11, 1));
}

TEST(Entries, StayWhenOneIsNoInteger) {
    const id damaged = array(integer(3), array());
    EXPECT_CAST_FAILURE("'Integer' expected", velt::moveEntries(*velt::mutableArrayOf(damaged), 0, 1));
    EXPECT_VALUE("q 3", velt::mutableArrayOf(damaged)->at(0));
}

TEST(Entries, WrapWhenTheyMoveBeyondSixteenBits) {
    const Entries entries(integer(32767));
    velt::moveEntries(*entries, 0, 1);
    EXPECT_EQ(Positions{-32768}, entries.positions());
}

TEST(Entries, MoveWithBackspaceBeforeALineFeed) {
    const SourceBuffer buffer(u"ab\ncd");
    const Entries entries(integer(0), integer(1), integer(4));
    EXPECT_TRUE(velt::backspaceReleased(buffer, 1, *entries));
    EXPECT_EQ((Positions{0, 0, 3}), entries.positions());
    EXPECT_FALSE(velt::backspaceReleased(buffer, 0, *entries)) << "another unit";
    EXPECT_FALSE(velt::backspaceReleased(buffer, 4, *entries)) << "behind the end";
    EXPECT_EQ((Positions{0, 0, 3}), entries.positions());
}

}  // namespace
