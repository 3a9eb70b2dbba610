#include "VELTRuntime/platform/appkit/controls/button_widget.h"

#include "VELTRuntime/platform/appkit/accessibility/pressed_by_name.h"
#include "VELTRuntime/platform/appkit/controls/button.h"
#include "VELTRuntime/platform/appkit/controls/button_look.h"
#include "VELTRuntime/platform/appkit/controls/color_group.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>

namespace velt {

namespace {

/// A button as those hear of it who cannot see it.
class ButtonAccessible final : public PressedByName {
public:
    explicit ButtonAccessible(ButtonWidget* widget) : PressedByName(widget, QAccessible::Button) {}

    QAccessible::Role role() const override {
        const NSButtonCell* cell = this->cell();
        if (cell && cell->isSwitch()) return QAccessible::CheckBox;
        if (cell && cell->isRadio()) return QAccessible::RadioButton;
        return QAccessible::Button;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const NSButtonCell* cell = this->cell();
        if (!cell) return state;
        if (cell->isDisclosure()) {
            state.expandable = true;
            state.expanded = cell->state() == NSCell::kOn;
            state.collapsed = !state.expanded;
        } else if (cell->showsStateBy() != kChangesNothing) {
            state.checkable = true;
            state.checked = cell->state() == NSCell::kOn;
            state.checkStateMixed = cell->state() == NSCell::kMixed;
        }
        state.pressed = static_cast<ButtonWidget*>(object())->isDown();
        state.defaultButton = lookOf(*cell, false).isDefault;
        return state;
    }

protected:
    void press() override { static_cast<ButtonWidget*>(object())->click(); }

private:
    const NSButtonCell* cell() const {
        const NSButton* button = static_cast<ButtonWidget*>(object())->button();
        return button ? &button->buttonCell() : nullptr;
    }
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    auto* widget = dynamic_cast<ButtonWidget*>(object);
    return widget ? new ButtonAccessible(widget) : nullptr;
}

}  // namespace

ButtonWidget::ButtonWidget() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(accessibleOf);
        return true;
    }();
    setAttribute(Qt::WA_Hover);
}

NSButton* ButtonWidget::button() const { return static_cast<NSButton*>(viewOf(this)); }

QSize ButtonWidget::sizeHint() const {
    const NSButton* shown = button();
    return shown ? buttonSize(lookOf(shown->buttonCell(), false), *style()) : QSize();
}

void ButtonWidget::stateShown(long state) {
    if (std::exchange(shown_, state) == state) return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void ButtonWidget::paintEvent(QPaintEvent*) {
    const NSButton* shown = button();
    if (!shown) return;
    QPainter painter(this);
    QStyleOptionButton option;
    option.initFrom(this);
    option.palette.setCurrentColorGroup(colorGroupOf(*this));
    drawButton(painter, option, lookOf(shown->buttonCell(), isDown()), *style(), this);
}

void ButtonWidget::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    // Return belongs to the default button, wherever the keyboard is.
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        event->ignore();
        return;
    }
    const NSButton* shown = button();
    if (shown && shown->buttonCell().isRadio() && moveInGroup(key)) return;
    QAbstractButton::keyPressEvent(event);
}

bool ButtonWidget::moveInGroup(int key) {
    const bool forward = key == Qt::Key_Down || key == (isRightToLeft() ? Qt::Key_Left : Qt::Key_Right);
    const bool backward = key == Qt::Key_Up || key == (isRightToLeft() ? Qt::Key_Right : Qt::Key_Left);
    if (!forward && !backward) return false;
    runReported([&] {
        const Ref<NSButton> self(button());
        std::vector<Ref<NSButton>> group = self->radioGroup();
        std::erase_if(group, [&](const Ref<NSButton>& other) {
            return other.get() != self.get() && (other->isHidden() || !other->acceptsFirstResponder());
        });
        const auto at = std::find_if(group.begin(), group.end(),
                                     [&](const Ref<NSButton>& other) { return other.get() == self.get(); });
        if (at == group.end() || group.size() < 2) return;
        const std::size_t place = static_cast<std::size_t>(at - group.begin()), count = group.size();
        NSButton& next = *group[(place + (forward ? 1 : count - 1)) % count];
        next.widget().setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        next.pressed();
    });
    return true;
}

bool ButtonWidget::hitButton(const QPoint& position) const { return rect().contains(position); }

}  // namespace velt
