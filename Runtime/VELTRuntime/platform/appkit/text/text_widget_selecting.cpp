// How a person moves about and selects in a text view's widget.
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/text/text_positions.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/values/text/utf.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QStyleHints>
#include <iterator>

namespace velt {

namespace {

struct Movement {
    const char* command;
    QTextCursor::MoveOperation operation;
};
constexpr Movement kMovements[] = {
    {"moveLeft", QTextCursor::Left},
    {"moveRight", QTextCursor::Right},
    {"moveUp", QTextCursor::Up},
    {"moveDown", QTextCursor::Down},
    {"moveBackward", QTextCursor::PreviousCharacter},
    {"moveForward", QTextCursor::NextCharacter},
    {"moveWordLeft", QTextCursor::WordLeft},
    {"moveWordRight", QTextCursor::WordRight},
    {"moveWordBackward", QTextCursor::PreviousWord},
    {"moveWordForward", QTextCursor::NextWord},
    {"moveToBeginningOfLine", QTextCursor::StartOfLine},
    {"moveToEndOfLine", QTextCursor::EndOfLine},
    {"moveToBeginningOfParagraph", QTextCursor::StartOfBlock},
    {"moveToEndOfParagraph", QTextCursor::EndOfBlock},
    {"moveToBeginningOfDocument", QTextCursor::Start},
    {"moveToEndOfDocument", QTextCursor::End},
};

struct KeyMovement {
    QKeySequence::StandardKey moves, selects;
    QTextCursor::MoveOperation operation;
};
constexpr KeyMovement kKeyMovements[] = {
    {QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar, QTextCursor::Right},
    {QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar, QTextCursor::Left},
    {QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord, QTextCursor::WordRight},
    {QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord, QTextCursor::WordLeft},
    {QKeySequence::MoveToNextLine, QKeySequence::SelectNextLine, QTextCursor::Down},
    {QKeySequence::MoveToPreviousLine, QKeySequence::SelectPreviousLine, QTextCursor::Up},
    {QKeySequence::MoveToStartOfLine, QKeySequence::SelectStartOfLine, QTextCursor::StartOfLine},
    {QKeySequence::MoveToEndOfLine, QKeySequence::SelectEndOfLine, QTextCursor::EndOfLine},
    {QKeySequence::MoveToStartOfBlock, QKeySequence::SelectStartOfBlock, QTextCursor::StartOfBlock},
    {QKeySequence::MoveToEndOfBlock, QKeySequence::SelectEndOfBlock, QTextCursor::EndOfBlock},
    {QKeySequence::MoveToStartOfDocument, QKeySequence::SelectStartOfDocument, QTextCursor::Start},
    {QKeySequence::MoveToEndOfDocument, QKeySequence::SelectEndOfDocument, QTextCursor::End},
};

bool movesUpOrDown(QTextCursor::MoveOperation operation) {
    return operation == QTextCursor::Up || operation == QTextCursor::Down;
}

/// What belongs to one word with its neighbours of the same kind.
enum class CharacterKind { Word, Space, Other };
CharacterKind kindOf(char32_t character) {
    if (isWordCharacter(character)) return CharacterKind::Word;
    return QChar::isSpace(character) ? CharacterKind::Space : CharacterKind::Other;
}

}  // namespace

// The selection.

void TextWidget::select(std::size_t anchor, std::size_t position, const std::vector<NSRange>& further) {
    const std::size_t length = lines_.index().textLength();
    anchor = std::min(anchor, length), position = std::min(position, length);
    if (anchor == anchor_ && position == position_ && further == further_) return;
    // A selection's lines are drawn anew, of the old one and of the new one.
    const auto update = [this](std::size_t from, std::size_t to) {
        if (from == to) return updateCaret();
        updateLines(lineOf(std::min(from, to)), lineOf(std::max(from, to)));
    };
    const auto updateAll = [&] {
        if (anchor_ != anchor && anchor_ != position_ && anchor != position) update(anchor_, anchor);
        update(anchor_, position_);
        for (const NSRange& range : further_) update(range.location, range.location + range.length);
    };
    updateAll();
    anchor_ = anchor, position_ = position, further_ = further;
    updateAll();
    across_.reset();
    showCaret();
    if (!keepsPlace_ && isVisible()) reveal(position_);
    updateMicroFocus();
    tellReadersOfSelection();
}

/// A person has put the insertion point or an end of the selection there.
void TextWidget::place(std::size_t position, bool keepsAnchor) {
    selectByPerson(keepsAnchor ? anchor_ : position, position);
}

void TextWidget::selectByPerson(std::size_t anchor, std::size_t position) {
    if (!lines_.composed().text.isEmpty()) QGuiApplication::inputMethod()->commit();
    select(anchor, position, {});
    reveal(position_);
    NSTextView* shown = view();
    if (shown) runReported([&] { shown->selectedByWidget(anchor_, position_); });
}

// Movements.

void TextWidget::moveBy(QTextCursor::MoveOperation operation, bool keepsAnchor) {
    std::size_t from = position_;
    if (!keepsAnchor && hasSelection()) {
        // A selection is left at the end that the movement goes to.
        const bool isSideways = operation == QTextCursor::Left || operation == QTextCursor::Right;
        const std::size_t next = lines_.moved(from, operation, 0);
        if (isSideways) return place(next < from || next == 0 ? selectionBegin() : selectionEnd(), false);
        if (operation == QTextCursor::Up) from = selectionBegin();
        if (operation == QTextCursor::Down) from = selectionEnd();
    }
    if (!movesUpOrDown(operation)) return place(lines_.moved(from, operation, 0), keepsAnchor);
    const double across = across_ ? *across_ : lines_.xOf(from);
    place(lines_.moved(from, operation, across), keepsAnchor);
    across_ = across;
}

/// The insertion point goes on by a screen, and the text with it.
void TextWidget::moveByPage(bool down, bool keepsAnchor) {
    const double across = across_ ? *across_ : lines_.xOf(position_);
    const double room = viewport()->height(), y = topOf(lines_.rowOf(position_));
    const ShownLines::Row target = rowAtHeight(down ? y + room : y - room);
    const std::size_t position = lines_.positionAt(target, across);
    verticalScrollBar()->triggerAction(down ? QAbstractSlider::SliderPageStepAdd : QAbstractSlider::SliderPageStepSub);
    place(position, keepsAnchor);
    across_ = across;
}

bool TextWidget::moveByKey(QKeyEvent& key) {
    if (!isSelectable_) {
        QAbstractScrollArea::keyPressEvent(&key);  // scrolls
        return key.isAccepted();
    }
    for (const KeyMovement& row : kKeyMovements) {
        if (key.matches(row.moves)) return moveBy(row.operation, false), true;
        if (key.matches(row.selects)) return moveBy(row.operation, true), true;
    }
    if (key.matches(QKeySequence::MoveToNextPage)) return moveByPage(true, false), true;
    if (key.matches(QKeySequence::MoveToPreviousPage)) return moveByPage(false, false), true;
    if (key.matches(QKeySequence::SelectNextPage)) return moveByPage(true, true), true;
    if (key.matches(QKeySequence::SelectPreviousPage)) return moveByPage(false, true), true;
    if (isReadOnly_ && key.key() == Qt::Key_Space) {
        const bool back = key.modifiers() & Qt::ShiftModifier;
        verticalScrollBar()->triggerAction(back ? QAbstractSlider::SliderPageStepSub
                                                : QAbstractSlider::SliderPageStepAdd);
        return true;
    }
    return false;
}

bool TextWidget::isMovement(const QKeyEvent& key) {
    return std::any_of(std::begin(kKeyMovements), std::end(kKeyMovements),
                       [&](const KeyMovement& row) { return key.matches(row.moves) || key.matches(row.selects); });
}

bool TextWidget::move(const QString& command) {
    QString name = command.chopped(1);
    const QString extending = QStringLiteral("AndModifySelection");
    const bool extends = name.endsWith(extending);
    if (extends) name.chop(extending.size());
    for (const Movement& movement : kMovements) {
        if (name != QLatin1String(movement.command)) continue;
        moveBy(movement.operation, extends);
        return true;
    }
    return false;
}

std::pair<std::size_t, std::size_t> TextWidget::reachOf(QTextCursor::MoveOperation operation) {
    const std::size_t reached = lines_.moved(position_, operation, 0);
    return {std::min(reached, position_), std::max(reached, position_)};
}

// The mouse selects by characters, words or lines.

NSRange TextWidget::unitAt(std::size_t position) const {
    if (unit_ == Unit::Characters) return {position, 0};
    const std::size_t number = lineOf(position);
    if (unit_ == Unit::Lines) {
        const std::size_t begin = lines_.index().start(number);
        return {begin, lines_.index().end(number) - begin};
    }
    const NSRange line = lines_.content(number);
    const std::u16string_view text = line.length > 0 ? lines_.text().substr(line.location, line.length) : u"";
    if (text.empty()) return {position, 0};
    std::size_t begin = std::min<std::size_t>(position - line.location, text.size());
    // Behind the last character of a line, that one is meant.
    if (begin == text.size()) begin = positionBefore(text, begin);
    const auto kindAt = [&](std::size_t at) { return kindOf(text::codePointAt(text, at).value); };
    const CharacterKind kind = kindAt(begin);
    std::size_t end = positionAfter(text, begin);
    if (kind != CharacterKind::Other) {  // signs stand for themselves
        while (begin > 0 && kindAt(positionBefore(text, begin)) == kind) begin = positionBefore(text, begin);
        while (end < text.size() && kindAt(end) == kind) end = positionAfter(text, end);
    }
    return {line.location + begin, end - begin};
}

/// The selection goes from the unit where the mouse was pressed to the one where it is now.
void TextWidget::extendTo(std::size_t position) {
    const NSRange unit = unitAt(position);
    const std::size_t firstEnd = unitRange_.location + unitRange_.length;
    if (position < unitRange_.location) return selectByPerson(firstEnd, unit.location);
    const std::size_t end = std::max<std::size_t>(unit.location + unit.length, firstEnd);
    selectByPerson(unitRange_.location, end);
}

/// What is selected can be inserted elsewhere with the middle button, where the desktop has that.
void TextWidget::offerSelection() const {
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (!clipboard->supportsSelection() || !hasSelection()) return;
    if (auto selected = selectionData()) clipboard->setMimeData(selected.release(), QClipboard::Selection);
}

// The insertion point.

void TextWidget::showCaret() {
    const bool wanted = hasFocus() && isSelectable_;
    const int time = QGuiApplication::styleHints()->cursorFlashTime();
    if (wanted && time > 1)
        blinking_.start(time / 2, this);
    else
        blinking_.stop();
    if (wanted == caretIsLit_) return;
    caretIsLit_ = wanted;
    updateCaret();
}

void TextWidget::blink() {
    caretIsLit_ = !caretIsLit_;
    updateCaret();
}

}  // namespace velt
