#include "VELTRuntime/platform/object/departures.h"

#include <array>

namespace velt {

namespace {

/// Few parts of the library watch, and they are never taken out: a fixed list that is read without a lock.
constexpr std::size_t kMostHandlers = 8;
constinit std::array<std::atomic<DepartureHandler>, kMostHandlers> handlers{};

}  // namespace

void addDepartureHandler(DepartureHandler handler) {
    for (auto& place : handlers) {
        DepartureHandler expected = nullptr;
        if (place.compare_exchange_strong(expected, handler, std::memory_order_acq_rel)) return;
        if (expected == handler) return;
    }
    assert(!"more departure handlers than places");
}

void watchDeparture(NSObject* object) noexcept {
    HeadAccess::of(object).fetch_or(ObjectHead::kWatched, std::memory_order_relaxed);
}

id shareIfAlive(NSObject* object) noexcept {
    if (!object) return nil;
    std::atomic<std::uint64_t>& head = HeadAccess::of(object);
    std::uint64_t seen = head.load(std::memory_order_relaxed);
    do {
        if ((seen & ObjectHead::kDestroying) || seen < ObjectHead::kOneOwner) return nil;
    } while (!head.compare_exchange_weak(seen, seen + ObjectHead::kOneOwner, std::memory_order_acq_rel));
    return id::adopt(objectWord(object));
}

void announceDeparture(NSObject* object) noexcept {
    for (const auto& place : handlers) {
        const DepartureHandler handler = place.load(std::memory_order_acquire);
        if (!handler) return;
        handler(object);
    }
}

}  // namespace velt
