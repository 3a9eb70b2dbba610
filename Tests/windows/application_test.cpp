#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/displays.h"
#include "support/patience.h"
#include "support/processes.h"
#include "support/values.h"

#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/run_loop.h"

#include <QApplication>
#include <QFileOpenEvent>
#include <QMainWindow>
#include <QTest>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

using namespace velt::test;
using velt::Ref;

namespace {

id application() { return id(&NSApplication::sharedApplication()); }

/// Hears what the application and a window tell their delegate, and the notifications of the same names.
class Listener : public NSObject {
    VELT_OBJECT(Listener, NSObject)

public:
    void active(const id&) { heard += "active "; }
    void inactive(const id&) { heard += "inactive "; }
    void key(const id&) { heard += "key "; }
    void noKey(const id&) { heard += "no-key "; }
    void small(const id&) { heard += "small "; }
    void large(const id&) { heard += "large "; }
    void notified(const id& notification) { notes += velt::utf8(velt::send(notification, "name")) + " "; }
    id openFile(const id& sender, const id& path) {
        EXPECT_EQ(application(), sender);
        opened += velt::utf8(path) + " ";
        return boolean(true);
    }
    id shouldTerminate(const id&) {
        heard += "may-end ";
        return mayEnd;
    }
    static void describe(velt::ClassBuilder<Listener>& c) {
        c.method("applicationDidBecomeActive:", &Listener::active)
            .method("applicationDidResignActive:", &Listener::inactive)
            .method("windowDidBecomeKey:", &Listener::key)
            .method("windowDidResignKey:", &Listener::noKey)
            .method("windowDidMiniaturize:", &Listener::small)
            .method("windowDidDeminiaturize:", &Listener::large)
            .method("application:openFile:", &Listener::openFile)
            .method("applicationShouldTerminate:", &Listener::shouldTerminate)
            .method("notified:", &Listener::notified);
    }
    std::string heard, notes, opened;
    id mayEnd = boolean(false);
};

/// Another program with a window, until the end of its scope.
class OtherProgram {
public:
    OtherProgram() {
        std::string program = VELT_TEST_PROGRAMS "/application", way = "stay";
        char* words[] = {program.data(), way.data(), nullptr};
        posix_spawn_file_actions_t quiet;
        posix_spawn_file_actions_init(&quiet);
        posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        EXPECT_EQ(0, posix_spawn(&process_, program.c_str(), &quiet, nullptr, words, environ));
        posix_spawn_file_actions_destroy(&quiet);
    }
    ~OtherProgram() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    id number() const { return integer(process_); }

private:
    pid_t process_ = 0;
};

/// An application whose delegate listens, for one test.
class Applications : public ::testing::Test {
protected:
    Applications() { NSApplication::sharedApplication().setDelegate(listener); }
    ~Applications() override {
        NSApplication::sharedApplication().setDelegate(nil);
        for (const id& window : windows) VELT_NSWINDOW_CLOSE(window);
        if (!displayIsX11()) return;
        // The server still has news of these windows for the toolkit.
        QTest::qWait(50);
    }
    static bool becomesInactive() {
        return comesTrue([] { return !NSApplication::sharedApplication().isActive(); });
    }
    /// A window on the screen that has the keyboard.
    id keyWindow(double x = 100) {
        const id window = VELT_NSWINDOW_INIT(nil, "");
        VELT_NSWINDOW_FRAME(window, rect(x, 200, 200, 122));
        VELT_NSWINDOW_DELEGATE(window, listener);
        windows.push_back(window);
        VELT_NSWINDOW_SHOW(window);
        EXPECT_TRUE(becomesActive(&velt::as<NSWindow>(window)->widget()));
        return window;
    }
    const Ref<Listener> listener = velt::make<Listener>();
    std::vector<id> windows;
};

}  // namespace

TEST_F(Applications, KnowTheWindowWithTheKeyboard) {
    SKIP_UNLESS_WINDOWS_BECOME_ACTIVE();
    const id window = keyWindow();
    EXPECT_EQ(window, VELT_NSAPPLICATION_KEYWINDOW(application()));
    EXPECT_EQ(window, VELT_NSAPPLICATION_APPLICATIONICONIMAGE(application()));
    VELT_NSWINDOW_CLOSE(window);
    EXPECT_TRUE(comesTrue([] { return VELT_NSAPPLICATION_KEYWINDOW(application()).isNil(); }));
    EXPECT_TRUE(VELT_NSAPPLICATION_APPLICATIONICONIMAGE(application()).isNil());
}

