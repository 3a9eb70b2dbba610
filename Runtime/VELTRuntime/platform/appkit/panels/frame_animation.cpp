#include "VELTRuntime/platform/appkit/panels/frame_animation.h"

#include "VELTRuntime/platform/appkit/window.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QStyle>
#include <QTimer>
#include <algorithm>

namespace velt {

int animationTime() {
    return std::clamp(QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration), 0, 250);
}

NSRect between(const NSRect& from, const NSRect& to, double part) {
    const auto mix = [part](double a, double b) { return a + (b - a) * part; };
    return {{mix(from.origin.x, to.origin.x), mix(from.origin.y, to.origin.y)},
            {mix(from.size.width, to.size.width), mix(from.size.height, to.size.height)}};
}

}  // namespace velt

void NSWindow::setFrameAnimated(NSRect frame) {
    const velt::Ref<NSWindow> kept(this);
    const int time = isVisible() ? velt::animationTime() : 0;
    const NSRect from = frame_;
    QElapsedTimer clock;
    clock.start();
    constexpr int kStep = 16;  // a frame of the screen
    while (clock.elapsed() < time && isVisible()) {
        setFrame(velt::between(from, frame, static_cast<double>(clock.elapsed()) / time));
        // What a person does meanwhile waits.
        QEventLoop loop;
        QTimer::singleShot(kStep, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    setFrame(frame);
}
