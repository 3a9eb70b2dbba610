// The older toolkit's editor of plain text with KSyntaxHighlighting and a definition that it brings.
#include "editor_plain.h"

#include <KSyntaxHighlighting/Definition>
#include <KSyntaxHighlighting/Repository>
#include <KSyntaxHighlighting/SyntaxHighlighter>
#include <KSyntaxHighlighting/Theme>

namespace {

KSyntaxHighlighting::Repository& repository() {
    static KSyntaxHighlighting::Repository made;
    return made;
}

class Defined final : public KSyntaxHighlighting::SyntaxHighlighter {
public:
    explicit Defined(QTextDocument* document) : SyntaxHighlighter(document) {
        setTheme(repository().defaultTheme());
        setDefinition(repository().definitionForName(QStringLiteral("Lua")));
    }
};

}  // namespace

int main(int count, char** arguments) {
    return editor::runPeer<editor::PlainPeer<Defined>, QPlainTextEdit>(count, arguments);
}
