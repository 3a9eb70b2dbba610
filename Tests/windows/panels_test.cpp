// Message boxes, alerts, the input panel and modal sessions.
#include "panels_support.h"

#include "VELTRuntime/platform/object/cycles.h"

#include <QScreen>

using namespace velt::test;
using velt::Ref;

namespace {

/// Answers the next alert with a key, and notes what it showed.
void answerWith(Qt::Key key, std::string& seen) {
    onceAsked([key, &seen](NSWindow& panel) {
        seen = readAlert(panel);
        pressKey(panel, key);
    });
}

/// Presses a button of the next alert.
void press(const char* title) {
    onceAsked([title](NSWindow& panel) { clickButton(panel, title); });
}

class RaisingTarget : public NSObject {
    VELT_OBJECT(RaisingTarget, NSObject)

public:
    void click(const id&) {
        VELTS("callback.bas", "Form.Click", "12", "");
        velt::raise("VLException", "in the callback");
    }
    static void describe(velt::ClassBuilder<RaisingTarget>& c) { c.method("click:", &RaisingTarget::click); }
};

/// A program whose button raises while its window runs modally.
[[noreturn]] void raiseInASession() {
    const ControlWindow window;
    const Ref<RaisingTarget> target = velt::make<RaisingTarget>();
    const id button = VELT_PUSHBUTTON_INIT(target, "click:");
    VELT_NSVIEW_FRAME(button, rect(10, 10, 100, 30));
    VELT_NSWINDOW_APPEND(window.window, button);
    onceAsked([&](NSWindow& shown) {
        clickAt(velt::as<NSView>(button)->widget());
        VELT_ENDMODAL(integer(modalWindow() == &shown ? 5 : 6));
    });
    const bool ended = show(VELT_BEGINMODAL(window.window)) == "q 5" && !modalWindow();
    std::fprintf(stderr, "%s", ended ? "session in order\n" : "session lost\n");
    NSApplication::sharedApplication().terminate(nil);
    std::abort();
}

}  // namespace

TEST(MessageBoxes, ShowTheTitleAboveTheMessage) {
    std::string seen;
    answerWith(Qt::Key_Return, seen);
    EXPECT_VALUE("q 1", VELT_MSGBOX("Title"_v, "Message"_v));
    EXPECT_EQ("Title|Message|[OK]", seen);
}

TEST(MessageBoxes, AreUntitledWithNilAsTheMessage) {
    std::string seen;
    answerWith(Qt::Key_Return, seen);
    EXPECT_VALUE("q 1", VELT_MSGBOX("Only this"_v, nil));
    EXPECT_EQ("-|Only this|[OK]", seen);
}

TEST(MessageBoxes, ShowTheWordNilAboveATextForNilAsTheTitle) {
    std::string seen;
    answerWith(Qt::Key_Return, seen);
    EXPECT_VALUE("q 1", VELT_MSGBOX(nil, "text"_v));
    EXPECT_EQ("Nil|text|[OK]", seen);
    answerWith(Qt::Key_Return, seen);
    VELT_MSGBOX(nil, nil);
    EXPECT_EQ("-|Nil|[OK]", seen);
}

TEST(MessageBoxes, OfOneArgumentHaveNoTitle) {
    std::string seen;
    answerWith(Qt::Key_Return, seen);
    EXPECT_VALUE("q 1", VELT__MSGBOX(integer(5)));
    EXPECT_EQ("-|5|[OK]", seen);
    answerWith(Qt::Key_Return, seen);
    VELT__MSGBOX(nil);
    EXPECT_EQ("-|Nil|[OK]", seen);
}

TEST(MessageBoxes, ShowPercentSignsAsTheyAre) {
    std::string seen;
    answerWith(Qt::Key_Return, seen);
    VELT_MSGBOX("100%"_v, "50%% of %@"_v);
    EXPECT_EQ("100%|50%% of %@|[OK]", seen);
}

