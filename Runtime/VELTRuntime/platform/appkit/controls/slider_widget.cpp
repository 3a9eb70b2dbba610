#include "VELTRuntime/platform/appkit/controls/slider_widget.h"

#include "VELTRuntime/platform/appkit/controls/color_group.h"
#include "VELTRuntime/platform/appkit/controls/slider.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QStyleOptionSlider>
#include <cmath>
#include <numbers>

namespace velt {

namespace {

constexpr int kFine = 100'000;  // positions of the style's slider, whose numbers are whole
constexpr double kFullTurn = 2 * std::numbers::pi;

}  // namespace

const NSSliderCell& SliderWidget::slider() const { return static_cast<const NSSliderCell&>(*cell()); }

QAccessible::Role SliderWidget::role() const {
    return cell() && slider().isCircular() ? QAccessible::Dial : QAccessible::Slider;
}

QSize SliderWidget::sizeHint() const {
    if (!cell()) return {};
    const NSSize size = slider().cellSize();
    return QSizeF(size.width, size.height).toSize();
}

// Where things are.

QStyleOptionSlider SliderWidget::lineOption() const {
    const NSSliderCell& shown = slider();
    QStyleOptionSlider option;
    option.initFrom(this);
    const bool vertical = shown.isVertical();
    option.orientation = vertical ? Qt::Vertical : Qt::Horizontal;
    option.state.setFlag(QStyle::State_Horizontal, !vertical);
    option.direction = Qt::LeftToRight;  // the next line says it
    option.upsideDown = vertical || isRightToLeft();
    option.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
    const int marks = static_cast<int>(shown.numberOfTickMarks());
    option.maximum = marks < 2 ? kFine : (marks - 1) * (kFine / (marks - 1));
    if (marks > 0) {
        option.tickPosition = shown.tickMarkPosition() == 1 ? QSlider::TicksAbove : QSlider::TicksBelow;
        if (marks > 1) {
            option.subControls |= QStyle::SC_SliderTickmarks;
            option.tickInterval = option.maximum / (marks - 1);
        }
    }
    option.sliderPosition =
        static_cast<int>(std::lround(shown.fractionOf(shown.doubleValue()) * static_cast<double>(option.maximum)));
    option.sliderValue = option.sliderPosition;
    if (dragging_) option.state |= QStyle::State_Sunken;
    if (dragging_ || underMouse()) option.activeSubControls = QStyle::SC_SliderHandle;
    return option;
}

double SliderWidget::lineFraction(QPointF point) const {
    const QStyleOptionSlider option = lineOption();
    const QRect line = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const QRect handle = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    const bool vertical = option.orientation == Qt::Vertical;
    const double at = (vertical ? point.y() : point.x()) - grabbed_;
    const double start = vertical ? line.top() : line.left();
    const double room = vertical ? line.height() - handle.height() : line.width() - handle.width();
    if (room <= 0) return 0;
    const double fraction = std::clamp((at - start) / room, 0.0, 1.0);
    return option.upsideDown ? 1 - fraction : fraction;
}

QRectF SliderWidget::knob() const {
    const double edge = slider().numberOfTickMarks() > 0 ? 5 : 1;
    const double side = std::max(std::min(width(), height()) - 2 * edge, 1.0);
    return {(width() - side) / 2, (height() - side) / 2, side, side};
}

double SliderWidget::circleFraction(QPointF point) const {
    const QPointF from = point - knob().center();
    const double turned = std::atan2(from.x(), -from.y()) / kFullTurn;  // clockwise from the top
    return turned < 0 ? turned + 1 : turned;
}

// Drawing.

void SliderWidget::paintEvent(QPaintEvent*) {
    if (!cell()) return;
    QPainter painter(this);
    // Styles draw a disabled knob like any other.
    if (!isEnabled()) painter.setOpacity(0.5);
    if (slider().isCircular())
        drawCircle(painter);
    else
        drawLine(painter);
}

void SliderWidget::drawLine(QPainter& painter) const {
    const QStyleOptionSlider option = lineOption();
    style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, this);
    if (slider().numberOfTickMarks() != 1) return;
    // Styles draw marks from end to end; a single one stands in the middle.
    constexpr int kMark = 5;
    painter.setPen(option.palette.color(colorGroupOf(*this), QPalette::Mid).darker());
    const bool first = option.tickPosition == QSlider::TicksAbove;
    if (option.orientation == Qt::Horizontal) {
        const int x = width() / 2, y = first ? 0 : height() - kMark;
        painter.drawLine(x, y, x, y + kMark - 1);
    } else {
        const int y = height() / 2, x = first ? 0 : width() - kMark;
        painter.drawLine(x, y, x + kMark - 1, y);
    }
}

