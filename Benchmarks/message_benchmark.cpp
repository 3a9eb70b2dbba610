// What a program pays for a message by name against a virtual call, and for being told of changes.
#include <VELTRuntime/VELTRuntime.h>

#include <benchmark/benchmark.h>

namespace {

/// Two classes with the same messages, so that no compiler knows which member a virtual call reaches.
class Plain : public NSObject {
    VELT_OBJECT(Plain, NSObject)
public:
    [[gnu::noinline]] virtual id take(const id& given) { return given; }
    id value;
    long told = 0;
    void observe(const id&, const id&, const id&, const id&) { ++told; }
    static void describe(velt::ClassBuilder<Plain>& c) {
        c.property("value", &Plain::value)
            .method("take:", &Plain::take)
            .method("observeValueForKeyPath:ofObject:change:context:", &Plain::observe);
    }
};

class Other : public Plain {
    VELT_OBJECT(Other, Plain)
public:
    [[gnu::noinline]] id take(const id& given) override { return given.isNil() ? value : given; }
};

velt::Ref<Plain> receiver(const benchmark::State& state) {
    if (state.range(0) != 0) return velt::make<Other>();
    return velt::make<Plain>();
}

void virtualCall(benchmark::State& state) {
    const velt::Ref<Plain> object = receiver(state);
    Plain* called = object.get();
    const id value = VELT_ID(5L);
    for (auto _ : state) {
        benchmark::DoNotOptimize(called);
        benchmark::DoNotOptimize(called->take(value));
    }
}
BENCHMARK(virtualCall)->Arg(0)->Arg(1);

void messageByName(benchmark::State& state) {
    const id object = receiver(state);
    const id value = VELT_ID(5L);
    for (auto _ : state) benchmark::DoNotOptimize(velt::send(object, VELT_SELECTOR("take:"), value));
}
BENCHMARK(messageByName)->Arg(0)->Arg(1);

void messageByText(benchmark::State& state) {
    const id object = receiver(state);
    const id value = VELT_ID(5L), name = velt::string("take:");
    for (auto _ : state) benchmark::DoNotOptimize(VELT_NSOBJECT_PERFORMSELECTOR1(object, name, value));
}
BENCHMARK(messageByText)->Arg(0);

void setAPropertyThatNobodyObserves(benchmark::State& state) {
    const id object = velt::make<Plain>(), value = VELT_ID(5L);
    for (auto _ : state) velt::send(object, VELT_SELECTOR("setValue:"), value);
}
BENCHMARK(setAPropertyThatNobodyObserves);

/// One property, many observers: every change tells them all.
void tellObservers(benchmark::State& state) {
    const id object = velt::make<Plain>(), value = VELT_ID(5L);
    std::vector<id> observers;
    for (long i = 0; i < state.range(0); ++i) {
        observers.push_back(velt::make<Plain>());
        velt::addObserver(object, observers.back(), "value", velt::kObserveNew);
    }
    for (auto _ : state) velt::send(object, VELT_SELECTOR("setValue:"), value);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(tellObservers)->Arg(1)->Arg(1000)->Arg(1'000'000);

/// Many objects with one observer each: registered, told once, and gone.
void observeManyObjects(benchmark::State& state) {
    for (auto _ : state) {
        const id observer = velt::make<Plain>(), value = VELT_ID(5L);
        std::vector<id> objects;
        for (long i = 0; i < state.range(0); ++i) {
            objects.push_back(velt::make<Plain>());
            velt::addObserver(objects.back(), observer, "value", velt::kObserveNew);
        }
        for (const id& object : objects) velt::send(object, VELT_SELECTOR("setValue:"), value);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(observeManyObjects)->Arg(1000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// A chain of bindings: the last object follows the first.
void followABinding(benchmark::State& state) {
    std::vector<id> chain{velt::make<Plain>()};
    for (long i = 0; i < state.range(0); ++i) {
        chain.push_back(velt::make<Plain>());
        VELT_NSOBJECT_BIND(chain.back(), velt::string("value"), chain[chain.size() - 2], velt::string("value"), nil);
    }
    const id value = VELT_ID(5L);
    for (auto _ : state) velt::send(chain.front(), VELT_SELECTOR("setValue:"), value);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(followABinding)->Arg(1)->Arg(10);

}  // namespace
