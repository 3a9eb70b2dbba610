// What people who cannot see the screen are told: each kind of control has a name, a role and a value on the
// accessibility bus, and does there what a mouse makes it do.
#include "support/shown_program.h"

#include <gtest/gtest.h>

using namespace velt::test;

namespace {

const std::string kGallerySays = R"(push button 'Save' focusable does Press,SetFocus
push button 'Cancel' focusable does Press,SetFocus
push button 'Bevel' focusable does Press,SetFocus
push button 'Square' focusable does Press,SetFocus
push button 'Textured' focusable does Press,SetFocus
push button 'Rounded' focusable does Press,SetFocus
push button 'Filter' focusable does Press,SetFocus
push button 'Recent' focusable does Press,SetFocus
push button '+' focusable does Press,SetFocus
push button '1' focusable does Press,SetFocus
push button 'Help' focusable does Press,SetFocus
push button 'Triangle' focusable does Press,SetFocus
push button 'Disclosure' focusable does Press,SetFocus
check box 'Wrap lines' focusable does Press,SetFocus
check box 'Some of them' mixed focusable does Press,SetFocus
radio button 'Left' checked focusable does Press,SetFocus
radio button 'Right' focusable does Press,SetFocus
panel 'Segments' focusable does SetFocus
radio button 'Day' does Press
radio button 'Week' checked does Press
radio button 'Month' does Press
combo box 'Pop-up' text 'Landscape' focusable does ShowMenu,SetFocus
combo box 'Combo box' focusable does SetFocus
push button 'Show the list' description 'Show the list' does Press
text 'Combo box' text 'Basic' focusable does SetFocus
filler 'Text' focusable does SetFocus
text 'Text' text 'Ada Lovelace' focusable does SetFocus
filler 'Rich text' focusable does SetFocus
text 'Rich text' text 'Bold, lined, red' focusable does SetFocus
scroll bar '' value 0 of 0..0 does Increase,Decrease
scroll bar '' value 0 of 0..20 does Increase,Decrease
filler 'Secure' focusable does SetFocus
password text 'Secure' text '' focusable does SetFocus
filler 'Search' focusable does SetFocus
push button 'Earlier searches' description 'Earlier searches' does Press
push button 'Clear' description 'Clear' does Press
text 'Search' text 'notes' focusable does SetFocus
filler 'Tokens' text 'ink, pen, paper' focusable does SetFocus
text 'Tokens' text '' focusable does SetFocus
filler 'Date' focusable does SetFocus
spin box 'Date' value 0 of 0..0 text (now) focusable does SetFocus,Increase,Decrease
slider 'Slider' value 0.3 of 0..1 focusable does SetFocus,Increase,Decrease
slider 'Steps' value 0.6 of 0..1 focusable does SetFocus,Increase,Decrease
dial 'Knob' value 0.6 of 0..1 focusable does SetFocus,Increase,Decrease
spin box 'Stepper' value 0 of 0..59 focusable does SetFocus,Increase,Decrease
progress bar 'Relevance' value 60 of 0..100 does Increase,Decrease
slider 'Capacity' value 60 of 0..100 focusable does SetFocus,Increase,Decrease
slider 'Level' value 4 of 0..5 focusable does SetFocus,Increase,Decrease
slider 'Rating' value 3 of 0..5 focusable does SetFocus,Increase,Decrease
color chooser 'Colour' text '#ff8000' focusable does Press,SetFocus
progress bar 'Progress' value 60 of 0..100 does Increase,Decrease
progress bar 'Busy'
progress bar 'Spinning'
list 'Path' text '/usr/share' focusable does Press,SetFocus
graphic 'Image'
panel 'Box'
separator 'Line'
filler 'Scroll' focusable does SetFocus
graphic ''
scroll bar 'Vertical' value 166 of 0..166 does Increase,Decrease
scroll bar 'Horizontal' value 0 of 0..66 does Increase,Decrease
splitter 'Split'
separator 'Divider 1' focusable does SetFocus
filler 'Tabs'
page tab list 'General'
page tab 'General' does Press
page tab 'Colours' does Press
push button 'Scroll Left' focusable disabled
push button 'Scroll Right' focusable does Press,SetFocus
filler 'Browser' focusable does SetFocus
list 'Column 1' focusable
list item 'Plants' focusable does Toggle
list item 'Animals' focusable does Toggle
list item 'Stones' focusable does Toggle
tree 'Outline' focusable
column header 'Name'
tree item 'Fruit' focusable does Toggle
tree item 'Apple' focusable does Toggle
tree item 'Cherry' focusable does Toggle
tree item 'Pear' focusable does Toggle
tree item 'Bread' focusable does Toggle
text 'What the controls sent' text '' description 'What the controls sent' focusable does SetFocus
scroll bar '' value 0 of 0..0 does Increase,Decrease
scroll bar '' value 0 of 0..0 does Increase,Decrease
scroll bar 'Vertical' value 0 of 0..0 does Increase,Decrease
scroll bar 'Horizontal' value 0 of 0..0 does Increase,Decrease
)";
const std::string kOthersSay = R"(page tab list 'Second'
page tab 'First' does Press
page tab 'Second' does Press
push button 'Scroll Left' focusable does Press,SetFocus
push button 'Scroll Right' focusable disabled
progress bar 'Slots' value 3 of 0..8 does Increase,Decrease
slider 'Loudness' value 5.5 of 0..11 focusable does SetFocus,Increase,Decrease
scroll bar 'Horizontal' value 125 of 0..500 does Increase,Decrease
combo box 'Fruit' text 'Pear' description 'Fruit' focusable does ShowMenu,SetFocus
panel 'Alignment' description 'Alignment' focusable does SetFocus
radio button 'Left' does Press
radio button 'Right' checked does Press
radio button 'Segment 3' does Press
color chooser 'Ink' text '#ff0000' description 'Ink' focusable does Press,SetFocus
push button 'Never' disabled
check box 'Always' checked focusable does Press,SetFocus
panel 'Address'
text 'Street' text '' description 'Street' focusable does SetFocus
)";

