// An editor view as the editor's commands see it. Every change goes to the view as messages by name, so that a
// program's subclass has its say. Where nobody would have one, the changes of a command are made on the editor's own
// copy of the text, and the view gets them as one. Whoever is asked and told of single changes is, in their order; the
// view catches up as soon as somebody looks at it.
#pragma once

#include "VELTRuntime/editor/changed_range.h"
#include "VELTRuntime/editor/edit_list.h"
#include "VELTRuntime/editor/edit_target.h"
#include "VELTRuntime/editor/view/source_layer.h"
#include "VELTRuntime/editor/view/source_view.h"

class QObject;

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
    explicit ViewTarget(VLTextView& view, SourceLayer* layer = nullptr);
    ~ViewTarget() override;

    /// The layer is about to end: what the view has not got yet is dropped, as the view ends with it.
    void leave();

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
    /// The view gets what has gathered.
    void giveToView();

private:
    /// What a command has changed that the view does not know of yet.
    struct Batch {
        bool isHeard = false;           // somebody is told of each change, and the view has the selection
        std::vector<NSRange> selected;  // otherwise
        EditList edits{};
        ChangedRange changed{};
        std::optional<NSRange> shown{};  // where the insertion point was shown last
        bool isSelectionNew = false;
    };

    bool canGather() const;
    bool isHeard() const;
    void begin();
    void end();
    bool isTold() const { return batch_ && batch_->isHeard; }
    std::vector<NSRange> rangesOfView() const;
    void put(NSRange range, std::u16string_view with);
    void record(NSRange range, std::u16string_view with);
    id self() const { return id(static_cast<NSObject*>(&view_)); }
    void highlight(bool whole);

    VLTextView& view_;
    SourceLayer* layer_;
    std::optional<Batch> batch_;
    std::unique_ptr<QObject> watch_;  // for events of the view's widget
    std::vector<id> undoManagers_;    // in which the running commands began their groups
};

}  // namespace velt
