#include "VELTRuntime/platform/foundation/run_list.h"

#include "VELTRuntime/platform/object/drop_elements.h"
#include "VELTRuntime/platform/object/message.h"

#include <algorithm>

namespace velt {

bool isSameAttribute(const id& a, const id& b) { return a == b || isEqual(a, b); }

std::size_t RunList::indexOf(std::size_t position) const {
    const auto found = std::upper_bound(runs_.begin(), runs_.end(), position,
                                        [](std::size_t wanted, const Run& run) { return wanted < run.end; });
    return static_cast<std::size_t>(found - runs_.begin());
}

const RunList::Run& RunList::at(std::size_t position, NSRange* range) const {
    assert(position < length());
    const std::size_t index = indexOf(position);
    if (range) *range = {beginOf(index), runs_[index].end - beginOf(index)};
    return runs_[index];
}

RunList RunList::part(NSRange range) const {
    assert(range.location + range.length <= length());
    RunList result;
    const std::size_t end = range.location + range.length;
    for (std::size_t i = indexOf(range.location); i < runs_.size() && beginOf(i) < end; ++i) {
        const std::size_t first = std::max<std::size_t>(beginOf(i), range.location);
        result.append(std::min(end, runs_[i].end) - first, runs_[i].attributes);
    }
    return result;
}

void RunList::append(std::size_t added, const id& attributes) {
    if (added == 0) return;
    if (!runs_.empty() && isSameAttribute(runs_.back().attributes, attributes)) {
        runs_.back().end += added;
    } else {
        runs_.push_back({length() + added, attributes});
    }
}

/// The index of the run that begins at a position, after cutting the one across it.
std::size_t RunList::splitAt(std::size_t position) {
    const std::size_t index = indexOf(position);
    if (index == runs_.size() || beginOf(index) == position) return index;
    runs_.insert(runs_.begin() + static_cast<std::ptrdiff_t>(index), Run{position, runs_[index].attributes});
    return index + 1;
}

/// Makes one of a run and the one before it, if their attributes are equal.
void RunList::mergeAt(std::size_t index) {
    if (index == 0 || index >= runs_.size() || !isSameAttribute(runs_[index - 1].attributes, runs_[index].attributes))
        return;
    runs_.erase(runs_.begin() + static_cast<std::ptrdiff_t>(index) - 1);
}

void RunList::set(NSRange range, std::span<const id> attributes) {
    const std::size_t first = splitAt(range.location);
    const std::size_t last = splitAt(range.location + range.length);
    assert(last - first == attributes.size());
    for (std::size_t i = first; i < last; ++i) runs_[i].attributes = attributes[i - first];
    for (std::size_t i = last + 1; i-- > first;) mergeAt(i);
}

void RunList::replace(NSRange range, const RunList& with) {
    const std::size_t added = with.length();
    if (range.location == length() && range.length == 0) {
        std::size_t begin = 0;
        for (const Run& run : with.runs_) {
            append(run.end - begin, run.attributes);
            begin = run.end;
        }
        return;
    }
    const std::size_t first = splitAt(range.location);
    const std::size_t last = splitAt(range.location + range.length);
    for (std::size_t i = last; i < runs_.size(); ++i) runs_[i].end += added - range.length;
    const auto begin = runs_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = runs_.begin() + static_cast<std::ptrdiff_t>(last);
    dropRange(runs_, begin, end);
    std::vector<Run> shifted(with.runs_);
    for (Run& run : shifted) run.end += range.location;
    runs_.insert(runs_.begin() + static_cast<std::ptrdiff_t>(first), std::make_move_iterator(shifted.begin()),
                 std::make_move_iterator(shifted.end()));
    mergeAt(first + shifted.size());
    mergeAt(first);
}

void RunList::replace(NSRange range, std::size_t added, const id& attributes) {
    RunList with;
    with.append(added, attributes);
    replace(range, with);
}

}  // namespace velt
