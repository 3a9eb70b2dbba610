// The ranges of a selection, in order and apart from each other.
#pragma once

#include "VELTRuntime/values/structures.h"

#include <algorithm>
#include <vector>

namespace velt {

/// The ranges in their order in the text; those that overlap or touch become one, so that each place is edited once.
inline std::vector<NSRange> mergedRanges(std::vector<NSRange> ranges) {
    if (ranges.size() < 2) return ranges;
    std::sort(ranges.begin(), ranges.end(), [](NSRange a, NSRange b) { return a.location < b.location; });
    std::size_t last = 0;
    for (std::size_t i = 1; i < ranges.size(); ++i) {
        const std::size_t end = ranges[last].location + ranges[last].length;
        if (ranges[i].location > end) {
            ranges[++last] = ranges[i];
        } else {
            ranges[last].length = std::max(end, ranges[i].location + ranges[i].length) - ranges[last].location;
        }
    }
    ranges.resize(last + 1);
    return ranges;
}

}  // namespace velt
