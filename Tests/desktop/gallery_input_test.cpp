// The gallery worked by a person: clicks, drags, the wheel and keys that come through the window system, on every kind
// of control. What each of them sends is in the gallery's log; what it then says and shows is looked at.
#include "support/person.h"
#include "support/shown_program.h"

#include <gtest/gtest.h>

using namespace velt::test;

namespace {

class GalleryInput : public testing::Test {
protected:
    void SetUp() override {
        if (!Person::isThere()) GTEST_SKIP() << "xdotool is not installed";
        ASSERT_TRUE(gallery_.window().exists());
        ASSERT_TRUE(waitFor([&] { return control("text", "What the controls sent").exists(); }));
        log_ = control("text", "What the controls sent");
        ASSERT_TRUE(waitFor([&] { return place("push button", "Save").isValid() && isSeen(); }));
    }
    /// The window is where the window manager wants it, and draws.
    bool isSeen() const {
        const QImage shown = Person::see(place("push button", "Save"));
        return !shown.isNull() &&
               shown.pixel(2, shown.height() / 2) != shown.pixel(shown.width() / 2, shown.height() / 2 - 1);
    }
    Accessible control(const char* role, const char* name) const { return gallery_.window().find(role, name); }
    QRect place(const char* role, const char* name) const { return control(role, name).extents(); }
    QPoint middle(const char* role, const char* name) const { return place(role, name).center(); }
    /// What the log has more than before; waits until there is something.
    std::string told() {
        waitForMore();
        const std::string text = log_.text(), more = text.substr(std::min(heard_.size(), text.size()));
        heard_ = text;
        return more;
    }
    bool waitForMore() {
        return waitFor([&] { return log_.text() != heard_ && log_.text().back() == '\n'; });
    }

    ShownProgram gallery_{QStringLiteral(VELT_EXAMPLE_PROGRAMS "/controls"), "Controls"};
    Accessible log_;
    std::string heard_;
};

}  // namespace

TEST_F(GalleryInput, ButtonsAreClicked) {
    const struct {
        const char *role, *name, *tells;
    } buttons[] = {
        {"push button", "Save", "Default: 0\n"},
        {"push button", "Cancel", "Push: 0\n"},
        {"push button", "Bevel", "Bevel: 0\n"},
        {"push button", "Square", "Square: 0\n"},
        {"push button", "Textured", "Textured: 0\n"},
        {"push button", "Rounded", "Soft: 0\n"},
        {"push button", "Filter", "Pill: 0\n"},
        {"push button", "Recent", "Recessed: 1\n"},
        {"push button", "+", "Gradient: 0\n"},
        {"push button", "1", "Round: 0\n"},
        {"push button", "Help", "Help: 0\n"},
        {"push button", "Triangle", "Triangle: 1\n"},
        {"push button", "Disclosure", "Disclosure: 1\n"},
        {"check box", "Wrap lines", "Check box: 1\n"},
        {"check box", "Some of them", "Mixed: 1\n"},
        {"radio button", "Right", "Radio: 1\n"},
        {"radio button", "Month", "Segments: 2\n"},
    };
    for (const auto& button : buttons) {
        SCOPED_TRACE(button.name);
        const QRect at = place(button.role, button.name);
        const QImage before = Person::see(at);
        Person::click(at.center());
        EXPECT_EQ(button.tells, told());
        // What has a state shows it.
        if (std::string(button.tells).find(": 0") == std::string::npos) {
            EXPECT_TRUE(waitFor([&] { return Person::see(at) != before; }));
        }
    }
    EXPECT_TRUE(control("check box", "Wrap lines").isChecked());
    EXPECT_FALSE(control("radio button", "Left").isChecked());
}

TEST_F(GalleryInput, ButtonsAreWorkedWithTheKeyboard) {
    Person::click(middle("check box", "Wrap lines"));
    EXPECT_EQ("Check box: 1\n", told());
    ASSERT_TRUE(control("check box", "Wrap lines").act("SetFocus"));
    Person::press("space");
    EXPECT_EQ("Check box: 0\n", told());
    // The way goes through the window as it is read: the slider stands in the same line.
    Person::press("Tab");
    EXPECT_TRUE(waitFor([&] { return control("slider", "Slider").isFocused(); }));
    Person::press("shift+Tab");
    EXPECT_TRUE(waitFor([&] { return control("check box", "Wrap lines").isFocused(); }));
}

