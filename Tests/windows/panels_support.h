// Dialogs that wait for an answer, answered by real keys and clicks from a timer.
#pragma once

#include "support/control_window.h"
#include "support/patience.h"

#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <memory>

namespace velt::test {

/// The window of the innermost session; null without one.
inline NSWindow* modalWindow() {
    const id window = NSApplication::sharedApplication().modalWindow();
    return window.isNil() ? nullptr : as<NSWindow>(window);
}

/// Runs a function once a condition holds, from a timer, as somebody who watches the screen would.
inline void onceThat(std::function<bool()> holds, std::function<void()> then) {
    NSApplication::sharedApplication();  // timers need it
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, holds = std::move(holds), then = std::move(then)] {
        if (!holds()) return;
        timer->stop();
        timer->deleteLater();
        const auto run = then;
        run();
    });
    timer->start(5);
}

/// Runs a function once another session than now has a window that is seen and has the keyboard.
inline void onceAsked(std::function<void(NSWindow&)> answer) {
    NSWindow* before = modalWindow();
    onceThat([before] { return modalWindow() && modalWindow() != before && modalWindow()->isKeyWindow(); },
             [answer = std::move(answer)] { answer(*modalWindow()); });
}

/// A key and a click as the window system delivers them.
inline void pressKey(NSWindow& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window.widget().windowHandle(), key, modifiers);
}
inline void clickAt(QWidget& widget) {
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      widget.mapTo(widget.window(), widget.rect().center()));
}

inline std::vector<NSButton*> buttonsIn(NSWindow& window) {
    std::vector<NSButton*> found;
    for (const Ref<NSView>& view : as<NSView>(window.contentView())->subviewList()) {
        if (is<NSButton>(id(view))) found.push_back(as<NSButton>(id(view)));
    }
    return found;
}
inline void clickButton(NSWindow& window, std::string_view title) {
    for (NSButton* button : buttonsIn(window)) {
        if (utf8(button->title()) == title) return clickAt(button->widget());
    }
    ADD_FAILURE() << "no button " << title;
}

/// The sheet that a window shows, once it is seen and has the keyboard; null when it is not within ten seconds.
inline Ref<NSWindow> waitForSheet(const id& window) {
    NSWindow& shown = *as<NSWindow>(window);
    const auto seen = [&] {
        const id sheet = shown.attachedSheet();
        return !sheet.isNil() && as<NSWindow>(sheet)->isKeyWindow();
    };
    const bool came = comesTrue(seen);
    EXPECT_TRUE(came);
    return came ? Ref<NSWindow>(as<NSWindow>(shown.attachedSheet())) : Ref<NSWindow>();
}

/// What a person reads of an alert: "message|informative|[button][button]", with a dash for what is not there.
inline std::string readAlert(NSWindow& window) {
    const auto text = [&](const char* name) -> std::string {
        const auto* label = window.widget().findChild<QLabel*>(QString::fromUtf8(name));
        return label && label->isVisible() ? label->text().toStdString() : "-";
    };
    std::string seen = text("message") + "|" + text("informative") + "|";
    for (NSButton* button : buttonsIn(window)) seen += "[" + utf8(button->title()) + "]";
    return seen;
}

/// Hears how sheets end: their class, code and context.
class SheetListener : public NSObject {
    VELT_OBJECT(SheetListener, NSObject)

public:
    void sheetDidEnd(const id& sheet, const id& code, const id& context) {
        heard += classOf(sheet)->name() + " " + show(code) + " " + show(context) + " ";
        if (ordersOut && is<NSWindow>(sheet)) as<NSWindow>(sheet)->orderOut(nil);
        if (then) std::exchange(then, nullptr)();
    }
    static void describe(ClassBuilder<SheetListener>& c) {
        c.method("sheetDidEnd:returnCode:contextInfo:", &SheetListener::sheetDidEnd)
            .method("alertSheetDidEnd:returnCode:contextInfo:", &SheetListener::sheetDidEnd);
    }
    std::string heard;
    bool ordersOut = true;
    std::function<void()> then;
};

}  // namespace velt::test
