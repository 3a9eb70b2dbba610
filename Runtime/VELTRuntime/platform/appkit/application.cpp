#include "VELTRuntime/platform/appkit/application.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/controls/inner_editor.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/menus/menu_bar.h"
#include "VELTRuntime/platform/appkit/panel.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/id_of.h"
#include "VELTRuntime/values/string.h"

#include <QApplication>
#include <QIcon>
#include <QMainWindow>
#include <algorithm>

using velt::Ref;
using velt::RunLoop;
using velt::Selector;

namespace {

void take(std::vector<Ref<NSWindow>>& windows, const NSWindow& window) {
    std::erase_if(windows, [&window](const Ref<NSWindow>& each) { return each.get() == &window; });
}

}  // namespace

NSApplication::NSApplication() {
    velt::requireApplicationObject("the application");
    watchDesktop();
}

NSApplication& NSApplication::sharedApplication() {
    // Leaked: windows may go after static objects.
    static NSApplication& shared = *velt::make<NSApplication>().release();
    return shared;
}

id NSApplication::keyWindow() const {
    for (const Ref<NSWindow>& window : open_) {
        if (window->isKeyWindow()) return window;
    }
    return nil;
}

id NSApplication::mainWindow() const {
    id key = keyWindow();
    if (!key.isNil() && !velt::is<NSPanel>(key)) return key;
    for (auto at = open_.rbegin(); at != open_.rend(); ++at) {
        if (!velt::is<NSPanel>(id(*at))) return *at;
    }
    return nil;
}

id NSApplication::windows() const {
    Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (const Ref<NSWindow>& window : open_) list->append(window);
    return list;
}

void NSApplication::setMainMenu(const id& menu) {
    if (menu == mainMenu_) return;
    velt::hideMainMenu(std::exchange(mainMenu_, menu));
    for (const Ref<NSWindow>& window : open_) velt::showMainMenu(*window);
}

void NSApplication::setApplicationIconImage(const id& image) {
    icon_ = image;
    if (velt::is<NSImage>(image)) {
        QApplication::setWindowIcon(QIcon(QPixmap::fromImage(velt::as<NSImage>(image)->picture())));
    }
}

id NSApplication::targetForAction(Selector action, const id& target, const id&) const {
    if (!target.isNil()) return velt::respondsTo(target, action) ? target : id();
    for (const id& window : {keyWindow(), mainWindow()}) {
        if (window.isNil()) continue;
        const auto& asked = *velt::as<NSWindow>(window);
        const id editor = velt::innerEditorIn(asked);
        id answers = velt::findResponder(editor.isNil() ? asked.firstResponder() : editor,
                                         [action](const id& each) { return velt::respondsTo(each, action); });
        if (!answers.isNil()) return answers;
        if (velt::respondsTo(window, action)) return window;
        if (velt::respondsTo(asked.delegate(), action)) return asked.delegate();
    }
    if (velt::respondsTo(velt::idOf(this), action)) return velt::idOf(this);
    return velt::respondsTo(delegate_, action) ? delegate_ : id();
}

bool NSApplication::sendAction(Selector action, const id& target, const id& sender) {
    if (!action) return false;
    const id answers = targetForAction(action, target, sender);
    if (answers.isNil()) return false;
    if (action.argumentCount() == 0) {
        velt::send(answers, action);
    } else if (action.argumentCount() == 1) {
        velt::send(answers, action, sender);
    } else {
        return false;
    }
    return true;
}

void NSApplication::tell(std::string_view delegateSelector, std::string_view notification) {
    velt::tellDelegateAndObservers(delegate_, delegateSelector, notification, velt::idOf(this));
}

void NSApplication::activateIgnoringOtherApps(bool flag) {
    const id window = mainWindow();
    if (!window.isNil() && (flag || isActive())) velt::as<NSWindow>(window)->makeKeyAndOrderFront(nil);
}

void NSApplication::windowOpens(NSWindow& window) {
    take(open_, window);
    take(hiddenWhileInactive_, window);
    open_.emplace_back(&window);
}

