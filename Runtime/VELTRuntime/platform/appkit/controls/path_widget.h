// The widget of a path control.
#pragma once

#include "VELTRuntime/platform/appkit/controls/pressed_widget.h"
#include "VELTRuntime/values/structures.h"

#include <vector>

class NSPathCell;
class NSPathComponentCell;
class NSPathControl;
class QFontMetricsF;
class QIcon;
class QMenu;
class QStyleOptionComboBox;

namespace velt {

/// The smallest size in which a path can be read.
NSSize pathSize(const NSPathCell& cell, const QFontMetricsF& metrics);

class PathWidget final : public PressedWidget {
public:
    PathWidget();
    QAccessible::Role role() const override;
    QString valueText() const override;
    /// A click on the part that the keyboard is at, or the menu of the pop-up style.
    void press() override;
    QSize sizeHint() const override;
    void cellShown();
    /// Where a part is shown.
    QRect partRect(int index) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// A part as it is laid out: from the side where reading begins.
    struct Part {
        double left, width;  // no width: it is left out
        bool named;          // or its icon alone, for want of room
    };
    NSPathControl* path() const;
    const NSPathCell& cell() const;
    bool isPopUp() const;
    std::vector<Part> layOut() const;
    int partAt(QPointF point) const;
    void drawPart(QPainter& painter, int index, const Part& part) const;
    void drawPopUp(QPainter& painter) const;
    void showMenu();
    void choose();

    int pressed_ = -1;  // the part under the pressed button
    int current_ = -1;  // the part that the keyboard is at; the last one when it is none
};

}  // namespace velt
