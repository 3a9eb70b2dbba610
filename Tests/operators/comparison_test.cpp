#include "support/values.h"

using namespace velt::test;

TEST(Equality, IsDefinedForNil) {
    EXPECT_VALUE("c 1", VELT_EQUAL(nil, nil));
    EXPECT_VALUE("c 0", VELT_EQUAL(nil, integer(0)));
    EXPECT_VALUE("c 1", VELT_UNEQUAL(nil, integer(0)));
    EXPECT_VALUE("c 0", VELT_UNEQUAL(nil, nil));
}

TEST(Equality, ComparesStringsByTextOnly) {
    EXPECT_VALUE("c 0", VELT_EQUAL(str("abc"), str("ABC")));
    EXPECT_VALUE("c 1", VELT_EQUAL(str("abc"), str("abc")));
    EXPECT_VALUE("c 1", VELT_EQUAL(str(u"\u00E9"), str(u"e\u0301")));
    EXPECT_VALUE("c 0", VELT_EQUAL(str("1"), str("1.0")));
    EXPECT_VALUE("c 0", VELT_EQUAL(str("1"), integer(1)));
    EXPECT_VALUE("c 0", VELT_EQUAL(integer(1), str("1")));
}

TEST(Equality, ComparesNumbersByValueAcrossKinds) {
    EXPECT_VALUE("c 1", VELT_EQUAL(integer(2), real(2.0)));
    EXPECT_VALUE("c 1", VELT_EQUAL(boolean(true), integer(1)));
    EXPECT_VALUE("c 1", VELT_EQUAL(byte(1), single(1)));
    EXPECT_VALUE("c 0", VELT_EQUAL(real(0.5), integer(0)));
    EXPECT_VALUE("c 1", VELT_EQUAL(integer(LONG_MAX), integer(LONG_MAX)));
}

TEST(Equality, ComparesStructuresOfOneKindFieldByField) {
    EXPECT_VALUE("c 1", VELT_EQUAL(point(1, 2), point(1, 2)));
    EXPECT_VALUE("c 0", VELT_EQUAL(point(1, 2), point(1, 3)));
    EXPECT_VALUE("c 0", VELT_EQUAL(point(1, 2), size(1, 2)));
    EXPECT_VALUE("c 1", VELT_EQUAL(rect(1, 2, 3, 4), rect(1, 2, 3, 4)));
    EXPECT_VALUE("c 0", VELT_EQUAL(rect(1, 2, 3, 4), rect(1, 2, 3, 5)));
    EXPECT_VALUE("c 1", VELT_EQUAL(range(1, 2), range(1, 2)));
    EXPECT_VALUE("c 0", VELT_EQUAL(range(1, 2), point(1, 2)));
    EXPECT_VALUE("c 1", VELT_EQUAL(point(0.0, 1), point(-0.0, 1)));
}

TEST(Equality, ComparesCollectionsByContent) {
    const id a = array(integer(1), str("x")), b = array(real(1.0), str("x"));
    EXPECT_VALUE("c 1", VELT_EQUAL(a, b));
    EXPECT_VALUE("c 0", VELT_EQUALEQUAL(a, b));
    EXPECT_VALUE("c 1", VELT_EQUALEQUAL(a, a));
    EXPECT_VALUE("c 1", VELT_EQUALEQUAL(nil, nil));
    EXPECT_VALUE("c 1", VELT_EQUAL(data("ab"), mutableData("ab")));
    EXPECT_VALUE("c 0", VELT_EQUAL(data("ab"), data("ac")));
    const id first = emptyDictionary(), second = emptyDictionary();
    VELT_NSMUTABLEDICTIONARY_INSERT(first, str("k"), integer(1));
    EXPECT_VALUE("c 0", VELT_EQUAL(first, second));
    VELT_NSMUTABLEDICTIONARY_INSERT(second, str("k"), integer(1));
    EXPECT_VALUE("c 1", VELT_EQUAL(first, second));
}

namespace {
class Window : public NSObject {
public:
    velt::Class& isa() const override { return velt::Class::known("NSWindow"); }
};
class Panel : public Window {
public:
    velt::Class& isa() const override { return velt::Class::known("NSPanel"); }
};
}  // namespace

TEST(SameClass, IsNoSubclassTest) {
    const id window = velt::make<Window>(), panel = velt::make<Panel>();
    EXPECT_VALUE("c 0", VELT_EQUALEQUALEQUAL(window, panel));
    EXPECT_VALUE("c 1", VELT_EQUALEQUALEQUAL(window, velt::make<Window>()));
    EXPECT_VALUE("c 1", VELT_EQUALEQUALEQUAL(nil, nil));
    EXPECT_VALUE("c 0", VELT_EQUALEQUALEQUAL(nil, window));
    EXPECT_VALUE("c 1", VELT_EQUALEQUALEQUAL(str("a"), "b"_v));
    EXPECT_VALUE("c 1", VELT_EQUALEQUALEQUAL(integer(1), real(2)));
}

TEST(Ordering, ComparesNumbersOfAllKinds) {
    EXPECT_VALUE("c 1", VELT_SMALLER(integer(1), real(1.5)));
    EXPECT_VALUE("c 0", VELT_SMALLER(integer(2), real(1.5)));
    EXPECT_VALUE("c 1", VELT_GREATEREQUAL(integer(2), integer(2)));
    EXPECT_VALUE("c 1", VELT_SMALLEREQUAL(real(2), integer(2)));
    EXPECT_VALUE("c 0", VELT_GREATER(boolean(true), integer(1)));
    EXPECT_VALUE("c 1", VELT_GREATER(integer(LONG_MAX), integer(LONG_MIN)));
}

TEST(Ordering, RaisesForAnythingElse) {
    for (const auto order : {VELT_SMALLER, VELT_GREATER, VELT_SMALLEREQUAL, VELT_GREATEREQUAL}) {
        EXPECT_CAST_FAILURE("'Boolean' or number expected", order(str("a"), str("b")));
        EXPECT_CAST_FAILURE("'Boolean' or number expected", order(nil, integer(1)));
        EXPECT_CAST_FAILURE("'Boolean' or number expected", order(integer(1), nil));
        EXPECT_CAST_FAILURE("'Boolean' or number expected", order(point(1, 2), integer(1)));
    }
}
