#include "VELTRuntime/editor/display_attributes.h"

#include <limits>

namespace velt {

namespace {

std::uint32_t narrowed(std::size_t position) { return static_cast<std::uint32_t>(position); }

}  // namespace

std::vector<InkRun> laidOver(std::span<const InkRun> below, std::span<const InkRun> above) {
    std::vector<InkRun> result;
    result.reserve(below.size() + above.size());
    auto next = below.begin();
    std::uint32_t covered = 0;
    const auto takeBelow = [&](std::uint32_t limit) {
        for (; next != below.end() && next->begin < limit; ++next) {
            const std::uint32_t begin = std::max(next->begin, covered), end = std::min(next->end, limit);
            if (begin < end) result.push_back({begin, end, next->ink});
            if (next->end > limit) break;
        }
    };
    for (const InkRun& run : above) {
        takeBelow(run.begin);
        result.push_back(run);
        covered = run.end;
    }
    takeBelow(std::numeric_limits<std::uint32_t>::max());
    return result;
}

Ink InkLayer::at(std::size_t position, NSRange* run) const {
    assert(position < borders_.textLength());
    const std::size_t next = borders_.firstFrom(position + 1);
    if (run) {
        *run = rangeBetween(next == 0 ? 0 : borders_.position(next - 1),
                            next < borders_.size() ? borders_.position(next) : borders_.textLength());
    }
    return inkBefore(next);
}

std::vector<InkRun> InkLayer::runs(NSRange range) const {
    std::vector<InkRun> result;
    const std::uint32_t end = narrowed(endOf(range));
    std::uint32_t begin = narrowed(range.location);
    std::size_t next = borders_.firstFrom(range.location + 1);
    for (Ink ink = inkBefore(next); begin < end; ++next) {
        const Border border = next < borders_.size() ? borders_[next] : Border{end, Ink::None};
        const std::uint32_t runEnd = std::min(border.position, end);
        if (ink != Ink::None) result.push_back({begin, runEnd, ink});
        begin = runEnd;
        ink = border.ink;
    }
    return result;
}

/// A border is there only where the ink changes, and before the text's end.
void InkLayer::append(std::vector<Border>& to, Ink before, std::size_t position, Ink ink) const {
    if (!to.empty()) before = to.back().ink;
    if (ink != before && position < borders_.textLength()) to.push_back({narrowed(position), ink});
}

void InkLayer::set(NSRange range, Ink ink) {
    const InkRun run{narrowed(range.location), narrowed(endOf(range)), ink};
    replace(range, {&run, 1});
}

void InkLayer::replace(NSRange range, std::span<const InkRun> runs) {
    assert(endOf(range) <= borders_.textLength());
    if (range.length == 0) return;
    const std::size_t first = borders_.firstFrom(range.location), last = borders_.firstFrom(endOf(range) + 1);
    const Ink before = inkBefore(first), behind = inkBefore(last);
    std::vector<Border> added;
    added.reserve(2 * runs.size() + 2);
    std::size_t covered = range.location;
    for (const InkRun& run : runs) {
        assert(run.begin >= covered && run.end <= endOf(range));
        if (run.begin == run.end) continue;
        if (run.begin > covered) append(added, before, covered, Ink::None);
        append(added, before, run.begin, run.ink);
        covered = run.end;
    }
    if (covered < endOf(range)) append(added, before, covered, Ink::None);
    append(added, before, endOf(range), behind);
    borders_.replace(first, last - first, added);
}

void InkLayer::textChanged(NSRange replaced, std::size_t inserted) {
    const std::size_t first = borders_.firstFrom(replaced.location), last = borders_.firstFrom(endOf(replaced) + 1);
    const Ink before = inkBefore(first), behind = inkBefore(last);
    borders_.replace(first, last - first, {});
    borders_.resize(first, narrowed(borders_.textLength() - replaced.length + inserted));
    std::vector<Border> added;
    if (inserted > 0) append(added, before, replaced.location, Ink::None);
    append(added, before, replaced.location + inserted, behind);
    borders_.replace(first, 0, added);
}

DisplayAttributes::DisplayAttributes(SourceBuffer& buffer) : buffer_(buffer) {
    textChanged({}, buffer.length());
    buffer.addListener(*this);
}

DisplayAttributes::Inks DisplayAttributes::at(std::size_t position, NSRange* effective) const {
    NSRange front, back;
    const Inks inks{foreground_.at(position, &front), background_.at(position, &back)};
    if (effective) {
        *effective = rangeBetween(std::max(front.location, back.location), std::min(endOf(front), endOf(back)));
    }
    return inks;
}

}  // namespace velt
