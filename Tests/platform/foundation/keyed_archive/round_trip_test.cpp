#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/null.h"
#include "VELTRuntime/platform/foundation/url.h"
#include "support/archives.h"
#include "support/generated.h"

#include <cmath>

using namespace velt::test;
using velt::arrayOf;
using velt::dictionaryOf;

namespace {

std::string className(const id& value) { return velt::classOf(value)->name(); }

}  // namespace

TEST(KeyedArchives, KeepNumbersWithTheirTypeCodes) {
    for (const id& number : {integer(0),
                             integer(-1),
                             integer(INT64_MAX),
                             integer(INT64_MIN),
                             natural(0),
                             natural(7),
                             natural(std::uint64_t{1} << 60),
                             natural(UINT64_MAX),
                             real(0.0),
                             real(-0.0),
                             real(1),
                             real(0.1),
                             real(1e300),
                             real(-1e-300),
                             real(INFINITY),
                             single(1.5F),
                             single(0.1F),
                             shortNumber(-3),
                             shortNumber(1),
                             byte(0),
                             byte(1),
                             byte(-128),
                             byte(65),
                             boolean(true),
                             boolean(false),
                             charCode(8364)}) {
        EXPECT_EQ(show(number), show(roundTrip(number)));
        EXPECT_EQ(show(array(number, number)), show(roundTrip(array(number, number))));
    }
    EXPECT_TRUE(std::signbit(VELT_CDOUBLE(roundTrip(real(-0.0)))));
    EXPECT_TRUE(std::isnan(VELT_CDOUBLE(roundTrip(real(NAN)))));
}

TEST(KeyedArchives, TellNumbersOfEqualValueApart) {
    const id numbers =
        array(integer(1), real(1), boolean(true), single(1), natural(1), shortNumber(1), charCode(1), real(0.0),
              real(-0.0), real(1e300), single(INFINITY), real(INFINITY), integer(INT64_MAX), natural(INT64_MAX));
    const id read = roundTrip(numbers);
    ASSERT_EQ(arrayOf(numbers)->count(), arrayOf(read)->count());
    for (std::size_t i = 0; i < arrayOf(read)->count(); ++i) {
        EXPECT_EQ(show(arrayOf(numbers)->items()[i]), show(arrayOf(read)->items()[i])) << i;
    }
}

TEST(KeyedArchives, KeepStringsAndWhetherTheyMayChange) {
    for (const char* text :
         {"", "a", "$null", "h\xC3\xA4llo \xE2\x82\xAC \xF0\x9F\x98\x80", "a longer text that is shared, not copied"}) {
        const id changing = roundTrip(str(text)), frozen = roundTrip(velt::frozenString(text));
        EXPECT_VALUE("'" + std::string(text) + "'", changing);
        EXPECT_VALUE("'" + std::string(text) + "'", frozen);
        EXPECT_FALSE(velt::asString(changing).isFrozen());
        EXPECT_TRUE(velt::asString(frozen).isFrozen());
    }
    EXPECT_EQ(std::u16string(u"a\0b", 3), velt::textOf(roundTrip(str(std::u16string_view(u"a\0b", 3)))));
}

TEST(KeyedArchives, KeepStructures) {
    for (const id& value : {point(0.1, -2), point(1e300, -1e-300), size(3, 4.5), rect(1, 2, 3, 4),
                            rect(-0.5, 1e20, 0.1, 0.2), range(0, 0), range(5, 1000000), range(ULONG_MAX, 1)}) {
        EXPECT_EQ(show(value), show(roundTrip(value)));
    }
    const id infinite = roundTrip(size(INFINITY, -INFINITY));
    EXPECT_VALUE("{CGSize=dd} {inf, -inf}", infinite);
}

TEST(KeyedArchives, KeepDataDatesUrlsAndNull) {
    EXPECT_VALUE("NSData <000102ff>", roundTrip(data(std::string_view("\0\1\2\xFF", 4))));
    EXPECT_VALUE("NSMutableData <6162>", roundTrip(mutableData("ab")));
    EXPECT_VALUE("NSMutableData <>", roundTrip(mutableData("")));
    const id date = roundTrip(velt::make<NSDate>(123456.789));
    EXPECT_EQ(123456.789, velt::to<NSDate>(date)->timeIntervalSinceReferenceDate());
    EXPECT_VALUE("NSURL http://example.org/a?b#c", roundTrip(NSURL::withString("http://example.org/a?b#c")));
    EXPECT_EQ(NSNull::null(), roundTrip(NSNull::null()));
}

