#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/control_window.h"

#include <QAccessible>
#include <QMenu>

using namespace velt::test;
using velt::Ref;

namespace {

struct PopUp {
    explicit PopUp(std::initializer_list<const char*> titles, const char* action = "click:") {
        button = VELT_NSPOPUPBUTTON_INIT(window.listener, action);
        place();
        for (const char* title : titles) VELT_NSPOPUPBUTTON_APPEND(button, str(title));
        VELT_NSWINDOW_APPEND(window.window, button);
        window.show();
    }
    void place() const { velt::send(button, "setFrame:", rect(20, 20, 160, 26)); }
    QWidget& widget() const { return velt::as<NSView>(button)->widget(); }
    NSPopUpButtonCell& cell() const { return velt::as<NSPopUpButton>(button)->popUpCell(); }
    QMenu& menu() const { return cell().menuObject().widget(); }
    void choose(long index) const {
        QAction& action = velt::as<NSMenuItem>(cell().itemAtIndex(index))->toolkitAction();
        QTest::mouseClick(&menu(), Qt::LeftButton, {}, menu().actionGeometry(&action).center());
    }
    void key(int code) const { QTest::keyClick(&widget(), static_cast<Qt::Key>(code)); }

    ControlWindow window;
    id button;
};

}  // namespace

TEST(PopUpButtons, SelectTheFirstItemThatComes) {
    const id button = VELT_NSPOPUPBUTTON_INIT(nil, "");
    EXPECT_VALUE("q -1", VELT_NSPOPUPBUTTON_SELECTED(button));
    EXPECT_TRUE(VELT_NSPOPUPBUTTON_SELECTEDTITLE(button).isNil());
    EXPECT_TRUE(VELT_NSPOPUPBUTTON_SELECTEDOBJECT(button).isNil());
    VELT_NSPOPUPBUTTON_APPEND(button, str("Red"));
    VELT_NSPOPUPBUTTON_APPEND(button, VELT_ID(5L));
    VELT_NSPOPUPBUTTON_INSERT(button, VELT_ID(1L), str("Green"));
    EXPECT_VALUE("q 0", VELT_NSPOPUPBUTTON_SELECTED(button));
    EXPECT_VALUE("'Red'", VELT_NSPOPUPBUTTON_SELECTEDTITLE(button));
    EXPECT_VALUE("q 3", VELT_NSPOPUPBUTTON_COUNT(button));
    VELT_NSPOPUPBUTTON_SELECTTITLE(button, VELT_ID(5L));
    EXPECT_VALUE("q 2", VELT_NSPOPUPBUTTON_SELECTED(button));
    EXPECT_EQ(VELT_NSPOPUPBUTTON_OBJECT(button, VELT_ID(2L)), VELT_NSPOPUPBUTTON_SELECTEDOBJECT(button));
    EXPECT_VALUE("q 2", VELT_NSPOPUPBUTTON_INDEX(button, VELT_NSPOPUPBUTTON_SELECTEDOBJECT(button)));
    EXPECT_VALUE("q -1", VELT_NSPOPUPBUTTON_INDEX(button, str("Red")));
    VELT_NSPOPUPBUTTON_UNSELECTALL(button);
    EXPECT_VALUE("q -1", VELT_NSPOPUPBUTTON_SELECTED(button));
    VELT_NSPOPUPBUTTON_SYNCHRONIZE(button);
    EXPECT_VALUE("q 0", VELT_NSPOPUPBUTTON_SELECTED(button));
    VELT_NSPOPUPBUTTON_SELECTTITLE(button, str("Blue"));
    EXPECT_VALUE("q -1", VELT_NSPOPUPBUTTON_SELECTED(button));
    EXPECT_RAISES("NSRangeException: 'NSMenu' itemAtIndex:: index 3 is out of range; the count is 3",
                  VELT_NSPOPUPBUTTON_SELECT(button, VELT_ID(3L)));
    EXPECT_RAISES("NSRangeException: 'NSMenu' itemAtIndex:: index 9 is out of range; the count is 3",
                  VELT_NSPOPUPBUTTON_INSERT(button, VELT_ID(9L), str("Red")));
    EXPECT_VALUE("q 3", VELT_NSPOPUPBUTTON_COUNT(button));
}

TEST(PopUpButtons, HaveEachTitleOnce) {
    const id button = VELT_NSPOPUPBUTTON_INIT(nil, "");
    for (const char* title : {"Red", "Green", "Red"}) VELT_NSPOPUPBUTTON_APPEND(button, str(title));
    EXPECT_VALUE("q 2", VELT_NSPOPUPBUTTON_COUNT(button));
    EXPECT_VALUE("'Red'", VELT_NSMENUITEM_TITLE(VELT_NSPOPUPBUTTON_OBJECT(button, VELT_ID(1L))));
    VELT_NSPOPUPBUTTON_REMOVETITLE(button, str("Green"));
    VELT_NSPOPUPBUTTON_REMOVETITLE(button, str("no such title"));
    EXPECT_VALUE("q 1", VELT_NSPOPUPBUTTON_COUNT(button));
    EXPECT_VALUE("q 0", VELT_NSPOPUPBUTTON_SELECTED(button));
    VELT_NSPOPUPBUTTON_REMOVEALL(button);
    EXPECT_VALUE("q -1", VELT_NSPOPUPBUTTON_SELECTED(button));
}

