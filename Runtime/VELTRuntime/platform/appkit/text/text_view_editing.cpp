// What a person does with a text view: typing, deleting, the clipboard, undo; and what programs know it by.
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/text_positions.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/id_of.h"
#include "VELTRuntime/platform/object/setting.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

using velt::Ref;
using velt::TextWidget;

namespace {

/// The text of a string or an attributed string; raises the conversion's failure for what has none.
id plainTextOf(const id& text) {
    const NSAttributedString* attributed = velt::attributedStringOf(text);
    return attributed ? attributed->string() : VELT_CSTRING(text);
}

}  // namespace

// Undo.

id NSTextView::delegatesUndoManager() const {
    static const velt::Selector asks = velt::Selector::named("undoManagerForTextView:");
    if (!velt::respondsTo(delegate(), asks)) return nil;
    id given = velt::send(delegate(), asks, velt::idOf(this));
    return velt::is<NSUndoManager>(given) ? given : id();
}

id NSTextView::undoManager() {
    if (id given = delegatesUndoManager(); !given.isNil()) return given;
    if (!undoManager_) undoManager_ = velt::make<NSUndoManager>();
    return undoManager_;
}

void NSTextView::forgetUndo() {
    last_ = {};
    if (undoManager_) undoManager_->removeAllActionsWithTarget(velt::idOf(this));
    if (const id given = delegatesUndoManager(); !given.isNil()) {
        velt::as<NSUndoManager>(given)->removeAllActionsWithTarget(velt::idOf(this));
    }
}

void NSTextView::commandBegins() {
    const id manager = undoManager();
    if (velt::is<NSUndoManager>(manager)) velt::as<NSUndoManager>(manager)->endEvent();
}

bool NSTextView::joinUndo(NSRange range, std::size_t newLength, const id& before) {
    if (joins_ == Joins::No || last_.kind != joins_) return false;
    Undoable joined = last_;
    if (joins_ == Joins::Typing) {
        if (range.length > 0 || range.location != last_.range.location + last_.range.length) return false;
        joined.range.length += newLength;
    } else {
        const auto& removed = *velt::attributedStringOf(before);
        const auto& earlier = *velt::attributedStringOf(last_.before);
        const bool backward = range.location + range.length == last_.range.location;
        if (!backward && range.location != last_.range.location) return false;
        const Ref<NSMutableAttributedString> whole =
            velt::make<NSMutableAttributedString>(backward ? removed : earlier);
        whole->append(backward ? earlier : removed);
        joined.range = {range.location, 0};
        joined.before = velt::make<NSAttributedString>(*whole);
    }
    const id arguments[] = {VELT_ID(joined.range), joined.before};
    const id manager = undoManager();
    if (!velt::as<NSUndoManager>(manager)->amend(joined.registration, arguments)) return false;
    last_ = joined;
    return true;
}

void NSTextView::registerUndo(NSRange range, std::size_t newLength) {
    const id manager = undoManager();
    if (!velt::is<NSUndoManager>(manager)) return;
    auto& undoes = *velt::as<NSUndoManager>(manager);
    if (!allowsUndo_) {
        // What was done before would be put back where it does not belong any more.
        if (!undoes.isUndoing() && !undoes.isRedoing()) forgetUndo();
        return;
    }
    const id before = attributedPart(range);
    if (joinUndo(range, newLength, before)) return;
    const id arguments[] = {VELT_ID(NSRange{range.location, newLength}), before};
    const auto registration =
        undoes.registerUndo(velt::idOf(this), velt::Selector::named("restoreCharactersInRange:from:"), arguments);
    last_ = {registration, joins_, {range.location, newLength}, before};
}

void NSTextView::restore(const id& range, const id& text) {
    const NSRange place = VELT_CNSRANGE(range);
    const auto* before = velt::to<NSAttributedString>(text);
    const std::size_t length = textLength();
    if (!before || place.location > length || place.length > length - place.location) return;
    const Ref<NSAttributedString> kept = velt::make<NSAttributedString>(*before);
    {
        const velt::Setting joins(joins_, Joins::No);
        replaceCharactersWithAttributed(place, *kept);
    }
    last_ = {};
    setSelectedRange({place.location + kept->length(), 0});
    scrollRangeToVisible({place.location + kept->length(), 0});
    velt::send(velt::idOf(this), VELT_SELECTOR("didChangeText"));
}

