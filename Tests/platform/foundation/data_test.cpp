#include "VELTRuntime/platform/foundation/data.h"

#include "support/values.h"

using namespace velt::test;

TEST(DataObjects, ShowTheirBytesInGroupsOfFour) {
    EXPECT_VALUE("NSData <>", data(""));
    EXPECT_VALUE("NSData <00ff1061>", data(std::string_view("\x00\xFF\x10\x61", 4)));
    EXPECT_VALUE("NSMutableData <68656c6c 6f>", mutableData("hello"));
}

TEST(DataObjects, AreEqualWithEqualBytes) {
    EXPECT_TRUE(velt::isEqual(data("abc"), mutableData("abc")));
    EXPECT_EQ(velt::hash(data("abc")), velt::hash(mutableData("abc")));
    EXPECT_FALSE(velt::isEqual(data("abc"), data(std::string_view("abc\0", 4))));
    EXPECT_FALSE(velt::isEqual(data("abc"), str("abc")));
}

TEST(DataCopies, CannotBeChangedUnlessAskedFor) {
    const id bytes = mutableData("abc");
    const id copy = velt::copy(bytes);
    velt::as<NSMutableData>(bytes)->append("de");
    EXPECT_VALUE("NSData <616263>", copy);
    EXPECT_VALUE("NSMutableData <61626364 65>", bytes);
    EXPECT_TRUE(velt::copy(copy) == copy);
    EXPECT_VALUE("NSMutableData <616263>", velt::send(copy, "mutableCopy"));
    EXPECT_VALUE("Q 5", velt::send(bytes, "length"));
}