TEST(MessageBoxes, NameTheirWindowByTheTitle) {
    std::string title, role;
    onceAsked([&](NSWindow& panel) {
        title = velt::utf8(panel.title());
        role =
            panel.widget().accessibleName().toStdString() + "/" + panel.widget().accessibleDescription().toStdString();
        pressKey(panel, Qt::Key_Return);
    });
    VELT_MSGBOX("Name"_v, "Text"_v);
    EXPECT_EQ("Name", title);
    EXPECT_EQ("Name/Text", role);
}

TEST(AlertPanels, GiveOneForTheDefaultButtonZeroForTheAlternateMinusOneForTheOther) {
    press("Save");
    EXPECT_VALUE("q 1", VELT_ALERTPANEL("T"_v, "M"_v, "Save"_v, "Cancel"_v, "Discard"_v));
    press("Cancel");
    EXPECT_VALUE("q 0", VELT_ALERTPANEL("T"_v, "M"_v, "Save"_v, "Cancel"_v, "Discard"_v));
    press("Discard");
    EXPECT_VALUE("q -1", VELT_ALERTPANEL("T"_v, "M"_v, "Save"_v, "Cancel"_v, "Discard"_v));
}

TEST(AlertPanels, AreAnsweredByReturnAndEscape) {
    std::string seen;
    for (const auto panel : {VELT_ALERTPANEL, VELT_INFORMATIONALALERTPANEL, VELT_CRITICALALERTPANEL}) {
        answerWith(Qt::Key_Return, seen);
        EXPECT_VALUE("q 1", panel("T"_v, "M"_v, "Yes"_v, "Cancel"_v, nil));
        EXPECT_EQ("T|M|[Yes][Cancel]", seen);
        answerWith(Qt::Key_Escape, seen);
        EXPECT_VALUE("q 0", panel("T"_v, "M"_v, "Yes"_v, "Cancel"_v, nil));
        answerWith(Qt::Key_Escape, seen);
        EXPECT_VALUE("q -1", panel("T"_v, "M"_v, "Yes"_v, "No"_v, "Cancel"_v));
    }
}

TEST(AlertPanels, AreWorkedWithTheTabKey) {
    onceAsked([](NSWindow& panel) {
        pressKey(panel, Qt::Key_Tab);
        pressKey(panel, Qt::Key_Space);
    });
    EXPECT_VALUE("q 0", VELT_ALERTPANEL("T"_v, "M"_v, "Yes"_v, "No"_v, "Maybe"_v));
}

TEST(AlertPanels, ShowTheWordNilForNilAndThePlatformsSingleButton) {
    std::string seen;
    answerWith(Qt::Key_Return, seen);
    EXPECT_VALUE("q 1", VELT_ALERTPANEL(nil, nil, nil, nil, nil));
    EXPECT_EQ("Nil|Nil|[OK]", seen);
    answerWith(Qt::Key_Return, seen);
    EXPECT_VALUE("q 1", VELT_INFORMATIONALALERTPANEL(nil, nil, nil, nil, nil));
    EXPECT_EQ("Nil|Nil|[OK]", seen);
}

TEST(AlertPanels, LeaveOutNilButtons) {
    std::string seen;
    answerWith(Qt::Key_Return, seen);
    EXPECT_VALUE("q -1", VELT_ALERTPANEL("T"_v, "M"_v, nil, nil, "Last"_v));
    EXPECT_EQ("T|M|[Last]", seen);
    answerWith(Qt::Key_Return, seen);
    EXPECT_VALUE("q 0", VELT_ALERTPANEL("T"_v, "M"_v, nil, "Second"_v, integer(3)));
    EXPECT_EQ("T|M|[Second][3]", seen);
}

// The asymmetry is kept: programs rely on it.
TEST(CriticalAlertPanels, TakeTitleAndMessageAsTheyAre) {
    const std::string failure = raised([] { VELT_CSTRING(nil); });
    EXPECT_EQ("VLException: nil has no text: a string cannot be made from it", failure);
    EXPECT_RAISES(failure, VELT_CRITICALALERTPANEL(nil, "M"_v, nil, nil, nil));
    EXPECT_RAISES(failure, VELT_CRITICALALERTPANEL("T"_v, nil, nil, nil, nil));
    EXPECT_EQ(nullptr, modalWindow());
}

