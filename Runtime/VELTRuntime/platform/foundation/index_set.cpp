#include "VELTRuntime/platform/foundation/index_set.h"

#include "VELTRuntime/values/string.h"

#include <algorithm>

namespace {

unsigned long endOf(const NSRange& range) { return range.location + range.length; }

}  // namespace

void NSIndexSet::add(NSRange range) {
    if (range.length == 0) return;
    // What touches the new range becomes a part of it.
    const auto first =
        std::find_if(ranges_.begin(), ranges_.end(), [&](const NSRange& own) { return endOf(own) >= range.location; });
    auto last = first;
    for (; last != ranges_.end() && last->location <= endOf(range); ++last) {
        const unsigned long end = std::max(endOf(range), endOf(*last));
        range.location = std::min(range.location, last->location);
        range.length = end - range.location;
    }
    const auto place = ranges_.erase(first, last);
    ranges_.insert(place, range);
}

long NSIndexSet::count() const {
    unsigned long sum = 0;
    for (const NSRange& range : ranges_) sum += range.length;
    return static_cast<long>(sum);
}

long NSIndexSet::firstIndex() const {
    return ranges_.empty() ? kNotFound : static_cast<long>(ranges_.front().location);
}
long NSIndexSet::lastIndex() const {
    return ranges_.empty() ? kNotFound : static_cast<long>(endOf(ranges_.back())) - 1;
}

bool NSIndexSet::containsIndex(long index) const {
    return index >= 0 &&
           std::any_of(ranges_.begin(), ranges_.end(), [at = static_cast<unsigned long>(index)](const NSRange& range) {
               return at >= range.location && at < endOf(range);
           });
}

long NSIndexSet::indexGreaterThan(long index) const {
    for (const NSRange& range : ranges_) {
        if (static_cast<long>(endOf(range)) - 1 > index) return std::max(index + 1, static_cast<long>(range.location));
    }
    return kNotFound;
}

long NSIndexSet::indexLessThan(long index) const {
    for (auto range = ranges_.rbegin(); range != ranges_.rend(); ++range) {
        if (static_cast<long>(range->location) < index) return std::min(index, static_cast<long>(endOf(*range))) - 1;
    }
    return kNotFound;
}

id NSIndexSet::description() const {
    std::string text = "<NSIndexSet";
    for (const NSRange& range : ranges_) {
        text.append(" ").append(std::to_string(range.location));
        if (range.length > 1) text.append("-").append(std::to_string(endOf(range) - 1));
    }
    return velt::string(text.append(">"));
}

bool NSIndexSet::isEqual(const id& other) const {
    if (!velt::is<NSIndexSet>(other)) return false;
    const std::vector<NSRange>& others = velt::as<NSIndexSet>(other)->ranges_;
    return std::equal(
        ranges_.begin(), ranges_.end(), others.begin(), others.end(),
        [](const NSRange& a, const NSRange& b) { return a.location == b.location && a.length == b.length; });
}

std::size_t NSIndexSet::hash() const {
    return ranges_.empty() ? 0 : ranges_.front().location * 31 + static_cast<std::size_t>(count());
}

id NSIndexSet::copy() const { return id(const_cast<NSIndexSet*>(this)); }

void NSIndexSet::describe(velt::ClassBuilder<NSIndexSet>& c) {
    c.property("count", &NSIndexSet::count)
        .property("firstIndex", &NSIndexSet::firstIndex)
        .property("lastIndex", &NSIndexSet::lastIndex)
        .method("containsIndex:", &NSIndexSet::containsIndex)
        .method("indexGreaterThanIndex:", &NSIndexSet::indexGreaterThan)
        .method("indexLessThanIndex:", &NSIndexSet::indexLessThan)
        .classMethod("indexSet", [](const id&, const id*) { return id(velt::make<NSIndexSet>()); })
        .classMethod("indexSetWithIndex:",
                     [](const id&, const id* a) { return id(velt::make<NSIndexSet>(VELT_CINTEGER(a[0]))); })
        .classMethod("indexSetWithIndexesInRange:", [](const id&, const id* a) {
            return id(velt::make<NSIndexSet>(std::vector<NSRange>{VELT_CNSRANGE(a[0])}));
        });
}
