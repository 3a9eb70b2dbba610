// Child processes: launches with captured output, a long output, idle tasks, launches of a large parent.
// processes LAUNCHES BYTES MEGABYTES
#include "VELTRuntime/VELTRuntime.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "work_timer.h"

#include <cstdlib>
#include <ctime>
#include <string>
#include <sys/mman.h>

namespace {

using namespace velt;

/// Counts what a task reports.
class Listener : public NSObject {
    VELT_OBJECT(Listener, NSObject)

public:
    static void describe(ClassBuilder<Listener>& c) {
        c.method("job_stdout:", &Listener::output)
            .method("job_stderr:", &Listener::output)
            .method("jobstopped", &Listener::stopped);
    }
    void output(const id& data) { bytes += static_cast<long long>(dataOf(data)->length()); }
    void stopped() { hasStopped = true; }

    long long bytes = 0;
    bool hasStopped = false;
};

id array(const std::vector<std::string>& texts) {
    const Ref<NSMutableArray> result = make<NSMutableArray>();
    for (const std::string& text : texts) result->append(string(text));
    return result;
}

long long run(const char* path, const std::vector<std::string>& arguments) {
    const Ref<Listener> listener = make<Listener>();
    const id task = VELT_VLTASK_INIT(listener, "job");
    VELT_VLTASK_PATH(task, string(path));
    VELT_VLTASK_ARGUMENTS(task, array(arguments));
    as<VLTask>(task)->mytask()->launch();
    while (!VELT_CBOOL(valueForKey(task, "taskDidTerminate")) || !VELT_CBOOL(valueForKey(task, "stdoutEmpty"))) {
        RunLoop::current().runOnce(10);
    }
    return listener->bytes;
}

long long launches(long count) {
    for (long i = 0; i < count; ++i) run("/bin/true", {});
    return count;
}

double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

}  // namespace

int main(int count, char** arguments) {
    const long runs = count > 1 ? std::atol(arguments[1]) : 300;
    const long long bytes = count > 2 ? std::atoll(arguments[2]) : 1LL << 30;
    const std::size_t megabytes = count > 3 ? static_cast<std::size_t>(std::atoll(arguments[3])) : 4096;

    timeWork("launches", [&] { return launches(runs); });
    timeWork("synchronous_launches", [&] {
        for (long i = 0; i < runs; ++i) VELT_RUN("/bin/true"_v);
        return runs;
    });
    timeWork("output", [&] { return run("/usr/bin/head", {"-c", std::to_string(bytes), "/dev/zero"}); });

    // A parent of some size: every page of it is in use.
    const std::size_t size = megabytes << 20;
    void* memory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
    if (memory != MAP_FAILED) {
        timeWork("launches_of_a_large_parent", [&] { return launches(runs); });
        ::munmap(memory, size);
    }

    // The processor time of a second in which tasks run that say nothing.
    std::vector<id> idle;
    for (int i = 0; i < 20; ++i) {
        idle.push_back(VELT_VLTASK_INIT(nil, "job"));
        VELT_VLTASK_PATH(idle.back(), "/bin/sleep"_v);
        VELT_VLTASK_ARGUMENTS(idle.back(), array({"60"}));
        as<VLTask>(idle.back())->mytask()->launch();
    }
    const double before = processorSeconds();
    VELT_DORUNLOOP(VELT_ID(1.0));
    std::printf("idle_second %.6f 0\n", processorSeconds() - before);
    return 0;
}
