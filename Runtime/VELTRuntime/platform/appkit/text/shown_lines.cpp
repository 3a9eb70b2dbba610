#include "VELTRuntime/platform/appkit/text/shown_lines.h"

#include "VELTRuntime/platform/appkit/qt_values.h"

#include <algorithm>
#include <cmath>

namespace velt {

namespace {

constexpr double kUnlimited = 1e7;
constexpr std::size_t kMostLaidOut = 600, kKeptAtTheEnd = 200;

/// The keys of a map from a line on are others now; those of lines that are gone or changed go.
template <class Map> void renumber(Map& map, const ShownLines::Change& change) {
    const auto lastBefore = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(change.last) - change.added);
    auto behind = map.erase(map.lower_bound(change.first), map.upper_bound(lastBefore));
    if (change.added == 0) return;
    Map moved;
    while (behind != map.end()) {
        auto entry = map.extract(behind++);
        entry.key() = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(entry.key()) + change.added);
        moved.insert(moved.end(), std::move(entry));
    }
    map.merge(moved);
}

}  // namespace

// What is laid out.

bool ShownLines::setStyle(const LineStyle& style) {
    if (style == style_) return false;
    // Lines that do not break take their places from the width only when they are drawn.
    LineStyle sameWidth = style;
    sameWidth.width = style_.width;
    const bool isOnlyWidth = sameWidth == style_ && !style.breaks;
    style_ = style;
    if (!isOnlyWidth) forgetAll();
    return true;
}

void ShownLines::setComposed(ComposedText composed) {
    const std::size_t length = index_.textLength();
    for (const std::size_t place : {composed_.position, composed.position}) {
        const std::size_t number = index_.lineAt(std::min(place, length));
        lines_.erase(number);
    }
    composed_ = std::move(composed);
}

void ShownLines::reset() {
    forgetAll();
    composed_ = {};
    index_ = {};
    index_.replace(0, 0, source_.shownText(), u'\0', u'\0');
}

ShownLines::Change ShownLines::replace(NSRange range, std::size_t newLength) {
    const std::u16string_view text = source_.shownText();
    const std::size_t oldLength = index_.textLength(), oldCount = index_.count();
    // The units beside the edit may belong to a line end that was or is of two.
    const std::size_t begin = range.location > 0 ? range.location - 1 : 0;
    const std::size_t lastBefore = index_.lineAt(std::min(range.location + range.length + 1, oldLength));
    Change change;
    change.first = index_.lineAt(begin);
    const std::size_t end = range.location + newLength;
    index_.replace(range.location, range.length, text.substr(range.location, newLength),
                   range.location > 0 ? text[range.location - 1] : u'\0', end < text.size() ? text[end] : u'\0');
    change.added = static_cast<std::ptrdiff_t>(index_.count()) - static_cast<std::ptrdiff_t>(oldCount);
    change.last = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(lastBefore) + change.added);
    change.heightBefore = heightOf(change.first, lastBefore);
    renumber(lines_, change);
    renumber(broken_, change);
    extraRows_ = 0;
    for (const auto& [number, rows] : broken_) extraRows_ += rows;
    if (!composed_.text.isEmpty()) setComposed({});  // it was for the text as it was
    return change;
}

std::optional<double> ShownLines::heightOf(std::size_t first, std::size_t last) const {
    double height = 0;
    std::size_t number = first;
    for (auto each = lines_.lower_bound(first); each != lines_.end() && each->first <= last; ++each, ++number) {
        if (each->first != number) break;
        height += each->second->height;
    }
    return number == last + 1 ? std::optional(height) : std::nullopt;
}

void ShownLines::forget(std::size_t first, std::size_t last) {
    lines_.erase(lines_.lower_bound(first), lines_.upper_bound(last));
}

void ShownLines::forgetAll() {
    lines_.clear();
    broken_.clear();
    extraRows_ = 0;
    widest_ = 0;
    highestRow_ = 0;
}

