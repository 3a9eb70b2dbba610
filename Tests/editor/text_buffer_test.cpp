#include "VELTRuntime/editor/text_buffer.h"

#include "editor/generated_text.h"
#include "support/values.h"

namespace {

using velt::endOf;
using velt::SourceBuffer;

bool endsLine(char16_t unit) {
    return std::u16string_view(u"\n\r\u0085\u2028\u2029").find(unit) != std::u16string_view::npos;
}

/// Behind the line end of the line that holds a position, by walking.
std::size_t walkedLineEnd(const std::u16string& text, std::size_t position) {
    for (; position < text.size(); ++position) {
        if (!endsLine(text[position])) continue;
        const bool isPair = text[position] == u'\r' && position + 1 < text.size() && text[position + 1] == u'\n';
        return position + (isPair ? 2 : 1);
    }
    return position;
}

std::vector<NSRange> walkedLines(const std::u16string& text) {
    std::vector<NSRange> lines;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = walkedLineEnd(text, begin);
        lines.push_back({begin, end - begin});
        begin = end;
    }
    if (text.empty() || endsLine(text.back())) lines.push_back({begin, 0});
    return lines;
}

TEST(SourceBuffers, KnowTheirLines) {
    const SourceBuffer buffer(u"one\ntwo\r\nthree\rfour\u0085five\u2028six\u2029");
    ASSERT_EQ(7u, buffer.lineCount());
    EXPECT_EQ((NSRange{0, 4}), buffer.line(0));
    EXPECT_EQ((NSRange{4, 5}), buffer.line(1));
    EXPECT_EQ((NSRange{9, 6}), buffer.line(2));
    EXPECT_EQ((NSRange{15, 5}), buffer.line(3));
    EXPECT_EQ((NSRange{20, 5}), buffer.line(4));
    EXPECT_EQ((NSRange{25, 4}), buffer.line(5));
    EXPECT_EQ((NSRange{29, 0}), buffer.line(6));
    EXPECT_EQ(1u, buffer.lineAt(8)) << "between the two units of a line end";
    EXPECT_EQ(6u, buffer.lineAt(29));
}

TEST(SourceBuffers, HaveOneEmptyLineWhenEmpty) {
    const SourceBuffer buffer;
    EXPECT_EQ(1u, buffer.lineCount());
    EXPECT_EQ(0u, buffer.lineAt(0));
    EXPECT_EQ(NSRange{}, buffer.lineRange({}));
    EXPECT_EQ(u"", buffer.text());
    EXPECT_FALSE(buffer.find(u'a', {}));
    EXPECT_FALSE(buffer.findLast(u'a', {}));
}

TEST(SourceBuffers, GiveTheLinesOfARange) {
    const SourceBuffer buffer(u"ab\ncd\nef");
    EXPECT_EQ((NSRange{0, 3}), buffer.lineRange({1, 2})) << "a range that ends at a line start";
    EXPECT_EQ((NSRange{0, 6}), buffer.lineRange({1, 3}));
    EXPECT_EQ((NSRange{3, 3}), buffer.lineRange({3, 0}));
    EXPECT_EQ((NSRange{6, 2}), buffer.lineRange({8, 0})) << "the end of a text without a last line end";
}

TEST(SourceBuffers, JoinAndPartTheUnitsOfALineEnd) {
    SourceBuffer buffer(u"a\r\nb");
    buffer.replace({2, 0}, u"x");
    EXPECT_EQ(3u, buffer.lineCount());
    buffer.replace({2, 1}, u"");
    EXPECT_EQ(2u, buffer.lineCount());
    EXPECT_EQ((NSRange{0, 3}), buffer.line(0));
    buffer.replace({1, 1}, u"");
    EXPECT_EQ((NSRange{0, 2}), buffer.line(0));
    buffer.replace({1, 0}, u"\r");
    EXPECT_EQ((NSRange{0, 3}), buffer.line(0));
}

