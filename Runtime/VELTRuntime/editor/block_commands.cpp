#include "VELTRuntime/editor/block_commands.h"

#include "VELTRuntime/editor/source_syntax.h"
#include "VELTRuntime/values/text/casing.h"

namespace velt {

namespace {

bool isBlank(char16_t unit) { return kBlanks.find(unit) != kBlanks.npos; }

/// The first position of a line behind its blanks.
std::size_t behindBlanks(const SourceBuffer& buffer, std::size_t lineStart) {
    while (lineStart < buffer.length() && isBlank(buffer.at(lineStart))) ++lineStart;
    return lineStart;
}

/// What a line command did to a range.
struct Worked {
    NSRange range;                // before
    std::size_t firstLine;        // where the first line begins
    std::size_t end;              // where the last line ends now
    std::size_t in = 0, out = 0;  // units that came in and that were taken
};

/// Calls a function with the start of each line of each selected range, and selects what another one makes of them.
/// The first one changes the text at or behind that start and counts what it did.
template <class Change, class Select> void workLines(EditTarget& target, Change&& change, Select&& selected) {
    const CommandScope scope(target);
    const SourceBuffer& buffer = target.buffer();
    std::vector<NSRange> ranges = target.selectedRanges();
    std::size_t in = 0, out = 0;
    for (NSRange& range : ranges) {
        range.location = std::min(range.location + in - std::min(out, range.location + in), buffer.length());
        range.length = std::min(range.length, buffer.length() - range.location);
        Worked worked{range, buffer.lineRangeAt(range.location).location, 0};
        const auto end = [&] { return endOf(range) + worked.in - std::min(worked.out, endOf(range) + worked.in); };
        for (std::size_t line = worked.firstLine;;) {
            change(buffer, line, worked);
            worked.end = endOf(buffer.lineRangeAt(std::min(line, buffer.length())));
            if (worked.end <= line || worked.end >= end()) break;
            line = worked.end;
        }
        in += worked.in;
        out += worked.out;
        range = selected(worked);
    }
    for (NSRange& range : ranges) {
        const std::size_t end = std::min(endOf(range), buffer.length());
        range = rangeBetween(std::min(range.location, end), end);
    }
    target.setSelectedRanges(std::move(ranges));
}

NSRange wholeLines(const Worked& worked) { return rangeBetween(worked.firstLine, worked.end); }

void changeCase(EditTarget& target, std::u16string (*changed)(std::u16string_view)) {
    const CommandScope scope(target);
    std::size_t in = 0, out = 0;
    for (NSRange range : target.selectedRanges()) {
        if (range.length == 0) continue;
        range.location += in - out;
        const std::size_t before = target.buffer().length();
        target.select(range);
        target.insertText(changed(target.buffer().substring(range)));
        const std::size_t behind = target.buffer().length();
        if (behind > before)
            in += behind - before;
        else
            out += before - behind;
    }
}

bool beepsForEmpty(EditTarget& target) {
    if (!target.buffer().isEmpty()) return false;
    target.beep();
    return true;
}

}  // namespace

void shiftRight(EditTarget& target) {
    if (target.buffer().isEmpty()) return;
    workLines(
        target,
        [&](const SourceBuffer&, std::size_t line, Worked& worked) {
            if (target.change({line, 0}, kIndentationUnit)) worked.in += kIndentationUnit.size();
        },
        [](const Worked& worked) {
            return NSRange{worked.firstLine, worked.range.length + worked.in};
        });
}

void shiftLeft(EditTarget& target) {
    if (target.buffer().isEmpty()) return;
    workLines(
        target,
        [&](const SourceBuffer& buffer, std::size_t line, Worked& worked) {
            for (std::size_t i = 0; i < kIndentationUnit.size(); ++i) {
                if (line >= buffer.length() || !isBlank(buffer.at(line))) break;
                if (target.change({line, 1}, {})) ++worked.out;
            }
        },
        [](const Worked& worked) {
            const std::size_t location = worked.range.location;
            return NSRange{location > worked.firstLine ? location - 1 : worked.firstLine,
                           worked.range.length - std::min<std::size_t>(worked.range.length, worked.out)};
        });
}

void comment(EditTarget& target) {
    if (beepsForEmpty(target)) return;
    workLines(
        target,
        [&](const SourceBuffer&, std::size_t line, Worked& worked) {
            if (target.change({line, 0}, {&kCommentMarker, 1})) ++worked.in;
        },
        wholeLines);
}

void uncomment(EditTarget& target) {
    if (beepsForEmpty(target)) return;
    workLines(
        target,
        [&](const SourceBuffer& buffer, std::size_t line, Worked& worked) {
            const std::size_t marker = behindBlanks(buffer, line);
            if (marker >= buffer.length() || buffer.at(marker) != kCommentMarker) return;
            if (target.change({marker, 1}, {})) ++worked.out;
        },
        wholeLines);
}

void lowercase(EditTarget& target) { changeCase(target, text::lowered); }
void uppercase(EditTarget& target) { changeCase(target, text::uppered); }

std::u16string selectedText(const EditTarget& target) { return target.buffer().substring(target.selectedRange()); }

void insertTab(EditTarget& target) {
    const CommandScope scope(target);
    const NSRange selection = target.selectedRange();
    if (selection.length > 0) {
        const std::size_t line = target.buffer().lineRangeAt(selection.location).location;
        if (selection.location <= behindBlanks(target.buffer(), line)) shiftRight(target);
    }
    target.insertText(kIndentationUnit);
}

}  // namespace velt
