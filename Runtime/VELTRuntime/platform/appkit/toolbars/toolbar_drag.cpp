#include "VELTRuntime/platform/appkit/toolbars/toolbar_drag.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/toolbars/toolbar_widget.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace velt {

DraggedPicture::~DraggedPicture() { hide(); }

void DraggedPicture::moveTo(const QPixmap& picture, const QWidget& from, QPoint point) {
    QWidget* window = from.window();
    if (!label_) {
        label_ = new QLabel(window);
        label_->setAttribute(Qt::WA_TransparentForMouseEvents);
        label_->setPixmap(picture);
        label_->resize(label_->sizeHint());
        label_->show();
    }
    label_->raise();
    label_->move(from.mapTo(window, point) - QPoint(label_->width() / 2, label_->height() / 2));
}

void DraggedPicture::hide() {
    if (!label_) return;
    label_->hide();
    label_->deleteLater();
    label_.clear();
}

ToolbarCover::ToolbarCover(ToolbarStrip& strip) : QWidget(&strip), strip_(strip) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QStringLiteral("Items of the toolbar"));
    setAccessibleDescription(QStringLiteral("The arrows choose an item, with Control they move it, Delete removes it"));
    setCursor(Qt::OpenHandCursor);
}

NSToolbar* ToolbarCover::toolbar() const {
    const auto* widget = dynamic_cast<ToolbarWidget*>(strip_.parentWidget());
    return widget ? widget->toolbar() : nullptr;
}

void ToolbarCover::setMark(int x) {
    mark_ = x;
    update();
}

/// Moves an item, or takes it out when there is no place for it.
void ToolbarCover::change(int from, int to) {
    NSToolbar* shown = toolbar();
    if (!shown) return;
    const Ref<NSToolbar> kept(shown);
    runReported([&] {
        const auto count = static_cast<int>(kept->itemList().size());
        if (from < 0 || from >= count) return;
        if (to < 0) {
            kept->removeItemAtIndex(from);
        } else {
            kept->moveItem(from, std::min(to, count - 1));
        }
        kept->customized();
    });
}

void ToolbarCover::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (mark_ >= 0) {
        painter.fillRect(QRect(mark_ - 1, 2, 3, height() - 6), palette().color(QPalette::Highlight));
    }
    const auto& places = strip_.places();
    if (hasFocus() && current_ >= 0 && current_ < static_cast<int>(places.size())) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = places[static_cast<std::size_t>(current_)].rect;
        option.state |= QStyle::State_KeyboardFocusChange;
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void ToolbarCover::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    start_ = event->position().toPoint();
    current_ = dragged_ = strip_.placeAt(start_);
    update();
}

void ToolbarCover::mouseMoveEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (dragged_ < 0 || dragged_ >= static_cast<int>(strip_.places().size())) return;
    if (!picture_.isShown() && (point - start_).manhattanLength() < QApplication::startDragDistance()) return;
    const QRect place = strip_.places()[static_cast<std::size_t>(dragged_)].rect;
    picture_.moveTo(picture_.isShown() ? QPixmap() : strip_.grab(place), *this, point);
    strip_.markInsertion(rect().contains(point) ? strip_.insertionAt(point) : -1);
}

void ToolbarCover::mouseReleaseEvent(QMouseEvent* event) {
    const bool moved = picture_.isShown();
    const int from = std::exchange(dragged_, -1);
    picture_.hide();
    strip_.markInsertion(-1);
    if (!moved || from < 0) return;
    const QPoint point = event->position().toPoint();
    if (!rect().contains(point)) {
        current_ = -1;
        change(from, -1);
        return;
    }
    const int to = strip_.insertionAt(point);
    // Taking it out moves what comes behind it.
    current_ = to > from ? to - 1 : to;
    change(from, current_);
}

void ToolbarCover::keyPressEvent(QKeyEvent* event) {
    const int count = static_cast<int>(strip_.places().size());
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
        if (count == 0) return;
        const int by = (event->key() == Qt::Key_Right) != mirrored ? 1 : -1;
        const int next = std::clamp(current_ < 0 ? 0 : current_ + by, 0, count - 1);
        if ((event->modifiers() & Qt::ControlModifier) && current_ >= 0) change(current_, next);
        current_ = next;
        break;
    }
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (current_ < 0) return;
        change(current_, -1);
        current_ = std::min(current_, count - 2);
        break;
    default: event->ignore(); return;
    }
    update();
}

}  // namespace velt
