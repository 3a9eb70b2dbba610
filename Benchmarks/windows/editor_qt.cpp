// The toolkit's editor of plain text with a highlighter written by hand: words, strings and comments.
#include "editor_plain.h"

#include <QSet>
#include <QSyntaxHighlighter>

namespace {

class Words final : public QSyntaxHighlighter {
public:
    explicit Words(QTextDocument* document) : QSyntaxHighlighter(document) {}

protected:
    void highlightBlock(const QString& line) override {
        const int length = static_cast<int>(line.size());
        for (int at = 0; at < length;) {
            const int begin = at;
            if (line[at] == QLatin1Char('\'')) return setFormat(at, length - at, QColor(0, 128, 0));
            if (line[at] == QLatin1Char('"')) {
                const auto close = static_cast<int>(line.indexOf(QLatin1Char('"'), at + 1));
                at = close < 0 ? length : close + 1;
                setFormat(begin, at - begin, QColor(0, 102, 255));
            } else if (line[at].isLetter()) {
                while (at < length && (line[at].isLetterOrNumber() || line[at] == QLatin1Char('_'))) ++at;
                const QString word = line.mid(begin, at - begin).toLower();
                if (keywords_.contains(word)) setFormat(begin, at - begin, QColor(0, 0, 255));
                if (others_.contains(word)) setFormat(begin, at - begin, QColor(128, 0, 128));
            } else {
                ++at;
            }
        }
    }

private:
    static QSet<QString> setOf(std::initializer_list<const char*> words) {
        QSet<QString> set;
        for (const char* word : words) set.insert(QString::fromLatin1(word));
        return set;
    }
    const QSet<QString> keywords_ = setOf({"if", "then", "dim", "as", "end", "for", "to", "next", "sub"});
    const QSet<QString> others_ = setOf({"msgbox", "say", "first", "left", "mid", "integer", "string"});
};

}  // namespace

int main(int count, char** arguments) {
    return editor::runPeer<editor::PlainPeer<Words>, QPlainTextEdit>(count, arguments);
}
