// What a program pays for single steps: a number, an operator, a string, an entry of a dictionary, a cycle.
#include <VELTRuntime/VELTRuntime.h>

#include <benchmark/benchmark.h>

namespace {

class Cell : public NSObject {
    VELT_OBJECT(Cell, NSObject)
public:
    id next;
    static void describe(velt::ClassBuilder<Cell>& c) { c.property("next", &Cell::next); }
};

void addIntegers(benchmark::State& state) {
    id a = VELT_ID(1L);
    const id b = VELT_ID(3L);
    for (auto _ : state) benchmark::DoNotOptimize(a = VELT_ADD(a, b));
}
BENCHMARK(addIntegers);

void addDoubles(benchmark::State& state) {
    id a = VELT_ID(1.0);
    const id b = VELT_ID(0.5);
    for (auto _ : state) benchmark::DoNotOptimize(a = VELT_ADD(a, b));
}
BENCHMARK(addDoubles);

void addHeapDoubles(benchmark::State& state) {
    const id a = VELT_ID(1e100), b = VELT_ID(2e100);
    for (auto _ : state) benchmark::DoNotOptimize(VELT_ADD(a, b));
}
BENCHMARK(addHeapDoubles);

void shareAndDropAnObject(benchmark::State& state) {
    const id text = velt::string("a text");
    for (auto _ : state) {
        id copy = text;
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(shareAndDropAnObject);

void readAnInteger(benchmark::State& state) {
    const id text = velt::string(" -1234567");
    for (auto _ : state) benchmark::DoNotOptimize(VELT_CINTEGER(text));
}
BENCHMARK(readAnInteger);

void writeADouble(benchmark::State& state) {
    const id number = VELT_ID(3.141592653589793);
    for (auto _ : state) benchmark::DoNotOptimize(VELT_CSTRING(number));
}
BENCHMARK(writeADouble);

void findInADictionary(benchmark::State& state) {
    const id dictionary = velt::make<NSMutableDictionary>();
    for (long i = 0; i < 1000; ++i) VELT_NSMUTABLEDICTIONARY_INSERT(dictionary, VELT_ID(i), VELT_ID(i));
    const id key = velt::string("567");
    for (auto _ : state) benchmark::DoNotOptimize(VELT_NSDICTIONARY_OBJECT(dictionary, key));
}
BENCHMARK(findInADictionary);

/// Objects of a dropped ring, made and reclaimed.
void reclaimARing(benchmark::State& state) {
    for (auto _ : state) {
        {
            velt::Ref<Cell> first = velt::make<Cell>();
            id last = first;
            for (long i = 1; i < state.range(0); ++i) {
                velt::Ref<Cell> cell = velt::make<Cell>();
                cell->next = std::move(last);
                last = std::move(cell);
            }
            first->next = std::move(last);
        }
        velt::collectCycles();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(reclaimARing)->Arg(1000)->Arg(100000);

}  // namespace