TEST(KeyedArchives, KeepCollectionsAndTheirClasses) {
    EXPECT_VALUE("NSMutableArray (1, a, (2.5))", roundTrip(array(integer(1), str("a"), frozenArray(real(2.5)))));
    EXPECT_EQ("NSArray", className(arrayOf(roundTrip(array(frozenArray(real(2.5)))))->at(0)));
    EXPECT_VALUE("NSArray ()", roundTrip(frozenArray()));
    const id keyed = dictionary(str("z"), integer(1), str("a"), array(), integer(5), str("five"));
    EXPECT_VALUE("NSMutableDictionary {z = 1; a = (); 5 = five}", roundTrip(keyed));
    EXPECT_VALUE("NSDictionary {z = 1; a = (); 5 = five}", roundTrip(keyed.object()->copy()));
    EXPECT_TRUE(velt::isEqual(keyed, roundTrip(keyed)));
}

TEST(KeyedArchives, KeepNilAsTheirRoot) {
    EXPECT_VALUE("nil", roundTrip(nil));
    EXPECT_EQ("nothing", damageOf(NSKeyedArchiver::archive(integer(1))));
}

TEST(KeyedArchives, KeepAttributedStrings) {
    const id plain = velt::make<NSMutableAttributedString>(u"plain");
    EXPECT_TRUE(velt::isEqual(plain, roundTrip(plain)));
    EXPECT_EQ("NSMutableAttributedString", className(roundTrip(plain)));

    const auto text = velt::make<NSMutableAttributedString>(u"one two three");
    const id red = dictionary(str("colour"), str("red")), blue = dictionary(str("colour"), str("blue"));
    text->setAttributes(red, {0, 13});
    EXPECT_TRUE(velt::isEqual(text, roundTrip(text)));
    text->setAttributes(blue, {4, 3});
    text->setAttributes(nil, {8, 2});
    const id read = roundTrip(text);
    EXPECT_TRUE(velt::isEqual(text, read));
    EXPECT_VALUE("nil", velt::attributedStringOf(read)->attributesAt(8));
    EXPECT_EQ(velt::attributedStringOf(read)->attributesAt(0), velt::attributedStringOf(read)->attributesAt(12));
    const id frozen = roundTrip(text->copy());
    EXPECT_EQ("NSAttributedString", className(frozen));
    EXPECT_TRUE(velt::isEqual(text, frozen));
}

TEST(KeyedArchives, KeepSharedObjectsShared) {
    const id shared = array(integer(1));
    const id text = str("changes"), bytes = mutableData("x");
    const id read = roundTrip(array(shared, shared, text, text, str("changes"), bytes, bytes));
    const auto items = arrayOf(read)->items();
    EXPECT_EQ(items[0], items[1]);
    EXPECT_EQ(items[2], items[3]);
    EXPECT_FALSE(items[2] == items[4]);
    EXPECT_EQ(items[5], items[6]);
}

TEST(KeyedArchives, KeepObjectsThatHoldThemselves) {
    {
        const auto list = velt::make<NSMutableArray>();
        const id keyed = dictionary(str("list"), list);
        list->append(keyed);
        list->append(list);
        const id read = roundTrip(list);
        EXPECT_EQ(read, arrayOf(read)->at(1));
        EXPECT_EQ(read, dictionaryOf(arrayOf(read)->at(0))->objectForKey(str("list")));

        // Through a collection that does not change, and an attributed string.
        const auto around = velt::make<NSMutableArray>();
        const id frozen = frozenArray(around, integer(1));
        around->append(frozen);
        const id readFrozen = roundTrip(frozen);
        EXPECT_EQ(readFrozen, arrayOf(arrayOf(readFrozen)->at(0))->at(0));
        EXPECT_EQ(2U, arrayOf(readFrozen)->count());

        const auto text = velt::make<NSMutableAttributedString>(u"x");
        text->setAttributes(dictionary(str("self"), text), {0, 1});
        const id readText = roundTrip(text);
        const id attributes = velt::attributedStringOf(readText)->attributesAt(0);
        EXPECT_EQ(readText, dictionaryOf(attributes)->objectForKey(str("self")));
    }
    // None of them is left behind.
    EXPECT_GE(velt::collectCycles(), 12U);
}

