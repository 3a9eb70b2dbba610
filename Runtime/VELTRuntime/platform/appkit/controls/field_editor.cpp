#include "VELTRuntime/platform/appkit/controls/field_editor.h"

#include "VELTRuntime/platform/appkit/controls/text_field.h"
#include "VELTRuntime/platform/appkit/view_events.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QValidator>

namespace velt {

namespace {

struct KeyCommand {
    QKeySequence::StandardKey key;
    std::string_view selector;
};

/// Moves of the caret and deletions under the desktop's own keys.
constexpr KeyCommand kCommands[] = {
    {QKeySequence::MoveToNextChar, "moveRight:"},
    {QKeySequence::MoveToPreviousChar, "moveLeft:"},
    {QKeySequence::SelectNextChar, "moveRightAndModifySelection:"},
    {QKeySequence::SelectPreviousChar, "moveLeftAndModifySelection:"},
    {QKeySequence::MoveToNextWord, "moveWordRight:"},
    {QKeySequence::MoveToPreviousWord, "moveWordLeft:"},
    {QKeySequence::SelectNextWord, "moveWordRightAndModifySelection:"},
    {QKeySequence::SelectPreviousWord, "moveWordLeftAndModifySelection:"},
    {QKeySequence::MoveToStartOfLine, "moveToBeginningOfLine:"},
    {QKeySequence::MoveToEndOfLine, "moveToEndOfLine:"},
    {QKeySequence::SelectStartOfLine, "moveToBeginningOfLineAndModifySelection:"},
    {QKeySequence::SelectEndOfLine, "moveToEndOfLineAndModifySelection:"},
    {QKeySequence::MoveToStartOfDocument, "moveToBeginningOfDocument:"},
    {QKeySequence::MoveToEndOfDocument, "moveToEndOfDocument:"},
    {QKeySequence::MoveToPreviousLine, "moveUp:"},
    {QKeySequence::MoveToNextLine, "moveDown:"},
    {QKeySequence::MoveToPreviousPage, "pageUp:"},
    {QKeySequence::MoveToNextPage, "pageDown:"},
    {QKeySequence::DeleteStartOfWord, "deleteWordBackward:"},
    {QKeySequence::DeleteEndOfWord, "deleteWordForward:"},
    {QKeySequence::Delete, "deleteForward:"},
};

NSTextField* fieldOf(const QWidget& editor) {
    NSView* view = viewAround(&editor);
    return view && is<NSTextField>(id(static_cast<NSObject*>(view))) ? static_cast<NSTextField*>(view) : nullptr;
}

/// Offers a key to the field. True when it was taken.
bool offerKey(const QWidget& editor, QKeyEvent& event) {
    const std::string_view command = commandFor(event);
    NSTextField* field = command.empty() ? nullptr : fieldOf(editor);
    return field && field->command(command);
}

/// Keys that no editor has a use for when the field left them: they go on to the window.
bool isForWindow(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Escape;
}

bool isTab(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) &&
           !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

/// The keyboard is only borrowed: by a menu, or by another window.
bool comesBack(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

/// From when an editor gets the keyboard to when it goes to another one, also while a menu or another window borrows
/// it.
class KeyboardStay {
public:
    /// The editor got the keyboard. True when all of its text is to be selected, ready to be typed over.
    bool begins(Qt::FocusReason reason) {
        const bool began = !std::exchange(going_, true);
        return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason ||
               reason == Qt::OtherFocusReason || (began && reason == Qt::ActiveWindowFocusReason);
    }
    /// The editor lost the keyboard. True when it went to another one.
    bool ends(Qt::FocusReason reason) {
        if (comesBack(reason)) return false;
        going_ = false;
        return true;
    }

private:
    bool going_ = false;
};

void tellKeyboardLeft(QWidget& editor, const QFocusEvent& event) {
    if (comesBack(event.reason())) return;
    NSTextField* field = fieldOf(editor);
    if (!field || field->keyboardLeft()) return;
    QMetaObject::invokeMethod(
        &editor, [&editor] { editor.setFocus(Qt::MouseFocusReason); }, Qt::QueuedConnection);
}

/// A text with a space for every line end.
QString oneLine(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (QChar& unit : text) {
        if (unit == QLatin1Char('\n') || unit == QLatin1Char('\r') || unit == QChar::ParagraphSeparator ||
            unit == QChar::LineSeparator) {
            unit = QLatin1Char(' ');
        }
    }
    return text;
}

/// Line ends have no place in one line: each becomes a space, so that nothing else of a pasted text is lost.
class OneLine final : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& text, int& caret) const override {
        if (!text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r')) &&
            !text.contains(QChar::ParagraphSeparator) && !text.contains(QChar::LineSeparator)) {
            return Acceptable;
        }
        QString before = oneLine(text.left(caret)), behind = oneLine(text.mid(caret));
        // One at the end of what was pasted separates nothing.
        if (behind.isEmpty() && before.endsWith(QLatin1Char(' '))) before.chop(1);
        text = before + behind;
        caret = static_cast<int>(before.size());
        return Acceptable;
    }
};

class LineEditor final : public QLineEdit, public FieldEditor {
public:
    LineEditor(QWidget& parent, bool secret) : QLineEdit(&parent), secret_(secret) {
        setFrame(false);
        setFocusPolicy(Qt::ClickFocus);
        setValidator(new OneLine(this));
        if (secret) setEchoMode(Password);
        connect(this, &QLineEdit::textEdited, this, [this] {
            if (NSTextField* field = fieldOf(*this)) field->typed();
        });
    }

