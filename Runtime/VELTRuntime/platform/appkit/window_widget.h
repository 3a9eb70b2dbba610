// The toolkit's window of an NSWindow: reports what the desktop and the person do with it.
#pragma once

#include "VELTRuntime/values/value.h"

#include <QMainWindow>

class NSWindow;

namespace velt {

/// Who gets a window's keyboard first: its initial first responder, or else the first view in it that takes keys.
id firstKeyView(const NSWindow& window);

/// Holds the content view and gives it its size.
class ContentHolder final : public QWidget {
public:
    explicit ContentHolder(NSWindow& window) : window_(&window) {}
    void forget() { window_ = nullptr; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    NSWindow* window_;
};

class WindowWidget final : public QMainWindow {
public:
    explicit WindowWidget(NSWindow& window);
    /// The window has gone; this widget follows.
    void forget();
    NSWindow* window() const { return window_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool event(QEvent* event) override;

private:
    NSWindow* window_;
};

}  // namespace velt
