// What of a text has changed since somebody looked, as one range that moves with further edits.
#pragma once

#include "VELTRuntime/editor/text_buffer.h"

namespace velt {

class ChangedRange {
public:
    const std::optional<NSRange>& range() const { return range_; }
    void clear() { range_.reset(); }
    void include(NSRange other) {
        if (!range_) range_ = other;
        const std::size_t end = std::max(endOf(*range_), endOf(other));
        range_ = rangeBetween(std::min(range_->location, other.location), end);
    }
    /// Includes what came in, too.
    void textChanged(NSRange replaced, std::size_t inserted) {
        if (range_) {
            const auto moved = [&](std::size_t position) {
                if (position <= replaced.location) return position;
                return position < endOf(replaced) ? replaced.location : position - replaced.length + inserted;
            };
            range_ = rangeBetween(moved(range_->location), moved(endOf(*range_)));
        }
        include({replaced.location, inserted});
    }

private:
    std::optional<NSRange> range_;
};

}  // namespace velt
