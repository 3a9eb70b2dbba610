// An editor view as the editor's commands see it. Every change goes to the view as messages by name, so that a
// program's subclass and its delegate have their say. Where nobody would have one, the changes of a command are made on
// the editor's own copy of the text, and the view gets them as one; all else is as if they had come one by one.
#pragma once

#include "VELTRuntime/editor/changed_range.h"
#include "VELTRuntime/editor/edit_list.h"
#include "VELTRuntime/editor/edit_target.h"
#include "VELTRuntime/editor/view/source_layer.h"
#include "VELTRuntime/editor/view/source_view.h"

namespace velt {

/// The changes of a command, for the undo manager.
class SourceEdits final : public NSObject {
public:
    explicit SourceEdits(EditList list) : edits(std::move(list)) {}
    static Class& entry();
    Class& isa() const override { return entry(); }

    const EditList edits;
};

class ViewTarget final : public EditTarget {
public:
    /// Without the layer each change goes to the view.
    explicit ViewTarget(VLTextView& view, SourceLayer* layer = nullptr) : view_(view), layer_(layer) {}

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
    /// Takes the changes of a command back, as a message of the undo manager.
    void takeBack(const EditList& edits);

private:
    /// What a command has changed that the view does not know of yet.
    struct Batch {
        std::vector<NSRange> selected;
        EditList edits;
        ChangedRange changed;
        std::optional<NSRange> shown{};  // where the insertion point was shown last
        bool isSelectionNew = false;
    };

    bool isHeard() const;
    std::vector<NSRange> rangesOfView() const;
    void giveToView();
    void record(NSRange range, std::u16string_view with);
    id self() const { return id(static_cast<NSObject*>(&view_)); }
    void highlight(bool whole);

    VLTextView& view_;
    SourceLayer* layer_;
    std::optional<Batch> batch_;
    std::vector<id> undoManagers_;  // in which the running commands began their groups
};

}  // namespace velt
