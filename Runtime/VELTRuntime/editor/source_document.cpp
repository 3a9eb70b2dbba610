#include "VELTRuntime/editor/source_document.h"

namespace velt {

std::vector<NSRange> SourceDocument::selectedRanges() const {
    std::vector<NSRange> ranges = selected_;
    const std::size_t end = buffer_.length();
    for (NSRange& range : ranges) {
        range = rangeBetween(std::min(range.location, end), std::min(endOf(range), end));
    }
    return ranges;
}

void SourceDocument::setSelectedRanges(std::vector<NSRange> ranges) {
    assert(!ranges.empty());
    selected_ = std::move(ranges);
    selected_ = selectedRanges();
}

void SourceDocument::replace(NSRange range, std::u16string_view with) {
    const CommandScope scope(*this);
    running_.edits.add(range.location, buffer_.view(range), with);
    buffer_.replace(range, with);
}

void SourceDocument::insertText(std::u16string_view text) {
    const CommandScope scope(*this);
    const NSRange range = selectedRange();
    if (change(range, text)) select({range.location + text.size(), 0});
}

void SourceDocument::beginCommand() {
    if (depth_++ == 0) running_.selectedBefore = selectedRanges();
}

void SourceDocument::endCommand() {
    assert(depth_ > 0);
    if (--depth_ > 0) return;
    Command command = std::exchange(running_, {});
    if (command.edits.isEmpty()) return;
    command.selectedBehind = selectedRanges();
    done_.push_back(std::move(command));
    undone_.clear();
}

void SourceDocument::undo() {
    if (done_.empty() || depth_ > 0) return;
    Command command = std::move(done_.back());
    done_.pop_back();
    command.edits.takeBack([&](NSRange range, std::u16string_view with) { buffer_.replace(range, with); });
    setSelectedRanges(command.selectedBefore);
    undone_.push_back(std::move(command));
}

void SourceDocument::redo() {
    if (undone_.empty() || depth_ > 0) return;
    Command command = std::move(undone_.back());
    undone_.pop_back();
    command.edits.doAgain([&](NSRange range, std::u16string_view with) { buffer_.replace(range, with); });
    setSelectedRanges(command.selectedBehind);
    done_.push_back(std::move(command));
}

}  // namespace velt
