// Key-value observing: who asked for it hears of the changes of a value at a key path.
//
// Changes are noticed when a property is set by key or by its message "setKey:", when an array or a dictionary that is
// observed changes, and when a C++ setter says so through changeValue. Observers and observed objects do not keep each
// other alive; an observation ends when either goes.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/structures.h"

#include <string_view>

namespace velt {

/// What an observer wants to be told; joined with |.
enum ObservingOptions : unsigned {
    kObserveNew = 1,      ///< the value after the change
    kObserveOld = 2,      ///< the value before it
    kObserveInitial = 4,  ///< a first call at once
    kObservePrior = 8,    ///< a call before the change too
};

/// What happened to a value: it was set anew, or elements of an array came, went or were replaced.
enum class ChangeKind : unsigned { Setting = 1, Insertion = 2, Removal = 3, Replacement = 4 };

/// From now on the observer is sent "observeValueForKeyPath:ofObject:change:context:" for every change of the value
/// at the key path. The change is a dictionary: "kind" (a ChangeKind), "old" and "new" as asked for (the null object
/// for nil), "indexes" (the range of the elements) and, before a change, "notificationIsPrior". The context is kept and
/// handed over. Raises "NSInvalidArgumentException" when the object or the observer is nil, a number, a string or data.
VELT_EXPORT void addObserver(const id& object, const id& observer, std::string_view keyPath, unsigned options,
                             const id& context = nil);
/// Ends the latest observation of that observer, object and key path, with that context if one is given. It may be
/// called while a change is told: the observer is not called again. Raises "NSRangeException" when there is none.
VELT_EXPORT void removeObserver(const id& object, const id& observer, std::string_view keyPath,
                                const id* context = nullptr);

/// Announce a change that happens between the two calls. A change within one of the same key counts once.
VELT_EXPORT void willChangeValue(NSObject& object, std::string_view key);
VELT_EXPORT void didChangeValue(NSObject& object, std::string_view key);
/// The same for elements of the array under a key: their positions after an insertion, before a removal.
VELT_EXPORT void willChangeElements(NSObject& object, std::string_view key, ChangeKind kind, NSRange range);

/// A change under way: told before by the constructor, afterwards by finish, given up without it.
class VELT_EXPORT ObservedChange {
public:
    ObservedChange(NSObject& object, std::string_view key, ChangeKind kind = ChangeKind::Setting, NSRange range = {});
    ~ObservedChange();
    ObservedChange(const ObservedChange&) = delete;
    ObservedChange& operator=(const ObservedChange&) = delete;
    void finish();

private:
    NSObject& object_;
    std::string key_;
    bool finished_ = false;
};

/// Makes a change of the value under a key so that observers hear of it; for the setters of C++ classes.
template <class F> void changeValue(NSObject& object, std::string_view key, F&& change) {
    if (!object.isAttached()) {
        change();
        return;
    }
    ObservedChange observed(object, key);
    change();
    observed.finish();
}

/// Makes a change of an array's elements so that those hear of it who observe a property that holds the array.
template <class F> void changeElements(NSObject& array, ChangeKind kind, NSRange range, F&& change) {
    if (!array.isAttached() || range.length == 0) {
        change();
        return;
    }
    ObservedChange observed(array, "", kind, range);
    change();
    observed.finish();
}

/// The mutable array under a key, to be changed in place. What is no mutable array is replaced by one of its elements
/// first.
VELT_EXPORT id mutableArrayForKey(const id& object, std::string_view key);

/// What NSObject answers about observing.
void describeKeyValueObserving(ClassBuilder<NSObject>& c);

}  // namespace velt
