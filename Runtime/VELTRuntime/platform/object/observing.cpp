#include "VELTRuntime/platform/object/observing.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/departures.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/platform/object/observation.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {

/// One observer who has to hear of a change, kept until it has.
struct Notice {
    ObservationRef observation;
    id observer, root;
    bool isEnd;
    id oldValue;
};

struct PendingChange {
    id object;
    std::string key;
    ChangeKind kind;
    NSRange range;
    unsigned nested = 0;
    std::vector<Notice> notices;
};

/// The changes under way on this thread, inner ones last.
thread_local std::vector<std::unique_ptr<PendingChange>> pendingChanges;

PendingChange* pendingChange(const NSObject& object, std::string_view key) {
    for (auto it = pendingChanges.rbegin(); it != pendingChanges.rend(); ++it) {
        if ((*it)->object.object() == &object && (*it)->key == key) return it->get();
    }
    return nullptr;
}

std::unique_ptr<PendingChange> takePendingChange(const NSObject& object, std::string_view key) {
    for (std::size_t i = pendingChanges.size(); i-- > 0;) {
        if (pendingChanges[i]->object.object() != &object || pendingChanges[i]->key != key) continue;
        std::unique_ptr<PendingChange> taken = std::move(pendingChanges[i]);
        pendingChanges.erase(pendingChanges.begin() + static_cast<std::ptrdiff_t>(i));
        return taken;
    }
    return nullptr;
}

std::vector<Notice> noticesFor(NSObject& object, const std::string& key) {
    std::vector<Notice> notices;
    AttachedTable& table = AttachedTable::shared();
    const std::lock_guard lock(table.mutex());
    const Attached* row = table.find(&object);
    if (!row) return notices;
    const auto watches = row->watches.find(key);
    if (watches == row->watches.end()) return notices;
    notices.reserve(watches->second.size());
    for (const auto& [serial, watch] : watches->second) {
        const Observation& observation = *watch.observation;
        notices.push_back(
            {watch.observation, shareIfAlive(observation.observer), shareIfAlive(observation.root), watch.isEnd, nil});
    }
    return notices;
}

bool hasSides(const Notice& notice) { return !notice.observer.isNil() && !notice.root.isNil(); }

/// The change as this observer sees it: of elements only when the observed value is their array.
ChangeNews newsOf(const PendingChange& change, const Notice& notice) {
    ChangeNews news;
    if (notice.isEnd) {
        news.kind = change.kind;
        news.range = change.range;
    }
    news.oldValue = notice.oldValue;
    return news;
}

id elementsIn(const id& value, NSRange range) {
    const NSArray* array = arrayOf(value);
    if (!array || range.location > array->count()) return nil;
    const std::size_t length = std::min<std::size_t>(range.length, array->count() - range.location);
    return make<NSMutableArray>(array->items().subspan(range.location, length));
}

/// The observed value or, for a change of elements, those that change.
id observedValue(const Notice& notice, const ChangeNews& news) {
    const id value = valueForKeyPath(notice.root, notice.observation->keyPath);
    return news.kind == ChangeKind::Setting ? value : elementsIn(value, news.range);
}

void tellBefore(PendingChange& change) {
    for (Notice& notice : change.notices) {
        if (!hasSides(notice)) continue;
        ChangeNews news = newsOf(change, notice);
        if ((notice.observation->options & kObserveOld) && news.kind != ChangeKind::Insertion) {
            notice.oldValue = news.oldValue = observedValue(notice, news);
        }
        if (notice.observation->options & kObservePrior) {
            news.isPrior = true;
            deliver(*notice.observation, notice.observer, notice.root, news);
        }
    }
}

void tellAfter(const PendingChange& change) {
    for (const Notice& notice : change.notices) {
        if (!hasSides(notice) || !notice.observation->isActive) continue;
        ChangeNews news = newsOf(change, notice);
        const Observation& observation = *notice.observation;
        const bool isSingleKey = observation.isSingleKey;
        if (isSingleKey && hasValueForKey(notice.root, observation.keyPath))
            news.newValue = observedValue(notice, news);
        const bool mayHaveMoved = !isSingleKey || mutableArrayOf(news.newValue);
        if (news.kind == ChangeKind::Setting && mayHaveMoved) followPath(notice.observation, notice.root);
        if (!(observation.options & kObserveNew) || news.kind == ChangeKind::Removal) {
            news.newValue = nil;
        } else if (!isSingleKey) {
            news.newValue = observedValue(notice, news);
        }
        deliver(observation, notice.observer, notice.root, news);
    }
}

void beginChange(NSObject& object, std::string_view key, ChangeKind kind, NSRange range) {
    if (PendingChange* outer = pendingChange(object, key)) {
        ++outer->nested;
        return;
    }
    auto change = std::make_unique<PendingChange>(PendingChange{id(&object), std::string(key), kind, range, 0, {}});
    change->notices = noticesFor(object, change->key);
    PendingChange& entered = *pendingChanges.emplace_back(std::move(change));
    try {
        tellBefore(entered);
    } catch (...) {
        takePendingChange(object, key);
        throw;
    }
}

void endChange(NSObject& object, std::string_view key) {
    PendingChange* pending = pendingChange(object, key);
    if (!pending) return;  // nobody observed when the change began
    if (pending->nested > 0) {
        --pending->nested;
        return;
    }
    const std::unique_ptr<PendingChange> change = takePendingChange(object, key);
    tellAfter(*change);
}

