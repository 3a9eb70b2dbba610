// What a person types into a text view's widget, as messages to the view.
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/menus/menu_bar.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/find_actions.h"
#include "VELTRuntime/platform/appkit/text/find_bar.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <iterator>

namespace velt {

namespace {

/// A key of the desktop and the command that it stands for.
struct KeyCommand {
    QKeySequence::StandardKey key;
    const char* command;
    bool edits;
};
constexpr KeyCommand kKeyCommands[] = {
    {QKeySequence::Undo, "undo:", true},
    {QKeySequence::Redo, "redo:", true},
    {QKeySequence::Cut, "cut:", true},
    {QKeySequence::Copy, "copy:", false},
    {QKeySequence::Paste, "paste:", true},
    {QKeySequence::SelectAll, "selectAll:", false},
    {QKeySequence::Delete, "deleteForward:", true},
    {QKeySequence::Backspace, "deleteBackward:", true},
    {QKeySequence::DeleteStartOfWord, "deleteWordBackward:", true},
    {QKeySequence::DeleteEndOfWord, "deleteWordForward:", true},
    {QKeySequence::DeleteEndOfLine, "deleteToEndOfLine:", true},
    {QKeySequence::DeleteCompleteLine, "deleteParagraph:", true},
    {QKeySequence::InsertParagraphSeparator, "insertNewline:", true},
    {QKeySequence::InsertLineSeparator, "insertLineBreak:", true},
};

/// The first so many rows are commands that every program's Edit menu has.
constexpr std::ptrdiff_t kEverywhere = 6;

struct KeyFind {
    QKeySequence::StandardKey key;
    FindAction action;
};
constexpr KeyFind kKeyFinds[] = {
    {QKeySequence::Find, kShowFindBar},
    {QKeySequence::Replace, kShowFindBar},
    {QKeySequence::FindNext, kFindNext},
    {QKeySequence::FindPrevious, kFindPrevious},
};

// Where the plus sign needs the shift key, its key counts without it too.
struct KeyZoom {
    Qt::Key key;
    const char* command;
};
constexpr KeyZoom kKeyZooms[] = {
    {Qt::Key_Plus, "zoomIn:"}, {Qt::Key_Equal, "zoomIn:"}, {Qt::Key_Minus, "zoomOut:"}, {Qt::Key_0, "resetZoom:"}};

constexpr Qt::KeyboardModifiers kCommandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

/// The key types a text. The third level of a keyboard may come with Control and Alt.
bool typesText(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty()) return false;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & kCommandModifiers;
    if (modifiers == Qt::ControlModifier) return false;
    const QChar first = text.front();
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_Format ||
           first.category() == QChar::Other_PrivateUse;
}

}  // namespace

// Keys.

bool TextWidget::takesShortcut(QKeyEvent& key) {
    // The program's own use of a key comes first; what everyone undoes, copies and pastes with means the same there.
    const bool isEverywhere = std::any_of(std::begin(kKeyCommands), std::begin(kKeyCommands) + kEverywhere,
                                          [&](const KeyCommand& row) { return key.matches(row.key); });
    if (!isEverywhere && (key.modifiers() & kCommandModifiers) && mainMenuHasKey(key)) return key.ignore(), true;
    const auto matches = [&](const auto& row) { return key.matches(row.key); };
    const bool isTyped = !(key.modifiers() & kCommandModifiers) && !isReadOnly_ &&
                         (key.key() < Qt::Key_Escape || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter ||
                          key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab);
    const bool isCommand = std::any_of(std::begin(kKeyCommands), std::end(kKeyCommands), [&](const KeyCommand& row) {
        return matches(row) && !(row.edits && isReadOnly_);
    });
    if (isTyped || isCommand || std::any_of(std::begin(kKeyFinds), std::end(kKeyFinds), matches) ||
        (isSelectable_ && isMovement(key))) {
        key.accept();
        return true;
    }
    return false;
}

bool TextWidget::focusNextPrevChild(bool next) { return isReadOnly_ && QAbstractScrollArea::focusNextPrevChild(next); }

