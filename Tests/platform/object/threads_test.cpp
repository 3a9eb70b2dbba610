// Values shared and dropped by several threads at once; mostly for the thread sanitizer's eyes.
#include "VELTRuntime/platform/object/cycles.h"
#include "support/generated.h"
#include "support/threads.h"
#include "support/values.h"

#include <thread>

using namespace velt::test;

TEST(SharedValues, SurviveBeingCopiedAndDroppedEverywhere) {
    const id text = str("a text that is too long for the object itself");
    const id list = array(text, integer(1), real(1e100), array(str("inner")));
    onThreads(4, [&](int) {
        for (int i = 0; i < iterations(20'000); ++i) {
            const id a = text, b = list;
            const id element = VELT_NSARRAY_OBJECT(b, integer(i % 4));
            const id copy = VELT_CSTRING(a);
            EXPECT_FALSE(element.isNil() || copy == a);
        }
    });
    EXPECT_EQ(1u, list.object()->ownerCount());
}

TEST(SharedTexts, AreAppendedToByOneThreadEach) {
    const id base = VELT_CONCAT(str("a text that is too long for "), str("the object itself"));
    std::vector<id> results(4);
    onThreads(4, [&](int thread) {
        id text = base;
        for (int i = 0; i < 500; ++i) text = VELT_CONCAT(text, integer(thread));
        results[static_cast<std::size_t>(thread)] = text;
    });
    for (std::size_t i = 0; i < results.size(); ++i) {
        EXPECT_EQ(velt::utf8(base) + std::string(500, static_cast<char>('0' + i)), velt::utf8(results[i]));
    }
}

TEST(SharedObjects, BecomeCandidatesOnAnyThread) {
    const id list = array(array(), array(), emptyDictionary());
    onThreads(4, [&](int) {
        for (int i = 0; i < iterations(5'000); ++i) {
            const id own = array(list, VELT_NSARRAY_OBJECT(list, integer(i % 3)));
            const id also = own;
        }
    });
    velt::collectCycles();
    EXPECT_EQ(1u, list.object()->ownerCount());
}

TEST(SelectorsAndClasses, AreFoundOnAnyThread) {
    onThreads(4, [](int thread) {
        for (int i = 0; i < 500; ++i) {
            velt::Selector::named("selector" + std::to_string(i) + ":");
            EXPECT_VALUE("Q 2", velt::send(str("xy"), "length"));
            EXPECT_TRUE(velt::Class::named(thread % 2 ? "NSView" : "NSWindow"));
        }
    });
}

TEST(ThreadBlocks, AreFreedByAnotherThreadThanTheirMaker) {
    for (int round = 0; round < 20; ++round) {
        std::vector<id> values;
        std::thread([&] {
            for (int i = 0; i < 1000; ++i) values.push_back(str("block " + std::to_string(i)));
        }).join();
        std::thread([&] { values.clear(); }).join();
    }
    velt::Pool::trim();
    EXPECT_VALUE("'still'", str("still"));
}
