#include "VELTRuntime/platform/appkit/text/rich_text.h"

#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/paragraph_style.h"
#include "VELTRuntime/platform/foundation/attribute_names.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/url.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/conversions.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextList>
#include <QTextTable>
#include <array>

namespace velt {

namespace {

constexpr int kHtmlSize = 13;  // of text whose size the HTML does not tell
/// How the seven sizes of HTML's font element relate to the third, which is the usual one.
constexpr std::array<double, 7> kSizeFactors{0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};

constexpr std::array kFontProperties{
    QTextFormat::FontFamilies, QTextFormat::FontPointSize, QTextFormat::FontPixelSize, QTextFormat::FontSizeAdjustment,
    QTextFormat::FontWeight,   QTextFormat::FontItalic,    QTextFormat::FontFixedPitch};

bool tellsFont(const QTextCharFormat& format) {
    return std::any_of(kFontProperties.begin(), kFontProperties.end(),
                       [&](QTextFormat::Property property) { return format.hasProperty(property); });
}

QFont baseFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(kHtmlSize);
    return font;
}

/// One point of a program is one of its units, so points and pixels are the same here.
QFont fontOf(const QTextCharFormat& format, const QFont& base) {
    QFont font = base;
    if (format.hasProperty(QTextFormat::FontFamilies)) font.setFamilies(format.fontFamilies().toStringList());
    double size = base.pixelSize();
    if (format.hasProperty(QTextFormat::FontPointSize)) size = format.fontPointSize();
    if (format.hasProperty(QTextFormat::FontPixelSize)) size = format.intProperty(QTextFormat::FontPixelSize);
    if (format.hasProperty(QTextFormat::FontSizeAdjustment)) {
        const int step = format.intProperty(QTextFormat::FontSizeAdjustment) + 2;
        size *= kSizeFactors[static_cast<std::size_t>(std::clamp(step, 0, 6))];
    }
    font.setPixelSize(std::max(1, qRound(size)));
    if (format.hasProperty(QTextFormat::FontWeight)) font.setWeight(static_cast<QFont::Weight>(format.fontWeight()));
    if (format.hasProperty(QTextFormat::FontItalic)) font.setItalic(format.fontItalic());
    if (format.fontFixedPitch()) {
        font.setStyleHint(QFont::Monospace);
        font.setFixedPitch(true);
    }
    return font;
}

id linkValue(const QString& target) {
    if (const Ref<NSURL> url = NSURL::withString(target.toStdString())) return url;
    return textValue(target);
}

id paragraphValue(const QTextBlockFormat& format) {
    const auto style = make<NSParagraphStyle>();
    const Qt::Alignment alignment = format.alignment();
    if (alignment & Qt::AlignHCenter) {
        style->alignment = 2;
    } else if (alignment & Qt::AlignJustify) {
        style->alignment = 3;
    } else if (alignment & Qt::AlignRight) {
        style->alignment = 1;
    } else {
        style->alignment = 0;
    }
    return style;
}

/// The attributes of a piece of a document; nil when it has none.
id attributesOf(const QTextCharFormat& format, const id& paragraph, const QFont* base) {
    const auto attributes = make<NSMutableDictionary>();
    if (base) attributes->setObject(make<NSFont>(fontOf(format, *base)), attribute::font());
    if (format.foreground().style() != Qt::NoBrush) {
        attributes->setObject(colorValue(format.foreground().color()), attribute::foregroundColor());
    }
    if (format.background().style() != Qt::NoBrush) {
        attributes->setObject(colorValue(format.background().color()), attribute::backgroundColor());
    }
    if (format.fontUnderline()) attributes->setObject(VELT_ID(1L), attribute::underline());
    if (format.fontStrikeOut()) attributes->setObject(VELT_ID(1L), attribute::strikethrough());
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript) {
        attributes->setObject(VELT_ID(1L), attribute::superscript());
    } else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript) {
        attributes->setObject(VELT_ID(-1L), attribute::superscript());
    }
    if (format.isAnchor() && !format.anchorHref().isEmpty()) {
        attributes->setObject(linkValue(format.anchorHref()), attribute::link());
    }
    if (!format.toolTip().isEmpty()) attributes->setObject(textValue(format.toolTip()), attribute::toolTip());
    if (!paragraph.isNil()) attributes->setObject(paragraph, attribute::paragraphStyle());
    return attributes->count() == 0 ? id() : attributes->copy();
}

