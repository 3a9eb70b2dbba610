#include "VELTRuntime/platform/appkit/panels/modal_session.h"

#include "VELTRuntime/platform/appkit/application.h"

#include <QEventLoop>
#include <QMainWindow>

namespace velt {

namespace {

ModalSession* innermostSession = nullptr;

/// While it exists, a window is modal for the whole program. The toolkit takes over a change when it shows a window.
class ModalLook {
public:
    explicit ModalLook(NSWindow& window) : window_(&window), before_(window.widget().windowModality()) {
        if (before_ != Qt::ApplicationModal) {
            window.widget().hide();
            window.widget().setWindowModality(Qt::ApplicationModal);
        }
        window.makeKeyAndOrderFront(nil);
    }
    ~ModalLook() {
        QWidget* widget = window_->existingWidget();
        if (!widget || before_ == Qt::ApplicationModal) return;
        const bool wasVisible = widget->isVisible();
        widget->hide();
        widget->setWindowModality(before_);
        if (wasVisible) widget->show();
    }
    ModalLook(const ModalLook&) = delete;
    ModalLook& operator=(const ModalLook&) = delete;

private:
    const Ref<NSWindow> window_;
    const Qt::WindowModality before_;
};

}  // namespace

ModalSession::ModalSession(NSWindow* window) : window_(window), outer_(std::exchange(innermostSession, this)) {
    if (window) follow(window);
}

ModalSession::~ModalSession() { innermostSession = outer_; }

ModalSession* ModalSession::innermost() { return innermostSession; }

long ModalSession::run() {
    QEventLoop loop;
    loop_ = &loop;
    if (!stopped_) loop.exec();
    loop_ = nullptr;
    return code_;
}

void ModalSession::stop(long code) {
    code_ = code;
    stopped_ = true;
    if (loop_) loop_->quit();
}

void ModalSession::leaderChanged(LeaderChange change) {
    // Nobody could answer any more.
    if (change == LeaderChange::Closed && !stopped_) stop(kModalAborted);
}

}  // namespace velt

using velt::ModalSession;

long NSApplication::runModalForWindow(NSWindow* window) {
    if (!window) return velt::kModalAborted;
    const id keyBefore = keyWindow();
    long code = velt::kModalAborted;
    {
        ModalSession session(window);
        const velt::ModalLook look(*window);
        code = session.run();
    }
    // Not every window manager gives the keyboard back.
    if (!window->isVisible() && !keyBefore.isNil()) velt::as<NSWindow>(keyBefore)->makeKeyWindow();
    return code;
}

void NSApplication::stopModal() { stopModalWithCode(velt::kModalStopped); }
void NSApplication::abortModal() { stopModalWithCode(velt::kModalAborted); }
void NSApplication::stopModalWithCode(long code) {
    if (ModalSession* session = ModalSession::innermost()) session->stop(code);
}

id NSApplication::modalWindow() const {
    const ModalSession* session = ModalSession::innermost();
    return session && session->window() ? velt::boxResult(session->window()) : nil;
}
