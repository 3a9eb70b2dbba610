#include "VELTRuntime/platform/appkit/screen.h"

#include <QGuiApplication>
#include <QScreen>

namespace velt {

NSRect visibleScreenFrame() {
    // Without an application object there is no connection to a desktop, and asking for a screen would be an error.
    const QScreen* screen = qGuiApp ? QGuiApplication::primaryScreen() : nullptr;
    if (!screen) return {};
    const QRectF whole = screen->geometry(), free = screen->availableGeometry();
    const NSRect frame{{free.x() - whole.x(), free.y() - whole.y()}, {free.width(), free.height()}};
    return flipped(frame, whole.height());
}

}  // namespace velt
