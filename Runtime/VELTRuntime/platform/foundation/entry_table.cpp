#include "VELTRuntime/platform/foundation/entry_lookup.h"

#include <utility>

namespace velt {

bool EntryTable::isEqualToText(const id& kept, const NSString& key) {
    return isEqual(kept, id(const_cast<NSString*>(&key)));
}

std::size_t EntryTable::freeSlot(std::uint32_t hash) const {
    const std::size_t mask = index_.size() - 1;
    std::size_t slot = hash & mask;
    while (index_[slot].entry != kFree) slot = (slot + 1) & mask;
    return slot;
}

void EntryTable::rebuild(std::size_t room) {
    std::size_t size = 8;
    while (size * 2 < room * 3) size *= 2;
    // All memory is taken before anything changes.
    std::vector<Slot> fresh(size);
    std::vector<std::uint32_t> places;
    if (holes_ > 0) {
        std::uint32_t next = 0;
        places.reserve(entries_.size());
        for (const Entry& entry : entries_) places.push_back(entry.key.isNil() ? next : next++);
    }
    entries_.reserve(size * 2 / 3);
    std::erase_if(entries_, [](const Entry& entry) { return entry.key.isNil(); });
    holes_ = 0;
    index_.swap(fresh);
    for (const Slot& place : fresh) {
        if (place.entry >= kRemoved) continue;
        index_[freeSlot(place.hash)] = {places.empty() ? place.entry : places[place.entry], place.hash};
    }
}

void EntryTable::reserve(std::size_t count) {
    if (count * 3 > index_.size() * 2) rebuild(count);
}

void EntryTable::addEntry(id key, id value, std::uint32_t hash, std::size_t slot) {
    entries_.push_back(Entry{std::move(key), std::move(value)});
    index_[slot] = {static_cast<std::uint32_t>(entries_.size() - 1), hash};
}

EntryTable::Entry EntryTable::remove(const id& key) {
    if (index_.empty()) return {};
    const std::size_t slot = slotOf(key, hashOf(key));
    const std::uint32_t at = index_[slot].entry;
    if (at == kFree) return {};
    index_[slot].entry = kRemoved;
    ++holes_;
    return std::exchange(entries_[at], Entry{});
}

std::vector<EntryTable::Entry> EntryTable::takeAll() {
    index_.clear();
    holes_ = 0;
    return std::exchange(entries_, {});
}

}  // namespace velt
