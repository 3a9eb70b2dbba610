// What a person does with the mouse, and brings by drag or clipboard, in a text view's widget.
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/rich_text.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/platform/appkit/view_events.h"
#include "VELTRuntime/platform/foundation/attribute_names.h"
#include "VELTRuntime/platform/foundation/plain_text.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDrag>
#include <QDropEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QScrollBar>
#include <QToolTip>
#include <QUrl>
#include <array>
#include <iterator>

namespace velt {

namespace {

struct MenuItem {
    const char* title;
    const char* command;
    bool beginsGroup = false;
};
constexpr MenuItem kMenuItems[] = {
    {"Undo", "undo:"},
    {"Redo", "redo:"},
    {"Cut", "cut:", true},
    {"Copy", "copy:"},
    {"Paste", "paste:"},
    {"Delete", "delete:"},
    {"Select All", "selectAll:", true},
};

constexpr int kScrollMilliseconds = 60;  // from row to row while the mouse is drawn beyond an edge

}  // namespace

bool TextWidget::viewportEvent(QEvent* event) {
    NSTextView* shown = view();
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        if (shown && offerToProgram(*shown, *viewport(), *event)) return true;
        break;
    case QEvent::ToolTip: {
        const auto& help = static_cast<QHelpEvent&>(*event);
        const id tip = attributeUnder(attribute::toolTip(), help.pos());
        if (!isString(tip)) break;
        QToolTip::showText(help.globalPos(), qtText(tip), viewport());
        return true;
    }
    default: break;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void TextWidget::setReadOnly(bool flag) {
    isReadOnly_ = flag;
    setAttribute(Qt::WA_InputMethodEnabled, !flag);
}

void TextWidget::setSelectable(bool flag) {
    isSelectable_ = flag;
    viewport()->setCursor(flag ? Qt::IBeamCursor : Qt::ArrowCursor);
    showCaret();
}

// Pressing and drawing.

void TextWidget::mousePressEvent(QMouseEvent* event) {
    if (NSTextView* shown = view()) runReported([&] { shown->commandBegins(); });
    if (event->button() != Qt::LeftButton || !isSelectable_) return event->ignore();
    const QPoint place = event->position().toPoint();
    const std::size_t position = positionAt(place);
    // A third click takes the whole line.
    const bool isThird = sinceDoubleClick_.isValid() &&
                         sinceDoubleClick_.elapsed() < QApplication::doubleClickInterval() &&
                         (place - pressed_).manhattanLength() < QApplication::startDragDistance();
    sinceDoubleClick_.invalidate();
    pressed_ = drawnTo_ = place;
    const bool extends = event->modifiers() & Qt::ShiftModifier;
    mayDrag_ = !isThird && !extends && hasSelection() && position >= selectionBegin() && position < selectionEnd();
    if (mayDrag_) return;
    isSelecting_ = true;
    unit_ = isThird ? Unit::Lines : Unit::Characters;
    unitRange_ = extends ? NSRange{anchor_, 0} : unitAt(position);
    across_.reset();
    extendTo(position);
}

void TextWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !isSelectable_) return event->ignore();
    mayDrag_ = false;
    isSelecting_ = true;
    unit_ = Unit::Words;
    pressed_ = drawnTo_ = event->position().toPoint();
    const std::size_t position = positionAt(pressed_);
    unitRange_ = unitAt(position);
    extendTo(position);
    sinceDoubleClick_.start();
}

void TextWidget::mouseMoveEvent(QMouseEvent* event) {
    drawnTo_ = event->position().toPoint();
    if (!(event->buttons() & Qt::LeftButton)) return updateMouseCursor(drawnTo_);
    if (mayDrag_) {
        if ((drawnTo_ - pressed_).manhattanLength() < QApplication::startDragDistance()) return;
        mayDrag_ = false;
        return startDrag();
    }
    if (!isSelecting_) return;
    extendTo(positionAt(drawnTo_));
    if (viewport()->rect().contains(drawnTo_))
        scrolling_.stop();
    else if (!scrolling_.isActive())
        scrolling_.start(kScrollMilliseconds, this);
}

