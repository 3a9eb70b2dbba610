#include "VELTRuntime/platform/appkit/containers/tab_bar.h"

#include <QMouseEvent>

namespace velt {

TabBar::TabBar(QWidget* parent) : QTabBar(parent) {
    setFocusPolicy(Qt::TabFocus);
    setUsesScrollButtons(true);
    setExpanding(false);
    setDrawBase(false);
}

void TabBar::mousePressEvent(QMouseEvent* event) {
    QTabBar::mousePressEvent(event);
    event->accept();
}

void TabBar::keyPressEvent(QKeyEvent* event) {
    // Home and End, as lists have them.
    if (event->key() == Qt::Key_Home && count() > 0) return setCurrentIndex(0);
    if (event->key() == Qt::Key_End && count() > 0) return setCurrentIndex(count() - 1);
    QTabBar::keyPressEvent(event);
}

void TabBar::wheelEvent(QWheelEvent* event) { event->ignore(); }  // pages do not turn under a scrolling hand

}  // namespace velt
