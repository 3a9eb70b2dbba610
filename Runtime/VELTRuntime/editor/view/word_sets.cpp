#include "VELTRuntime/editor/view/word_sets.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/message.h"

NSSet::NSSet(const id& array) {
    const NSArray* values = velt::arrayOf(array);
    if (!values) return;
    for (const id& value : values->items()) elements_->setObject(value, value);
}

id NSSet::description() const {
    const id elements = allObjects();
    return velt::description(elements);
}

bool NSSet::isEqual(const id& other) const {
    if (!velt::is<NSSet>(other)) return false;
    const NSSet& set = *velt::as<NSSet>(other);
    if (set.count() != count()) return false;
    bool same = true;
    elements_->forEach([&](const id& element, const id&) { same = same && set.containsObject(element); });
    return same;
}

void NSSet::visitOwned(velt::OwnedVisitor& visitor) {
    visitor.visit(elements_);
    NSObject::visitOwned(visitor);
}

void NSSet::describe(velt::ClassBuilder<NSSet>& c) {
    c.property("count", &NSSet::count)
        .property("allObjects", &NSSet::allObjects)
        .method("containsObject:", &NSSet::containsObject);
}

void NSCharacterSet::describe(velt::ClassBuilder<NSCharacterSet>& c) {
    c.method("characterIsMember:", &NSCharacterSet::characterIsMember);
}