void TextWidget::keyPressEvent(QKeyEvent* event) {
    NSTextView* shown = view();
    if (!shown) return QAbstractScrollArea::keyPressEvent(event);
    const Ref<NSTextView> kept(shown);
    runReported([&] { kept->commandBegins(); });
    event->accept();
    showCaret();
    QKeyEvent* outer = std::exchange(key_, event);
    deliver(*kept, VELT_SELECTOR("keyDown:"), NSEvent::ofKey(NSEvent::Type::KeyDown, *event, kept->windowPointer()));
    key_ = outer;
}

void TextWidget::keyReleaseEvent(QKeyEvent* event) {
    if (NSTextView* shown = view()) {
        deliver(*shown, VELT_SELECTOR("keyUp:"), NSEvent::ofKey(NSEvent::Type::KeyUp, *event, shown->windowPointer()));
    }
    QAbstractScrollArea::keyReleaseEvent(event);
}

bool TextWidget::interpretKey() {
    QKeyEvent& event = *key_;
    const bool taken = pressKey(event);
    event.setAccepted(taken);
    return taken;
}

bool TextWidget::pressKey(QKeyEvent& event) {
    NSTextView& shown = *view();
    const bool edits = !isReadOnly_;
    const auto command = [&](const char* selector) { return shown.doCommand(string(std::string_view(selector))); };
    for (const KeyFind& find : kKeyFinds) {
        if (event.matches(find.key)) return shown.find(find.action), true;
    }
    for (const KeyCommand& row : kKeyCommands) {
        if (event.matches(row.key)) return row.edits && !edits ? false : command(row.command);
    }
    const bool plain = !(event.modifiers() & kCommandModifiers);
    if ((event.modifiers() & kCommandModifiers) == Qt::ControlModifier) {
        for (const KeyZoom& row : kKeyZooms) {
            if (event.key() == row.key && command(row.command)) return true;
        }
    }
    switch (event.key()) {
    case Qt::Key_Escape:
        if (isFindBarShown()) return command("cancelOperation:");
        // The text itself has no use for it; a button of the window may have one.
        return plain && shown.delegateDoes(string(u"cancelOperation:"));
    case Qt::Key_Tab: return edits && plain && command("insertTab:");
    case Qt::Key_Backtab: return edits && plain && command("insertBacktab:");
    default: break;
    }
    // Some keyboards have two of them, one with a modifier of its own.
    if (edits && plain && event.key() == Qt::Key_Enter) return command("insertNewline:");
    if (edits && plain && event.key() == Qt::Key_Backspace) return command("deleteBackward:");
    if (edits && plain && event.key() == Qt::Key_Delete) return command("deleteForward:");
    if (edits && typesText(event)) {
        send(id(static_cast<NSObject*>(&shown)), VELT_SELECTOR("insertText:"), textValue(event.text()));
        return true;
    }
    return moveByKey(event);
}

// Input methods.

/// Shows what is being composed at the insertion point; it is no part of the text.
void TextWidget::compose(const QInputMethodEvent& event) {
    ComposedText composed;
    composed.position = position_;
    composed.text = event.preeditString();
    composed.caret = static_cast<int>(composed.text.size());
    for (const QInputMethodEvent::Attribute& attribute : event.attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor) {
            composed.caret = attribute.start;
            composed.hidesCaret = attribute.length == 0;
        } else if (attribute.type == QInputMethodEvent::TextFormat) {
            const QTextCharFormat format = attribute.value.value<QTextFormat>().toCharFormat();
            if (format.isValid()) composed.formats.append({attribute.start, attribute.length, format});
        }
    }
    if (composed.formats.isEmpty() && !composed.text.isEmpty()) {
        QTextCharFormat underlined;
        underlined.setFontUnderline(true);
        composed.formats.append({0, static_cast<int>(composed.text.size()), underlined});
    }
    const std::size_t before = lineOf(std::min(lines_.composed().position, lines_.index().textLength()));
    lines_.setComposed(std::move(composed));
    layOutSeen();
    updateLines(std::min(before, lineOf(position_)), lineCount() - 1);
    reveal(position_);
}

