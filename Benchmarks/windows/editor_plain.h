// The toolkit's own editor of plain text as a peer, whichever highlighter it has.
#pragma once

#include "editor_work.h"

#include <QPlainTextEdit>
#include <QTextBlock>

namespace editor {

template <class Highlighter> class PlainPeer {
public:
    explicit PlainPeer(QPlainTextEdit& widget) : widget_(widget), highlighter_(widget.document()) {
        widget.setLineWrapMode(QPlainTextEdit::NoWrap);
    }
    void setText(const std::string& text) {
        widget_.setPlainText(QString::fromUtf8(text.data(), static_cast<int>(text.size())));
    }
    void goToLine(int line) {
        widget_.setTextCursor(QTextCursor(widget_.document()->findBlockByNumber(line - 1)));
        widget_.ensureCursorVisible();
    }
    void colour() { highlighter_.rehighlight(); }

private:
    QPlainTextEdit& widget_;
    Highlighter highlighter_;
};

}  // namespace editor
