#include "VELTRuntime/platform/foundation/delayed_calls.h"

#include "support/generated.h"

#include <map>

using namespace velt;
using std::chrono::milliseconds;

namespace {

const LoopTime start = LoopClock::now();

void take(DelayedCalls& calls, LoopTime now) {
    while (const auto function = calls.takeDue(now, ~std::uint64_t{0})) function();
}

}  // namespace

TEST(DelayedCalls, ComeByDeadlineAndThenInTheOrderOfTheirAdding) {
    DelayedCalls calls;
    std::string said;
    std::uint64_t order = 0;
    const auto add = [&](int after, char letter) {
        calls.add(
            start + milliseconds(after), ++order, [&said, letter] { said += letter; }, 0);
    };
    add(5, 'd');
    add(1, 'a');
    add(3, 'b');
    add(3, 'c');
    add(9, 'e');
    EXPECT_EQ(start + milliseconds(1), calls.earliest());
    take(calls, start);
    EXPECT_EQ("", said);
    take(calls, start + milliseconds(5));
    EXPECT_EQ("abcd", said);
    EXPECT_EQ(1u, calls.size());
    take(calls, start + milliseconds(9));
    EXPECT_EQ("abcde", said);
    EXPECT_EQ(std::nullopt, calls.earliest());
}

TEST(DelayedCalls, LeaveThoseForLaterThatWereAddedSinceThePassBegan) {
    DelayedCalls calls;
    calls.add(
        start, 1, [] {}, 0);
    calls.add(
        start, 2, [] {}, 0);
    EXPECT_TRUE(calls.takeDue(start, 2));
    EXPECT_FALSE(calls.takeDue(start, 2));
    EXPECT_TRUE(calls.takeDue(start, 3));
}

TEST(DelayedCalls, AreCancelledOnce) {
    DelayedCalls calls;
    const auto first = calls.add(
        start, 1, [] {}, 0);
    EXPECT_TRUE(calls.isWaiting(first));
    EXPECT_TRUE(calls.cancel(first));
    EXPECT_FALSE(calls.isWaiting(first));
    EXPECT_FALSE(calls.cancel(first));
    const auto second = calls.add(
        start, 2, [] {}, 0);  // takes the free slot
    EXPECT_FALSE(calls.isWaiting(first));
    EXPECT_FALSE(calls.cancel(first));
    EXPECT_TRUE(calls.isWaiting(second));
    EXPECT_FALSE(calls.cancel(DelayedCalls::Ticket()));
}

class GeneratedCalls : public test::Generated {};

TEST_F(GeneratedCalls, RunLikeASortedList) {
    DelayedCalls calls;
    std::multimap<std::pair<LoopTime, std::uint64_t>, int> expected;
    struct Added {
        DelayedCalls::Ticket ticket;
        CallGroup group;
        decltype(expected)::iterator place;
        bool waiting = true;
    };
    std::vector<Added> added;
    std::uint64_t order = 0;
    const auto gone = [&](Added& call) {
        if (call.waiting) expected.erase(call.place);
        call.waiting = false;
    };
    for (int step = 0; step < test::iterations(20'000); ++step) {
        switch (below(8)) {
        case 0: {
            if (added.empty()) break;
            Added& call = added[below(added.size())];
            EXPECT_EQ(call.waiting, static_cast<bool>(calls.cancel(call.ticket)));
            gone(call);
            break;
        }
        case 1: {
            const CallGroup group = 1 + below(200);
            std::size_t count = 0;
            for (Added& call : added) {
                if (call.group == group && call.waiting) gone(call), ++count;
            }
            EXPECT_EQ(count, calls.cancelAll(group).size());
            break;
        }
        case 2: {
            const LoopTime now = start + milliseconds(below(50));
            while (const auto function = calls.takeDue(now, ~std::uint64_t{0})) function();
            EXPECT_TRUE(expected.empty() || expected.begin()->first.first > now);
            break;
        }
        default: {
            const LoopTime due = start + milliseconds(below(60));
            const std::size_t index = added.size();
            const CallGroup group = below(200);
            added.push_back({});
            added[index].group = group;
            added[index].place = expected.emplace(std::pair(due, ++order), 0);
            added[index].ticket = calls.add(
                due, order,
                [&, index] {
                    EXPECT_EQ(expected.begin(), added[index].place);
                    gone(added[index]);
                },
                group);
        }
        }
        ASSERT_EQ(expected.size(), calls.size());
    }
}
