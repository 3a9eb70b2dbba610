#include "VELTRuntime/editor/view/view_target.h"

#include "VELTRuntime/editor/view/find_indicator.h"
#include "VELTRuntime/platform/appkit/text/merged_ranges.h"
#include "VELTRuntime/platform/appkit/text/moved_range.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/plain_text.h"
#include "VELTRuntime/platform/object/message.h"

#include <QApplication>

namespace velt {

namespace {

/// Who hears of single changes of a text view, as its delegate and as an observer.
constexpr std::string_view kDelegateHears[] = {
    "textView:shouldChangeTextInRange:replacementString:", "textDidChange:", "textViewDidChangeSelection:"};
constexpr std::string_view kObserversHear[] = {"NSTextDidChangeNotification",
                                               "NSTextViewDidChangeSelectionNotification"};

/// The view and the layer.
constexpr std::uint32_t kOwnersOfStorage = 2;

/// Has the view catch up before its widget works on an event: a program that is told of a change may have waited for
/// some.
class Watch final : public QObject {
public:
    Watch(ViewTarget& target, TextWidget& widget) : target_(target) {
        widget.installEventFilter(this);
        widget.viewport()->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent*) override {
        target_.giveToView();
        return false;
    }

private:
    ViewTarget& target_;
};

}  // namespace

Class& SourceEdits::entry() {
    static Class& cls = declareClass<SourceEdits>("SourceEdits", &NSObject::entry());
    return cls;
}

ViewTarget::ViewTarget(VLTextView& view, SourceLayer* layer) : view_(view), layer_(layer) {}

ViewTarget::~ViewTarget() { leave(); }

void ViewTarget::leave() {
    if (layer_ && layer_->ahead() == this) layer_->setAhead(nullptr);
    layer_ = nullptr;
    batch_.reset();
    watch_.reset();
}

/// The changes are nothing but text, and whoever looks at it comes through the view.
bool ViewTarget::canGather() const {
    if (!layer_ || &view_.isa() != &VLTextView::entry() || !view_.isEditable() || !isPlain(layer_->storage())) {
        return false;
    }
    if (layer_->storage().ownerCount() > kOwnersOfStorage) return false;
    const auto ours = static_cast<std::uint32_t>(undoManagers_.size() + 1);
    if (!undoManagers_.empty() && undoManagers_[0].isObject() && undoManagers_[0].object()->ownerCount() > ours) {
        return false;
    }
    return !respondsTo(view_.delegate(), VELT_SELECTOR("undoManagerForTextView:"));
}

/// Somebody may want to know of each change.
bool ViewTarget::isHeard() const {
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

void ViewTarget::begin() {
    if (batch_ || layer_->ahead()) return;
    batch_.emplace(Batch{isHeard(), rangesOfView()});
    layer_->setAhead(this);
    if (TextWidget* widget = view_.existingTextWidget()) watch_ = std::make_unique<Watch>(*this, *widget);
}

void ViewTarget::end() {
    if (!batch_) return;
    giveToView();
    batch_.reset();
    watch_.reset();
    layer_->setAhead(nullptr);
}

std::vector<NSRange> ViewTarget::rangesOfView() const {
    const id list = view_.selectedRanges();
    std::vector<NSRange> ranges;
    for (const id& range : as<NSArray>(list)->items()) ranges.push_back(VELT_CNSRANGE(range));
    return ranges;
}

std::vector<NSRange> ViewTarget::selectedRanges() const {
    return batch_ && !isTold() ? batch_->selected : rangesOfView();
}

void ViewTarget::setSelectedRanges(std::vector<NSRange> ranges) {
    if (isTold()) {
        batch_->isSelectionNew = true;
        return view_.selectAhead(std::move(ranges));
    }
    if (batch_) {
        batch_->selected = mergedRanges(std::move(ranges));  // as the view does it
        batch_->isSelectionNew = true;
        return;
    }
    const Ref<NSMutableArray> list = make<NSMutableArray>();
    for (const NSRange& range : ranges) list->append(VELT_ID(range));
    view_.setSelectedRanges(list);
}

bool ViewTarget::shouldChange(NSRange range, std::u16string_view with) {
    if (batch_ && !isTold() && !batch_->edits.isEmpty()) return true;
    if (!isTold()) giveToView();
    const bool may = VELT_CBOOL(send(self(), VELT_SELECTOR("shouldChangeTextInRange:replacementString:"),
                                     VELT_ID(range), string(std::u16string_view(with)))) != 0;
    // Who was asked, or told that editing begins, may have changed anything.
    if (batch_ && !canGather()) {
        end();
    } else if (batch_ && !isTold()) {
        batch_->isHeard = isHeard();
        batch_->selected = rangesOfView();
    }
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
    if (batch_->shown) batch_->shown = movedBy(*batch_->shown, range, with.size());
    if (isTold()) return view_.moveSelectionAhead(range, with.size());
    for (NSRange& selected : batch_->selected) selected = movedBy(selected, range, with.size());
}

void ViewTarget::didChange() {
    if (!batch_ || isTold()) send(self(), VELT_SELECTOR("didChangeText"));
}

/// Puts a text in the place of a range without asking, with the insertion point behind it.
void ViewTarget::put(NSRange range, std::u16string_view with) {
    replace(range, with);
    setSelectedRanges({{std::min(range.location + with.size(), buffer().length()), 0}});
    didChange();
    // Where somebody put the insertion point meanwhile counts.
    const std::vector<NSRange> now = selectedRanges();
    const NSRange caret{endOf(now.front()), 0};
    if (batch_)
        batch_->shown = caret;
    else
        view_.scrollRangeToVisible(caret);
}

void ViewTarget::insertText(std::u16string_view text) {
    if (!batch_) {
        send(self(), VELT_SELECTOR("insertText:"), string(text));
        return;
    }
    const std::vector<NSRange> selected = selectedRanges();
    if (shouldChange(selected.front(), text)) put(selected.front(), text);
}

void ViewTarget::giveToView() {
    if (!batch_ || (batch_->edits.isEmpty() && !batch_->isSelectionNew)) return;
    // Taken first: what shows the text asks for it.
    Batch given = std::exchange(*batch_, Batch{batch_->isHeard, batch_->selected});
    const PlaceKeeper keeper(view_.existingTextWidget());
    if (!given.edits.isEmpty()) {
        const NSRange now = *given.changed.range();
        const NSRange before{now.location, now.length + layer_->storage().length() - buffer().length()};
        const Ref<NSAttributedString> text = make<NSAttributedString>(buffer().view(now));
        layer_->setIsAhead(true);
        view_.catchUp(before, *text);
        layer_->setIsAhead(false);
        // One message takes all of it back.
        const id manager = view_.undoManager();
        if (!view_.allowsUndo()) {
            view_.forgetUndo();
        } else if (is<NSUndoManager>(manager)) {
            const id arguments[] = {make<SourceEdits>(std::move(given.edits))};
            as<NSUndoManager>(manager)->registerUndo(self(), VELT_SELECTOR("restoreEdits:"), arguments);
        }
    }
    if (given.isSelectionNew || !given.isHeard) {
        const Ref<NSMutableArray> list = make<NSMutableArray>();
        for (const NSRange& range : given.isHeard ? rangesOfView() : given.selected) list->append(VELT_ID(range));
        view_.setSelectedRanges(list);
    }
    if (given.shown) view_.scrollRangeToVisible(*given.shown);
    if (!given.isHeard && given.changed.range()) view_.didChangeText();
}

void ViewTarget::takeBack(const EditList& edits) {
    const bool gathers = !batch_ && canGather();
    struct Gathering {
        ~Gathering() {
            if (target) target->end();
        }
        ViewTarget* target;
    } const gathering{gathers ? this : nullptr};
    if (gathers) begin();
    edits.takeBack([&](NSRange range, std::u16string_view with) {
        if (endOf(range) > buffer().length()) return;
        if (batch_ && gathers && !canGather()) end();
        if (batch_ && gathers) return put(range, with);
        send(self(), VELT_SELECTOR("restoreCharactersInRange:from:"), VELT_ID(range), make<NSAttributedString>(with));
    });
}

void ViewTarget::beginCommand() {
    // A command within another one has that one's; the view would catch up for who asks it.
    id manager = batch_ && !undoManagers_.empty() ? undoManagers_.front() : view_.undoManager();
    if (is<NSUndoManager>(manager)) as<NSUndoManager>(manager)->beginUndoGrouping();
    undoManagers_.push_back(std::move(manager));
    if (undoManagers_.size() == 1 && canGather()) begin();
}

void ViewTarget::endCommand() {
    if (undoManagers_.size() == 1) end();
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
