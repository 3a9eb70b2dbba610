// The life of a program with windows: its launch, the files that it is given, becoming active, and its end.
#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/panels/modal_session.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/process_info.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/callback_failure.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/setting.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

#include <QApplication>
#include <QFileOpenEvent>
#include <QMainWindow>
#include <QSessionManager>
#include <cstdlib>
#include <filesystem>

using velt::Ref;
using velt::RunLoop;
using velt::Selector;

namespace {

constexpr double kAlways = 1e9;  // seconds

/// What a delegate answers that will tell later whether the program may end.
constexpr long kLater = 2;

/// Hears what the desktop asks of the program as a whole.
class DesktopListener final : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != qApp) return false;
        if (event->type() == QEvent::FileOpen) {
            const QString file = static_cast<QFileOpenEvent*>(event)->file();
            velt::runReported([&] { NSApplication::sharedApplication().openFile(file.toStdString()); });
            return true;
        }
        if (event->type() == QEvent::Quit) {
            velt::runReported([] { NSApplication::sharedApplication().terminate(nil); });
            return true;
        }
        return false;
    }
};

}  // namespace

void NSApplication::watchDesktop() {
    auto* listener = new DesktopListener;  // lives as long as the toolkit's object
    listener->setParent(qApp);
    qApp->installEventFilter(listener);
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, listener,
                     [this] { velt::runReported([this] { activityChanged(); }); });
    QObject::connect(
        qApp, &QGuiApplication::commitDataRequest, listener,
        [this](QSessionManager& session) {
            velt::runReported([&] {
                if (!agreesToEnd()) session.cancel();
            });
        },
        Qt::DirectConnection);
    wasActive_ = isActive();
}

// The launch.

void NSApplication::finishLaunching() {
    if (std::exchange(launched_, true)) return;
    tell("applicationWillFinishLaunching:", "NSApplicationWillFinishLaunchingNotification");
    openFilesOfCommandLine();
    tell("applicationDidFinishLaunching:", "NSApplicationDidFinishLaunchingNotification");
}

/// Words that name files are files to be opened; what else they may mean the program knows itself.
void NSApplication::openFilesOfCommandLine() {
    const id list = NSProcessInfo::processInfo().arguments();
    const NSArray* words = velt::arrayOf(list);
    for (std::size_t i = 1; words && i < words->count(); ++i) {
        const std::filesystem::path path = velt::utf8(words->at(static_cast<long>(i)));
        std::error_code failure;
        if (path.empty() || path.native().front() == '-' || !std::filesystem::exists(path, failure)) continue;
        openFile(std::filesystem::absolute(path, failure).lexically_normal().string());
    }
}

bool NSApplication::openFile(const std::string& path) {
    static const Selector opens = Selector::named("application:openFile:");
    const id asked = delegate_;
    if (!velt::respondsTo(asked, opens)) return false;
    const id answer = velt::send(asked, opens, id(this), velt::string(path));
    return !answer.isNil() && VELT_CBOOL(answer);
}

void NSApplication::run() {
    const velt::Setting running(running_, true);
    finishLaunching();
    while (running_) RunLoop::main().runOnce(kAlways);
}

void NSApplication::stop(const id&) {
    // The innermost loop is the one that is meant.
    if (velt::ModalSession::innermost()) return stopModal();
    running_ = false;
    RunLoop::main().stop();
}

// Becoming active.

bool NSApplication::isActive() const { return QGuiApplication::applicationState() == Qt::ApplicationActive; }

void NSApplication::activityChanged() {
    const bool active = isActive();
    if (std::exchange(wasActive_, active) == active) return;
    if (active) {
        // What was put away while another program was in front.
        while (!hiddenWhileInactive_.empty()) {
            const Ref<NSWindow> window = hiddenWhileInactive_.front();
            hiddenWhileInactive_.erase(hiddenWhileInactive_.begin());
            if (window->existingWidget()) window->existingWidget()->show();
        }
        tell("applicationDidBecomeActive:", "NSApplicationDidBecomeActiveNotification");
        return;
    }
    // Who hears that a window loses the keyboard may open and close others.
    const std::vector<Ref<NSWindow>> open = open_;
    for (const Ref<NSWindow>& window : open) {
        if (!window->hidesOnDeactivate() || !window->isVisible()) continue;
        hiddenWhileInactive_.push_back(window);
        window->existingWidget()->hide();
    }
    tell("applicationDidResignActive:", "NSApplicationDidResignActiveNotification");
}

// The end.

void NSApplication::terminate(const id&) {
    static const Selector asks = Selector::named("applicationShouldTerminate:");
    if (terminating_ || asksDelegate_) return;
    if (!velt::respondsTo(delegate_, asks)) return end();
    asksDelegate_ = true;  // it may come here again before it has answered
    try {
        const id answer = velt::send(delegate_, asks, id(this));
        if (velt::isNumber(answer) && VELT_CINTEGER(answer) == kLater) return;
        asksDelegate_ = false;
        if (VELT_CBOOL(answer)) end();
    } catch (...) {
        asksDelegate_ = false;
        throw;
    }
}

void NSApplication::replyToApplicationShouldTerminate(bool flag) {
    if (std::exchange(asksDelegate_, false) && flag) end();
}

void NSApplication::end() {
    terminating_ = true;
    tell("applicationWillTerminate:", "NSApplicationWillTerminateNotification");
    std::exit(velt::statusAfterCallbacks(EXIT_SUCCESS));
}

bool NSApplication::agreesToEnd() {
    static const Selector asks = Selector::named("applicationShouldTerminate:");
    if (terminating_ || !velt::respondsTo(delegate_, asks)) return true;
    const id answer = velt::send(delegate_, asks, id(this));
    // Who will tell later still asks somebody; the session does not wait for that.
    if (velt::isNumber(answer) && VELT_CINTEGER(answer) == kLater) return false;
    return VELT_CBOOL(answer) != 0;
}

namespace velt {

int runApplication(int (*program)(int, char**), int argumentCount, char** arguments) {
    static int (*started)(int, char**) = nullptr;
    started = program;
    return runProgram(
        [](int count, char** values) {
            NSApplication& application = NSApplication::sharedApplication();
            const int status = started(count, values);
            if (status == 0) application.run();
            return status;
        },
        argumentCount, arguments);
}

}  // namespace velt