TEST(KeyedArchives, KeepCollectionsOfAnyDepth) {
    const int depth = 100000;
    id inner = array(str("end"));
    for (int i = 1; i < depth; ++i) inner = array(inner);
    id read = roundTrip(inner);
    int levels = 0;
    while (velt::isArray(read)) {
        const id next = arrayOf(read)->at(0);
        read = next;
        ++levels;
    }
    EXPECT_EQ(depth, levels);
    EXPECT_VALUE("'end'", read);
}

namespace {

/// Graphs of collections, texts and numbers in which anything may refer to anything.
class GeneratedGraphs : public Generated {
protected:
    id leaf() {
        switch (below(9)) {
        case 0: return integer(static_cast<long>(bits()));
        case 1: return real(static_cast<double>(bits()) / 1e6);
        case 2: return natural(bits());
        case 3: return boolean(below(2) == 1);
        case 4: return str("text " + std::to_string(below(50)));
        case 5: return velt::frozenString("frozen " + std::to_string(below(50)));
        case 6: return shortNumber(static_cast<short>(bits()));
        case 7: return velt::test::data("data " + std::to_string(below(50)));
        default: return point(static_cast<double>(below(100)), 0.5);
        }
    }
    id graph() {
        std::vector<id> all;
        for (std::size_t i = 1 + below(60); i > 0; --i) {
            all.push_back(below(2) ? id(velt::make<NSMutableArray>()) : id(velt::make<NSMutableDictionary>()));
        }
        for (const id& each : all) {
            for (std::size_t i = below(6); i > 0; --i) {
                const id value = below(2) ? leaf() : all[below(all.size())];
                if (auto* list = velt::mutableArrayOf(each))
                    list->append(value);
                else
                    velt::mutableDictionaryOf(each)->setObject(value, below(3) ? str("key " + std::to_string(below(9)))
                                                                               : leaf());
            }
        }
        return all[0];
    }
    /// The whole graph as text: collections by number when they are met again.
    static std::string shape(const id& root) {
        std::vector<id> met, open{root};
        std::string text;
        const auto name = [&](const id& value) {
            if (!velt::isArray(value) && !dictionaryOf(value)) return show(value);
            std::size_t at = 0;
            while (at < met.size() && !(met[at] == value)) ++at;
            if (at == met.size()) {
                met.push_back(value);
                open.push_back(value);
            }
            return "#" + std::to_string(at);
        };
        met.push_back(root);
        for (std::size_t next = 0; next < open.size(); ++next) {
            const id each = open[next];
            text += className(each) + "[";
            if (const NSArray* list = arrayOf(each)) {
                for (const id& item : list->items()) text += name(item) + ",";
            } else {
                dictionaryOf(each)->forEach([&](const id& key, const id& value) {
                    text += show(key) + "=";
                    text += name(value) + ",";
                });
            }
            text += "]";
        }
        return text;
    }
    static void release(const id& root) {
        std::vector<id> open{root};
        while (!open.empty()) {
            const id each = open.back();
            open.pop_back();
            if (auto* list = velt::mutableArrayOf(each)) {
                open.insert(open.end(), list->items().begin(), list->items().end());
                list->removeAll();
            } else if (auto* keyed = velt::mutableDictionaryOf(each)) {
                keyed->forEach([&](const id&, const id& value) { open.push_back(value); });
                keyed->removeAll();
            }
        }
    }
};

}  // namespace

TEST_F(GeneratedGraphs, ComeBackWithTheSameShape) {
    for (int i = 0; i < iterations(2000); ++i) {
        const id root = graph();
        const std::string written = NSKeyedArchiver::archive(root);
        const id read = unarchived(written);
        ASSERT_EQ(shape(root), shape(read));
        ASSERT_TRUE(written == NSKeyedArchiver::archive(read));
        release(root);
        release(read);
    }
}
