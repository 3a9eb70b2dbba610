// Dragging items into a toolbar, within it and out of it, inside one window.
#pragma once

#include <QPointer>
#include <QWidget>

class NSToolbar;
class QLabel;

namespace velt {

class ToolbarStrip;

/// The picture of what is being dragged, under the pointer.
class DraggedPicture {
public:
    DraggedPicture() = default;
    ~DraggedPicture();
    DraggedPicture(const DraggedPicture&) = delete;
    DraggedPicture& operator=(const DraggedPicture&) = delete;

    bool isShown() const { return !label_.isNull(); }
    /// Shows a picture in a widget's window, its middle at a point of the widget.
    void moveTo(const QPixmap& picture, const QWidget& from, QPoint point);
    void hide();

private:
    QPointer<QLabel> label_;
};

/// Lies over the items while a person customizes: items can be dragged, and moved and removed by keys, but not used.
class ToolbarCover final : public QWidget {
public:
    explicit ToolbarCover(ToolbarStrip& strip);
    /// A line at a place of the strip, where a dragged item would stand; -1 for none.
    void setMark(int x);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    NSToolbar* toolbar() const;
    void change(int from, int to);

    ToolbarStrip& strip_;
    int mark_ = -1, current_ = -1, dragged_ = -1;
    QPoint start_;
    DraggedPicture picture_;
};

}  // namespace velt
