// The example preferences: what a person sets in its preferences window is seen in its main window, and the next time.
#include "preferences_support.h"

#include "preferences/reader.h"
#include "support/patience.h"
#include "support/unseen_examples.h"

#include "VELTRuntime/platform/appkit/controls/color_panel.h"
#include "VELTRuntime/platform/appkit/controls/color_well.h"

#include <QImage>

using namespace velt::test;
using reader::Reader;
using velt::Ref;

namespace {

constexpr Qt::KeyboardModifiers kCommand = Qt::ControlModifier;

/// Notes the heights of a window.
struct Heights : public NSObject {
    VELT_OBJECT(Heights, NSObject)

public:
    void resized(const id& told) {
        seen.push_back(velt::as<NSWindow>(velt::send(told, "object"))->frame().size.height);
    }
    static void describe(velt::ClassBuilder<Heights>& c) { c.method("windowDidResize:", &Heights::resized); }
    std::vector<double> seen;
};

struct ReaderProgram : testing::Test {
    ReaderProgram() { forgetSettings(); }
    ~ReaderProgram() override {
        close();
        NSApplication::sharedApplication().setMainMenu(nil);
        forgetSettings();
    }
    static void forgetSettings() {
        const id keys = VELT_NSMUTABLEDICTIONARY_KEYS(velt::make<reader::ReaderPreferences>()->defaults());
        for (const id& key : velt::arrayOf(keys)->items()) VELT_NSUSERDEFAULTS_REMOVE(nil, key);
        VELT_NSUSERDEFAULTS_REMOVE(nil, "Frame"_v);
    }
    void SetUp() override {
        SKIP_UNLESS_WINDOWS_BECOME_ACTIVE();
        start();
    }
    void start() {
        program = velt::make<Reader>();
        NSApplication::sharedApplication().setMainMenu(reader::mainMenu(program));
        program->open("One line.\nAnother one.\n"_v);
        ASSERT_TRUE(windowStaysActive(window().widget()));
        // The settings are watched from the next turn on.
        QTest::qWait(1);
    }
    void close() {
        if (program) VELT_NSWINDOW_CLOSE(program->window);
    }
    void startAgain() {
        close();
        start();
    }

    NSWindow& window() const { return *velt::as<NSWindow>(program->window); }
    NSWindow& prefs() const {
        const id shown = program->preferences->window();
        return *velt::as<NSWindow>(shown);
    }
    void openPreferences() const {
        EXPECT_TRUE(hasKeyboard(window()));
        pressKey(window(), Qt::Key_Comma, kCommand);
        ASSERT_TRUE(hasKeyboard(prefs())) << (prefs().isVisible() ? "shown without the keyboard" : "not shown");
        ASSERT_TRUE(frameIsKnown(prefs().widget()));
    }
    /// Clicks a pane's button in the toolbar and waits until the window has its size.
    void goTo(const char* pane) const {
        ASSERT_NO_FATAL_FAILURE(clickPane(prefs(), pane));
        EXPECT_TRUE(comesTrue([&] { return velt::utf8(prefs().title()) == pane; }));
        EXPECT_TRUE(hasKeyboard(prefs()));
    }
    NSSize paneSize() const { return velt::as<NSView>(prefs().contentView())->frame().size; }
    /// The control of the open pane that has that title or tool tip.
    id control(const char* name) const { return viewNamed(prefs().contentView(), name); }
    void click(const char* name) const { clickNamed(prefs(), name); }
    void press(Qt::Key key, Qt::KeyboardModifiers held = {}) const { pressKey(prefs(), key, held); }
    void type(const char* text) const {
        for (; *text; ++text) QTest::keyClick(prefs().widget().windowHandle(), *text);
    }

    std::string greeting() const { return velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->greeting)); }
    std::string clock() const { return velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->clock)); }
    double fontSize() const { return VELT_CDOUBLE(velt::send(VELT_NSTEXTVIEW_FONT(program->text), "pointSize")); }
    bool isFixedPitch() const {
        return VELT_CBOOL(velt::send(VELT_NSTEXTVIEW_FONT(program->text), "isFixedPitch")) != 0;
    }
    double redOf(const char* color) const {
        return VELT_CDOUBLE(velt::send(velt::send(program->text, velt::Selector::named(color)), "redComponent"));
    }

    Ref<Reader> program;
};

}  // namespace

TEST_F(ReaderProgram, GreetsByTheNameWhileItIsTyped) {
    EXPECT_TRUE(greeting().starts_with("Good ")) << greeting();
    EXPECT_TRUE(greeting().ends_with("ing.") || greeting().ends_with("noon.")) << greeting();
    openPreferences();
    type("Ad");
    EXPECT_TRUE(greeting().ends_with(", Ad.")) << greeting();
    type("a");
    EXPECT_TRUE(greeting().ends_with(", Ada.")) << greeting();
    startAgain();
    EXPECT_TRUE(greeting().ends_with(", Ada.")) << greeting();
    openPreferences();
    EXPECT_EQ("Ada", velt::utf8(VELT_NSCONTROL_STRINGVALUE(control("Your name"))));
}

