// What a text view's widget draws, read from its layout.
#pragma once

#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"

#include <string>

namespace velt::test {

/// The lines as they are drawn, a line feed for each line end.
inline std::string drawnText(TextWidget& widget) {
    QString text;
    for (std::size_t line = 0; line < widget.lineCount(); ++line) {
        if (line > 0) text += QLatin1Char('\n');
        text += widget.layoutOf(line).text();
    }
    return utf8(textValue(text));
}

/// The look of a character as it is drawn.
inline QTextCharFormat drawnFormat(TextWidget& widget, std::size_t line, int place) {
    QTextCharFormat format;
    for (const QTextLayout::FormatRange& range : widget.layoutOf(line).formats()) {
        if (place >= range.start && place < range.start + range.length) format.merge(range.format);
    }
    return format;
}

}  // namespace velt::test