TEST(PopUpButtons, TakeImagesInTheirOwnOrderOfArguments) {
    const id button = VELT_NSPOPUPBUTTON_INIT(nil, "");
    QImage dots(8, 8, QImage::Format_ARGB32);
    dots.fill(Qt::red);
    const id image = velt::make<NSImage>(dots);
    VELT_NSPOPUPBUTTON_APPENDWITHIMAGE(button, image, str("Red"));
    VELT_NSPOPUPBUTTON_INSERTWITHIMAGE(button, VELT_ID(0L), image, str("Green"));
    EXPECT_EQ(image, VELT_NSMENUITEM_IMAGE(VELT_NSPOPUPBUTTON_OBJECT(button, VELT_ID(0L))));
    EXPECT_VALUE("'Green'", VELT_NSMENUITEM_TITLE(VELT_NSPOPUPBUTTON_OBJECT(button, VELT_ID(0L))));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_NSPOPUPBUTTON_APPENDWITHIMAGE(button, VELT_ID(1L), str("Blue")));
    EXPECT_VALUE("q 2", VELT_NSPOPUPBUTTON_COUNT(button));
}

TEST(PopUpButtons, PopUpAndSendTheirActionForAChoice) {
    const PopUp pop({"Red", "Green", "Blue"});
    EXPECT_VALUE("'Red'", velt::send(pop.button, "title"));
    QTest::mousePress(&pop.widget(), Qt::LeftButton);
    ASSERT_TRUE(pop.menu().isVisible());
    EXPECT_TRUE(velt::as<NSMenuItem>(pop.cell().itemAtIndex(0))->toolkitAction().isChecked());
    pop.choose(2);
    EXPECT_EQ("Blue ", pop.window.heard());
    EXPECT_VALUE("q 2", VELT_NSPOPUPBUTTON_SELECTED(pop.button));
    EXPECT_VALUE("q 2", VELT_NSCONTROL_INTEGERVALUE(pop.button));
    EXPECT_EQ(0, VELT_CINTEGER(VELT_NSMENUITEM_STATE(pop.cell().itemAtIndex(0))));
    VELT_NSCONTROL_INTEGERVALUE(pop.button, VELT_ID(1L));
    EXPECT_VALUE("'Green'", VELT_NSPOPUPBUTTON_SELECTEDTITLE(pop.button));
    EXPECT_EQ("", pop.window.heard());
}

TEST(PopUpButtons, AreWorkedByKeys) {
    const PopUp pop({"Red", "Green", "Blue", "Black"});
    pop.widget().setFocus();
    pop.key(Qt::Key_Down);
    EXPECT_EQ("Green ", pop.window.heard());
    pop.key(Qt::Key_Up);
    pop.key(Qt::Key_Up);
    EXPECT_EQ("Red ", pop.window.heard());
    pop.key(Qt::Key_End);
    EXPECT_EQ("Black ", pop.window.heard());
    pop.key(Qt::Key_Home);
    EXPECT_EQ("Red ", pop.window.heard());
    pop.key(Qt::Key_B);
    EXPECT_EQ("Blue ", pop.window.heard());
    velt::send(pop.cell().itemAtIndex(1), "setHidden:", VELT_ID(BOOL{1}));
    pop.key(Qt::Key_Up);
    EXPECT_EQ("Red ", pop.window.heard());
    pop.key(Qt::Key_Space);
    ASSERT_TRUE(pop.menu().isVisible());
    QTest::keyClick(&pop.menu(), Qt::Key_Escape);
    EXPECT_EQ("", pop.window.heard());
    EXPECT_VALUE("q 0", VELT_NSPOPUPBUTTON_SELECTED(pop.button));
}

TEST(PopUpButtons, PullDownAMenuUnderTheirFirstItem) {
    const PopUp pop({"Do", "Cut", "Copy"});
    VELT_NSPOPUPBUTTON_PULLSDOWN(pop.button, VELT_ID(BOOL{1}));
    EXPECT_VALUE("c 1", VELT_NSPOPUPBUTTON_PULLSDOWN(pop.button));
    QTest::mousePress(&pop.widget(), Qt::LeftButton);
    ASSERT_TRUE(pop.menu().isVisible());
    EXPECT_FALSE(velt::as<NSMenuItem>(pop.cell().itemAtIndex(0))->toolkitAction().isVisible());
    pop.choose(2);
    EXPECT_EQ("Do ", pop.window.heard());
    EXPECT_VALUE("q 2", VELT_NSPOPUPBUTTON_SELECTED(pop.button));
    EXPECT_VALUE("'Do'", velt::send(pop.button, "title"));
    EXPECT_VALUE("q 0", VELT_NSMENUITEM_STATE(pop.cell().itemAtIndex(2)));
}

