#include "VELTRuntime/platform/appkit/controls/segmented_widget.h"

#include "VELTRuntime/platform/appkit/accessibility/pressed_by_name.h"
#include "VELTRuntime/platform/appkit/controls/button_colours.h"
#include "VELTRuntime/platform/appkit/controls/button_look.h"
#include "VELTRuntime/platform/appkit/controls/segmented_control.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionButton>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace velt {

namespace {

constexpr int kSideMargin = 10, kTopMargin = 4;

ButtonLook lookOf(const NSSegmentedCell& cell, const Segment& segment) {
    ButtonLook look;
    look.title = qtText(segment.label);
    if (is<NSImage>(segment.image)) look.picture = as<NSImage>(segment.image)->picture();
    look.font = as<NSFont>(cell.font())->font();
    return look;
}

int ownWidth(const NSSegmentedCell& cell, const Segment& segment, const QStyle& style) {
    constexpr int kMost = 500'000;  // twice the width of the longest row is still an int
    if (segment.width > 0) return static_cast<int>(std::lround(std::min<double>(segment.width, kMost)));
    return std::min(buttonContentsSize(lookOf(cell, segment), style).width() + 2 * kSideMargin, kMost);
}

/// The widths of all segments in a row of that width: those without a width of their own share what is left.
std::vector<int> widthsIn(int room, const NSSegmentedCell& cell, const QStyle& style) {
    std::vector<int> widths;
    std::vector<std::size_t> flexible;
    for (long place = 0; place < cell.segmentCount(); ++place) {
        const Segment& segment = cell.segment(place);
        if (segment.width <= 0) flexible.push_back(widths.size());
        widths.push_back(ownWidth(cell, segment, style));
    }
    int left = room - std::accumulate(widths.begin(), widths.end(), 0);
    for (std::size_t i = 0; i < flexible.size(); ++i) {
        const int share = left / static_cast<int>(flexible.size() - i);
        const int width = std::max(widths[flexible[i]] + share, 0);
        left -= width - widths[flexible[i]];
        widths[flexible[i]] = width;
    }
    return widths;
}

/// A segment as those hear of it who cannot see it.
class SegmentAccessible final : public PressedByName {
public:
    explicit SegmentAccessible(SegmentButton* button) : PressedByName(button, QAccessible::Button) {}

    QAccessible::Role role() const override {
        const NSSegmentedControl* control = button().row().control();
        if (!control) return QAccessible::Button;
        switch (control->segments().tracking()) {
        case SegmentTracking::SelectOne: return QAccessible::RadioButton;
        case SegmentTracking::SelectAny: return QAccessible::CheckBox;
        case SegmentTracking::Momentary: break;
        }
        return QAccessible::Button;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = button().isCheckable();
        state.checked = button().isChecked();
        state.pressed = button().isDown();
        return state;
    }

protected:
    void press() override { button().click(); }

private:
    SegmentButton& button() const { return *static_cast<SegmentButton*>(object()); }
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    if (auto* button = dynamic_cast<SegmentButton*>(object)) return new SegmentAccessible(button);
    if (auto* row = dynamic_cast<SegmentedWidget*>(object)) return new QAccessibleWidget(row, QAccessible::Grouping);
    return nullptr;
}

/// The outline of a whole row, rounded at its ends.
QPainterPath outlineOf(const QRectF& row) {
    constexpr double kRadius = 4;
    QPainterPath path;
    path.addRoundedRect(row, kRadius, kRadius);
    return path;
}

}  // namespace

QSize segmentsSize(const NSSegmentedCell& cell, const QStyle& style) {
    QSize size(0, QFontMetrics(as<NSFont>(cell.font())->font()).height());
    for (long place = 0; place < cell.segmentCount(); ++place) {
        const Segment& segment = cell.segment(place);
        size.rwidth() += ownWidth(cell, segment, style);
        size.setHeight(std::max(size.height(), buttonContentsSize(lookOf(cell, segment), style).height()));
    }
    return size + QSize(0, 2 * kTopMargin);
}

SegmentedWidget::SegmentedWidget() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(accessibleOf);
        return true;
    }();
}

SegmentButton::SegmentButton(SegmentedWidget& row, long place) : QAbstractButton(&row), row_(row), place_(place) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::NoFocus);  // the row has the keyboard, and hands it to the current segment
    QObject::connect(this, &QAbstractButton::clicked, this, [this] {
        if (NSSegmentedControl* control = row_.control()) control->pressed(place_);
    });
}