void TextWidget::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    scrolling_.stop();
    if (event->button() == Qt::MiddleButton) {
        const QClipboard* clipboard = QGuiApplication::clipboard();
        const QMimeData* held = clipboard->supportsSelection() ? clipboard->mimeData(QClipboard::Selection) : nullptr;
        if (!held || !canInsert(*held)) return;
        this->place(positionAt(place), false);
        return insert(*held);
    }
    if (event->button() != Qt::LeftButton) return event->ignore();
    if (std::exchange(mayDrag_, false)) this->place(positionAt(place), false);  // a click within the selection
    if (std::exchange(isSelecting_, false)) offerSelection();
    NSTextView* shown = view();
    const bool follows = isReadOnly_ || event->modifiers() & Qt::ControlModifier;
    if (!shown || hasSelection() || !follows) return;
    std::size_t position = 0;
    const id link = attributeUnder(attribute::link(), place, &position);
    if (link.isNil()) return;
    const Ref<NSTextView> kept(shown);
    runReported([&] {
        const Selector asks = Selector::named("textView:clickedOnLink:atIndex:");
        if (respondsTo(kept->delegate(), asks) &&
            VELT_CBOOL(send(kept->delegate(), asks, id(kept), link, VELT_ID(static_cast<long>(position))))) {
            return;
        }
        QDesktopServices::openUrl(QUrl(qtText(description(link))));
    });
}

/// An attribute of the character at a place of the viewport; nil beside the text.
id TextWidget::attributeUnder(const id& name, const QPoint& place, std::size_t* position) {
    const NSTextView* shown = view();
    const ShownLines::Row row = rowAtHeight(place.y());
    const QTextLine line = lines_.lineOf(row);
    const double y = topOf(row), x = place.x() - left() - lines_.leftOf(lines_.line(row.line));
    const QRectF drawn = line.naturalTextRect();
    if (!shown || place.y() < y || place.y() > y + line.height() || x < drawn.left() || x > drawn.right()) return nil;
    const NSRange range = lines_.content(row.line);
    const auto found =
        range.location + static_cast<std::size_t>(std::max(0, line.xToCursor(x, QTextLine::CursorOnCharacter)));
    if (found >= shown->shown().length()) return nil;
    if (position) *position = found;
    return shown->shown().attributeAt(name, static_cast<long>(found));
}

void TextWidget::updateMouseCursor(const QPoint& place) {
    const bool isLink = isReadOnly_ && !attributeUnder(attribute::link(), place).isNil();
    const Qt::CursorShape shape = isLink ? Qt::PointingHandCursor : isSelectable_ ? Qt::IBeamCursor : Qt::ArrowCursor;
    if (viewport()->cursor().shape() != shape) viewport()->setCursor(shape);
}

void TextWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() == blinking_.timerId()) return blink();
    if (event->timerId() != scrolling_.timerId()) return QAbstractScrollArea::timerEvent(event);
    // The mouse is held beyond an edge: the text comes to it.
    const QRect room = viewport()->rect();
    const auto step = [](QScrollBar& bar, int low, int at, int high) {
        if (at < low) bar.setValue(bar.value() - bar.singleStep());
        if (at > high) bar.setValue(bar.value() + bar.singleStep());
    };
    step(*verticalScrollBar(), room.top(), drawnTo_.y(), room.bottom());
    step(*horizontalScrollBar(), room.left(), drawnTo_.x(), room.right());
    if (isSelecting_) extendTo(positionAt(drawnTo_));
}

void TextWidget::wheelEvent(QWheelEvent* event) {
    NSTextView* shown = view();
    const bool zooms = shown && event->modifiers() == Qt::ControlModifier &&
                       respondsTo(id(static_cast<NSObject*>(shown)), VELT_SELECTOR("zoomIn:"));
    if (!zooms) return QAbstractScrollArea::wheelEvent(event);
    const Ref<NSTextView> kept(shown);
    event->accept();
    // Fine wheels add up to the steps of coarse ones.
    const int turn = event->angleDelta().y();
    if ((turn > 0) != (turned_ > 0)) turned_ = 0;
    turned_ += turn;
    for (; std::abs(turned_) >= QWheelEvent::DefaultDeltasPerStep;
         turned_ -= turned_ > 0 ? QWheelEvent::DefaultDeltasPerStep : -QWheelEvent::DefaultDeltasPerStep) {
        const bool larger = turned_ > 0;
        runReported([&] { kept->doCommand(larger ? "zoomIn:"_v : "zoomOut:"_v); });
    }
}

void TextWidget::contextMenuEvent(QContextMenuEvent* event) {
    NSTextView* shown = view();
    if (!shown) return;
    const Ref<NSTextView> offered(shown);
    // The delegate may be asked who undoes.
    std::array<bool, std::size(kMenuItems)> canDo{};
    runReported([&] {
        for (std::size_t i = 0; i < canDo.size(); ++i) canDo[i] = offered->canDo(kMenuItems[i].command);
    });
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (std::size_t i = 0; i < canDo.size(); ++i) {
        const MenuItem& item = kMenuItems[i];
        if (item.beginsGroup) menu->addSeparator();
        QAction* action = menu->addAction(QString::fromLatin1(item.title));
        action->setEnabled(canDo[i]);
        connect(action, &QAction::triggered, this, [this, command = item.command] {
            NSTextView* asked = view();
            if (!asked) return;
            const Ref<NSTextView> kept(asked);
            runReported([&] {
                kept->commandBegins();
                kept->doCommand(string(std::string_view(command)));
            });
        });
    }
    menu->popup(event->globalPos());
}

