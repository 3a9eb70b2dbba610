#include "support/generated.h"
#include "support/values.h"

#include <map>

using namespace velt::test;

TEST(Arrays, AreReadAndChangedByPosition) {
    const id list = array(str("a"), str("b"));
    EXPECT_VALUE("Q 2", VELT_NSARRAY_COUNT(list));
    EXPECT_VALUE("'b'", VELT_NSARRAY_OBJECT(list, str("1")));
    VELT_NSMUTABLEARRAY_INSERT(list, str("x"), VELT_NSARRAY_COUNT(list));
    VELT_NSMUTABLEARRAY_INSERT(list, str("first"), integer(0));
    VELT_NSMUTABLEARRAY_REPLACE(list, integer(5), integer(1));
    EXPECT_VALUE("NSMutableArray (first, 5, b, x)", list);
    VELT_NSMUTABLEARRAY_REMOVE(list, integer(0));
    VELT_NSMUTABLEARRAY_REMOVEOBJECT(list, real(5.0));
    EXPECT_VALUE("NSMutableArray (b, x)", list);
    EXPECT_VALUE("c 1", VELT_NSMUTABLEARRAY_CONTAINS(list, str("x")));
    EXPECT_VALUE("c 0", VELT_NSARRAY_CONTAINS(list, str("y")));
    VELT_NSMUTABLEARRAY_REMOVEALL(list);
    EXPECT_VALUE("Q 0", VELT_NSMUTABLEARRAY_COUNT(list));
}

TEST(Arrays, RaiseRangeErrorsAndChangeNothing) {
    const id list = array(integer(1));
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' objectAtIndex:: index 1 is out of range; the count is 1",
                  VELT_NSMUTABLEARRAY_OBJECT(list, integer(1)));
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' objectAtIndex:: index -1 is out of range; the count is 1",
                  VELT_NSARRAY_OBJECT(list, integer(-1)));
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' insertObject:atIndex:: index 2 is out of range; the count is 1",
                  VELT_NSMUTABLEARRAY_INSERT(list, integer(1), integer(2)));
    EXPECT_RAISES(
        "NSRangeException: 'NSMutableArray' replaceObjectAtIndex:withObject:: index 1 is out of range; the count is 1",
        VELT_NSMUTABLEARRAY_REPLACE(list, integer(1), integer(1)));
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' removeObjectAtIndex:: index -1 is out of range; the count is 1",
                  VELT_NSMUTABLEARRAY_REMOVEOBJECT(list, integer(9)));
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' removeObjectAtIndex:: index 1 is out of range; the count is 1",
                  VELT_NSMUTABLEARRAY_REMOVE(list, integer(1)));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableArray' addObject:: nil cannot be an element",
                  VELT_NSMUTABLEARRAY_APPEND(list, nil));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableArray' insertObject:atIndex:: nil cannot be an element",
                  VELT_NSMUTABLEARRAY_INSERT(list, nil, integer(0)));
    EXPECT_VALUE("NSMutableArray (1)", list);
}

TEST(Arrays, RejectOtherReceivers) {
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableString' does not understand 'count'",
                  VELT_NSARRAY_COUNT(str("x")));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSArray' does not understand 'addObject:'",
                  VELT_NSMUTABLEARRAY_APPEND(frozenArray(), integer(1)));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSNumber' does not understand 'objectAtIndex:'",
                  VELT_NSARRAY_OBJECT(integer(1), integer(0)));
    EXPECT_VALUE("Q 0", VELT_NSARRAY_COUNT(nil));
    EXPECT_VALUE("nil", VELT_NSARRAY_OBJECT(nil, integer(0)));
    EXPECT_VALUE("c 0", VELT_NSARRAY_CONTAINS(nil, integer(0)));
    EXPECT_VALUE("nil", VELT_NSMUTABLEARRAY_APPEND(nil, integer(0)));
    EXPECT_VALUE("'b'", VELT_NSARRAY_OBJECT(frozenArray(str("a"), str("b")), integer(1)));
}

TEST(Arrays, ShowThemselvesWithinThemselves) {
    const id list = array(integer(1));
    VELT_NSMUTABLEARRAY_APPEND(list, list);
    EXPECT_VALUE("NSMutableArray (1, (...))", list);
    VELT_NSMUTABLEARRAY_REMOVEALL(list);
}

TEST(Arrays, KeepAMillionIntegersInNineBytesEach) {
    velt::ValueList list;
    for (long i = 0; i < 1'000'000; ++i) list.append(integer(i));
    EXPECT_LE(list.capacity() * sizeof(id), 9'000'000u);
}

TEST(Dictionaries, HaveStringKeys) {
    const id dictionary = emptyDictionary();
    VELT_NSMUTABLEDICTIONARY_INSERT(dictionary, integer(5), str("five"));
    EXPECT_VALUE("c 1", VELT_NSDICTIONARY_CONTAINS(dictionary, str("5")));
    EXPECT_VALUE("c 1", VELT_NSDICTIONARY_CONTAINS(dictionary, integer(5)));
    EXPECT_VALUE("'five'", VELT_NSDICTIONARY_OBJECT(dictionary, integer(0)));
    EXPECT_VALUE("'five'", VELT_NSMUTABLEDICTIONARY_VALUE(dictionary, str("5")));
    EXPECT_VALUE("nil", VELT_NSDICTIONARY_VALUE(dictionary, str("6")));
    EXPECT_VALUE("'5'", VELT_NSDICTIONARY_KEY(dictionary, integer(0)));
    EXPECT_CAST_FAILURE("Number expected", VELT_NSDICTIONARY_KEY(dictionary, str("a")));
    EXPECT_RAISES("NSRangeException: 'NSMutableDictionary' key: index 1 is out of range; the count is 1",
                  VELT_NSDICTIONARY_OBJECT(dictionary, integer(1)));
    EXPECT_RAISES("NSRangeException: 'NSMutableDictionary' key: index -1 is out of range; the count is 1",
                  VELT_NSDICTIONARY_KEY(dictionary, integer(-1)));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableDictionary' setObject:forKey:: nil cannot be a value",
                  VELT_NSMUTABLEDICTIONARY_APPEND(dictionary, str("a"), nil));
}

