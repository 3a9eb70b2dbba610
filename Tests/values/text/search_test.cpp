#include "VELTRuntime/values/text/search.h"

#include "VELTRuntime/values/text/utf.h"
#include "support/generated.h"

using namespace velt::text;
using velt::test::Generated;
using velt::test::iterations;

namespace {

/// The definition of a match, word by word: every range of whole code points is tried.
std::optional<Match> obviousMatch(std::u16string_view haystack, std::u16string_view needle, Case respect,
                                  std::size_t from, bool backwards) {
    if (needle.empty()) return std::nullopt;
    const std::u16string form = comparisonForm(needle, respect);
    std::vector<std::size_t> borders;
    for (std::size_t at = from; at < haystack.size(); at += codePointAt(haystack, at).length) borders.push_back(at);
    borders.push_back(haystack.size());
    std::optional<Match> found;
    for (std::size_t i = 0; i + 1 < borders.size(); ++i) {
        // Every code point has a form of one unit at least.
        for (std::size_t j = i + 1; j < borders.size() && j - i <= form.size(); ++j) {
            const bool combined =
                borders[j] < haystack.size() && !beginsCharacter(codePointAt(haystack, borders[j]).value);
            if (combined || comparisonForm(haystack.substr(borders[i], borders[j] - borders[i]), respect) != form)
                continue;
            found = Match{borders[i], borders[j] - borders[i]};
            if (!backwards) return found;
        }
    }
    return found;
}

std::string show(const std::optional<Match>& match) {
    return match ? std::to_string(match->position) + "+" + std::to_string(match->length) : "none";
}

std::string dump(std::u16string_view text) {
    std::string result;
    char digits[8];
    for (const char16_t unit : text) {
        std::snprintf(digits, sizeof digits, "%04X ", unit);
        result += digits;
    }
    return result;
}

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
std::size_t first(std::u16string_view haystack, std::u16string_view needle, Case respect = Case::Respected) {
    const auto match = findFirst(haystack, needle, respect);
    return match ? match->position : kNone;
}

}  // namespace

TEST(TextSearch, FindsNothingForAnEmptyNeedle) {
    EXPECT_EQ(kNone, first(u"abc", u""));
    EXPECT_FALSE(findLast(u"abc", u"", Case::Ignored));
    EXPECT_FALSE(Finder(u"abc", u"", Case::Respected).next(0));
}

TEST(TextSearch, FindsEitherSpellingOfACharacter) {
    EXPECT_EQ(2u, first(u"xy\u00E9z", u"e\u0301"));
    EXPECT_EQ((Match{2, 2}), *findFirst(u"xye\u0301z", u"\u00E9", Case::Respected));
    EXPECT_EQ((Match{3, 1}), *findFirst(u"xe\u0301z", u"z", Case::Respected));
    EXPECT_EQ(0u, first(u"\u212A", u"K"));
    EXPECT_EQ(0u, first(u"\uD55C", u"\u1112\u1161\u11AB"));
}

TEST(TextSearch, DoesNotFindABaseWithinACombinedCharacter) {
    EXPECT_EQ(kNone, first(u"e\u0301", u"e"));
    EXPECT_EQ(3u, first(u"e\u0301xe", u"e"));
    EXPECT_EQ(kNone, first(u"\u00E9", u"e"));
    EXPECT_EQ(1u, first(u"e\u0301", u"\u0301"));
    EXPECT_EQ(kNone, first(u"\u1112\u1161\u11AB", u"\u1112\u1161"));
}

TEST(TextSearch, FoldsCaseFully) {
    EXPECT_EQ((Match{0, 6}), *findFirst(u"stra\u00DFe", u"STRASSE", Case::Ignored));
    EXPECT_EQ((Match{1, 1}), *findFirst(u"x\u00DF", u"ss", Case::Ignored));
    EXPECT_EQ(kNone, first(u"\u00DF", u"s", Case::Ignored));
    EXPECT_EQ(0u, first(u"\u0391\u03A3", u"\u03B1\u03C2", Case::Ignored));
    EXPECT_EQ(0u, first(u"\u212A", u"k", Case::Ignored));
    EXPECT_EQ(0u, first(u"\u017F", u"S", Case::Ignored));
    EXPECT_EQ(kNone, first(u"ABC", u"b"));
    EXPECT_EQ(1u, first(u"ABC", u"b", Case::Ignored));
}

