// The widget of a plain view: draws by the view's "drawRect:", sends it the mouse and the keys by name.
#pragma once

#include <QWidget>

class NSView;

namespace velt {

/// Ties a widget to its view and back; null unties it.
void setViewOf(QWidget& widget, NSView* view);

/// The widget's view is about to go, and the widget with it.
void willGo(QWidget& widget);
/// Ends a widget whose view has gone, as soon as none of its events is under way. The widgets within it that still
/// show views are taken out of it before; those whose views have gone too end with it.
void letGo(QWidget& widget);

class ViewWidget final : public QWidget {
public:
    ViewWidget() = default;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void tell(const QEvent& event);

    int clicks_ = 0;
};

}  // namespace velt
