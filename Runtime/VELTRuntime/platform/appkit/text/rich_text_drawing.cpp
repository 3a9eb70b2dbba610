#include "VELTRuntime/platform/appkit/text/rich_text_drawing.h"

#include "VELTRuntime/platform/appkit/text/fitting_line.h"
#include "VELTRuntime/platform/appkit/text/rich_text.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QStyle>
#include <QTextCursor>

namespace velt {

namespace {

constexpr char16_t kLineEnd = u'\n';

void layOut(QTextDocument& document, const NSAttributedString& text, const RichTextStyle& style, double width) {
    fillDocument(document, text, style.font);
    if (style.faded) {
        QTextCharFormat plain;
        plain.setForeground(style.color);
        plain.setBackground(Qt::NoBrush);
        QTextCursor all(&document);
        all.select(QTextCursor::Document);
        all.mergeCharFormat(plain);
    }
    const Qt::Alignment across = style.alignment & Qt::AlignHorizontal_Mask;
    QTextOption option(
        across & Qt::AlignJustify ? across : QStyle::visualAlignment(style.direction, across) | Qt::AlignAbsolute);
    option.setTextDirection(style.direction);
    option.setWrapMode(style.wraps && width > 0 ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    document.setDefaultTextOption(option);
    document.setTextWidth(width > 0 ? width : -1);
}

/// Without what lies between the first and the last units, for which a sign stands.
Ref<NSAttributedString> without(const NSAttributedString& text, std::size_t front, std::size_t back) {
    const auto isHalf = [&](std::size_t at) {
        return at > 0 && at < text.length() && QChar::isLowSurrogate(text.view()[at]);
    };
    if (isHalf(front)) --front;
    if (isHalf(text.length() - back)) --back;
    const auto kept = make<NSMutableAttributedString>(text);
    kept->replaceCharacters({front, text.length() - front - back}, u"\u2026");
    return kept;
}

/// As much of a line as has room.
Ref<NSAttributedString> shortened(const NSAttributedString& text, const RichTextStyle& style, double width) {
    const auto keeping = [&](std::size_t count) {
        switch (style.elided) {
        case Qt::ElideLeft: return without(text, 0, count);
        case Qt::ElideMiddle: return without(text, count - count / 2, count / 2);
        default: return without(text, count, 0);
        }
    };
    std::size_t fits = 0, tooMany = text.length();
    while (tooMany - fits > 1) {
        const std::size_t middle = fits + (tooMany - fits) / 2;
        (richTextSize(*keeping(middle), style).width() <= width + kWidthTolerance ? fits : tooMany) = middle;
    }
    return keeping(fits);
}

bool isTooLong(const NSAttributedString& text, const RichTextStyle& style, double width) {
    return style.elided != Qt::ElideNone && !style.wraps && text.length() > 1 &&
           text.view().find(kLineEnd) == std::u16string_view::npos &&
           richTextSize(text, style).width() > width + kWidthTolerance;
}

}  // namespace

QSizeF richTextSize(const NSAttributedString& text, const RichTextStyle& style, double width) {
    ClosedDocument document;
    layOut(document, text, style, width);
    return {document.idealWidth(), document.size().height()};
}

void drawRichText(QPainter& painter, const QRectF& rect, const NSAttributedString& text, const RichTextStyle& style) {
    ClosedDocument document;
    if (isTooLong(text, style, rect.width())) {
        layOut(document, *shortened(text, style, rect.width()), style, rect.width());
    } else {
        layOut(document, text, style, rect.width());
    }
    const double left = rect.height() - document.size().height();
    const double down = style.alignment & Qt::AlignVCenter ? left / 2 : style.alignment & Qt::AlignBottom ? left : 0;
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, style.color);
    context.clip = QRectF({0, -down}, rect.size());
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.translate(rect.x(), rect.y() + down);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
}

}  // namespace velt
