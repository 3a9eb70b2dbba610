// Pictures of examples with windows: VELT_SCREENSHOT=path makes a program work itself for a moment, write what its
// window looks like to that path, and end. So it can be seen where there is nobody to look.
#pragma once

#include <VELTRuntime/VELTRuntimeUI.h>

#include "VELTRuntime/platform/foundation/run_loop.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QPalette>
#include <QPixmap>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace example {

/// Runs a program with windows as velt::runApplication does. Where there is no display it runs on one in memory, and
/// its picture is written to NAME.png in the working folder unless VELT_SCREENSHOT names another place.
inline int runShowing(const char* name, int (*program)(int, char**), int count, char** arguments) {
    const auto isSet = [](const char* variable) {
        const char* value = std::getenv(variable);
        return value && *value;
    };
    if (!isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY") && !isSet("QT_QPA_PLATFORM")) {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        setenv("VELT_SCREENSHOT", (std::string(name) + ".png").c_str(), 0);
    }
    return velt::runApplication(program, count, arguments);
}

/// Dresses the program's windows in dark colours, as a desktop with a dark palette does.
inline void wearDark() {
    NSApplication::sharedApplication();
    const QColor window(56, 58, 61), base(36, 37, 40), text(226, 228, 232), button(76, 79, 83);
    QPalette dark(text, button, button.lighter(150), base.darker(150), button.darker(120), text, Qt::white, base,
                  window);
    dark.setColor(QPalette::AlternateBase, window);
    dark.setColor(QPalette::ToolTipBase, button);
    dark.setColor(QPalette::ToolTipText, text);
    dark.setColor(QPalette::PlaceholderText, QColor(140, 143, 148));
    dark.setColor(QPalette::Highlight, QColor(53, 116, 240));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(108, 168, 255));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, QColor(120, 123, 128));
    }
    QApplication::setPalette(dark);
}

/// What a person may ask of a program's looks when it is started: --dark for dark colours, --reverse for the direction
/// of those who read from right to left.
inline void dressAsAsked(int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        const std::string_view asked = arguments[i];
        if (asked == "--dark") wearDark();
        if (asked == "--reverse") {
            NSApplication::sharedApplication();
            QApplication::setLayoutDirection(Qt::RightToLeft);
        }
    }
}

/// Once the window is seen, runs the scene, writes the picture and ends the program: with status 1 when the picture
/// cannot be written. Does nothing when no picture is asked for.
inline void shotWhenAsked(const id& window, std::function<void()> scene) {
    const char* path = std::getenv("VELT_SCREENSHOT");
    if (!path || !*path) return;
    // As it is where people read from right to left.
    if (std::getenv("VELT_SCREENSHOT_FROM_RIGHT")) QApplication::setLayoutDirection(Qt::RightToLeft);
    constexpr double kUntilItIsSeen = 0.2;
    velt::RunLoop::main().after(kUntilItIsSeen, [window, scene = std::move(scene), file = std::string(path)] {
        scene();
        velt::RunLoop::main().after(kUntilItIsSeen, [window, file] {
            const bool written = velt::as<NSWindow>(window)->widget().grab().save(QString::fromStdString(file), "PNG");
            if (!written) std::fprintf(stderr, "The picture cannot be written to %s.\n", file.c_str());
            if (written) std::printf("The picture is in %s.\n", file.c_str());
            std::fflush(stdout);
            if (!written) std::_Exit(1);
            NSApplication::sharedApplication().terminate(nil);
        });
    });
}

/// Presses the left mouse button in a view, drags it through points of the view's coordinates, and lets it go, as the
/// view is told of it by a person's mouse.
inline void dragThrough(const id& view, const std::vector<NSPoint>& points) {
    const NSView& shown = *velt::as<NSView>(view);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const bool first = i == 0, last = i + 1 == points.size();
        const NSPoint at = shown.convertPointToView(points[i], nullptr);
        const auto send = [&](NSEvent::Type type, const char* selector) {
            velt::send(view, selector, id(NSEvent::ofMouse(type, at, 0, 0, 1, shown.windowPointer())));
        };
        if (first) {
            send(NSEvent::Type::LeftMouseDown, "mouseDown:");
        } else {
            send(NSEvent::Type::LeftMouseDragged, "mouseDragged:");
        }
        if (last) send(NSEvent::Type::LeftMouseUp, "mouseUp:");
    }
}

/// Presses a key of a letter in a view, as the view is told of it.
inline void pressKey(const id& view, char letter) {
    const QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(letter)));
    velt::send(view,
               "keyDown:", id(NSEvent::ofKey(NSEvent::Type::KeyDown, key, velt::as<NSView>(view)->windowPointer())));
}

}  // namespace example
