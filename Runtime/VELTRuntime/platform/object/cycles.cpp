#include "VELTRuntime/platform/object/cycles.h"

#include "VELTRuntime/platform/object/attached_table.h"
#include "VELTRuntime/platform/object/ownership.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace velt {

namespace {

enum class Colour : std::uint64_t { Black, Gray, White, Garbage };

/// Places in the candidate list are 23 bits of the head; what finds the list full is noted again at a later drop.
constexpr std::size_t kMostCandidates = (std::size_t{1} << 23) - 2;
constexpr std::size_t kLeastThreshold = 10'000;

struct Collector {
    std::mutex mutex;
    std::vector<NSObject*> candidates;
    std::size_t threshold = kLeastThreshold;
    unsigned threads = 0;  // attached threads, the one that collects included
    bool collecting = false;
    bool stress = false;
};

Collector& collector() {
    static Collector& instance = *new Collector;  // threads may drop values after static destruction
    return instance;
}

constinit thread_local unsigned attachments = 0;
constinit thread_local bool isPaused = false;

void attach() {
    if (attachments++ > 0) return;
    const std::lock_guard lock(collector().mutex);
    ++collector().threads;
}

void detach() {
    if (--attachments > 0) return;
    const std::lock_guard lock(collector().mutex);
    --collector().threads;
}

/// Attaches the calling thread until it ends.
void attachForGood() {
    struct Attachment {
        Attachment() { attach(); }
        ~Attachment() { detach(); }
    };
    static thread_local Attachment attachment;
    (void)attachment;
}

std::uint64_t headOf(NSObject* object) { return HeadAccess::of(object).load(std::memory_order_relaxed); }
void setHead(NSObject* object, std::uint64_t head) { HeadAccess::of(object).store(head, std::memory_order_relaxed); }

std::size_t placeOf(NSObject* object) { return (headOf(object) & ObjectHead::kPlaceMask) >> ObjectHead::kPlaceShift; }

/// Other threads may count owners of the same object meanwhile.
void setPlace(NSObject* object, std::size_t place) {
    auto& head = HeadAccess::of(object);
    std::uint64_t seen = head.load(std::memory_order_relaxed);
    while (!head.compare_exchange_weak(
        seen, (seen & ~ObjectHead::kPlaceMask) | static_cast<std::uint64_t>(place) << ObjectHead::kPlaceShift,
        std::memory_order_relaxed)) {
    }
}

// The rest runs while no other thread touches values, so plain loads and stores of the head do.

Colour colourOf(NSObject* object) {
    return static_cast<Colour>((headOf(object) & ObjectHead::kColourMask) >> ObjectHead::kColourShift);
}
void paint(NSObject* object, Colour colour) {
    setHead(object, (headOf(object) & ~ObjectHead::kColourMask) | static_cast<std::uint64_t>(colour)
                                                                      << ObjectHead::kColourShift);
}
void addOwner(NSObject* object) { setHead(object, headOf(object) + ObjectHead::kOneOwner); }
void subtractOwner(NSObject* object) { setHead(object, headOf(object) - ObjectHead::kOneOwner); }

/// Calls a function with every non-leaf object that the object owns.
template <class F> void forEachOwned(NSObject* object, F&& function) {
    struct Visitor final : OwnedVisitor {
        using OwnedVisitor::visit;
        explicit Visitor(F& f) : function(f) {}
        void visit(id& value) override {
            NSObject* owned = value.object();
            if (owned && !isLeaf(owned->kind())) function(owned);
        }
        F& function;
    } visitor(function);
    object->visitOwned(visitor);
    if (object->isAttached()) visitAttached(object, visitor);
}

struct EmptyingVisitor final : OwnedVisitor {
    using OwnedVisitor::visit;
    void visit(id& value) override {
        if (value.isObject() && !isLeaf(value.object()->kind())) value = nil;
    }
};

/// One run of the algorithm. Work lists instead of recursion: a cycle may have a million objects.
class Trial {
public:
    explicit Trial(std::vector<NSObject*> roots) : roots_(std::move(roots)) {}

    std::size_t visited() const { return visited_; }

    void markRoots() {
        for (NSObject* root : roots_) {
            if (colourOf(root) == Colour::Gray) continue;
            toGray(root);
            while (!work_.empty()) {
                forEachOwned(pop(), [this](NSObject* owned) {
                    subtractOwner(owned);
                    if (colourOf(owned) != Colour::Gray) toGray(owned);
                });
            }
        }
    }

    void scanRoots() {
        for (NSObject* root : roots_) {
            work_.push_back(root);
            while (!work_.empty()) {
                NSObject* object = pop();
                if (colourOf(object) != Colour::Gray) continue;
                if (object->ownerCount() > 0) {
                    restore(object);
                } else {
                    paint(object, Colour::White);
                    forEachOwned(object, [this](NSObject* owned) { work_.push_back(owned); });
                }
            }
        }
    }

