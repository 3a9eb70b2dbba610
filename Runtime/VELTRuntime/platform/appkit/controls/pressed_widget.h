// What those who cannot see hear of a widget that draws itself and can be pressed.
#pragma once

#include <QAccessible>
#include <QWidget>

class NSControl;

namespace velt {

class PressedWidget : public QWidget {
public:
    PressedWidget();

    /// Null when the control has gone.
    NSControl* control() const;
    virtual QAccessible::Role role() const = 0;
    /// What it shows, in words.
    virtual QString valueText() const = 0;
    /// A press by keyboard or by who cannot use the mouse.
    virtual void press() = 0;
    /// Tells those who listen that it shows something else.
    void valueShown();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString shown_;
};

}  // namespace velt
