// A source text with selections and an undo history, without a window.
#pragma once

#include "VELTRuntime/editor/edit_list.h"
#include "VELTRuntime/editor/edit_target.h"

#include <functional>

namespace velt {

/// Undoes and redoes whole commands; a change outside of any is a command of its own.
class VELT_EXPORT SourceDocument : public EditTarget {
public:
    explicit SourceDocument(std::u16string_view text = {}) : buffer_(text) {}

    /// Asked before each change, if there is one.
    std::function<bool(NSRange range, std::u16string_view with)> allows;

    SourceBuffer& buffer() { return buffer_; }
    const SourceBuffer& buffer() const override { return buffer_; }
    /// As they were set, shortened to the text where it got shorter.
    std::vector<NSRange> selectedRanges() const override;
    void setSelectedRanges(std::vector<NSRange> ranges) override;
    bool shouldChange(NSRange range, std::u16string_view with) override { return !allows || allows(range, with); }
    void replace(NSRange range, std::u16string_view with) override;
    void didChange() override {}
    void insertText(std::u16string_view text) override;
    void beginCommand() override;
    void endCommand() override;

    bool canUndo() const { return !done_.empty(); }
    bool canRedo() const { return !undone_.empty(); }
    /// Takes back the last command, selections included. Does nothing when there is none.
    void undo();
    void redo();

private:
    struct Command {
        EditList edits;
        std::vector<NSRange> selectedBefore, selectedBehind;
    };

    SourceBuffer buffer_;
    std::vector<NSRange> selected_{NSRange{}};
    Command running_;
    std::size_t depth_ = 0;
    std::vector<Command> done_, undone_;
};

}  // namespace velt
