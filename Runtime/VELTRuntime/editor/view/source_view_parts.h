// The parts of the editor that work on an editor view, and what they ask of it.
#pragma once

#include "VELTRuntime/editor/completion.h"
#include "VELTRuntime/editor/source_formatter.h"
#include "VELTRuntime/editor/view/completion_list.h"
#include "VELTRuntime/editor/view/view_target.h"

struct VLTextView::Parts final : velt::FormatterHost, velt::CompletionHost, velt::PopupWindow {
    explicit Parts(VLTextView& owner)
        : view(owner), target(owner, owner.layer_), formatter(target, *this), completion(target, *this, *this) {}

    velt::WordLists wordLists() override { return view.wordLists(); }
    void lineEndTyped(std::size_t selectionLocation) override { view.moveEntriesFrom(selectionLocation, 1); }
    void changeHandled(std::size_t position, std::u16string_view typed) override {
        completion.textTyped(position, typed);
    }

    void startTimer(double seconds) override;
    void stopTimer() override;
    std::vector<std::u16string> types() override;
    std::vector<std::u16string> members(const std::u16string& expression) override;
    std::u16string signature(const std::u16string& expression) override;

    void run(velt::CompletionPopup& popup) override;
    void popupChanged(const velt::CompletionPopup&) override;
    void popupEnded(const velt::CompletionPopup&) override;
    void paste() override { view.paste(nil); }

    VLTextView& view;
    velt::ViewTarget target;
    velt::SourceFormatter formatter;
    velt::Completion completion;
    velt::Ref<Autocompletion> shown;  // the popup that is open now
};