TEST_F(Applications, GiveTheKeyWindowWhereTheirIconWasSet) {
    const Ref<NSImage> icon = velt::make<NSImage>(QImage(16, 16, QImage::Format_RGB32));
    EXPECT_TRUE(VELT_NSAPPLICATION_APPLICATIONICONIMAGE(application(), icon).isNil());
    EXPECT_EQ(id(icon), NSApplication::sharedApplication().applicationIconImage());
    EXPECT_FALSE(QApplication::windowIcon().isNull());
    EXPECT_FALSE(velt::is<NSImage>(VELT_NSAPPLICATION_APPLICATIONICONIMAGE(application())));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_NSAPPLICATION_APPLICATIONICONIMAGE(application(), integer(1)));
    EXPECT_EQ(id(icon), NSApplication::sharedApplication().applicationIconImage());
}

TEST_F(Applications, AnswerZeroWhenTheyAreNil) {
    EXPECT_TRUE(VELT_NSAPPLICATION_KEYWINDOW(nil).isNil());
    EXPECT_TRUE(VELT_NSAPPLICATION_CURRENTEVENT(nil).isNil());
    EXPECT_TRUE(VELT_NSAPPLICATION_MAINMENU(nil).isNil());
    EXPECT_TRUE(VELT_NSAPPLICATION_APPLICATIONICONIMAGE(nil).isNil());
    EXPECT_TRUE(VELT_NSAPPLICATION_TERMINATE(nil, nil).isNil());
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableString' does not understand 'terminate:'",
                  VELT_NSAPPLICATION_TERMINATE(str("none"), nil));
}

TEST_F(Applications, LeaveOtherApplicationsAsTheyAre) {
    EXPECT_TRUE(VELT_NSAPPLICATION_HIDEOTHERAPPLICATIONS(application(), nil).isNil());
    EXPECT_TRUE(VELT_NSAPPLICATION_UNHIDEALLAPPLICATIONS(application(), str("sender")).isNil());
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_NSAPPLICATION_ACTIVATEIGNORINGOTHERAPPS(application(), array()));
    EXPECT_TRUE(VELT_NSAPPLICATION_ACTIVATEIGNORINGOTHERAPPS(application(), boolean(true)).isNil());
}

TEST_F(Applications, GiveANegativeStatusForAProcessThatIsNotThere) {
    // The greatest number that a process can have is below it.
    EXPECT_VALUE("q -600", VELT_NSAPPLICATION_SHOWOTHERAPPLICATION(application(), integer(0x7FFFFFF0)));
    EXPECT_VALUE("q -600", VELT_NSAPPLICATION_SHOWOTHERAPPLICATION(application(), integer(-1)));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_NSAPPLICATION_SHOWOTHERAPPLICATION(application(), nil));
}

TEST_F(Applications, KnowTheWindowThatAPersonChooses) {
    if (!displayIsX11() || !displayHasWindowManager() || !Person::isThere()) GTEST_SKIP() << "nobody could choose";
    const id first = keyWindow(), second = keyWindow(400);
    EXPECT_EQ(second, VELT_NSAPPLICATION_KEYWINDOW(application()));
    chooseWindow(velt::as<NSWindow>(first)->widget());
    EXPECT_TRUE(comesTrue([&] { return VELT_NSAPPLICATION_KEYWINDOW(application()) == first; }));
}

TEST_F(Applications, BringAnotherProcessToTheFront) {
    if (!displayIsX11() || !displayHasWindowManager()) GTEST_SKIP() << "only X11's window managers are asked";
    const id window = keyWindow();
    const OtherProgram other;
    ASSERT_TRUE(becomesInactive());  // new windows come to the front
    VELT_NSAPPLICATION_ACTIVATEIGNORINGOTHERAPPS(application(), boolean(true));
    ASSERT_TRUE(becomesActive(&velt::as<NSWindow>(window)->widget()));
    EXPECT_TRUE(VELT_NSAPPLICATION_SHOWOTHERAPPLICATION(application(), other.number()).isNil());
    EXPECT_TRUE(becomesInactive());
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(window));
}

