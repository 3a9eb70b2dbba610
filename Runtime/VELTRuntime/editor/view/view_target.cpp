#include "VELTRuntime/editor/view/view_target.h"

#include "VELTRuntime/editor/view/find_indicator.h"
#include "VELTRuntime/platform/appkit/text/moved_range.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/plain_text.h"
#include "VELTRuntime/platform/object/message.h"

#include <QApplication>
#include <QPointer>

namespace velt {

namespace {

/// Who hears of single changes of a text view, as its delegate and as an observer.
constexpr std::string_view kDelegateHears[] = {
    "textView:shouldChangeTextInRange:replacementString:", "textDidChange:", "textViewDidChangeSelection:"};
constexpr std::string_view kObserversHear[] = {"NSTextDidChangeNotification",
                                               "NSTextViewDidChangeSelectionNotification"};

/// While it exists, what is shown anew and selected does not scroll the view.
class PlaceKeeper {
public:
    explicit PlaceKeeper(TextWidget* widget) : widget_(widget) {
        if (widget_) widget_->setKeepsPlace(true);
    }
    ~PlaceKeeper() {
        if (widget_) widget_->setKeepsPlace(false);
    }
    PlaceKeeper(const PlaceKeeper&) = delete;
    PlaceKeeper& operator=(const PlaceKeeper&) = delete;

private:
    const QPointer<TextWidget> widget_;
};

}  // namespace

Class& SourceEdits::entry() {
    static Class& cls = declareClass<SourceEdits>("SourceEdits", &NSObject::entry());
    return cls;
}

/// Somebody may want to know of each change, or the changes are more than text.
bool ViewTarget::isHeard() const {
    if (!layer_ || &view_.isa() != &VLTextView::entry() || !view_.isEditable() || !isPlain(view_.shown())) return true;
    const id delegate = view_.delegate();
    for (const std::string_view name : kDelegateHears) {
        if (respondsTo(delegate, Selector::named(name))) return true;
    }
    const id center(static_cast<NSObject*>(&NSNotificationCenter::defaultCenter()));
    for (const std::string_view name : kObserversHear) {
        if (VELT_CBOOL(send(center, VELT_SELECTOR("isObserved:of:"), string(name), self()))) return true;
    }
    return false;
}

std::vector<NSRange> ViewTarget::rangesOfView() const {
    const id list = view_.selectedRanges();
    std::vector<NSRange> ranges;
    for (const id& range : as<NSArray>(list)->items()) ranges.push_back(VELT_CNSRANGE(range));
    return ranges;
}

std::vector<NSRange> ViewTarget::selectedRanges() const { return batch_ ? batch_->selected : rangesOfView(); }

void ViewTarget::setSelectedRanges(std::vector<NSRange> ranges) {
    if (batch_) {
        batch_->selected = std::move(ranges);
        batch_->isSelectionNew = true;
        return;
    }
    const Ref<NSMutableArray> list = make<NSMutableArray>();
    for (const NSRange& range : ranges) list->append(VELT_ID(range));
    view_.setSelectedRanges(list);
}

bool ViewTarget::shouldChange(NSRange range, std::u16string_view with) {
    if (batch_ && !batch_->edits.isEmpty()) return true;
    giveToView();
    const bool may = VELT_CBOOL(send(self(), VELT_SELECTOR("shouldChangeTextInRange:replacementString:"),
                                     VELT_ID(range), string(std::u16string_view(with)))) != 0;
    // Who was told that editing begins may have changed anything.
    if (batch_ && isHeard()) batch_.reset();
    if (batch_) batch_->selected = rangesOfView();
    return may && endOf(range) <= buffer().length();
}

void ViewTarget::replace(NSRange range, std::u16string_view with) {
    if (batch_) return record(range, with);
    send(self(), VELT_SELECTOR("replaceCharactersInRange:withString:"), VELT_ID(range), string(with));
}

void ViewTarget::record(NSRange range, std::u16string_view with) {
    SourceBuffer& buffer = layer_->changeableBuffer();
    batch_->edits.add(range.location, buffer.view(range), with);
    buffer.replace(range, with);
    batch_->changed.textChanged(range, with.size());
    for (NSRange& selected : batch_->selected) selected = movedBy(selected, range, with.size());
    if (batch_->shown) batch_->shown = movedBy(*batch_->shown, range, with.size());
}

void ViewTarget::didChange() {
    if (!batch_) send(self(), VELT_SELECTOR("didChangeText"));
}

void ViewTarget::insertText(std::u16string_view text) {
    if (!batch_) {
        send(self(), VELT_SELECTOR("insertText:"), string(text));
        return;
    }
    const NSRange range = batch_->selected.front();
    if (!shouldChange(range, text)) return;
    if (!batch_) {
        change(range, text);
        return view_.setSelectedRange({std::min(range.location + text.size(), buffer().length()), 0});
    }
    record(range, text);
    batch_->selected = {{range.location + text.size(), 0}};
    batch_->shown = batch_->selected.front();
}

/// The view gets what has gathered.
void ViewTarget::giveToView() {
    if (!batch_) return;
    const PlaceKeeper keeper(view_.existingTextWidget());
    Batch given = std::exchange(*batch_, Batch{batch_->selected, {}, {}});
    if (!given.edits.isEmpty()) {
        const NSRange now = *given.changed.range();
        const NSRange before{now.location, now.length + view_.textLength() - buffer().length()};
        // One message takes all of it back.
        const bool isUndoable = view_.allowsUndo();
        view_.setAllowsUndo(false);
        layer_->setIsAhead(true);
        view_.replaceCharactersWithAttributed(before, *make<NSAttributedString>(buffer().view(now)));
        layer_->setIsAhead(false);
        view_.setAllowsUndo(isUndoable);
        const id manager = view_.undoManager();
        if (isUndoable && is<NSUndoManager>(manager)) {
            const id arguments[] = {make<SourceEdits>(std::move(given.edits))};
            as<NSUndoManager>(manager)->registerUndo(self(), VELT_SELECTOR("restoreEdits:"), arguments);
        }
        given.isSelectionNew = true;
    }
    if (!given.isSelectionNew) return;
    const Ref<NSMutableArray> list = make<NSMutableArray>();
    for (const NSRange& range : given.selected) list->append(VELT_ID(range));
    view_.setSelectedRanges(list);
    if (given.shown) view_.scrollRangeToVisible(*given.shown);
    if (given.changed.range()) view_.didChangeText();
}

void ViewTarget::takeBack(const EditList& edits) {
    const bool isOne = !batch_ && !isHeard();
    if (isOne) batch_.emplace(Batch{rangesOfView(), {}, {}});
    edits.takeBack([&](NSRange range, std::u16string_view with) {
        if (endOf(range) > buffer().length()) return;
        if (!isOne) {
            send(self(), VELT_SELECTOR("restoreCharactersInRange:from:"), VELT_ID(range),
                 make<NSAttributedString>(with));
            return;
        }
        record(range, with);
        batch_->selected = {{range.location + with.size(), 0}};
        batch_->shown = batch_->selected.front();
    });
    if (!isOne) return;
    giveToView();
    batch_.reset();
}

void ViewTarget::beginCommand() {
    id manager = view_.undoManager();
    if (is<NSUndoManager>(manager)) as<NSUndoManager>(manager)->beginUndoGrouping();
    undoManagers_.push_back(std::move(manager));
    if (!batch_ && undoManagers_.size() == 1 && !isHeard()) batch_.emplace(Batch{rangesOfView(), {}, {}});
}

void ViewTarget::endCommand() {
    if (undoManagers_.size() == 1) {
        giveToView();
        batch_.reset();
    }
    const id manager = std::move(undoManagers_.back());
    undoManagers_.pop_back();
    // The program may have ended the group.
    if (is<NSUndoManager>(manager) && as<NSUndoManager>(manager)->groupingLevel() > 0) {
        as<NSUndoManager>(manager)->endUndoGrouping();
    }
}

void ViewTarget::reveal(NSRange range) {
    giveToView();
    view_.scrollRangeToVisible(range);
}

void ViewTarget::showFindIndicator(NSRange range) {
    giveToView();
    velt::showFindIndicator(view_, range);
}

void ViewTarget::highlight(bool whole) {
    giveToView();
    send(self(), VELT_SELECTOR("performSyntaxHighlighting::"), self(), VELT_ID(static_cast<BOOL>(whole)));
}

void ViewTarget::highlightVisibleLines() { highlight(false); }

void ViewTarget::highlightAll() { highlight(true); }

void ViewTarget::beep() { QApplication::beep(); }

}  // namespace velt
