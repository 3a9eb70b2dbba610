#include "VELTRuntime/editor/search_commands.h"

#include "VELTRuntime/editor/breakpoints.h"
#include "VELTRuntime/values/text/search.h"

namespace velt {

namespace {

text::Case caseOf(const FindOptions& options) {
    return options.ignoresCase ? text::Case::Ignored : text::Case::Respected;
}

NSRange rangeOf(const text::Match& match, std::size_t offset) { return {offset + match.position, match.length}; }

std::optional<NSRange> firstIn(const SourceBuffer& buffer, NSRange range, std::u16string_view needle,
                               const FindOptions& options) {
    const auto match = text::findFirst(buffer.view(range), needle, caseOf(options));
    return match ? std::optional(rangeOf(*match, range.location)) : std::nullopt;
}

std::optional<NSRange> lastIn(const SourceBuffer& buffer, NSRange range, std::u16string_view needle,
                              const FindOptions& options) {
    const auto match = text::findLast(buffer.view(range), needle, caseOf(options));
    return match ? std::optional(rangeOf(*match, range.location)) : std::nullopt;
}

/// From a position, which may lie behind the end, to the end.
NSRange restFrom(const SourceBuffer& buffer, std::size_t position) {
    return rangeBetween(std::min(position, buffer.length()), buffer.length());
}

bool searchesSelection(const FindOptions& options, NSRange selection) {
    return options.selectedTextOnly && selection.length > 0;
}

bool show(EditTarget& target, const std::optional<NSRange>& match) {
    if (!match) return false;
    target.select(*match);
    target.reveal(*match);
    target.showFindIndicator(*match);
    target.highlightVisibleLines();
    return true;
}

/// The matches that finding and replacing from the start of the text would come to, in order of their places. The
/// search goes on one unit behind each replacement, so that a match side by side with another is found only when it
/// starts again from the top.
std::vector<NSRange> matchesInText(const SourceBuffer& buffer, std::u16string_view needle, const FindOptions& options) {
    const std::u16string_view text = buffer.view(buffer.whole());
    text::Finder finder(text, needle, caseOf(options));
    std::vector<NSRange> matches;
    std::size_t end = 0;
    for (std::optional<text::Match> match; (match = end < text.size() ? finder.next(end + 1) : std::nullopt);) {
        if (!matches.empty() && match->position > end) {
            const std::u16string_view between = text.substr(end, match->position - end);
            const auto beside = text::findFirst(between, needle, caseOf(options));
            if (beside) matches.push_back(rangeOf(*beside, end));
        }
        matches.push_back(rangeOf(*match, 0));
        end = match->end();
    }
    if (!matches.empty()) {
        const auto beside = text::findFirst(text.substr(end), needle, caseOf(options));
        if (beside) matches.push_back(rangeOf(*beside, end));
    }
    return matches;
}

/// The matches in a selection, whose end moves with what is replaced: by the difference of the two texts, even where a
/// match has another length than the needle.
std::vector<NSRange> matchesInSelection(const SourceBuffer& buffer, NSRange selection, std::u16string_view needle,
                                        const FindOptions& options) {
    const std::u16string_view text = buffer.view(buffer.whole());
    text::Finder finder(text, needle, caseOf(options));
    std::vector<NSRange> matches;
    std::size_t end = endOf(selection);
    for (auto match = finder.next(selection.location); match && match->end() <= end;
         match = finder.next(match->end())) {
        matches.push_back(rangeOf(*match, 0));
        end = end + match->length - std::min(end + match->length, needle.size());
    }
    return matches;
}

}  // namespace

std::optional<bool> findNext(EditTarget& target, std::u16string_view needle, const FindOptions& options) {
    const SourceBuffer& buffer = target.buffer();
    if (buffer.isEmpty() || needle.empty()) return std::nullopt;
    const NSRange selection = target.selectedRange();
    if (searchesSelection(options, selection)) {
        const auto match = firstIn(buffer, restFrom(buffer, selection.location), needle, options);
        return show(target, match && endOf(*match) <= endOf(selection) ? match : std::nullopt);
    }
    auto match = firstIn(buffer, restFrom(buffer, selection.location + 1), needle, options);
    if (!match) match = firstIn(buffer, restFrom(buffer, 1), needle, options);
    return show(target, match);
}

std::optional<bool> findPrevious(EditTarget& target, std::u16string_view needle, const FindOptions& options) {
    const SourceBuffer& buffer = target.buffer();
    if (buffer.isEmpty() || needle.empty()) return std::nullopt;
    const NSRange selection = target.selectedRange();
    if (searchesSelection(options, selection)) return show(target, lastIn(buffer, selection, needle, options));
    auto match = lastIn(buffer, {0, std::max<std::size_t>(selection.location, 1) - 1}, needle, options);
    if (!match) match = lastIn(buffer, {0, buffer.length() - 1}, needle, options);
    return show(target, match);
}

bool replaceSelection(EditTarget& target, std::u16string_view with) {
    const NSRange selection = target.selectedRange();
    if (selection.length == 0) return false;
    const CommandScope scope(target);
    const std::uint64_t version = target.buffer().version();
    target.insertText(with);
    if (target.buffer().version() == version) return false;
    target.select({selection.location, with.size()});
    target.highlightVisibleLines();
    return true;
}

std::optional<bool> replaceAndFind(EditTarget& target, std::u16string_view needle, std::u16string_view with,
                                   const FindOptions& options) {
    if (!replaceSelection(target, with)) return false;
    return findNext(target, needle, options);
}

std::size_t replaceAll(EditTarget& target, std::u16string_view needle, std::u16string_view with,
                       const FindOptions& options) {
    const SourceBuffer& buffer = target.buffer();
    if (buffer.isEmpty() || needle.empty()) return 0;
    const CommandScope scope(target);
    NSRange selection = target.selectedRange();
    const bool inSelection = searchesSelection(options, selection);
    const std::vector<NSRange> matches =
        inSelection ? matchesInSelection(buffer, selection, needle, options) : matchesInText(buffer, needle, options);
    if (!inSelection) target.select({});

    std::size_t replaced = 0;
    for (std::size_t in = 0, out = 0; NSRange match : matches) {
        match.location = match.location + in - out;
        target.select(match);
        const std::uint64_t version = buffer.version();
        target.insertText(with);
        if (buffer.version() == version) continue;
        ++replaced;
        in += with.size();
        out += match.length;
        selection.length += with.size();
        selection.length -= std::min<std::size_t>(selection.length, needle.size());
    }
    if (inSelection) {
        const std::size_t end = std::min(endOf(selection), buffer.length());
        target.select(rangeBetween(std::min<std::size_t>(selection.location, end), end));
    }
    target.reveal(target.selectedRange());
    target.highlightAll();
    return replaced;
}

bool goToLine(EditTarget& target, std::int64_t line) {
    const SourceBuffer& buffer = target.buffer();
    const std::size_t lines = currentLine(buffer, buffer.length());
    const std::size_t wanted = line < 1 ? 0 : static_cast<std::size_t>(line) - 1;
    if (wanted > lines) {
        target.beep();
        return false;
    }
    const NSRange range = wanted < lines ? buffer.line(wanted) : NSRange{buffer.length(), 0};
    target.select(range);
    target.reveal(range);
    return true;
}

}  // namespace velt
