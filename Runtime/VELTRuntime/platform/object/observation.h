// One observation: an observer, an object, a key path, and the places where changes touch it.
#pragma once

#include "VELTRuntime/platform/object/attached_table.h"
#include "VELTRuntime/platform/object/observing.h"

namespace velt {

/// What an observer is told.
struct ChangeNews {
    ChangeKind kind = ChangeKind::Setting;
    NSRange range;
    bool isPrior = false, isInitial = false;
    id oldValue, newValue;
};

struct Observation {
    /// Called in place of the observer's message, when there is one.
    using Reaction = std::function<void(const id& observer, const id& root)>;

    Observation(NSObject* observedRoot, NSObject* observingObject, std::string_view path, unsigned wanted);

    struct Place {
        NSObject* object;
        std::string key;
        bool isEnd;
        friend bool operator==(const Place&, const Place&) = default;
    };

    const std::uint64_t serial;
    const std::string keyPath;
    const id keyPathText;
    const unsigned options;
    id context;
    Reaction reaction;
    std::weak_ptr<ValueBinding> binding;
    /// A key that an object on the way does not have ends the path there instead of raising.
    bool endsAtUnknownKey = false;
    std::atomic<bool> isActive{true};
    /// The path is one key that follows from no other and held no array that may change when it was last followed.
    std::atomic<bool> isSingleKey{false};

    // Guarded by the table's lock.
    NSObject* root;
    NSObject* observer;
    std::vector<Place> places;
};

using ObservationRef = std::shared_ptr<Observation>;

/// Enters an observation: from now on changes along its path reach it.
void beginObservation(const ObservationRef& observation, const id& root);
/// Takes an observation out of all rows. With the table's lock held; the caller keeps the observation meanwhile.
void endObservation(const ObservationRef& observation);
/// Finds the places again after a change on the way. The root is the observation's.
void followPath(const ObservationRef& observation, const id& root);

/// Tells the observer, unless the observation has ended.
void deliver(const Observation& observation, const id& observer, const id& root, const ChangeNews& news);

/// Objects of these kinds change without anybody knowing and cannot be observed: numbers, strings, data, nil.
bool isObservable(const id& object);
/// Raises "NSInvalidArgumentException" for what cannot be observed: it cannot be what the role says, as "observe".
void requireObservable(const id& object, const char* role);

}  // namespace velt
