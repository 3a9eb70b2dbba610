#include "VELTRuntime/values/text/line_index.h"

namespace velt {

void LineIndex::replace(std::size_t position, std::size_t removed, std::u16string_view inserted, char16_t before,
                        char16_t behind) {
    const std::size_t newLength = textLength() - removed + inserted.size();
    std::vector<Start> added;
    const auto take = [&](std::size_t index, char16_t last) {
        const char16_t next = index < inserted.size() ? inserted[index] : behind;
        if (last == u'\r' && next == u'\n') return;
        added.push_back({static_cast<std::uint32_t>(position + index)});
    };
    if (endsLine(before)) take(0, before);
    for (std::size_t i = 0; i < inserted.size(); ++i) {
        if (endsLine(inserted[i])) take(i + 1, inserted[i]);
    }
    // Whether a line starts at a position depends on the units on both sides of it.
    const std::size_t first = starts_.firstFrom(position);
    const std::size_t last = starts_.firstFrom(position + removed + 1);
    starts_.replace(first, last - first, {});
    starts_.resize(first, static_cast<std::uint32_t>(newLength));
    starts_.replace(first, 0, added);
}

}  // namespace velt
