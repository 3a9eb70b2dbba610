#include "VELTRuntime/platform/foundation/dictionary.h"

#include "support/generated.h"
#include "support/values.h"

#include <set>

using namespace velt::test;

namespace {

id dictionary(std::initializer_list<std::pair<id, id>> entries) {
    velt::Ref<NSMutableDictionary> result = velt::make<NSMutableDictionary>();
    for (const auto& [key, value] : entries) result->setObject(value, key);
    return result;
}

}  // namespace

TEST(DictionaryObjects, TakeAnyValueAsAKey) {
    const id key = point(1, 2);
    const id all = dictionary({{integer(1), str("one")}, {key, str("point")}, {array(integer(1)), str("list")}});
    EXPECT_VALUE("'one'", velt::dictionaryOf(all)->objectForKey(real(1.0)));
    EXPECT_VALUE("'point'", velt::dictionaryOf(all)->objectForKey(point(1, 2)));
    EXPECT_VALUE("'list'", velt::dictionaryOf(all)->objectForKey(frozenArray(integer(1))));
    EXPECT_VALUE("nil", velt::dictionaryOf(all)->objectForKey(str("1")));
    EXPECT_VALUE("nil", velt::dictionaryOf(all)->objectForKey(nil));
}

TEST(DictionaryObjects, AreEqualInAnyOrder) {
    const id a = dictionary({{str("a"), integer(1)}, {str("b"), array()}});
    const id b = dictionary({{str("b"), frozenArray()}, {str("a"), real(1.0)}});
    EXPECT_TRUE(velt::isEqual(a, b));
    EXPECT_EQ(velt::hash(a), velt::hash(b));
    EXPECT_TRUE(velt::isEqual(a, velt::copy(a)));
    EXPECT_FALSE(velt::isEqual(a, dictionary({{str("a"), integer(1)}})));
    EXPECT_FALSE(velt::isEqual(a, dictionary({{str("a"), integer(2)}, {str("b"), array()}})));
    EXPECT_FALSE(velt::isEqual(a, dictionary({{str("a"), integer(1)}, {str("c"), array()}})));
    EXPECT_FALSE(velt::isEqual(a, array()));
}

TEST(DictionaryCopies, ShareEntriesAndStayAsTheyAre) {
    const id all = dictionary({{str("a"), integer(1)}});
    const id copy = velt::copy(all);
    velt::send(all, "setObject:forKey:", integer(2), str("a"));
    EXPECT_VALUE("NSDictionary {a = 1}", copy);
    EXPECT_TRUE(velt::copy(copy) == copy);
    const id changeable = velt::make<NSMutableDictionary>(*velt::dictionaryOf(copy));
    velt::send(changeable, "setObject:forKey:", integer(3), str("b"));
    EXPECT_VALUE("NSMutableDictionary {a = 1; b = 3}", changeable);
}

TEST(DictionaryObjects, ShowThemselvesWithinThemselves) {
    const id all = dictionary({{str("a"), integer(1)}});
    velt::send(all, "setObject:forKey:", array(all), str("self"));
    EXPECT_VALUE("NSMutableDictionary {a = 1; self = ({...})}", all);
    velt::mutableDictionaryOf(all)->removeAll();
}

TEST(DictionaryObjects, RejectNilKeys) {
    const id all = dictionary({});
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableDictionary' setObject:forKey:: nil cannot be a key",
                  velt::mutableDictionaryOf(all)->setObject(integer(1), nil));
    EXPECT_VALUE("NSMutableDictionary {}", all);
}

class GeneratedKeys : public Generated {};

TEST_F(GeneratedKeys, KeepTheirOrderThroughRemovals) {
    velt::Ref<NSMutableDictionary> all = velt::make<NSMutableDictionary>();
    std::vector<long> expected;
    for (int round = 0; round < iterations(20'000); ++round) {
        const auto key = static_cast<long>(below(200));
        const auto at = std::find(expected.begin(), expected.end(), key);
        if (at != expected.end() && below(2) == 0) {
            all->removeObject(integer(key));
            expected.erase(at);
        } else {
            all->setObject(integer(round), integer(key));
            if (at == expected.end()) expected.push_back(key);
        }
        std::vector<long> keys;
        all->forEach([&](const id& k, const id&) { keys.push_back(VELT_CINTEGER(k)); });
        ASSERT_EQ(expected, keys);
        if (!keys.empty()) {
            ASSERT_EQ(keys.back(), VELT_CINTEGER(all->keyAt(static_cast<long>(keys.size()) - 1)));
        }
    }
}

TEST(DictionaryObjects, ThatAreSmallAndDifferHaveDifferentHashes) {
    std::set<std::size_t> hashes;
    for (long i = 0; i < 1000; ++i) {
        const id one = velt::make<NSMutableDictionary>(), other = velt::make<NSMutableDictionary>();
        for (const char* key : {"a", "b", "c"}) VELT_NSMUTABLEDICTIONARY_INSERT(one, str(key), integer(i));
        for (const char* key : {"c", "a", "b"}) VELT_NSMUTABLEDICTIONARY_INSERT(other, str(key), integer(i));
        ASSERT_EQ(velt::hash(one), velt::hash(other)) << "whatever their order";
        hashes.insert(velt::hash(one));
    }
    EXPECT_GT(hashes.size(), 990u);
    const id within = velt::make<NSMutableDictionary>();
    VELT_NSMUTABLEDICTIONARY_INSERT(within, str("me"), within);
    EXPECT_EQ(velt::hash(within), velt::hash(within));
    VELT_NSMUTABLEDICTIONARY_REMOVEALL(within);
}

TEST(DictionaryObjects, FindKeysThatDifferInTheirLastCharacterOnly) {
    const velt::Ref<NSMutableDictionary> entries = velt::make<NSMutableDictionary>();
    for (long i = 0; i < 20000; ++i) entries->setObject(integer(i), str("key " + std::to_string(i)));
    for (long i = 0; i < 20000; ++i) {
        ASSERT_EQ(integer(i), entries->objectForKey(str("key " + std::to_string(i))));
        ASSERT_EQ(nil, entries->objectForKey(str("key_" + std::to_string(i))));
    }
}
