#include "VELTRuntime/platform/foundation/dictionary.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/collection_hash.h"
#include "VELTRuntime/platform/foundation/collection_text.h"
#include "VELTRuntime/platform/foundation/entry_lookup.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/platform/object/observing.h"
#include "VELTRuntime/values/borrowed.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {

/// The key as observers name it.
std::string observedKey(const id& key) { return utf8(VELT_CSTRING(key)); }

id entryForKey(const id& self, std::string_view key) {
    if (key.starts_with('@')) return memberValueForKey(self, key.substr(1));
    return dictionaryOf(self)->objectForKey(string(key));
}

void setEntryForKey(const id& self, std::string_view key, const id& value) {
    NSMutableDictionary* dictionary = mutableDictionaryOf(self);
    if (!dictionary) raiseUnknownKey(self, key);
    if (value.isNil()) {
        dictionary->removeObject(string(key));
    } else {
        dictionary->setObject(value, string(key));
    }
}

void require(const id& value, const char* what) {
    if (value.isNil()) {
        raise(kInvalidArgumentException,
              std::string("'NSMutableDictionary' setObject:forKey:: nil cannot be a ") + what);
    }
}

}  // namespace

}  // namespace velt

velt::Class& NSDictionary::entry() {
    static velt::Class& cls = velt::declareClass<NSDictionary>("NSDictionary", &NSObject::entry());
    return cls;
}
velt::Class& NSMutableDictionary::entry() {
    static velt::Class& cls = velt::declareClass<NSMutableDictionary>("NSMutableDictionary", &NSDictionary::entry());
    return cls;
}

void NSDictionary::addEntries(const NSDictionary& other) {
    other.forEach([this](const id& key, const id& value) { table_.set(key, value); });
}

void NSDictionary::addEntries(velt::MovedValues keysAndValues) {
    const std::span<id> values = keysAndValues.values;
    assert(values.size() % 2 == 0);
    table_.reserve(table_.size() + values.size() / 2);
    for (std::size_t i = 0; i < values.size(); i += 2) {
        assert(values[i] && values[i + 1]);
        const id dropped = table_.set(values[i], std::move(values[i + 1]));
    }
}

id NSDictionary::description() const {
    const velt::DescriptionScope scope(*this);
    if (scope.isNested()) return velt::string("{...}");
    std::u16string text = u"{";
    forEach([&text](const id& key, const id& value) {
        if (text.size() > 1) text += u"; ";
        text += velt::elementText(key) + u" = " + velt::elementText(value);
    });
    return velt::string(text + u"}");
}

bool NSDictionary::isEqual(const id& other) const {
    const NSDictionary* dictionary = velt::dictionaryOf(other);
    if (!dictionary || dictionary->count() != count()) return false;
    const velt::CollectionWalk walk(velt::CollectionWalk::Purpose::Comparison, *this, dictionary);
    // Two that hold themselves are equal unless something else in them differs.
    if (walk.isWithinItself()) return true;
    walk.requireBearable("isEqual:", velt::kMostComparedLevels);
    bool equal = true;
    forEach([&](const id& key, const id& value) {
        const id* found = equal ? dictionary->table_.find(key) : nullptr;
        equal = found && velt::isEqual(value, *found);
    });
    return equal;
}

std::size_t NSDictionary::hash() const { return velt::hashOfEntries(*this); }

id NSDictionary::copy() const {
    if (kind() == velt::Kind::Dictionary) return id(const_cast<NSDictionary*>(this));
    return velt::make<NSDictionary>(*this);
}

void NSDictionary::visitOwned(velt::OwnedVisitor& visitor) {
    // The collector empties keys too; a dictionary that it empties is not used any more.
    for (auto& entry : table_.entries()) {
        if (entry.key.isObject()) visitor.visit(entry.key);
        if (entry.value.isObject()) visitor.visit(entry.value);
    }
    NSObject::visitOwned(visitor);
}

id NSDictionary::objectForKey(const id& key) const {
    if (key.isNil()) return nil;
    const id* value = table_.find(key);
    return value ? *value : id();
}

velt::Word NSDictionary::wordForText(const NSString& key) const {
    const id* value = table_.find(key);
    return value ? value->word() : velt::kNilWord;
}

id NSDictionary::allKeys() const {
    velt::Ref<NSMutableArray> keys = velt::make<NSMutableArray>();
    keys->reserve(count());
    forEach([&](const id& key, const id&) { keys->append(key); });
    return keys;
}

id NSDictionary::allValues() const {
    velt::Ref<NSMutableArray> values = velt::make<NSMutableArray>();
    values->reserve(count());
    forEach([&](const id&, const id& value) { values->append(value); });
    return values;
}

id NSDictionary::keyAt(long position) const {
    if (static_cast<std::size_t>(position) >= count()) {
        velt::raiseRange("'" + isa().name() + "' key", position, count());
    }
    const auto entries = table_.entries();
    if (entries.size() == count()) return entries[static_cast<std::size_t>(position)].key;
    for (const auto& entry : entries) {
        if (!entry.key.isNil() && position-- == 0) return entry.key;
    }
    return nil;
}

void NSMutableDictionary::setObject(const id& value, const id& key) {
    velt::require(key, "key");
    velt::require(value, "value");
    if (isAttached()) {
        id dropped;
        velt::changeValue(*this, velt::observedKey(key), [&] { dropped = table_.set(key, value); });
        return;
    }
    const id dropped = table_.set(key, value);
}

void NSMutableDictionary::setWordForText(velt::Word value, const NSString& key) {
    const velt::Borrowed shared(value);
    if (VELT_UNLIKELY(isAttached() || value == velt::kNilWord)) {
        return setObject(shared, id(const_cast<NSString*>(&key)));
    }
    const id dropped = table_.set(key, id(static_cast<const id&>(shared)));
}

void NSMutableDictionary::removeObject(const id& key) {
    if (key.isNil()) return;
    velt::EntryTable::Entry dropped;
    if (isAttached() && table_.find(key)) {
        velt::changeValue(*this, velt::observedKey(key), [&] { dropped = table_.remove(key); });
    } else {
        dropped = table_.remove(key);
    }
}

void NSMutableDictionary::removeAll() {
    if (isAttached()) {
        const id keys = allKeys();
        for (const id& key : velt::arrayOf(keys)->items()) removeObject(key);
    }
    const auto dropped = table_.takeAll();
}

void NSDictionary::describe(velt::ClassBuilder<NSDictionary>& c) {
    using namespace velt;
    c.keyAccess({entryForKey, setEntryForKey})
        .property("count", &NSDictionary::count)
        .property("allKeys", &NSDictionary::allKeys)
        .property("allValues", &NSDictionary::allValues)
        .method("objectForKey:", &NSDictionary::objectForKey)
        .method("mutableCopy",
                [](const id& self, const id*) { return id(make<NSMutableDictionary>(*dictionaryOf(self))); });
}

void NSMutableDictionary::describe(velt::ClassBuilder<NSMutableDictionary>& c) {
    c.method("setObject:forKey:", &NSMutableDictionary::setObject)
        .method("removeObjectForKey:", &NSMutableDictionary::removeObject)
        .method("removeAllObjects", &NSMutableDictionary::removeAll);
}