TEST_F(ReaderProgram, ShowsInItsHeadWhatIsChecked) {
    EXPECT_EQ(5U, clock().size()) << clock();
    openPreferences();
    keepPicture(prefs().widget(), "preferences-general");
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_EQ(8U, clock().size()) << clock();
    click("Show the time of day");
    EXPECT_EQ("", clock());
    const double before = velt::as<NSView>(program->text)->frame().size.height;
    click("Greet me by it");
    EXPECT_EQ("", greeting());
    EXPECT_TRUE(velt::as<NSView>(program->header)->isHidden());
    EXPECT_EQ(before + 42, velt::as<NSView>(program->text)->frame().size.height);
    startAgain();
    EXPECT_TRUE(velt::as<NSView>(program->header)->isHidden());
    openPreferences();
    EXPECT_EQ(0, VELT_CINTEGER(VELT_NSBUTTON_STATE(control("Greet me by it"))));
    EXPECT_EQ(1, VELT_CINTEGER(VELT_NSBUTTON_STATE(control("With seconds"))));
    click("Show the time of day");
    EXPECT_EQ(8U, clock().size()) << clock();
}

TEST_F(ReaderProgram, TakesTheSizeOfEachPane) {
    openPreferences();
    const double top = prefs().frame().origin.y + prefs().frame().size.height;
    EXPECT_EQ((std::pair{400.0, 148.0}), (std::pair{paneSize().width, paneSize().height}));
    EXPECT_EQ("General", velt::utf8(prefs().title()));
    for (const auto& [name, width, height] : {std::tuple{"Appearance", 440.0, 188.0},
                                              {"Advanced", 400.0, 130.0},
                                              {"General", 400.0, 148.0},
                                              {"Advanced", 400.0, 130.0}}) {
        goTo(name);
        EXPECT_EQ((std::pair{width, height}), (std::pair{paneSize().width, paneSize().height})) << name;
        EXPECT_EQ(top, prefs().frame().origin.y + prefs().frame().size.height) << name;
        // The desktop's window is no larger than that, and has not moved.
        const QMainWindow& shown = prefs().widget();
        EXPECT_TRUE(comesTrue([&] { return shown.centralWidget()->height() == static_cast<int>(height); }));
        EXPECT_EQ(shown.height(), shown.centralWidget()->geometry().bottom() + 1) << name;
    }
}

TEST_F(ReaderProgram, GrowsToAPaneStepByStep) {
    openPreferences();
    const Ref<Heights> heights = velt::make<Heights>();
    prefs().setDelegate(heights);
    goTo("Appearance");
    EXPECT_LT(2U, heights->seen.size());
    EXPECT_TRUE(std::is_sorted(heights->seen.begin(), heights->seen.end()));
    prefs().setDelegate(nil);
}

TEST_F(ReaderProgram, WritesInTheLettersThatAreChosen) {
    openPreferences();
    goTo("Appearance");
    keepPicture(prefs().widget(), "preferences-appearance");
    EXPECT_EQ(14, fontSize());
    EXPECT_FALSE(isFixedPitch());
    // Tab begins in the pane: the letters, then their size.
    press(Qt::Key_Tab);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_TRUE(isFixedPitch());
    press(Qt::Key_Tab);
    const Qt::Key more = QApplication::isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    press(more);
    press(more);
    EXPECT_EQ(18, fontSize());
    EXPECT_EQ("18 pt", velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->preferences->size)));
    startAgain();
    EXPECT_TRUE(isFixedPitch());
    EXPECT_EQ(18, fontSize());
}

TEST_F(ReaderProgram, MovesTheSliderWhenItsMenuMakesTheTextBigger) {
    openPreferences();
    goTo("Appearance");
    pressKey(window(), Qt::Key_Plus, kCommand);
    EXPECT_EQ(16, fontSize());
    EXPECT_EQ(16, VELT_CDOUBLE(VELT_NSCONTROL_DOUBLEVALUE(control("Size"))));
    EXPECT_EQ("16 pt", velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->preferences->size)));
    for (int i = 0; i < 12; ++i) pressKey(window(), Qt::Key_Minus, kCommand);
    EXPECT_EQ(10, fontSize());
    EXPECT_EQ(10, VELT_CDOUBLE(VELT_NSCONTROL_DOUBLEVALUE(control("Size"))));
}

