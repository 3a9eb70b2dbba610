// Where a range of a text is after an edit.
#pragma once

#include "VELTRuntime/values/structures.h"

namespace velt {

/// What the edit of a text leaves of a range: what lay in the edit goes to its end.
inline NSRange movedBy(NSRange range, NSRange edited, std::size_t newLength) {
    const auto moved = [&](std::size_t position) {
        if (position < edited.location) return position;
        if (position >= edited.location + edited.length) return position + newLength - edited.length;
        return edited.location + newLength;
    };
    const std::size_t begin = moved(range.location), end = moved(range.location + range.length);
    return {begin, end > begin ? end - begin : 0};
}

}  // namespace velt