TEST_F(Applications, WaitForTheWindowOfAProcessThatHasJustBegun) {
    if (!displayIsX11() || !displayHasWindowManager()) GTEST_SKIP() << "only X11's window managers are asked";
    const OtherProgram other;
    EXPECT_TRUE(VELT_NSAPPLICATION_SHOWOTHERAPPLICATION(application(), other.number()).isNil());
}

TEST_F(Applications, HaveAnEmptyHelpMenuWhenAsked) {
    if (!velt::Class::known("NSMenu").canMakeObjects()) GTEST_SKIP() << "menus are not in this build";
    EXPECT_TRUE(VELT_NSAPPLICATION_HIDESPOTLIGHTFORHELP(application()).isNil());
    const id menu = VELT_mSuppressSpotlightForHelp;
    ASSERT_FALSE(menu.isNil());
    EXPECT_EQ(menu, NSApplication::sharedApplication().helpMenu());
    VELT_NSAPPLICATION_HIDESPOTLIGHTFORHELP(application());
    EXPECT_EQ(menu, VELT_mSuppressSpotlightForHelp);
}

TEST_F(Applications, OpenTheFilesThatTheDesktopHandsThem) {
    QFileOpenEvent event(QStringLiteral("/tmp/ä file"));
    QApplication::sendEvent(qApp, &event);
    EXPECT_EQ("/tmp/ä file ", listener->opened);
    NSApplication::sharedApplication().setDelegate(nil);
    EXPECT_FALSE(NSApplication::sharedApplication().openFile("/tmp/x"));
}

TEST_F(Applications, AskTheirDelegateWhenTheDesktopWantsThemToEnd) {
    EXPECT_FALSE(NSApplication::sharedApplication().agreesToEnd());
    QEvent quit(QEvent::Quit);
    QApplication::sendEvent(qApp, &quit);
    EXPECT_EQ("may-end may-end ", listener->heard);
    listener->mayEnd = boolean(true);
    EXPECT_TRUE(NSApplication::sharedApplication().agreesToEnd());
    listener->mayEnd = integer(2);  // it will tell later: the session must not end before
    EXPECT_FALSE(NSApplication::sharedApplication().agreesToEnd());
    NSApplication::sharedApplication().setDelegate(nil);
    EXPECT_TRUE(NSApplication::sharedApplication().agreesToEnd());
}

TEST_F(Applications, SayWhenTheyBecomeActiveAndWhenNoMore) {
    SKIP_UNLESS_WINDOWS_BECOME_ACTIVE();
    if (displayIsInMemory()) GTEST_SKIP() << "no other program is ever in front";
    for (const char* name : {"NSApplicationDidBecomeActiveNotification", "NSApplicationDidResignActiveNotification"}) {
        NSNotificationCenter::defaultCenter().addObserver(listener, velt::Selector::named("notified:"), str(name), nil);
    }
    ASSERT_TRUE(becomesInactive());
    listener->heard.clear();
    listener->notes.clear();
    keyWindow();
    ASSERT_TRUE(comesTrue([&] { return listener->heard.find("active ") != std::string::npos; }));
    EXPECT_EQ("NSApplicationDidBecomeActiveNotification ", listener->notes);
    const OtherProgram other;
    EXPECT_TRUE(comesTrue([&] { return listener->heard.find("inactive ") != std::string::npos; }));
    EXPECT_EQ("NSApplicationDidBecomeActiveNotification NSApplicationDidResignActiveNotification ", listener->notes);
    NSNotificationCenter::defaultCenter().removeObserver(listener);
}

TEST_F(Applications, HearWhichWindowHasTheKeyboard) {
    SKIP_UNLESS_WINDOWS_BECOME_ACTIVE();
    const id first = keyWindow(100);
    EXPECT_NE(std::string::npos, listener->heard.find("key "));
    EXPECT_VALUE("c 1", VELT_NSWINDOW_ISKEYWINDOW(first));
    listener->heard.clear();
    const id second = keyWindow(400);
    EXPECT_TRUE(comesTrue([&] { return listener->heard == "no-key key "; })) << listener->heard;
    EXPECT_VALUE("c 0", VELT_NSWINDOW_ISKEYWINDOW(first));
    EXPECT_EQ(second, VELT_NSAPPLICATION_KEYWINDOW(application()));
}