// Clipboard and drags.

id textFrom(const QMimeData& source, bool rich) {
    if (rich && source.hasHtml()) return attributedFromHtml(source.html());
    return source.hasText() ? textValue(source.text()) : id();
}

std::unique_ptr<QMimeData> mimeDataOf(const NSAttributedString& text, bool rich, const QFont& font) {
    auto data = std::make_unique<QMimeData>();
    data->setText(qtText(text.view()));
    if (rich && !isPlain(text)) data->setHtml(htmlOf(text, font));
    return data;
}

std::unique_ptr<QMimeData> TextWidget::selectionData() const {
    NSTextView* shown = view();
    if (!shown || !shown->isSelectable()) return nullptr;
    const id part = shown->shown().attributedSubstring(shown->selectedRange());
    return mimeDataOf(*attributedStringOf(part), shown->isRichText(), font());
}

bool TextWidget::canInsert(const QMimeData& source) const {
    return !isReadOnly_ && (source.hasText() || source.hasHtml());
}

void TextWidget::insert(const QMimeData& source) {
    NSTextView* shown = view();
    if (!shown) return;
    const Ref<NSTextView> kept(shown);
    runReported([&] {
        const id text = textFrom(source, kept->isRichText());
        kept->commandBegins();
        if (!text.isNil()) send(kept, VELT_SELECTOR("insertText:"), text);
    });
}

/// What is selected goes on a drag; what was moved away by it to elsewhere is deleted.
void TextWidget::startDrag() {
    std::unique_ptr<QMimeData> dragged = selectionData();
    NSTextView* shown = view();
    if (!dragged || !shown) return;
    const Ref<NSTextView> kept(shown);
    const NSRange from = kept->selectedRange();
    const id text = kept->shown().attributedSubstring(from);
    QPointer<QDrag> drag = new QDrag(viewport());
    drag->setMimeData(dragged.release());
    const Qt::DropActions actions = isReadOnly_ ? Qt::CopyAction : Qt::CopyAction | Qt::MoveAction;
    const QPointer<TextWidget> still(this);
    const Qt::DropAction done = drag->exec(actions, Qt::MoveAction);
    const bool isHere = !drag || !still || drag->target() == viewport() || drag->target() == this;
    if (done != Qt::MoveAction || isHere || isReadOnly_) return;
    runReported([&] {
        const bool isThere = from.location + from.length <= kept->shown().length() &&
                             isEqual(kept->shown().attributedSubstring(from), text);
        if (!isThere) return;  // the program has changed it meanwhile
        kept->commandBegins();
        kept->change(from, ""_v);
    });
}

void TextWidget::setDropPlace(std::optional<std::size_t> position) {
    if (position == dropPlace_) return;
    for (const auto& each : {std::exchange(dropPlace_, position), position}) {
        if (each) viewport()->update(caretRect(*each).adjusted(-2, -1, 2, 1));
    }
}

void TextWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (!canInsert(*event->mimeData())) return event->ignore();
    event->acceptProposedAction();
}

void TextWidget::dragMoveEvent(QDragMoveEvent* event) {
    if (!canInsert(*event->mimeData())) return event->ignore();
    const QPoint place = event->position().toPoint();
    // Near an edge the text comes on.
    const int edge = QFontMetrics(font()).height();
    if (place.y() < edge) verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
    if (place.y() > viewport()->height() - edge) {
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    }
    setDropPlace(positionAt(place));
    event->acceptProposedAction();
}

void TextWidget::dragLeaveEvent(QDragLeaveEvent*) { setDropPlace(std::nullopt); }

void TextWidget::dropEvent(QDropEvent* event) {
    setDropPlace(std::nullopt);
    NSTextView* shown = view();
    if (!shown || !canInsert(*event->mimeData())) return event->ignore();
    const Ref<NSTextView> kept(shown);
    std::size_t place = positionAt(event->position().toPoint());
    const bool moves = event->dropAction() == Qt::MoveAction && event->source() == viewport();
    event->acceptProposedAction();
    runReported([&] {
        const id text = textFrom(*event->mimeData(), kept->isRichText());
        const NSRange from = kept->selectedRange();
        if (text.isNil() || (moves && place >= from.location && place <= from.location + from.length)) return;
        kept->commandBegins();
        if (moves) {
            if (!kept->change(from, ""_v)) return;
            if (place > from.location) place -= from.length;
        }
        if (!kept->change({place, 0}, text)) return;
        const std::size_t length = isString(text) ? textOf(text).size() : attributedStringOf(text)->length();
        kept->setSelectedRange({place, length});
    });
    setFocus(Qt::OtherFocusReason);
}

}  // namespace velt