void TextWidget::inputMethodEvent(QInputMethodEvent* event) {
    NSTextView* shown = view();
    if (!shown || isReadOnly_) return event->ignore();
    const Ref<NSTextView> kept(shown);
    event->accept();
    runReported([&] {
        const bool commits = !event->commitString().isEmpty() || event->replacementLength() > 0;
        if (commits) {
            compose({});  // what was being composed makes room for what came of it
            NSRange range = kept->selectedRange();
            if (event->replacementLength() > 0) {
                const auto begin = static_cast<long>(range.location) + event->replacementStart();
                range = {static_cast<unsigned long>(std::max(0L, begin)),
                         static_cast<unsigned long>(event->replacementLength())};
                kept->insertTextInRange(textValue(event->commitString()), range);
            } else {
                send(kept, VELT_SELECTOR("insertText:"), textValue(event->commitString()));
            }
        } else if (!event->preeditString().isEmpty() && kept->selectedRange().length > 0) {
            kept->deleteSelection(nil);
        }
    });
    for (const QInputMethodEvent::Attribute& attribute : event->attributes()) {
        if (attribute.type != QInputMethodEvent::Selection) continue;
        const auto line = static_cast<long>(lines_.index().start(lineOf(position_)));
        const auto length = static_cast<long>(lines_.index().textLength());
        const auto within = [&](long wanted) { return static_cast<std::size_t>(std::clamp(wanted, 0L, length)); };
        selectByPerson(within(line + attribute.start), within(line + attribute.start + attribute.length));
    }
    if (!event->preeditString().isEmpty() && hasSelection()) return;  // it may not be replaced
    if (!event->preeditString().isEmpty() || !lines_.composed().text.isEmpty()) compose(*event);
}

QVariant TextWidget::inputMethodQuery(Qt::InputMethodQuery query) const {
    auto& self = const_cast<TextWidget&>(*this);  // places are laid out when they are asked for
    const NSRange line = lines_.content(lineOf(position_));
    const auto within = [&](std::size_t position) {
        const std::size_t end = line.location + line.length;
        return static_cast<int>(std::clamp<std::size_t>(position, line.location, end) - line.location);
    };
    const auto textOf = [this](std::size_t from, std::size_t to) {
        const std::u16string_view text = lines_.text();
        return to <= text.size() ? qtText(text.substr(from, to - from)) : QString();
    };
    constexpr std::size_t kAround = 1024;
    switch (query) {
    case Qt::ImEnabled: return isEnabled() && !isReadOnly_;
    case Qt::ImReadOnly: return isReadOnly_;
    case Qt::ImCursorRectangle: return self.caretRect(position_).translated(viewport()->pos());
    case Qt::ImAnchorRectangle: return self.caretRect(anchor_).translated(viewport()->pos());
    case Qt::ImInputItemClipRectangle: return viewport()->geometry();
    case Qt::ImFont: return font();
    case Qt::ImCursorPosition: return within(position_);
    case Qt::ImAnchorPosition: return within(anchor_);
    case Qt::ImAbsolutePosition: return static_cast<int>(position_);
    case Qt::ImSurroundingText: return textOf(line.location, line.location + line.length);
    case Qt::ImCurrentSelection: return textOf(selectionBegin(), selectionEnd());
    case Qt::ImTextBeforeCursor: return textOf(position_ - std::min(position_, kAround), position_);
    case Qt::ImTextAfterCursor: return textOf(position_, std::min(position_ + kAround, lines_.index().textLength()));
    case Qt::ImHints: return static_cast<int>(inputMethodHints() | Qt::ImhMultiLine);
    default: return QAbstractScrollArea::inputMethodQuery(query);
    }
}

// The keyboard comes and goes.

void TextWidget::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    showCaret();
    if (hasSelection() || !further_.empty()) viewport()->update();
    if (NSTextView* shown = view()) runReported([&] { shown->keyboardComes(); });
}

void TextWidget::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    if (!lines_.composed().text.isEmpty()) QGuiApplication::inputMethod()->commit();
    showCaret();
    // A menu or the find bar only borrows the keyboard.
    const QWidget* next = QApplication::focusWidget();
    const bool lent = event->reason() == Qt::PopupFocusReason || (findBar_ && next && findBar_->isAncestorOf(next));
    NSTextView* shown = view();
    if (shown && !lent) runReported([&] { shown->keyboardGoes(); });
}

}  // namespace velt
