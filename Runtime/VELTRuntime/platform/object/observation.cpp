#include "VELTRuntime/platform/object/observation.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/null.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/string.h"

#include <set>
#include <tuple>

namespace velt {

namespace {

std::uint64_t nextSerial() {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

/// A place whose object is kept while the path is followed: a getter may make it for the occasion.
struct FoundPlace {
    id object;
    std::string key;
    bool isEnd;
};

class PathWalk {
public:
    explicit PathWalk(bool endsAtUnknownKey) : endsAtUnknownKey_(endsAtUnknownKey) {}

    /// Notes the places along a path, those of the keys that its keys follow from included. Only at the end of the
    /// observed path itself is a change of elements one of the observed value.
    void follow(const id& start, std::string_view keyPath, bool isObservedPath) {
        id object = start;
        for (KeyPathStep step = firstStep(keyPath); isObservable(object); step = firstStep(step.rest)) {
            const bool isLast = step.rest.empty();
            if (isArray(object)) {
                const std::size_t behind = static_cast<std::size_t>(step.key.data() - keyPath.data());
                followElements(object, step.key.starts_with('@') ? step.rest : keyPath.substr(behind));
                return;
            }
            if (!note(object, step.key, isLast && isObservedPath)) return;
            for (const std::string& affecting : classOf(object)->keyPathsAffecting(step.key)) {
                follow(object, affecting, false);
            }
            if ((isLast || endsAtUnknownKey_) && !hasValueForKey(object, step.key))
                return;  // a key that the program announces itself
            object = valueForKey(object, step.key);
            if (!isLast) continue;
            if (mutableArrayOf(object)) note(object, kElements, isObservedPath);
            return;
        }
    }

    std::vector<FoundPlace> places;

private:
    /// The elements themselves, and what each has at the rest of the path.
    void followElements(const id& array, std::string_view keyPath) {
        if (!note(array, kElements, false) || keyPath.empty()) return;
        for (std::size_t i = 0; i < arrayOf(array)->count(); ++i) {
            const id element = arrayOf(array)->items()[i];
            follow(element, keyPath, false);
        }
    }

    /// False when the place is known already: keys that follow from each other.
    bool note(const id& object, std::string_view key, bool isEnd) {
        if (!known_.emplace(object.object(), std::string(key), isEnd).second) return false;
        places.push_back({object, std::string(key), isEnd});
        return true;
    }

    std::set<std::tuple<const NSObject*, std::string, bool>> known_;

    bool endsAtUnknownKey_;
};

void leavePlaces(const ObservationRef& observation) {
    AttachedTable& table = AttachedTable::shared();
    for (const Observation::Place& place : std::exchange(observation->places, {})) {
        Attached* row = table.find(place.object);
        if (!row) continue;
        const auto watches = row->watches.find(place.key);
        if (watches == row->watches.end()) continue;
        watches->second.erase(observation->serial);
        if (watches->second.empty()) row->watches.erase(watches);
        table.tidy(place.object);
    }
}

}  // namespace

Observation::Observation(NSObject* observedRoot, NSObject* observingObject, std::string_view path, unsigned wanted)
    : serial(nextSerial()), keyPath(path), keyPathText(frozenString(path)), options(wanted), root(observedRoot),
      observer(observingObject) {}

bool isObservable(const id& object) { return object.isObject() && !isLeaf(object.object()->kind()); }

void requireObservable(const id& object, const char* role) {
    if (isObservable(object)) return;
    const std::string kind = object.isNil() ? "nil" : "a value of " + quotedClassName(object);
    raise(kInvalidArgumentException, kind + " cannot " + role);
}

void followPath(const ObservationRef& observation, const id& root) {
    PathWalk walk(observation->endsAtUnknownKey);
    walk.follow(root, observation->keyPath, true);
    observation->isSingleKey = walk.places.size() == 1 && observation->keyPath.find('.') == std::string::npos;
    std::vector<Observation::Place> places;
    for (const FoundPlace& found : walk.places) places.push_back({found.object.object(), found.key, found.isEnd});

    AttachedTable& table = AttachedTable::shared();
    const std::lock_guard lock(table.mutex());
    if (!observation->isActive || places == observation->places) return;
    leavePlaces(observation);
    for (const Observation::Place& place : places) {
        Watch& watch = table.row(place.object).watches[place.key].try_emplace(observation->serial).first->second;
        watch.observation = observation;
        watch.isEnd |= place.isEnd;
    }
    observation->places = std::move(places);
}

void beginObservation(const ObservationRef& observation, const id& root) {
    {
        AttachedTable& table = AttachedTable::shared();
        const std::lock_guard lock(table.mutex());
        table.row(observation->root).observed.emplace(observation->serial, observation);
        table.row(observation->observer).observing.emplace(observation->serial, observation);
    }
    try {
        followPath(observation, root);
    } catch (...) {
        const std::lock_guard lock(AttachedTable::shared().mutex());
        endObservation(observation);
        throw;
    }
}

void endObservation(const ObservationRef& observation) {
    if (!observation->isActive.exchange(false)) return;
    AttachedTable& table = AttachedTable::shared();
    leavePlaces(observation);
    for (NSObject* side : {observation->root, observation->observer}) {
        Attached* row = table.find(side);
        if (!row) continue;
        row->observed.erase(observation->serial);
        row->observing.erase(observation->serial);
        table.tidy(side);
    }
    observation->root = observation->observer = nullptr;
}

void deliver(const Observation& observation, const id& observer, const id& root, const ChangeNews& news) {
    if (!observation.isActive) return;
    if (observation.reaction) {
        observation.reaction(observer, root);
        return;
    }
    Ref<NSMutableDictionary> change = make<NSMutableDictionary>();
    change->setObject(VELT_ID(static_cast<unsigned long>(news.kind)), "kind"_v);
    if (news.kind != ChangeKind::Setting) change->setObject(VELT_ID(news.range), "indexes"_v);
    if (news.isPrior) change->setObject(VELT_ID(BOOL{1}), "notificationIsPrior"_v);
    const auto putValue = [&](const id& value, const id& key) {
        change->setObject(value.isNil() ? NSNull::null() : value, key);
    };
    // What the observer asked for is always there; of elements, those that there are before or after the change.
    const bool isSetting = news.kind == ChangeKind::Setting;
    const bool hasOld = isSetting && (observation.options & kObserveOld) && !news.isInitial;
    const bool hasNew = isSetting && (observation.options & kObserveNew) && !news.isPrior;
    if (hasOld || !news.oldValue.isNil()) putValue(news.oldValue, "old"_v);
    if (hasNew || !news.newValue.isNil()) putValue(news.newValue, "new"_v);
    send(observer, VELT_SELECTOR("observeValueForKeyPath:ofObject:change:context:"), observation.keyPathText, root,
         change, observation.context);
}

}  // namespace velt
