// What a person takes hold of to resize the panes of a split view, with the mouse or the arrow keys.
#pragma once

#include <QWidget>

class NSSplitView;

namespace velt {

class Divider final : public QWidget {
public:
    Divider(QWidget* parent, std::size_t index);

    /// Its place across the panes, and how much of it is drawn; it may be taken a little beside that too.
    void place(QRect within, int thickness, bool vertical, bool thin);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    NSSplitView* splitView() const;
    void dragTo(double position);

    std::size_t index_;
    bool vertical_ = false, thin_ = false, dragged_ = false;
    int thickness_ = 1;
    double grip_ = 0;  // from the divider's start to where it was taken
};

}  // namespace velt