void SliderWidget::drawCircle(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette::ColorGroup group = colorGroupOf(*this);
    const QColor face = palette().color(group, QPalette::Button);
    const QColor line = palette().color(group, QPalette::Window).lightness() < 128
                            ? palette().color(group, QPalette::Window).lighter(220)
                            : palette().color(group, QPalette::Window).darker(160);
    const QRectF round = knob();
    const double radius = round.width() / 2;
    const auto at = [&](double fraction, double distance) {
        const double angle = fraction * kFullTurn;
        return round.center() + QPointF(std::sin(angle), -std::cos(angle)) * distance;
    };
    painter.setPen(QPen(line, 1));
    for (long i = 0; i < slider().numberOfTickMarks(); ++i) {
        const double fraction = slider().tickMarkFraction(i);
        painter.drawLine(at(fraction, radius + 1.5), at(fraction, radius + 4.5));
    }
    QLinearGradient shade(round.topLeft(), round.bottomLeft());
    shade.setColorAt(0, dragging_ ? face.darker(110) : face.lighter(112));
    shade.setColorAt(1, dragging_ ? face : face.darker(108));
    painter.setBrush(shade);
    const bool focused = hasFocus() && group == QPalette::Active;
    painter.setPen(QPen(focused ? palette().color(group, QPalette::Highlight) : line, focused ? 1.6 : 1));
    painter.drawEllipse(round.adjusted(0.5, 0.5, -0.5, -0.5));
    const double dot = std::clamp(radius * 0.16, 1.2, 4.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(group, isEnabled() ? QPalette::Highlight : QPalette::ButtonText));
    painter.drawEllipse(at(slider().fractionOf(slider().doubleValue()), radius * 0.68), dot, dot);
}

// The mouse.

void SliderWidget::dragTo(const QMouseEvent& event, bool begins) {
    const NSSliderCell& shown = slider();
    const QPointF point = event.position();
    double value = shown.valueAt(shown.isCircular() ? circleFraction(point) : lineFraction(point));
    const double part = shown.altIncrementValue();
    if (event.modifiers() & Qt::AltModifier && part > 0)
        value = startValue_ + std::round((value - startValue_) / part) * part;
    if (shown.allowsTickMarkValuesOnly()) value = shown.closestTickMarkValueToValue(value);
    const bool continuous = shown.isContinuous();
    // A press is a choice even when it hits the value that is shown.
    const Ref<NSControl> kept(control());
    const bool same = shown.limited(value) == shown.doubleValue();
    take(value, continuous);
    if (begins && same && continuous) kept->worked();
}

void SliderWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !cell()) {
        event->ignore();
        return;
    }
    const QStyleOptionSlider option = lineOption();
    const QRect handle = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    const QPointF inHandle = event->position() - handle.topLeft();
    const bool vertical = option.orientation == Qt::Vertical;
    const bool hit = handle.contains(event->position().toPoint());
    dragging_ = true;
    startValue_ = slider().doubleValue();
    update();
    if (slider().isCircular()) {
        dragTo(*event, true);
        return;
    }
    // The knob stays under the mouse where it was taken; a click beside it takes it by its middle.
    if (hit) {
        grabbed_ = vertical ? inHandle.y() : inHandle.x();
        return;
    }
    grabbed_ = (vertical ? handle.height() : handle.width()) / 2.0;
    dragTo(*event, true);
}

void SliderWidget::mouseMoveEvent(QMouseEvent* event) {
    // Where a dialog came up meanwhile nobody says that the button was let go.
    if (!(event->buttons() & Qt::LeftButton)) dragging_ = false;
    if (dragging_ && cell()) dragTo(*event, false);
}

void SliderWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !dragging_) return;
    dragging_ = false;
    update();
    if (cell() && slider().isWorkable() && !slider().isContinuous()) control()->worked();
}

void SliderWidget::move(double steps, Qt::KeyboardModifiers modifiers) {
    const NSSliderCell& moved = slider();
    const bool fine = modifiers & Qt::AltModifier && moved.altIncrementValue() > 0;
    double value = moved.limited(moved.doubleValue() + steps * (fine ? moved.altIncrementValue() : moved.step()));
    if (moved.allowsTickMarkValuesOnly()) value = moved.closestTickMarkValueToValue(value);
    take(value);
}

}  // namespace velt
