#include "VELTRuntime/editor/breakpoints.h"

#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"

namespace velt {

namespace {

id entry(std::int64_t position) { return VELT_ID(static_cast<short>(position)); }

/// Where a line begins when only line feeds end lines; where the last one is known to begin, if there are fewer.
std::size_t lineFeedStart(const SourceBuffer& buffer, std::size_t line) {
    std::size_t start = 0;
    for (; line > 1; --line) {
        const auto lineFeed = buffer.find(u'\n', rangeBetween(start, buffer.length()));
        if (!lineFeed) break;
        start = *lineFeed + 1;
    }
    return start;
}

}  // namespace

std::size_t currentLine(const SourceBuffer& buffer, std::size_t caret) {
    if (buffer.isEmpty()) return 0;
    return buffer.lineAt(std::min(caret, buffer.length() - 1)) + 1;
}

std::vector<std::int64_t> positionsIn(const NSArray& entries) {
    std::vector<std::int64_t> positions;
    positions.reserve(entries.count());
    for (const id& each : entries.items()) positions.push_back(VELT_CBYTE(each));
    return positions;
}

bool toggleBreakpoint(const SourceBuffer& buffer, std::size_t caret, NSMutableArray& breakpoints) {
    if (buffer.isEmpty()) return false;
    const auto start = static_cast<std::int64_t>(lineFeedStart(buffer, currentLine(buffer, caret)));
    for (std::size_t i = 0; i < breakpoints.count(); ++i) {
        if (VELT_CBYTE(breakpoints.items()[i]) != start) continue;
        breakpoints.remove(static_cast<long>(i));
        return true;
    }
    const auto lineFeed = buffer.findLast(u'\n', {0, std::min(caret, buffer.length())});
    breakpoints.append(entry(lineFeed ? static_cast<std::int64_t>(*lineFeed) + 1 : 1));
    return true;
}

bool toggleBreakpointOfLine(const SourceBuffer& buffer, std::size_t line, NSMutableArray& breakpoints) {
    if (line < 1 || line > buffer.lineCount()) return false;
    bool removed = false;
    for (std::size_t i = breakpoints.count(); i-- > 0;) {
        const std::int64_t position = VELT_CBYTE(breakpoints.items()[i]);
        if (position <= 0 || static_cast<std::size_t>(position) > buffer.length()) continue;
        if (buffer.lineAt(static_cast<std::size_t>(position)) + 1 != line) continue;
        breakpoints.remove(static_cast<long>(i));
        removed = true;
    }
    const std::size_t start = buffer.lineStart(line - 1);
    if (removed || start == buffer.length()) return removed;
    return toggleBreakpoint(buffer, start, breakpoints);
}

bool moveEntries(NSMutableArray& entries, std::size_t from, int by) {
    const std::vector<std::int64_t> positions = positionsIn(entries);
    bool moved = false;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        if (positions[i] < 0 || static_cast<std::size_t>(positions[i]) < from) continue;
        entries.replace(static_cast<long>(i), entry(positions[i] + by));
        moved = true;
    }
    return moved;
}

bool backspaceReleased(const SourceBuffer& buffer, std::size_t caret, NSMutableArray& entries) {
    const std::size_t next = caret + 1;
    if (next >= buffer.length() || buffer.at(next) != u'\n') return false;
    return moveEntries(entries, caret, -1);
}

}  // namespace velt
