#include "VELTRuntime/platform/appkit/controls/ranged_widget.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QWheelEvent>
#include <utility>

namespace velt {

namespace {

class RangedAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit RangedAccessible(RangedWidget* widget) : QAccessibleWidget(widget, QAccessible::Slider) {}

    QAccessible::Role role() const override { return shown().role(); }
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) return currentValue().toString();
        const QString text = QAccessibleWidget::text(kind);
        return text.isEmpty() && kind == QAccessible::Name ? widget()->toolTip() : text;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override {
        return number([](const RangedCell& cell) { return cell.doubleValue(); });
    }
    QVariant minimumValue() const override {
        return number([](const RangedCell& cell) { return cell.minValue(); });
    }
    QVariant maximumValue() const override {
        return number([](const RangedCell& cell) { return cell.maxValue(); });
    }
    QVariant minimumStepSize() const override {
        return number([](const RangedCell& cell) { return cell.step(); });
    }
    void setCurrentValue(const QVariant& value) override { shown().take(value.toDouble()); }

private:
    RangedWidget& shown() const { return *static_cast<RangedWidget*>(widget()); }
    template <class Reader> QVariant number(Reader reader) const {
        const RangedCell* cell = shown().cell();
        return cell ? QVariant(reader(*cell)) : QVariant();
    }
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    auto* widget = dynamic_cast<RangedWidget*>(object);
    return widget ? new RangedAccessible(widget) : nullptr;
}

/// How many steps a key goes; the ends are beyond any number of steps.
constexpr double kEnd = 1e9;
constexpr double kPage = 10;

double stepsOfKey(int key, bool rightToLeft) {
    switch (key) {
    case Qt::Key_Up: return 1;
    case Qt::Key_Down: return -1;
    case Qt::Key_Right: return rightToLeft ? -1 : 1;
    case Qt::Key_Left: return rightToLeft ? 1 : -1;
    case Qt::Key_PageUp: return kPage;
    case Qt::Key_PageDown: return -kPage;
    case Qt::Key_Home: return -kEnd;
    case Qt::Key_End: return kEnd;
    default: return 0;
    }
}

}  // namespace

RangedWidget::RangedWidget() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(accessibleOf);
        return true;
    }();
    setAttribute(Qt::WA_Hover);
}

NSControl* RangedWidget::control() const { return static_cast<NSControl*>(viewOf(this)); }

RangedCell* RangedWidget::cell() const {
    const NSControl* shown = control();
    return shown ? static_cast<RangedCell*>(&shown->cellObject()) : nullptr;
}

void RangedWidget::cellShown() {
    update();
    const double value = cell() ? cell()->doubleValue() : 0;
    if (std::exchange(shown_, value) == value) return;
    QAccessibleValueChangeEvent event(this, value);
    QAccessible::updateAccessibility(&event);
}

void RangedWidget::take(double value, bool sendsAction) {
    const Ref<NSControl> kept(control());
    if (!kept || !cell()->isWorkable()) return;
    const double before = cell()->doubleValue();
    runReported([&] { kept->setDoubleValue(value); });
    if (sendsAction && kept->doubleValue() != before) kept->worked();
}

void RangedWidget::move(double steps, Qt::KeyboardModifiers) {
    RangedCell& moved = *cell();
    take(moved.limited(moved.doubleValue() + steps * moved.step()));
}

void RangedWidget::keyPressEvent(QKeyEvent* event) {
    const double steps = stepsOfKey(event->key(), isRightToLeft());
    const bool isShortcut = event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier);
    if (steps == 0 || isShortcut || !cell() || !cell()->isWorkable()) {
        event->ignore();
        return;
    }
    if (steps == kEnd)
        take(cell()->maxValue());
    else if (steps == -kEnd)
        take(cell()->minValue());
    else
        move(steps, event->modifiers());
}

void RangedWidget::wheelEvent(QWheelEvent* event) {
    // What the control leaves is for an enclosing scroll view.
    if (!cell() || !cell()->isWorkable()) {
        event->ignore();
        return;
    }
    const QPoint angle = event->angleDelta();
    int turned = angle.y() != 0 ? angle.y() : isRightToLeft() ? angle.x() : -angle.x();
    if (event->inverted()) turned = -turned;
    if ((turned > 0) != (wheel_ > 0)) wheel_ = 0;
    wheel_ += turned;
    constexpr int kNotch = 120;
    const int notches = wheel_ / kNotch;
    wheel_ -= notches * kNotch;
    if (notches != 0) move(notches, event->modifiers());
    event->accept();
}

}  // namespace velt
