// Dictionaries: values by key, in the order in which the keys were first set.
#pragma once

#include "VELTRuntime/platform/foundation/value_list.h"
#include "VELTRuntime/platform/object/object.h"

#include <span>
#include <vector>

namespace velt {

/// A hash table whose entries keep their order: entries in one list, their places in an open-addressing index.
class EntryTable {
public:
    struct Entry {
        std::size_t hash;
        id key;
        id value;
    };

    std::size_t size() const { return entries_.size() - holes_; }
    /// Makes room for that many entries in all.
    void reserve(std::size_t count);
    /// The entries in order. Those with a nil key have been removed.
    std::span<const Entry> entries() const { return entries_; }
    std::span<Entry> entries() { return entries_; }
    /// The value for a key, or null.
    const id* find(const id& key) const;
    /// Sets the value for a key, which is shared, not copied. Returns the value that was there before.
    id set(const id& key, id value);
    /// Removes a key's entry and returns it; nil key when there was none.
    Entry remove(const id& key);
    std::vector<Entry> takeAll();

private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;
    static constexpr std::uint32_t kRemoved = 0xFFFFFFFE;
    std::size_t slotOf(const id& key, std::size_t hash) const;
    void rebuild(std::size_t room);

    std::vector<Entry> entries_;
    /// A place of the index: which entry, and what most hashes differ in, so that other entries need not be looked at.
    struct Slot {
        std::uint32_t entry = kFree;
        std::uint32_t hash = 0;
    };
    std::vector<Slot> index_;
    std::size_t holes_ = 0;
};

}  // namespace velt

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
