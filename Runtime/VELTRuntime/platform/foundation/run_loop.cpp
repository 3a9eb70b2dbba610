#include "VELTRuntime/platform/foundation/run_loop.h"

#include "VELTRuntime/platform/foundation/loop_driver.h"
#include "VELTRuntime/platform/object/callback_failure.h"
#include "VELTRuntime/platform/object/cycles.h"
#include "VELTRuntime/platform/object/providers.h"

#include <cassert>
#include <deque>
#include <map>
#include <mutex>
#include <unistd.h>
#include <utility>

namespace velt {

namespace {

/// Some decades stand for ever.
LoopTime timeAfter(double seconds) {
    constexpr double kMost = 1e9;
    if (!(seconds > 0)) return LoopClock::now();
    if (seconds >= kMost) return LoopTime::max();
    return LoopClock::now() + std::chrono::duration_cast<LoopClock::duration>(std::chrono::duration<double>(seconds));
}

/// Runs a function whose exceptions nobody is there to catch.
void runReported(const RunLoop::Function& function) noexcept {
    try {
        function();
    } catch (...) {
        callbackRaised();
    }
}

/// What is called when the main thread's loop is about to wait. None is ever taken out, and each stays where it is
/// while others are added.
class IdleFunctions {
public:
    static IdleFunctions& all() {
        static IdleFunctions& functions = *new IdleFunctions;
        return functions;
    }
    void add(RunLoop::Function function) {
        const std::lock_guard lock(mutex_);
        functions_.push_back(std::move(function));
    }
    void call() {
        for (std::size_t i = 0; const RunLoop::Function* function = at(i); ++i) (*function)();
    }

private:
    const RunLoop::Function* at(std::size_t index) {
        const std::lock_guard lock(mutex_);
        return index < functions_.size() ? &functions_[index] : nullptr;
    }

    std::mutex mutex_;
    std::deque<RunLoop::Function> functions_;
};

/// Collects what has gathered while there is nothing else to do, but no more than a twentieth of the time: an object
/// that is used now and then may stand for a great many that have to be looked at.
class IdleCollection {
public:
    /// When it wants to be called again.
    LoopTime run() {
        const std::size_t candidates = cycleCandidateCount();
        if (candidates == 0) return LoopTime::max();
        const LoopTime begin = LoopClock::now();
        if (begin < next_) return next_;
        collectCycles();
        const LoopTime end = LoopClock::now();
        next_ = end + 20 * (end - begin);
        return LoopTime::max();
    }

private:
    LoopTime next_;
};

}  // namespace

struct RunLoop::State {
    explicit State(bool main) : isMain(main) {}

    struct Queued {
        std::uint64_t order;
        Function function;
    };
    /// One run that is under way, the innermost last.
    struct Run {
        LoopTime end;
        bool stopped = false;
    };

    const bool isMain;
    mutable std::mutex mutex;  // guards what follows up to the driver
    std::deque<Queued> queue;
    DelayedCalls delayed;
    std::uint64_t nextOrder = 1;
    unsigned expectations = 0;
    std::size_t watchCount = 0;
    bool wakeAsked = false;
    LoopDriver* waker = nullptr;

    // The loop's own thread alone.
    std::unique_ptr<LoopDriver> driver;
    LoopDriverMaker driverMaker = nullptr;
    std::map<int, std::shared_ptr<const Function>> watched;
    std::vector<Run> runs;
    LoopTime wakeTime = LoopTime::max();  // that the driver knows of
    LoopTime idleTime = LoopTime::max();
    std::uint64_t delivered = 0;
    IdleCollection collection;

