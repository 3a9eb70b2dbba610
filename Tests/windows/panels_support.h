// Dialogs that wait for an answer, answered by real keys and clicks from a timer.
#pragma once

#include "support/control_window.h"
#include "support/patience.h"

#include <QElapsedTimer>
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
    const auto isSeen = [before, seen = QElapsedTimer()]() mutable {
        NSWindow* window = modalWindow();
        if (!window || window == before) return false;
        if (window->isKeyWindow()) return true;
        if (!seen.isValid()) seen.start();
        if (displayIsX11() && seen.hasExpired(kSoon)) {
            chooseWindow(window->widget());
            seen.restart();
        }
        return false;
    };
    onceThat(isSeen, [answer = std::move(answer)] { answer(*modalWindow()); });
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

/// Waits until a window has the keyboard, as a person does before pressing keys.
inline bool hasKeyboard(NSWindow& window) {
    const auto has = [&] { return window.isKeyWindow(); };
    if (displayIsX11() && !QTest::qWaitFor(has, kSoon)) chooseWindow(window.widget());
    return comesTrue(has);
}
/// The same, unless something in front of the window has the keyboard.
inline bool takesKeys(NSWindow& window) {
    return !window.isVisible() || !window.attachedSheet().isNil() || QApplication::activeModalWidget() ||
           hasKeyboard(window);
}

/// The sheet that a window shows, once it is seen and has the keyboard; null when none comes.
inline Ref<NSWindow> waitForSheet(const id& window) {
    NSWindow& shown = *as<NSWindow>(window);
    const auto isSeen = [&] {
        const id sheet = shown.attachedSheet();
        return !sheet.isNil() && as<NSWindow>(sheet)->isVisible();
    };
    const Ref<NSWindow> sheet(comesTrue(isSeen) ? as<NSWindow>(shown.attachedSheet()) : nullptr);
    const bool came = sheet && hasKeyboard(*sheet);
    EXPECT_TRUE(came);
    return came ? sheet : Ref<NSWindow>();
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
