// An application that says what it hears and ends, or fails, in the way that its first argument names.
#include <VELTRuntime/VELTRuntimeUI.h>

#include "VELTRuntime/platform/foundation/thread.h"
#include <cstdio>
#include <filesystem>
#include <string>

namespace {

std::string way;

void say(const char* text) {
    std::puts(text);
    std::fflush(stdout);
}

class Delegate : public NSObject {
    VELT_OBJECT(Delegate, NSObject)

public:
    void willLaunch(const id&) { say("will finish launching"); }
    id openFile(const id&, const id& path) {
        say(("open " + std::filesystem::path(velt::utf8(path)).filename().string()).c_str());
        return VELT_ID(BOOL{1});
    }
    void didLaunch(const id&) {
        say("did finish launching");
        if (way == "raise") fail();
        if (way == "close") {
            VELT_NSWINDOW_CLOSE(window);
        } else if (way == "threads") {
            VELT_NSTHREAD_START(VELT_NSTHREAD_INIT(id(this), "work"));
        } else if (way != "stay") {
            VELT_NSTIMER_INIT(id(this), way == "raise later" ? "fail" : "end");
        }
    }
    id shouldTerminate(const id& application) {
        say("should terminate");
        ++asked;
        if (way == "refuse" && asked == 1) {
            VELT_NSTIMER_INIT(id(this), "end");
            return VELT_ID(BOOL{0});
        }
        if (way != "later") return VELT_ID(BOOL{1});
        VELT_NSAPPLICATION_TERMINATE(application, nil);  // it has been asked
        VELT_NSTIMER_INIT(id(this), "reply");
        return VELT_ID(2L);
    }
    void willTerminate(const id& notification) {
        say(velt::utf8(velt::send(notification, "name")).c_str());
        if (way == "threads") NSThread::sleep(0.02);
    }
    void end() { VELT_NSAPPLICATION_TERMINATE(id(&NSApplication::sharedApplication()), id(this)); }
    void reply() {
        say("reply");
        NSApplication::sharedApplication().replyToApplicationShouldTerminate(true);
    }
    void fail() {
        VELTS("application.bas", "Delegate.Fail", "5", "");
        VELT_CNSIMAGE(nil);
    }
    /// Floods the main thread, which ends meanwhile, and waits for it at last.
    void work() {
        const auto onMain = [this](const char* selector, bool wait) {
            VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(id(this), velt::string(std::string_view(selector)), nil,
                                                      VELT_ID(static_cast<BOOL>(wait)));
        };
        onMain("said", true);
        onMain("end", false);
        for (int i = 0; i < 1000; ++i) onMain("unsaid", false);
        onMain("unsaid", true);
    }
    void said() { say("said"); }
    void unsaid() {
        if (NSApplication::sharedApplication().isRunning() && asked > 0) say("said after the end");
    }
    static void describe(velt::ClassBuilder<Delegate>& c) {
        c.method("applicationWillFinishLaunching:", &Delegate::willLaunch)
            .method("applicationDidFinishLaunching:", &Delegate::didLaunch)
            .method("application:openFile:", &Delegate::openFile)
            .method("applicationShouldTerminate:", &Delegate::shouldTerminate)
            .method("applicationWillTerminate:", &Delegate::willTerminate)
            .method("end", &Delegate::end)
            .method("reply", &Delegate::reply)
            .method("fail", &Delegate::fail)
            .method("work", &Delegate::work)
            .method("said", &Delegate::said)
            .method("unsaid", &Delegate::unsaid)
            .property("window", &Delegate::window);
    }
    id window;
    int asked = 0;
};

int program(int, char**) {
    const velt::Ref<Delegate> delegate = velt::make<Delegate>();
    delegate->window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_FRAME(delegate->window, VELT_ID(NSRect{{500, 500}, {150, 122}}));
    VELT_NSWINDOW_SHOW(delegate->window);
    VELT_idAPPLICATION = id(&NSApplication::sharedApplication());
    velt::send(VELT_idAPPLICATION, "setDelegate:", id(delegate));
    say("main");
    return way == "status" ? 3 : 0;
}

}  // namespace

int main(int count, char** arguments) {
    way = count > 1 ? arguments[1] : "";
    return velt::runApplication(program, count, arguments);
}
