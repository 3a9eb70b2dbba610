// QScintilla with a lexer that it brings: words, strings and comments.
#include "editor_work.h"

#include <Qsci/qscilexerlua.h>
#include <Qsci/qsciscintilla.h>

namespace {

class Peer {
public:
    explicit Peer(QsciScintilla& widget) : widget_(widget) {
        widget.setUtf8(true);
        widget.setLexer(&lexer_);
    }
    void setText(const std::string& text) {
        widget_.setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    }
    void goToLine(int line) {
        widget_.setCursorPosition(line - 1, 0);
        widget_.ensureCursorVisible();
    }
    void colour() { widget_.recolor(); }

private:
    QsciScintilla& widget_;
    QsciLexerLua lexer_;
};

}  // namespace

int main(int count, char** arguments) { return editor::runPeer<Peer, QsciScintilla>(count, arguments); }
