// Starts a thread and ends in the way that its argument names.
#include <VELTRuntime/VELTRuntime.h>
#include <cstdio>
#include <string_view>

namespace {

class Worker : public NSObject {
    VELT_OBJECT(Worker, NSObject)

public:
    static void describe(velt::ClassBuilder<Worker>& c) {
        c.method("fail", &Worker::fail).method("tick", &Worker::tick).method("spin", &Worker::spin);
    }
    void fail() {
        VELTS("worker.bas", "Worker.Fail", "7", "");
        VELT_SUB("x"_v, VELT_ID(1L));
    }
    void tick() {
        VELTS("worker.bas", "Worker.Tick", "11", "");
        VELT_SUB("x"_v, VELT_ID(1L));
    }
    void spin() {
        for (long i = 0;; ++i) list = velt::make<NSMutableArray>();
    }
    id list;
};

std::string_view way;

int program(int, char**) {
    std::fputs("before\n", stdout);
    const id worker = velt::make<Worker>();
    if (way == "timer") {
        const id timer = VELT_NSTIMER_INIT(worker, "tick");
        VELT_DORUNLOOP(VELT_ID(60.0));
    }
    const id thread = VELT_NSTHREAD_INIT(worker, way == "raise" ? "fail" : "spin");
    VELT_NSTHREAD_START(thread);
    if (way == "raise") VELT_DORUNLOOP(VELT_ID(60.0));
    if (way == "wait") {
        // A message for the main thread, which is about to end and never takes it.
        velt::send(worker, "performSelectorOnMainThread:withObject:waitUntilDone:", "tick"_v, nil, VELT_ID(BOOL{0}));
    }
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    way = count > 1 ? arguments[1] : "";
    return velt::runProgram(program, count, arguments);
}
