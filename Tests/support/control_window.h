// A window with controls, and an object that hears their actions.
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

/// Writes what a widget shows into the folder that VELT_SCREENSHOTS names, for people to look at.
inline void keepPicture(QWidget& widget, const char* name) {
    const char* folder = std::getenv("VELT_SCREENSHOTS");
    if (!folder) return;
    EXPECT_TRUE(
        widget.grab().save(QStringLiteral("%1/%2.png").arg(QString::fromUtf8(folder), QString::fromUtf8(name))));
}

inline QPalette darkPalette() { return QPalette(QColor(53, 53, 53)); }

}  // namespace velt::test
