// Threads: a method of an object that runs beside the rest of the program.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <atomic>
#include <mutex>

/// One thread of the program. It is made stopped, runs its method once after start, and is then finished. It keeps its
/// target and argument until then. An exception that leaves the method is reported as any uncaught one, and ends the
/// process with a failure status.
class VELT_EXPORT NSThread final : public NSObject {
    VELT_OBJECT(NSThread, NSObject)
public:
    /// A thread without a method: it is finished as soon as it is started.
    NSThread();
    /// The method gets the argument when it takes one.
    NSThread(const id& target, velt::Selector selector, const id& argument);
    ~NSThread() override;

    /// The calling thread's own object; one is made for threads that were not started here.
    static velt::Ref<NSThread> currentThread();
    static velt::Ref<NSThread> mainThread();
    /// The calling thread waits; not at all for 0 and less.
    static void sleep(double seconds);

    /// Begins to run the method; a thread that was cancelled before finishes without it. Raises
    /// "NSInvalidArgumentException" when it was started before, "NSInternalInconsistencyException" when the system has
    /// no room for one more; then it may be tried again.
    void start();
    /// Asks the thread to end. Its method does so itself, when it looks at isCancelled.
    void cancel() { cancelled_ = true; }
    /// The method is running; for the main thread always.
    bool isExecuting() const { return state_ == State::Executing; }
    bool isFinished() const { return state_ == State::Finished; }
    bool isCancelled() const { return cancelled_; }
    bool isMainThread() const { return isMain_; }
    /// A name for people, also shown by the system's tools; empty unless set.
    id name() const;
    void setName(const id& name);
    static void describe(velt::ClassBuilder<NSThread>& c);

private:
    enum class State { Ready, Executing, Finished };
    struct Adopted {};
    explicit NSThread(Adopted, bool isMain);
    template <class T, class... Args> friend velt::Ref<T> velt::make(Args&&... args);
    void run() noexcept;

    std::atomic<State> state_ = State::Ready;
    std::atomic<bool> started_ = false, cancelled_ = false;
    const bool isMain_ = false;
    velt::Selector selector_;
    id target_, argument_;
    mutable std::mutex mutex_;  // guards the name
    id name_;
};
