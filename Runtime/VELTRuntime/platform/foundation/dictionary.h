// Dictionaries: values by key, in the order in which the keys were first set.
#pragma once

#include "VELTRuntime/platform/foundation/entry_table.h"
#include "VELTRuntime/platform/foundation/value_list.h"
#include "VELTRuntime/platform/object/object.h"

#include <span>

namespace velt {
struct UnarchivedFill;
}

/// A dictionary that does not change.
class VELT_EXPORT NSDictionary : public NSObject {
public:
    NSDictionary() : NSDictionary(velt::Kind::Dictionary) {}
    /// The entries of another dictionary, shared.
    explicit NSDictionary(const NSDictionary& other) : NSDictionary(velt::Kind::Dictionary) { addEntries(other); }
    /// A dictionary of keys and values in turn, none of them nil; the last value of a repeated key counts. Keys that
    /// are strings which could change are copied.
    explicit NSDictionary(velt::MovedValues keysAndValues) : NSDictionary(velt::Kind::Dictionary) {
        addEntries(keysAndValues);
    }

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    /// "{a = 1; b = 2}"; a dictionary within itself shows as "{...}".
    id description() const override;
    /// The other is a dictionary with equal keys and, for each, an equal value.
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;
    void visitOwned(velt::OwnedVisitor& visitor) override;

    std::size_t count() const { return table_.size(); }
    /// The value for a key; nil when there is none.
    id objectForKey(const id& key) const;
    /// The same for a key that is a string; the word is borrowed from the dictionary.
    velt::Word wordForText(const NSString& key) const;
    /// New arrays of all keys and all values, in order.
    id allKeys() const;
    id allValues() const;
    /// The key at a position of allKeys; raises "NSRangeException" beyond the end.
    id keyAt(long position) const;
    /// Calls a function with every key and value in order.
    template <class F> void forEach(F&& function) const {
        for (const auto& entry : table_.entries()) {
            if (!entry.key.isNil()) function(entry.key, entry.value);
        }
    }
    static void describe(velt::ClassBuilder<NSDictionary>& c);

protected:
    friend velt::UnarchivedFill;
    explicit NSDictionary(velt::Kind kind) : NSObject(kind) {}
    void addEntries(const NSDictionary& other);
    void addEntries(velt::MovedValues keysAndValues);

    velt::EntryTable table_;
};

/// A dictionary that may be changed in place. A nil key or value raises "NSInvalidArgumentException".
class VELT_EXPORT NSMutableDictionary final : public NSDictionary {
public:
    NSMutableDictionary() : NSDictionary(velt::Kind::MutableDictionary) {}
    explicit NSMutableDictionary(const NSDictionary& other) : NSMutableDictionary() { addEntries(other); }
    explicit NSMutableDictionary(velt::MovedValues keysAndValues) : NSMutableDictionary() { addEntries(keysAndValues); }

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    /// Sets the value for a key. The key is copied when it is a string that could change.
    void setObject(const id& value, const id& key);
    /// The same for a key that is a string and a borrowed value.
    void setWordForText(velt::Word value, const NSString& key);
    void removeObject(const id& key);
    void removeAll();
    static void describe(velt::ClassBuilder<NSMutableDictionary>& c);
};

namespace velt {

/// The dictionary behind a value, or null when it is none.
inline NSDictionary* dictionaryOf(const id& value) {
    const bool isDictionary = isKind(value.word(), Kind::MutableDictionary) || isKind(value.word(), Kind::Dictionary);
    return isDictionary ? static_cast<NSDictionary*>(value.object()) : nullptr;
}
/// The mutable dictionary behind a value, or null when it is none.
inline NSMutableDictionary* mutableDictionaryOf(const id& value) {
    return isKind(value.word(), Kind::MutableDictionary) ? static_cast<NSMutableDictionary*>(value.object()) : nullptr;
}

}  // namespace velt
