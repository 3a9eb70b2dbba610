// What hangs on objects without living in them: who observes them, whom they observe, their bindings. Kept in one
// table, so that an object which nobody observes pays a bit of its head word and nothing else.
//
// Nothing here keeps an observed object or an observer alive. An object's row goes when the object is destroyed; until
// then the pointers of all rows are good while the table's lock is held, and an object is taken out of the table with
// shareIfAlive, since its last owner may just have gone on another thread.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace velt {

struct Observation;
class ValueBinding;

/// A place where a change touches an observation.
struct Watch {
    std::shared_ptr<Observation> observation;
    bool isEnd;  // the place is the end of the observed path, so that a change of elements is one of the observed value
};

/// The row of one object.
struct Attached {
    using Watches = std::map<std::uint64_t, Watch>;  // by serial number: in the order of registration
    using Observations = std::map<std::uint64_t, std::shared_ptr<Observation>>;

    std::unordered_map<std::string, Watches> watches;  // by key; kElements for the elements of an array
    Observations observed;                             // of paths that begin at this object
    Observations observing;                            // whose observer is this object
    std::map<std::string, std::shared_ptr<ValueBinding>, std::less<>> bindings;

    bool isEmpty() const { return watches.empty() && observed.empty() && observing.empty() && bindings.empty(); }
};

/// Stands for the elements of an array where a key would be.
inline constexpr std::string_view kElements = "";

/// The table. Its functions are called with the lock held. Values are not dropped under it: their ends may come back.
class AttachedTable {
public:
    static AttachedTable& shared();

    std::mutex& mutex() { return mutex_; }
    Attached* find(NSObject* object);
    /// The object's row, made when there is none.
    Attached& row(NSObject* object);
    /// Drops a row that holds nothing any more.
    void tidy(NSObject* object);
    std::optional<Attached> take(NSObject* object);

private:
    std::mutex mutex_;
    std::unordered_map<NSObject*, Attached> rows_;
};

/// Ends all that hangs on an object which is about to be destroyed.
void forgetAttached(NSObject* object) noexcept;

/// Shows the visitor the values that what hangs on the object owns.
void visitAttached(NSObject* object, OwnedVisitor& visitor);

}  // namespace velt
