// Notifications to many observers and messages that wait for the run loop, and how both grow with their number.
#include <VELTRuntime/VELTRuntime.h>
#include <VELTRuntime/platform/foundation/notification_center.h>
#include <VELTRuntime/platform/foundation/run_loop.h>

#include <benchmark/benchmark.h>

namespace {

class Listener : public NSObject {
    VELT_OBJECT(Listener, NSObject)

public:
    void hear(const id&) { ++heard; }
    static void describe(velt::ClassBuilder<Listener>& c) { c.method("hear:", &Listener::hear); }
    long heard = 0;
};

/// One post to as many observers; nanoseconds for each of them.
void postToObservers(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    std::vector<velt::Ref<Listener>> listeners;
    for (std::size_t i = 0; i < count; ++i) {
        listeners.push_back(velt::make<Listener>());
        NSNotificationCenter::defaultCenter().addObserver(listeners.back(), VELT_SELECTOR("hear:"), "News"_v, nil);
    }
    for (auto _ : state) NSNotificationCenter::defaultCenter().post("News"_v);
    state.counters["each"] = benchmark::Counter(
        static_cast<double>(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(postToObservers)->Arg(1)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

/// As many observers added, told once, and gone.
void observersComeAndGo(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    for (auto _ : state) {
        std::vector<velt::Ref<Listener>> listeners;
        for (std::size_t i = 0; i < count; ++i) {
            listeners.push_back(velt::make<Listener>());
            NSNotificationCenter::defaultCenter().addObserver(listeners.back(), VELT_SELECTOR("hear:"), "News"_v, nil);
        }
        NSNotificationCenter::defaultCenter().post("News"_v);
    }
    state.counters["each"] = benchmark::Counter(
        static_cast<double>(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(observersComeAndGo)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// As many messages put off and then delivered by the run loop.
void delayedMessages(benchmark::State& state) {
    const auto count = state.range(0);
    const velt::Ref<Listener> listener = velt::make<Listener>();
    for (auto _ : state) {
        const long before = listener->heard;
        for (long i = 0; i < count; ++i) {
            VELT_NSOBJECT_PERFORMSELECTORDELAYED(listener, "hear:"_v, nil, VELT_ID(static_cast<double>(i % 100) / 1e6));
        }
        while (listener->heard < before + count) velt::RunLoop::current().runOnce(1);
    }
    state.counters["each"] = benchmark::Counter(
        static_cast<double>(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(delayedMessages)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
