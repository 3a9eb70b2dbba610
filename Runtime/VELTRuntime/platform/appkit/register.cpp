// Hands the services of this library to the one without windows, at the moment it is loaded.
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/screen.h"
#include "VELTRuntime/platform/appkit/text/rich_text.h"
#include "VELTRuntime/platform/appkit/text_drawing.h"
#include "VELTRuntime/platform/object/providers.h"

#include <QApplication>
#include <QThread>

namespace velt {

namespace {

/// False without an application object, which alone knows the desktop, and on other threads than its own.
bool soundAlert() {
    const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (!application || application->thread() != QThread::currentThread()) return false;
    QApplication::beep();
    return true;
}

[[maybe_unused]] const bool registered = [] {
    Providers given{};
    given.imageFromFile = [](const std::string& path) { return id(NSImage::fromFile(path)); };
    given.attributedStringFromHtml = [](const std::string& html) {
        return id(attributedFromHtml(QString::fromStdString(html)));
    };
    given.soundAlert = soundAlert;
    given.visibleScreenFrame = visibleScreenFrame;
    given.drawText = drawText;
    given.textSize = textSize;
    provide(given);
    return true;
}();

}  // namespace

}  // namespace velt