TEST_F(Applications, HearThatAWindowWasMiniaturizedAndCameBack) {
    SKIP_UNLESS_WINDOWS_CAN_BE_MINIATURIZED();
    const id window = keyWindow();
    listener->heard.clear();
    VELT_NSWINDOW_MINIATURIZE(window);
    EXPECT_TRUE(comesTrue([&] { return listener->heard.find("small ") != std::string::npos; }));
    EXPECT_VALUE("c 1", VELT_NSWINDOW_ISMINIATURIZED(window));
    EXPECT_VALUE("c 0", VELT_NSWINDOW_ISVISIBLE(window));
    VELT_NSWINDOW_DEMINIATURIZE(window);
    EXPECT_TRUE(comesTrue([&] { return listener->heard.find("large ") != std::string::npos; }));
    EXPECT_VALUE("c 0", VELT_NSWINDOW_ISMINIATURIZED(window));
    EXPECT_TRUE(comesTrue([&] { return VELT_CBOOL(VELT_NSWINDOW_ISVISIBLE(window)); }));
}

TEST_F(Applications, PutWindowsAwayThatHideWhenAnotherProgramIsInFront) {
    SKIP_UNLESS_WINDOWS_BECOME_ACTIVE();
    if (displayIsInMemory()) GTEST_SKIP() << "no other program is ever in front";
    const id panel = VELT_NSPANEL_INIT(nil, "");
    windows.push_back(panel);
    VELT_NSWINDOW_FRAME(panel, rect(400, 200, 100, 122));
    VELT_NSWINDOW_HIDESONDEACTIVATE(panel, boolean(true));
    const id window = keyWindow();
    VELT_NSWINDOW_ORDERFRONT(panel);
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(panel));
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationInactive);  // nothing changed: it is still active
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(panel));
    {
        const OtherProgram other;
        EXPECT_TRUE(comesTrue([&] { return !VELT_CBOOL(VELT_NSWINDOW_VISIBLE(panel)); }));
        EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(window));
    }
    VELT_NSAPPLICATION_ACTIVATEIGNORINGOTHERAPPS(application(), boolean(true));
    EXPECT_TRUE(comesTrue([&] { return VELT_CBOOL(VELT_NSWINDOW_VISIBLE(panel)) != 0; }));
}

TEST_F(Applications, LeaveWindowsClosedThatWereClosedWhileTheyWerePutAway) {
    SKIP_UNLESS_WINDOWS_BECOME_ACTIVE();
    if (displayIsInMemory()) GTEST_SKIP() << "no other program is ever in front";
    const id closed = VELT_NSPANEL_INIT(nil, ""), ordered = VELT_NSPANEL_INIT(nil, "");
    for (const id& panel : {closed, ordered}) {
        windows.push_back(panel);
        VELT_NSWINDOW_FRAME(panel, rect(400, 200, 100, 122));
        VELT_NSWINDOW_HIDESONDEACTIVATE(panel, boolean(true));
    }
    keyWindow();
    for (const id& panel : {closed, ordered}) VELT_NSWINDOW_ORDERFRONT(panel);
    {
        const OtherProgram other;
        ASSERT_TRUE(comesTrue([&] { return !VELT_CBOOL(VELT_NSWINDOW_VISIBLE(ordered)); }));
        VELT_NSWINDOW_CLOSE(closed);
        velt::send(ordered, "orderOut:", nil);
    }
    VELT_NSAPPLICATION_ACTIVATEIGNORINGOTHERAPPS(application(), boolean(true));
    ASSERT_TRUE(comesTrue([&] { return NSApplication::sharedApplication().isActive(); }));
    EXPECT_VALUE("c 0", VELT_NSWINDOW_VISIBLE(closed));
    EXPECT_VALUE("c 0", VELT_NSWINDOW_VISIBLE(ordered));
}

TEST_F(Applications, ShowAWindowWithoutContentAsItsTitleBar) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    windows.push_back(window);
    VELT_NSWINDOW_SHOW(window);
    EXPECT_TRUE(comesIntoView(&velt::as<NSWindow>(window)->widget()));
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(window));
}

TEST(Events, AreMadeWithoutTypeAndCharacters) {
    const id event = VELT_NSEVENT_INIT(str("ignored"), "ignored");
    ASSERT_TRUE(velt::is<NSEvent>(event));
    EXPECT_VALUE("{CGPoint=dd} {0, 0}", VELT_NSEVENT_LOCATIONINWINDOW(event));
    EXPECT_TRUE(VELT_NSEVENT_CHARACTERS(event).isNil());
    EXPECT_VALUE("q 0", VELT_NSEVENT_KEY(event));
    EXPECT_VALUE("q 0", VELT_NSEVENT_KEY(nil));
    EXPECT_VALUE("{CGPoint=dd} {0, 0}", VELT_NSEVENT_LOCATIONINWINDOW(nil));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableString' does not understand 'characters'",
                  VELT_NSEVENT_KEY(str("none")));
}