bool NSApplication::hasPutAway(const NSWindow& window) const {
    return std::any_of(hiddenWhileInactive_.begin(), hiddenWhileInactive_.end(),
                       [&window](const Ref<NSWindow>& each) { return each.get() == &window; });
}

void NSApplication::windowCloses(NSWindow& window) {
    take(open_, window);
    take(hiddenWhileInactive_, window);
    if (!window.endsProgramWhenLast()) return;
    const bool anyLeft = std::any_of(open_.begin(), open_.end(), [](const Ref<NSWindow>& open) {
        return open->isVisible() || open->isMiniaturized();
    });
    if (anyLeft || !running_) return;
    // A program without windows would have no way to be ended; its delegate may want it to stay.
    static const Selector asks = Selector::named("applicationShouldTerminateAfterLastWindowClosed:");
    if (velt::respondsTo(delegate_, asks) && !VELT_CBOOL(velt::send(delegate_, asks, velt::idOf(this)))) return;
    const Ref<NSApplication> kept(this);
    RunLoop::main().perform([kept] {
        if (kept->open_.empty()) kept->terminate(nil);
    });
}

void NSApplication::windowBecomesKey(NSWindow& window) {
    // The toolkit tells the window that gets the keyboard first; programs expect to hear of the other one's loss
    // before.
    const std::vector<Ref<NSWindow>> open = open_;
    for (const Ref<NSWindow>& other : open) {
        if (other.get() != &window) other->activationChanged(false);
    }
}

id CurrentEventSetter::exchange(const id& event) {
    return std::exchange(NSApplication::sharedApplication().currentEvent_, event);
}

void NSApplication::describe(velt::ClassBuilder<NSApplication>& c) {
    c.property("keyWindow", &NSApplication::keyWindow)
        .property("mainWindow", &NSApplication::mainWindow)
        .property("windows", &NSApplication::windows)
        .property("currentEvent", &NSApplication::currentEvent)
        .property("mainMenu", &NSApplication::mainMenu, &NSApplication::setMainMenu)
        .property("helpMenu", &NSApplication::helpMenu, &NSApplication::setHelpMenu)
        .property("applicationIconImage", &NSApplication::applicationIconImage, &NSApplication::setApplicationIconImage)
        .property("delegate", &NSApplication::delegate, &NSApplication::setDelegate)
        .method("isActive", &NSApplication::isActive)
        .method("isRunning", &NSApplication::isRunning)
        .method("run", &NSApplication::run)
        .method("stop:", &NSApplication::stop)
        .method("terminate:", &NSApplication::terminate)
        .method("replyToApplicationShouldTerminate:", &NSApplication::replyToApplicationShouldTerminate)
        .method("activateIgnoringOtherApps:", &NSApplication::activateIgnoringOtherApps)
        .method("hideOtherApplications:", &NSApplication::hideOtherApplications)
        .method("unhideAllApplications:", &NSApplication::unhideAllApplications)
        .property("modalWindow", &NSApplication::modalWindow)
        .method("runModalForWindow:", &NSApplication::runModalForWindow)
        .method("stopModal", &NSApplication::stopModal)
        .method("stopModalWithCode:", &NSApplication::stopModalWithCode)
        .method("abortModal", &NSApplication::abortModal)
        .method("beginSheet:modalForWindow:modalDelegate:didEndSelector:contextInfo:", &NSApplication::beginSheet)
        .method("endSheet:", &NSApplication::endSheet)
        .method("endSheet:returnCode:", &NSApplication::endSheetReturningCode)
        .method("sendAction:to:from:",
                [](const id& self, const id* a) {
                    const Selector action = Selector::named(velt::utf8(VELT_CSTRING(a[0])));
                    return velt::boxResult(velt::as<NSApplication>(self)->sendAction(action, a[1], a[2]));
                })
        .classMethod("sharedApplication",
                     [](const id&, const id*) { return velt::idOf(&NSApplication::sharedApplication()); })
        .owns(&NSApplication::currentEvent_)
        .owns(&NSApplication::mainMenu_)
        .owns(&NSApplication::helpMenu_)
        .owns(&NSApplication::icon_)
        .owns(&NSApplication::delegate_);
}
