// Observers and bindings that come, go and are told on several threads at once; mostly for the thread sanitizer's eyes.
#include "VELTRuntime/platform/object/value_binding.h"

#include "support/generated.h"
#include "support/observers.h"
#include "support/threads.h"

using namespace velt::test;

namespace {

/// Counts what it is told, from any thread.
class Tally : public NSObject {
    VELT_OBJECT(Tally, NSObject)
public:
    std::atomic<long> told{0};
    void observe(const id&, const id&, const id&, const id&) { ++told; }
    static void describe(velt::ClassBuilder<Tally>& c) {
        c.method("observeValueForKeyPath:ofObject:change:context:", &Tally::observe);
    }
};

}  // namespace

TEST(ObservingOnThreads, TellsASharedObserverOfEveryChange) {
    const velt::Ref<Tally> tally = velt::make<Tally>();
    const int rounds = iterations(2000);
    onThreads(4, [&](int) {
        const velt::Ref<Model> own = velt::make<Model>();
        velt::addObserver(own, tally, "value", velt::kObserveNew);
        for (int i = 0; i < rounds; ++i) velt::setValueForKey(own, "value", integer(i));
    });
    EXPECT_EQ(4L * rounds, tally->told);
    EXPECT_FALSE(tally->isAttached());
}

TEST(ObservingOnThreads, LetsObserversGoWhileChangesAreTold) {
    const velt::Ref<Tally> steady = velt::make<Tally>();
    const velt::Ref<Model> model = velt::make<Model>();
    velt::addObserver(model, steady, "announced", 0);
    const int rounds = iterations(2000);
    onThreads(4, [&](int thread) {
        for (int i = 0; i < rounds; ++i) {
            if (thread % 2 == 0) {
                velt::willChangeValue(*model, "announced");
                velt::didChangeValue(*model, "announced");
            } else {
                const velt::Ref<Tally> brief = velt::make<Tally>();
                velt::addObserver(model, brief, "announced", 0);
                if (i % 2) velt::removeObserver(model, brief, "announced");
            }
        }
    });
    EXPECT_EQ(2L * rounds, steady->told);
    EXPECT_EQ(1u, model->ownerCount());
    velt::removeObserver(model, steady, "announced");
    EXPECT_FALSE(model->isAttached());
}

TEST(ObservingOnThreads, LetsBoundObjectsGo) {
    const velt::Ref<Model> source = velt::make<Model>();
    source->value = integer(1);
    onThreads(4, [&](int) {
        for (int i = 0; i < iterations(500); ++i) {
            const velt::Ref<Model> brief = velt::make<Model>();
            velt::bindValue(brief, "value", source, "value", nil);
            if (i % 2) velt::unbindValue(brief, "value");
            EXPECT_VALUE("q 1", brief->value);
        }
    });
    EXPECT_FALSE(source->isAttached());
}

TEST(MessageSitesOnThreads, AgreeOnTheMethod) {
    const id receivers[] = {velt::make<Model>(), velt::make<Tally>(), str("x"), array()};
    onThreads(4, [&](int thread) {
        for (int i = 0; i < iterations(5000); ++i) {
            const id& receiver = receivers[static_cast<std::size_t>(i + thread) % 4];
            EXPECT_TRUE(velt::send(receiver, VELT_SELECTOR("self")) == receiver);
        }
    });
}