    void wakeLocked() {
        if (wakeAsked || !waker) return;
        wakeAsked = true;
        waker->wake();
    }
    LoopDriver& ensureDriver();
    void pass();
    void idle();
    void readable(int descriptor);
    void arrangeWake();
    void wait();
};

/// The main thread's driver is exchanged when the library with windows was loaded since it was made.
LoopDriver& RunLoop::State::ensureDriver() {
    const LoopDriverMaker provided = isMain ? availableProviders().makeMainLoopDriver : nullptr;
    const LoopDriverMaker maker = provided ? provided : makePollingDriver;
    if (driver && (maker == driverMaker || !runs.empty())) return *driver;
    std::unique_ptr<LoopDriver> made = maker({[this] { pass(); }, [this] { runReported([this] { idle(); }); },
                                              [this](int descriptor) { readable(descriptor); }});
    for (const auto& entry : watched) made->watch(entry.first);
    {
        const std::lock_guard lock(mutex);
        waker = made.get();
        wakeAsked = false;
    }
    wakeTime = LoopTime::max();
    driver = std::move(made);
    driverMaker = maker;
    return *driver;
}

/// Delivers what was handed in before now.
void RunLoop::State::pass() {
    std::unique_lock lock(mutex);
    wakeAsked = false;
    const std::uint64_t limit = nextOrder;
    const LoopTime now = LoopClock::now();
    for (;;) {
        Function function;
        if (!queue.empty() && queue.front().order < limit) {
            function = std::move(queue.front().function);
            queue.pop_front();
        } else {
            function = delayed.takeDue(now, limit);
        }
        if (!function) break;
        lock.unlock();
        runReported(function);
        function = nullptr;
        lock.lock();
        ++delivered;
        if (!runs.empty() && runs.back().stopped) break;
    }
    lock.unlock();
    wakeTime = LoopTime::max();  // what the driver knew may have passed
    for (Run& run : runs) {
        if (run.end <= now) run.end = LoopTime::min();  // needs no further wake
    }
    arrangeWake();
}

void RunLoop::State::idle() {
    {
        const std::lock_guard lock(mutex);
        if (wakeAsked || !queue.empty()) return;
    }
    if (!isMain) return;
    idleTime = collection.run();
    IdleFunctions::all().call();
    arrangeWake();
}

void RunLoop::State::readable(int descriptor) {
    const auto found = watched.find(descriptor);
    if (found == watched.end()) return;
    const std::shared_ptr<const Function> function = found->second;  // it may unwatch itself
    runReported(*function);
    ++delivered;
}

/// Tells the driver when to wake: at once when there is something to deliver.
void RunLoop::State::arrangeWake() {
    LoopTime earliest = idleTime;
    {
        const std::lock_guard lock(mutex);
        if (!queue.empty()) wakeLocked();
        if (const auto due = delayed.earliest()) earliest = std::min(earliest, *due);
    }
    if (!runs.empty() && runs.back().end > LoopTime::min()) earliest = std::min(earliest, runs.back().end);
    if (earliest == wakeTime) return;
    wakeTime = earliest;
    driver->wakeAt(earliest);
}

void RunLoop::State::wait() {
    arrangeWake();
    driver->wait();
}

RunLoop::RunLoop(bool isMain) : state_(std::make_shared<State>(isMain)) {}

RunLoop::~RunLoop() {
    const std::lock_guard lock(state_->mutex);
    state_->waker = nullptr;
}

RunLoop& RunLoop::main() {
    static RunLoop& loop = *new RunLoop(true);  // other threads may use it to the very end
    return loop;
}

RunLoop& RunLoop::current() {
    static thread_local const bool isMainThread = ::gettid() == ::getpid();
    if (isMainThread) return main();
    struct Own {
        RunLoop loop{false};
    };
    static thread_local Own own;
    return own.loop;
}

void RunLoop::perform(Function function) {
    const std::lock_guard lock(state_->mutex);
    state_->queue.push_back({state_->nextOrder++, std::move(function)});
    state_->wakeLocked();
}

RunLoop::Handle RunLoop::after(double seconds, Function function, CallGroup group) {
    const LoopTime due = timeAfter(seconds);
    Handle handle;
    handle.state_ = state_;
    bool isOwn = false;
    {
        const std::lock_guard lock(state_->mutex);
        handle.ticket_ = state_->delayed.add(due, state_->nextOrder++, std::move(function), group);
        isOwn = state_->waker && isCurrent();
        // Another thread's driver learns the time when it has woken.
        if (!isOwn) state_->wakeLocked();
    }
    if (isOwn && due < state_->wakeTime) state_->arrangeWake();
    return handle;
}

void RunLoop::cancelAll(CallGroup group) {
    std::vector<Function> dropped;
    const std::lock_guard lock(state_->mutex);
    dropped = state_->delayed.cancelAll(group);
}

bool RunLoop::runOnce(double limit) {
    assert(isCurrent());
    State& state = *state_;
    state.ensureDriver();
    const std::uint64_t before = state.delivered;
    const LoopTime end = timeAfter(limit);
    state.runs.push_back({end});
    do {
        state.wait();
    } while (state.delivered == before && !state.runs.back().stopped && LoopClock::now() < end);
    const bool stopped = state.runs.back().stopped;
    state.runs.pop_back();
    return state.delivered != before || stopped;
}

void RunLoop::runUntil(double seconds, WhenDone whenDone) {
    assert(isCurrent());
    State& state = *state_;
    state.ensureDriver();
    const LoopTime end = timeAfter(seconds);
    state.runs.push_back({end});
    do {
        if (whenDone == WhenDone::Return && !isPending()) break;
        state.wait();
    } while (!state.runs.back().stopped && LoopClock::now() < end);
    state.runs.pop_back();
}

void RunLoop::stop() {
    assert(isCurrent());
    if (!state_->runs.empty()) state_->runs.back().stopped = true;
}

void RunLoop::watch(int descriptor, Function function) {
    assert(isCurrent());
    const bool isNew =
        state_->watched.insert_or_assign(descriptor, std::make_shared<const Function>(std::move(function))).second;
    if (isNew && state_->driver) state_->driver->watch(descriptor);
    const std::lock_guard lock(state_->mutex);
    state_->watchCount = state_->watched.size();
}

void RunLoop::unwatch(int descriptor) {
    assert(isCurrent());
    if (state_->watched.erase(descriptor) > 0 && state_->driver) state_->driver->unwatch(descriptor);
    const std::lock_guard lock(state_->mutex);
    state_->watchCount = state_->watched.size();
}

bool RunLoop::isPending() const {
    const State& state = *state_;
    const std::lock_guard lock(state.mutex);
    return !state.queue.empty() || state.delayed.size() > 0 || state.expectations > 0 || state.watchCount > 0;
}

void RunLoop::prepare() {
    assert(isCurrent());
    state_->ensureDriver();
    state_->arrangeWake();
}

void RunLoop::atIdle(Function function) { IdleFunctions::all().add(std::move(function)); }

void RunLoop::Handle::cancel() {
    Function dropped;
    if (const auto state = state_.lock()) {
        const std::lock_guard lock(state->mutex);
        dropped = state->delayed.cancel(ticket_);
    }
}

bool RunLoop::Handle::isWaiting() const {
    const auto state = state_.lock();
    if (!state) return false;
    const std::lock_guard lock(state->mutex);
    return state->delayed.isWaiting(ticket_);
}

RunLoop::Expectation::Expectation() : state_(current().state_) {
    const std::lock_guard lock(state_->mutex);
    ++state_->expectations;
}

RunLoop::Expectation::~Expectation() {
    const std::lock_guard lock(state_->mutex);
    --state_->expectations;
    state_->wakeLocked();
}

}  // namespace velt
