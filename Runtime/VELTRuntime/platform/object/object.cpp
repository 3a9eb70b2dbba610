#include "VELTRuntime/platform/object/object.h"

#include "VELTRuntime/platform/object/attached_table.h"
#include "VELTRuntime/platform/object/class_object.h"
#include "VELTRuntime/platform/object/cycles.h"
#include "VELTRuntime/platform/object/departures.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/platform/object/observing.h"
#include "VELTRuntime/platform/object/ownership.h"
#include "VELTRuntime/platform/object/value_binding.h"
#include "VELTRuntime/values/string.h"

#include <cstdio>

velt::Class& NSObject::entry() {
    static velt::Class& cls = velt::declareClass<NSObject>("NSObject", nullptr);
    return cls;
}

velt::Class& NSObject::isa() const { return entry(); }

id NSObject::description() const {
    char address[32];
    std::snprintf(address, sizeof address, " %p>", static_cast<const void*>(this));
    return velt::string("<" + isa().name() + address);
}

bool NSObject::isEqual(const id& other) const { return other.object() == this; }

std::size_t NSObject::hash() const { return reinterpret_cast<std::size_t>(this) >> 4; }

id NSObject::copy() const {
    velt::raise(velt::kInvalidArgumentException, "'" + isa().name() + "' objects cannot be copied");
}

void NSObject::visitOwned(velt::OwnedVisitor& visitor) { isa().visitOwnedFields(*this, visitor); }

void NSObject::describe(velt::ClassBuilder<NSObject>& c) {
    using namespace velt;
    c.method("self", [](const id& self, const id*) { return self; })
        .method("init", [](const id& self, const id*) { return self; })
        .method("description", [](const id& self, const id*) { return velt::description(self); })
        .method("copy", [](const id& self, const id*) { return velt::copy(self); })
        .method("isEqual:", [](const id& self, const id* a) { return boxResult(velt::isEqual(self, a[0])); })
        .method("hash", [](const id& self, const id*) { return boxResult(velt::hash(self)); });
    describeReflection(c);
    describeKeyValueCoding(c);
    describeKeyValueObserving(c);
    describeValueBindings(c);
}

namespace velt {

namespace {

/// Objects that wait to be destroyed on this thread, linked through their head words: a long chain of objects that
/// own each other must not become a deep recursion.
struct DestroyQueue {
    NSObject* first = nullptr;
    bool running = false;
};
constinit thread_local DestroyQueue queue __attribute__((tls_model("initial-exec")));

constexpr unsigned kLinkShift = 8;  // an address keeps clear of kind, colour and the destroying bit

void push(NSObject* object, std::uint64_t head) {
    const auto link = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(queue.first)) << kLinkShift;
    HeadAccess::of(object).store(link | ObjectHead::kDestroying | (head & ObjectHead::kKindMask),
                                 std::memory_order_relaxed);
    queue.first = object;
}

NSObject* pop() {
    NSObject* object = queue.first;
    std::atomic<std::uint64_t>& head = HeadAccess::of(object);
    const std::uint64_t linked = head.load(std::memory_order_relaxed);
    queue.first = reinterpret_cast<NSObject*>(static_cast<std::uintptr_t>(linked >> kLinkShift) & ~std::uintptr_t{15});
    head.store(ObjectHead::kDestroying | (linked & ObjectHead::kKindMask), std::memory_order_relaxed);
    return object;
}

/// What is left of dropping an owner when it was not one of several of a leaf.
[[gnu::noinline]] void releaseFully(NSObject* object, std::uint64_t head) noexcept {
    if (VELT_LIKELY(head == (ObjectHead::kOneOwner | static_cast<std::uint64_t>(Kind::String)))) {
        delete static_cast<NSMutableString*>(object);  // nobody else can take it any more
        return;
    }
    const bool keepsOwners = head >= 2 * ObjectHead::kOneOwner;
    const bool noted = (head & ObjectHead::kPlaceMask) != 0;
    if (keepsOwners && !noted && !isLeaf(static_cast<Kind>(head & ObjectHead::kKindMask))) {
        releaseCycleCandidate(object);
    } else if (dropOwner(object)) {
        destroyObject(object);
    }
}

}  // namespace

void releaseObject(Word word) noexcept {
    NSObject* object = asObjectWord(word);
    std::atomic<std::uint64_t>& owners = HeadAccess::of(object);
    const std::uint64_t head = owners.load(std::memory_order_acquire);
    const bool keepsOwners = head >= 2 * ObjectHead::kOneOwner;
    if (keepsOwners && isLeaf(static_cast<Kind>(head & ObjectHead::kKindMask)) && __libc_single_threaded) {
        owners.store(head - ObjectHead::kOneOwner, std::memory_order_relaxed);
    } else {
        releaseFully(object, head);
    }
}

void destroyObject(NSObject* object) noexcept {
    const std::uint64_t head = HeadAccess::of(object).load(std::memory_order_relaxed);
    const auto kind = static_cast<Kind>(head & ObjectHead::kKindMask);
    // Not once more when its own destructor took and dropped a reference.
    if (VELT_UNLIKELY((head & (ObjectHead::kWatched | ObjectHead::kDestroying)) == ObjectHead::kWatched)) {
        announceDeparture(object);
    }
    if (kind == Kind::String) {
        delete static_cast<NSMutableString*>(object);  // the one class of strings: no virtual call
        return;
    }
    if (isLeaf(kind)) {
        delete object;
        return;
    }
    if (head & ObjectHead::kDestroying) return;  // its own destructor took and dropped a reference
    if (head & ObjectHead::kPlaceMask) forgetCycleCandidate(object);
    push(object, head);
    if (queue.running) return;
    queue.running = true;
    while (queue.first) delete pop();
    queue.running = false;
}

}  // namespace velt
