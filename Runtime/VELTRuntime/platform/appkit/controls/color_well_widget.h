// The widget of a colour well.
#pragma once

#include "VELTRuntime/platform/appkit/controls/pressed_widget.h"

class NSColorWell;

namespace velt {

class ColorWellWidget final : public PressedWidget {
public:
    ColorWellWidget();
    QAccessible::Role role() const override { return QAccessible::ColorChooser; }
    QString valueText() const override;
    void press() override;
    QSize sizeHint() const override { return {44, 23}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    NSColorWell* well() const;
    void startDrag();

    bool pressed_ = false;
    QPoint pressedAt_;
};

}  // namespace velt
