#include "VELTRuntime/editor/completion_expression.h"

#include "VELTRuntime/editor/word_characters.h"
#include "VELTRuntime/values/text/casing.h"
#include "VELTRuntime/values/text/utf.h"

namespace velt {

namespace {

bool breaksExpression(char32_t codePoint) {
    return endsWord(codePoint) && codePoint != U'.' && codePoint != U'(' && codePoint != U')';
}

/// Where the character that ends a text begins, marks that combine with it included.
std::size_t lastCharacter(std::u16string_view text) {
    std::size_t at = text.size();
    do {
        --at;
        if (at > 0 && text::codePointAt(text, at - 1).length == 2) --at;
    } while (at > 0 && !text::beginsCharacter(text::codePointAt(text, at).value));
    return at;
}

}  // namespace

std::u16string_view expressionAtEnd(std::u16string_view textOfLine) {
    std::size_t begin = textOfLine.size();
    while (begin > 0) {
        const std::size_t before = lastCharacter(textOfLine.substr(0, begin));
        if (breaksExpression(text::codePointAt(textOfLine, before).value)) break;
        begin = before;
    }
    const std::u16string_view expression = textOfLine.substr(begin);
    std::ptrdiff_t open = 0;
    for (std::size_t at = expression.size(); at-- > 0;) {
        if (expression[at] == u')') ++open;
        if (expression[at] == u'(' && --open < 0) return expression.substr(at + 1);
    }
    return expression;
}

}  // namespace velt
