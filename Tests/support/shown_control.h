// A window with one control in it, and a target that counts what the control says.
#pragma once

#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/displays.h"
#include "support/values.h"

#include <QApplication>
#include <QMainWindow>
#include <QTest>

namespace velt::test {

/// Counts the actions that it is sent, and keeps the last sender.
class ActionCounter : public NSObject {
    VELT_OBJECT(ActionCounter, NSObject)

public:
    void act(const id& sender) {
        ++count;
        last = sender;
    }
    void changeColor(const id&) { ++colors; }
    static void describe(velt::ClassBuilder<ActionCounter>& c) {
        c.method("act:", &ActionCounter::act)
            .method("changeColor:", &ActionCounter::changeColor)
            .owns(&ActionCounter::last);
    }
    int taken() { return std::exchange(count, 0); }
    int count = 0, colors = 0;
    id last;
};

/// Shows a control of a size in a window of its own, and closes it in the end.
class ShownControl {
public:
    ShownControl(const id& control, double width, double height) : control_(control) {
        VELT_NSWINDOW_FRAME(window_, rect(40, 40, width + 40, height + 62));
        send(control, VELT_SELECTOR("setFrame:"), rect(20, 20, width, height));
        VELT_NSWINDOW_APPEND(window_, control);
        VELT_NSWINDOW_SHOW(window_);
        qtWindow().activateWindow();
        EXPECT_TRUE(windowBecomesActive(qtWindow()));
    }
    ~ShownControl() { VELT_NSWINDOW_CLOSE(window_); }
    ShownControl(const ShownControl&) = delete;
    ShownControl& operator=(const ShownControl&) = delete;

    const id& window() const { return window_; }
    QMainWindow& qtWindow() const { return as<NSWindow>(window_)->widget(); }
    QWidget& widget() const { return as<NSView>(control_)->widget(); }
    /// Gives the control the keyboard.
    void focus() { VELT_NSWINDOW_MAKEFIRSTRESPONDER(window_, control_); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &widget(), key, modifiers);
    }
    void click(QPoint at) { QTest::mouseClick(&widget(), Qt::LeftButton, {}, at); }
    void press(QPoint at) { QTest::mousePress(&widget(), Qt::LeftButton, {}, at); }
    void release(QPoint at) { QTest::mouseRelease(&widget(), Qt::LeftButton, {}, at); }
    void moveTo(QPoint at, Qt::KeyboardModifiers modifiers = {}) {
        QMouseEvent event(QEvent::MouseMove, at, widget().mapToGlobal(QPointF(at)), Qt::NoButton, Qt::LeftButton,
                          modifiers);
        QApplication::sendEvent(&widget(), &event);
    }
    void drag(QPoint from, QPoint to) {
        press(from);
        moveTo(to);
        release(to);
    }
    /// Turns the wheel by eighths of a degree; 120 are a notch. True when the control took it.
    bool wheel(int turned) {
        const QPointF at = widget().rect().center();
        QWheelEvent event(at, widget().mapToGlobal(at), {}, {0, turned}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        event.setAccepted(false);
        QApplication::sendEvent(&widget(), &event);
        return event.isAccepted();
    }
    QImage picture() const {
        return as<NSView>(control_)->widget().grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

private:
    id window_ = VELT_NSWINDOW_INIT(nil, "");
    id control_;
};

inline id ask(const id& object, std::string_view selector) { return send(object, Selector::named(selector)); }
inline id tell(const id& object, std::string_view selector, const id& value) {
    return send(object, Selector::named(selector), value);
}

}  // namespace velt::test
