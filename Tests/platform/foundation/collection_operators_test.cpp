#include "support/values.h"

using namespace velt::test;

namespace {

id item(const id& price, const id& kind) {
    const id made = emptyDictionary();
    velt::setValueForKey(made, "price", price);
    velt::setValueForKey(made, "kind", kind);
    return made;
}

id over(const id& list, std::string_view keyPath) { return velt::valueForKeyPath(list, keyPath); }

const id& shop() {
    static const id items =
        array(item(integer(3), str("b")), item(integer(10), str("a")), item(nil, str("b")), item(integer(7), str("c")));
    return items;
}

}  // namespace

TEST(CollectionOperators, CountAddAndAverage) {
    EXPECT_VALUE("Q 4", over(shop(), "@count"));
    EXPECT_VALUE("Q 4", over(shop(), "@count.price"));
    EXPECT_VALUE("q 20", over(shop(), "@sum.price"));
    EXPECT_VALUE("d 5", over(shop(), "@avg.price"));
    EXPECT_VALUE("q 0", over(array(), "@sum.price"));
    EXPECT_VALUE("d 0", over(array(), "@avg.price"));
}

TEST(CollectionOperators, AddWholeNumbersExactlyAndOthersAsDoubles) {
    EXPECT_VALUE("q 9007199254740993", over(array(integer(9007199254740992), integer(1)), "@sum.self"));
    EXPECT_VALUE("d 3.5", over(array(integer(1), real(2.5)), "@sum.self"));
    EXPECT_VALUE("d 3.5", over(array(str("1"), str("2.5")), "@sum.self"));
    EXPECT_VALUE("d 9.223372036854776e+18", over(array(integer(INT64_MAX), integer(1)), "@sum.self"));
    EXPECT_CAST_FAILURE("'Double' expected", over(array(array()), "@sum.self"));
}

TEST(CollectionOperators, FindTheSmallestAndLargest) {
    EXPECT_VALUE("q 3", over(shop(), "@min.price"));
    EXPECT_VALUE("q 10", over(shop(), "@max.price"));
    EXPECT_VALUE("'a'", over(shop(), "@min.kind"));
    EXPECT_VALUE("'c'", over(shop(), "@max.kind"));
    EXPECT_VALUE("nil", over(array(), "@min.self"));
    EXPECT_VALUE("d 2.5", over(array(integer(3), real(2.5), shortNumber(4)), "@min.self"));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableArray' does not understand 'compare:'",
                  over(array(array(), array()), "@max.self"));
}

TEST(CollectionOperators, GatherValues) {
    EXPECT_VALUE("NSMutableArray (b, a, b, c)", over(shop(), "@unionOfObjects.kind"));
    EXPECT_VALUE("NSMutableArray (b, a, c)", over(shop(), "@distinctUnionOfObjects.kind"));
    EXPECT_VALUE("NSMutableArray (3, 10, 7)", over(shop(), "@unionOfObjects.price"));
    EXPECT_VALUE("NSMutableArray (1)", over(array(integer(1), real(1)), "@distinctUnionOfObjects.self"));
}

TEST(CollectionOperators, GatherValuesOfInnerArrays) {
    const id shops = array(shop(), frozenArray(item(integer(3), str("d"))));
    EXPECT_VALUE("NSMutableArray (3, 10, 7, 3)", over(shops, "@unionOfArrays.price"));
    EXPECT_VALUE("NSMutableArray (3, 10, 7)", over(shops, "@distinctUnionOfArrays.price"));
    EXPECT_RAISES("NSInvalidArgumentException: an element of 'NSNumber' is no array",
                  over(array(integer(1)), "@unionOfArrays.price"));
}

TEST(CollectionOperators, StandInTheMiddleOfAPath) {
    const id company = emptyDictionary();
    velt::setValueForKey(company, "shop", shop());
    EXPECT_VALUE("q 20", over(company, "shop.@sum.price"));
    EXPECT_VALUE("Q 4", over(company, "shop.@count"));
    EXPECT_VALUE("nil", over(company, "market.@sum.price"));
    const id lengths = array(str("a"), str("abc"));
    EXPECT_VALUE("q 3", velt::valueForKeyPath(array(integer(1), integer(2)), "@sum.self"));
    EXPECT_VALUE("Q 3", over(lengths, "@max.length"));
}

TEST(CollectionOperators, FailByName) {
    EXPECT_RAISES("NSUnknownKeyException: 'NSMutableArray' has no collection operator '@median'",
                  over(shop(), "@median.price"));
    EXPECT_RAISES("NSInvalidArgumentException: collection operator '@sum' needs a key path", over(shop(), "@sum"));
    EXPECT_RAISES("NSUnknownKeyException: 'NSArray' has no collection operator '@'", over(frozenArray(), "@"));
}
