// How a text view's widget draws and scrolls.
#include "VELTRuntime/platform/appkit/text/text_widget.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/find_bar.h"
#include "VELTRuntime/platform/appkit/text/rich_text.h"
#include "VELTRuntime/platform/appkit/text/text_accessible.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/appkit/view_events.h"

#include <QAccessible>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <cmath>

namespace velt {

namespace {

constexpr int kMargin = 4;  // around the text
constexpr double kTabDistance = 80;
constexpr std::size_t kMostLooks = 256;
const QEvent::Type kUpdateSeen = static_cast<QEvent::Type>(QEvent::registerEventType());

/// While it exists, a flag is set.
class Setting {
public:
    explicit Setting(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Setting() { flag_ = before_; }
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

private:
    bool& flag_;
    bool before_;
};

}  // namespace

TextWidget::TextWidget() {
    installTextAccessibility();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::WheelFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setAttribute(Qt::WA_KeyCompression);
    viewport()->setAutoFillBackground(true);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setMouseTracking(true);
    viewport()->setCursor(Qt::IBeamCursor);
    setAcceptDrops(true);
    verticalScrollBar()->setSingleStep(1);
    lines_.reset();
    updateStyle();
}

TextWidget::~TextWidget() = default;

NSTextView* TextWidget::view() const {
    NSView* shown = viewOf(this);
    return shown ? static_cast<NSTextView*>(shown) : nullptr;
}

// What is drawn.

std::u16string_view TextWidget::shownText() const {
    const NSTextView* shown = view();
    return shown ? shown->shown().view() : std::u16string_view();
}

QFont TextWidget::scaled(QFont font) const {
    constexpr int kSmallest = 2;  // what is smaller still cannot be told from dots
    if (scale_ != 1) font.setPixelSize(std::max(kSmallest, qRound(QFontInfo(font).pixelSize() * scale_)));
    return font;
}

const QTextCharFormat& TextWidget::formatOf(const id& attributes) const {
    const void* key = attributes.object();
    const auto known = looks_.find(key);
    if (known != looks_.end()) return known->second.second;
    QTextCharFormat format = charFormatOf(attributes);
    if (scale_ != 1 && format.hasProperty(QTextFormat::FontPixelSize)) format.setFont(scaled(format.font()));
    if (looks_.size() >= kMostLooks) looks_.clear();
    return looks_.emplace(key, std::pair(attributes, std::move(format))).first->second.second;
}

QList<QTextLayout::FormatRange> TextWidget::formatsOf(NSRange range) const {
    QList<QTextLayout::FormatRange> formats;
    const NSTextView* shown = view();
    if (!shown) return formats;
    const std::size_t end = range.location + range.length;
    const auto add = [&](const id& attributes, const NSRange& run) {
        if (attributes.isNil()) return;
        const std::size_t from = std::max<std::size_t>(run.location, range.location);
        const std::size_t to = std::min<std::size_t>(run.location + run.length, end);
        formats.append({static_cast<int>(from - range.location), static_cast<int>(to - from), formatOf(attributes)});
    };
    NSRange run;
    const RunList& own = shown->shown().runs();
    for (std::size_t at = range.location; at < end; at = run.location + run.length) {
        const id& attributes = own.at(at, &run).attributes;
        add(attributes, run);
    }
    const TemporaryLayer& layer = shown->temporaryLayer();
    const std::size_t last = std::min(end, layer.length());
    for (std::size_t at = range.location; at < last; at = run.location + run.length) add(layer.at(at, run), run);
    return formats;
}

void TextWidget::updateStyle() {
    LineStyle laid;
    laid.font = font();
    laid.alignment = alignment_;
    laid.direction = layoutDirection();
    laid.tabDistance = kTabDistance * scale_;
    laid.breaks = breaksLines_;
    laid.width = viewport()->width() - 2 * kMargin - style()->pixelMetric(QStyle::PM_TextCursorWidth);
    if (!lines_.setStyle(laid)) return;
    layOutSeen();
    viewport()->update();
}

void TextWidget::setScale(double scale) {
    if (scale == scale_) return;
    scale_ = scale;
    looks_.clear();
    lines_.forgetAll();
    updateStyle();
}

void TextWidget::setAlignment(Qt::Alignment alignment) {
    alignment_ = alignment;
    updateStyle();
}

void TextWidget::setBreaksLines(bool flag) {
    breaksLines_ = flag;
    updateStyle();
}

// Changes.

void TextWidget::fill() {
    if (!isFilled_) textReplaced();
}

void TextWidget::textReplaced() {
    isFilled_ = true;
    const std::size_t before = lineCount(), lengthBefore = lines_.index().textLength();
    lines_.reset();
    top_ = keepsPlace_ ? ShownLines::Row{std::min(top_.line, lineCount() - 1), 0} : ShownLines::Row{};
    if (!keepsPlace_) horizontalScrollBar()->setValue(0);
    layOutSeen();
    viewport()->update();
    if (onLineCount && lineCount() != before) onLineCount();
    tellReadersOfText({0, lengthBefore}, lines_.index().textLength());
}

void TextWidget::textChanged(NSRange range, std::size_t newLength) {
    if (range.location == 0 && newLength == shownText().size()) return textReplaced();
    const ShownLines::Change change = lines_.replace(range, newLength);
    const auto lastBefore = static_cast<std::ptrdiff_t>(change.last) - change.added;
    if (lastBefore < static_cast<std::ptrdiff_t>(top_.line)) {
        // What is seen stays where it is.
        top_.line = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(top_.line) + change.added);
    } else if (top_.line > change.first) {
        top_ = {std::min(top_.line, lineCount() - 1), 0};
    }
    layOutSeen();
    double height = 0;
    for (std::size_t number = change.first; change.heightBefore && number <= change.last; ++number) {
        height += lines_.line(number).height;
        if (height > *change.heightBefore) break;
    }
    const bool isAllElseInPlace = change.added == 0 && change.heightBefore == height;
    updateLines(change.first, isAllElseInPlace ? change.last : lineCount() - 1);
    if (onLineCount && change.added != 0) onLineCount();
    tellReadersOfText(range, newLength);
}

void TextWidget::attributesChanged(NSRange range) {
    const LineIndex& index = lines_.index();
    lines_.forget(index.lineAt(range.location), index.lineAt(range.location + range.length));
    layOutSeen();
    updateLines(index.lineAt(range.location), lineCount() - 1);
}

void TextWidget::temporaryAttributesChanged() {
    lines_.looksChanged();
    askForUpdate();
}

/// What is seen is looked at again before it is next drawn.
void TextWidget::askForUpdate() {
    if (std::exchange(updateIsAsked_, true)) return;
    QCoreApplication::postEvent(this, new QEvent(kUpdateSeen));
}

/// Has the lines in sight drawn anew whose looks are others by now.
void TextWidget::updateSeen() {
    updateIsAsked_ = false;
    std::vector<std::size_t> others;
    bool isHigher = false;
    forEachLineInSight([&](std::size_t number, double) {
        const double height = lines_.line(number).height;
        if (!lines_.refresh(number)) return;
        others.push_back(number);
        isHigher = isHigher || lines_.line(number).height != height;
    });
    layOutSeen();
    for (const std::size_t number : others) updateLines(number, isHigher ? lineCount() - 1 : number);
}

// Where lines are.

double TextWidget::left() const { return kMargin - horizontalScrollBar()->value(); }

template <class Each> void TextWidget::forEachLineInSight(Each&& each) {
    const double bottom = viewport()->height();
    const std::size_t count = lineCount();
    double y = topOf({top_.line, 0});
    for (std::size_t number = top_.line; number < count && y < bottom; ++number) {
        each(number, y);
        y += lines_.line(number).height;
    }
}

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
    const Setting setting(settingBars_);
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

void TextWidget::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateStyle();
    layOutSeen();
    if (isFindBarShown()) placeFindBar();
}

