// The counting of owners behind values, for the parts of the object system that free objects.
#pragma once

#include "VELTRuntime/platform/object/object.h"

namespace velt {

/// Counts one owner less; true when that was the last one.
inline bool dropOwner(NSObject* object) noexcept {
    std::atomic<std::uint64_t>& head = HeadAccess::of(object);
    if (VELT_LIKELY(__libc_single_threaded)) {
        const std::uint64_t left = head.load(std::memory_order_relaxed) - ObjectHead::kOneOwner;
        head.store(left, std::memory_order_relaxed);
        return left < ObjectHead::kOneOwner;
    }
    return head.fetch_sub(ObjectHead::kOneOwner, std::memory_order_acq_rel) < 2 * ObjectHead::kOneOwner;
}

/// Frees an object whose last owner has gone.
void destroyObject(NSObject* object) noexcept;

/// Takes an owner from an object that keeps others and may therefore hang in a dropped cycle: notes it as a
/// candidate first, and collects when enough of them have gathered.
void releaseCycleCandidate(NSObject* object) noexcept;

}  // namespace velt
