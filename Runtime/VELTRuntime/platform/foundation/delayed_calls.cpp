#include "VELTRuntime/platform/foundation/delayed_calls.h"

#include <algorithm>
#include <utility>

namespace velt {

DelayedCalls::Ticket DelayedCalls::add(LoopTime due, std::uint64_t order, Function function, CallGroup group) {
    std::uint32_t place = free_;
    if (place == kNone) {
        place = static_cast<std::uint32_t>(slots_.size());
        slots_.emplace_back();
    } else {
        free_ = slots_[place].after;
    }
    Slot& slot = slots_[place];
    slot.function = std::move(function);
    slot.group = group;
    slot.before = slot.after = kNone;
    if (group) {
        const auto [first, isNew] = groups_.try_emplace(group, place);
        if (!isNew) {
            slot.after = std::exchange(first->second, place);
            slots_[slot.after].before = place;
        }
    }
    const Ticket ticket{place, slot.generation};
    heap_.push_back({due, order, ticket});
    std::push_heap(heap_.begin(), heap_.end(), later);
    ++waiting_;
    return ticket;
}

bool DelayedCalls::isWaiting(Ticket ticket) const {
    return ticket.slot < slots_.size() && slots_[ticket.slot].generation == ticket.generation;
}

DelayedCalls::Function DelayedCalls::takeSlot(std::uint32_t place) {
    Slot& slot = slots_[place];
    if (slot.group) {
        if (slot.after != kNone) slots_[slot.after].before = slot.before;
        if (slot.before != kNone) {
            slots_[slot.before].after = slot.after;
        } else if (slot.after != kNone) {
            groups_[slot.group] = slot.after;
        } else {
            groups_.erase(slot.group);
        }
    }
    Function function = std::exchange(slot.function, nullptr);
    ++slot.generation;
    slot.after = std::exchange(free_, place);
    --waiting_;
    return function;
}

DelayedCalls::Function DelayedCalls::cancel(Ticket ticket) {
    if (!isWaiting(ticket)) return nullptr;
    Function function = takeSlot(ticket.slot);
    dropStale();
    return function;
}

std::vector<DelayedCalls::Function> DelayedCalls::cancelAll(CallGroup group) {
    std::vector<Function> cancelled;
    for (auto first = groups_.find(group); first != groups_.end(); first = groups_.find(group)) {
        cancelled.push_back(takeSlot(first->second));
    }
    dropStale();
    return cancelled;
}

void DelayedCalls::dropStale() {
    if (heap_.size() < 64 || heap_.size() < 2 * waiting_) return;
    std::erase_if(heap_, [this](const Deadline& deadline) { return !isWaiting(deadline.ticket); });
    std::make_heap(heap_.begin(), heap_.end(), later);
}

std::optional<LoopTime> DelayedCalls::earliest() {
    while (!heap_.empty()) {
        if (isWaiting(heap_.front().ticket)) return heap_.front().due;
        std::pop_heap(heap_.begin(), heap_.end(), later);
        heap_.pop_back();
    }
    return std::nullopt;
}

DelayedCalls::Function DelayedCalls::takeDue(LoopTime now, std::uint64_t orderLimit) {
    const auto due = earliest();
    if (!due || *due > now || heap_.front().order >= orderLimit) return nullptr;
    const Ticket ticket = heap_.front().ticket;
    std::pop_heap(heap_.begin(), heap_.end(), later);
    heap_.pop_back();
    return takeSlot(ticket.slot);
}

}  // namespace velt
