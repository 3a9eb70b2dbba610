// What the editor's commands work on: a text with selections whose every change can be refused, observed and undone.
// The view is one, routing changes through its own edit protocol; SourceDocument is one without a window.
#pragma once

#include "VELTRuntime/editor/text_buffer.h"

namespace velt {

class VELT_EXPORT EditTarget {
public:
    EditTarget() = default;
    virtual ~EditTarget() = default;
    EditTarget(const EditTarget&) = delete;
    EditTarget& operator=(const EditTarget&) = delete;

    virtual const SourceBuffer& buffer() const = 0;
    /// At least one; the first is the primary one, and all lie within the text.
    virtual std::vector<NSRange> selectedRanges() const = 0;
    virtual void setSelectedRanges(std::vector<NSRange> ranges) = 0;

    // The edit protocol.
    /// Whether a range may be replaced by a text; the change follows only then.
    virtual bool shouldChange(NSRange range, std::u16string_view with) = 0;
    virtual void replace(NSRange range, std::u16string_view with) = 0;
    virtual void didChange() = 0;

    /// Puts a text in the place of the primary selection, as typing does; the caret stands behind it then.
    virtual void insertText(std::u16string_view text) = 0;
    /// What is changed between these is undone in one step. They may be nested.
    virtual void beginCommand() {}
    virtual void endCommand() {}

    // What a person sees and hears of commands.
    virtual void reveal(NSRange) {}
    virtual void showFindIndicator(NSRange) {}
    virtual void highlightVisibleLines() {}
    virtual void highlightAll() {}
    virtual void beep() {}

    /// Goes through the edit protocol. False when the change is refused.
    bool change(NSRange range, std::u16string_view with) {
        if (!shouldChange(range, with)) return false;
        replace(range, with);
        didChange();
        return true;
    }
    NSRange selectedRange() const { return selectedRanges().front(); }
    void select(NSRange range) { setSelectedRanges({range}); }
};

/// One command for as long as it lives.
class CommandScope {
public:
    explicit CommandScope(EditTarget& target) : target_(target) { target_.beginCommand(); }
    ~CommandScope() { target_.endCommand(); }
    CommandScope(const CommandScope&) = delete;
    CommandScope& operator=(const CommandScope&) = delete;

private:
    EditTarget& target_;
};

}  // namespace velt
