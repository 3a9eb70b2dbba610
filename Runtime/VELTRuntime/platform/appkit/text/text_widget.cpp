#include "VELTRuntime/platform/appkit/text/text_widget.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/find_bar.h"
#include "VELTRuntime/platform/appkit/text/rich_text.h"
#include "VELTRuntime/platform/appkit/text/shown_text.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/appkit/view_events.h"
#include "VELTRuntime/platform/foundation/attribute_names.h"
#include "VELTRuntime/platform/foundation/dictionary.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>

namespace velt {

namespace {

/// While it exists, what happens in the document is the view's doing.
class Applying {
public:
    explicit Applying(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Applying() { flag_ = before_; }
    Applying(const Applying&) = delete;
    Applying& operator=(const Applying&) = delete;

private:
    bool& flag_;
    bool before_;
};

constexpr std::size_t kAtOnce = 65536;  // longer texts are shown piece by piece
constexpr std::size_t kPiece = 262144;  // a blink's worth of work

/// Where a piece of a text may end from a position on: behind a line, if one ends soon.
std::size_t pieceEnd(std::u16string_view text, std::size_t position) {
    constexpr std::size_t kSoon = 4096;
    if (position >= text.size()) return text.size();
    const std::size_t lineEnd = text.substr(position, kSoon).find(u'\n');
    return lineEnd == text.npos ? position : position + lineEnd + 1;
}

bool isPlain(const NSAttributedString& text) {
    const std::span<const RunList::Run> runs = text.runs().runs();
    return runs.empty() || (runs.size() == 1 && runs[0].attributes.isNil());
}

}  // namespace

TextWidget::TextWidget() {
    setUndoRedoEnabled(false);  // the view's undo manager keeps what was done
    setFrameShape(QFrame::NoFrame);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    connect(document(), &QTextDocument::contentsChange, this,
            [this](int position, int removed, int added) { documentChanged(position, removed, added); });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { selectionMoved(); });
    connect(this, &QPlainTextEdit::selectionChanged, this, [this] { selectionMoved(); });
}

NSTextView* TextWidget::view() const {
    NSView* shown = viewOf(this);
    return shown ? static_cast<NSTextView*>(shown) : nullptr;
}

// The text.

void TextWidget::load(const NSAttributedString& text) {
    const Applying scope(applying_);
    loading_.stop();
    if (isPlain(text)) {
        loaded_ = text.length() > kAtOnce ? pieceEnd(text.view(), kAtOnce) : text.length();
        setPlainText(velt::shownText(text.view(), 0, loaded_));
        if (loaded_ < text.length()) loading_.start(0, this);
    } else {
        loaded_ = text.length();
        clear();
        QTextCursor cursor(document());
        cursor.beginEditBlock();
        insertRuns(cursor, text, {0, text.length()});
        cursor.endEditBlock();
    }
    assert(static_cast<std::size_t>(document()->characterCount()) == loaded_ + 1);
}

void TextWidget::loadPiece(const NSAttributedString& text) {
    const std::size_t begin = loaded_;
    {
        const Applying scope(applying_);
        QTextCursor cursor(document());
        cursor.movePosition(QTextCursor::End);
        loaded_ = pieceEnd(text.view(), begin + kPiece);
        cursor.insertText(velt::shownText(text.view(), begin, loaded_ - begin), QTextCharFormat());
    }
    if (loaded_ == text.length()) loading_.stop();
    const auto reaches = [&](const NSRange& range) { return range.location + range.length >= begin; };
    if (std::max(anchor_, position_) >= begin || std::any_of(further_.begin(), further_.end(), reaches)) {
        select(anchor_, position_, std::vector<NSRange>(further_));
    }
}

void TextWidget::loadUpTo(std::size_t position) {
    const NSTextView* shown = view();
    while (shown && loading_.isActive() && loaded_ <= position) loadPiece(shown->shown());
}

void TextWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() != loading_.timerId()) return QPlainTextEdit::timerEvent(event);
    if (const NSTextView* shown = view()) return loadPiece(shown->shown());
    loading_.stop();
}