TEST(AlertPanels, ShowTheirGradeByTheIcon) {
    std::vector<QImage> icons;
    const auto keep = [&] {
        onceAsked([&](NSWindow& panel) {
            icons.push_back(panel.widget().findChild<QLabel*>(QStringLiteral("icon"))->pixmap().toImage());
            keepPicture(panel.widget(), ("alert-" + std::to_string(icons.size())).c_str());
            pressKey(panel, Qt::Key_Return);
        });
    };
    keep();
    VELT_ALERTPANEL("Save the changes?"_v, "They are lost when you do not save them."_v, "Save"_v, "Cancel"_v,
                    "Discard"_v);
    keep();
    VELT_INFORMATIONALALERTPANEL("T"_v, "M"_v, nil, nil, nil);
    keep();
    VELT_CRITICALALERTPANEL("T"_v, "M"_v, nil, nil, nil);
    ASSERT_EQ(3u, icons.size());
    EXPECT_NE(icons[0], icons[1]);
    EXPECT_NE(icons[1], icons[2]);
    EXPECT_NE(icons[0], icons[2]);
}

TEST(AlertPanels, KeepALongTextWithinTheScreen) {
    std::u16string text;
    for (int i = 0; i < 400; ++i) text += u"one more line of a very long message\n";
    double height = 0;
    onceAsked([&](NSWindow& panel) {
        height = panel.frame().size.height;
        pressKey(panel, Qt::Key_Return);
    });
    VELT_MSGBOX("Long"_v, velt::string(text));
    EXPECT_GT(height, 100);
    EXPECT_LE(height, QGuiApplication::primaryScreen()->availableGeometry().height());
}

TEST(AlertPanels, AreNotClosedButCancelled) {
    onceAsked([](NSWindow& panel) { panel.widget().close(); });
    EXPECT_VALUE("q 0", VELT_ALERTPANEL("T"_v, "M"_v, "Yes"_v, "Cancel"_v, nil));
    onceAsked([](NSWindow& panel) {
        panel.widget().close();
        EXPECT_TRUE(panel.isVisible());
        pressKey(panel, Qt::Key_Return);
    });
    EXPECT_VALUE("q 1", VELT_ALERTPANEL("T"_v, "M"_v, "Yes"_v, nil, nil));
}

TEST(InputPanels, GiveTheTextThatWasTyped) {
    std::string seen, first;
    onceAsked([&](NSWindow& panel) {
        seen = readAlert(panel);
        auto* field = panel.widget().findChild<QLineEdit*>();
        ASSERT_NE(nullptr, field);
        first = field->text().toStdString();
        keepPicture(panel.widget(), "input");
        for (const char key : std::string("New")) QTest::keyClick(panel.widget().windowHandle(), key);
        pressKey(panel, Qt::Key_Return);
    });
    const id text = VELT_INPUTPANEL("Name"_v, "Give 100%% of it"_v, "Old"_v);
    EXPECT_VALUE("'New'", text);
    EXPECT_EQ("Name|Give 100% of it|[OK][Cancel]", seen);
    EXPECT_EQ("Old", first);
    EXPECT_FALSE(velt::asString(text).isFrozen());
}

TEST(InputPanels, GiveNilWhenDismissed) {
    std::string seen;
    answerWith(Qt::Key_Escape, seen);
    EXPECT_TRUE(VELT_INPUTPANEL("Name"_v, ""_v, "Old"_v).isNil());
    press("Cancel");
    EXPECT_TRUE(VELT_INPUTPANEL("Name"_v, ""_v, "Old"_v).isNil());
    press("OK");
    EXPECT_VALUE("'Old'", VELT_INPUTPANEL("Name"_v, ""_v, "Old"_v));
    press("OK");
    EXPECT_VALUE("''", VELT_INPUTPANEL("Name"_v, ""_v, ""_v));
}