void NSTextView::undo(const id&) {
    last_ = {};
    velt::send(velt::send(velt::idOf(this), VELT_SELECTOR("undoManager")), VELT_SELECTOR("undo"));
}

void NSTextView::redo(const id&) {
    last_ = {};
    velt::send(velt::send(velt::idOf(this), VELT_SELECTOR("undoManager")), VELT_SELECTOR("redo"));
}

// Changing the text.

bool NSTextView::shouldChangeText(NSRange range, const id& replacement) {
    if (!isEditable()) return false;
    static const velt::Selector begins = velt::Selector::named("textShouldBeginEditing:");
    static const velt::Selector asks = velt::Selector::named("textView:shouldChangeTextInRange:replacementString:");
    const QWidget* widget = existingWidget();
    const bool starts = !begun_ && widget && widget->hasFocus();
    if (starts && velt::respondsTo(delegate(), begins) &&
        !VELT_CBOOL(velt::send(delegate(), begins, velt::idOf(this)))) {
        return false;
    }
    if (velt::respondsTo(delegate(), asks) &&
        !VELT_CBOOL(velt::send(delegate(), asks, velt::idOf(this), VELT_ID(range), replacement))) {
        return false;
    }
    if (starts) {
        begun_ = true;
        tell("textDidBeginEditing:", "NSTextDidBeginEditingNotification");
    }
    return true;
}

void NSTextView::didChangeText() { tell("textDidChange:", "NSTextDidChangeNotification"); }

bool NSTextView::change(NSRange range, const id& text, bool goesBehind) {
    const Ref<NSTextView> kept(this);
    const id self(kept);
    const id where = VELT_ID(range), plain = plainTextOf(text);
    if (!VELT_CBOOL(velt::send(self, VELT_SELECTOR("shouldChangeTextInRange:replacementString:"), where, plain))) {
        return false;
    }
    if (isRichText() && velt::attributedStringOf(text)) {
        velt::send(self, VELT_SELECTOR("replaceCharactersInRange:withAttributedString:"), where, text);
    } else {
        velt::send(self, VELT_SELECTOR("replaceCharactersInRange:withString:"), where, plain);
    }
    if (goesBehind)
        select({{std::min<std::size_t>(range.location + velt::textOf(plain).size(), textLength()), 0}}, true);
    velt::send(self, VELT_SELECTOR("didChangeText"));
    return true;
}

void NSTextView::insertTextInRange(const id& text, NSRange range) {
    requireRange("insertText:replacementRange:", range);
    const Ref<NSTextView> kept(this);
    const velt::Setting joins(joins_, range.length == 0 ? Joins::Typing : Joins::No);
    if (!change(range, text, true)) return;
    // Where the delegate put the insertion point meanwhile counts.
    const NSRange now = ranges_.front();
    scrollRangeToVisible({now.location + now.length, 0});
    if (range.length > 0 && last_.registration != 0) last_.kind = Joins::Typing;
}

void NSTextView::insertText(const id& text) { insertTextInRange(text, ranges_.front()); }

void NSTextView::insertTab(const id&) { velt::send(velt::idOf(this), VELT_SELECTOR("insertText:"), "\t"_v); }

void NSTextView::insertNewline(const id&) {
    velt::send(velt::idOf(this), VELT_SELECTOR("insertText:"), "\n"_v);
    last_ = {};  // each line is undone apart
}

void NSTextView::insertLineBreak(const id&) { velt::send(velt::idOf(this), VELT_SELECTOR("insertText:"), "\u2028"_v); }

void NSTextView::deleteSelection(const id&) {
    // From the last range to the first, so that places stay right.
    std::vector<NSRange> ranges = ranges_;
    std::sort(ranges.begin(), ranges.end(), [](NSRange a, NSRange b) { return a.location > b.location; });
    for (const NSRange& range : ranges) {
        if (range.length > 0 && !change(range, ""_v)) return;
    }
    if (ranges_.size() > 1) select({{std::min<std::size_t>(ranges.back().location, textLength()), 0}}, true);
}