void ShownLines::trim(std::size_t first, std::size_t last) {
    if (lines_.size() <= kMostLaidOut) return;
    const std::size_t count = index_.count(), end = count > kKeptAtTheEnd ? count - kKeptAtTheEnd : 0;
    std::erase_if(lines_, [&](const auto& entry) {
        return (entry.first + kKeptAtTheEnd < first || entry.first > last + kKeptAtTheEnd) && entry.first < end;
    });
}

NSRange ShownLines::content(std::size_t number) const {
    const std::u16string_view text = source_.shownText();
    const std::size_t begin = index_.start(number);
    std::size_t end = index_.end(number);
    if (number + 1 < index_.count()) {
        --end;
        if (end > begin && text[end] == u'\n' && text[end - 1] == u'\r') --end;
    }
    return {begin, end - begin};
}

ShownLines::Line& ShownLines::line(std::size_t number) {
    std::unique_ptr<Line>& found = lines_[number];
    if (!found) {
        found = std::make_unique<Line>();
        layOut(number, *found);
    }
    return *found;
}

QList<QTextLayout::FormatRange> ShownLines::formatsOfLine(std::size_t number) const {
    const NSRange range = content(number);
    QList<QTextLayout::FormatRange> formats = source_.formatsOf(range);
    if (!isComposing(number)) return formats;
    const int place = static_cast<int>(composed_.position - range.location);
    const int length = static_cast<int>(composed_.text.size());
    for (QTextLayout::FormatRange& format : formats) {
        if (format.start >= place)
            format.start += length;
        else if (format.start + format.length > place)
            format.length += length;
    }
    for (QTextLayout::FormatRange format : composed_.formats) {
        format.start += place;
        formats.append(format);
    }
    return formats;
}

