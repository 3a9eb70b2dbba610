// The storage of dictionaries: a hash table whose entries keep their order. What every lookup runs through is in
// entry_lookup.h.
#pragma once

#include "VELTRuntime/values/value.h"

#include <cstdint>
#include <span>
#include <vector>

class NSString;

namespace velt {

/// Entries in one list, their places in an open-addressing index beside it.
class EntryTable {
public:
    struct Entry {
        id key;
        id value;
    };

    std::size_t size() const { return entries_.size() - holes_; }
    /// Makes room for that many entries in all.
    void reserve(std::size_t count);
    /// The entries in order. Those with a nil key have been removed.
    std::span<const Entry> entries() const { return entries_; }
    std::span<Entry> entries() { return entries_; }
    /// The value for a key, or null; the key as an NSString spares finding out what it is.
    template <class Key> const id* find(const Key& key) const;
    /// Sets the value for a key; a key that is a string which could change is copied. Returns the value that was there
    /// before.
    template <class Key> id set(const Key& key, id value);
    /// Removes a key's entry and returns it; nil key when there was none.
    Entry remove(const id& key);
    /// Empties the table and returns what was in it, removed entries with a nil key included.
    std::vector<Entry> takeAll();

private:
    /// A place of the index: which entry, and its key's hash, so that other entries need not be looked at.
    struct Slot {
        std::uint32_t entry = kFree;
        std::uint32_t hash = 0;
    };
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;
    static constexpr std::uint32_t kRemoved = 0xFFFFFFFE;

    static std::uint32_t hashOf(const id& key);
    static std::uint32_t hashOf(const NSString& key);
    std::size_t slotOf(const id& key, std::uint32_t hash) const;
    std::size_t slotOf(const NSString& key, std::uint32_t hash) const;
    template <class IsSame> std::size_t slotWhere(std::uint32_t hash, IsSame isSame) const;
    static bool isEqualToText(const id& kept, const NSString& key);
    std::size_t freeSlot(std::uint32_t hash) const;
    void addEntry(id key, id value, std::uint32_t hash, std::size_t slot);
    void rebuild(std::size_t room);

    std::vector<Entry> entries_;
    std::vector<Slot> index_;
    std::size_t holes_ = 0;
};

}  // namespace velt
