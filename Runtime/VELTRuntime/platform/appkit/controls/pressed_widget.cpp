#include "VELTRuntime/platform/appkit/controls/pressed_widget.h"

#include "VELTRuntime/platform/appkit/accessibility/pressed_by_name.h"
#include "VELTRuntime/platform/appkit/accessibility/said_text.h"
#include "VELTRuntime/platform/appkit/controls/control.h"

#include <QKeyEvent>
#include <utility>

namespace velt {

namespace {

class PressedAccessible final : public PressedByName, public SaidText {
public:
    explicit PressedAccessible(PressedWidget* widget) : PressedByName(widget, widget->role()) {}

    QAccessible::Role role() const override { return shown().role(); }
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) return said();
        const QString text = QAccessibleWidget::text(kind);
        return text.isEmpty() && kind == QAccessible::Name ? widget()->toolTip() : text;
    }
    using SaidText::text;
    QString said() const override { return shown().valueText(); }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

protected:
    void press() override { shown().press(); }

private:
    PressedWidget& shown() const { return *static_cast<PressedWidget*>(widget()); }
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    auto* widget = dynamic_cast<PressedWidget*>(object);
    return widget ? new PressedAccessible(widget) : nullptr;
}

}  // namespace

PressedWidget::PressedWidget() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(accessibleOf);
        return true;
    }();
    setAttribute(Qt::WA_Hover);
}

NSControl* PressedWidget::control() const { return static_cast<NSControl*>(viewOf(this)); }

void PressedWidget::valueShown() {
    update();
    const QString text = valueText();
    if (std::exchange(shown_, text) == text) return;
    QAccessibleValueChangeEvent event(this, text);
    QAccessible::updateAccessibility(&event);
}

void PressedWidget::keyPressEvent(QKeyEvent* event) {
    // Return belongs to the default button, wherever the keyboard is.
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat() && control())
        press();
    else
        event->ignore();
}

}  // namespace velt
