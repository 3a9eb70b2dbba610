#include "VELTRuntime/platform/object/observation.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/string.h"

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
                note(object, kElements, false);
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
    /// False when the place is known already: keys that follow from each other.
    bool note(const id& object, std::string_view key, bool isEnd) {
        for (const FoundPlace& place : places) {
            if (place.object == object && place.key == key && place.isEnd == isEnd) return false;
        }
        places.push_back({object, std::string(key), isEnd});
        return true;
    }

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
    if (!news.oldValue.isNil()) change->setObject(news.oldValue, "old"_v);
    if (!news.newValue.isNil()) change->setObject(news.newValue, "new"_v);
    send(observer, VELT_SELECTOR("observeValueForKeyPath:ofObject:change:context:"), observation.keyPathText, root,
         change, observation.context);
}

}  // namespace velt
