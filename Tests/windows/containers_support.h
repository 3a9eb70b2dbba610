// What the tests of views share: a window around a view, drags, what a view looks like.
#pragma once

#include <VELTRuntime/VELTRuntimeUI.h>

#include "VELTRuntime/platform/foundation/run_loop.h"
#include "support/displays.h"

#include <QApplication>
#include <QImage>
#include <QMainWindow>
#include <QPixmap>
#include <QTest>

namespace velt::test {

/// A view in a window on the screen for as long as this lives.
class Shown {
public:
    Shown(const id& view, NSSize size) : window_(as<NSWindow>(VELT_NSWINDOW_INIT(nil, ""))) {
        VELT_NSWINDOW_FRAME(window_, VELT_ID(NSRect{{50, 60}, {size.width, size.height + 22}}));
        as<NSView>(view)->setFrame({{0, 0}, size});
        VELT_NSWINDOW_APPEND(window_, view);
        VELT_NSWINDOW_SHOW(window_);
        EXPECT_TRUE(velt::test::windowBecomesActive(window_->widget()));
    }
    ~Shown() {
        VELT_NSWINDOW_CLOSE(window_);
        RunLoop::current().runOnce(0);
    }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;
    NSWindow& window() const { return *window_; }

private:
    Ref<NSWindow> window_;
};

/// What a view looks like, one dot a unit.
inline QImage picture(const id& view) {
    QWidget& widget = as<NSView>(view)->widget();
    const NSSize size = as<NSView>(view)->frame().size;
    if (!widget.parentWidget()) widget.resize(static_cast<int>(size.width), static_cast<int>(size.height));
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

/// Presses, moves in steps and releases, all in the widget's coordinates at the beginning: it may move along.
inline void drag(QWidget* widget, QPoint from, QPoint to) {
    const QPoint start = widget->mapTo(widget->window(), from), end = widget->mapTo(widget->window(), to);
    const auto at = [&](QPoint place) { return widget->mapFrom(widget->window(), place); };
    QTest::mousePress(widget, Qt::LeftButton, {}, from);
    for (int step = 1; step <= 4; ++step) {
        const QPointF local = at(start + (end - start) * step / 4);
        QMouseEvent move(QEvent::MouseMove, local, widget->mapToGlobal(local), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(widget, &move);
    }
    QTest::mouseRelease(widget, Qt::LeftButton, {}, at(end));
}

/// The widget of a split view's divider.
inline QWidget* dividerOf(NSSplitView& view, int index) {
    for (QObject* child : view.widget().children()) {
        auto* widget = qobject_cast<QWidget*>(child);
        if (widget && widget->accessibleName() == QStringLiteral("Divider %1").arg(index + 1)) return widget;
    }
    return nullptr;
}

}  // namespace velt::test
