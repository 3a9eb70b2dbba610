// Attributes over the ranges of a text: runs side by side, each with the attributes of its units. Neighbours with equal
// attributes are one run, so a plain text has one however it came about.
#pragma once

#include "VELTRuntime/platform/object/object.h"
#include "VELTRuntime/values/structures.h"

#include <span>
#include <vector>

namespace velt {

/// Both attributes, or both values of one, are nil or equal.
bool isSameAttribute(const id& a, const id& b);

class VELT_EXPORT RunList {
public:
    /// The attributes, a dictionary or nil, of the units before a position, from the end of the run before.
    struct Run {
        std::size_t end;
        id attributes;
    };

    std::size_t length() const { return runs_.empty() ? 0 : runs_.back().end; }
    std::span<const Run> runs() const { return runs_; }
    std::span<Run> runs() { return runs_; }

    /// The run that holds a position; asserts that it is below the length.
    const Run& at(std::size_t position, NSRange* range = nullptr) const;
    /// The runs of a range, which lies within the length.
    RunList part(NSRange range) const;
    void append(std::size_t length, const id& attributes);
    /// Puts other runs in the place of a range.
    void replace(NSRange range, const RunList& with);
    void replace(NSRange range, std::size_t length, const id& attributes);
    /// Puts what a function makes of a run's attributes in their place, within a range. An exception of the function
    /// leaves everything as it was.
    template <class Change> void change(NSRange range, Change&& changed) {
        if (range.length == 0) return;
        const std::size_t end = range.location + range.length;
        std::vector<id> results;
        for (std::size_t i = indexOf(range.location); i < runs_.size() && beginOf(i) < end; ++i) {
            results.push_back(changed(runs_[i].attributes));
        }
        set(range, results);
    }

private:
    std::size_t indexOf(std::size_t position) const;
    std::size_t beginOf(std::size_t index) const { return index == 0 ? 0 : runs_[index - 1].end; }
    std::size_t splitAt(std::size_t position);
    void mergeAt(std::size_t index);
    void set(NSRange range, std::span<const id> attributes);

    std::vector<Run> runs_;
};

}  // namespace velt
