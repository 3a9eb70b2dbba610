#include "VELTRuntime/platform/object/cycles.h"

#include "support/generated.h"
#include "support/values.h"

#include <set>
#include <thread>

using namespace velt::test;

namespace {

long living = 0;

class Node : public NSObject {
    VELT_OBJECT(Node, NSObject)
public:
    Node() { ++living; }
    ~Node() override { --living; }
    static void describe(velt::ClassBuilder<Node>& c) {
        c.property("next", &Node::next).property("other", &Node::other).owns(&Node::typed);
    }
    id next, other;
    velt::Ref<Node> typed;
};

class DroppedCycles : public Generated {
protected:
    DroppedCycles() { velt::collectCycles(); }
    ~DroppedCycles() override {
        velt::setCycleStress(false);
        velt::collectCycles();
    }
};

}  // namespace

TEST_F(DroppedCycles, OfTwoObjectsAreReclaimed) {
    {
        velt::Ref<Node> a = velt::make<Node>(), b = velt::make<Node>();
        a->next = b;
        b->typed = a;
    }
    EXPECT_EQ(2, living);
    EXPECT_EQ(2u, velt::collectCycles());
    EXPECT_EQ(0, living);
    EXPECT_EQ(0u, velt::collectCycles());
}

TEST_F(DroppedCycles, WaitForTheEndOfAPause) {
    const auto drop = [] {
        const velt::Ref<Node> a = velt::make<Node>();
        a->next = a;
    };
    constexpr int kMany = 50'000;
    {
        const velt::CollectionPause pause;
        for (int i = 0; i < kMany; ++i) drop();
        EXPECT_EQ(kMany, living);
        {
            const velt::CollectionPause ended(false);
            drop();
            EXPECT_EQ(0, living);
        }
        for (int i = 0; i < kMany; ++i) drop();
        EXPECT_EQ(kMany, living);
    }
    drop();
    EXPECT_EQ(0, living);
}

TEST_F(DroppedCycles, OfAnObjectWithItselfAreReclaimed) {
    {
        velt::Ref<Node> a = velt::make<Node>();
        a->next = a;
    }
    velt::collectCycles();
    EXPECT_EQ(0, living);
}

TEST_F(DroppedCycles, OfAMillionObjectsAreReclaimed) {
    const int count = iterations(1'000'000);
    {
        velt::Ref<Node> first = velt::make<Node>();
        id last = first;
        for (int i = 1; i < count; ++i) {
            velt::Ref<Node> node = velt::make<Node>();
            node->next = last;
            last = std::move(node);
        }
        first->next = last;
    }
    velt::collectCycles();
    EXPECT_EQ(0, living);
}

TEST_F(DroppedCycles, AreKeptWhileSomethingUsesThem) {
    velt::Ref<Node> used = velt::make<Node>();
    {
        velt::Ref<Node> a = velt::make<Node>(), b = velt::make<Node>();
        a->next = b;
        b->next = a;
        used->next = a;
        b->other = used;
    }
    velt::collectCycles();
    EXPECT_EQ(3, living);
    EXPECT_TRUE(velt::as<Node>(velt::as<Node>(used->next)->next)->next == used->next);
    used->next = nil;
    velt::collectCycles();
    EXPECT_EQ(1, living);
    used = nullptr;
    EXPECT_EQ(0, living);
}

TEST_F(DroppedCycles, ThroughCollectionsAreReclaimed) {
    {
        velt::Ref<Node> node = velt::make<Node>();
        const id list = array(node, str("text"), integer(5)), dictionary = emptyDictionary();
        VELT_NSMUTABLEDICTIONARY_INSERT(dictionary, str("list"), list);
        VELT_NSMUTABLEARRAY_APPEND(list, list);
        node->next = dictionary;
    }
    velt::collectCycles();
    EXPECT_EQ(0, living);
}

TEST_F(DroppedCycles, AreReclaimedWhenManyHaveGathered) {
    for (int i = 0; i < 25'000; ++i) {
        velt::Ref<Node> a = velt::make<Node>();
        a->next = a;
    }
    EXPECT_LT(living, 12'000);
}

TEST_F(DroppedCycles, LeaveMemoryWhereItWas) {
    for (int round = 0; round < iterations(10'000); ++round) {
        velt::Ref<Node> form = velt::make<Node>(), button = velt::make<Node>();
        form->next = array(button, str("a form"));
        button->other = form;
    }
    velt::collectCycles();
    EXPECT_EQ(0, living);
    EXPECT_EQ(0u, velt::cycleCandidateCount());
}

TEST_F(DroppedCycles, WaitForOtherThreads) {
    {
        velt::Ref<Node> a = velt::make<Node>();
        a->next = a;
    }
    std::thread([] {
        const velt::ThreadScope scope;
        std::thread([] { EXPECT_EQ(0u, velt::collectCycles()); }).join();
    }).join();
    EXPECT_EQ(1, living);
    velt::collectCycles();
    EXPECT_EQ(0, living);
}

TEST(LongChains, AreFreedWithoutDeepRecursion) {
    {
        id last;
        for (int i = 0; i < iterations(1'000'000); ++i) {
            velt::Ref<Node> node = velt::make<Node>();
            node->next = std::move(last);
            last = std::move(node);
        }
    }
    EXPECT_EQ(0, living);
}

TEST_F(DroppedCycles, InRandomGraphsAreExactlyWhatNothingReaches) {
    for (const bool stress : {false, true}) {
        velt::setCycleStress(stress);
        for (int round = 0; round < iterations(300); ++round) {
            constexpr std::size_t kNodes = 20;
            std::vector<velt::Ref<Node>> roots(kNodes);
            std::vector<Node*> nodes(kNodes);
            for (std::size_t i = 0; i < kNodes; ++i) nodes[i] = (roots[i] = velt::make<Node>()).get();
            std::vector<std::set<std::size_t>> edges(kNodes);
            for (std::size_t i = 0; i < kNodes; ++i) {
                const std::size_t a = below(kNodes), b = below(kNodes);
                nodes[i]->next = id(nodes[a]);
                edges[i].insert(a);
                if (below(2)) {
                    nodes[i]->other = array(id(nodes[b]));
                    edges[i].insert(b);
                }
            }
            std::set<std::size_t> reached;
            std::vector<std::size_t> pending;
            for (std::size_t i = 0; i < kNodes; ++i) {
                if (below(5) == 0)
                    pending.push_back(i);
                else
                    roots[i] = nullptr;
            }
            while (!pending.empty()) {
                const std::size_t at = pending.back();
                pending.pop_back();
                if (reached.insert(at).second) pending.insert(pending.end(), edges[at].begin(), edges[at].end());
            }
            velt::collectCycles();
            ASSERT_EQ(static_cast<long>(reached.size()), living) << (stress ? "stress" : "");
            roots.clear();
            velt::collectCycles();
            ASSERT_EQ(0, living);
        }
    }
}
