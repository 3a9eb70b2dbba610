#include "VELTRuntime/platform/appkit/window_controller.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/foundation/bundle.h"
#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/foundation/interface_loader.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/string.h"

#include <QFile>
#include <unistd.h>

using velt::Ref;

namespace {

/// Why the file could not be loaded; empty when it was.
std::string load(const std::string& name, const id& owner) {
    const std::string own = NSBundle::mainBundle().resourcePath() + "/" + name + ".ui";
    if (access(own.c_str(), F_OK) == 0) return velt::loadInterface(own, owner);
    QFile shipped(QStringLiteral(":/VELTRuntime/") + QString::fromStdString(name) + QStringLiteral(".ui"));
    if (!shipped.open(QIODevice::ReadOnly)) return "there is no " + own;
    return velt::loadInterfaceText(shipped.readAll().toStdString(), name + ".ui", owner);
}

}  // namespace

NSWindowController::~NSWindowController() = default;

id NSWindowController::initWithWindow(const id& window) {
    id made = self();
    setWindow(window);
    return made;
}

id NSWindowController::initWithWindowNibName(const id& name) {
    const id text = VELT_CSTRING(name);
    id made = velt::send(self(), VELT_SELECTOR("initWithWindow:"), nil);
    if (velt::is<NSWindowController>(made)) velt::as<NSWindowController>(made)->nibName_ = text;
    return made;
}

id NSWindowController::window() {
    if (window_.isNil() && !nibName_.isNil() && !loaded_) velt::send(self(), VELT_SELECTOR("loadWindow"));
    return window_;
}

void NSWindowController::setWindow(const id& window) {
    NSWindow* shown = velt::to<NSWindow>(window);
    const Ref<NSWindow> before(windowPointer());
    if (before.get() == shown) return;
    const id own = self();
    if (before && before->nextResponder() == own) before->setNextResponder(nil);
    window_ = window;
    // Commands that nobody in the window takes come to its controller.
    if (shown) shown->setNextResponder(own);
}

void NSWindowController::loadWindow() {
    if (nibName_.isNil() || loaded_) return;
    const Ref<NSWindowController> kept(this);
    velt::requireApplicationObject("a window");
    loaded_ = true;  // what happens meanwhile begins no second reading
    const id own = self();
    try {
        velt::send(own, VELT_SELECTOR("windowWillLoad"));
        const std::string failure = load(velt::utf8(nibName_), own);
        if (!failure.empty()) {
            velt::raise(velt::kInternalInconsistencyException,
                        "The window of '" + isa().name() + "' cannot be loaded: " + failure);
        }
    } catch (...) {
        loaded_ = false;
        throw;
    }
    velt::send(own, VELT_SELECTOR("windowDidLoad"));
}

void NSWindowController::showWindow(const id& sender) {
    const id shown = velt::send(self(), VELT_SELECTOR("window"));
    if (velt::is<NSWindow>(shown)) velt::as<NSWindow>(shown)->makeKeyAndOrderFront(sender);
}

void NSWindowController::close() {
    const Ref<NSWindow> shown(windowPointer());
    if (shown) shown->close();
}

void NSWindowController::describe(velt::ClassBuilder<NSWindowController>& c) {
    c.property("window", &NSWindowController::window, &NSWindowController::setWindow)
        .property("windowNibName", &NSWindowController::windowNibName)
        .method("initWithWindow:", &NSWindowController::initWithWindow)
        .method("initWithWindowNibName:", &NSWindowController::initWithWindowNibName)
        .method("isWindowLoaded", &NSWindowController::isWindowLoaded)
        .method("loadWindow", &NSWindowController::loadWindow)
        .method("windowWillLoad", &NSWindowController::windowWillLoad)
        .method("windowDidLoad", &NSWindowController::windowDidLoad)
        .method("showWindow:", &NSWindowController::showWindow)
        .method("close", &NSWindowController::close)
        .owns(&NSWindowController::window_)
        .owns(&NSWindowController::nibName_);
}
