// Tests that look at other programs from outside, as the desktop and its people do. They need a display with a window
// manager and a session bus: Tests/support/on_display.sh and dbus-run-session give them one.
#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int count, char** arguments) {
    const QGuiApplication application(count, arguments);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