void TextWidget::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    layOutSeen();
    if (!std::exchange(wasShown_, true)) reveal(position_);
}

void TextWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::LayoutDirectionChange: updateStyle(); break;
    case QEvent::PaletteChange:
        looks_.clear();  // links have the palette's colour
        lines_.forgetAll();
        layOutSeen();
        viewport()->update();
        break;
    case QEvent::ActivationChange:
    case QEvent::EnabledChange: viewport()->update(); break;
    default: break;
    }
}

// Drawing.

void TextWidget::drawLine(QPainter& painter, std::size_t number, const QPointF& place, const QRectF& clip) {
    const ShownLines::Line& line = lines_.line(number);
    const NSRange range = lines_.content(number);
    const std::size_t end = range.location + range.length;
    const bool endsHere = number + 1 < lineCount();
    QList<QTextLayout::FormatRange> selections;
    const QPalette colors = palette();
    const auto select = [&](std::size_t from, std::size_t to) {
        if (from >= to || to <= range.location || from > end) return;
        QTextLayout::FormatRange shown;
        shown.start = static_cast<int>(std::max<std::size_t>(from, range.location) - range.location);
        shown.length = static_cast<int>(std::min(to, end) - range.location) - shown.start;
        shown.format.setBackground(colors.brush(QPalette::Highlight));
        shown.format.setForeground(colors.brush(QPalette::HighlightedText));
        if (shown.length > 0) selections.append(shown);
        if (!endsHere || to <= end) return;
        // A selected line end is seen, too.
        const QTextLine last = line.layout.lineAt(static_cast<int>(line.rows) - 1);
        const double x = place.x() + last.cursorToX(static_cast<int>(range.length));
        const double width = QFontMetricsF(font()).averageCharWidth();
        const double begin = line.layout.text().isRightToLeft() ? x - width : x;
        painter.fillRect(QRectF(begin, place.y() + last.y(), width, line.height - last.y()),
                         colors.brush(QPalette::Highlight));
    };
    select(selectionBegin(), selectionEnd());
    for (const NSRange& other : further_) select(other.location, other.location + other.length);
    line.layout.draw(&painter, place, selections, clip);
}

