#include "VELTRuntime/platform/foundation/array.h"

#include "VELTRuntime/platform/foundation/collection_hash.h"
#include "VELTRuntime/platform/foundation/collection_operators.h"
#include "VELTRuntime/platform/foundation/collection_text.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/platform/object/observing.h"
#include "VELTRuntime/values/string.h"

velt::Class& NSArray::entry() {
    static velt::Class& cls = velt::declareClass<NSArray>("NSArray", &NSObject::entry());
    return cls;
}
velt::Class& NSMutableArray::entry() {
    static velt::Class& cls = velt::declareClass<NSMutableArray>("NSMutableArray", &NSArray::entry());
    return cls;
}

void NSArray::append(std::span<const id> values) {
    // An array may be appended to itself: the list must not move while it is read.
    const std::size_t count = values.size();
    const bool own = !values.empty() && values.data() == values_.items().data();
    values_.reserve(values_.size() + count);
    for (std::size_t i = 0; i < count; ++i) values_.append(own ? values_[i] : values[i]);
}

void NSArray::raiseOutOfRange(const char* operation, long position) const {
    velt::raiseRange("'" + isa().name() + "' " + operation, position, count());
}

id NSArray::description() const {
    const velt::DescriptionScope scope(*this);
    if (scope.isNested()) return velt::string("(...)");
    std::u16string text = u"(";
    for (const id& item : items()) {
        if (text.size() > 1) text += u", ";
        text += velt::elementText(item);
    }
    return velt::string(text + u")");
}

bool NSArray::isEqual(const id& other) const {
    const NSArray* array = velt::arrayOf(other);
    if (!array || array->count() != count()) return false;
    const velt::CollectionWalk walk(velt::CollectionWalk::Purpose::Comparison, *this, array);
    // Two that hold themselves are equal unless something else in them differs.
    if (walk.isWithinItself()) return true;
    walk.requireBearable("isEqual:", velt::kMostComparedLevels);
    for (std::size_t i = 0; i < count(); ++i) {
        if (i >= array->count()) return false;
        // A program's elements may change the arrays when they are asked.
        const id mine = values_[i], its = array->values_[i];
        if (!velt::isEqual(mine, its)) return false;
    }
    return true;
}

std::size_t NSArray::hash() const { return velt::hashOfElements(items()); }

id NSArray::copy() const {
    if (kind() == velt::Kind::Array) return id(const_cast<NSArray*>(this));
    return velt::make<NSArray>(items());
}

void NSArray::visitOwned(velt::OwnedVisitor& visitor) {
    for (id& item : values_.items()) {
        if (item.isObject()) visitor.visit(item);
    }
    NSObject::visitOwned(visitor);
}

long NSArray::indexOf(const id& value) const {
    for (std::size_t i = 0; i < count(); ++i) {
        if (velt::isEqual(values_[i], value)) return static_cast<long>(i);
    }
    return -1;
}

void NSMutableArray::raiseNilElement(const char* operation) {
    velt::raise(velt::kInvalidArgumentException,
                std::string("'NSMutableArray' ") + operation + ": nil cannot be an element");
}

void NSMutableArray::insert(const id& value, long position) {
    requireElement(value, "insertObject:atIndex:");
    if (static_cast<std::size_t>(position) > count()) raiseOutOfRange("insertObject:atIndex:", position);
    if (isAttached()) return insertObserved(value, static_cast<std::size_t>(position));
    values_.insert(static_cast<std::size_t>(position), value);
}

void NSMutableArray::insertObserved(const id& value, std::size_t position) {
    velt::changeElements(*this, velt::ChangeKind::Insertion, {position, 1}, [&] {
        // Who was told before the change may have changed the array.
        if (position > count()) raiseOutOfRange("insertObject:atIndex:", static_cast<long>(position));
        values_.insert(position, value);
    });
}

void NSMutableArray::replaceObserved(std::size_t position, const id& value) {
    id dropped;
    velt::changeElements(*this, velt::ChangeKind::Replacement, {position, 1}, [&] {
        if (position >= count()) raiseOutOfRange("replaceObjectAtIndex:withObject:", static_cast<long>(position));
        dropped = std::exchange(values_[position], value);
    });
}