TEST(InputPanels, TakeTheirThreeValuesAsTheyAre) {
    std::string seen;
    answerWith(Qt::Key_Return, seen);
    EXPECT_VALUE("'7'", VELT_INPUTPANEL(integer(1), integer(2), integer(7)));
    EXPECT_EQ("1|2|[OK][Cancel]", seen);
    answerWith(Qt::Key_Return, seen);
    EXPECT_VALUE("''", VELT_INPUTPANEL(nil, nil, nil));
    EXPECT_EQ("-|-|[OK][Cancel]", seen);
}

TEST(Alerts, CountTheCodesOfAddedButtonsFromAThousand) {
    for (const auto& [title, code] : {std::pair("A", 1000L), std::pair("B", 1001L), std::pair("C", 1002L)}) {
        const Ref<NSAlert> alert = velt::make<NSAlert>();
        for (const char* name : {"A", "B", "C"}) alert->addButtonWithTitle(str(std::string_view(name)));
        press(title);
        EXPECT_EQ(code, alert->runModal());
    }
    std::string seen;
    answerWith(Qt::Key_Return, seen);
    EXPECT_EQ(1000, velt::make<NSAlert>()->runModal());
    EXPECT_EQ("-|-|[OK]", seen);
}

TEST(Alerts, CanBeShownAgain) {
    const Ref<NSAlert> alert = velt::make<NSAlert>();
    alert->addButtonWithTitle("Go"_v);
    for (const char* text : {"one", "two"}) {
        alert->setMessageText(str(std::string_view(text)));
        std::string seen;
        answerWith(Qt::Key_Return, seen);
        EXPECT_EQ(1000, alert->runModal());
        EXPECT_EQ(std::string(text) + "|-|[Go]", seen);
    }
}

TEST(Alerts, LeaveNothingBehind) {
    const auto count = [] {
        // An alert and its button hold one another until the next collection, whenever it begins by itself.
        velt::collectCycles();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return QApplication::topLevelWidgets().size();
    };
    std::string seen;
    answerWith(Qt::Key_Return, seen);
    VELT__MSGBOX("first"_v);
    const auto before = count();
    for (int i = 0; i < 20; ++i) {
        answerWith(Qt::Key_Return, seen);
        VELT__MSGBOX("again"_v);
    }
    EXPECT_EQ(before, count());
}

// Modal sessions.

TEST(ModalSessions, EndWithTheCodeTheyAreStoppedWith) {
    const ControlWindow window;
    onceAsked([](NSWindow&) { VELT_ENDMODAL(integer(42)); });
    EXPECT_VALUE("q 42", VELT_BEGINMODAL(window.window));
    onceAsked([](NSWindow&) { VELT_ENDMODAL(nil); });
    EXPECT_VALUE("q -1000", VELT_BEGINMODAL(window.window));
    onceAsked([](NSWindow&) { NSApplication::sharedApplication().abortModal(); });
    EXPECT_VALUE("q -1001", VELT_BEGINMODAL(window.window));
    EXPECT_EQ(nullptr, modalWindow());
    // The window stays until the program takes it away.
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(window.window));
}

TEST(ModalSessions, ConvertTheirCodeFirst) {
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_ENDMODAL(array()));
    EXPECT_TRUE(VELT_ENDMODAL("5"_v).isNil());
    EXPECT_TRUE(VELT_ENDMODAL(nil).isNil());
}

TEST(ModalSessions, WantAWindow) {
    EXPECT_CAST_FAILURE("'NSWindow' expected", VELT_BEGINMODAL("window"_v));
    EXPECT_CAST_FAILURE("'NSWindow' expected", VELT_BEGINMODAL(velt::make<NSView>()));
    EXPECT_VALUE("q -1001", VELT_BEGINMODAL(nil));
}

