// The editor of one line of plain text.
#include "VELTRuntime/platform/appkit/controls/field_editor_keys.h"
#include "VELTRuntime/platform/appkit/controls/text_field.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QValidator>

namespace velt {

namespace {

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

}  // namespace

std::unique_ptr<FieldEditor> makeLineEditor(QWidget& parent, bool secret) {
    return std::make_unique<LineEditor>(parent, secret);
}

}  // namespace velt