    QWidget& widget() override { return *this; }
    QString text() const override { return QLineEdit::text(); }
    bool shows(const QString& text) const override { return QLineEdit::text() == oneLine(text); }
    void setText(const QString& text) override {
        const int caret = cursorPosition();
        QLineEdit::setText(oneLine(text));
        if (hasFocus() && caret < text.size()) setCursorPosition(caret);
        if (!hasFocus()) setCursorPosition(0);
    }
    int selectionStart() const override { return hasSelectedText() ? QLineEdit::selectionStart() : cursorPosition(); }
    int selectionLength() const override { return QLineEdit::selectionLength(); }
    void select(int start, int length) override {
        if (length == 0) {
            setCursorPosition(start);
        } else {
            setSelection(start, length);
        }
    }
    void insert(const QString& text) override {
        if (isReadOnly()) return;
        if (text.isEmpty()) {
            QKeyEvent erased(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
            if (hasSelectedText()) QLineEdit::keyPressEvent(&erased);
            return;
        }
        QInputMethodEvent entered;
        entered.setCommitString(text);
        QLineEdit::inputMethodEvent(&entered);
    }
    void cut() override {
        if (!secret_) QLineEdit::cut();
    }
    void copy() override {
        if (!secret_) QLineEdit::copy();
    }
    void paste() override { QLineEdit::paste(); }
    void undo() override {
        if (!secret_) QLineEdit::undo();
    }
    void redo() override {
        if (!secret_) QLineEdit::redo();
    }
    void setLooks(Qt::Alignment alignment, const QString& placeholder, bool readOnly) override {
        // Each of them draws anew, so only what differs is told.
        if (this->alignment() != (alignment | Qt::AlignVCenter)) setAlignment(alignment | Qt::AlignVCenter);
        if (placeholderText() != placeholder) setPlaceholderText(placeholder);
        if (isReadOnly() != readOnly) setReadOnly(readOnly);
    }

protected:
    bool event(QEvent* event) override {
        if (isTab(*event)) {
            if (!offerKey(*this, *static_cast<QKeyEvent*>(event))) return QLineEdit::event(event);
            event->accept();
            return true;
        }
        return QLineEdit::event(event);
    }
    void keyPressEvent(QKeyEvent* event) override {
        const bool givesAway = event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo) ||
                               event->matches(QKeySequence::Copy) || event->matches(QKeySequence::Cut);
        if (offerKey(*this, *event) || (secret_ && givesAway)) {
            event->accept();
        } else if (isForWindow(*event)) {
            event->ignore();
        } else {
            QLineEdit::keyPressEvent(event);
        }
    }
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        if (stay_.begins(event->reason())) QLineEdit::selectAll();
        parentWidget()->update();
    }
    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        if (stay_.ends(event->reason())) deselect();
        parentWidget()->update();
        tellKeyboardLeft(*this, *event);
    }

