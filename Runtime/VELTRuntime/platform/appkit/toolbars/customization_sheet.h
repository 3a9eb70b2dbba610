// The sheet with which a person arranges a toolbar: all items that there are, the default set, how they are shown.
//
// It lies in the window itself, below the toolbar, so that what is dragged stays within one window: a desktop need not
// say where other windows are.
#pragma once

#include "VELTRuntime/platform/appkit/toolbars/toolbar_drag.h"

#include "VELTRuntime/values/value.h"

#include <QAbstractButton>

class QMainWindow;

namespace velt {

class ToolbarWidget;

/// One item of the palette, or the default set, to be dragged into the toolbar. A press by keyboard adds it at the end.
class PaletteTile final : public QAbstractButton {
public:
    /// nil stands for the default set.
    PaletteTile(const id& identifier, const QPixmap& picture, const QString& name, ToolbarWidget& toolbar,
                QWidget& parent);
    const id& identifier() const { return identifier_; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void drop(int place);

    id identifier_;
    QPixmap picture_;
    ToolbarWidget& toolbar_;
    QPoint start_;
    DraggedPicture dragged_;
};

class CustomizationSheet final : public QWidget {
public:
    CustomizationSheet(ToolbarWidget& toolbar, QMainWindow& window);
    ~CustomizationSheet() override;
    /// The toolbar has gone.
    void forget();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void done();
    QWidget* makePalette();
    QWidget* makeChoices();

    ToolbarWidget* toolbar_;
    QMainWindow& window_;
};

}  // namespace velt
