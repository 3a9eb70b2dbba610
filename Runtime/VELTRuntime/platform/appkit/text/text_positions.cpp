#include "VELTRuntime/platform/appkit/text/text_positions.h"

#include <QTextBoundaryFinder>

namespace velt {

bool splitsLineEnd(std::u16string_view text, std::size_t position) {
    return position > 0 && position < text.size() && text[position - 1] == u'\r' && text[position] == u'\n';
}

std::size_t positionBefore(std::u16string_view text, std::size_t position) {
    if (position < 2) return 0;
    const bool pair = QChar::isLowSurrogate(text[position - 1]) && QChar::isHighSurrogate(text[position - 2]);
    return position - (pair || splitsLineEnd(text, position - 1) ? 2 : 1);
}

std::size_t positionAfter(std::u16string_view text, std::size_t position) {
    if (position >= text.size()) return text.size();
    // Characters longer than this are no text that somebody wrote.
    constexpr std::size_t kLongest = 64;
    const std::u16string_view near = text.substr(position, kLongest);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, reinterpret_cast<const QChar*>(near.data()),
                               static_cast<qsizetype>(near.size()));
    const qsizetype next = finder.toNextBoundary();
    return position + (next > 0 ? static_cast<std::size_t>(next) : 1);
}

bool isWordCharacter(char32_t codePoint) {
    return codePoint == U'_' || QChar::isLetterOrNumber(codePoint) || QChar::isMark(codePoint);
}

}  // namespace velt