void NSTextView::deleteBackward(const id&) {
    const NSRange now = ranges_.front();
    if (now.length > 0) return deleteSelection(nil);
    if (now.location == 0) return;
    const std::size_t begin = velt::positionBefore(text(), now.location);
    const Ref<NSTextView> kept(this);
    const velt::Setting joins(joins_, Joins::Deleting);
    change({begin, now.location - begin}, ""_v);
    scrollRangeToVisible({std::min<std::size_t>(begin, textLength()), 0});
}

void NSTextView::deleteForward(const id&) {
    const NSRange now = ranges_.front();
    if (now.length > 0) return deleteSelection(nil);
    const std::size_t end = velt::positionAfter(text(), now.location);
    if (end == now.location) return;
    const Ref<NSTextView> kept(this);
    const velt::Setting joins(joins_, Joins::Deleting);
    change({now.location, end - now.location}, ""_v);
}

// The clipboard.

void NSTextView::copySelection(const id&) {
    const Ref<NSMutableAttributedString> whole = velt::make<NSMutableAttributedString>();
    for (const NSRange& range : ranges_) {
        if (range.length == 0) continue;
        if (whole->length() > 0) whole->append(*velt::make<NSAttributedString>(u"\n"));
        whole->append(*velt::attributedStringOf(attributedPart(range)));
    }
    if (whole->length() == 0) return;
    const QFont shown = velt::as<NSFont>(font())->font();
    QGuiApplication::clipboard()->setMimeData(velt::mimeDataOf(*whole, isRichText(), shown).release());
}

void NSTextView::cut(const id& sender) {
    if (!isEditable() || ranges_.front().length == 0) return;
    copySelection(sender);
    deleteSelection(sender);
}

void NSTextView::paste(const id&) {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    const id text = data ? velt::textFrom(*data, isRichText()) : id();
    if (text.isNil()) return;
    last_ = {};
    velt::send(velt::idOf(this), VELT_SELECTOR("insertText:"), text);
    last_ = {};
}

void NSTextView::selectAll(const id&) {
    if (isSelectable()) setSelectedRange({0, textLength()});
}

// Keys.

void NSTextView::keyDown(const id& event) {
    TextWidget* widget = existingTextWidget();
    if (widget && widget->hasKey()) {
        widget->interpretKey();
        return;
    }
    // An event that a program made.
    const id characters = velt::is<NSEvent>(event) ? velt::as<NSEvent>(event)->characters() : id();
    if (velt::isString(characters)) velt::send(velt::idOf(this), VELT_SELECTOR("insertText:"), characters);
}

void NSTextView::keyUp(const id&) {}

bool NSTextView::delegateDoes(const id& selectorName) const {
    static const velt::Selector asks = velt::Selector::named("textView:doCommandBySelector:");
    const id asked = delegate();
    return velt::respondsTo(asked, asks) && VELT_CBOOL(velt::send(asked, asks, velt::idOf(this), selectorName));
}

bool NSTextView::doCommand(const id& selectorName) {
    const id name = VELT_CSTRING(selectorName);
    if (delegateDoes(name)) return true;
    const velt::Selector selector = velt::Selector::named(velt::utf8(name));
    if (selector.argumentCount() == 1 && velt::respondsTo(velt::idOf(this), selector)) {
        velt::send(velt::idOf(this), selector, nil);
        return true;
    }
    return isSelectable() && static_cast<TextWidget&>(widget()).move(velt::qtText(name));
}

bool NSTextView::validateMenuItem(const id& item) {
    const id action =
        velt::respondsTo(item, VELT_SELECTOR("action")) ? velt::send(item, VELT_SELECTOR("action")) : id();
    return canDo(velt::isString(action) ? velt::utf8(action) : std::string());
}

