// What every lookup in an entry table runs through, for the functions of dictionaries to hold all of it.
#pragma once

#include "VELTRuntime/platform/foundation/entry_table.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/same_units.h"

namespace velt {

// The index is probed linearly from the hash; it is never more than two thirds full, removed places included.

inline std::uint32_t EntryTable::hashOf(const NSString& key) {
    const std::size_t known = key.knownHash();
    return static_cast<std::uint32_t>(VELT_LIKELY(known) ? known : key.NSString::hash());
}

inline std::uint32_t EntryTable::hashOf(const id& key) {
    if (isString(key)) return hashOf(asString(key));
    const std::size_t hash = velt::hash(key);
    return static_cast<std::uint32_t>(hash) ^ static_cast<std::uint32_t>(hash >> 32);
}

template <class IsSame>
VELT_ALWAYS_INLINE inline std::size_t EntryTable::slotWhere(std::uint32_t hash, IsSame isSame) const {
    const std::size_t mask = index_.size() - 1;
    for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
        const Slot place = index_[slot];
        if (place.entry == kFree) return slot;
        if (place.hash == hash && place.entry != kRemoved && isSame(entries_[place.entry].key)) return slot;
    }
}

VELT_ALWAYS_INLINE inline std::size_t EntryTable::slotOf(const NSString& key, std::uint32_t hash) const {
    return slotWhere(hash, [&key, text = key.view()](const id& kept) {
        if (VELT_LIKELY(isString(kept))) return text::isSameText(textOf(kept), text);
        return isEqualToText(kept, key);
    });
}

inline std::size_t EntryTable::slotOf(const id& key, std::uint32_t hash) const {
    if (isString(key)) return slotOf(asString(key), hash);
    return slotWhere(hash, [&key](const id& kept) { return kept.word() == key.word() || isEqual(kept, key); });
}

template <class Key> const id* EntryTable::find(const Key& key) const {
    if (index_.empty()) return nullptr;
    const std::uint32_t at = index_[slotOf(key, hashOf(key))].entry;
    return at == kFree ? nullptr : &entries_[at].value;
}

template <class Key> id EntryTable::set(const Key& key, id value) {
    const std::uint32_t hash = hashOf(key);
    // A quarter more than there are, so that a table in which entries come and go is not rebuilt at every step.
    if ((entries_.size() + 1) * 3 > index_.size() * 2) rebuild(size() + size() / 4 + 1);
    const std::size_t slot = slotOf(key, hash);
    if (const std::uint32_t at = index_[slot].entry; at != kFree) {
        return std::exchange(entries_[at].value, std::move(value));
    }
    if constexpr (std::is_same_v<Key, NSString>) {
        addEntry(key.NSString::copy(), std::move(value), hash, slot);
    } else {
        addEntry(isString(key) ? asString(key).NSString::copy() : key, std::move(value), hash, slot);
    }
    return nil;
}

}  // namespace velt
