#include "VELTRuntime/platform/object/drop_elements.h"

#include "support/values.h"

#include <map>

using namespace velt::test;

namespace {

/// Says, when it goes, how many elements its list has then.
class Departing : public NSObject {
    VELT_OBJECT(Departing, NSObject)
public:
    Departing(const std::vector<id>& list, std::vector<std::size_t>& seen) : list_(list), seen_(seen) {}
    ~Departing() override { seen_.push_back(list_.size()); }
    static void describe(velt::ClassBuilder<Departing>&) {}

private:
    const std::vector<id>& list_;
    std::vector<std::size_t>& seen_;
};

struct DroppedElements : testing::Test {
    DroppedElements() {
        for (int i = 0; i < 4; ++i) list.push_back(velt::make<Departing>(list, seen));
    }
    std::vector<std::size_t> seen;  // outlives those that write into it
    std::vector<id> list;
};

}  // namespace

TEST_F(DroppedElements, GoWhenTheirListIsEmpty) {
    velt::dropAll(list);
    EXPECT_EQ((std::vector<std::size_t>{0, 0, 0, 0}), seen);
    EXPECT_EQ(0u, list.size());
}

TEST_F(DroppedElements, GoWhenTheirListEndsBeforeThem) {
    velt::dropFrom(list, list.begin() + 1);
    EXPECT_EQ((std::vector<std::size_t>{1, 1, 1}), seen);
    EXPECT_EQ(1u, list.size());
}

TEST_F(DroppedElements, GoWhenTheOthersHaveMovedUp) {
    const id last = list.back();
    const auto place = velt::dropRange(list, list.begin() + 1, list.begin() + 3);
    EXPECT_EQ((std::vector<std::size_t>{2, 2}), seen);
    ASSERT_EQ(2u, list.size());
    EXPECT_EQ(1, place - list.begin());
    EXPECT_EQ(last.word(), place->word());
}

TEST_F(DroppedElements, GoWithoutTheMapThatHadThem) {
    std::map<int, id> map{{1, list[0]}, {2, list[1]}};
    velt::dropAll(list);
    EXPECT_EQ(2u, seen.size());
    velt::dropAll(map);
    EXPECT_EQ(4u, seen.size());
    EXPECT_TRUE(map.empty());
}
