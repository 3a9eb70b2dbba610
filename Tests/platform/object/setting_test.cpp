#include "VELTRuntime/platform/object/setting.h"

#include "support/values.h"

using velt::Setting;

TEST(ScopedSettings, HoldUntilTheirBlockIsLeft) {
    int depth = 1;
    {
        const Setting outer(depth, 2);
        {
            const Setting inner(depth, 3);
            EXPECT_EQ(3, depth);
        }
        EXPECT_EQ(2, depth);
    }
    EXPECT_EQ(1, depth);
}

TEST(ScopedSettings, EndWithAnExceptionToo) {
    bool busy = false;
    EXPECT_RAISES("NSGenericException: enough", [&] {
        const Setting working(busy, true);
        EXPECT_TRUE(busy);
        velt::raise("NSGenericException", "enough");
    }());
    EXPECT_FALSE(busy);
}