bool NSTextView::canDo(std::string_view command) {
    const auto undoManagerCan = [this](const char* asks) {
        return isEditable() && VELT_CBOOL(velt::send(undoManager(), velt::Selector::named(asks)));
    };
    const bool isSelected = selectedRange().length > 0;
    if (command == "undo:") return undoManagerCan("canUndo");
    if (command == "redo:") return undoManagerCan("canRedo");
    if (command == "cut:" || command == "delete:") return isEditable() && isSelected;
    if (command == "copy:") return isSelectable() && isSelected;
    if (command == "selectAll:") return isSelectable() && textLength() > 0;
    if (command == "paste:") {
        const QMimeData* held = QGuiApplication::clipboard()->mimeData();
        return isEditable() && held && (held->hasText() || held->hasHtml());
    }
    return true;
}

void NSTextView::describe(velt::ClassBuilder<NSTextView>& c) {
    c.property("textStorage", &NSTextView::textStorage)
        .property("layoutManager", &NSTextView::layoutManager)
        .property("textContainer", &NSTextView::textContainer)
        .property("undoManager", &NSTextView::undoManager)
        .property("allowsUndo", &NSTextView::allowsUndo, &NSTextView::setAllowsUndo)
        .property("selectedRanges", &NSTextView::selectedRanges, &NSTextView::setSelectedRanges)
        .method("replaceCharactersInRange:withAttributedString:",
                [](const id& self, const id* a) {
                    const auto* text = velt::to<NSAttributedString>(a[1]);
                    const Ref<NSAttributedString> none = velt::make<NSAttributedString>();
                    velt::as<NSTextView>(self)->replaceCharactersWithAttributed(VELT_CNSRANGE(a[0]),
                                                                                text ? *text : *none);
                    return id();
                })
        .method("insertText:", &NSTextView::insertText)
        .method("insertText:replacementRange:", &NSTextView::insertTextInRange)
        .method("shouldChangeTextInRange:replacementString:", &NSTextView::shouldChangeText)
        .method("didChangeText", &NSTextView::didChangeText)
        .method("restoreCharactersInRange:from:", &NSTextView::restore)
        .method("undo:", &NSTextView::undo)
        .method("redo:", &NSTextView::redo)
        .method("insertTab:", &NSTextView::insertTab)
        .method("insertNewline:", &NSTextView::insertNewline)
        .method("insertLineBreak:", &NSTextView::insertLineBreak)
        .method("deleteBackward:", &NSTextView::deleteBackward)
        .method("deleteForward:", &NSTextView::deleteForward)
        .method("doCommandBySelector:", &NSTextView::doCommand)
        .method("keyDown:", &NSTextView::keyDown)
        .method("keyUp:", &NSTextView::keyUp)
        .method("performFindPanelAction:", &NSTextView::performFindPanelAction)
        .method("validateMenuItem:", &NSTextView::validateMenuItem)
        .method("cancelOperation:", &NSTextView::cancelOperation)
        .owns(&NSTextView::font_)
        .owns(&NSTextView::textColor_);
    // What deletes as far as the insertion point would move.
#define VELT_DELETES(name, operation)                                                                                  \
    c.method(name, [](const id& self, const id*) {                                                                     \
        auto& view = *velt::as<NSTextView>(self);                                                                      \
        if (view.ranges_.front().length > 0) return view.deleteSelection(nil), id();                                   \
        const auto [begin, end] = static_cast<TextWidget&>(view.widget()).reachOf(QTextCursor::operation);             \
        if (end > begin) view.change({begin, end - begin}, ""_v);                                                      \
        return id();                                                                                                   \
    });
    VELT_DELETES("deleteWordBackward:", PreviousWord)
    VELT_DELETES("deleteWordForward:", NextWord)
    VELT_DELETES("deleteToEndOfLine:", EndOfBlock)
    VELT_DELETES("deleteToBeginningOfLine:", StartOfBlock)
    c.method("deleteParagraph:", [](const id& self, const id*) {
        auto& view = *velt::as<NSTextView>(self);
        auto& widget = static_cast<TextWidget&>(view.widget());
        const std::size_t begin = widget.reachOf(QTextCursor::StartOfBlock).first;
        const std::size_t end = widget.reachOf(QTextCursor::EndOfBlock).second;
        if (end > begin) view.change({begin, end - begin}, ""_v);
        return id();
    });
#undef VELT_DELETES
}
