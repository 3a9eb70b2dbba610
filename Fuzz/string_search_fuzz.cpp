// A match is a range of the text whose comparison form is the needle's, and searching from both ends agrees.
#include "VELTRuntime/values/text/search.h"

#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    using namespace velt::text;
    if (count < 2) return 0;
    const Case respect = bytes[0] & 1 ? Case::Ignored : Case::Respected;
    std::u16string text((count - 2) / 2, u'\0');
    std::memcpy(text.data(), bytes + 2, text.size() * 2);
    const std::size_t split = text.empty() ? 0 : bytes[1] % (text.size() + 1);
    const std::u16string needle = text.substr(0, split), haystack = text.substr(split);
    const auto first = findFirst(haystack, needle, respect), last = findLast(haystack, needle, respect);
    if (first.has_value() != last.has_value()) std::abort();
    if (first && last && first->position > last->position) std::abort();
    for (const auto& match : {first, last}) {
        if (match &&
            comparisonForm(haystack.substr(match->position, match->length), respect) != comparisonForm(needle, respect))
            std::abort();
    }
    if (compare(needle, haystack, respect) != -compare(haystack, needle, respect)) std::abort();
    return 0;
}
