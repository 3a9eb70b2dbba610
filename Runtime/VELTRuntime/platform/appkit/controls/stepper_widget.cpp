#include "VELTRuntime/platform/appkit/controls/stepper_widget.h"

#include "VELTRuntime/platform/appkit/controls/color_group.h"
#include "VELTRuntime/platform/appkit/controls/stepper.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QTimerEvent>
#include <cmath>

namespace velt {

const NSStepperCell& StepperWidget::stepper() const { return static_cast<const NSStepperCell&>(*cell()); }

QSize StepperWidget::sizeHint() const {
    if (!cell()) return {};
    const NSSize size = stepper().cellSize();
    return QSizeF(size.width, size.height).toSize();
}

int StepperWidget::halfAt(QPointF point) const {
    if (!QRectF(rect()).contains(point)) return 0;
    return point.y() < height() / 2.0 ? 1 : -1;
}

void StepperWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyleOptionButton button;
    button.initFrom(this);
    button.state |= QStyle::State_Raised;
    style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &button, &painter, this);
    const int middle = height() / 2;
    const QRect upper(0, 0, width(), middle), lower(0, middle, width(), height() - middle);
    if (pressed_ != 0 && within_) {
        // The one panel is seen pressed within the half alone.
        QStyleOptionButton sunken = button;
        sunken.state &= ~QStyle::State_Raised;
        sunken.state |= QStyle::State_Sunken;
        painter.save();
        painter.setClipRect(pressed_ > 0 ? upper : lower);
        style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &sunken, &painter, this);
        painter.restore();
    }
    const QPalette::ColorGroup group = colorGroupOf(*this);
    QColor divider = palette().color(group, QPalette::ButtonText);
    divider.setAlphaF(0.25F);
    painter.fillRect(QRect(3, middle, width() - 6, 1), divider);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(group, QPalette::ButtonText), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const double half = std::min(width() * 0.2, middle * 0.3);
    const auto arrow = [&](const QRect& within, double direction) {
        const QPointF at = QRectF(within).center();
        const QPointF points[] = {at + QPointF(-half, direction * half / 2), at + QPointF(0, -direction * half / 2),
                                  at + QPointF(half, direction * half / 2)};
        painter.drawPolyline(points, 3);
    };
    arrow(upper, 1);
    arrow(lower, -1);
}

void StepperWidget::move(double steps, Qt::KeyboardModifiers) { take(stepper().valueAfter(steps)); }

void StepperWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !cell()) {
        event->ignore();
        return;
    }
    window()->installEventFilter(this);
    pressed_ = halfAt(event->position());
    within_ = pressed_ != 0;
    update();
    if (!stepper().autorepeat() || !within_) return;
    constexpr int kFirstPause = 400;  // milliseconds
    repeats_.start(kFirstPause, this);
    move(pressed_, event->modifiers());
}

void StepperWidget::mouseMoveEvent(QMouseEvent* event) {
    const bool within = pressed_ != 0 && halfAt(event->position()) == pressed_;
    if (within == within_) return;
    within_ = within;
    update();
}

void StepperWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || pressed_ == 0) return;
    const int steps = within_ && halfAt(event->position()) == pressed_ ? pressed_ : 0;
    const bool once = cell() && !stepper().autorepeat();
    rest();
    if (once && steps != 0) move(steps, event->modifiers());
}

void StepperWidget::rest() {
    repeats_.stop();
    pressed_ = 0;
    within_ = false;
    update();
}

bool StepperWidget::eventFilter(QObject* watched, QEvent* event) {
    // A dialog came before the window, and gets the release of the button.
    if (event->type() == QEvent::WindowBlocked) rest();
    return RangedWidget::eventFilter(watched, event);
}

void StepperWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() != repeats_.timerId()) return;
    // Disabled, hidden or gone while it was held: nobody will say that it was let go.
    if (!cell() || !isEnabled() || !isVisible() || pressed_ == 0) {
        rest();
        return;
    }
    constexpr int kPause = 75;
    repeats_.start(kPause, this);
    if (within_) move(pressed_, {});
}

}  // namespace velt
