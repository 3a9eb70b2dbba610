#include "VELTRuntime/values/text/literal_search.h"

#include "VELTRuntime/values/text/plain_text.h"

#include <cstring>

namespace velt::text {

namespace {

/// After so many units of failed comparisons beyond what was scanned, the needle is a hard one for this text.
constexpr std::size_t kPatience = 256;

}  // namespace

bool LiteralFinder::matchesAt(const char16_t* at) const {
    // The first and the last unit are known to match.
    return needle_.size() <= 2 || std::memcmp(at, needle_.data(), needle_.size() * sizeof(char16_t)) == 0;
}

std::size_t LiteralFinder::find(std::u16string_view haystack, std::size_t from) {
    const std::size_t length = needle_.size();
    if (haystack.size() < length || from > haystack.size() - length) return kNotFound;
    const char16_t* text = haystack.data();
    const std::size_t last = haystack.size() - length;  // the last position that can match
    const Units firsts = filledWith(needle_.front()), lasts = filledWith(needle_.back());
    std::size_t failed = 0;
    std::size_t at = from;
    // A place is looked at closely only when the needle's first and last unit are both there.
    for (; at + kLanes <= last + 1; at += kLanes) {
        const auto hits = (loadUnits(text + at) == firsts) & (loadUnits(text + at + length - 1) == lasts);
        for (LaneMask lanes(hits); lanes.isAny(); lanes.removeFirst()) {
            const std::size_t lane = lanes.first();
            if (matchesAt(text + at + lane)) return at + lane;
            failed += length;
        }
        if (failed > kPatience + 4 * (at - from)) return findLinear(haystack, at + kLanes);
    }
    for (; at <= last; ++at) {
        if (text[at] == needle_.front() && text[at + length - 1] == needle_.back() && matchesAt(text + at)) return at;
    }
    return kNotFound;
}

/// The search of Knuth, Morris and Pratt: linear for every needle.
std::size_t LiteralFinder::findLinear(std::u16string_view haystack, std::size_t from) {
    if (borders_.empty()) {
        borders_.resize(needle_.size() + 1);
        std::size_t border = 0;
        for (std::size_t i = 1; i < needle_.size(); ++i) {
            while (border > 0 && needle_[i] != needle_[border]) border = borders_[border];
            if (needle_[i] == needle_[border]) ++border;
            borders_[i + 1] = border;
        }
    }
    std::size_t matched = 0;
    for (std::size_t i = from; i < haystack.size(); ++i) {
        while (matched > 0 && haystack[i] != needle_[matched]) matched = borders_[matched];
        if (haystack[i] == needle_[matched]) ++matched;
        if (matched == needle_.size()) return i + 1 - matched;
    }
    return kNotFound;
}

std::size_t LiteralFinder::findLast(std::u16string_view haystack, std::size_t end) {
    const std::size_t length = needle_.size();
    if (end < length) return kNotFound;
    const char16_t* text = haystack.data();
    std::size_t failed = 0;
    for (std::size_t at = end - length + 1; at-- > 0;) {
        if (text[at] != needle_.front() || text[at + length - 1] != needle_.back()) continue;
        if (matchesAt(text + at)) return at;
        failed += length;
        if (failed > kPatience + 4 * (end - at)) {
            // Hard: the last of all occurrences before here, found forward.
            const std::u16string_view rest = haystack.substr(0, at + length - 1);
            std::size_t found = kNotFound;
            for (std::size_t next = findLinear(rest, 0); next != kNotFound; next = findLinear(rest, next + 1)) {
                found = next;
                if (next + 1 > rest.size()) break;
            }
            return found;
        }
    }
    return kNotFound;
}

}  // namespace velt::text
