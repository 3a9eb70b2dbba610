// Sorted places in a text that move with its edits, at the cost of the way to the last edit only.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace velt {

/// A list of entries, each with a `std::uint32_t position`, in the order of their positions. There is a gap in the list
/// where it was changed last: entries before it count from the text's begin, entries behind it from the text's end.
/// An edit moves the gap to its own place and then changes the text's length, and nothing else.
template <class Entry> class MovingList {
public:
    std::size_t size() const { return entries_.size() - gapLength_; }
    std::uint32_t textLength() const { return textLength_; }
    std::uint32_t position(std::size_t index) const {
        assert(index < size());
        return index < gap_ ? entries_[index].position : textLength_ - entries_[index + gapLength_].position;
    }
    Entry operator[](std::size_t index) const {
        Entry entry = entries_[index < gap_ ? index : index + gapLength_];
        entry.position = position(index);
        return entry;
    }
    /// The index of the first entry at or behind a position.
    std::size_t firstFrom(std::size_t wanted) const {
        std::size_t low = 0, high = size();
        // Most questions are asked near the last change.
        if (gap_ > 0) (position(gap_ - 1) < wanted ? low : high) = gap_;
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            if (position(middle) < wanted)
                low = middle + 1;
            else
                high = middle;
        }
        return low;
    }

    /// Puts other entries, with positions between their neighbours', in the place of some.
    void replace(std::size_t first, std::size_t count, std::span<const Entry> with) {
        assert(first + count <= size());
        moveGap(first);
        gapLength_ += count;
        if (with.size() > gapLength_) grow(with.size());
        std::copy(with.begin(), with.end(), entries_.begin() + static_cast<std::ptrdiff_t>(gap_));
        gap_ += with.size();
        gapLength_ -= with.size();
    }
    /// The text's new length: all entries from an index on keep their distance from its end.
    void resize(std::size_t from, std::uint32_t newTextLength) {
        moveGap(from);
        textLength_ = newTextLength;
    }
    /// Changes what an entry says of its place, other than the position.
    template <class Change> void change(std::size_t index, Change&& changed) {
        changed(entries_[index < gap_ ? index : index + gapLength_]);
    }
    /// Other entries, for another text.
    void assign(std::vector<Entry> entries, std::uint32_t newTextLength) {
        gap_ = entries.size();
        gapLength_ = 0;
        entries_ = std::move(entries);
        textLength_ = newTextLength;
    }

private:
    void moveGap(std::size_t to) {
        const auto begin = entries_.begin();
        const auto turned = [this](Entry entry) {
            entry.position = textLength_ - entry.position;
            return entry;
        };
        const auto at = [begin](std::size_t index) { return begin + static_cast<std::ptrdiff_t>(index); };
        if (to < gap_) {
            std::copy_backward(at(to), at(gap_), at(gap_ + gapLength_));
            std::transform(at(to + gapLength_), at(gap_ + gapLength_), at(to + gapLength_), turned);
        } else if (to > gap_) {
            std::transform(at(gap_ + gapLength_), at(to + gapLength_), at(gap_), turned);
        }
        gap_ = to;
    }
    void grow(std::size_t wanted) {
        const std::size_t behind = entries_.size() - gap_ - gapLength_, oldSize = entries_.size();
        entries_.resize(oldSize + wanted + oldSize / 4);
        const auto oldEnd = entries_.begin() + static_cast<std::ptrdiff_t>(oldSize);
        std::copy_backward(oldEnd - static_cast<std::ptrdiff_t>(behind), oldEnd, entries_.end());
        gapLength_ += entries_.size() - oldSize;
    }

    std::vector<Entry> entries_;
    std::size_t gap_ = 0, gapLength_ = 0;
    std::uint32_t textLength_ = 0;
};

}  // namespace velt
