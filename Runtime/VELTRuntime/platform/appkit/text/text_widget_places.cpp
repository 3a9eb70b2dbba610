// Where the lines of a text view's widget lie, and how it scrolls.
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/platform/object/setting.h"

#include <QScrollBar>
#include <QStyle>
#include <cmath>

namespace velt {

double TextWidget::left() const { return kMargin - horizontalScrollBar()->value(); }

/// Where a row begins, from the viewport's top. Far from what is seen it is reckoned from the font's height.
double TextWidget::topOf(const ShownLines::Row& row) {
    constexpr std::size_t kNear = 400;
    const auto within = [this](const ShownLines::Row& of) {
        return of.row == 0 ? 0 : lines_.lineOf({of.line, std::min(of.row, lines_.line(of.line).rows - 1)}).y();
    };
    double y = (top_ == ShownLines::Row{} ? kMargin : 0) - within(top_);
    const std::size_t low = std::min(row.line, top_.line), high = std::max(row.line, top_.line);
    if (high - low > kNear) {
        const double height = QFontMetricsF(font()).height();
        const double between = static_cast<double>(high - low) * height;
        return row.line > top_.line ? y + between : y - between;
    }
    double between = 0;
    for (std::size_t number = low; number < high; ++number) between += lines_.line(number).height;
    return (row.line < top_.line ? y - between : y + between) + within(row);
}

ShownLines::Row TextWidget::rowAtHeight(double height) {
    double y = topOf({top_.line, 0});
    std::size_t number = top_.line;
    const std::size_t last = lineCount() - 1;
    while (number < last && y + lines_.line(number).height <= height) y += lines_.line(number++).height;
    while (number > 0 && y > height) y -= lines_.line(--number).height;
    const ShownLines::Line& found = lines_.line(number);
    std::size_t row = 0;
    while (row + 1 < found.rows && y + found.layout.lineAt(static_cast<int>(row) + 1).y() <= height) ++row;
    return {number, row};
}

/// How many rows are in sight when the last one is at the foot.
std::size_t TextWidget::lastRowsInSight() {
    double room = viewport()->height();
    std::size_t rows = 0;
    const double height = std::ceil(QFontMetricsF(font()).height());
    if (!breaksLines_ && lines_.highestRow() <= height) return static_cast<std::size_t>(std::max(1.0, room / height));
    for (std::size_t number = lineCount(); number-- > 0;) {
        const ShownLines::Line& line = lines_.line(number);
        for (std::size_t row = line.rows; row-- > 0;) {
            const double begin = line.layout.lineAt(static_cast<int>(row)).y();
            const double end = row + 1 < line.rows ? line.layout.lineAt(static_cast<int>(row) + 1).y() : line.height;
            room -= end - begin;
            if (room < 0) return std::max<std::size_t>(rows, 1);
            ++rows;
        }
    }
    return rows;
}

void TextWidget::layOutSeen() {
    top_.line = std::min(top_.line, lineCount() - 1);
    top_.row = std::min(top_.row, lines_.line(top_.line).rows - 1);
    std::size_t last = top_.line;
    forEachLineInSight([&](std::size_t number, double) { last = number; });
    lines_.trim(top_.line, last);
    updateBars();
}

void TextWidget::updateBars() {
    if (settingBars_) return;
    const Setting setting(settingBars_, true);
    const std::size_t inSight = lastRowsInSight(), rows = lines_.rowCount();
    const auto most = static_cast<int>(rows > inSight ? rows - inSight : 0);
    const auto before = static_cast<int>(lines_.rowsBefore(top_));
    QScrollBar& down = *verticalScrollBar();
    if (before > most) {
        top_ = lines_.rowAt(static_cast<std::size_t>(most));
        viewport()->update();
    }
    down.setRange(0, most);
    down.setPageStep(static_cast<int>(inSight));
    down.setValue(std::min(before, most));
    QScrollBar& sideways = *horizontalScrollBar();
    const int room = viewport()->width() - style()->pixelMetric(QStyle::PM_TextCursorWidth);
    const int wide = breaksLines_ ? 0 : static_cast<int>(std::ceil(lines_.widest())) + 2 * kMargin;
    sideways.setRange(0, std::max(0, wide - room));
    sideways.setPageStep(room);
    sideways.setSingleStep(20);
}

void TextWidget::scrollContentsBy(int dx, int dy) {
    if (settingBars_ && dx == 0) return;
    if (dy != 0 && !settingBars_) {
        top_ = lines_.rowAt(static_cast<std::size_t>(verticalScrollBar()->value()));
        layOutSeen();
    }
    viewport()->update();
}

void TextWidget::setTop(const ShownLines::Row& row) {
    if (row == top_) return;
    top_ = row;
    layOutSeen();
    viewport()->update();
}

void TextWidget::reveal(std::size_t position) {
    if (viewport()->height() <= 0) return;
    const ShownLines::Row row = lines_.rowOf(position);
    const double room = viewport()->height(), y = topOf(row);
    const double height = lines_.lineOf(row).height();
    if (row < top_ || y < 0 || y + height > room) {
        // What is a screen away comes to the middle, all else to the edge that it is behind.
        const bool isFar = y < -room || y > 2 * room;
        const bool isAbove = row < top_ || y < 0;
        double above = isFar ? (room - height) / 2 : isAbove ? 0 : room - std::ceil(height);
        ShownLines::Row top = row;
        while (above > 0 && top != ShownLines::Row{}) {
            const ShownLines::Row before = top.row > 0
                                               ? ShownLines::Row{top.line, top.row - 1}
                                               : ShownLines::Row{top.line - 1, lines_.line(top.line - 1).rows - 1};
            above -= std::ceil(lines_.lineOf(before).height());
            if (above >= 0) top = before;
        }
        setTop(top);
    }
    if (breaksLines_) return;
    const double x = lines_.xOf(position) + left();
    QScrollBar& sideways = *horizontalScrollBar();
    constexpr int kBeside = 20;
    if (x < kMargin)
        sideways.setValue(sideways.value() + static_cast<int>(std::floor(x)) - kBeside);
    else if (x > viewport()->width() - kMargin)
        sideways.setValue(sideways.value() + static_cast<int>(std::ceil(x)) - viewport()->width() + kBeside);
}

QRect TextWidget::caretRect(std::size_t position) {
    const ShownLines::Row row = lines_.rowOf(position);
    const QTextLine shown = lines_.lineOf(row);
    const double x = lines_.xOf(position) + left();
    const int width = style()->pixelMetric(QStyle::PM_TextCursorWidth);
    return {static_cast<int>(x), static_cast<int>(topOf(row)), width, static_cast<int>(std::ceil(shown.height()))};
}

std::size_t TextWidget::positionAt(const QPoint& place) {
    const ShownLines::Row row = rowAtHeight(place.y());
    return lines_.positionAt(row, place.x() - left());
}

NSRange TextWidget::charactersIn(const QRectF& rect) {
    const ShownLines::Row first = rowAtHeight(rect.top()), last = rowAtHeight(rect.bottom());
    const std::size_t begin = lines_.positionAt(first, -1e6);
    const std::size_t end = lines_.moved(lines_.positionAt(last, -1e6), QTextCursor::EndOfLine, 0);
    return {begin, std::max(begin, end) - begin};
}

std::vector<TextWidget::ShownRow> TextWidget::firstRowsInSight() {
    std::vector<ShownRow> rows;
    forEachLineInSight([&](std::size_t number, double y) {
        const QTextLine first = lines_.line(number).layout.lineAt(0);
        rows.push_back({number, QRectF(0, y, viewport()->width(), first.height()).toAlignedRect(), first.ascent()});
    });
    return rows;
}

void TextWidget::updateLines(std::size_t first, std::size_t last) {
    double from = -1, to = -1;
    forEachLineInSight([&](std::size_t number, double y) {
        if (number < first || number > last) return;
        if (to < 0) from = y;
        to = y + lines_.line(number).height;
    });
    const int bottom = last + 1 >= lineCount() ? viewport()->height() : static_cast<int>(std::ceil(to));
    if (to < 0 && bottom < viewport()->height()) return;
    const int top = to < 0 ? 0 : static_cast<int>(std::floor(from));
    viewport()->update(0, top, viewport()->width(), bottom - top);
}

}  // namespace velt
