// An editor view as the editor's commands see it. Every change goes to the view as messages by name, so that a
// program's subclass and its delegate have their say.
#pragma once

#include "VELTRuntime/editor/edit_target.h"
#include "VELTRuntime/editor/view/source_view.h"

namespace velt {

class ViewTarget final : public EditTarget {
public:
    explicit ViewTarget(VLTextView& view) : view_(view) {}

    const SourceBuffer& buffer() const override { return view_.buffer(); }
    std::vector<NSRange> selectedRanges() const override;
    void setSelectedRanges(std::vector<NSRange> ranges) override;
    bool shouldChange(NSRange range, std::u16string_view with) override;
    void replace(NSRange range, std::u16string_view with) override;
    void didChange() override;
    void insertText(std::u16string_view text) override;
    void beginCommand() override;
    void endCommand() override;
    void reveal(NSRange range) override;
    void showFindIndicator(NSRange range) override;
    void highlightVisibleLines() override;
    void highlightAll() override;
    void beep() override;

private:
    id self() const { return id(static_cast<NSObject*>(&view_)); }
    void highlight(bool whole);

    VLTextView& view_;
    std::vector<id> undoManagers_;  // in which the running commands began their groups
};

}  // namespace velt
