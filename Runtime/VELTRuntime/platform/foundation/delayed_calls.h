// Functions that wait for their time: a heap of deadlines over slots that hold the functions. A million of them cost a
// few dozen nanoseconds each to add and to take.
#pragma once

#include "VELTRuntime/export.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

namespace velt {

/// The clock that deadlines are read on; it never goes back.
using LoopClock = std::chrono::steady_clock;
using LoopTime = LoopClock::time_point;

/// A number that calls share so that they can be cancelled together; 0 is shared by nobody.
using CallGroup = std::uint64_t;

/// Waiting functions in the order of their deadlines, and of their adding where deadlines are equal. Functions that are
/// taken out are handed to the caller, who drops them where it suits him: what they hold may run code when it goes.
class VELT_EXPORT DelayedCalls {
public:
    using Function = std::function<void()>;
    struct Ticket {
        std::uint32_t slot = 0;
        std::uint32_t generation = 0;
    };

    Ticket add(LoopTime due, std::uint64_t order, Function function, CallGroup group);
    /// The waiting function of a ticket, which does not run any more; empty when it has run or was cancelled.
    Function cancel(Ticket ticket);
    std::vector<Function> cancelAll(CallGroup group);
    bool isWaiting(Ticket ticket) const;
    std::size_t size() const { return waiting_; }

    /// The first deadline.
    std::optional<LoopTime> earliest();
    /// Takes the next function whose deadline has come and whose order is below a limit; empty when there is none.
    Function takeDue(LoopTime now, std::uint64_t orderLimit);

private:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;
    struct Deadline {
        LoopTime due;
        std::uint64_t order;
        Ticket ticket;
    };
    struct Slot {
        Function function;
        CallGroup group = 0;
        std::uint32_t generation = 1;  // tells the function that waits here from those before
        std::uint32_t before = kNone;  // neighbours in the group; `after` also links free slots
        std::uint32_t after = kNone;
    };
    static bool later(const Deadline& a, const Deadline& b) {
        return a.due != b.due ? a.due > b.due : a.order > b.order;
    }
    Function takeSlot(std::uint32_t slot);
    void dropStale();

    std::vector<Deadline> heap_;  // cancelled ones stay until they come up or are too many
    std::vector<Slot> slots_;
    std::unordered_map<CallGroup, std::uint32_t> groups_;  // the first slot of each
    std::uint32_t free_ = kNone;
    std::size_t waiting_ = 0;
};

}  // namespace velt
