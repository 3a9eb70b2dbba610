#include "VELTRuntime/values/text/line_index.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace {

using velt::LineIndex;

/// Where lines begin, by a walk over the whole text.
std::vector<std::size_t> walkedStarts(std::u16string_view text) {
    std::vector<std::size_t> starts{0};
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isFirstOfTwo = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        if (velt::endsLine(text[i]) && !isFirstOfTwo) starts.push_back(i + 1);
    }
    return starts;
}

std::vector<std::size_t> startsOf(const LineIndex& index) {
    std::vector<std::size_t> starts;
    for (std::size_t line = 0; line < index.count(); ++line) starts.push_back(index.start(line));
    return starts;
}

void edit(LineIndex& index, std::u16string& text, std::size_t begin, std::size_t removed, std::u16string_view with) {
    text.replace(begin, removed, with);
    const std::size_t end = begin + with.size();
    index.replace(begin, removed, with, begin > 0 ? text[begin - 1] : u'\0', end < text.size() ? text[end] : u'\0');
}

}  // namespace

TEST(LineIndexes, HaveOneLineForAnEmptyText) {
    const LineIndex index;
    EXPECT_EQ(1u, index.count());
    EXPECT_EQ(0u, index.start(0));
    EXPECT_EQ(0u, index.end(0));
    EXPECT_EQ(0u, index.lineAt(0));
}

TEST(LineIndexes, KnowEveryLineEnd) {
    LineIndex index;
    std::u16string text;
    edit(index, text, 0, 0, u"a\nb\rc\r\nd\u0085e\u2028f\u2029");
    EXPECT_EQ((std::vector<std::size_t>{0, 2, 4, 7, 9, 11, 13}), startsOf(index));
    EXPECT_EQ(7u, index.count());
    EXPECT_EQ(13u, index.end(6));
    EXPECT_EQ(7u, index.end(2));
    EXPECT_EQ(2u, index.lineAt(6));  // within the line end of two
    EXPECT_EQ(6u, index.lineAt(13));
}

TEST(LineIndexes, JoinAndPartLineEndsOfTwoUnits) {
    LineIndex index;
    std::u16string text;
    edit(index, text, 0, 0, u"a\rb");
    edit(index, text, 2, 0, u"\n");
    EXPECT_EQ((std::vector<std::size_t>{0, 3}), startsOf(index));
    edit(index, text, 2, 0, u"x");
    EXPECT_EQ((std::vector<std::size_t>{0, 2, 4}), startsOf(index));
    edit(index, text, 2, 1, u"");
    EXPECT_EQ((std::vector<std::size_t>{0, 3}), startsOf(index));
    edit(index, text, 1, 1, u"");
    EXPECT_EQ((std::vector<std::size_t>{0, 2}), startsOf(index));
}

TEST(LineIndexes, AreRightAfterWhateverEdits) {
    constexpr unsigned kSeed = 1122;
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    std::mt19937 random(kSeed);
    const auto below = [&](std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit)(random); };
    constexpr std::u16string_view kUnits = u"ab\r\n\u2028\u0085 ";
    LineIndex index;
    std::u16string text;
    for (int step = 0; step < 4000; ++step) {
        const std::size_t begin = below(text.size()), removed = below(std::min<std::size_t>(text.size() - begin, 8));
        std::u16string with;
        for (std::size_t i = text.size() > 300 ? 0 : below(9); i > 0; --i) with += kUnits[below(kUnits.size() - 1)];
        edit(index, text, begin, removed, with);
        ASSERT_EQ(walkedStarts(text), startsOf(index)) << step;
        ASSERT_EQ(text.size(), index.textLength());
        const std::size_t place = below(text.size());
        const std::size_t line = index.lineAt(place);
        ASSERT_LE(index.start(line), place);
        ASSERT_TRUE(place < index.end(line) || (place == text.size() && line + 1 == index.count())) << step;
    }
}
