#include "VELTRuntime/editor/view/source_margin.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/platform/foundation/array.h"

#include <QAccessible>
#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>

namespace velt {

namespace {

constexpr int kGap = 4;  // around the numbers
constexpr int kFewestDigits = 3;
constexpr QColor kBreakpoint(0xD3, 0x3C, 0x35);  // seen on light and on dark ground

QColor mixed(const QColor& of, const QColor& with, double part) {
    const auto between = [part](float a, float b) { return static_cast<float>(a + (b - a) * part); };
    return QColor::fromRgbF(between(of.redF(), with.redF()), between(of.greenF(), with.greenF()),
                            between(of.blueF(), with.blueF()));
}

}  // namespace

SourceMargin::SourceMargin(TextWidget& text) : QWidget(&text), text_(text) {
    setAccessibleName(tr("Line numbers and breakpoints"));
    setCursor(Qt::ArrowCursor);
    text.installEventFilter(this);
    text.viewport()->installEventFilter(this);
    text.onLineCount = [this] { place(); };
    place();
    show();
}

void SourceMargin::leave() {
    text_.onLineCount = nullptr;
    text_.removeEventFilter(this);
    text_.viewport()->removeEventFilter(this);
    takeRoom(0);
    hide();
    setParent(nullptr);
    deleteLater();
}

void SourceMargin::listsChanged(const VLTextView& shown) {
    const TextWidget* text = shown.existingTextWidget();
    if (SourceMargin* margin = text ? of(*text) : nullptr) margin->update();
}

SourceMargin* SourceMargin::of(const TextWidget& text) {
    for (QObject* child : text.children()) {
        if (auto* margin = dynamic_cast<SourceMargin*>(child)) return margin;
    }
    return nullptr;
}

VLTextView* SourceMargin::view() const {
    NSView* shown = viewOf(&text_);
    return shown ? static_cast<VLTextView*>(shown) : nullptr;
}

// Where it is.

int SourceMargin::markWidth() const { return text_.fontMetrics().height(); }

int SourceMargin::wantedWidth() const {
    int digits = 1;
    for (std::size_t lines = text_.lineCount(); lines >= 10; lines /= 10) ++digits;
    const int digit = text_.fontMetrics().horizontalAdvance(QLatin1Char('9'));
    return markWidth() + std::max(digits, kFewestDigits) * digit + 2 * kGap;
}

/// Before the text, in whatever direction the desktop reads. The toolkit itself does not turn these margins.
void SourceMargin::takeRoom(int width) {
    QMargins margins = text_.viewportMargins();
    margins.setLeft(text_.isRightToLeft() ? 0 : width);
    margins.setRight(text_.isRightToLeft() ? width : 0);
    if (margins == text_.viewportMargins()) return;
    text_.setViewportMargins(margins.left(), margins.top(), margins.right(), margins.bottom());
}

void SourceMargin::place() {
    const int width = wantedWidth();
    takeRoom(width);
    const QRect beside = text_.viewport()->geometry();
    const int left = text_.isRightToLeft() ? beside.right() + 1 : beside.left() - width;
    setGeometry(left, beside.top(), width, beside.height());
    update();
}

bool SourceMargin::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Paint: {
        // Whatever has changed in the text's view may be seen here too.
        const QRect drawn = static_cast<QPaintEvent*>(event)->rect();
        if (watched == text_.viewport()) update(0, drawn.top(), width(), drawn.height());
        break;
    }
    case QEvent::Resize:
    case QEvent::Move:
        // The viewport's place is the last to be known.
        if (watched == text_.viewport()) place();
        break;
    case QEvent::FontChange:
    case QEvent::LayoutDirectionChange:
        if (watched == &text_) QMetaObject::invokeMethod(this, &SourceMargin::place, Qt::QueuedConnection);
        break;
    default: break;
    }
    return false;
}

// What it shows.

std::vector<std::size_t> SourceMargin::linesOf(const VLTextView& view, const id& list) {
    std::vector<std::size_t> lines;
    const NSArray* entries = arrayOf(list);
    if (!entries) return lines;
    const SourceBuffer& buffer = view.buffer();
    for (const id& entry : entries->items()) {
        // What is no place in the text is not shown.
        const long position = isNumber(entry) || isString(entry) ? VELT_CBYTE(entry) : 0;
        if (position <= 0 || static_cast<std::size_t>(position) > buffer.length()) continue;
        lines.push_back(buffer.lineAt(static_cast<std::size_t>(position)));
    }
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
}

