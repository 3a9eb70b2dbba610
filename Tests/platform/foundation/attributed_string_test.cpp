#include "VELTRuntime/platform/foundation/attributed_string.h"

#include "support/values.h"

#include <random>

using namespace velt::test;

TEST(AttributedStrings, KeepAttributesOfRanges) {
    const id bold = array(str("bold"));
    velt::Ref<NSMutableAttributedString> text = velt::make<NSMutableAttributedString>(u"plain bold plain");
    text->setAttributes(bold, NSRange{6, 4});
    EXPECT_TRUE(text->attributesAt(5).isNil());
    EXPECT_TRUE(text->attributesAt(6) == bold);
    EXPECT_TRUE(text->attributesAt(9) == bold);
    EXPECT_TRUE(text->attributesAt(10).isNil());
    EXPECT_VALUE("NSMutableAttributedString plain bold plain", text);
    EXPECT_RAISES(
        "NSRangeException: 'NSMutableAttributedString' attributesAtIndex:: index 16 is out of range; the count is 16",
        text->attributesAt(16));
    EXPECT_RAISES(
        "NSRangeException: 'NSMutableAttributedString' setAttributes:range:: index 17 is out of range; the count is 16",
        text->setAttributes(bold, NSRange{10, 7}));
    text->append(*text);
    EXPECT_EQ(32u, text->length());
    EXPECT_TRUE(text->attributesAt(22) == bold);
}

TEST(AttributedStrings, AddAttributesToThoseThatAreThere) {
    velt::Ref<NSMutableAttributedString> text = velt::make<NSMutableAttributedString>(u"abcdef");
    text->addAttribute(str("size"), integer(12), NSRange{0, 4});
    velt::send(text, "addAttribute:value:range:", str("bold"), boolean(true), range(2, 4));
    EXPECT_VALUE("NSDictionary {size = 12}", text->attributesAt(1));
    EXPECT_VALUE("NSDictionary {size = 12; bold = 1}", text->attributesAt(3));
    EXPECT_VALUE("NSDictionary {bold = 1}", velt::send(text, "attributesAtIndex:", integer(4)));
    text->addAttribute(str("size"), integer(9), NSRange{3, 1});
    EXPECT_VALUE("NSDictionary {size = 12; bold = 1}", text->attributesAt(2));
    EXPECT_VALUE("NSDictionary {size = 9; bold = 1}", text->attributesAt(3));
    text->addAttribute(str("none"), integer(1), NSRange{6, 0});
    EXPECT_VALUE("NSDictionary {bold = 1}", text->attributesAt(5));
    EXPECT_EQ("abcdef", velt::utf8(text->view()));
}

TEST(AttributedStrings, StayAsTheyAreWhenAChangeFails) {
    velt::Ref<NSMutableAttributedString> text = velt::make<NSMutableAttributedString>(u"abc");
    EXPECT_RAISES("NSRangeException: 'NSMutableAttributedString' addAttribute:value:range:: index 9223372036854775807 "
                  "is out of range; the count is 3",
                  text->addAttribute(str("a"), integer(1), NSRange{1, ULONG_MAX}));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableDictionary' setObject:forKey:: nil cannot be a value",
                  text->addAttribute(str("a"), nil, NSRange{0, 3}));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableAttributedString' appendAttributedString:: nil cannot be "
                  "appended",
                  velt::send(text, "appendAttributedString:", nil));
    EXPECT_CAST_FAILURE("'NSAttributedString' expected", velt::send(text, "appendAttributedString:", str("d")));
    EXPECT_VALUE("NSMutableAttributedString abc", text);
    EXPECT_TRUE(text->attributesAt(0).isNil());
}

TEST(AttributedStrings, TellTheirTextByName) {
    const id text = velt::make<NSMutableAttributedString>(u"abc");
    velt::send(text, "appendAttributedString:", velt::make<NSAttributedString>(u"de"));
    EXPECT_VALUE("'abcde'", velt::send(text, "string"));
    EXPECT_VALUE("Q 5", velt::send(text, "length"));
    EXPECT_VALUE("'NSMutableAttributedString'", VELT_CLASSNAME(velt::send(text, "mutableCopy")));
    EXPECT_FALSE(velt::send(text, "mutableCopy") == text);
}

