#include "VELTRuntime/editor/display_attributes.h"

#include "editor/generated_text.h"

namespace {

using velt::DisplayAttributes;
using velt::Ink;
using velt::InkRun;
using velt::SourceBuffer;
using Inks = DisplayAttributes::Inks;

TEST(DisplayAttributesOfAText, AreSetAddedAndRemovedOverRanges) {
    SourceBuffer buffer(u"0123456789");
    DisplayAttributes attributes(buffer);
    attributes.setBackground({2, 6}, Ink::Breakpoint);
    attributes.setForeground({4, 2}, Ink::String);
    EXPECT_EQ((Inks{Ink::None, Ink::Breakpoint}), attributes.at(3));
    EXPECT_EQ((Inks{Ink::String, Ink::Breakpoint}), attributes.at(4));
    attributes.set({5, 1}, {Ink::Comment});
    EXPECT_EQ((Inks{Ink::Comment, Ink::None}), attributes.at(5));
    attributes.setForeground({0, 10}, Ink::None);
    attributes.setBackground({0, 10}, Ink::None);
    EXPECT_TRUE(attributes.foreground().isEmpty());
    EXPECT_TRUE(attributes.background().isEmpty());
}

TEST(DisplayAttributesOfAText, SayHowFarTheyReach) {
    SourceBuffer buffer(u"0123456789");
    DisplayAttributes attributes(buffer);
    attributes.setForeground({2, 2}, Ink::Type);
    attributes.setForeground({4, 2}, Ink::Type);
    attributes.setBackground({5, 4}, Ink::Breakpoint);
    NSRange effective;
    attributes.at(3, &effective);
    EXPECT_EQ((NSRange{2, 3}), effective) << "neighbours of one ink are one";
    attributes.at(9, &effective);
    EXPECT_EQ((NSRange{9, 1}), effective);
    attributes.at(0, &effective);
    EXPECT_EQ((NSRange{0, 2}), effective);
}

TEST(DisplayAttributesOfAText, MoveWithItsEdits) {
    SourceBuffer buffer(u"0123456789");
    DisplayAttributes attributes(buffer);
    attributes.setForeground({4, 3}, Ink::String);
    buffer.replace({0, 1}, u"abc");
    EXPECT_EQ((std::vector<InkRun>{{6, 9, Ink::String}}), attributes.foreground().runs(buffer.whole()));
    buffer.replace({7, 1}, u"xy");
    EXPECT_EQ((std::vector<InkRun>{{6, 7, Ink::String}, {9, 10, Ink::String}}),
              attributes.foreground().runs(buffer.whole()))
        << "what comes in has none";
    buffer.replace({7, 2}, u"");
    EXPECT_EQ((std::vector<InkRun>{{6, 8, Ink::String}}), attributes.foreground().runs(buffer.whole()));
    buffer.setText(u"");
    EXPECT_TRUE(attributes.foreground().isEmpty());
}

TEST(DisplayAttributesOfAText, CountWhatIsSetButNoEdits) {
    SourceBuffer buffer(u"abc");
    DisplayAttributes attributes(buffer);
    buffer.replace({0, 1}, u"x");
    EXPECT_EQ(0u, attributes.version());
    attributes.setForeground({0, 1}, Ink::Type);
    EXPECT_EQ(1u, attributes.version());
}

TEST(InkRuns, AreLaidOverOthers) {
    const InkRun below[] = {{0, 10, Ink::Keyword}, {12, 14, Ink::Type}, {20, 30, Ink::Builtin}};
    const InkRun above[] = {{2, 4, Ink::String}, {6, 7, Ink::String}, {9, 21, Ink::Comment}, {40, 41, Ink::Comment}};
    EXPECT_EQ((std::vector<InkRun>{{0, 2, Ink::Keyword},
                                   {2, 4, Ink::String},
                                   {4, 6, Ink::Keyword},
                                   {6, 7, Ink::String},
                                   {7, 9, Ink::Keyword},
                                   {9, 21, Ink::Comment},
                                   {21, 30, Ink::Builtin},
                                   {40, 41, Ink::Comment}}),
              velt::laidOver(below, above));
}

using GeneratedAttributes = velt::test::GeneratedText;

TEST_F(GeneratedAttributes, AreWhatOneInkAUnitGives) {
    constexpr std::u16string_view kPieces[] = {u"a", u"b"};
    for (int round = velt::test::iterations(100) + 2; round-- > 0;) {
        SourceBuffer buffer(text(kPieces, below(40)));
        DisplayAttributes attributes(buffer);
        std::vector<Inks> plain(buffer.length());
        for (int step = 0; step < 60; ++step) {
            const NSRange range = rangeIn(buffer.length());
            const auto begin = plain.begin() + static_cast<std::ptrdiff_t>(range.location);
            const auto end = begin + static_cast<std::ptrdiff_t>(range.length);
            const Ink ink = static_cast<Ink>(below(3));
            switch (below(5)) {
            case 0:
                attributes.set(range, {ink, ink});
                std::fill(begin, end, Inks{ink, ink});
                break;
            case 1:
                attributes.setForeground(range, ink);
                std::for_each(begin, end, [&](Inks& inks) { inks.foreground = ink; });
                break;
            case 2:
                attributes.setBackground(range, ink);
                std::for_each(begin, end, [&](Inks& inks) { inks.background = ink; });
                break;
            case 3: {
                std::vector<InkRun> runs;
                std::for_each(begin, end, [](Inks& inks) { inks.foreground = Ink::None; });
                for (std::size_t at = range.location; at < velt::endOf(range); ++at) {
                    if (below(3) > 0) continue;
                    runs.push_back({static_cast<std::uint32_t>(at), static_cast<std::uint32_t>(at + 1), ink});
                    plain[at].foreground = ink;
                }
                attributes.replaceForeground(range, runs);
                break;
            }
            default: {
                const NSRange edited = shortRangeIn(buffer.length());
                const std::u16string with = text(kPieces, below(4));
                buffer.replace(edited, with);
                const auto at = plain.begin() + static_cast<std::ptrdiff_t>(edited.location);
                plain.insert(plain.erase(at, at + static_cast<std::ptrdiff_t>(edited.length)), with.size(), Inks{});
            }
            }
            ASSERT_EQ(plain.size(), buffer.length());
            for (std::size_t at = 0; at < plain.size(); ++at) {
                NSRange effective;
                ASSERT_EQ(plain[at], attributes.at(at, &effective));
                for (std::size_t near = 0; near < plain.size(); ++near) {
                    const bool within = near >= effective.location && near < velt::endOf(effective);
                    if (within) {
                        ASSERT_EQ(plain[at], plain[near]);
                    }
                }
                if (effective.location > 0) {
                    ASSERT_NE(plain[at], plain[effective.location - 1]);
                }
                if (velt::endOf(effective) < plain.size()) {
                    ASSERT_NE(plain[at], plain[velt::endOf(effective)]);
                }
            }
        }
    }
}

}  // namespace