ObservationRef findObservation(const id& object, const id& observer, std::string_view keyPath, const id* context) {
    AttachedTable& table = AttachedTable::shared();
    const std::lock_guard lock(table.mutex());
    const Attached* observed = table.find(object.object());
    const Attached* observing = table.find(observer.object());
    if (!observed || !observing) return nullptr;
    const bool fewer = observed->observed.size() < observing->observing.size();
    const Attached::Observations& candidates = fewer ? observed->observed : observing->observing;
    for (auto it = candidates.rbegin(); it != candidates.rend(); ++it) {
        const ObservationRef& found = it->second;
        if (found->root == object.object() && found->observer == observer.object() && found->keyPath == keyPath &&
            !found->reaction && (!context || found->context == *context)) {
            return found;
        }
    }
    return nullptr;
}

/// The receiver of a change message; numbers and strings have no observers.
template <class F> id onObject(const id& self, F&& function) {
    if (NSObject* object = self.object()) function(*object);
    return nil;
}

ChangeKind changeKind(const id& value) {
    const long kind = VELT_CINTEGER(value);
    if (kind < 1 || kind > 4) raise(kInvalidArgumentException, std::to_string(kind) + " is no kind of change");
    return static_cast<ChangeKind>(kind);
}

id unhandledChange(const id& self, const id* a) {
    raise(kInternalInconsistencyException, quotedClassName(self) + " heard of a change of '" + keyText(a[0]) + "' of " +
                                               quotedClassName(a[1]) + " and does not handle it");
}

}  // namespace

void addObserver(const id& object, const id& observer, std::string_view keyPath, unsigned options, const id& context) {
    requireObservable(object, "be observed");
    requireObservable(observer, "observe");
    const auto observation = std::make_shared<Observation>(object.object(), observer.object(), keyPath, options);
    observation->context = context;
    beginObservation(observation, object);
    if (!(options & kObserveInitial)) return;
    ChangeNews news;
    news.isInitial = true;
    if (options & kObserveNew) news.newValue = valueForKeyPath(object, keyPath);
    deliver(*observation, observer, object, news);
}

void removeObserver(const id& object, const id& observer, std::string_view keyPath, const id* context) {
    const ObservationRef observation = findObservation(object, observer, keyPath, context);
    if (!observation) {
        raise(kRangeException, quotedClassName(observer) + " does not observe '" + std::string(keyPath) + "' of " +
                                   quotedClassName(object));
    }
    const std::lock_guard lock(AttachedTable::shared().mutex());
    endObservation(observation);
}

void willChangeValue(NSObject& object, std::string_view key) {
    if (object.isAttached()) beginChange(object, key, ChangeKind::Setting, {});
}

void willChangeElements(NSObject& object, std::string_view key, ChangeKind kind, NSRange range) {
    if (object.isAttached()) beginChange(object, key, kind, range);
}

void didChangeValue(NSObject& object, std::string_view key) { endChange(object, key); }

ObservedChange::ObservedChange(NSObject& object, std::string_view key, ChangeKind kind, NSRange range)
    : object_(object), key_(key) {
    beginChange(object, key, kind, range);
}

ObservedChange::~ObservedChange() {
    if (finished_) return;
    PendingChange* pending = pendingChange(object_, key_);
    if (!pending) return;
    if (pending->nested > 0) {
        --pending->nested;
    } else {
        takePendingChange(object_, key_);
    }
}

void ObservedChange::finish() {
    finished_ = true;
    endChange(object_, key_);
}

id mutableArrayForKey(const id& object, std::string_view key) {
    id value = valueForKey(object, key);
    if (object.isNil() || mutableArrayOf(value)) return value;
    Ref<NSMutableArray> array = make<NSMutableArray>();
    if (const NSArray* elements = to<NSArray>(value)) array->appendAll(*elements);
    id made = array;
    setValueForKey(object, key, made);
    return made;
}

void describeKeyValueObserving(ClassBuilder<NSObject>& c) {
    c.method("addObserver:forKeyPath:options:context:",
             [](const id& self, const id* a) {
                 addObserver(self, a[0], keyText(a[1]), static_cast<unsigned>(VELT_CINTEGER(a[2])), a[3]);
                 return id();
             })
        .method("removeObserver:forKeyPath:",
                [](const id& self, const id* a) {
                    removeObserver(self, a[0], keyText(a[1]));
                    return id();
                })
        .method("removeObserver:forKeyPath:context:",
                [](const id& self, const id* a) {
                    removeObserver(self, a[0], keyText(a[1]), &a[2]);
                    return id();
                })
        .method("willChangeValueForKey:",
                [](const id& self, const id* a) {
                    return onObject(self, [&](NSObject& object) { willChangeValue(object, keyText(a[0])); });
                })
        .method("didChangeValueForKey:",
                [](const id& self, const id* a) {
                    return onObject(self, [&](NSObject& object) { didChangeValue(object, keyText(a[0])); });
                })
        .method("willChange:valuesAtIndexes:forKey:",
                [](const id& self, const id* a) {
                    return onObject(self, [&](NSObject& object) {
                        willChangeElements(object, keyText(a[2]), changeKind(a[0]), VELT_CNSRANGE(a[1]));
                    });
                })
        .method("didChange:valuesAtIndexes:forKey:",
                [](const id& self, const id* a) {
                    return onObject(self, [&](NSObject& object) { didChangeValue(object, keyText(a[2])); });
                })
        .method("mutableArrayValueForKey:",
                [](const id& self, const id* a) { return mutableArrayForKey(self, keyText(a[0])); })
        .method("observeValueForKeyPath:ofObject:change:context:", unhandledChange);
}

}  // namespace velt