TEST(Events, TellTheFirstUnitOfTheirCharacters) {
    const auto eventOf = [](int key, const QString& text) {
        const QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        return id(NSEvent::ofKey(NSEvent::Type::KeyDown, event, nullptr));
    };
    EXPECT_VALUE("i 97", VELT_NSEVENT_KEY(eventOf(Qt::Key_A, QStringLiteral("a"))));
    EXPECT_VALUE("i 55357", VELT_NSEVENT_KEY(eventOf(0, QStringLiteral("😀"))));
    EXPECT_VALUE("i 63232", VELT_NSEVENT_KEY(eventOf(Qt::Key_Up, QString())));
    EXPECT_VALUE("q 0", VELT_NSEVENT_KEY(eventOf(Qt::Key_Shift, QString())));  // a modifier has no characters
    const id characters = VELT_NSEVENT_CHARACTERS(eventOf(Qt::Key_A, QStringLiteral("a")));
    EXPECT_VALUE("'a'", characters);
    const id smile = eventOf(0x1F600, QStringLiteral("😀"));
    EXPECT_VALUE("'😀'", velt::send(smile, "charactersIgnoringModifiers"));
}

namespace {

ProgramResult runApplication(std::vector<std::string> arguments) { return runProgram("application", arguments); }

constexpr const char* kLaunch = "main\nwill finish launching\ndid finish launching\n";
constexpr const char* kEnd = "should terminate\nNSApplicationWillTerminateNotification\n";

}  // namespace

TEST(ProgramsWithWindows, AreToldOfTheirLaunchTheirFilesAndTheirEnd) {
    const TemporaryFolder folder;
    const std::string file = folder.write("a file.txt", "");
    ProgramResult result = runApplication({"end", file, "--option", folder.file("missing"), ""});
    EXPECT_EQ("main\nwill finish launching\nopen a file.txt\ndid finish launching\n" + std::string(kEnd),
              result.output);
    EXPECT_EQ("", result.errors);
    EXPECT_EQ(0, result.status);
}

TEST(ProgramsWithWindows, EndWhenTheirLastWindowIsClosed) {
    const ProgramResult result = runApplication({"close"});
    EXPECT_EQ(std::string(kLaunch) + kEnd, result.output);
    EXPECT_EQ(0, result.status);
}

TEST(ProgramsWithWindows, StayWhenTheirDelegateRefusesTheEnd) {
    const ProgramResult result = runApplication({"refuse"});
    EXPECT_EQ(std::string(kLaunch) + "should terminate\n" + kEnd, result.output);
    EXPECT_EQ(0, result.status);
}

TEST(ProgramsWithWindows, EndLaterWhenTheirDelegateHasThoughtAboutIt) {
    const ProgramResult result = runApplication({"later"});
    EXPECT_EQ(std::string(kLaunch) + "should terminate\nreply\nNSApplicationWillTerminateNotification\n",
              result.output);
    EXPECT_EQ(0, result.status);
}

TEST(ProgramsWithWindows, EndWithTheStatusOfTheirMainFunction) {
    const ProgramResult result = runApplication({"status"});
    EXPECT_EQ("main\n", result.output);
    EXPECT_EQ(3, result.status);
}

TEST(ProgramsWithWindows, ReportWhatTheirCallbacksRaise) {
    for (const char* way : {"raise", "raise later"}) {
        const ProgramResult result = runApplication({way});
        EXPECT_EQ(kLaunch, result.output);
        EXPECT_EQ("application.bas:5: in Delegate.Fail: VLCastException: 'NSImage' expected\n", result.errors);
        EXPECT_EQ(1, result.status);
    }
}

TEST(ProgramsWithWindows, EndWhileThreadsWaitForTheMainOne) {
    const ProgramResult result = runApplication({"threads"});
    EXPECT_EQ(std::string(kLaunch) + "said\n" + kEnd, result.output);
    EXPECT_EQ("", result.errors);
    EXPECT_EQ(0, result.status);
}
