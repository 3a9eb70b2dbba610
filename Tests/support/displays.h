// What the display on which the window tests run can do: they run in memory, on X11 with a window manager, and on
// Wayland.
#pragma once

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/process/window_activation.h"
#include "support/patience.h"
#include "support/person.h"

namespace velt::test {

inline QString displayKind() {
    velt::requireApplicationObject("a test");
    return QGuiApplication::platformName();
}
inline bool displayIsInMemory() { return displayKind() == QLatin1String("offscreen"); }
inline bool displayIsX11() { return displayKind() == QLatin1String("xcb"); }
inline bool displayIsWayland() { return displayKind().startsWith(QLatin1String("wayland")); }

/// Somebody gives windows the keyboard and miniaturizes them when asked.
inline bool displayHasWindowManager() { return displayIsInMemory() || velt::WindowActivation().isPossible(); }
/// A window manager passes over a program's request for the keyboard that it holds for older than what it did
/// meanwhile: the tests' own keys never went through it. A person then chooses the window.
inline void chooseWindow(const QWidget& window) {
    if (window.isVisible()) Person::choose(window.winId());
}
/// Gives a window the keyboard. A compositor that has no keyboard to give leaves that to the toolkit.
inline bool windowBecomesActive(QWidget& window) {
    if (displayIsX11() && !QTest::qWaitForWindowActive(&window, kSoon)) chooseWindow(window);
    if (!displayIsWayland()) return becomesActive(&window);
    QApplication::setActiveWindow(&window);
    return comesIntoView(&window);
}

/// Gives a window the keyboard for good. A window manager that still looks after windows that were closed before may
/// take it away again for a moment, and a shortcut that is pressed just then is lost.
inline bool windowStaysActive(QWidget& window) {
    constexpr int kTurns = 5;
    if (!windowBecomesActive(window)) return false;
    if (!displayIsX11()) return true;
    int with = 0, without = 0;
    return comesTrue([&] {
        QTest::qWait(kTurn);
        const bool active = window.isActiveWindow();
        with = active ? with + 1 : 0;
        without = active ? 0 : without + 1;
        if (without * kTurn >= kSoon) {
            chooseWindow(window);
            without = 0;
        }
        return with >= kTurns;
    });
}

/// Waits for what a window manager says, some time after a window is shown, of where it is and what lies around it.
inline bool frameIsKnown(QWidget& window) {
    if (!displayIsX11() || !displayHasWindowManager()) return true;
    QRect frame;
    return comesTrue([&] {
        const QRect before = std::exchange(frame, window.frameGeometry());
        QTest::qWait(kTurn);
        return !window.windowHandle()->frameMargins().isNull() && frame == before;
    });
}

}  // namespace velt::test

#define SKIP_UNLESS_WINDOWS_BECOME_ACTIVE()                                                                            \
    if (velt::test::displayIsWayland()) GTEST_SKIP() << "the compositor decides which window has the keyboard";        \
    if (!velt::test::displayHasWindowManager()) GTEST_SKIP() << "no window manager gives windows the keyboard"
#define SKIP_UNLESS_WINDOWS_CAN_BE_MINIATURIZED()                                                                      \
    if (velt::test::displayIsWayland()) GTEST_SKIP() << "the compositor does not say that a window was miniaturized";  \
    if (!velt::test::displayHasWindowManager()) GTEST_SKIP() << "no window manager miniaturizes windows"