    /// Takes the white objects, with true owner counts again and one owner more: the list.
    std::vector<id> takeWhite() {
        std::vector<NSObject*> garbage;
        for (NSObject* root : roots_) {
            work_.push_back(root);
            while (!work_.empty()) {
                NSObject* object = pop();
                if (colourOf(object) != Colour::White) continue;
                paint(object, Colour::Garbage);
                garbage.push_back(object);
                forEachOwned(object, [this](NSObject* owned) { work_.push_back(owned); });
            }
        }
        std::vector<id> owners;
        owners.reserve(garbage.size());
        for (NSObject* object : garbage) {
            forEachOwned(object, [](NSObject* owned) { addOwner(owned); });
            paint(object, Colour::Black);
            owners.push_back(id(object));
        }
        return owners;
    }

private:
    NSObject* pop() {
        NSObject* object = work_.back();
        work_.pop_back();
        return object;
    }
    void toGray(NSObject* object) {
        paint(object, Colour::Gray);
        work_.push_back(object);
        ++visited_;
    }
    /// Gives back the references that trial deletion took from everything an object in use reaches.
    void restore(NSObject* inUse) {
        std::vector<NSObject*> pending{inUse};
        paint(inUse, Colour::Black);
        while (!pending.empty()) {
            NSObject* object = pending.back();
            pending.pop_back();
            forEachOwned(object, [&pending](NSObject* owned) {
                addOwner(owned);
                if (colourOf(owned) != Colour::Black) {
                    paint(owned, Colour::Black);
                    pending.push_back(owned);
                }
            });
        }
    }

    std::vector<NSObject*> roots_;
    std::vector<NSObject*> work_;
    std::size_t visited_ = 0;
};

/// When little was freed of much, candidates are mostly in use and the next run should wait for more of them.
std::size_t adaptedThreshold(std::size_t threshold, std::size_t freed, std::size_t visited) {
    if (freed * 2 >= visited) return kLeastThreshold;
    if (freed * 8 >= visited) return std::max(kLeastThreshold, threshold / 2);
    return visited < threshold ? threshold : std::min(threshold * 2, kMostCandidates);
}

}  // namespace

std::size_t collectCycles() {
    Collector& all = collector();
    std::vector<id> garbage;
    {
        const std::unique_lock lock(all.mutex);
        const unsigned own = attachments > 0 ? 1 : 0;
        if (all.collecting || all.threads > own || all.candidates.empty()) return 0;
        all.collecting = true;
        std::vector<NSObject*> roots;
        roots.swap(all.candidates);
        for (NSObject* root : roots) setPlace(root, 0);
        Trial trial(std::move(roots));
        trial.markRoots();
        trial.scanRoots();
        garbage = trial.takeWhite();
        all.threshold = adaptedThreshold(all.threshold, garbage.size(), trial.visited());
    }
    const std::size_t freed = garbage.size();
    for (const id& object : garbage) object.object()->dissolve();
    EmptyingVisitor emptying;
    for (const id& object : garbage) {
        object.object()->visitOwned(emptying);
        if (object.object()->isAttached()) visitAttached(object.object(), emptying);
    }
    garbage.clear();
    const std::lock_guard lock(all.mutex);
    all.collecting = false;
    return freed;
}

void releaseCycleCandidate(NSObject* object) noexcept {
    attachForGood();
    Collector& all = collector();
    bool due = false;
    {
        // Noted while this owner still keeps the object alive; afterwards another thread may free it.
        const std::lock_guard lock(all.mutex);
        const bool noted = placeOf(object) != 0 || (headOf(object) & ObjectHead::kDestroying);
        if (!noted && all.candidates.size() < kMostCandidates) {
            all.candidates.push_back(object);
            setPlace(object, all.candidates.size());
            due = !all.collecting && (all.stress || (!isPaused && all.candidates.size() >= all.threshold));
        }
    }
    if (dropOwner(object)) destroyObject(object);
    if (due) collectCycles();
}

void forgetCycleCandidate(NSObject* object) noexcept {
    Collector& all = collector();
    const std::lock_guard lock(all.mutex);
    const std::size_t place = placeOf(object);
    if (place == 0) return;
    NSObject* last = all.candidates.back();
    all.candidates[place - 1] = last;
    all.candidates.pop_back();
    if (last != object) setPlace(last, place);
    setPlace(object, 0);
}

std::size_t cycleCandidateCount() {
    const std::lock_guard lock(collector().mutex);
    return collector().candidates.size();
}

void setCycleStress(bool on) {
    const std::lock_guard lock(collector().mutex);
    collector().stress = on;
}

CollectionPause::CollectionPause(bool paused) : before_(std::exchange(isPaused, paused)) {}
CollectionPause::~CollectionPause() { isPaused = before_; }

ThreadScope::ThreadScope() { attach(); }
ThreadScope::~ThreadScope() { detach(); }

}  // namespace velt