TEST(SourceBuffers, TellListenersOfChangesAndCountThem) {
    struct Heard final : velt::SourceListener {
        std::vector<std::pair<NSRange, std::size_t>> changes;
        void textChanged(NSRange replaced, std::size_t inserted) override { changes.emplace_back(replaced, inserted); }
    } heard;
    SourceBuffer buffer(u"abc");
    EXPECT_EQ(0u, buffer.version());
    buffer.addListener(heard);
    buffer.replace({1, 1}, u"xyz");
    buffer.setText(u"");
    buffer.removeListener(heard);
    buffer.setText(u"more");
    EXPECT_EQ(3u, buffer.version());
    ASSERT_EQ(2u, heard.changes.size());
    EXPECT_EQ((std::pair<NSRange, std::size_t>({1, 1}, 3)), heard.changes[0]);
    EXPECT_EQ((std::pair<NSRange, std::size_t>({0, 5}, 0)), heard.changes[1]);
}

TEST(SourceBuffers, FindUnitsWithinARange) {
    SourceBuffer buffer(u"abcabc");
    buffer.replace({3, 0}, u"");
    EXPECT_EQ(0u, buffer.find(u'a', {0, 6}));
    EXPECT_EQ(3u, buffer.find(u'a', {1, 5}));
    EXPECT_EQ(std::nullopt, buffer.find(u'a', {1, 2}));
    EXPECT_EQ(5u, buffer.findLast(u'c', {0, 6}));
    EXPECT_EQ(2u, buffer.findLast(u'c', {0, 5}));
    EXPECT_EQ(std::nullopt, buffer.findLast(u'c', {3, 2}));
}

TEST(SourceBuffers, ViewARangeWhereverTheyWereChanged) {
    for (std::size_t at = 0; at <= 5; ++at) {
        SourceBuffer buffer(u"abcde");
        buffer.replace({at, 0}, u"-");
        const std::u16string whole = buffer.text();
        for (std::size_t begin = 0; begin <= whole.size(); ++begin) {
            for (std::size_t length = 0; begin + length <= whole.size(); ++length) {
                EXPECT_EQ(whole.substr(begin, length), buffer.view({begin, length})) << at;
                EXPECT_EQ(whole.substr(begin, length), buffer.substring({begin, length})) << at;
            }
        }
        EXPECT_EQ(whole, std::u16string(buffer.pieces()[0]).append(buffer.pieces()[1]));
    }
}

using GeneratedSourceBuffers = velt::test::GeneratedText;

TEST_F(GeneratedSourceBuffers, AreWhatAWalkOverThePlainTextSees) {
    constexpr std::u16string_view kPieces[] = {u"a",    u"b",      u" ",      u"\n",    u"\r",
                                               u"\r\n", u"\u0085", u"\u2028", u"\u2029"};
    for (int round = velt::test::iterations(60) + 2; round-- > 0;) {
        std::u16string plain = text(kPieces, below(60));
        SourceBuffer buffer(plain);
        for (int edit = 0; edit < 40; ++edit) {
            const NSRange range = shortRangeIn(plain.size());
            const std::u16string with = text(kPieces, below(5));
            plain.replace(range.location, range.length, with);
            buffer.replace(range, with);

            ASSERT_EQ(plain, buffer.text());
            const std::vector<NSRange> lines = walkedLines(plain);
            ASSERT_EQ(lines.size(), buffer.lineCount());
            for (std::size_t i = 0; i < lines.size(); ++i) ASSERT_EQ(lines[i], buffer.line(i));
            const auto lineOf = [&](std::size_t position) {
                std::size_t line = lines.size() - 1;
                while (lines[line].location > position) --line;
                return line;
            };
            for (std::size_t at = 0; at <= plain.size(); ++at) {
                ASSERT_EQ(lineOf(at), buffer.lineAt(at));
                if (at < plain.size()) {
                    ASSERT_EQ(plain[at], buffer.at(at));
                }
            }
            const NSRange asked = rangeIn(plain.size());
            const std::size_t last = asked.length > 0 ? endOf(asked) - 1 : asked.location;
            ASSERT_EQ(velt::rangeBetween(lines[lineOf(asked.location)].location, endOf(lines[lineOf(last)])),
                      buffer.lineRange(asked));
            ASSERT_EQ(plain.substr(asked.location, asked.length), buffer.view(asked));
            const std::u16string part = plain.substr(asked.location, asked.length);
            const auto first = part.find(u'\n'), behind = part.rfind(u'\n');
            ASSERT_EQ(first == part.npos ? std::nullopt : std::optional(asked.location + first),
                      buffer.find(u'\n', asked));
            ASSERT_EQ(behind == part.npos ? std::nullopt : std::optional(asked.location + behind),
                      buffer.findLast(u'\n', asked));
        }
    }
}

}  // namespace
