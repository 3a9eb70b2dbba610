// Reclaiming dropped cycles: objects that own each other and that nobody else owns.
//
// Shared ownership frees everything but cycles. Those are found by synchronous trial deletion (Bacon and Rajan,
// 2001; after Lins, 1992) over what objects say they own:
//
//   MarkRoots  from every candidate, subtract the references that the reachable objects hold on each other (gray)
//   ScanRoots  what still has owners is used from outside: restore it and all it reaches (black); the rest is white
//   Collect    white objects only own each other: restore their counts, empty their fields, let them go
//
// A candidate is an object that lost an owner and kept others; only such an object can be the entry of a dropped
// cycle. Leaf kinds (strings, numbers, structures, data) are never candidates and are not visited.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <cstddef>

namespace velt {

/// Frees what dropped cycles hold, at once. Returns the number of objects freed. Does nothing while another thread
/// that shares values is running, while a collection is under way, or when there are no candidates.
VELT_EXPORT std::size_t collectCycles();

/// Takes an object out of the candidates; it is about to be destroyed.
void forgetCycleCandidate(NSObject* object) noexcept;

/// Number of candidates that wait for the next collection.
VELT_EXPORT std::size_t cycleCandidateCount();

/// Collects whenever an object becomes a candidate, so that tests meet every order of events.
VELT_EXPORT void setCycleStress(bool on);

/// While it exists no collection begins by itself on the calling thread; `false` lets them begin within another pause.
/// For work that makes a great many objects and drops none of them.
class VELT_EXPORT CollectionPause {
public:
    explicit CollectionPause(bool paused = true);
    ~CollectionPause();
    CollectionPause(const CollectionPause&) = delete;
    CollectionPause& operator=(const CollectionPause&) = delete;

private:
    bool before_;
};

/// A thread of the program that shares values is running while this exists on it; collections wait for its end. A
/// thread that frees an object without one is counted from then on until it ends.
class VELT_EXPORT ThreadScope {
public:
    ThreadScope();
    ~ThreadScope();
    ThreadScope(const ThreadScope&) = delete;
    ThreadScope& operator=(const ThreadScope&) = delete;
};

}  // namespace velt
