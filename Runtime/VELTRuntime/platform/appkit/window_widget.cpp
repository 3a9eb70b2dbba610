#include "VELTRuntime/platform/appkit/window_widget.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/view_events.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QWindow>

namespace velt {

void ContentHolder::resizeEvent(QResizeEvent*) {
    if (window_) runReported([this] { window_->geometryChanged(); });
}

void ContentHolder::mousePressEvent(QMouseEvent* event) {
    QWindow* handle = QWidget::window()->windowHandle();
    if (window_ && window_->isMovableByWindowBackground() && event->button() == Qt::LeftButton && handle) {
        handle->startSystemMove();
    }
}

WindowWidget::WindowWidget(NSWindow& window) : window_(&window) { setCentralWidget(new ContentHolder(window)); }

void WindowWidget::forget() {
    window_ = nullptr;
    static_cast<ContentHolder*>(centralWidget())->forget();
}

void WindowWidget::closeEvent(QCloseEvent* event) {
    event->ignore();  // closing is ours: the widget stays for when the window is shown again
    if (!window_) return;
    const Ref<NSWindow> kept(window_);
    runReported([&] {
        if (kept->mayClose()) kept->close();
    });
}

void WindowWidget::moveEvent(QMoveEvent*) {
    if (window_) runReported([this] { window_->geometryChanged(); });
}

void WindowWidget::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (window_ && event->type() == QEvent::WindowStateChange) runReported([this] { window_->stateChanged(); });
}

void WindowWidget::keyPressEvent(QKeyEvent* event) {
    // Nobody in the window took it.
    const bool taken = window_ && offerKeyEquivalent(*window_, *event);
    if (!taken) QMainWindow::keyPressEvent(event);
}

bool WindowWidget::focusNextPrevChild(bool next) {
    // Where nobody has the keyboard yet, Tab begins where the program says.
    if (window_ && !focusWidget()) {
        bool taken = false;
        runReported([&] { taken = window_->makeFirstResponder(firstKeyView(*window_)) && focusWidget(); });
        if (taken) return true;
    }
    return QMainWindow::focusNextPrevChild(next);
}

bool WindowWidget::event(QEvent* event) {
    // The event that ends this widget leaves nothing to look at.
    if (!window_) return QMainWindow::event(event);
    const bool result = QMainWindow::event(event);
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate) {
        const bool active = event->type() == QEvent::WindowActivate;
        runReported([this, active] { window_->activationChanged(active); });
    }
    return result;
}

}  // namespace velt