void ShownLines::layOut(std::size_t number, Line& line) {
    const NSRange range = content(number);
    const std::u16string_view units = source_.shownText().substr(range.location, range.length);
    QTextLayout& layout = line.layout;
    layout.setText(qtText(units));
    layout.setFont(style_.font);
    layout.setCacheEnabled(true);
    QTextOption option;
    option.setTabStopDistance(style_.tabDistance);
    option.setWrapMode(style_.breaks ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    option.setAlignment(style_.breaks ? style_.alignment : Qt::AlignLeft | Qt::AlignAbsolute);
    if (units.empty()) option.setTextDirection(style_.direction);
    layout.setTextOption(option);
    if (isComposing(number)) {
        layout.setPreeditArea(static_cast<int>(composed_.position - range.location), composed_.text);
    }
    layout.setFormats(formatsOfLine(number));
    layout.beginLayout();
    double height = 0;
    for (QTextLine row = layout.createLine(); row.isValid(); row = layout.createLine()) {
        row.setLineWidth(style_.breaks ? std::max(style_.width, 1.0) : kUnlimited);
        row.setPosition({0, height});
        const double rowHeight = std::ceil(row.height());
        highestRow_ = std::max(highestRow_, rowHeight);
        height += rowHeight;
        line.width = std::max(line.width, row.naturalTextWidth());
    }
    layout.endLayout();
    line.height = height;
    line.rows = static_cast<std::size_t>(std::max(1, layout.lineCount()));
    widest_ = std::max(widest_, line.width);
    line.looks = looks_;
    setRows(number, line.rows);
}

void ShownLines::setRows(std::size_t number, std::size_t rows) {
    const auto known = broken_.find(number);
    extraRows_ += rows - 1;
    if (known != broken_.end()) extraRows_ -= known->second;
    if (rows > 1)
        broken_[number] = rows - 1;
    else if (known != broken_.end())
        broken_.erase(known);
}

bool ShownLines::refresh(std::size_t number) {
    const auto found = lines_.find(number);
    if (found == lines_.end() || found->second->looks == looks_) return false;
    found->second->looks = looks_;
    const QList<QTextLayout::FormatRange> formats = formatsOfLine(number);
    if (formats == found->second->layout.formats()) return false;
    lines_.erase(found);
    return true;
}

bool ShownLines::isRightToLeft(const Line& line) const {
    const QString text = line.layout.text();
    return text.isEmpty() ? style_.direction == Qt::RightToLeft : text.isRightToLeft();
}

Qt::Alignment ShownLines::alignmentOf(const Line& line) const {
    const bool isAbsolute = style_.alignment & Qt::AlignAbsolute;
    if (style_.alignment & Qt::AlignHCenter) return Qt::AlignHCenter;
    if (isAbsolute) return style_.alignment & (Qt::AlignLeft | Qt::AlignRight);
    return isRightToLeft(line) ? Qt::AlignRight : Qt::AlignLeft;
}

double ShownLines::leftOf(const Line& line) const {
    if (style_.breaks) return 0;
    const double room = std::max(style_.width, widest_) - line.width;
    const Qt::Alignment alignment = alignmentOf(line);
    if (alignment & Qt::AlignRight) return room;
    return alignment & Qt::AlignHCenter ? room / 2 : 0;
}

// Rows.

std::size_t ShownLines::rowsBefore(const Row& row) const {
    std::size_t before = row.line + row.row;
    for (auto each = broken_.begin(); each != broken_.end() && each->first < row.line; ++each) before += each->second;
    return before;
}

ShownLines::Row ShownLines::rowAt(std::size_t number) const {
    std::size_t before = 0;  // rows beyond one of the lines above
    for (const auto& [line, extra] : broken_) {
        if (number < line + before) break;
        if (number <= line + before + extra) return {line, number - line - before};
        before += extra;
    }
    return {std::min(number - before, index_.count() - 1), 0};
}

ShownLines::Row ShownLines::rowOf(std::size_t position) {
    const std::size_t number = index_.lineAt(std::min(position, index_.textLength()));
    const QTextLine row = line(number).layout.lineForTextPosition(placeInLayout(position));
    return {number, row.isValid() ? static_cast<std::size_t>(row.lineNumber()) : 0};
}

// Places.

bool ShownLines::isComposing(std::size_t number) const {
    return !composed_.text.isEmpty() && index_.lineAt(composed_.position) == number;
}

int ShownLines::placeInLayout(std::size_t position) const {
    const std::size_t number = index_.lineAt(std::min(position, index_.textLength()));
    const NSRange range = content(number);
    // Nobody stands within a line end.
    const std::size_t place = std::min<std::size_t>(position - range.location, range.length);
    if (!isComposing(number)) return static_cast<int>(place);
    const std::size_t composing = composed_.position - range.location;
    if (place == composing) return static_cast<int>(place) + composed_.caret;
    return static_cast<int>(place > composing ? place + static_cast<std::size_t>(composed_.text.size()) : place);
}

std::size_t ShownLines::positionInText(std::size_t number, int place) const {
    const NSRange range = content(number);
    auto found = static_cast<std::size_t>(std::max(0, place));
    if (isComposing(number)) {
        const std::size_t composing = composed_.position - range.location;
        const auto length = static_cast<std::size_t>(composed_.text.size());
        if (found > composing) found = std::max(composing, found - std::min(found, length));
    }
    return range.location + std::min<std::size_t>(found, range.length);
}

double ShownLines::xOf(std::size_t position) {
    const Row row = rowOf(position);
    Line& shown = line(row.line);
    return leftOf(shown) + shown.layout.lineAt(static_cast<int>(row.row)).cursorToX(placeInLayout(position));
}

std::size_t ShownLines::positionAt(const Row& row, double x) {
    Line& shown = line(row.line);
    const QTextLine found = shown.layout.lineAt(static_cast<int>(std::min(row.row, shown.rows - 1)));
    int place = found.xToCursor(x - leftOf(shown));
    // What stands behind the last character of a row that is not the last one is the begin of the next row.
    const int end = found.textStart() + found.textLength();
    if (place == end && row.row + 1 < shown.rows && end > found.textStart()) {
        place = shown.layout.previousCursorPosition(place);
    }
    return positionInText(row.line, place);
}

// Movements.

std::size_t ShownLines::movedByStep(std::size_t position, bool forward, QTextLayout::CursorMode mode) {
    const std::size_t number = index_.lineAt(position);
    const NSRange range = content(number);
    const std::size_t end = range.location + range.length;
    if (forward && position >= end) return number + 1 < index_.count() ? index_.start(number + 1) : end;
    if (!forward && position == range.location) {
        if (number == 0) return 0;
        const NSRange before = content(number - 1);
        return before.location + before.length;
    }
    const QTextLayout& layout = line(number).layout;
    const int place = static_cast<int>(position - range.location);
    const int next = forward ? layout.nextCursorPosition(place, mode) : layout.previousCursorPosition(place, mode);
    return range.location + std::min<std::size_t>(static_cast<std::size_t>(next), range.length);
}

std::size_t ShownLines::movedByRow(std::size_t position, bool down, double across) {
    Row row = rowOf(position);
    if (down) {
        if (row.row + 1 < line(row.line).rows)
            ++row.row;
        else if (row.line + 1 < index_.count())
            row = {row.line + 1, 0};
        else
            return position;
    } else {
        if (row.row > 0)
            --row.row;
        else if (row.line > 0)
            row = {row.line - 1, line(row.line - 1).rows - 1};
        else
            return position;
    }
    return positionAt(row, across);
}

std::size_t ShownLines::moved(std::size_t position, QTextCursor::MoveOperation operation, double across) {
    const std::u16string_view text = source_.shownText();
    const std::size_t number = index_.lineAt(position);
    const bool mirrored = isRightToLeft(line(number));
    const auto ends = [&](std::size_t of) {
        const NSRange range = content(of);
        return range.location + range.length;
    };
    // A paragraph goes on over line ends that are within it.
    const auto goesOn = [&](std::size_t end) { return end < text.size() && text[end] == 0x2028; };
    switch (operation) {
    case QTextCursor::Left: return movedByStep(position, mirrored, QTextLayout::SkipCharacters);
    case QTextCursor::Right: return movedByStep(position, !mirrored, QTextLayout::SkipCharacters);
    case QTextCursor::PreviousCharacter: return movedByStep(position, false, QTextLayout::SkipCharacters);
    case QTextCursor::NextCharacter: return movedByStep(position, true, QTextLayout::SkipCharacters);
    case QTextCursor::WordLeft: return movedByStep(position, mirrored, QTextLayout::SkipWords);
    case QTextCursor::WordRight: return movedByStep(position, !mirrored, QTextLayout::SkipWords);
    case QTextCursor::PreviousWord: return movedByStep(position, false, QTextLayout::SkipWords);
    case QTextCursor::NextWord: return movedByStep(position, true, QTextLayout::SkipWords);
    case QTextCursor::Up: return movedByRow(position, false, across);
    case QTextCursor::Down: return movedByRow(position, true, across);
    case QTextCursor::StartOfLine: return positionInText(number, lineOf(rowOf(position)).textStart());
    case QTextCursor::EndOfLine: {
        const Row row = rowOf(position);
        const QTextLine shown = lineOf(row);
        const int end = shown.textStart() + shown.textLength();
        if (row.row + 1 == line(number).rows) return ends(number);
        return positionInText(number, line(number).layout.previousCursorPosition(end));
    }
    case QTextCursor::StartOfBlock: {
        std::size_t first = number;
        while (first > 0 && goesOn(ends(first - 1))) --first;
        return index_.start(first);
    }
    case QTextCursor::EndOfBlock: {
        std::size_t last = number;
        while (goesOn(ends(last))) ++last;
        return ends(last);
    }
    case QTextCursor::Start: return 0;
    case QTextCursor::End: return text.size();
    default: return position;
    }
}

}  // namespace velt