TEST(TextSearch, LeavesHalvesOfPairsAlone) {
    EXPECT_EQ(kNone, first(u"\U0001F600", u"\xDE00"));
    EXPECT_EQ(1u, first(u"x\xDE00", u"\xDE00"));
    EXPECT_EQ(2u, first(u"\U0001F600\xDE00", u"\xDE00"));
}

class GeneratedTextSearch : public Generated {
protected:
    std::u16string text(std::u16string_view alphabet, std::size_t mostUnits) {
        std::u16string result;
        for (std::size_t left = below(mostUnits + 1); left > 0; --left) result += alphabet[below(alphabet.size())];
        return result;
    }
};

TEST_F(GeneratedTextSearch, AgreesWithTheDefinition) {
    constexpr std::u16string_view kAlphabets[] = {
        u"ab",
        u"aAbB",
        u"ab;Ke\u212A\u00E9\u00C9",
        u"e\u0301\u0323\u00E9\u1EB9s",
        u"sS\u00DF\u017F\uFB00\uFB03f\u0130\u0131i\u0307",
        u"\u1112\u1161\u11AB\uD558\uD55C\u11A8",
        u"\xD83D\xDE00\xDE01"
        u"a\u0301",
        u"\u03B1\u0345\u03B9\u1FB3\u0391\u0399\u03C2\u03C3",
        u"\u09C7\u09BE\u09CB\u0995",
        u"\u304B\u3099\u304C\u0418\u0306\u0419",
    };
    for (int round = 0; round < iterations(20'000); ++round) {
        const std::u16string_view alphabet = kAlphabets[below(std::size(kAlphabets))];
        const std::u16string haystack = text(alphabet, 12);
        const std::u16string needle = text(alphabet, 4);
        for (const Case respect : {Case::Respected, Case::Ignored}) {
            const std::string where =
                dump(haystack) + "/ " + dump(needle) + (respect == Case::Ignored ? "ignored" : "");
            ASSERT_EQ(show(obviousMatch(haystack, needle, respect, 0, false)),
                      show(findFirst(haystack, needle, respect)))
                << where;
            ASSERT_EQ(show(obviousMatch(haystack, needle, respect, 0, true)), show(findLast(haystack, needle, respect)))
                << where << " backwards";
            Finder finder(haystack, needle, respect);
            for (std::size_t from = 0; from < haystack.size(); ++from) {
                ASSERT_EQ(show(obviousMatch(haystack, needle, respect, from, false)), show(finder.next(from)))
                    << where << " from " << from;
            }
        }
    }
}

TEST_F(GeneratedTextSearch, AgreesWithTheDefinitionInLongTextsOfMixedCharacters) {
    constexpr std::u16string_view kCommon[] = {u"abAB", u"\u0430\u0431\u0410\u0411", u"\uD558\uD55C",
                                               u"\u00E9eE\u00C9"};
    constexpr std::u16string_view kRare[] = {u"\u00DF", u"e\u0301", u"\U0001F600", u"\xDE00", u"\uFB01",
                                             u"\u0301", u"\u11A8",  u"\U00010400", u"\u0130", u"ss",
                                             u"\u1FB3", u"\u0345",  u"\u03B9"};
    for (int round = 0; round < iterations(300); ++round) {
        const std::u16string_view alphabet = kCommon[below(std::size(kCommon))];
        const std::size_t distance = 1 + below(200);
        std::u16string haystack;
        while (haystack.size() < 1500) {
            haystack += text(alphabet, distance);
            haystack += kRare[below(std::size(kRare))];
        }
        std::u16string needle = text(alphabet, 8) + std::u16string(kRare[below(std::size(kRare))]);
        if (below(2) == 0) needle = haystack.substr(below(haystack.size() - 9), 1 + below(9));
        for (const Case respect : {Case::Respected, Case::Ignored}) {
            Finder finder(haystack, needle, respect);
            std::size_t from = 0;
            for (int step = 0; step < 3 && from < haystack.size(); ++step) {
                const auto expected = obviousMatch(haystack, needle, respect, from, false);
                ASSERT_EQ(show(expected), show(finder.next(from)))
                    << dump(haystack) << "/ " << dump(needle) << " from " << from;
                from = expected ? expected->position + 1 + below(200) : haystack.size();
            }
            ASSERT_EQ(show(obviousMatch(haystack, needle, respect, 0, true)), show(findLast(haystack, needle, respect)))
                << dump(haystack) << "/ " << dump(needle) << " backwards";
        }
    }
}

TEST_F(GeneratedTextSearch, FindsNeedlesAcrossTheBordersOfLongTexts) {
    for (const std::u16string_view alphabet :
         {std::u16string_view(u"abcde "), std::u16string_view(u"\u0430\u0431\u0439e\u0301\u00E9 ")}) {
        std::u16string haystack;
        for (std::size_t i = 0; i < 200'000; ++i) haystack += alphabet[below(alphabet.size())];
        for (int round = 0; round < 20; ++round) {
            const std::u16string needle = u"NEEDLE\u00E9 of " + text(alphabet, 20) + u"!";
            const std::size_t at = below(haystack.size());
            std::u16string with = haystack.substr(0, at) + u"|" + needle + u"|" + haystack.substr(at);
            for (const Case respect : {Case::Respected, Case::Ignored}) {
                const auto match = findFirst(with, needle, respect);
                ASSERT_TRUE(match);
                ASSERT_EQ(at + 1, match->position);
                ASSERT_EQ(show(match), show(findLast(with, needle, respect)));
            }
        }
    }
}

TEST(TextSearchOfHardNeedles, StaysLinear) {
    // A search that compares every place anew would take 10^10 steps here.
    std::u16string haystack(200'000, u'a'), needle(100'000, u'a');
    needle[50'000] = u'b';
    EXPECT_EQ(kNone, first(haystack, needle));
    EXPECT_FALSE(findLast(haystack, needle, Case::Respected));
    haystack[150'000] = u'b';
    EXPECT_EQ(100'000u, first(haystack, needle));
    EXPECT_EQ(100'000u, findLast(haystack, needle, Case::Ignored)->position);
}

TEST(TextOrder, FollowsCanonicalEquivalenceAndCodePoints) {
    EXPECT_EQ(0, compare(u"\u00E9", u"e\u0301", Case::Respected));
    EXPECT_EQ(-1, compare(u"\u00E9", u"f", Case::Respected));
    EXPECT_EQ(1, compare(u"b", u"a", Case::Respected));
    EXPECT_EQ(-1, compare(u"a", u"ab", Case::Respected));
    EXPECT_EQ(0, compare(u"", u"", Case::Respected));
    EXPECT_EQ(-1, compare(u"A", u"a", Case::Respected));
    EXPECT_EQ(0, compare(u"aBc", u"AbC", Case::Ignored));
    EXPECT_EQ(0, compare(u"STRASSE", u"stra\u00DFe", Case::Ignored));
    EXPECT_EQ(-1, compare(u"\uFFFD", u"\U00010000", Case::Respected));
    EXPECT_TRUE(equalCanonically(u"x\u00E9", u"xe\u0301"));
    EXPECT_FALSE(equalCanonically(u"a", u"A"));
    EXPECT_TRUE(equalCanonically(u"K", u"\u212A"));
}

class GeneratedTextOrder : public GeneratedTextSearch {};

TEST_F(GeneratedTextOrder, IsTheOrderOfTheComparisonForms) {
    constexpr std::u16string_view kAlphabet = u"aAeE\u0301\u0323\u00E9\u00DFsK\u212A\U0001F600\uFFFDz";
    const auto codePoints = [](std::u16string_view form) {
        std::u32string points;
        for (std::size_t at = 0; at < form.size(); at += codePointAt(form, at).length)
            points += codePointAt(form, at).value;
        return points;
    };
    for (int round = 0; round < iterations(50'000); ++round) {
        const std::u16string a = text(kAlphabet, 6), b = below(4) == 0 ? a + text(kAlphabet, 2) : text(kAlphabet, 6);
        for (const Case respect : {Case::Respected, Case::Ignored}) {
            const int order = codePoints(comparisonForm(a, respect)).compare(codePoints(comparisonForm(b, respect)));
            ASSERT_EQ(order < 0 ? -1 : order > 0, compare(a, b, respect)) << dump(a) << "/ " << dump(b);
        }
        ASSERT_EQ(compare(a, b, Case::Respected) == 0, equalCanonically(a, b)) << dump(a) << "/ " << dump(b);
    }
}
