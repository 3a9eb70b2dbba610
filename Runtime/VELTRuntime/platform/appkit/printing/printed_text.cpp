#include "VELTRuntime/platform/appkit/printing/printed_text.h"

#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/printing/print_info.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/rich_text.h"
#include "VELTRuntime/platform/appkit/text/text_positions.h"
#include "VELTRuntime/values/text/line_index.h"

#include <QPainter>
#include <QTextLayout>
#include <cmath>

namespace velt {

namespace {

constexpr double kTabStop = 80;  // as on the screen

}  // namespace

PrintedText::PrintedText(const NSTextView& view, const NSPrintInfo& info, const PrintedArea& area)
    : area_(area), kept_(view.attributedPart({0, view.textLength()})), text_(*attributedStringOf(kept_)),
      centered_(info.isVerticallyCentered()) {
    const id font = view.font();
    font_ = onPaper(as<NSFont>(font)->font());
    const id color = view.textColor(), ground = view.backgroundColor();
    if (is<NSColor>(color)) color_ = qtColor(*as<NSColor>(color));
    if (view.drawsBackground() && is<NSColor>(ground)) ground_ = qtColor(*as<NSColor>(ground));
    option_.setAlignment(qtAlignment(view.alignment()));
    option_.setTabStopDistance(kTabStop * area.dotsPerPoint);
    // Lines that break in the view break at the paper's edge at the latest, so that nothing of them is lost; those that
    // do not break are cut off there.
    const id space = view.textContainer();
    const auto& container = *as<NSTextContainer>(space);
    const bool breaks = container.widthTracksTextView() || info.horizontalPagination() != NSPrintInfo::kClip;
    option_.setWrapMode(breaks ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    const double shown = view.frame().size.width * area.dotsPerPoint;
    lineWidth_ = breaks && shown > 0 ? std::min(shown, area.room.width()) : area.room.width();
    paginate(info.verticalPagination() != NSPrintInfo::kClip);
}

QFont PrintedText::onPaper(QFont font) const {
    const int pixels = font.pixelSize() > 0 ? font.pixelSize() : static_cast<int>(NSFont(font).pointSize());
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels * area_.dotsPerPoint))));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

PrintedText::Paragraph PrintedText::paragraphAt(std::size_t begin) const {
    const std::u16string_view text = text_.view();
    std::size_t end = begin;
    while (end < text.size() && !endsLine(text[end])) ++end;
    std::size_t next = end;
    if (next < text.size()) next += splitsLineEnd(text, next + 1) ? 2 : 1;
    return {begin, end, next};
}

std::unique_ptr<QTextLayout> PrintedText::layoutOf(const Paragraph& paragraph) const {
    const std::size_t length = paragraph.end - paragraph.begin;
    auto layout =
        std::make_unique<QTextLayout>(qtText(text_.view().substr(paragraph.begin, length)), font_, &area_.device);
    layout->setTextOption(option_);
    QList<QTextLayout::FormatRange> formats;
    NSRange run;
    for (std::size_t at = paragraph.begin; at < paragraph.end; at = run.location + run.length) {
        const id& attributes = text_.runs().at(at, &run).attributes;
        if (attributes.isNil()) continue;
        QTextCharFormat format = charFormatOf(attributes);
        if (format.hasProperty(QTextFormat::FontPixelSize)) format.setFont(onPaper(format.font()));
        const std::size_t last = std::min<std::size_t>(paragraph.end, run.location + run.length);
        formats.append({static_cast<int>(at - paragraph.begin), static_cast<int>(last - at), format});
    }
    layout->setFormats(formats);
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(lineWidth_);
    }
    layout->endLayout();
    return layout;
}

void PrintedText::paginate(bool goesOn) {
    pages_.push_back({});
    for (std::size_t at = 0;;) {
        const Paragraph paragraph = paragraphAt(at);
        if (isLast(paragraph) && paragraph.begin == paragraph.end && at > 0)
            return;  // nothing behind the last line end
        const std::unique_ptr<QTextLayout> layout = layoutOf(paragraph);
        for (int i = 0; i < layout->lineCount(); ++i) {
            const double height = layout->lineAt(i).height();
            // Each page takes one line at least, or there would be no end.
            if (pages_.back().height > 0 && pages_.back().height + height > area_.room.height()) {
                if (!goesOn) return;
                pages_.push_back({at, i, 0});
            }
            pages_.back().height += height;
        }
        if (isLast(paragraph)) return;
        at = paragraph.next;
    }
}

void PrintedText::draw(std::size_t page, QPainter& painter) {
    const Page& from = pages_[page];
    painter.save();
    if (ground_.isValid()) painter.fillRect(area_.room, ground_);
    painter.setClipRect(area_.room);
    painter.setPen(color_);
    const double spare = centered_ ? std::max(0.0, area_.room.height() - from.height) / 2 : 0;
    double top = area_.room.top() + spare;
    // A rounding of the sum of all lines must not leave the last one out.
    const double end = top + from.height - 0.5;
    int line = from.line;
    for (std::size_t at = from.paragraph; top < end; line = 0) {
        const Paragraph paragraph = paragraphAt(at);
        const std::unique_ptr<QTextLayout> layout = layoutOf(paragraph);
        for (; line < layout->lineCount() && top < end; ++line) {
            QTextLine shown = layout->lineAt(line);
            shown.setPosition({0, 0});
            shown.draw(&painter, {area_.room.left(), top});
            top += shown.height();
        }
        if (isLast(paragraph)) break;
        at = paragraph.next;
    }
    painter.restore();
}

}  // namespace velt
