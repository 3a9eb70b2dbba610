// The row of tabs of a tab view.
#pragma once

#include <QTabBar>

namespace velt {

class TabBar final : public QTabBar {
public:
    explicit TabBar(QWidget* parent);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace velt