TEST(ModalSessions, KeepAPersonFromTheOtherWindows) {
    const ControlWindow other, window({{320, 60}, {240, 180}});
    const id button = VELT_PUSHBUTTON_INIT(other.listener, "click:");
    VELT_NSBUTTON_TITLE(button, "Press"_v);
    VELT_NSVIEW_FRAME(button, rect(10, 10, 100, 30));
    VELT_NSWINDOW_APPEND(other.window, button);
    other.show();
    QWidget& widget = velt::as<NSView>(button)->widget();
    clickAt(widget);
    EXPECT_EQ("Press ", other.heard());
    onceAsked([&](NSWindow&) {
        clickAt(widget);
        VELT_ENDMODAL(integer(1));
    });
    VELT_BEGINMODAL(window.window);
    EXPECT_EQ("", other.heard());
    VELT_NSWINDOW_HIDE(window.window);
    QApplication::processEvents();
    clickAt(widget);
    EXPECT_EQ("Press ", other.heard());
}

TEST(ModalSessions, EndWhenTheirWindowIsClosed) {
    const ControlWindow window;
    onceAsked([](NSWindow& shown) { shown.widget().close(); });
    EXPECT_VALUE("q -1001", VELT_BEGINMODAL(window.window));
    // What the program says meanwhile holds.
    onceAsked([](NSWindow& shown) {
        VELT_ENDMODAL(integer(7));
        VELT_NSWINDOW_CLOSE(velt::boxResult(&shown));
    });
    EXPECT_VALUE("q 7", VELT_BEGINMODAL(window.window));
}

TEST(ModalSessions, Nest) {
    const ControlWindow outer, inner({{320, 60}, {240, 180}});
    std::string order;
    onceAsked([&](NSWindow& first) {
        onceAsked([&](NSWindow& second) {
            order += &second == velt::as<NSWindow>(inner.window) ? "inner " : "wrong ";
            std::string seen;
            answerWith(Qt::Key_Return, seen);
            VELT_MSGBOX("deep"_v, nil);
            order += seen + " ";
            VELT_ENDMODAL(integer(2));
        });
        order += show(VELT_BEGINMODAL(inner.window)) + " ";
        VELT_NSWINDOW_HIDE(inner.window);
        EXPECT_EQ(&first, modalWindow());
        VELT_ENDMODAL(integer(1));
    });
    order += show(VELT_BEGINMODAL(outer.window));
    EXPECT_EQ("inner -|deep|[OK] q 2 q 1", order);
}

TEST(ModalSessions, OfOneWindowNestToo) {
    const ControlWindow window;
    std::string order;
    onceAsked([&](NSWindow&) {
        QTimer::singleShot(10, qApp, [&] { VELT_ENDMODAL(integer(2)); });
        order += show(VELT_BEGINMODAL(window.window)) + " ";
        EXPECT_EQ(velt::as<NSWindow>(window.window), modalWindow());
        VELT_ENDMODAL(integer(1));
    });
    order += show(VELT_BEGINMODAL(window.window));
    EXPECT_EQ("q 2 q 1", order);
}

TEST(ModalSessions, GoOnWhenACallbackRaises) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // a forked process has no display of its own
    EXPECT_EXIT(raiseInASession(), testing::ExitedWithCode(1),
                "callback.bas:12: in Form.Click: VLException: in the callback\nsession in order\n");
}

TEST(ModalSessions, AreTheApplicationsByName) {
    const id application(&NSApplication::sharedApplication());
    const ControlWindow window;
    onceAsked([&](NSWindow& shown) {
        EXPECT_EQ(velt::boxResult(&shown), velt::send(application, "modalWindow"));
        velt::send(application, "stopModalWithCode:", integer(3));
    });
    EXPECT_VALUE("q 3", velt::send(application, "runModalForWindow:", window.window));
    onceAsked([&](NSWindow&) { velt::send(application, "stopModal"); });
    EXPECT_VALUE("q -1000", velt::send(application, "runModalForWindow:", window.window));
    onceAsked([&](NSWindow&) { velt::send(application, "stop:", nil); });
    EXPECT_VALUE("q -1000", velt::send(application, "runModalForWindow:", window.window));
    EXPECT_TRUE(velt::send(application, "modalWindow").isNil());
}