TEST(PopUpButtons, ShowTheirTitleAsAnItemWhenAnotherOneComesBeforeIt) {
    const PopUp pop({"Do", "Cut"});
    VELT_NSPOPUPBUTTON_PULLSDOWN(pop.button, VELT_ID(BOOL{1}));
    const auto isVisible = [&](long index) {
        return velt::as<NSMenuItem>(pop.cell().itemAtIndex(index))->toolkitAction().isVisible();
    };
    EXPECT_FALSE(isVisible(0));
    VELT_NSPOPUPBUTTON_INSERT(pop.button, VELT_ID(0L), str("More"));
    EXPECT_FALSE(isVisible(0));
    EXPECT_TRUE(isVisible(1));
    VELT_NSPOPUPBUTTON_REMOVE(pop.button, VELT_ID(0L));
    EXPECT_FALSE(isVisible(0));
}

TEST(PopUpButtons, LetAnItemsOwnActionGoFirst) {
    const PopUp pop({"Red", "Green"});
    const id item = VELT_NSPOPUPBUTTON_OBJECT(pop.button, VELT_ID(1L));
    VELT_NSMENUITEM_TARGET(item, pop.window.listener);
    VELT_NSMENUITEM_ACTIONNAME(item, str("other"));
    QTest::mousePress(&pop.widget(), Qt::LeftButton);
    pop.choose(1);
    EXPECT_EQ("other ", pop.window.heard());
    EXPECT_VALUE("q 1", VELT_NSPOPUPBUTTON_SELECTED(pop.button));
}

TEST(PopUpButtons, TakeAnotherMenu) {
    const id button = VELT_NSPOPUPBUTTON_INIT(nil, "");
    VELT_NSPOPUPBUTTON_APPEND(button, str("Red"));
    const id menu = VELT_NSMENU_INIT(nil, "Sizes");
    VELT_NSMENU_APPEND(menu, str("Small"));
    VELT_NSMENU_APPEND(menu, str("Large"));
    VELT_NSPOPUPBUTTON_MENU(button, menu);
    EXPECT_EQ(menu, VELT_NSPOPUPBUTTON_MENU(button));
    EXPECT_VALUE("'Small'", VELT_NSPOPUPBUTTON_SELECTEDTITLE(button));
    EXPECT_VALUE("c 0", VELT_NSPOPUPBUTTON_AUTOENABLESITEMS(button));
    VELT_NSPOPUPBUTTON_AUTOENABLESITEMS(button, VELT_ID(BOOL{1}));
    EXPECT_VALUE("c 1", VELT_NSPOPUPBUTTON_AUTOENABLESITEMS(button));
    EXPECT_CAST_FAILURE("'NSMenu' expected", VELT_NSPOPUPBUTTON_MENU(button, str("x")));
}

TEST(PopUpButtonCells, HaveNoTitleNoItemsAndNoBorder) {
    const id cell = VELT_NSPOPUPBUTTONCELL_INIT(nil, "");
    EXPECT_VALUE("''", velt::send(cell, "title"));
    EXPECT_VALUE("c 0", velt::send(cell, "isBordered"));
    EXPECT_VALUE("c 0", velt::send(cell, "pullsDown"));
    EXPECT_TRUE(VELT_NSPOPUPBUTTONCELL_SELECTED(cell).isNil());
    const id menu = VELT_NSMENU_INIT(nil, "");
    VELT_NSMENU_APPEND(menu, str("One"));
    VELT_NSMENU_APPEND(menu, str("Two"));
    VELT_NSPOPUPBUTTONCELL_MENU(cell, menu);
    VELT_NSPOPUPBUTTONCELL_SELECT(cell, VELT_ID(1L));
    EXPECT_VALUE("'Two'", VELT_NSMENUITEM_TITLE(VELT_NSPOPUPBUTTONCELL_SELECTED(cell)));
    EXPECT_EQ(menu, VELT_NSPOPUPBUTTONCELL_MENU(cell));
}

TEST(PopUpButtons, SayToTheBlindWhatIsChosen) {
    const PopUp pop({"Red", "Green"});
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&pop.widget());
    ASSERT_TRUE(seen);
    EXPECT_EQ(QAccessible::ComboBox, seen->role());
    EXPECT_EQ(QStringLiteral("Red"), seen->text(QAccessible::Value));
    VELT_NSPOPUPBUTTON_SELECT(pop.button, VELT_ID(1L));
    EXPECT_EQ(QStringLiteral("Green"), seen->text(QAccessible::Value));
    VELT_NSPOPUPBUTTON_PULLSDOWN(pop.button, VELT_ID(BOOL{1}));
    EXPECT_EQ(QAccessible::ButtonMenu, seen->role());
}