/// Shows a whole text without scrolling.
void TextWidget::reload(const NSAttributedString& text) {
    const int first = firstVisibleBlock().blockNumber(), sideways = horizontalScrollBar()->value();
    const int last = first + viewport()->height() / std::max(1, fontMetrics().lineSpacing()) + 1;
    load(text);
    while (loading_.isActive() && document()->blockCount() <= last) loadPiece(text);
    select(anchor_, position_, std::vector<NSRange>(further_));
    verticalScrollBar()->setValue(document()->findBlockByNumber(first).firstLineNumber());
    horizontalScrollBar()->setValue(sideways);
}

void TextWidget::insertRuns(QTextCursor& cursor, const NSAttributedString& text, NSRange range) {
    const std::size_t end = range.location + range.length;
    NSRange run;
    for (std::size_t at = range.location; at < end; at = run.location + run.length) {
        const id& attributes = text.runs().at(at, &run).attributes;
        const std::size_t last = std::min<std::size_t>(end, run.location + run.length);
        cursor.insertText(velt::shownText(text.view(), at, last - at), formatOf(attributes));
    }
}

void TextWidget::replaceShown(NSRange range, const NSAttributedString& text, std::size_t newLength) {
    if (range.location == 0 && newLength == text.length()) return keepsPlace_ ? reload(text) : load(text);
    const std::size_t rangeEnd = range.location + range.length;
    if (loading_.isActive() && range.location > loaded_) return;  // it comes with the rest
    const bool isLong = std::max<std::size_t>(range.length, newLength) > kAtOnce;
    if ((isLong && isPlain(text)) || (loading_.isActive() && rangeEnd >= loaded_)) return reload(text);
    const Applying scope(applying_);
    loaded_ += newLength - range.length;
    NSRange inserted{range.location, newLength};
    // A carriage return is shown by the unit behind it.
    if (range.location > 0 && text.view()[range.location - 1] == u'\r') {
        --range.location, ++range.length;
        --inserted.location, ++inserted.length;
    }
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.setPosition(static_cast<int>(range.location));
    cursor.setPosition(static_cast<int>(range.location + range.length), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    insertRuns(cursor, text, inserted);
    cursor.endEditBlock();
    assert(static_cast<std::size_t>(document()->characterCount()) == loaded_ + 1);
}

void TextWidget::reformat(NSRange range, const NSAttributedString& text) {
    loadUpTo(range.location + range.length);
    const Applying scope(applying_);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    NSRange run;
    const std::size_t end = range.location + range.length;
    for (std::size_t at = range.location; at < end; at = run.location + run.length) {
        const id& attributes = text.runs().at(at, &run).attributes;
        cursor.setPosition(static_cast<int>(at));
        cursor.setPosition(static_cast<int>(std::min<std::size_t>(end, run.location + run.length)),
                           QTextCursor::KeepAnchor);
        cursor.setCharFormat(formatOf(attributes));
    }
    cursor.endEditBlock();
}

QFont TextWidget::scaled(QFont font) const {
    constexpr int kSmallest = 2;  // what is smaller still cannot be told from dots
    if (scale_ != 1) font.setPixelSize(std::max(kSmallest, qRound(QFontInfo(font).pixelSize() * scale_)));
    return font;
}

QTextCharFormat TextWidget::formatOf(const id& attributes) const {
    QTextCharFormat format = charFormatOf(attributes);
    if (scale_ != 1 && format.hasProperty(QTextFormat::FontPixelSize)) format.setFont(scaled(format.font()));
    return format;
}

void TextWidget::setScale(double scale, const NSAttributedString& text) {
    if (scale == scale_) return;
    setTabStopDistance(tabStopDistance() / scale_ * scale);
    scale_ = scale;
    for (const RunList::Run& run : text.runs().runs()) {
        if (!run.attributes.isNil()) return reformat({0, text.length()}, text);
    }
}

/// What the toolkit changed on its own account, such as the end of a drag to another program.
void TextWidget::documentChanged(int position, int, int added) {
    NSTextView* shown = view();
    if (applying_ || !shown) return;
    // The counts may take in the end of the last paragraph, so the end is reckoned from the end of the text.
    const auto now = static_cast<std::size_t>(document()->characterCount()) - 1;
    loaded_ = now;
    const std::size_t old = shown->shown().length(), begin = static_cast<std::size_t>(position);
    const std::size_t end = std::min(begin + static_cast<std::size_t>(added), now), behind = now - end;
    if (begin > end || behind > old || begin > old - behind) return;
    const std::size_t oldEnd = old - behind;
    QTextCursor cursor(document());
    cursor.setPosition(position);
    cursor.setPosition(static_cast<int>(end), QTextCursor::KeepAnchor);
    const QString piece = cursor.selectedText();
    if (piece == velt::shownText(shown->shown().view(), begin, oldEnd - begin)) return;
    const Applying scope(applying_);
    runReported([&] {
        shown->changedByWidget({begin, oldEnd - begin}, string(std::u16string_view(programText(piece))));
    });
}

// The selection.

void TextWidget::select(std::size_t anchor, std::size_t position, const std::vector<NSRange>& further) {
    const Applying scope(applying_);
    const auto place = [this](std::size_t wanted) { return static_cast<int>(std::min(wanted, loaded_)); };
    anchor_ = anchor, position_ = position, further_ = further;
    QTextCursor cursor(document());
    cursor.setPosition(place(anchor));
    cursor.setPosition(place(position), QTextCursor::KeepAnchor);
    lastPosition_ = place(position);
    // The toolkit scrolls to a cursor that it is given, even to the one that it has.
    const QTextCursor before = textCursor();
    if (before.anchor() != cursor.anchor() || before.position() != cursor.position()) {
        const int down = verticalScrollBar()->value(), sideways = horizontalScrollBar()->value();
        setTextCursor(cursor);
        if (keepsPlace_) {
            verticalScrollBar()->setValue(down);
            horizontalScrollBar()->setValue(sideways);
        }
    }
    QList<QTextEdit::ExtraSelection> shown;
    for (const NSRange& range : further) {
        QTextEdit::ExtraSelection selection;
        selection.cursor = cursor;
        selection.cursor.setPosition(place(range.location));
        selection.cursor.setPosition(place(range.location + range.length), QTextCursor::KeepAnchor);
        selection.format.setBackground(palette().brush(QPalette::Highlight));
        selection.format.setForeground(palette().brush(QPalette::HighlightedText));
        shown.append(selection);
    }
    if (!shown.isEmpty() || !extraSelections().isEmpty()) setExtraSelections(shown);
}

void TextWidget::selectionMoved() {
    NSTextView* shown = view();
    if (applying_ || !shown) return;
    const std::u16string_view text = shown->shown().view();
    QTextCursor cursor = textCursor();
    const int position = cursor.position();
    // Nobody stands within a line end: who comes from the left goes on behind it, all others stay before it.
    if (splitsLineEnd(text, static_cast<std::size_t>(position))) {
        const int moved = position == lastPosition_ + 1 ? position + 1 : position - 1;
        cursor.setPosition(moved, cursor.hasSelection() ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
        const Applying scope(applying_);
        setTextCursor(cursor);
    }
    lastPosition_ = cursor.position();
    runReported([&] {
        shown->selectedByWidget(static_cast<std::size_t>(cursor.anchor()), static_cast<std::size_t>(cursor.position()));
    });
}

void TextWidget::reveal(std::size_t position) {
    loadUpTo(position + kAtOnce);
    const QTextCursor before = textCursor();
    const auto place = static_cast<int>(position);
    if (before.position() == place) return ensureCursorVisible();
    const Applying scope(applying_);
    QTextCursor cursor(document());
    cursor.setPosition(place);
    setTextCursor(cursor);
    ensureCursorVisible();
    const int value = verticalScrollBar()->value(), sideways = horizontalScrollBar()->value();
    setTextCursor(before);
    verticalScrollBar()->setValue(value);
    horizontalScrollBar()->setValue(sideways);
}

NSRange TextWidget::charactersIn(const QRectF& rect) const {
    QTextCursor first = cursorForPosition(rect.topLeft().toPoint());
    QTextCursor last = cursorForPosition(rect.bottomRight().toPoint());
    first.movePosition(QTextCursor::StartOfLine);
    last.movePosition(QTextCursor::EndOfLine);
    const auto begin = static_cast<unsigned long>(first.position());
    return {begin, std::max<unsigned long>(begin, static_cast<unsigned long>(last.position())) - begin};
}

std::pair<std::size_t, std::size_t> TextWidget::reachOf(QTextCursor::MoveOperation operation) {
    loadAll();
    QTextCursor cursor = textCursor();
    cursor.movePosition(operation, QTextCursor::KeepAnchor);
    return {static_cast<std::size_t>(cursor.selectionStart()), static_cast<std::size_t>(cursor.selectionEnd())};
}

// Temporary attributes: formats of the layout, which are no part of the document. Only those of the paragraphs that are
// about to be drawn are ever worked out.

void TextWidget::showTemporaryFormats(const QTextBlock& block, const NSTextView& shown) {
    QTextLayout* layout = block.layout();
    if (!layout->preeditAreaText().isEmpty()) return;  // they are the input method's then
    QList<QTextLayout::FormatRange> formats;
    const TemporaryLayer& layer = shown.temporaryLayer();
    const auto begin = static_cast<std::size_t>(block.position());
    const std::size_t end = std::min(begin + static_cast<std::size_t>(block.length()), layer.length());
    NSRange run;
    for (std::size_t at = begin; at < end; at = run.location + run.length) {
        const id attributes = layer.at(at, run);
        if (attributes.isNil()) continue;
        const std::size_t last = std::min<std::size_t>(end, run.location + run.length);
        formats.append({static_cast<int>(at - begin), static_cast<int>(last - at), formatOf(attributes)});
    }
    if (formats == layout->formats()) return;
    layout->setFormats(formats);
    document()->markContentsDirty(block.position(), block.length());
}

void TextWidget::showTemporaryFormats() {
    const NSTextView* shown = view();
    if (!shown) return;
    const Applying scope(applying_);
    QTextBlock block = firstVisibleBlock();
    double top = blockBoundingGeometry(block).translated(contentOffset()).top();
    for (; block.isValid() && top <= viewport()->height(); block = block.next()) {
        showTemporaryFormats(block, *shown);
        top += blockBoundingRect(block).height();
    }
}

void TextWidget::paintEvent(QPaintEvent* event) {
    showTemporaryFormats();
    QPlainTextEdit::paintEvent(event);
    NSTextView* shown = view();
    if (!shown) return;
    const Selector draws = Selector::named("drawRect:");
    if (shown->isa().method(draws) == NSTextView::entry().method(draws)) return;
    // A program's subclass draws over the text.
    const Ref<NSView> kept(shown);
    QPainter painter(viewport());
    const QRectF dirty = event->rect();
    runReported([&] { shown->draw(painter, {{dirty.x(), dirty.y()}, {dirty.width(), dirty.height()}}); });
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

void TextWidget::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    if (isFindBarShown()) placeFindBar();
}

void TextWidget::focusInEvent(QFocusEvent* event) {
    QPlainTextEdit::focusInEvent(event);
    if (NSTextView* shown = view()) runReported([&] { shown->keyboardComes(); });
}

void TextWidget::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    // A menu or the find bar only borrows the keyboard.
    const QWidget* next = QApplication::focusWidget();
    const bool lent = event->reason() == Qt::PopupFocusReason || (findBar_ && next && findBar_->isAncestorOf(next));
    NSTextView* shown = view();
    if (shown && !lent) runReported([&] { shown->keyboardGoes(); });
}

}  // namespace velt