/// A list's mark before one of its items, as deep as the list lies in others.
QString markOf(const QTextBlock& block) {
    const QTextList* list = block.textList();
    if (!list) return {};
    const int depth = std::max(1, list->format().indent());
    QString mark;
    switch (list->format().style()) {
    case QTextListFormat::ListDisc: mark = QStringLiteral("\u2022"); break;
    case QTextListFormat::ListCircle: mark = QStringLiteral("\u25E6"); break;
    case QTextListFormat::ListSquare: mark = QStringLiteral("\u25AA"); break;
    default: mark = list->itemText(block); break;
    }
    return QString(depth, QLatin1Char('\t')) + mark + QLatin1Char('\t');
}

void appendPiece(NSMutableAttributedString& text, QString piece, const id& attributes) {
    piece.remove(QChar::ObjectReplacementCharacter);
    piece.replace(QChar::LineSeparator, QLatin1Char('\n'));
    const std::u16string_view units = unitsOf(piece);
    if (!units.empty()) text.append(*make<NSAttributedString>(units, attributes));
}

/// A bracket that begins no tag is text, as "a < b" is; the toolkit's reader would drop what follows it.
QString withoutLoneBrackets(QString html) {
    for (qsizetype at = html.indexOf(u'<'); at >= 0; at = html.indexOf(u'<', at + 1)) {
        const QChar next = at + 1 < html.size() ? html[at + 1] : QChar();
        const bool begins = next.isLetter() || next == u'/' || next == u'!' || next == u'?';
        if (!begins) html.replace(at, 1, QStringLiteral("&lt;"));
    }
    return html;
}

/// The empty paragraph that the toolkit keeps before a table at the beginning of a document.
bool isTableMargin(const QTextBlock& block) {
    return block.position() == 0 && block.length() == 1 && block.next().isValid() &&
           QTextCursor(block.next()).currentTable();
}

bool anyTellsFont(const QTextDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            if (tellsFont(piece.fragment().charFormat())) return true;
        }
    }
    return false;
}

bool isSet(const NSDictionary& attributes, const id& name) {
    const id value = attributes.objectForKey(name);
    return isNumber(value) && VELT_CINTEGER(value) != 0;
}

QTextBlockFormat blockFormatOf(const NSParagraphStyle& style) {
    QTextBlockFormat format;
    constexpr long kNatural = 4;
    if (style.alignment >= 0 && style.alignment < kNatural) format.setAlignment(qtAlignment(style.alignment));
    format.setLeftMargin(style.headIndent);
    format.setTextIndent(style.firstLineHeadIndent - style.headIndent);
    format.setBottomMargin(style.paragraphSpacing);
    if (style.lineSpacing > 0) format.setLineHeight(style.lineSpacing, QTextBlockFormat::LineDistanceHeight);
    return format;
}

const NSParagraphStyle* paragraphStyleOf(const id& attributes) {
    const NSDictionary* dictionary = dictionaryOf(attributes);
    const id style = dictionary ? dictionary->objectForKey(attribute::paragraphStyle()) : id();
    return is<NSParagraphStyle>(style) ? as<NSParagraphStyle>(style) : nullptr;
}

}  // namespace

Ref<NSAttributedString> attributedFromHtml(const QString& html) {
    ClosedDocument document;
    document.setUndoRedoEnabled(false);
    document.setDefaultFont(baseFont());
    document.setHtml(withoutLoneBrackets(html));
    return attributedFromDocument(document);
}