TEST(AttributedStrings, AreEqualWithEqualTextAndAttributes) {
    velt::Ref<NSMutableAttributedString> a = velt::make<NSMutableAttributedString>(u"abc"),
                                         b = velt::make<NSMutableAttributedString>(u"abc");
    EXPECT_TRUE(velt::isEqual(a, b));
    a->setAttributes(array(integer(1)), NSRange{0, 3});
    EXPECT_FALSE(velt::isEqual(a, b));
    b->setAttributes(array(integer(1)), NSRange{0, 1});
    b->setAttributes(array(integer(1)), NSRange{1, 2});
    EXPECT_TRUE(velt::isEqual(a, b));
    EXPECT_FALSE(velt::isEqual(a, str("abc")));
    EXPECT_VALUE("'NSAttributedString'", VELT_CLASSNAME(VELT_CLONE(a)));
}

TEST(AttributedStrings, ReplaceRangesByTextWithTheAttributesThatWereThere) {
    velt::Ref<NSMutableAttributedString> text = velt::make<NSMutableAttributedString>(u"abcdef");
    text->addAttribute(str("k"), integer(1), NSRange{2, 2});
    velt::send(text, "replaceCharactersInRange:withString:", range(3, 2), str("XYZ"));
    EXPECT_VALUE("NSMutableAttributedString abcXYZf", text);
    EXPECT_VALUE("NSDictionary {k = 1}", text->attributesAt(5));
    EXPECT_TRUE(text->attributesAt(6).isNil());
    text->replaceCharacters({6, 0}, u"!");  // of the unit before
    EXPECT_VALUE("NSDictionary {k = 1}", text->attributesAt(6));
    text->replaceCharacters({0, 0}, u"?");  // of the unit behind
    EXPECT_TRUE(text->attributesAt(0).isNil());
    velt::send(text, "deleteCharactersInRange:", range(0, 8));
    EXPECT_VALUE("NSMutableAttributedString f", text);
    EXPECT_EQ(1u, text->runs().runs().size());
    velt::send(text, "insertAttributedString:atIndex:", text, integer(1));
    EXPECT_VALUE("NSMutableAttributedString ff", text);
    EXPECT_RAISES("NSRangeException: 'NSMutableAttributedString' replaceCharactersInRange:withString:: index 3 is out "
                  "of range; the count is 2",
                  text->replaceCharacters({1, 2}, u""));
    EXPECT_RAISES("NSRangeException: 'NSMutableAttributedString' replaceCharactersInRange:withAttributedString:: index "
                  "5 is out of range; the count is 2",
                  velt::send(text, "insertAttributedString:atIndex:", text, integer(5)));
}

TEST(AttributedStrings, TellTheRangeOverWhichAttributesAreTheSame) {
    velt::Ref<NSMutableAttributedString> text = velt::make<NSMutableAttributedString>(u"abcdef");
    text->addAttribute(str("k"), integer(1), NSRange{1, 4});
    text->addAttribute(str("l"), integer(2), NSRange{2, 1});
    const id told = array();
    velt::send(text, "attributesAtIndex:effectiveRange:", integer(3), told);
    EXPECT_VALUE("NSMutableArray ({3, 2})", told);
    EXPECT_VALUE("q 1", velt::send(text, "attribute:atIndex:effectiveRange:", str("k"), integer(3), told));
    EXPECT_VALUE("NSMutableArray ({1, 4})", told);
    EXPECT_VALUE("nil", velt::send(text, "attribute:atIndex:effectiveRange:", str("l"), integer(5), nil));
    EXPECT_CAST_FAILURE("'NSMutableArray' expected",
                        velt::send(text, "attributesAtIndex:effectiveRange:", integer(3), str("x")));
    const id part = velt::send(text, "attributedSubstringFromRange:", range(2, 2));
    EXPECT_VALUE("NSAttributedString cd", part);
    EXPECT_VALUE("NSDictionary {k = 1; l = 2}", velt::send(part, "attributesAtIndex:", integer(0)));
    EXPECT_VALUE("NSDictionary {k = 1}", velt::send(part, "attributesAtIndex:", integer(1)));
    EXPECT_RAISES("NSRangeException: 'NSMutableAttributedString' attributedSubstringFromRange:: index 7 is out of "
                  "range; the count is 6",
                  velt::send(text, "attributedSubstringFromRange:", range(6, 1)));
}

