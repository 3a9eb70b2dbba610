#include "VELTRuntime/platform/appkit/application_object.h"

#include "VELTRuntime/platform/appkit/main_loop.h"
#include "VELTRuntime/platform/appkit/main_thread.h"
#include "VELTRuntime/platform/foundation/bundle.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/exception.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/syscall.h>
#include <unistd.h>

namespace velt {

namespace {

std::string programName() { return std::filesystem::path(NSBundle::mainBundle().executablePath()).filename().string(); }

[[noreturn]] void endWithoutDisplay(const std::string& why) {
    std::fflush(stdout);
    std::fprintf(stderr, "%s: this program shows windows, and %s.\n", programName().c_str(), why.c_str());
    std::_Exit(1);
}

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

/// While the application object is being made, what the toolkit gives up for is said in our words instead.
void endInOurWords(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) {
        const char* display = std::getenv("DISPLAY");
        endWithoutDisplay(display && *display ? "the display " + std::string(display) + " cannot be used"
                                              : "no display can be used");
    }
    if (type == QtCriticalMsg) std::fprintf(stderr, "%s\n", message.toUtf8().constData());
}

/// The toolkit keeps references to these as long as it lives.
struct Arguments {
    std::string name = programName();
    char* values[2] = {name.data(), nullptr};
    int count = 1;
};

void makeApplicationObject() {
    if (!isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY") && !isSet("QT_QPA_PLATFORM")) {
        endWithoutDisplay("there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set");
    }
    static Arguments arguments;
    const QtMessageHandler before = qInstallMessageHandler(endInOurWords);
    // Never deleted: views of static storage may outlive any scope of ours.
    static QApplication* const application = new QApplication(arguments.count, arguments.values);
    qInstallMessageHandler(before);
    application->setQuitOnLastWindowClosed(false);
    application->setApplicationName(QString::fromStdString(arguments.name));
}

}  // namespace

constinit thread_local ThreadPlace threadPlace = ThreadPlace::Unknown;

bool isMainThread() {
    if (threadPlace == ThreadPlace::Unknown) [[unlikely]]
        threadPlace = getpid() == static_cast<pid_t>(syscall(SYS_gettid)) ? ThreadPlace::Main : ThreadPlace::Other;
    return threadPlace == ThreadPlace::Main;
}

void requireMainThread(const char* call) {
    if (isMainThread()) [[likely]]
        return;
    raise(kInternalInconsistencyException,
          std::string(call) + " was called on another thread than the main one, to which windows and views belong");
}

bool hasApplicationObject() { return qApp != nullptr; }

void requireApplicationObject(const char* what) {
    requireMainThread(what);
    if (qApp) [[likely]]
        return;
    makeApplicationObject();
    // Only now: a program that never shows a window waits without a display.
    runWithinApplication();
    // Widgets that went while their own events were delivered.
    RunLoop::atIdle([] { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); });
}

}  // namespace velt
