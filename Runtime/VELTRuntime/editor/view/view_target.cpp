#include "VELTRuntime/editor/view/view_target.h"

#include "VELTRuntime/editor/view/find_indicator.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/message.h"

#include <QApplication>

namespace velt {

std::vector<NSRange> ViewTarget::selectedRanges() const {
    const id list = view_.selectedRanges();
    std::vector<NSRange> ranges;
    for (const id& range : as<NSArray>(list)->items()) ranges.push_back(VELT_CNSRANGE(range));
    return ranges;
}

void ViewTarget::setSelectedRanges(std::vector<NSRange> ranges) {
    const Ref<NSMutableArray> list = make<NSMutableArray>();
    for (const NSRange& range : ranges) list->append(VELT_ID(range));
    view_.setSelectedRanges(list);
}

bool ViewTarget::shouldChange(NSRange range, std::u16string_view with) {
    return VELT_CBOOL(send(self(), VELT_SELECTOR("shouldChangeTextInRange:replacementString:"), VELT_ID(range),
                           string(std::u16string_view(with)))) != 0;
}

void ViewTarget::replace(NSRange range, std::u16string_view with) {
    send(self(), VELT_SELECTOR("replaceCharactersInRange:withString:"), VELT_ID(range), string(with));
}

void ViewTarget::didChange() { send(self(), VELT_SELECTOR("didChangeText")); }

void ViewTarget::insertText(std::u16string_view text) { send(self(), VELT_SELECTOR("insertText:"), string(text)); }

void ViewTarget::beginCommand() {
    id manager = view_.undoManager();
    if (is<NSUndoManager>(manager)) as<NSUndoManager>(manager)->beginUndoGrouping();
    undoManagers_.push_back(std::move(manager));
}

void ViewTarget::endCommand() {
    const id manager = std::move(undoManagers_.back());
    undoManagers_.pop_back();
    // The program may have ended the group.
    if (is<NSUndoManager>(manager) && as<NSUndoManager>(manager)->groupingLevel() > 0) {
        as<NSUndoManager>(manager)->endUndoGrouping();
    }
}

void ViewTarget::reveal(NSRange range) { view_.scrollRangeToVisible(range); }

void ViewTarget::showFindIndicator(NSRange range) { velt::showFindIndicator(view_, range); }

void ViewTarget::highlight(bool whole) {
    send(self(), VELT_SELECTOR("performSyntaxHighlighting::"), self(), VELT_ID(static_cast<BOOL>(whole)));
}

void ViewTarget::highlightVisibleLines() { highlight(false); }

void ViewTarget::highlightAll() { highlight(true); }

void ViewTarget::beep() { QApplication::beep(); }

}  // namespace velt
