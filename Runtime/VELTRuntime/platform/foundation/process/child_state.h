// What is known of a started child, and the children whose end perhaps nobody will ask for.
#pragma once

#include "VELTRuntime/export.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>

namespace velt {

/// How a process ended.
struct ProcessEnd {
    bool bySignal = false;
    /// The exit status, or the number of the signal. -1 when another part of the program waited for the child.
    int status = 0;
};

/// A child by its descriptor, which it owns. All functions may be called from any thread.
class VELT_EXPORT ChildState {
public:
    explicit ChildState(int descriptor) : descriptor_(descriptor) {}
    ~ChildState();
    ChildState(const ChildState&) = delete;
    ChildState& operator=(const ChildState&) = delete;

    int descriptor() const { return descriptor_; }
    void closeDescriptor();
    std::optional<ProcessEnd> end();
    bool wait(int milliseconds);
    bool signal(int number);
    /// The system told nothing of it and never will.
    void setLost();

private:
    std::atomic<int> descriptor_;
    std::mutex mutex_;
    unsigned waiting_ = 0;  // threads that wait on the descriptor
    std::optional<ProcessEnd> end_;
};

/// Children that are taken from the system once they have ended, though nobody asks: whenever another one is started,
/// and at once in a program that has threads anyway. A program of one thread gets no second one for this, which would
/// make all of its reference counting dearer.
class VELT_EXPORT UncollectedChildren {
public:
    static UncollectedChildren& all();
    void add(const std::shared_ptr<ChildState>& child);
    /// Before the descriptor is closed.
    void forget(const ChildState& child, int descriptor);
    void collectEnded();

private:
    UncollectedChildren();
    void startThread();
    /// Waits at most so long for one to end; -1 is for ever.
    void collect(int milliseconds);

    const int events_;
    std::mutex mutex_;  // guards what follows; may be held when a child's own is taken, not the other way round
    std::unordered_map<const ChildState*, std::shared_ptr<ChildState>> children_;
    bool hasThread_ = false;
};

}  // namespace velt
