#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/setting.h"

#include "support/values.h"

#include <set>

using namespace velt::test;

TEST(ArrayObjects, AreReachedByName) {
    const id list = array(str("a"), integer(2));
    EXPECT_VALUE("Q 2", velt::send(list, "count"));
    EXPECT_VALUE("'a'", velt::send(list, "objectAtIndex:", integer(0)));
    EXPECT_VALUE("q 1", velt::send(list, "indexOfObject:", real(2.0)));
    EXPECT_VALUE("q -1", velt::send(list, "indexOfObject:", str("b")));
    EXPECT_VALUE("c 1", velt::send(list, "containsObject:", str("a")));
    velt::send(list, "addObject:", boolean(true));
    velt::send(list, "insertObject:atIndex:", str("first"), integer(0));
    velt::send(list, "replaceObjectAtIndex:withObject:", integer(1), str("A"));
    velt::send(list, "removeObjectAtIndex:", integer(2));
    EXPECT_VALUE("NSMutableArray (first, A, 1)", list);
    velt::send(list, "removeAllObjects");
    EXPECT_VALUE("NSMutableArray ()", list);
}

TEST(ArrayObjects, AreEqualWithEqualElementsInOrder) {
    const id list = array(integer(1), str("a"), array());
    EXPECT_TRUE(velt::isEqual(list, frozenArray(real(1.0), str("a"), frozenArray())));
    EXPECT_EQ(velt::hash(list), velt::hash(frozenArray(real(1.0), str("a"), frozenArray())));
    EXPECT_FALSE(velt::isEqual(list, array(str("a"), integer(1), array())));
    EXPECT_FALSE(velt::isEqual(list, array(integer(1), str("a"))));
    EXPECT_FALSE(velt::isEqual(list, str("a")));
    EXPECT_FALSE(velt::isEqual(array(), nil));
}

TEST(ArrayObjects, ThatHoldThemselvesAreComparedToTheEnd) {
    const id first = array(integer(1)), second = array(integer(1));
    velt::send(first, "addObject:", first);
    velt::send(second, "addObject:", second);
    EXPECT_TRUE(velt::isEqual(first, second));
    EXPECT_EQ(velt::hash(first), velt::hash(second));
    velt::send(second, "addObject:", integer(2));
    velt::send(first, "addObject:", integer(3));
    EXPECT_FALSE(velt::isEqual(first, second));
    for (const id& list : {first, second}) velt::send(list, "removeAllObjects");
}

TEST(ArrayObjects, ThatHoldOneAnotherInDictionariesAreComparedToTheEnd) {
    const auto ring = [](long number) {
        const id entries = velt::make<NSMutableDictionary>(), list = array(entries);
        velt::send(entries, "setObject:forKey:", list, str("list"));
        velt::send(entries, "setObject:forKey:", integer(number), str("number"));
        return list;
    };
    const id first = ring(1), second = ring(1), third = ring(2);
    EXPECT_TRUE(velt::isEqual(first, second));
    EXPECT_FALSE(velt::isEqual(first, third));
    EXPECT_FALSE(velt::isEqual(third, first));
    for (const id& list : {first, second, third}) velt::send(list, "removeAllObjects");
}

TEST(ArrayObjects, SayThatTheyAreTooDeepToBeCompared) {
    const auto nested = [](int levels) {
        id list = array();
        for (int i = 1; i < levels; ++i) list = array(list);
        return list;
    };
    EXPECT_TRUE(velt::isEqual(nested(10'000), nested(10'000)));
    EXPECT_RAISES(
        "NSInvalidArgumentException: 'NSMutableArray' isEqual:: collections are nested deeper than 10000 levels",
        velt::isEqual(nested(20'000), nested(20'000)));
    const auto nestedEntries = [](int levels) {
        id entries = velt::make<NSMutableDictionary>();
        for (int i = 1; i < levels; ++i) {
            const id outer = velt::make<NSMutableDictionary>();
            velt::send(outer, "setObject:forKey:", entries, str("inner"));
            entries = outer;
        }
        return entries;
    };
    EXPECT_TRUE(velt::isEqual(nestedEntries(10'000), nestedEntries(10'000)));
    // Nothing is left of what was given up.
    EXPECT_TRUE(velt::isEqual(nested(10'000), nested(10'000)));
}

TEST(ArrayObjects, ThatHoldThemselvesSayThatTheirElementsHaveNoEnd) {
    const id list = array(array());
    velt::send(list, "addObject:", list);
    EXPECT_RAISES(
        "NSInvalidArgumentException: 'NSMutableArray' valueForKey:: collections are nested deeper than 1000 levels",
        velt::valueForKey(list, "name"));
    EXPECT_RAISES(
        "NSInvalidArgumentException: 'NSMutableArray' setValue:forKey:: collections are nested deeper than 1000 levels",
        velt::setValueForKey(list, "name", integer(1)));
    EXPECT_VALUE("Q 2", velt::valueForKey(list, "@count"));
    velt::send(list, "removeAllObjects");
}

