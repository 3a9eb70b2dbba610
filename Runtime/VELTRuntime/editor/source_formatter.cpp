#include "VELTRuntime/editor/source_formatter.h"

#include "VELTRuntime/editor/source_syntax.h"

namespace velt {

namespace {

constexpr std::u16string_view kLineEnd = u"\n";

bool isLineEnd(std::u16string_view typed) { return typed == kLineEnd || typed == u"\r"; }

}  // namespace

FormatterState& FormatterState::ofProcess() {
    static FormatterState state;
    return state;
}

const Recasing& SourceFormatter::words() {
    if (!shared_.words) shared_.words.emplace(host_.wordLists());
    return *shared_.words;
}

// Other line ends than "\n" are characters of a line here.
std::size_t SourceFormatter::lineBegin(std::size_t position) const {
    const auto& text = target_.buffer();
    const auto before = text.findLast(kLineEnd.front(), {0, std::min(position, text.length())});
    return before ? *before + 1 : 0;
}

/// The position behind the next line end; 0 when there is none.
std::size_t SourceFormatter::behindLineEnd(std::size_t from) const {
    const auto& text = target_.buffer();
    const auto found = text.find(kLineEnd.front(), rangeBetween(from, text.length()));
    return found ? *found + 1 : 0;
}

void SourceFormatter::textTyped(std::size_t position, std::u16string_view typed) {
    if (isOn_ && isLineEnd(typed)) lineEndTyped(position, false);
    host_.changeHandled(position, typed);
}

void SourceFormatter::passedLine(std::size_t position, std::u16string_view lineEnd, std::int64_t number) {
    if (number == 0) level_ = 1;
    if (isOn_ && isLineEnd(lineEnd)) lineEndTyped(position, true);
    host_.changeHandled(position, lineEnd);
}

void SourceFormatter::formatText() {
    const CommandScope scope(target_);
    const NSRange selected = target_.selectedRange();
    std::size_t begin = 0;
    std::int64_t number = 1;
    if (selected.length > 0) {
        begin = lineBegin(selected.location);
        number = 0;
    }
    for (std::size_t behind = behindLineEnd(begin); behind > 0; behind = behindLineEnd(begin)) {
        passedLine(behind - 1, kLineEnd, number++);
        begin = behindLineEnd(begin);
    }
}

void SourceFormatter::lineEndTyped(std::size_t position, bool isPass) {
    const CommandScope scope(target_);
    host_.lineEndTyped(target_.selectedRange().location);
    position = std::min(position, target_.buffer().length());
    const std::size_t begin = lineBegin(position);
    const std::u16string finished = target_.buffer().substring(rangeBetween(begin, position));
    // A line that stands at the very start of the text has no role. Programs rely on it.
    const bool hasRole = begin + leadingBlanks(finished) > 0;
    const std::u16string start = hasRole ? lineStart(finished) : std::u16string();
    const LineRole role = lineRole(start);

    std::u16string indentation;
    if (!isPass) {
        for (std::size_t units = unitsAfter(finished, role); units > 0; --units) indentation += kIndentationUnit;
        if (!indentation.empty()) target_.insertText(indentation);
    }

    const std::size_t behind = behindLineEnd(begin);
    if (behind < begin + kShortestLine) return;
    const std::u16string line = target_.buffer().substring(rangeBetween(begin, behind));
    std::u16string formatted;
    if (isPass) {
        Indentation carried{level_, shared_.isCaseOpen};
        formatted = formatPassLine(line, start, carried, words());
        level_ = carried.level;
        shared_.isCaseOpen = carried.isCaseOpen;
    } else {
        formatted = formatTypedLine(line, role, words());
    }
    if (formatted != line && !target_.change({begin, line.size()}, formatted)) return;
    target_.select({begin + formatted.size() + indentation.size(), 0});
}

}  // namespace velt
