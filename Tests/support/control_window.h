// Windows with controls, and objects that hear their actions.
#pragma once

#include "support/displays.h"
#include "support/values.h"

#include <QApplication>
#include <QMainWindow>
#include <QPalette>
#include <QTest>
#include <VELTRuntime/VELTRuntimeUI.h>
#include <cstdlib>
#include <string>
#include <utility>

namespace velt::test {

/// Notes what it hears: the sender's title, or its class.
class ActionListener : public NSObject {
    VELT_OBJECT(ActionListener, NSObject)

public:
    void click(const id& sender) {
        const bool titled = respondsTo(sender, VELT_SELECTOR("title"));
        heard += (titled ? utf8(send(sender, VELT_SELECTOR("title"))) : classOf(sender)->name()) + " ";
    }
    void other(const id&) { heard += "other "; }
    void play() { heard += "play "; }
    void removeSender(const id& sender) {
        send(sender, VELT_SELECTOR("removeFromSuperview"));
        heard += "removed ";
    }
    static void describe(ClassBuilder<ActionListener>& c) {
        c.method("click:", &ActionListener::click)
            .method("other:", &ActionListener::other)
            .method("removeSender:", &ActionListener::removeSender)
            .method("play", &ActionListener::play);
    }
    std::string heard;
};

/// A window that closes when the test is over.
struct ControlWindow {
    explicit ControlWindow(NSRect frame = {{50, 60}, {240, 180}}) { VELT_NSWINDOW_FRAME(window, VELT_ID(frame)); }
    ~ControlWindow() { VELT_NSWINDOW_CLOSE(window); }
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    QMainWindow& widget() const { return as<NSWindow>(window)->widget(); }
    void show() const {
        VELT_NSWINDOW_SHOW(window);
        ASSERT_TRUE(windowBecomesActive(widget()));
    }
    std::string heard() const { return std::exchange(listener->heard, ""); }

    id window = VELT_NSWINDOW_INIT(nil, "");
    Ref<ActionListener> listener = make<ActionListener>();
};

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

/// Writes what a widget shows into the folder that VELT_SCREENSHOTS names, for people to look at.
inline void keepPicture(QWidget& widget, const char* name) {
    const char* folder = std::getenv("VELT_SCREENSHOTS");
    if (!folder) return;
    EXPECT_TRUE(
        widget.grab().save(QStringLiteral("%1/%2.png").arg(QString::fromUtf8(folder), QString::fromUtf8(name))));
}

inline QPalette darkPalette() { return QPalette(QColor(53, 53, 53)); }

}  // namespace velt::test