/// Asks the others of its list, itself among them, unless it is asked by one of them.
class Sibling : public NSObject {
    VELT_OBJECT(Sibling, NSObject)
public:
    id isChosen() const { return chosen; }
    void choose(const id& value) {
        if (isTelling) return;
        const velt::Setting telling(isTelling, true);
        velt::setValueForKey(list, "chosen", boolean(false));
        chosen = value;
    }
    static void describe(velt::ClassBuilder<Sibling>& c) { c.property("chosen", &Sibling::isChosen, &Sibling::choose); }
    id list, chosen = boolean(false);
    static inline bool isTelling = false;
};

TEST(ArrayObjects, MayBeAskedForTheirElementsValuesByAnElement) {
    const velt::Ref<Sibling> sibling = velt::make<Sibling>();
    sibling->list = array(sibling, velt::make<Sibling>());
    velt::setValueForKey(sibling->list, "chosen", boolean(true));
    EXPECT_VALUE("NSMutableArray (1, 1)", velt::valueForKey(sibling->list, "chosen"));
    sibling->list = nil;
}

/// Empties a list whenever it is compared.
class EmptyingElement : public NSObject {
    VELT_OBJECT(EmptyingElement, NSObject)
public:
    bool isEqual(const id&) const override {
        velt::send(list, "removeAllObjects");
        return true;
    }
    static void describe(velt::ClassBuilder<EmptyingElement>&) {}
    id list;
};

TEST(ArrayObjects, AreComparedAlthoughTheirElementsChangeThem) {
    const velt::Ref<EmptyingElement> element = velt::make<EmptyingElement>();
    const id mine = array(element, integer(2)), its = array(str("x"), integer(2));
    element->list = its;
    EXPECT_FALSE(velt::isEqual(mine, its));
    const id other = array(str("x"), integer(2));
    element->list = mine;
    EXPECT_TRUE(velt::isEqual(mine, other)) << "nothing is left to compare";
    element->list = nil;
}

TEST(ArrayCopies, ShareElementsAndStayAsTheyAre) {
    const id inner = array(), list = array(inner);
    const id copy = velt::copy(list);
    velt::send(list, "removeAllObjects");
    EXPECT_TRUE(velt::arrayOf(copy)->at(0) == inner);
    EXPECT_TRUE(velt::copy(copy) == copy);
    EXPECT_EQ(nullptr, velt::mutableArrayOf(copy));
    const id changeable = velt::send(copy, "mutableCopy");
    velt::send(changeable, "addObject:", integer(1));
    EXPECT_VALUE("NSMutableArray ((), 1)", changeable);
    EXPECT_VALUE("NSArray (())", copy);
}

TEST(ArrayObjects, CanBeAppendedToThemselves) {
    velt::Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (long i = 0; i < 5; ++i) list->append(integer(i));
    list->appendAll(*list);
    EXPECT_VALUE("NSMutableArray (0, 1, 2, 3, 4, 0, 1, 2, 3, 4)", list);
}

TEST(ArrayObjects, LetGoOfWhatTheyHeld) {
    const id held = velt::make<NSObject>();
    const auto owners = [&] { return held.object()->ownerCount(); };
    {
        velt::Ref<NSMutableArray> list = velt::make<NSMutableArray>();
        for (int i = 0; i < 3; ++i) list->append(held);
        EXPECT_EQ(4u, owners());
        list->remove(1);
        EXPECT_EQ(3u, owners());
        list->replace(0, integer(1));
        EXPECT_EQ(2u, owners());
    }
    EXPECT_EQ(1u, owners());
}

TEST(ArrayObjects, ThatAreSmallAndDifferHaveDifferentHashes) {
    std::set<std::size_t> hashes;
    for (long i = 0; i < 1000; ++i) {
        for (long j = 0; j < 10; ++j) hashes.insert(velt::hash(array(integer(i), array(integer(j)))));
    }
    EXPECT_GT(hashes.size(), 9990u);
    EXPECT_EQ(velt::hash(array(integer(1))), velt::hash(array(VELT_ID(1.0)))) << "equal numbers";
    const id within = array();
    VELT_NSMUTABLEARRAY_APPEND(within, within);
    EXPECT_EQ(velt::hash(within), velt::hash(within));
    VELT_NSMUTABLEARRAY_REMOVEALL(within);
}
