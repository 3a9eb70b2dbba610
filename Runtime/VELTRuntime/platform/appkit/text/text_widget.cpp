// How a text view's widget draws and scrolls.
#include "VELTRuntime/platform/appkit/text/text_widget.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/find_bar.h"
#include "VELTRuntime/platform/appkit/text/rich_text.h"
#include "VELTRuntime/platform/appkit/text/text_accessible.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"

#include <QAccessible>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>

namespace velt {

namespace {

constexpr double kTabDistance = 80;
constexpr std::size_t kMostLooks = 256;
const QEvent::Type kUpdateSeen = static_cast<QEvent::Type>(QEvent::registerEventType());

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
    // Places across a text are the same wherever a desktop reads from.
    horizontalScrollBar()->setLayoutDirection(Qt::LeftToRight);
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