void SegmentButton::paintEvent(QPaintEvent*) {
    const NSSegmentedControl* control = row_.control();
    if (!control || place_ >= control->segments().segmentCount()) return;
    const NSSegmentedCell& cell = control->segments();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QStyleOptionButton option;
    option.initFrom(this);
    const ButtonColours colours = buttonColours(option, {isDown(), isChecked(), false});
    // Each draws its part of the row's one outline.
    painter.translate(-x(), 0);
    const QRectF whole = QRectF(row_.rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient fill(whole.topLeft(), whole.bottomLeft());
    fill.setColorAt(0, isDown() || isChecked() ? colours.face : colours.light);
    fill.setColorAt(1, colours.face);
    painter.setBrush(fill);
    painter.setPen(QPen(colours.edge, 1));
    painter.drawPath(outlineOf(whole));
    painter.translate(x(), 0);
    const bool atRight = x() + width() >= row_.width();
    if (!atRight) painter.drawLine(QPointF(width() - 0.5, 0.5), QPointF(width() - 0.5, height() - 0.5));
    ButtonLook look = lookOf(cell, cell.segment(place_));
    look.isPressed = isDown();
    const QRect room = rect().adjusted(2, 1, -2, -1);
    drawButtonContents(painter, option, look, room, colours.ink, *style(), this);
    if (!hasFocus() || !window()->testAttribute(Qt::WA_KeyboardFocusChange)) return;
    painter.setBrush(Qt::NoBrush);
    constexpr double kRing = 2;
    painter.setPen(QPen(isChecked() ? colours.ink : colours.accent, kRing));
    painter.drawRoundedRect(QRectF(rect()).adjusted(3, 3, -3, -3), 2, 2);
}

void SegmentButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right: row_.move(place_, (event->key() == Qt::Key_Right) != isRightToLeft()); return;
    case Qt::Key_Home: row_.move(-1, true); return;
    case Qt::Key_End: row_.move(row_.count(), false); return;
    case Qt::Key_Space: QAbstractButton::keyPressEvent(event); return;
    default: event->ignore();  // Return belongs to the default button
    }
}

NSSegmentedControl* SegmentedWidget::control() const { return static_cast<NSSegmentedControl*>(viewOf(this)); }

void SegmentedWidget::sync() {
    const NSSegmentedControl* shown = control();
    if (!shown) return;
    const NSSegmentedCell& cell = shown->segments();
    const auto count = static_cast<std::size_t>(cell.segmentCount());
    while (buttons_.size() > count) {
        buttons_.back()->hide();
        buttons_.back()->deleteLater();  // it may be the one whose click takes it away
        buttons_.pop_back();
    }
    while (buttons_.size() < count) {
        buttons_.push_back(new SegmentButton(*this, static_cast<long>(buttons_.size())));
        buttons_.back()->show();
    }
    for (SegmentButton* button : buttons_) {
        const Segment& segment = cell.segment(button->place());
        button->setCheckable(cell.tracking() != SegmentTracking::Momentary);
        button->setChecked(segment.isSelected && button->isCheckable());
        button->setEnabled(segment.isEnabled);
        button->setToolTip(qtText(segment.toolTip));
        QString name = qtText(segment.label).isEmpty() ? button->toolTip() : qtText(segment.label);
        if (name.isEmpty()) name = QObject::tr("Segment %1").arg(button->place() + 1);
        button->setAccessibleName(name);
        button->update();
    }
    setCurrent(cell.selectedSegment() >= 0 ? cell.selectedSegment() : current_);
    arrange();
}

void SegmentedWidget::setCurrent(long place) {
    if (buttons_.empty()) {
        setFocusProxy(nullptr);
        return;
    }
    current_ = std::clamp(place, 0L, count() - 1);
    SegmentButton* button = buttons_[static_cast<std::size_t>(current_)];
    if (focusProxy() == button) return;
    const bool focused = hasFocus();
    setFocusProxy(button);
    if (focused) button->setFocus(Qt::OtherFocusReason);
}

void SegmentedWidget::move(long from, bool forward) {
    const NSSegmentedControl* shown = control();
    if (!shown) return;
    const long step = forward ? 1 : -1;
    for (long place = from + step; place >= 0 && place < count(); place += step) {
        SegmentButton* button = buttons_[static_cast<std::size_t>(place)];
        if (!button->isEnabled()) continue;
        const bool selects = shown->segments().tracking() == SegmentTracking::SelectOne;
        window()->setAttribute(Qt::WA_KeyboardFocusChange);
        setCurrent(place);
        if (selects) button->click();
        return;
    }
}

QRect SegmentedWidget::segmentRect(long place) const {
    return place >= 0 && place < count() ? buttons_[static_cast<std::size_t>(place)]->geometry() : QRect();
}

void SegmentedWidget::arrange() {
    const NSSegmentedControl* shown = control();
    if (!shown) return;
    const std::vector<int> widths = widthsIn(width(), shown->segments(), *style());
    int x = 0;
    for (std::size_t i = 0; i < buttons_.size() && i < widths.size(); ++i) {
        buttons_[i]->setGeometry(QStyle::visualRect(layoutDirection(), rect(), QRect(x, 0, widths[i], height())));
        x += widths[i];
    }
}

void SegmentedWidget::resizeEvent(QResizeEvent*) { arrange(); }

void SegmentedWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) arrange();
}

}  // namespace velt
