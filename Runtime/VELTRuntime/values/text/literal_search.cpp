#include "VELTRuntime/values/text/literal_search.h"

#include "VELTRuntime/values/text/unit_lanes.h"

#include <cstring>

namespace velt::text {

namespace {

/// So much work is never too much.
constexpr std::size_t kPatience = 256;
/// Comparing goes over so many units while the search by borders goes over one.
constexpr std::size_t kComparedAtOnce = 16;

/// The length of the longest proper border of each prefix of a needle, which is read through `unitAt`.
template <class UnitAt> std::vector<std::size_t> bordersOf(std::size_t length, UnitAt unitAt) {
    std::vector<std::size_t> borders(length + 1);
    std::size_t border = 0;
    for (std::size_t i = 1; i < length; ++i) {
        while (border > 0 && unitAt(i) != unitAt(border)) border = borders[border];
        if (unitAt(i) == unitAt(border)) ++border;
        borders[i + 1] = border;
    }
    return borders;
}

/// The last occurrence that ends at or before `end`: needle and text are read backwards.
std::size_t findLastByBorders(std::u16string_view text, std::size_t end, std::u16string_view needle) {
    const auto unitAt = [&](std::size_t i) { return needle[needle.size() - 1 - i]; };
    const std::vector<std::size_t> borders = bordersOf(needle.size(), unitAt);
    std::size_t matched = 0;
    for (std::size_t at = end; at-- > 0;) {
        while (matched > 0 && text[at] != unitAt(matched)) matched = borders[matched];
        if (text[at] == unitAt(matched)) ++matched;
        if (matched == needle.size()) return at;
    }
    return kNotFound;
}

}  // namespace

void LiteralFinder::changeText() { oldest_ = position_ = matched_ = 0; }

bool LiteralFinder::matchesAt(const char16_t* at) {
    // The first and the last unit are known to match.
    if (needle_.size() <= 2) return true;
    work_ += needle_.size() / kComparedAtOnce;
    return std::memcmp(at, needle_.data(), needle_.size() * sizeof(char16_t)) == 0;
}

bool LiteralFinder::isTooMuchWork(std::size_t progress) const { return work_ > kPatience + 4 * (progress_ + progress); }

std::size_t LiteralFinder::find(std::u16string_view text, std::size_t from) {
    const std::size_t length = needle_.size();
    if (text.size() < length || from > text.size() - length) return kNotFound;
    if (isTooMuchWork(0)) return findByBorders(text, from);
    const char16_t* units = text.data();
    const std::size_t last = text.size() - length;  // the last position that can match
    const Units firsts = filledWith(needle_.front()), lasts = filledWith(needle_.back());
    std::size_t at = from;
    // A place is looked at closely only when the needle's first and last unit are both there.
    const auto hitsAt = [&](std::size_t position) {
        return (loadUnits(units + position) == firsts) & (loadUnits(units + position + length - 1) == lasts);
    };
    for (; at + kLanes <= last + 1; at += kLanes) {
        while (at + 4 * kLanes <= last + 1 &&
               !isAnyLane(hitsAt(at) | hitsAt(at + kLanes) | hitsAt(at + 2 * kLanes) | hitsAt(at + 3 * kLanes))) {
            at += 4 * kLanes;
        }
        if (at + kLanes > last + 1) break;
        for (LaneMask lanes(hitsAt(at)); lanes.isAny(); lanes.remove(lanes.first())) {
            const std::size_t place = at + lanes.first();
            if (matchesAt(units + place)) {
                progress_ += place - from;
                return place;
            }
        }
        if (isTooMuchWork(at - from)) return findByBorders(text, at + kLanes);
    }
    for (; at <= last; ++at) {
        if (units[at] == needle_.front() && units[at + length - 1] == needle_.back() && matchesAt(units + at)) break;
    }
    progress_ += at - from;
    return at <= last ? at : kNotFound;
}

/// The search of Knuth, Morris and Pratt. It goes on where it stood, if what was asked for lies ahead of that.
std::size_t LiteralFinder::findByBorders(std::u16string_view text, std::size_t from) {
    if (borders_.empty()) borders_ = bordersOf(needle_.size(), [&](std::size_t i) { return needle_[i]; });
    const bool goesOn = from >= oldest_ && from + matched_ <= position_;
    if (!goesOn) {
        position_ = from;
        matched_ = 0;
    }
    while (position_ < text.size()) {
        const char16_t unit = text[position_++];
        while (matched_ > 0 && unit != needle_[matched_]) matched_ = borders_[matched_];
        if (unit == needle_[matched_]) ++matched_;
        if (matched_ == needle_.size()) {
            matched_ = borders_[matched_];
            oldest_ = position_ - needle_.size() + 1;
            return oldest_ - 1;
        }
    }
    oldest_ = text.size();
    return kNotFound;
}

std::size_t LiteralFinder::findLast(std::u16string_view text, std::size_t end) {
    const std::size_t length = needle_.size();
    if (end < length) return kNotFound;
    const char16_t* units = text.data();
    const Units firsts = filledWith(needle_.front()), lasts = filledWith(needle_.back());
    std::size_t after = end - length + 1;  // places before it are still to be looked at
    const std::size_t begin = after;
    while (after >= kLanes) {
        const std::size_t at = after - kLanes;
        LaneMask lanes((loadUnits(units + at) == firsts) & (loadUnits(units + at + length - 1) == lasts));
        for (; lanes.isAny(); lanes.remove(lanes.last())) {
            if (matchesAt(units + at + lanes.last())) return at + lanes.last();
        }
        after = at;
        if (isTooMuchWork(begin - after)) return findLastByBorders(text, after + length - 1, needle_);
    }
    while (after-- > 0) {
        if (units[after] == needle_.front() && units[after + length - 1] == needle_.back() && matchesAt(units + after))
            return after;
    }
    return kNotFound;
}

}  // namespace velt::text
