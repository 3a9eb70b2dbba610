#include "VELTRuntime/platform/appkit/text/shown_text.h"

#include <QTextBoundaryFinder>
#include <algorithm>

namespace velt {

namespace {

constexpr char16_t kInvisible = u'\u200B';  // stands for the first unit of a line end of two
constexpr char16_t kParagraphEnd = u'\u2029';
constexpr char16_t kReplacement = u'\uFFFD';

char16_t shownUnit(char16_t unit, char16_t next) {
    switch (unit) {
    case u'\n': return kParagraphEnd;
    case u'\r': return next == u'\n' ? kInvisible : kParagraphEnd;
    // The toolkit marks its frames with these; they are no characters.
    case u'\uFDD0':
    case u'\uFDD1': return kReplacement;
    default: return unit;
    }
}

}  // namespace

QString shownText(std::u16string_view text, std::size_t begin, std::size_t length) {
    QString shown(static_cast<qsizetype>(length), Qt::Uninitialized);
    auto* units = reinterpret_cast<char16_t*>(shown.data());
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t at = begin + i;
        units[i] = shownUnit(text[at], at + 1 < text.size() ? text[at + 1] : u'\0');
    }
    return shown;
}

std::u16string programText(const QString& shown) {
    std::u16string text(reinterpret_cast<const char16_t*>(shown.utf16()), static_cast<std::size_t>(shown.size()));
    std::replace(text.begin(), text.end(), kParagraphEnd, u'\n');
    return text;
}

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

}  // namespace velt
