// A person at the mouse and the keyboard of an X display: their events come from the window system, to whoever has the
// window under the pointer or the keyboard.
#pragma once

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QRect>
#include <QScreen>
#include <QStringList>

namespace velt::test {

class Person {
public:
    /// False when the display has nobody who could play one.
    static bool isThere() { return QProcess::execute(QStringLiteral("xdotool"), {QStringLiteral("version")}) == 0; }

    static void moveTo(QPoint at) { act({QStringLiteral("mousemove"), number(at.x()), number(at.y())}); }
    static void click(QPoint at, int button = 1) {
        moveTo(at);
        act({"click", number(button)});
    }
    static void doubleClick(QPoint at) {
        moveTo(at);
        act({"click", "--repeat", "2", "--delay", "40", "1"});
    }
    static void turnWheel(QPoint at, bool down) { click(at, down ? 5 : 4); }
    /// Presses the button, moves through the way in steps, and lets it go.
    static void drag(QPoint from, QPoint to) {
        hold(from);
        constexpr int kSteps = 5;
        for (int i = 1; i <= kSteps; ++i) moveTo(from + (to - from) * i / kSteps);
        letGo();
    }
    static void hold(QPoint at) {
        moveTo(at);
        act({"mousedown", "1"});
    }
    static void letGo() { act({"mouseup", "1"}); }
    /// Chooses a window by its number in the window system, as from a list of those that are open.
    static void choose(unsigned long window) { act({"windowactivate", QString::number(window)}); }
    /// Keys by the window system's names, each with those that are held, as in "ctrl+a".
    static void press(const char* keys) { act({"key", "--clearmodifiers", QString::fromLatin1(keys)}); }
    static void type(const char* text) { act({"type", "--delay", "5", QString::fromUtf8(text)}); }
    /// What a part of the screen shows, with the pointer out of the way.
    static QImage see(QRect part) {
        moveTo({1, 1});
        return QGuiApplication::primaryScreen()
            ->grabWindow(0, part.x(), part.y(), part.width(), part.height())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }

private:
    static QString number(int value) { return QString::number(value); }
    static void act(const QStringList& words) { QProcess::execute(QStringLiteral("xdotool"), words); }
};

}  // namespace velt::test
