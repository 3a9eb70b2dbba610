// A press by those who cannot use the mouse.
#pragma once

#include <QAccessibleWidget>

namespace velt {

/// What is said of a widget that can be pressed; it can be pressed by the action's name while it is enabled.
class PressedByName : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (widget()->isEnabled()) names.prepend(QAccessibleActionInterface::pressAction());
        return names;
    }
    void doAction(const QString& name) override {
        if (name != QAccessibleActionInterface::pressAction())
            QAccessibleWidget::doAction(name);
        else if (widget()->isEnabled())
            press();
    }

protected:
    virtual void press() = 0;
};

}  // namespace velt