Ref<NSAttributedString> attributedFromDocument(const QTextDocument& document) {
    const Ref<NSMutableAttributedString> text = make<NSMutableAttributedString>();
    const QFont base = baseFont();
    const QFont* font = anyTellsFont(document) ? &base : nullptr;
    QTextBlock first = document.begin();
    if (isTableMargin(first)) first = first.next();
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        const bool aligned = block.blockFormat().hasProperty(QTextFormat::BlockAlignment);
        const id paragraph = aligned ? paragraphValue(block.blockFormat()) : id();
        const id plain = attributesOf(QTextCharFormat(), paragraph, font);
        if (block != first) {
            const id before = text->length() > 0 ? text->attributesAt(static_cast<long>(text->length()) - 1) : plain;
            appendPiece(*text, QStringLiteral("\n"), before);
        }
        appendPiece(*text, markOf(block), plain);
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            appendPiece(*text, piece.fragment().text(), attributesOf(piece.fragment().charFormat(), paragraph, font));
        }
    }
    return make<NSAttributedString>(*text);
}

QTextCharFormat charFormatOf(const id& attributes) {
    QTextCharFormat format;
    const NSDictionary* all = dictionaryOf(attributes);
    if (!all) return format;
    if (const id font = all->objectForKey(attribute::font()); is<NSFont>(font)) {
        format.setFont(as<NSFont>(font)->font());
    }
    if (const id target = all->objectForKey(attribute::link()); !target.isNil()) {
        format.setAnchor(true);
        format.setAnchorHref(qtText(description(target)));
        format.setForeground(QGuiApplication::palette().brush(QPalette::Link));
        format.setFontUnderline(true);
    }
    if (const id color = all->objectForKey(attribute::foregroundColor()); is<NSColor>(color)) {
        format.setForeground(qtColor(*as<NSColor>(color)));
    }
    if (const id color = all->objectForKey(attribute::backgroundColor()); is<NSColor>(color)) {
        format.setBackground(qtColor(*as<NSColor>(color)));
    }
    if (isNumber(all->objectForKey(attribute::underline()))) {
        format.setFontUnderline(isSet(*all, attribute::underline()));
    }
    if (isSet(*all, attribute::strikethrough())) format.setFontStrikeOut(true);
    if (const id raised = all->objectForKey(attribute::superscript()); isNumber(raised)) {
        const long steps = VELT_CINTEGER(raised);
        if (steps != 0) {
            format.setVerticalAlignment(steps > 0 ? QTextCharFormat::AlignSuperScript
                                                  : QTextCharFormat::AlignSubScript);
        }
    }
    if (const id tip = all->objectForKey(attribute::toolTip()); isString(tip)) format.setToolTip(qtText(tip));
    return format;
}

void fillDocument(QTextDocument& document, const NSAttributedString& text, const QFont& font) {
    document.setUndoRedoEnabled(false);
    document.clear();
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    text.forEachRun([&](std::size_t begin, std::size_t end, const id& attributes) {
        const std::u16string_view piece = text.view().substr(begin, end - begin);
        const int from = cursor.position();  // the document counts a line end of two units as one
        cursor.insertText(qtText(piece), charFormatOf(attributes));
        if (const NSParagraphStyle* style = paragraphStyleOf(attributes)) {
            QTextCursor paragraphs(cursor);
            paragraphs.setPosition(cursor.position() - (piece.back() == u'\n' ? 1 : 0));
            paragraphs.setPosition(from, QTextCursor::KeepAnchor);
            paragraphs.mergeBlockFormat(blockFormatOf(*style));
        }
    });
    cursor.endEditBlock();
}

QString htmlOf(const NSAttributedString& text, const QFont& font) {
    ClosedDocument document;
    fillDocument(document, text, font);
    return document.toHtml();
}

}  // namespace velt