TEST_F(ReaderProgram, TakesTheColoursOfTheWells) {
    openPreferences();
    goTo("Appearance");
    click("Paper");
    NSColorPanel& panel = NSColorPanel::sharedColorPanel();
    panel.picked(VELT_NSCOLOR_INIT(nil, "", VELT_ID(0.25), VELT_ID(0.5), VELT_ID(0.75), VELT_ID(1.0)));
    EXPECT_NEAR(0.25, redOf("backgroundColor"), 0.003);
    EXPECT_NEAR(0.16, redOf("textColor"), 0.003);
    click("Text");
    panel.picked(VELT_NSCOLOR_INIT(nil, "", VELT_ID(1.0), VELT_ID(1.0), VELT_ID(1.0), VELT_ID(1.0)));
    EXPECT_NEAR(1.0, redOf("textColor"), 0.003);
    EXPECT_NEAR(0.25, redOf("backgroundColor"), 0.003);
    NSColorWell::deactivateAll();
    panel.close();
    startAgain();
    EXPECT_NEAR(1.0, redOf("textColor"), 0.003);
    EXPECT_NEAR(0.25, redOf("backgroundColor"), 0.003);
}

TEST_F(ReaderProgram, AsksBeforeItIsClosedWhenToldTo) {
    openPreferences();
    goTo("Advanced");
    keepPicture(prefs().widget(), "preferences-advanced");
    click("Ask before it is closed");
    closePreferences(prefs(), window());
    openPreferences();
    window().makeKeyWindow();
    ASSERT_TRUE(hasKeyboard(window()));
    pressKey(window(), Qt::Key_W, kCommand);
    Ref<NSWindow> sheet = waitForSheet(program->window);
    ASSERT_TRUE(sheet);
    EXPECT_EQ("Close the reader?|The preferences say that you want to be asked.|[Close][Cancel]", readAlert(*sheet));
    pressKey(*sheet, Qt::Key_Escape);
    EXPECT_TRUE(comesTrue([this] { return window().attachedSheet().isNil(); }));
    EXPECT_TRUE(hasKeyboard(window()));
    EXPECT_TRUE(window().isVisible());
    pressKey(window(), Qt::Key_W, kCommand);
    sheet = waitForSheet(program->window);
    ASSERT_TRUE(sheet);
    pressKey(*sheet, Qt::Key_Return);
    EXPECT_TRUE(comesTrue([this] { return !window().isVisible(); }));
    EXPECT_FALSE(prefs().isVisible()) << "the preferences go with the window that they are for";
}

TEST_F(ReaderProgram, OpensWhereItWasClosedUnlessToldOtherwise) {
    window().setFrame({{120, 140}, {500, 300}});
    startAgain();
    EXPECT_EQ(500, window().frame().size.width);
    openPreferences();
    goTo("Advanced");
    click("Open it where it was closed");
    startAgain();
    EXPECT_EQ(560, window().frame().size.width);
}

TEST_F(ReaderProgram, ClosesTheWindowThatHasTheKeyboard) {
    openPreferences();
    closePreferences(prefs(), window());
    pressKey(window(), Qt::Key_W, kCommand);
    EXPECT_TRUE(comesTrue([this] { return !window().isVisible(); }));
}

TEST_F(ReaderProgram, QuitsFromItsPreferencesToo) {
    openPreferences();
    pressKey(prefs(), Qt::Key_Q, kCommand);
    EXPECT_TRUE(comesTrue([this] { return !window().isVisible() && !prefs().isVisible(); }));
}

TEST_F(ReaderProgram, GoesBackToTheUsualSettings) {
    openPreferences();
    type("Ada");
    click("Show the time of day");
    goTo("Appearance");
    pressKey(window(), Qt::Key_Plus, kCommand);
    goTo("Advanced");
    click("Use the Usual Settings");
    EXPECT_EQ(std::string::npos, greeting().find("Ada"));
    EXPECT_EQ(5U, clock().size()) << clock();
    EXPECT_EQ(14, fontSize());
    goTo("General");
    EXPECT_EQ("", velt::utf8(VELT_NSCONTROL_STRINGVALUE(control("Your name"))));
    EXPECT_EQ(1, VELT_CINTEGER(VELT_NSBUTTON_STATE(control("Show the time of day"))));
}

TEST(PreferencesExample, ShowsWhatItsSettingsFileSays) {
    const TemporaryFolder folder;
    const auto dotOfPaper = [&](const char* picture) {
        const std::string path = folder.file(picture);
        const EnvironmentVariable configuration("XDG_CONFIG_HOME", folder.file(""));
        const ProgramResult result = runUnseen("preferences", path);
        EXPECT_EQ("The picture is in " + path + ".\n", result.output);
        EXPECT_EQ(0, result.status) << result.errors;
        const QImage seen(QString::fromStdString(path));
        return seen.isNull() ? QColor() : seen.pixelColor(seen.width() / 4, seen.height() - 3);
    };
    EXPECT_EQ(QColor(252, 247, 235), dotOfPaper("usual.png"));
    // The scene has made the text bigger.
    const std::string kept = contentOf(folder.file("preferences.plist"));
    EXPECT_NE(std::string::npos, kept.find("<key>FontSize</key>\n\t<real>16</real>")) << kept;
    folder.write("preferences.plist", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
                                      "<key>PaperColor</key><array><real>0.2</real><real>0.4</real><real>0.6</real>"
                                      "</array></dict></plist>\n");
    EXPECT_EQ(QColor(51, 102, 153), dotOfPaper("blue.png"));
}
