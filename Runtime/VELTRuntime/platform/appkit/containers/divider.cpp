#include "VELTRuntime/platform/appkit/containers/divider.h"

#include "VELTRuntime/platform/appkit/containers/frame_drawing.h"
#include "VELTRuntime/platform/appkit/containers/split_view.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

namespace velt {

namespace {
constexpr int kEasyToTake = 7;
}

Divider::Divider(QWidget* parent, std::size_t index) : QWidget(parent), index_(index) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    setAccessibleName(QStringLiteral("Divider %1").arg(index + 1));
}

void Divider::place(QRect within, int thickness, bool vertical, bool thin) {
    vertical_ = vertical;
    thin_ = thin;
    thickness_ = thickness;
    const int beside = std::max(0, (kEasyToTake - thickness) / 2);
    setGeometry(vertical ? within.adjusted(-beside, 0, beside, 0) : within.adjusted(0, -beside, 0, beside));
    setCursor(vertical ? Qt::SplitHCursor : Qt::SplitVCursor);
    update();
}

NSSplitView* Divider::splitView() const { return static_cast<NSSplitView*>(viewOf(parentWidget())); }

void Divider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int beside = ((vertical_ ? width() : height()) - thickness_) / 2;
    const QRect drawn = vertical_ ? rect().adjusted(beside, 0, -beside, 0) : rect().adjusted(0, beside, 0, -beside);
    if (thin_) {
        painter.fillRect(drawn, hasFocus() ? palette().color(QPalette::Highlight) : lineColor(palette()));
        return;
    }
    QStyleOption option;
    option.initFrom(this);
    option.rect = drawn;
    option.state = QStyle::State_Enabled;
    if (vertical_) option.state |= QStyle::State_Horizontal;  // the style names the direction of the panes
    if (underMouse() || dragged_) option.state |= QStyle::State_MouseOver;
    if (dragged_) option.state |= QStyle::State_Sunken;
    painter.fillRect(drawn, palette().color(QPalette::Window));
    style()->drawControl(QStyle::CE_Splitter, &option, &painter, this);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(drawn.adjusted(0, 0, -1, -1));
    }
}

void Divider::mousePressEvent(QMouseEvent* event) {
    NSSplitView* view = splitView();
    if (!view || event->button() != Qt::LeftButton) return;
    dragged_ = true;
    const QPointF at = mapToParent(event->position());
    grip_ = (vertical_ ? at.x() : at.y()) - view->positionOfDivider(static_cast<long>(index_));
    update();
}

void Divider::mouseMoveEvent(QMouseEvent* event) {
    if (!dragged_) return;
    const QPointF at = mapToParent(event->position());
    dragTo((vertical_ ? at.x() : at.y()) - grip_);
}

void Divider::mouseReleaseEvent(QMouseEvent*) {
    dragged_ = false;
    update();
}

void Divider::keyPressEvent(QKeyEvent* event) {
    NSSplitView* view = splitView();
    const int back = vertical_ ? Qt::Key_Left : Qt::Key_Up, on = vertical_ ? Qt::Key_Right : Qt::Key_Down;
    constexpr double kStep = 10, kAll = 1e6;
    const double now = view ? view->positionOfDivider(static_cast<long>(index_)) : 0;
    const double step = event->modifiers() & Qt::ShiftModifier ? 1 : kStep;
    if (event->key() == back) {
        dragTo(now - step);
    } else if (event->key() == on) {
        dragTo(now + step);
    } else if (event->key() == Qt::Key_Home) {
        dragTo(-kAll);
    } else if (event->key() == Qt::Key_End) {
        dragTo(kAll);
    } else {
        event->ignore();
    }
}

void Divider::enterEvent(QEnterEvent*) { update(); }
void Divider::leaveEvent(QEvent*) { update(); }
void Divider::focusInEvent(QFocusEvent*) { update(); }
void Divider::focusOutEvent(QFocusEvent*) { update(); }

void Divider::dragTo(double position) {
    NSSplitView* view = splitView();
    if (!view) return;
    const Ref<NSView> kept(view);
    runReported([&] { view->dragDivider(index_, position); });
}

}  // namespace velt
