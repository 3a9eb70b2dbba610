// The application: its windows, the event being handled, actions on their way to whoever answers them, its end.
#pragma once

#include "VELTRuntime/platform/appkit/window.h"

#include <string>
#include <string_view>
#include <vector>

class VELT_EXPORT NSApplication : public NSResponder {
    VELT_OBJECT(NSApplication, NSResponder)
public:
    /// The one application object; the toolkit's is made with it.
    static NSApplication& sharedApplication();

    /// The window that has the keyboard; nil when another program has it.
    id keyWindow() const;
    id mainWindow() const;
    /// New array of the windows on the screen, those in front last.
    id windows() const;
    id currentEvent() const { return currentEvent_; }
    id mainMenu() const { return mainMenu_; }
    /// Shows the menu in the menu bar of each window.
    void setMainMenu(const id& menu);
    id helpMenu() const { return helpMenu_; }
    void setHelpMenu(const id& menu) { helpMenu_ = menu; }
    id applicationIconImage() const { return icon_; }
    void setApplicationIconImage(const id& image);
    id delegate() const { return delegate_; }
    void setDelegate(const id& delegate) { delegate_ = delegate; }

    /// Sends an action with its sender when the selector takes one. Without a target the responder chain of the key
    /// window is asked, then the window, its delegate, the application and its delegate. False when nobody answers.
    bool sendAction(velt::Selector action, const id& target, const id& sender);
    /// Who would answer that action now; nil when nobody.
    id targetForAction(velt::Selector action, const id& target, const id& sender) const;

    /// Delivers events until stop: or the application's end.
    void run();
    void stop(const id& sender);
    /// Asks the delegate, tells everyone, and ends the process with status 0. Messages that wait for the main thread at
    /// that moment are not sent any more, and nobody waits for threads.
    void terminate(const id& sender);
    /// The answer of a delegate that wanted to think about it: it said 2 when it was asked.
    void replyToApplicationShouldTerminate(bool flag);
    /// The delegate opens a file (absolute path in UTF-8); false when it does not.
    bool openFile(const std::string& path);
    /// The desktop's session is about to end; false when the delegate wants the program to stay, or to tell later.
    bool agreesToEnd();
    void activateIgnoringOtherApps(bool flag);
    bool isActive() const;
    bool isRunning() const { return running_; }
    /// Desktops give no program the right to hide or show others: nothing happens.
    void hideOtherApplications(const id&) {}
    void unhideAllApplications(const id&) {}

    // Dialogs. Their codes are the program's own, or those of panels/modal_session.h.
    /// Shows a window, and delivers events to it alone until the session is stopped; returns the code. Sessions nest:
    /// a callback may run another one, and stopping ends the innermost. A window that is closed aborts its session.
    /// null is answered at once, as if aborted.
    long runModalForWindow(NSWindow* window);
    void stopModal();
    void stopModalWithCode(long code);
    void abortModal();
    /// The window of the innermost session; nil without one.
    id modalWindow() const;
    /// Attaches a window to another one as its sheet, and returns. The sheet keeps a person from that other window
    /// until it is ended; then the delegate is sent the message with the sheet, the code and the context. A window with
    /// a sheet shows a further one when the first has ended. Without another window the sheet stands alone before all.
    void beginSheet(NSWindow* sheet, NSWindow* window, const id& delegate, const id& didEnd, const id& context);
    void endSheet(NSWindow* sheet);
    /// The sheet stays on the screen unless the delegate orders it out.
    void endSheetReturningCode(NSWindow* sheet, long code);

    // The windows' reports.
    void windowOpens(NSWindow& window);
    void windowCloses(NSWindow& window);
    /// The window left the screen only until this program is the one in front again.
    bool hasPutAway(const NSWindow& window) const;
    void windowBecomesKey(NSWindow& window);
    static void describe(velt::ClassBuilder<NSApplication>& c);

    NSApplication();

private:
    friend class velt::ClassBuilder<NSApplication>;
    friend struct CurrentEventSetter;
    void tell(std::string_view delegateSelector, std::string_view notification);
    void finishLaunching();
    void openFilesOfCommandLine();
    void end();
    void watchDesktop();
    void activityChanged();

    std::vector<velt::Ref<NSWindow>> open_;  // what is on the screen lives as long as it is there
    id currentEvent_, mainMenu_, helpMenu_, icon_, delegate_;
    std::vector<velt::Ref<NSWindow>> hiddenWhileInactive_;
    bool running_ = false, launched_ = false, terminating_ = false, asksDelegate_ = false, wasActive_ = false;
};

struct VELT_EXPORT CurrentEventSetter {
    static id exchange(const id& event);
};

namespace velt {

/// While it exists, an event is the application's current one.
class CurrentEvent {
public:
    explicit CurrentEvent(const id& event) : before_(CurrentEventSetter::exchange(event)) {}
    ~CurrentEvent() { CurrentEventSetter::exchange(before_); }
    CurrentEvent(const CurrentEvent&) = delete;
    CurrentEvent& operator=(const CurrentEvent&) = delete;

private:
    id before_;
};

/// Runs a program with windows: its main function, then the application's events until its end. Returns the status
/// for the operating system; the main function's own when it is not 0.
VELT_EXPORT int runApplication(int (*program)(int, char**), int argumentCount, char** arguments);

}  // namespace velt