void SourceMargin::drawMark(QPainter& painter, const QRect& place) const {
    const double size = place.height() * 0.66;
    const int centre = place.height() / 2;
    const QRect column = QStyle::visualRect(layoutDirection(), place, {0, place.top(), markWidth(), place.height()});
    painter.setPen(Qt::NoPen);
    painter.setBrush(kBreakpoint);
    painter.drawEllipse(QPointF(column.center().x() + 0.5, place.top() + centre), size / 2, size / 2);
}

void SourceMargin::paintEvent(QPaintEvent* event) {
    const VLTextView* shown = view();
    if (!shown) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // From the text's own colours, so that it suits whatever they are.
    QColor ground = text_.palette().color(QPalette::Base);
    if (ground.alpha() == 0) ground = text_.palette().color(QPalette::Window);
    const QColor ink = text_.palette().color(QPalette::Text);
    painter.fillRect(rect(), mixed(ground, ink, 0.05));
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), {width() - 1, 0, 1, height()}),
                     mixed(ground, ink, 0.2));

    const id breakpoints = shown->breakpoints(), separators = shown->lineSeparators();
    const std::vector<std::size_t> broken = linesOf(*shown, breakpoints), separated = linesOf(*shown, separators);
    describe(broken);
    painter.setFont(text_.font());
    const QFontMetrics metrics = text_.fontMetrics();
    const std::size_t current = text_.lineOf(text_.insertionPoint());
    for (const TextWidget::ShownRow& row : text_.firstRowsInSight()) {
        const QRect here(0, row.place.top(), width(), row.place.height());
        if (!here.intersects(event->rect())) continue;
        if (std::binary_search(separated.begin(), separated.end(), row.line)) {
            painter.fillRect(QRect(0, here.top(), width() - 1, 1), text_.palette().color(QPalette::Highlight));
        }
        if (std::binary_search(broken.begin(), broken.end(), row.line)) drawMark(painter, here);
        const QString number = QString::number(row.line + 1);
        const int wide = metrics.horizontalAdvance(number);
        const QRect place =
            QStyle::visualRect(layoutDirection(), rect(), {width() - kGap - 1 - wide, here.top(), wide, here.height()});
        painter.setPen(row.line == current ? ink : mixed(ground, ink, 0.6));
        painter.drawText(QPointF(place.left(), here.top() + row.ascent), number);
    }
}

void SourceMargin::describe(const std::vector<std::size_t>& broken) {
    if (!QAccessible::isActive()) return;
    QStringList lines;
    for (const std::size_t line : broken) lines.append(QString::number(line + 1));
    const QString text =
        lines.isEmpty() ? tr("No breakpoints") : tr("Breakpoints: %1").arg(lines.join(QStringLiteral(", ")));
    if (text != accessibleDescription()) setAccessibleDescription(text);
}

// What a person does.

void SourceMargin::mousePressEvent(QMouseEvent* event) {
    VLTextView* shown = view();
    if (!shown || event->button() != Qt::LeftButton) return event->ignore();
    const Ref<VLTextView> kept(shown);
    const int y = qRound(event->position().y());
    const std::size_t number = text_.lineOf(text_.positionAt({0, y}));
    if (number + 1 == text_.lineCount() && y > text_.caretRect(kept->buffer().length()).bottom()) return;
    const std::size_t line = number + 1;
    runReported([&] { send(id(kept), VELT_SELECTOR("toggleBreakpointAtLine:"), VELT_ID(static_cast<long>(line))); });
}

// The text scrolls wherever the wheel is turned over it.
void SourceMargin::wheelEvent(QWheelEvent* event) {
    QWheelEvent handed(event->position(), event->globalPosition(), event->pixelDelta(), event->angleDelta(),
                       event->buttons(), event->modifiers(), event->phase(), event->inverted());
    QApplication::sendEvent(text_.viewport(), &handed);
    event->setAccepted(handed.isAccepted());
}

}  // namespace velt