private:
    bool secret_;
    KeyboardStay stay_;
};

class PageEditor final : public QTextEdit, public FieldEditor {
public:
    explicit PageEditor(QWidget& parent) : QTextEdit(&parent) {
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::ClickFocus);
        setAcceptRichText(false);
        setTabChangesFocus(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        viewport()->setAutoFillBackground(false);
        constexpr double kMargin = 2;
        document()->setDocumentMargin(kMargin);
        connect(this, &QTextEdit::textChanged, this, [this] {
            if (setting_) return;
            if (NSTextField* field = fieldOf(*this)) field->typed();
        });
    }

    QWidget& widget() override { return *this; }
    QString text() const override { return toPlainText(); }
    bool shows(const QString& text) const override { return toPlainText() == text; }
    void setText(const QString& text) override {
        const int caret = textCursor().position();
        setting_ = true;
        QTextEdit::setPlainText(text);
        setting_ = false;
        if (hasFocus()) select(std::min(caret, static_cast<int>(text.size())), 0);
    }
    int selectionStart() const override { return textCursor().selectionStart(); }
    int selectionLength() const override { return textCursor().selectionEnd() - textCursor().selectionStart(); }
    void select(int start, int length) override {
        QTextCursor cursor = textCursor();
        cursor.setPosition(start);
        cursor.setPosition(start + length, QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
    void insert(const QString& text) override {
        if (!isReadOnly()) textCursor().insertText(text);
    }
    void cut() override { QTextEdit::cut(); }
    void copy() override { QTextEdit::copy(); }
    void paste() override { QTextEdit::paste(); }
    void undo() override { QTextEdit::undo(); }
    void redo() override { QTextEdit::redo(); }
    void setLooks(Qt::Alignment alignment, const QString& placeholder, bool readOnly) override {
        QTextOption option = document()->defaultTextOption();
        if (option.alignment() != alignment) {
            option.setAlignment(alignment);
            document()->setDefaultTextOption(option);
        }
        if (placeholderText() != placeholder) setPlaceholderText(placeholder);
        if (isReadOnly() != readOnly) setReadOnly(readOnly);
    }

protected:
    bool event(QEvent* event) override {
        if (isTab(*event) && offerKey(*this, *static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        return QTextEdit::event(event);
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (offerKey(*this, *event)) {
            event->accept();
        } else if (isForWindow(*event)) {
            event->ignore();
        } else {
            QTextEdit::keyPressEvent(event);
        }
    }
    void focusInEvent(QFocusEvent* event) override {
        QTextEdit::focusInEvent(event);
        if (stay_.begins(event->reason())) QTextEdit::selectAll();
        parentWidget()->update();
    }
    void focusOutEvent(QFocusEvent* event) override {
        QTextEdit::focusOutEvent(event);
        if (stay_.ends(event->reason())) select(textCursor().position(), 0);
        parentWidget()->update();
        tellKeyboardLeft(*this, *event);
    }

private:
    bool setting_ = false;
    KeyboardStay stay_;
};

}  // namespace

std::string_view commandFor(const QKeyEvent& event) {
    constexpr auto kOthers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (event.modifiers() & (Qt::AltModifier | Qt::ShiftModifier)) return "insertNewlineIgnoringFieldEditor:";
        return event.modifiers() & kOthers ? "" : "insertNewline:";
    case Qt::Key_Tab: return event.modifiers() & kOthers ? "" : "insertTab:";
    case Qt::Key_Backtab: return event.modifiers() & kOthers ? "" : "insertBacktab:";
    case Qt::Key_Escape: return event.modifiers() & kOthers ? "" : "cancelOperation:";
    case Qt::Key_Backspace:
        if (!(event.modifiers() & kOthers)) return "deleteBackward:";
        break;
    default: break;
    }
    for (const KeyCommand& command : kCommands) {
        if (event.matches(command.key)) return command.selector;
    }
    return "";
}

std::unique_ptr<FieldEditor> makeLineEditor(QWidget& parent, bool secret) {
    return std::make_unique<LineEditor>(parent, secret);
}
std::unique_ptr<FieldEditor> makePageEditor(QWidget& parent) { return std::make_unique<PageEditor>(parent); }

}  // namespace velt
