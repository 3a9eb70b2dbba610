// Shows a window until its input ends, and says when it comes to the front and goes back. "once" ends it then.
#include <VELTRuntime/VELTRuntimeUI.h>
#include <VELTRuntime/platform/foundation/run_loop.h>

#include <cstdio>
#include <unistd.h>

namespace {

using namespace velt;

class Watcher : public NSObject {
    VELT_OBJECT(Watcher, NSObject)

public:
    static void describe(ClassBuilder<Watcher>& c) {
        c.method("windowDidBecomeKey:", &Watcher::cameToTheFront).method("windowDidResignKey:", &Watcher::wentBack);
    }
    void wentBack(const id&) {
        std::puts("back");
        std::fflush(stdout);
    }
    void cameToTheFront(const id&) {
        std::puts("front");
        std::fflush(stdout);
        hasComeToTheFront = true;
        RunLoop::current().perform([] {});  // the loop below looks again
    }
    bool hasComeToTheFront = false;
};

int program(int count, char**) {
    const bool once = count > 1;
    const Ref<Watcher> watcher = make<Watcher>();
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_DELEGATE(window, watcher);
    VELT_NSWINDOW_FRAME(window, VELT_ID(NSRect{{100, 100}, {300, 200}}));
    VELT_NSWINDOW_SHOW(window);
    bool isOver = false;
    RunLoop::current().watch(STDIN_FILENO, [&] { isOver = true; });
    while (!isOver && !(once && watcher->hasComeToTheFront)) RunLoop::current().runOnce(60);
    RunLoop::current().unwatch(STDIN_FILENO);
    VELT_NSWINDOW_CLOSE(window);
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
