#include "support/values.h"

using namespace velt::test;

TEST(TypeName, NamesNumbersByTheirFirstType) {
    EXPECT_VALUE("'Boolean'", VELT_TYPENAME(byte(7)));
    EXPECT_VALUE("'Boolean'", VELT_TYPENAME(boolean(true)));
    EXPECT_VALUE("'Integer'", VELT_TYPENAME(VELT_ID(5LL)));
    EXPECT_VALUE("'Short'", VELT_TYPENAME(shortNumber(5)));
    EXPECT_VALUE("'Single'", VELT_TYPENAME(single(1)));
    EXPECT_VALUE("'Double'", VELT_TYPENAME(real(1e100)));
    EXPECT_VALUE("'NSNumber'", VELT_TYPENAME(charCode(65)));
    EXPECT_VALUE("'NSNumber'", VELT_TYPENAME(natural(65)));
}

TEST(TypeName, NamesStructuresAndClasses) {
    EXPECT_VALUE("'Rect'", VELT_TYPENAME(rect(0, 0, 1, 1)));
    EXPECT_VALUE("'Point'", VELT_TYPENAME(point(0, 0)));
    EXPECT_VALUE("'Size'", VELT_TYPENAME(size(0, 0)));
    EXPECT_VALUE("'Range'", VELT_TYPENAME(range(0, 0)));
    EXPECT_VALUE("'NSMutableString'", VELT_TYPENAME(str("a")));
    EXPECT_VALUE("'NSMutableArray'", VELT_TYPENAME(array()));
    EXPECT_VALUE("nil", VELT_TYPENAME(nil));
}

TEST(ClassName, IsNilForNil) {
    EXPECT_VALUE("nil", VELT_CLASSNAME(nil));
    EXPECT_VALUE("'NSValue'", VELT_CLASSNAME(point(0, 0)));
    EXPECT_VALUE("'NSArray'", VELT_CLASSNAME(frozenArray()));
}

TEST(Clone, IsShallowAndCannotBeChanged) {
    EXPECT_TRUE(VELT_CLONE(nil).isNil());
    const id inner = array(integer(1)), outer = array(inner);
    const id copy = VELT_CLONE(outer);
    EXPECT_VALUE("'NSArray'", VELT_CLASSNAME(copy));
    EXPECT_TRUE(velt::arrayOf(copy)->at(0) == inner);
    const id text = VELT_CLONE(str("abc"));
    EXPECT_RAISES("NSInvalidArgumentException: 'setString:' on a string that cannot be changed",
                  velt::send(text, "setString:", str("x")));
    EXPECT_VALUE("'NSDictionary'", VELT_CLASSNAME(VELT_CLONE(emptyDictionary())));
    EXPECT_VALUE("q 5", VELT_CLONE(integer(5)));
}

TEST(Info, IsTheDescription) {
    EXPECT_VALUE("'nil'", VELT_INFO(nil));
    EXPECT_VALUE("'5'", VELT_INFO(integer(5)));
    EXPECT_VALUE("'abc'", VELT_INFO(str("abc")));
    EXPECT_VALUE("'<616263>'", VELT_INFO(data("abc")));
}

TEST(SameClassValueObject, AnswerForNilAndForEqualStrings) {
    const id a = str("abc"), b = str("abc");
    EXPECT_VALUE("c 1", VELT_ISEQUALCLASS(nil, nil));
    EXPECT_VALUE("c 0", VELT_ISEQUALCLASS(nil, a));
    EXPECT_VALUE("c 1", VELT_ISEQUALCLASS(a, b));
    EXPECT_VALUE("c 0", VELT_ISEQUALOBJECT(a, b));
    EXPECT_VALUE("c 1", VELT_ISEQUALOBJECT(a, a));
    EXPECT_VALUE("c 1", VELT_ISEQUALVALUE(a, b));
    EXPECT_VALUE("c 0", VELT_ISEQUALVALUE(nil, nil));
}

TEST(KindPredicates, AnswerForMutableClasses) {
    EXPECT_VALUE("c 1", VELT_ISARRAY(array()));
    EXPECT_VALUE("c 0", VELT_ISARRAY(frozenArray()));
    EXPECT_VALUE("c 1", VELT_ISDICTIONARY(emptyDictionary()));
    EXPECT_VALUE("c 1", VELT_ISSTRING("abc"_v));
    EXPECT_VALUE("c 0", VELT_ISDATA(data("a")));
    EXPECT_VALUE("c 0", VELT_ISSTRING(nil));
}

TEST(NumberAndValuePredicates, AreAlwaysTrue) {
    for (const id& value : {id(), str("a"), array(), integer(1)}) {
        EXPECT_VALUE("c 1", VELT_ISNUMBER(value));
        EXPECT_VALUE("c 1", VELT_ISVALUE(value));
    }
}

TEST(TypePredicates, CompareTypeCodes) {
    EXPECT_VALUE("c 1", VELT_ISINTEGER(VELT_ID(5LL)));
    EXPECT_VALUE("c 1", VELT_ISLONG(integer(5)));
    EXPECT_VALUE("c 1", VELT_ISBOOLEAN(byte(7)));
    EXPECT_VALUE("c 1", VELT_ISBYTE(boolean(false)));
    EXPECT_VALUE("c 0", VELT_ISSHORT(integer(5)));
    EXPECT_VALUE("c 1", VELT_ISSINGLE(single(5)));
    EXPECT_VALUE("c 1", VELT_ISDOUBLE(real(5)));
    EXPECT_VALUE("c 1", VELT_ISPOINT(point(1, 2)));
    EXPECT_VALUE("c 0", VELT_ISSIZE(point(1, 2)));
    EXPECT_VALUE("c 1", VELT_ISRECT(rect(1, 2, 3, 4)));
    EXPECT_VALUE("c 1", VELT_ISRANGE(range(1, 2)));
}

TEST(TypePredicates, FailForValuesWithoutATypeCode) {
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableString' does not understand 'objCType'",
                  VELT_ISINTEGER(str("5")));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableArray' does not understand 'objCType'", VELT_ISPOINT(array()));
    EXPECT_RAISES("NSInvalidArgumentException: nil does not understand 'objCType'", VELT_ISBOOLEAN(nil));
}