TEST_F(GalleryInput, FieldsAreTypedInto) {
    const struct {
        const char *role, *name, *types, *tells, *says;
    } fields[] = {
        {"text", "Text", "Grace", "Text: Grace\n", "Grace"},
        {"password text", "Secure", "open", "Secure: open\n", ""},
        {"text", "Combo box", "Ada", "Combo box: Ada\n", "Ada"},
        {"text", "Search", "ink", "Search: ink\n", "ink"},
    };
    for (const auto& field : fields) {
        SCOPED_TRACE(field.name);
        const QRect at = place(field.role, field.name);
        const QImage before = Person::see(at);
        Person::click(at.center());
        Person::press("ctrl+a");
        Person::type(field.types);
        Person::press("Return");
        std::string all = told();
        // A search field searches while somebody types.
        while (all.size() < std::string(field.tells).size() || !all.ends_with(field.tells)) {
            if (!waitForMore()) break;
            all += told();
        }
        EXPECT_TRUE(all.ends_with(field.tells)) << all;
        if (*field.says) {
            EXPECT_EQ(field.says, control(field.role, field.name).text());
        }
        EXPECT_NE(before, Person::see(at));
    }
}

TEST_F(GalleryInput, ValuesAreDraggedAndStepped) {
    const QRect slider = place("slider", "Slider");
    const QImage before = Person::see(slider);
    Person::drag({slider.left() + slider.width() * 3 / 10, slider.center().y()},
                 {slider.right() + 30, slider.center().y()});
    const std::string all = told();
    EXPECT_TRUE(waitFor([&] { return control("slider", "Slider").value() == 1; })) << all;
    EXPECT_TRUE(waitFor([&] { return log_.text().ends_with("Slider: 1\n"); })) << log_.text();
    EXPECT_NE(before, Person::see(slider));
    heard_ = log_.text();

    const QRect stepper = place("spin box", "Stepper");
    Person::click({stepper.center().x(), stepper.top() + stepper.height() / 4});
    EXPECT_EQ("Stepper: 1\n", told());
    Person::click({stepper.center().x(), stepper.bottom() - stepper.height() / 4});
    EXPECT_EQ("Stepper: 0\n", told());

    const QRect level = place("slider", "Level");
    Person::click({level.left() + level.width() * 3 / 10, level.center().y()});
    EXPECT_EQ("Level: 2\n", told());
    EXPECT_EQ(2, control("slider", "Level").value());

    const QRect knob = place("dial", "Knob");
    Person::click({knob.right() - 4, knob.center().y()});
    EXPECT_TRUE(told().starts_with("Knob: 0.2"));
    EXPECT_NEAR(0.25, control("dial", "Knob").value(), 0.05);
}

TEST_F(GalleryInput, DatesPathsAndColoursAreChosen) {
    Person::click(middle("spin box", "Date"));
    Person::press("Up");
    EXPECT_TRUE(told().starts_with("Date: "));

    const QRect path = place("list", "Path");
    Person::click({path.left() + 12, path.center().y()});
    EXPECT_TRUE(told().starts_with("Path: "));

    Person::click(middle("color chooser", "Colour"));
    EXPECT_TRUE(windowOnTheBus("Colors").exists());
    Person::press("Escape");
}

TEST_F(GalleryInput, PanesAndPagesAreMoved) {
    const QRect divider = place("separator", "Divider 1");
    Person::drag(divider.center(), divider.center() + QPoint(-30, 0));
    EXPECT_TRUE(waitFor([&] { return place("separator", "Divider 1").x() <= divider.x() - 20; }));

    const Accessible bar = control("filler", "Scroll").find("scroll bar", "Vertical");
    const double before = bar.value();
    Person::turnWheel(middle("filler", "Scroll"), before == 0);
    Person::turnWheel(middle("filler", "Scroll"), before == 0);
    EXPECT_TRUE(waitFor([&] { return bar.value() != before; })) << before;
    EXPECT_TRUE(gallery_.runs());
}
