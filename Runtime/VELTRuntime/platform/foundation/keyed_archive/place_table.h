// A hash table from what an archiver has met to its place among the archive's objects.
#pragma once

#include <cstdint>
#include <vector>

namespace velt {

/// Places by hash, in open addressing. What a place stands for is the owner's to compare.
class PlaceTable {
public:
    /// The place with that hash for which the comparison holds, or `next`, which is entered, when there is none.
    template <class IsSame> std::uint32_t findOrAdd(std::size_t hash, std::uint32_t next, IsSame&& isSame) {
        if ((count_ + 1) * 3 > slots_.size() * 2) grow();
        const std::size_t mask = slots_.size() - 1;
        const auto mark = static_cast<std::uint32_t>(hash ^ (hash >> 32));
        std::size_t at = spread(mark) & mask;
        for (; slots_[at].place != kFree; at = (at + 1) & mask) {
            if (slots_[at].mark == mark && isSame(slots_[at].place)) return slots_[at].place;
        }
        slots_[at] = {mark, next};
        ++count_;
        return next;
    }
    /// The place with that hash for which the comparison holds, or 0.
    template <class IsSame> std::uint32_t find(std::size_t hash, IsSame&& isSame) const {
        if (slots_.empty()) return 0;
        const std::size_t mask = slots_.size() - 1;
        const auto mark = static_cast<std::uint32_t>(hash ^ (hash >> 32));
        for (std::size_t at = spread(mark) & mask; slots_[at].place != kFree; at = (at + 1) & mask) {
            if (slots_[at].mark == mark && isSame(slots_[at].place)) return slots_[at].place;
        }
        return 0;
    }

private:
    static constexpr std::uint32_t kFree = 0;  // the place of nil, which is never entered
    struct Slot {
        std::uint32_t mark = 0, place = kFree;
    };
    static std::size_t spread(std::uint32_t mark) { return (mark * std::uint64_t{0x9E3779B97F4A7C15}) >> 32; }
    void grow() {
        const std::vector<Slot> old = std::move(slots_);
        slots_.assign(old.empty() ? 64 : old.size() * 2, {});
        const std::size_t mask = slots_.size() - 1;
        for (const Slot& slot : old) {
            if (slot.place == kFree) continue;
            std::size_t at = spread(slot.mark) & mask;
            while (slots_[at].place != kFree) at = (at + 1) & mask;
            slots_[at] = slot;
        }
    }

    std::vector<Slot> slots_;
    std::size_t count_ = 0;
};

}  // namespace velt