TEST(AttributedStrings, LoseAttributesByName) {
    velt::Ref<NSMutableAttributedString> text = velt::make<NSMutableAttributedString>(u"abcd");
    const auto more = velt::make<NSMutableDictionary>();
    more->setObject(integer(1), str("a"));
    more->setObject(integer(2), str("b"));
    velt::send(text, "addAttributes:range:", more, range(0, 4));
    more->setObject(integer(9), str("a"));  // the text keeps its own
    EXPECT_VALUE("NSDictionary {a = 1; b = 2}", text->attributesAt(0));
    velt::send(text, "removeAttribute:range:", str("b"), range(0, 2));
    EXPECT_VALUE("NSDictionary {a = 1}", text->attributesAt(1));
    velt::send(text, "removeAttribute:range:", str("a"), range(0, 2));
    EXPECT_TRUE(text->attributesAt(1).isNil());
    velt::send(text, "setAttributes:range:", nil, range(0, 4));
    EXPECT_EQ(1u, text->runs().runs().size());
    EXPECT_CAST_FAILURE("'NSDictionary' expected", velt::send(text, "setAttributes:range:", str("x"), range(0, 1)));
    EXPECT_CAST_FAILURE("'NSDictionary' expected", velt::send(text, "addAttributes:range:", str("x"), range(0, 1)));
    velt::send(text, "setAttributedString:", velt::make<NSAttributedString>(u"new"));
    EXPECT_VALUE("NSMutableAttributedString new", text);
}

TEST(AttributedStrings, BehaveAsUnitsWithAttributesOfTheirOwn) {
    constexpr unsigned kSeed = 20261121;
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    std::mt19937 random(kSeed);
    const auto below = [&](std::size_t limit) { return limit == 0 ? 0 : random() % limit; };
    velt::Ref<NSMutableAttributedString> text = velt::make<NSMutableAttributedString>();
    std::vector<std::pair<char16_t, long>> model;
    for (int step = 0; step < 2000; ++step) {
        const std::size_t begin = below(model.size() + 1), length = below(model.size() - begin + 1);
        const NSRange where{begin, length};
        const long colour = static_cast<long>(below(3));
        const auto from = model.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto to = from + static_cast<std::ptrdiff_t>(length);
        if (step % 3 == 0) {
            const std::u16string piece(below(6), static_cast<char16_t>(u'a' + below(26)));
            velt::Ref<NSMutableAttributedString> with = velt::make<NSMutableAttributedString>(piece);
            if (colour != 0) with->addAttribute(str("c"), integer(colour), {0, piece.size()});
            text->replaceCharacters(where, *with);
            const auto at = model.erase(from, to);
            model.insert(at, piece.size(), {piece.empty() ? u' ' : piece[0], colour});
        } else if (colour == 0) {
            text->removeAttribute(str("c"), where);
            for (auto unit = from; unit != to; ++unit) unit->second = 0;
        } else {
            text->addAttribute(str("c"), integer(colour), where);
            for (auto unit = from; unit != to; ++unit) unit->second = colour;
        }
        ASSERT_EQ(model.size(), text->length()) << step;
        long before = -1;
        std::size_t runs = 0;
        for (std::size_t i = 0; i < model.size(); ++i) {
            ASSERT_EQ(model[i].first, text->view()[i]) << step;
            const id value = text->attributeAt(str("c"), static_cast<long>(i));
            ASSERT_EQ(model[i].second, value.isNil() ? 0 : VELT_CINTEGER(value)) << step;
            runs += model[i].second != before;
            before = model[i].second;
        }
        ASSERT_EQ(runs, text->runs().runs().size()) << step;
    }
}