void TextWidget::drawCaret(QPainter& painter, std::size_t position) {
    const ShownLines::Row row = lines_.rowOf(position);
    const ShownLines::Line& line = lines_.line(row.line);
    const QPointF place(left() + lines_.leftOf(line), topOf({row.line, 0}));
    line.layout.drawCursor(&painter, place, lines_.placeInLayout(position),
                           style()->pixelMetric(QStyle::PM_TextCursorWidth));
}

void TextWidget::paintEvent(QPaintEvent* event) {
    if (updateIsAsked_) updateSeen();
    const std::size_t rows = lines_.rowCount();
    const double widest = lines_.widest();
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    const QRectF clip = event->rect();
    forEachLineInSight([&](std::size_t number, double y) {
        const ShownLines::Line& line = lines_.line(number);
        if (y + line.height <= clip.top() || y > clip.bottom()) return;
        drawLine(painter, number, {left() + lines_.leftOf(line), y}, clip);
    });
    const bool isComposing = !lines_.composed().text.isEmpty();
    if (caretIsLit_ && !(isComposing && lines_.composed().hidesCaret)) drawCaret(painter, position_);
    if (dropPlace_) drawCaret(painter, *dropPlace_);
    // Lines that came into sight may have brought rows; the bars learn of them when nothing is being drawn.
    if (lines_.rowCount() != rows || lines_.widest() != widest) askForUpdate();
    NSTextView* shown = view();
    if (!shown) return;
    const Selector draws = Selector::named("drawRect:");
    if (shown->isa().method(draws) == NSTextView::entry().method(draws)) return;
    // A program's subclass draws over the text.
    const Ref<NSView> kept(shown);
    runReported([&] { shown->draw(painter, {{clip.x(), clip.y()}, {clip.width(), clip.height()}}); });
}

// Those who have the text read to them hear of changes.

void TextWidget::tellReadersOfText(NSRange range, std::size_t newLength) {
    if (!QAccessible::isActive()) return;
    constexpr char16_t kUnknown = u'\uFFFC';  // what is gone cannot be read any more
    const QString removed(static_cast<qsizetype>(range.length), QChar(kUnknown));
    const QString added = qtText(shownText().substr(range.location, newLength));
    QAccessibleTextUpdateEvent event(this, static_cast<int>(range.location), removed, added);
    QAccessible::updateAccessibility(&event);
}

void TextWidget::tellReadersOfSelection() {
    if (!QAccessible::isActive()) return;
    QAccessibleTextCursorEvent moved(this, static_cast<int>(position_));
    QAccessible::updateAccessibility(&moved);
    QAccessibleTextSelectionEvent selected(this, static_cast<int>(selectionBegin()), static_cast<int>(selectionEnd()));
    QAccessible::updateAccessibility(&selected);
}

void TextWidget::updateCaret() {
    const QRect rect = caretRect();
    viewport()->update(rect.adjusted(-2, -1, 2, 1));
}

bool TextWidget::event(QEvent* event) {
    if (event->type() == kUpdateSeen) {
        updateSeen();
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride && takesShortcut(static_cast<QKeyEvent&>(*event))) return true;
    return QAbstractScrollArea::event(event);
}

// The find bar.

void TextWidget::showFindBar() {
    if (!findBar_) {
        findBar_ = new FindBar(*this);
        findBar_->onAction = [this](long action) {
            if (NSTextView* shown = view()) runReported([&] { shown->find(action); });
        };
        findBar_->onClose = [this] { closeFindBar(); };
    }
    if (NSTextView* shown = view()) findBar_->show(shown->findRequest());
    placeFindBar();
    findBar_->takeKeyboard();
}

void TextWidget::closeFindBar() {
    if (!isFindBarShown()) return;
    findBar_->hide();
    placeFindBar();
    setFocus(Qt::OtherFocusReason);
}

bool TextWidget::isFindBarShown() const { return findBar_ && !findBar_->isHidden(); }

void TextWidget::tellFindResult(const QString& text) {
    if (findBar_) findBar_->tellResult(text);
}

void TextWidget::placeFindBar() {
    const int height = isFindBarShown() ? findBar_->sizeHint().height() : 0;
    const QMargins margins = viewportMargins();
    setViewportMargins(margins.left(), margins.top(), margins.right(), height);
    if (height > 0) {
        const QRect area = contentsRect();
        findBar_->setGeometry(area.left(), area.bottom() + 1 - height, area.width(), height);
    }
}

}  // namespace velt
