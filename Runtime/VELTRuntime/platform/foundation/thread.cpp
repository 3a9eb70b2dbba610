#include "VELTRuntime/platform/foundation/thread.h"

#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/object/cycles.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <chrono>
#include <latch>
#include <pthread.h>
#include <system_error>
#include <thread>
#include <unistd.h>

using velt::Ref;
using velt::Selector;

namespace {

constinit thread_local NSThread* startedHere = nullptr;

bool isProcessesFirst() { return ::gettid() == ::getpid(); }

/// The system's tools show so many bytes of a name.
constexpr std::size_t kShownName = 15;

void showName(const id& name) {
    if (name.isNil()) return;
    pthread_setname_np(pthread_self(), velt::utf8(name).substr(0, kShownName).c_str());
}

}  // namespace

NSThread::NSThread() = default;
NSThread::NSThread(const id& target, Selector selector, const id& argument)
    : selector_(selector), target_(target), argument_(argument) {}
NSThread::NSThread(Adopted, bool isMain) : state_(State::Executing), started_(true), isMain_(isMain) {}
NSThread::~NSThread() = default;

Ref<NSThread> NSThread::mainThread() {
    static NSThread& thread = *velt::make<NSThread>(Adopted(), true).release();
    return Ref<NSThread>(&thread);
}

Ref<NSThread> NSThread::currentThread() {
    if (startedHere) return Ref<NSThread>(startedHere);
    if (isProcessesFirst()) return mainThread();
    static thread_local const Ref<NSThread> adopted = velt::make<NSThread>(Adopted(), false);
    return adopted;
}

void NSThread::sleep(double seconds) {
    if (!(seconds > 0)) return;
    constexpr double kMost = 1e9;  // some decades stand for ever
    std::this_thread::sleep_for(std::chrono::duration<double>(std::min(seconds, kMost)));
}

void NSThread::start() {
    if (started_.exchange(true)) {
        velt::raise(velt::kInvalidArgumentException, "'NSThread' start: the thread was started before");
    }
    // Counted before this returns: what it shares must not be looked at by a collection from now on.
    std::latch counted(1);
    try {
        std::thread([kept = Ref<NSThread>(this), &counted]() mutable {
            const velt::ThreadScope scope;
            counted.count_down();
            kept->run();
            kept = nullptr;
        }).detach();
    } catch (const std::system_error& failure) {
        started_ = false;
        velt::raise(velt::kInternalInconsistencyException, "'NSThread' start: " + failure.code().message());
    }
    counted.wait();
}

void NSThread::run() noexcept {
    startedHere = this;
    state_ = State::Executing;
    showName(name());
    if (!cancelled_ && !target_.isNil()) {
        try {
            if (selector_.argumentCount() == 0) {
                velt::send(target_, selector_);
            } else {
                velt::send(target_, selector_, argument_);
            }
        } catch (...) {
            velt::endWithCurrentException();
        }
    }
    target_ = nil;
    argument_ = nil;
    startedHere = nullptr;
    state_ = State::Finished;
}

id NSThread::name() const {
    const std::lock_guard lock(mutex_);
    return name_;
}

void NSThread::setName(const id& name) {
    const id text = VELT_CSTRING(name);
    {
        const std::lock_guard lock(mutex_);
        name_ = text;
    }
    // The first thread's name is the process's.
    if (startedHere == this) showName(text);
}

void NSThread::describe(velt::ClassBuilder<NSThread>& c) {
    c.property("isExecuting", &NSThread::isExecuting)
        .property("isFinished", &NSThread::isFinished)
        .property("isCancelled", &NSThread::isCancelled)
        .property("isMainThread", &NSThread::isMainThread)
        .property("name", &NSThread::name, &NSThread::setName)
        .method("start", &NSThread::start)
        .method("cancel", &NSThread::cancel)
        .method("initWithTarget:selector:object:",
                [](const id&, const id* a) {
                    return id(velt::make<NSThread>(a[0], Selector::named(velt::utf8(VELT_CSTRING(a[1]))), a[2]));
                })
        .classMethod("currentThread", [](const id&, const id*) { return id(currentThread()); })
        .classMethod("mainThread", [](const id&, const id*) { return id(mainThread()); })
        .classMethod("isMainThread", [](const id&, const id*) { return velt::boxResult(isProcessesFirst()); })
        .classMethod("sleepForTimeInterval:",
                     [](const id&, const id* a) {
                         sleep(VELT_CDOUBLE(a[0]));
                         return id();
                     })
        .classMethod("sleepUntilDate:",
                     [](const id&, const id* a) {
                         if (!velt::is<NSDate>(a[0])) velt::raiseClassExpected(NSDate::entry());
                         sleep(velt::as<NSDate>(a[0])->timeIntervalSinceDate(NSDate::now().get()));
                         return id();
                     })
        .classMethod("detachNewThreadSelector:toTarget:withObject:",
                     [](const id&, const id* a) {
                         const Selector selector = Selector::named(velt::utf8(VELT_CSTRING(a[0])));
                         velt::make<NSThread>(a[1], selector, a[2])->start();
                         return id();
                     })
        .owns(&NSThread::target_)
        .owns(&NSThread::argument_);
}
