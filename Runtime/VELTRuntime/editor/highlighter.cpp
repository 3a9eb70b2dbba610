#include "VELTRuntime/editor/highlighter.h"

#include "VELTRuntime/editor/source_syntax.h"
#include "VELTRuntime/editor/word_characters.h"
#include "VELTRuntime/platform/foundation/array.h"

namespace velt {

namespace {

InkRun runOf(NSRange range, Ink ink) {
    return {static_cast<std::uint32_t>(range.location), static_cast<std::uint32_t>(endOf(range)), ink};
}

/// What two ranges have in common; empty when they have nothing.
NSRange common(NSRange a, NSRange b) {
    const std::size_t begin = std::max(a.location, b.location);
    return rangeBetween(begin, std::max(begin, std::min(endOf(a), endOf(b))));
}

}  // namespace

Highlighter::Highlighter(SourceBuffer& buffer, DisplayAttributes& attributes)
    : buffer_(buffer), attributes_(attributes), strings_(buffer), attributesVersion_(attributes.version()) {
    textChanged({}, buffer.length());
    buffer.addListener(*this);
}

void Highlighter::textChanged(NSRange replaced, std::size_t inserted) {
    const std::size_t first = comments_.firstFrom(replaced.location), last = comments_.firstFrom(endOf(replaced));
    if (last > first) comments_.replace(first, last - first, {});
    comments_.resize(first, static_cast<std::uint32_t>(buffer_.length()));
    changed_.textChanged(replaced, inserted);
    // A comment may have been cut off from its start.
    changed_.include(linesOf({replaced.location, inserted}));
}

/// From the begin of the line of a range's first position to the end of the line of its end.
NSRange Highlighter::linesOf(NSRange visible) const {
    const std::size_t end = std::min(endOf(visible), buffer_.length());
    return rangeBetween(buffer_.lineRangeAt(std::min(visible.location, end)).location, endOf(buffer_.lineRangeAt(end)));
}

void Highlighter::highlight(const WordLists& lists, std::span<const std::int64_t> breakpoints,
                            std::optional<NSRange> visible) {
    const NSArray* keywords = arrayOf(lists.keywords);
    if (keywords && keywords->count() > 0) highlight(Vocabulary::shared(lists), breakpoints, visible);
}

void Highlighter::highlight(const Vocabulary& vocabulary, std::span<const std::int64_t> breakpoints,
                            std::optional<NSRange> visible) {
    const NSRange range = visible ? linesOf(*visible) : buffer_.whole();
    if (range.length == 0) return;
    if (attributes_.version() != attributesVersion_) changed_.include(buffer_.whole());
    if (const auto repaired = strings_.update()) changed_.include(*repaired);

    layStringsOutside(range);
    const std::vector<InkRun> strings = stringRuns(range);
    const std::vector<InkRun> literals = laidOver(wordRuns(vocabulary, range), strings);
    attributes_.replaceForeground(range, laidOver(literals, commentRuns(range, strings)));
    attributes_.setBackground(range, Ink::None);
    clearStringsOfBackground();
    layBreakpoints(breakpoints);
    attributesVersion_ = attributes_.version();
}

std::vector<InkRun> Highlighter::wordRuns(const Vocabulary& vocabulary, NSRange range) const {
    std::vector<InkRun> runs;
    const std::u16string_view text = buffer_.view(range);
    for (SourceWord word = nextWord(text, 0); !word.isEmpty(); word = nextWord(text, word.end)) {
        const std::size_t length = word.end - word.begin;
        const Ink ink = vocabulary.inkOf(text.substr(word.begin, length));
        if (ink != Ink::None) runs.push_back(runOf({range.location + word.begin, length}, ink));
    }
    return runs;
}

std::vector<InkRun> Highlighter::stringRuns(NSRange range) const {
    std::vector<InkRun> runs;
    strings_.each(range, [&](NSRange string) {
        const NSRange part = common(string, range);
        if (part.length > 0) runs.push_back(runOf(part, Ink::String));
    });
    return runs;
}

/// Also notes which comments are laid over strings.
std::vector<InkRun> Highlighter::commentRuns(NSRange range, std::span<const InkRun> strings) {
    std::vector<InkRun> runs;
    std::vector<CommentStart> overStrings;
    const std::u16string_view text = buffer_.view(range);
    auto string = strings.begin();
    for (std::size_t at = text.find(kCommentMarker); at != text.npos;) {
        const std::size_t position = range.location + at;
        while (string != strings.end() && string->end <= position) ++string;
        const bool isInString = string != strings.end() && string->begin <= position;
        // A position of the text is compared with the length of the range, so that further down in a text markers in
        // strings begin comments: programs rely on it.
        if (isInString && position + 1 < text.size()) {
            at = text.find(kCommentMarker, at + 1);
            continue;
        }
        const std::size_t end = endOf(buffer_.lineRangeAt(position));
        const auto next = std::find_if(string, strings.end(), [&](const InkRun& run) { return run.end > position; });
        if (next != strings.end() && next->begin < end) overStrings.push_back({static_cast<std::uint32_t>(position)});
        runs.push_back(runOf(rangeBetween(position, end), Ink::Comment));
        at = text.find(kCommentMarker, end - range.location);
    }
    comments_.assign(std::move(overStrings), static_cast<std::uint32_t>(buffer_.length()));
    return runs;
}

/// Gives all strings outside a range their colour where they may not have it.
void Highlighter::layStringsOutside(NSRange range) {
    for (std::size_t i = 0; i < comments_.size(); ++i) {
        const NSRange line = buffer_.lineRangeAt(comments_.position(i));
        if (common(line, range) != line) layStrings(line);
    }
    const std::optional<NSRange> changed = std::exchange(changed_, {}).range();
    if (!changed) return;
    NSRange touched = *changed;
    strings_.each(*changed, [&](NSRange string) {
        const std::size_t end = std::max(endOf(touched), endOf(string));
        touched = rangeBetween(std::min(touched.location, string.location), end);
    });
    layStrings(common(touched, {0, range.location}));
    layStrings(common(touched, rangeBetween(endOf(range), buffer_.length())));
}

void Highlighter::layStrings(NSRange range) {
    if (range.length == 0) return;
    const std::vector<InkRun> strings = stringRuns(range);
    if (strings.empty()) return;
    attributes_.replaceForeground(range, laidOver(attributes_.foreground().runs(range), strings));
}

void Highlighter::clearStringsOfBackground() {
    for (const InkRun& run : attributes_.background().runs(buffer_.whole())) {
        for (const InkRun& string : stringRuns(rangeBetween(run.begin, run.end))) {
            attributes_.setBackground(rangeBetween(string.begin, string.end), Ink::None);
        }
    }
}

/// From each breakpoint through the next line feed behind the unit after it.
void Highlighter::layBreakpoints(std::span<const std::int64_t> breakpoints) {
    for (const std::int64_t breakpoint : breakpoints) {
        if (breakpoint <= 0 || static_cast<std::size_t>(breakpoint) >= buffer_.length()) continue;
        const auto position = static_cast<std::size_t>(breakpoint);
        const auto lineFeed = buffer_.find(u'\n', rangeBetween(position + 1, buffer_.length()));
        if (lineFeed) attributes_.setBackground(rangeBetween(position, *lineFeed + 1), Ink::Breakpoint);
    }
}

}  // namespace velt
