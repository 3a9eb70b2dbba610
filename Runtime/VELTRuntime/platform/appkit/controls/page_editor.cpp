// The editor of several lines, and of one line that has attributes.
#include "VELTRuntime/platform/appkit/controls/field_editor_keys.h"
#include "VELTRuntime/platform/appkit/controls/text_field.h"
#include "VELTRuntime/platform/appkit/text/rich_text.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextEdit>
#include <algorithm>
#include <cmath>

namespace velt {

namespace {

class PageEditor final : public QTextEdit, public FieldEditor {
public:
    PageEditor(QWidget& parent, bool oneLine) : QTextEdit(&parent), oneLine_(oneLine) {
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::ClickFocus);
        setAcceptRichText(false);
        setTabChangesFocus(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        if (oneLine) {
            setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
            setLineWrapMode(NoWrap);
        }
        viewport()->setAutoFillBackground(false);
        document()->setDocumentMargin(kMargin);
        connect(this, &QTextEdit::textChanged, this, [this] {
            if (setting_) return;
            if (NSTextField* field = fieldOf(*this)) field->typed();
        });
    }

    QWidget& widget() override { return *this; }
    QString text() const override { return toPlainText(); }
    bool shows(const QString& text) const override { return toPlainText() == (oneLine_ ? oneLine(text) : text); }
    void setText(const QString& text) override {
        const int caret = textCursor().position();
        setting_ = true;
        setCurrentCharFormat({});
        QTextEdit::setPlainText(oneLine_ ? oneLine(text) : text);
        setting_ = false;
        if (hasFocus()) select(std::min(caret, static_cast<int>(text.size())), 0);
        placeLine();
    }
    void setRichText(const NSAttributedString& text, const QFont& font) override {
        const int caret = textCursor().position();
        setting_ = true;
        fillDocument(*document(), text, font);
        document()->setDocumentMargin(kMargin);
        document()->setUndoRedoEnabled(true);
        setting_ = false;
        const int length = document()->characterCount() - 1;
        select(hasFocus() ? std::min(caret, length) : 0, 0);
        placeLine();
    }
    id richText() const override { return attributedFromDocument(*document()); }
    int selectionStart() const override { return textCursor().selectionStart(); }
    int selectionLength() const override { return textCursor().selectionEnd() - textCursor().selectionStart(); }
    void select(int start, int length) override {
        QTextCursor cursor = textCursor();
        cursor.setPosition(start);
        cursor.setPosition(start + length, QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
    void insert(const QString& text) override {
        if (!isReadOnly()) textCursor().insertText(oneLine_ ? oneLine(text) : text);
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
    void insertFromMimeData(const QMimeData* source) override {
        if (!source || !source->hasText()) return;
        insert(source->text());
        ensureCursorVisible();
    }
    void resizeEvent(QResizeEvent* event) override {
        QTextEdit::resizeEvent(event);
        placeLine();
    }
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
    /// One line stands in the middle of the field's height.
    void placeLine() {
        if (!oneLine_) return;
        const int above = (height() - static_cast<int>(std::ceil(document()->size().height()))) / 2;
        if (viewportMargins().top() != std::max(0, above)) setViewportMargins(0, std::max(0, above), 0, 0);
    }

    static constexpr double kMargin = 2;
    bool oneLine_;
    bool setting_ = false;
    KeyboardStay stay_;
};

}  // namespace

std::unique_ptr<FieldEditor> makePageEditor(QWidget& parent, bool oneLine) {
    return std::make_unique<PageEditor>(parent, oneLine);
}

}  // namespace velt