TEST(Dictionaries, KeepTheOrderOfTheirKeys) {
    const id dictionary = emptyDictionary();
    for (const char* key : {"c", "a", "b"}) VELT_NSMUTABLEDICTIONARY_APPEND(dictionary, str(key), str(key));
    VELT_NSMUTABLEDICTIONARY_REPLACE(dictionary, str("a"), integer(1));
    EXPECT_VALUE("NSMutableDictionary {c = c; a = 1; b = b}", dictionary);
    VELT_NSMUTABLEDICTIONARY_REMOVE(dictionary, str("c"));
    VELT_NSMUTABLEDICTIONARY_REMOVE(dictionary, str("nothing"));
    EXPECT_VALUE("NSMutableArray (a, b)", VELT_NSDICTIONARY_KEYS(dictionary));
    EXPECT_VALUE("NSMutableArray (1, b)", VELT_NSMUTABLEDICTIONARY_VALUES(dictionary));
    EXPECT_VALUE("'b'", VELT_NSDICTIONARY_KEY(dictionary, integer(1)));
    VELT_NSMUTABLEDICTIONARY_REMOVEALL(dictionary);
    EXPECT_VALUE("Q 0", VELT_NSDICTIONARY_COUNT(dictionary));
}

TEST(Dictionaries, CopyKeysThatCouldChange) {
    const id dictionary = emptyDictionary(), key = str("key");
    VELT_NSMUTABLEDICTIONARY_INSERT(dictionary, key, integer(1));
    velt::send(key, "setString:", str("other"));
    EXPECT_VALUE("q 1", VELT_NSDICTIONARY_OBJECT(dictionary, str("key")));
}

TEST(Dictionaries, AreTheSameUnderBothNames) {
    const id dictionary = emptyDictionary();
    VELT_NSMUTABLEDICTIONARY_APPEND(dictionary, str("a"), integer(1));
    VELT_NSMUTABLEDICTIONARY_REPLACE(dictionary, integer(7), integer(2));
    for (const id& one : {dictionary, id(velt::make<NSDictionary>(*velt::dictionaryOf(dictionary)))}) {
        EXPECT_VALUE("Q 2", VELT_NSMUTABLEDICTIONARY_COUNT(one));
        EXPECT_VALUE("Q 2", VELT_NSDICTIONARY_COUNT(one));
        EXPECT_VALUE("q 2", VELT_NSMUTABLEDICTIONARY_OBJECT(one, integer(1)));
        EXPECT_VALUE("q 2", VELT_NSDICTIONARY_VALUE(one, str("7")));
        EXPECT_VALUE("'7'", VELT_NSMUTABLEDICTIONARY_KEY(one, integer(1)));
        EXPECT_VALUE("c 1", VELT_NSMUTABLEDICTIONARY_CONTAINS(one, integer(7)));
        EXPECT_CAST_FAILURE("Number expected", VELT_NSMUTABLEDICTIONARY_KEY(one, str("7")));
    }
}

TEST(Dictionaries, RejectOtherReceivers) {
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableArray' does not understand 'allKeys'",
                  VELT_NSDICTIONARY_KEYS(array()));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSDictionary' does not understand 'setObject:forKey:'",
                  VELT_NSMUTABLEDICTIONARY_INSERT(velt::make<NSDictionary>(), str("a"), str("b")));
    EXPECT_VALUE("Q 0", VELT_NSDICTIONARY_COUNT(nil));
    EXPECT_VALUE("nil", VELT_NSDICTIONARY_KEYS(nil));
    EXPECT_VALUE("c 0", VELT_NSDICTIONARY_CONTAINS(nil, str("a")));
}

TEST(Data, CountsItsBytes) {
    EXPECT_VALUE("Q 3", VELT_NSDATA_COUNT(data("abc")));
    EXPECT_VALUE("Q 0", VELT_NSMUTABLEDATA_COUNT(nil));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableArray' does not understand 'length'",
                  VELT_NSDATA_COUNT(array()));
}

class GeneratedDictionaries : public Generated {};

TEST_F(GeneratedDictionaries, HoldWhatAMapHolds) {
    const id dictionary = emptyDictionary();
    std::map<std::string, long> expected;
    for (int round = 0; round < iterations(100'000); ++round) {
        const std::string key = std::to_string(below(500));
        if (below(3) == 0) {
            VELT_NSMUTABLEDICTIONARY_REMOVE(dictionary, str(key));
            expected.erase(key);
        } else {
            VELT_NSMUTABLEDICTIONARY_INSERT(dictionary, str(key), integer(round));
            expected[key] = round;
        }
        const std::string asked = std::to_string(below(500));
        const auto found = expected.find(asked);
        ASSERT_EQ(found == expected.end() ? "nil" : "q " + std::to_string(found->second),
                  show(VELT_NSDICTIONARY_OBJECT(dictionary, str(asked))));
        ASSERT_EQ(expected.size(), velt::dictionaryOf(dictionary)->count());
    }
}