const char* const kGallery = VELT_EXAMPLE_PROGRAMS "/controls";

/// What an object says, as it says it each time.
std::string plain(std::string line) {
    // The moment that a date picker shows is another each time.
    if (const std::size_t at = line.find(" text '");
        line.find("'Date'") != std::string::npos && at != std::string::npos)
        line.replace(at, line.find('\'', at + 7) - at + 1, " text (now)");
    return line;
}

/// All lines of a window but those of labels, which say themselves, and of parts that say nothing and do nothing.
std::string spokenLines(const Accessible& window) {
    std::string lines;
    for (const Accessible& child : window.children()) {
        const std::string role = child.role(), name = child.name();
        if (role != "label" && (role != "filler" || !name.empty())) lines += plain(child.line()) + "\n";
        lines += spokenLines(child);
    }
    return lines;
}

bool waitForText(const Accessible& of, const std::string& text) {
    return waitFor([&] { return of.text() == text; });
}

}  // namespace

TEST(Accessibility, NamesEveryControlOfTheGalleryAndSaysItsValue) {
    const ShownProgram gallery(QString::fromLatin1(kGallery), "Controls");
    ASSERT_TRUE(gallery.window().exists());
    ASSERT_TRUE(waitFor([&] { return gallery.window().find("slider", "Slider").exists(); }));
    EXPECT_EQ(kGallerySays, spokenLines(gallery.window()));
}

TEST(Accessibility, TellsStatesAndValuesOfOtherKinds) {
    const ShownProgram program(QStringLiteral(VELT_TEST_PROGRAMS "/accessible"), "Accessible");
    ASSERT_TRUE(program.window().exists());
    ASSERT_TRUE(waitFor([&] { return program.window().find("slider", "Loudness").exists(); }));
    EXPECT_EQ(kOthersSay, spokenLines(program.window()));
}

