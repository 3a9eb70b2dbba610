#include "VELTRuntime/platform/appkit/screen.h"

#include <QGuiApplication>
#include <QScreen>

namespace velt {

namespace {

/// Without an application object there is no connection to a desktop, and asking for a screen would be an error.
const QScreen* mainScreen() { return qGuiApp ? QGuiApplication::primaryScreen() : nullptr; }

}  // namespace

double mainScreenHeight() {
    const QScreen* screen = mainScreen();
    return screen ? screen->geometry().height() : 0;
}

NSRect visibleScreenFrame() {
    const QScreen* screen = mainScreen();
    if (!screen) return {};
    const QRectF whole = screen->geometry(), free = screen->availableGeometry();
    const NSRect frame{{free.x() - whole.x(), free.y() - whole.y()}, {free.width(), free.height()}};
    return flipped(frame, whole.height());
}

}  // namespace velt