void NSMutableArray::appendAll(const NSArray& other) {
    velt::changeElements(*this, velt::ChangeKind::Insertion, {count(), other.count()},
                         [&] { NSArray::append(other.items()); });
}

void NSMutableArray::remove(long position) {
    if (static_cast<std::size_t>(position) >= count()) raiseOutOfRange("removeObjectAtIndex:", position);
    id dropped;
    const auto at = static_cast<std::size_t>(position);
    velt::changeElements(*this, velt::ChangeKind::Removal, {at, 1}, [&] {
        if (at >= count()) raiseOutOfRange("removeObjectAtIndex:", position);
        dropped = values_.remove(at);
    });
}

void NSMutableArray::removeAll() {
    velt::changeElements(*this, velt::ChangeKind::Removal, {0, count()}, [&] { values_.clear(); });
}

namespace velt {

namespace {

/// An array that holds itself has no end of elements to ask. An element that asks its own array in turn has.
constexpr unsigned kMostAskedLevels = 1'000;

/// Each element's value under the key; an element without one leaves no place.
id elementValues(const id& self, std::string_view key) {
    if (key.starts_with('@')) return collectionValue(self, key, {});
    const NSArray* array = arrayOf(self);
    const CollectionWalk walk(CollectionWalk::Purpose::Values, *array);
    walk.requireBearable("valueForKey:", kMostAskedLevels);
    Ref<NSMutableArray> values = make<NSMutableArray>();
    for (std::size_t i = 0; i < array->count(); ++i) {
        const id element = array->items()[i];
        if (const id value = valueForKey(element, key)) values->append(value);
    }
    return values;
}

void setElementValues(const id& self, std::string_view key, const id& value) {
    const NSArray* array = arrayOf(self);
    const CollectionWalk walk(CollectionWalk::Purpose::Values, *array);
    walk.requireBearable("setValue:forKey:", kMostAskedLevels);
    for (std::size_t i = 0; i < array->count(); ++i) {
        const id element = array->items()[i];
        setValueForKey(element, key, value);
    }
}

}  // namespace

}  // namespace velt

/// The different elements, ordered by what they answer to "caseSensitiveCompare:".
static id sortedUnique(const id& self, const id*) {
    using namespace velt;
    const Ref<NSArray> kept(arrayOf(self));
    const Ref<NSMutableArray> different = make<NSMutableArray>();
    std::vector<id> sorted(kept->items().begin(), kept->items().end());
    std::stable_sort(sorted.begin(), sorted.end(), [](const id& a, const id& b) {
        return VELT_CINTEGER(send(a, VELT_SELECTOR("caseSensitiveCompare:"), b)) < 0;
    });
    for (const id& value : sorted) {
        if (different->count() == 0 || !isEqual(different->items().back(), value)) different->append(value);
    }
    return different;
}

void NSArray::describe(velt::ClassBuilder<NSArray>& c) {
    using namespace velt;
    c.keyAccess({elementValues, setElementValues})
        .property("count", &NSArray::count)
        .method("objectAtIndex:", &NSArray::at)
        .method("indexOfObject:", &NSArray::indexOf)
        .method("containsObject:",
                [](const id& self, const id* a) { return boxResult(arrayOf(self)->indexOf(a[0]) >= 0); })
        .method("sortedUniqueArray", sortedUnique)
        .method("mutableCopy",
                [](const id& self, const id*) { return id(make<NSMutableArray>(arrayOf(self)->items())); });
}

void NSMutableArray::describe(velt::ClassBuilder<NSMutableArray>& c) {
    c.method("addObject:", static_cast<void (NSMutableArray::*)(const id&)>(&NSMutableArray::append))
        .method("insertObject:atIndex:", &NSMutableArray::insert)
        .method("replaceObjectAtIndex:withObject:", &NSMutableArray::replace)
        .method("removeObjectAtIndex:", &NSMutableArray::remove)
        .method("removeAllObjects", &NSMutableArray::removeAll);
}