TEST(Accessibility, PressesButtonsAndSendsTheirActions) {
    const ShownProgram gallery(QString::fromLatin1(kGallery), "Controls");
    const Accessible& window = gallery.window();
    ASSERT_TRUE(waitFor([&] { return window.find("text", "What the controls sent").exists(); }));
    const Accessible log = window.find("text", "What the controls sent");

    EXPECT_TRUE(window.find("push button", "Save").act("Press"));
    std::string told = "Default: 0\n";
    EXPECT_TRUE(waitForText(log, told)) << log.text();

    const Accessible box = window.find("check box", "Wrap lines");
    EXPECT_FALSE(box.isChecked());
    EXPECT_TRUE(box.act("Press"));
    EXPECT_TRUE(waitForText(log, told += "Check box: 1\n")) << log.text();
    EXPECT_TRUE(box.isChecked());

    // Radio buttons of one group: the other one goes out.
    EXPECT_TRUE(window.find("radio button", "Right").act("Press"));
    EXPECT_TRUE(waitForText(log, told += "Radio: 1\n")) << log.text();
    EXPECT_FALSE(window.find("radio button", "Left").isChecked());
    EXPECT_TRUE(window.find("radio button", "Right").isChecked());

    EXPECT_TRUE(window.find("radio button", "Month").act("Press"));
    EXPECT_TRUE(waitForText(log, told += "Segments: 2\n")) << log.text();
    EXPECT_TRUE(window.find("radio button", "Month").isChecked());
    EXPECT_EQ(std::string::npos, log.text().find("secret"));
}

TEST(Accessibility, SetsValuesAndSendsTheirActions) {
    const ShownProgram gallery(QString::fromLatin1(kGallery), "Controls");
    const Accessible& window = gallery.window();
    ASSERT_TRUE(waitFor([&] { return window.find("slider", "Slider").exists(); }));
    const Accessible log = window.find("text", "What the controls sent"), slider = window.find("slider", "Slider"),
                     stepper = window.find("spin box", "Stepper"), level = window.find("slider", "Level");
    slider.setValue(0.75);
    std::string told = "Slider: 0.75\n";
    EXPECT_TRUE(waitForText(log, told)) << log.text();
    EXPECT_EQ(0.75, slider.value());
    EXPECT_TRUE(stepper.act("Increase"));
    EXPECT_TRUE(waitForText(log, told += "Stepper: 1\n")) << log.text();
    level.setValue(2);
    EXPECT_TRUE(waitForText(log, told += "Level: 2\n")) << log.text();
    window.find("dial", "Knob").setValue(0.25);
    EXPECT_TRUE(waitForText(log, told += "Knob: 0.25\n")) << log.text();
    // A value that is beyond the end is the end.
    slider.setValue(7);
    EXPECT_TRUE(waitForText(log, told += "Slider: 1\n")) << log.text();
}

TEST(Accessibility, GivesTheKeyboardToControls) {
    const ShownProgram gallery(QString::fromLatin1(kGallery), "Controls");
    const Accessible& window = gallery.window();
    ASSERT_TRUE(waitFor([&] { return window.find("slider", "Slider").exists(); }));
    for (const auto& [role, name] : {std::pair{"push button", "Bevel"},
                                     {"text", "Text"},
                                     {"password text", "Secure"},
                                     {"combo box", "Pop-up"},
                                     {"dial", "Knob"},
                                     {"color chooser", "Colour"}}) {
        const Accessible control = window.find(role, name);
        ASSERT_TRUE(control.exists()) << name;
        EXPECT_TRUE(control.act("SetFocus")) << name;
        EXPECT_TRUE(waitFor([&] { return control.isFocused(); })) << name;
    }
}
