#include "VELTRuntime/platform/appkit/controls/rich_text.h"

#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/dictionary.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <cmath>

namespace velt {

namespace {

QTextCharFormat formatOf(const id& attributes, bool colours) {
    QTextCharFormat format;
    if (!is<NSDictionary>(attributes)) return format;
    const auto value = [&](const char16_t* name) { return as<NSDictionary>(attributes)->objectForKey(string(name)); };
    const auto isOn = [&](const char16_t* name) {
        const id set = value(name);
        return isNumber(set) && VELT_CDOUBLE(set) != 0;
    };
    if (const id font = value(u"NSFont"); is<NSFont>(font)) format.setFont(as<NSFont>(font)->font());
    if (const id colour = value(u"NSColor"); colours && is<NSColor>(colour)) {
        format.setForeground(qtColor(*as<NSColor>(colour)));
    }
    if (const id ground = value(u"NSBackgroundColor"); colours && is<NSColor>(ground)) {
        format.setBackground(qtColor(*as<NSColor>(ground)));
    }
    format.setFontUnderline(isOn(u"NSUnderline"));
    format.setFontStrikeOut(isOn(u"NSStrikethrough"));
    return format;
}

/// Lays the text out in lines of that width; returns the size of them all.
QSizeF layOut(QTextLayout& layout, const NSAttributedString& text, Qt::LayoutDirection direction,
              Qt::Alignment alignment, double width, bool colours) {
    QTextOption option;
    option.setTextDirection(direction);
    option.setAlignment(alignment);
    layout.setTextOption(option);
    QList<QTextLayout::FormatRange> formats;
    text.forEachRun([&](std::size_t begin, std::size_t end, const id& attributes) {
        formats.append({static_cast<int>(begin), static_cast<int>(end - begin), formatOf(attributes, colours)});
    });
    layout.setFormats(formats);
    QSizeF size;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, size.height()});
        size = {std::max(size.width(), line.naturalTextWidth()), size.height() + line.height()};
    }
    layout.endLayout();
    return size;
}

QString linesOf(const NSAttributedString& text) {
    QString lines = qtText(text.string());
    lines.replace(u'\n', QChar::LineSeparator);
    return lines;
}

}  // namespace

QSize richTextSize(const NSAttributedString& text, const QFont& font) {
    QTextLayout layout(linesOf(text), font);
    constexpr double kUnlimited = 1e6;
    const QSizeF size = layOut(layout, text, Qt::LeftToRight, Qt::AlignLeft, kUnlimited, false);
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

void drawRichText(QPainter& painter, const QRect& rect, const NSAttributedString& text, const QFont& font,
                  Qt::LayoutDirection direction, Qt::Alignment alignment, bool enabled) {
    QTextLayout layout(linesOf(text), font);
    const Qt::Alignment side = QStyle::visualAlignment(direction, alignment) | Qt::AlignAbsolute;
    const QSizeF size = layOut(layout, text, direction, side, rect.width(), enabled);
    painter.save();
    painter.setClipRect(rect);
    layout.draw(&painter, QPointF(rect.x(), rect.y() + (rect.height() - size.height()) / 2));
    painter.restore();
}

}  // namespace velt
