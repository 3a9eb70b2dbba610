#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/control_window.h"
#include "support/patience.h"

#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <functional>

using namespace velt::test;
using velt::Ref;

namespace {

/// Notes the order of what a menu tells its delegate and its target; answers what it is asked.
class MenuListener : public NSObject {
    VELT_OBJECT(MenuListener, NSObject)
public:
    void needsUpdate(const id&) { heard += "update "; }
    void willOpen(const id&) { heard += "open "; }
    void didClose(const id&) { heard += "close "; }
    void save(const id& sender) { heard += "save:" + velt::utf8(velt::send(sender, "title")) + " "; }
    void quit() { heard += "quit "; }
    bool validate(const id& item) {
        heard += "validate ";
        if (onAsked) onAsked();
        return velt::utf8(velt::send(item, "title")) != "Refused";
    }
    static void describe(velt::ClassBuilder<MenuListener>& c) {
        c.method("menuNeedsUpdate:", &MenuListener::needsUpdate)
            .method("menuWillOpen:", &MenuListener::willOpen)
            .method("menuDidClose:", &MenuListener::didClose)
            .method("save:", &MenuListener::save)
            .method("quit", &MenuListener::quit)
            .method("validateMenuItem:", &MenuListener::validate);
    }
    std::function<void()> onAsked;
    std::string heard;
    std::string told() { return std::exchange(heard, ""); }
};

NSMenu& menuOf(const id& value) { return *velt::as<NSMenu>(value); }
NSMenuItem& itemOf(const id& value) { return *velt::as<NSMenuItem>(value); }

std::string titles(const id& menu) {
    std::string all;
    for (const Ref<NSMenuItem>& item : menuOf(menu).items()) {
        all += item->isSeparatorItem() ? "-" : velt::utf8(item->title());
        all += " ";
    }
    return all;
}

/// The main menu of the application, for one test.
struct MainMenu {
    explicit MainMenu(const id& menu) { NSApplication::sharedApplication().setMainMenu(menu); }
    ~MainMenu() { NSApplication::sharedApplication().setMainMenu(nil); }
    MainMenu(const MainMenu&) = delete;
    MainMenu& operator=(const MainMenu&) = delete;
};

/// Chooses the help menu for a test, however it ends.
class HelpMenu {
public:
    explicit HelpMenu(const id& menu) { NSApplication::sharedApplication().setHelpMenu(menu); }
    ~HelpMenu() { NSApplication::sharedApplication().setHelpMenu(before_); }
    HelpMenu(const HelpMenu&) = delete;
    HelpMenu& operator=(const HelpMenu&) = delete;

private:
    const id before_ = NSApplication::sharedApplication().helpMenu();
};

QMenu& opened(const id& menu) {
    QMenu& widget = menuOf(menu).widget();
    widget.popup(QPoint(100, 100));
    EXPECT_TRUE(comesIntoView(&widget));
    return widget;
}

void clickItem(QMenu& widget, const id& item) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, widget.actionGeometry(&itemOf(item).toolkitAction()).center());
}

}  // namespace

TEST(Menus, AreMadeWithTheirTitleAndEnableNothingThemselves) {
    EXPECT_VALUE("'File'", VELT_NSMENU_TITLE(VELT_NSMENU_INIT(nil, "File")));
    const id menu = VELT_NSMENU_INIT(nil, "ignored", str("Edit"));
    EXPECT_VALUE("'Edit'", VELT_NSMENU_TITLE(menu));
    EXPECT_FALSE(menuOf(menu).autoenablesItems());
    EXPECT_VALUE("q 0", VELT_NSMENU_COUNT(menu));
    EXPECT_VALUE("NSMutableArray ()", VELT_NSMENU_ARRAY(menu));
    EXPECT_TRUE(VELT_NSMENU_ARRAY(nil).isNil());
    EXPECT_VALUE("'5'", VELT_NSMENU_TITLE(VELT_NSMENU_INIT(nil, "", VELT_ID(5L))));
}

TEST(Menus, MakeItemsOfPlainValues) {
    const id menu = VELT_NSMENU_INIT(nil, "File");
    VELT_NSMENU_APPEND(menu, str("Open"));
    VELT_NSMENU_APPEND(menu, VELT_ID(5L));
    EXPECT_EQ("Open 5 ", titles(menu));
    const id item = VELT_NSMENU_MENUITEM(menu, VELT_ID(0L));
    EXPECT_TRUE(velt::send(item, "action").isNil());
    EXPECT_VALUE("''", VELT_NSMENUITEM_KEYEQUIVALENT(item));
    EXPECT_VALUE("c 1", VELT_NSMENUITEM_ENABLED(item));
    VELT_NSMENU_PREPENDSEPARATOR(menu);
    VELT_NSMENU_PREPENDMENUITEM(menu, str("New"));
    VELT_NSMENU_APPENDSEPARATOR(menu);
    VELT_NSMENU_INSERTSEPARATOR(menu, VELT_ID(1L));
    VELT_NSMENU_INSERTMENUITEM(menu, str("Close"), VELT_ID(2L));
    VELT_NSMENU_APPENDMENUITEM(menu, VELT_NSMENUITEM_INIT(nil, "", str("Quit")));
    EXPECT_EQ("New - Close - Open 5 - Quit ", titles(menu));
    const id submenu = VELT_NSMENU_INIT(nil, "Recent");
    VELT_NSMENU_APPEND(menu, submenu);
    EXPECT_EQ(submenu, VELT_NSMENUITEM_SUBMENU(VELT_NSMENU_MENUITEM(menu, VELT_ID(8L))));
    EXPECT_VALUE("'Recent'", VELT_NSMENUITEM_TITLE(VELT_NSMENU_MENUITEM(menu, VELT_ID(8L))));
    VELT_NSMENU_PREPENDMENU(menu, VELT_NSMENU_INIT(nil, "First"));
    VELT_NSMENU_INSERTMENU(menu, VELT_NSMENU_INIT(nil, "Second"), VELT_ID(1L));
    VELT_NSMENU_REMOVE(menu, VELT_ID(2L));
    EXPECT_EQ("First Second - Close - Open 5 - Quit Recent ", titles(menu));
    VELT_NSMENU_REMOVEALL(menu);
    EXPECT_VALUE("q 0", VELT_NSMENU_COUNT(menu));
    VELT_NSMENU_REMOVEALL(menu);
    EXPECT_VALUE("q 0", VELT_NSMENU_COUNT(menu));
}

TEST(Menus, RefuseWhatIsOfAnotherKindOrHasNoPlace) {
    const id menu = VELT_NSMENU_INIT(nil, "File");
    EXPECT_CAST_FAILURE("'NSMenu' expected", VELT_NSMENU_APPENDMENU(menu, str("x")));
    EXPECT_CAST_FAILURE("'NSMenuItem' expected", VELT_NSMENU_APPENDMENUITEM(menu, str("x")));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_NSMENU_REMOVE(menu, array()));
    EXPECT_CAST_FAILURE("'NSMenu' expected", VELT_NSMENUITEM_SUBMENU(VELT_NSMENUITEM_INIT(nil, ""), str("x")));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_NSMENUITEM_IMAGE(VELT_NSMENUITEM_INIT(nil, ""), VELT_ID(1L)));
    EXPECT_RAISES("NSRangeException: 'NSMenu' removeItemAtIndex:: index 0 is out of range; the count is 0",
                  VELT_NSMENU_REMOVE(menu, VELT_ID(0L)));
    EXPECT_RAISES("NSRangeException: 'NSMenu' itemAtIndex:: index -1 is out of range; the count is 0",
                  VELT_NSMENU_MENUITEM(menu, VELT_ID(-1L)));
    EXPECT_RAISES("NSRangeException: 'NSMenu' insertItem:atIndex:: index 1 is out of range; the count is 1",
                  VELT_NSMENU_INSERTSEPARATOR(menu, VELT_ID(1L)));
    const id item = VELT_NSMENUITEM_INIT(nil, "", str("Open"));
    VELT_NSMENU_APPEND(menu, item);
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMenu' insertItem:atIndex:: the item is in a menu already",
                  VELT_NSMENU_APPEND(VELT_NSMENU_INIT(nil, "Edit"), item));
    const id inner = VELT_NSMENU_INIT(nil, "Inner");
    VELT_NSMENUITEM_SUBMENU(item, inner);
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMenuItem' setSubmenu:: the menu belongs to another item",
                  VELT_NSMENU_APPEND(menu, inner));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMenuItem' setSubmenu:: the item lies in that menu",
                  VELT_NSMENUITEM_SUBMENU(item, menu));
    EXPECT_VALUE("q 1", VELT_NSMENU_COUNT(menu));
}

TEST(MenuItems, AlwaysTakeTheOwnerAsTargetAndItsMethodAsAction) {
    const Ref<MenuListener> owner = velt::make<MenuListener>();
    const id item = VELT_NSMENUITEM_INIT(owner, "save:");
    EXPECT_VALUE("'save:'", VELT_NSMENUITEM_TITLE(item));
    EXPECT_VALUE("'save:'", velt::send(item, "action"));
    EXPECT_EQ(id(owner), VELT_NSMENUITEM_TARGET(item));
    const id idle = VELT_NSMENUITEM_INIT(owner, "unknown", str("Save"));
    EXPECT_VALUE("'Save'", VELT_NSMENUITEM_TITLE(idle));
    EXPECT_TRUE(velt::send(idle, "action").isNil());
    EXPECT_EQ(id(owner), VELT_NSMENUITEM_TARGET(idle));
}

TEST(MenuItems, BindAnActionByNameWithAColonFirst) {
    const Ref<MenuListener> owner = velt::make<MenuListener>();
    const id item = VELT_NSMENUITEM_INIT(owner, "");
    VELT_NSMENUITEM_ACTIONNAME(item, str("save"));
    EXPECT_VALUE("'save:'", velt::send(item, "action"));
    VELT_NSMENUITEM_ACTIONNAME(item, str("quit"));
    EXPECT_VALUE("'quit'", velt::send(item, "action"));
    VELT_NSMENUITEM_ACTIONNAME(item, str("unknown"));
    EXPECT_VALUE("'quit'", velt::send(item, "action"));
    EXPECT_VALUE("''", VELT_NSMENUITEM_ACTIONNAME(item));
    const id alone = VELT_NSMENUITEM_INIT(nil, "save:");
    VELT_NSMENUITEM_ACTIONNAME(alone, str("save"));
    EXPECT_TRUE(velt::send(alone, "action").isNil());
    EXPECT_TRUE(VELT_NSMENUITEM_ACTIONNAME(nil, str("save")).isNil());
}

TEST(MenuItems, KeepTheirProperties) {
    const id item = VELT_NSMENUITEM_INIT(nil, "", str("Save"));
    EXPECT_VALUE("Q 1048576", VELT_NSMENUITEM_KEYEQUIVALENTMODIFIERMASK(item));
    VELT_NSMENUITEM_TAG(item, VELT_ID(7L));
    VELT_NSMENUITEM_STATE(item, VELT_ID(-1L));
    VELT_NSMENUITEM_HIDDEN(item, VELT_ID(BOOL{1}));
    VELT_NSMENUITEM_REPRESENTEDOBJECT(item, array(str("a")));
    EXPECT_VALUE("q 7", VELT_NSMENUITEM_TAG(item));
    EXPECT_VALUE("q -1", VELT_NSMENUITEM_STATE(item));
    EXPECT_VALUE("c 1", VELT_NSMENUITEM_HIDDEN(item));
    EXPECT_VALUE("NSMutableArray (a)", VELT_NSMENUITEM_REPRESENTEDOBJECT(item));
    EXPECT_TRUE(VELT_NSMENUITEM_ATTRIBUTEDTITLE(item).isNil());
    VELT_NSMENUITEM_ATTRIBUTEDTITLE(item, velt::make<NSAttributedString>(u"Bold"));
    EXPECT_VALUE("'Bold'", VELT_NSMENUITEM_TITLE(item));
    const id menu = VELT_NSMENU_INIT(nil, "");
    VELT_NSMENU_APPEND(menu, item);
    EXPECT_EQ(item, VELT_NSMENU_MENUITEMWITHTAG(menu, VELT_ID(7L)));
    EXPECT_TRUE(VELT_NSMENU_MENUITEMWITHTAG(menu, VELT_ID(8L)).isNil());
}

TEST(Menus, AreWorkedByTheMouseAndTellTheirDelegateInOrder) {
    const Ref<MenuListener> listener = velt::make<MenuListener>();
    const id menu = VELT_NSMENU_INIT(nil, "File");
    VELT_NSMENU_DELEGATE(menu, listener);
    const id item = VELT_NSMENUITEM_INIT(listener, "save:", str("Save & Close"));
    VELT_NSMENU_APPEND(menu, str("Open"));
    VELT_NSMENU_APPEND(menu, item);
    QMenu& widget = opened(menu);
    EXPECT_EQ("update open ", listener->told());
    EXPECT_EQ(QStringLiteral("Save && Close"), itemOf(item).toolkitAction().text());
    clickItem(widget, item);
    EXPECT_EQ("close save:Save & Close ", listener->told());
    QMenu& again = opened(menu);
    QTest::keyClick(&again, Qt::Key_Escape);
    EXPECT_EQ("update open close ", listener->told());
    opened(menu);
    QTest::keyClick(&again, Qt::Key_Down);
    QTest::keyClick(&again, Qt::Key_Down);
    EXPECT_EQ(item, velt::send(menu, "highlightedItem"));
    QTest::keyClick(&again, Qt::Key_Return);
    EXPECT_EQ("update open close save:Save & Close ", listener->told());
}

TEST(Menus, KeepItemsAsTheProgramEnabledThem) {
    const Ref<MenuListener> listener = velt::make<MenuListener>();
    const id menu = VELT_NSMENU_INIT(nil, "File");
    VELT_NSMENU_APPEND(menu, str("Without an action"));
    const id item = VELT_NSMENUITEM_INIT(listener, "save:", str("Save"));
    VELT_NSMENU_APPEND(menu, item);
    VELT_NSMENUITEM_ENABLED(item, VELT_ID(BOOL{0}));
    QMenu& widget = opened(menu);
    clickItem(widget, item);
    EXPECT_EQ("", listener->told());
    EXPECT_VALUE("c 1", VELT_NSMENUITEM_ENABLED(VELT_NSMENU_MENUITEM(menu, VELT_ID(0L))));
    VELT_NSMENUITEM_ENABLED(item, VELT_ID(BOOL{1}));
    clickItem(widget, item);
    EXPECT_EQ("save:Save ", listener->told());
}

TEST(Menus, AskWhoAnswersWhenTheyEnableTheirItems) {
    const Ref<MenuListener> listener = velt::make<MenuListener>();
    const Ref<NSMenu> menu = velt::make<NSMenu>();
    const id save = VELT_NSMENUITEM_INIT(listener, "save:", str("Save"));
    const id refused = VELT_NSMENUITEM_INIT(listener, "save:", str("Refused"));
    const id idle = VELT_NSMENUITEM_INIT(nil, "", str("Idle"));
    for (const id& item : {save, refused, idle}) menu->addItem(&itemOf(item));
    QMenu& widget = opened(menu);
    EXPECT_EQ("validate validate ", listener->told());
    EXPECT_VALUE("c 1", VELT_NSMENUITEM_ENABLED(save));
    EXPECT_VALUE("c 0", VELT_NSMENUITEM_ENABLED(refused));
    EXPECT_VALUE("c 0", VELT_NSMENUITEM_ENABLED(idle));
    clickItem(widget, refused);
    EXPECT_TRUE(widget.isVisible());
    clickItem(widget, save);
    EXPECT_EQ("validate save:Save ", listener->told());
}

TEST(Menus, ShowStatesImagesAndAlternates) {
    const id menu = VELT_NSMENU_INIT(nil, "View");
    const id on = VELT_NSMENUITEM_INIT(nil, "", str("On")), mixed = VELT_NSMENUITEM_INIT(nil, "", str("Partly"));
    const id hidden = VELT_NSMENUITEM_INIT(nil, "", str("Hidden"));
    const id close = VELT_NSMENUITEM_INIT(nil, "", str("Close")), all = VELT_NSMENUITEM_INIT(nil, "", str("Close All"));
    for (const id& item : {on, mixed, hidden, close, all}) VELT_NSMENU_APPEND(menu, item);
    VELT_NSMENUITEM_STATE(on, VELT_ID(1L));
    VELT_NSMENUITEM_STATE(mixed, VELT_ID(-1L));
    VELT_NSMENUITEM_HIDDEN(hidden, VELT_ID(BOOL{1}));
    VELT_NSMENUITEM_KEYEQUIVALENT(close, str("w"));
    VELT_NSMENUITEM_KEYEQUIVALENT(all, str("w"));
    VELT_NSMENUITEM_KEYEQUIVALENTMODIFIERMASK(all, VELT_ID((1L << 20) | (1L << 19)));
    velt::send(all, "setAlternate:", VELT_ID(BOOL{1}));
    velt::send(mixed, "setToolTip:", str("some of them"));
    velt::send(mixed, "setIndentationLevel:", VELT_ID(1L));
    QMenu& widget = opened(menu);
    EXPECT_TRUE(itemOf(on).toolkitAction().isChecked());
    EXPECT_FALSE(itemOf(mixed).toolkitAction().icon().isNull());
    EXPECT_FALSE(itemOf(hidden).toolkitAction().isVisible());
    EXPECT_TRUE(itemOf(close).toolkitAction().isVisible());
    EXPECT_FALSE(itemOf(all).toolkitAction().isVisible());
    EXPECT_EQ(QStringLiteral("Ctrl+W"), itemOf(close).toolkitAction().shortcut().toString());
    EXPECT_EQ(QStringLiteral("some of them"), itemOf(mixed).toolkitAction().toolTip());
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Alt, Qt::ControlModifier);
    QApplication::sendEvent(&widget, &press);
    EXPECT_FALSE(itemOf(close).toolkitAction().isVisible());
    EXPECT_TRUE(itemOf(all).toolkitAction().isVisible());
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Alt, Qt::ControlModifier | Qt::AltModifier);
    QApplication::sendEvent(&widget, &release);
    EXPECT_TRUE(itemOf(close).toolkitAction().isVisible());
    widget.close();
}

TEST(MainMenu, StandsAboveTheContentOfEveryWindowAndTakesKeys) {
    const Ref<MenuListener> listener = velt::make<MenuListener>();
    const id main = VELT_NSMENU_INIT(nil, "Main"), file = VELT_NSMENU_INIT(nil, "File");
    const id save = VELT_NSMENUITEM_INIT(listener, "save:", str("Save"));
    VELT_NSMENUITEM_KEYEQUIVALENT(save, str("s"));
    VELT_NSMENU_APPEND(file, save);
    VELT_NSMENU_APPEND(main, file);
    const ControlWindow before;
    before.show();
    const MainMenu scope(main);
    const ControlWindow window({{320, 60}, {240, 180}});
    window.show();
    for (const ControlWindow* shown : {&before, &window}) {
        const auto* bar = qobject_cast<QMenuBar*>(shown->widget().menuWidget());
        ASSERT_TRUE(bar);
        ASSERT_EQ(1, bar->actions().size());
        EXPECT_EQ(QStringLiteral("File"), bar->actions()[0]->text());
        EXPECT_EQ(QSize(240, 158), shown->widget().centralWidget()->size());
        EXPECT_VALUE("d 240", VELT_NSWINDOW_WIDTH(shown->window));
        EXPECT_VALUE("d 180", VELT_NSWINDOW_HEIGHT(shown->window));
    }
    QTest::keyClick(&window.widget(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ("save:Save ", listener->told());
    VELT_NSMENUITEM_ENABLED(save, VELT_ID(BOOL{0}));
    QTest::keyClick(&window.widget(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ("", listener->told());
    VELT_NSMENUITEM_ENABLED(save, VELT_ID(BOOL{1}));
    VELT_NSMENUITEM_HIDDEN(VELT_NSMENU_MENUITEM(main, VELT_ID(0L)), VELT_ID(BOOL{0}));
    VELT_NSMENU_APPEND(main, VELT_NSMENU_INIT(nil, "Edit"));
    EXPECT_EQ(2, window.widget().menuWidget()->actions().size());
    NSApplication::sharedApplication().setMainMenu(nil);
    EXPECT_FALSE(window.widget().menuWidget());
    EXPECT_EQ(QSize(240, 158), window.widget().centralWidget()->size());
}

TEST(ContextMenus, BelongToTheViewOrToWhoComesBehindIt) {
    const ControlWindow window;
    const Ref<MenuListener> listener = velt::make<MenuListener>();
    const id view = VELT_PUSHBUTTON_INIT(nil, "");
    VELT_NSBUTTON_FRAME(view, rect(20, 20, 100, 30));
    VELT_NSWINDOW_APPEND(window.window, view);
    const id menu = VELT_NSMENU_INIT(nil, "");
    VELT_NSMENU_APPEND(menu, VELT_NSMENUITEM_INIT(listener, "save:", str("Save")));
    window.show();
    QWidget& widget = velt::as<NSView>(view)->widget();
    const auto ask = [&] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), widget.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    };
    for (const id& holder : {view, VELT_NSWINDOW_CONTENTVIEW(window.window), window.window}) {
        VELT_NSRESPONDER_MENU(holder, menu);
        ask();
        EXPECT_TRUE(menuOf(menu).isOpen());
        QMenu& shown = menuOf(menu).widget();
        clickItem(shown, VELT_NSMENU_MENUITEM(menu, VELT_ID(0L)));
        EXPECT_EQ("save:Save ", listener->told());
        VELT_NSRESPONDER_MENU(holder, nil);
    }
    ask();
    EXPECT_FALSE(menuOf(menu).isOpen());
}

TEST(ContextMenus, PopUpUntilAPersonChooses) {
    const ControlWindow window;
    const Ref<MenuListener> listener = velt::make<MenuListener>();
    window.show();
    const id menu = VELT_NSMENU_INIT(nil, "");
    VELT_NSMENU_APPEND(menu, VELT_NSMENUITEM_INIT(listener, "save:", str("Save")));
    QTimer::singleShot(0, [&] { clickItem(menuOf(menu).widget(), VELT_NSMENU_MENUITEM(menu, VELT_ID(0L))); });
    EXPECT_VALUE("c 1", velt::send(menu, "popUpMenuPositioningItem:atLocation:inView:", nil, point(10, 10),
                                   VELT_NSWINDOW_CONTENTVIEW(window.window)));
    EXPECT_EQ("save:Save ", listener->told());
    QTimer::singleShot(0, [&] { velt::send(menu, "cancelTracking"); });
    EXPECT_VALUE("c 0", velt::send(menu, "popUpMenuPositioningItem:atLocation:inView:", nil, point(10, 10), nil));
    EXPECT_EQ("", listener->told());
}

TEST(HelpMenus, SearchTheTitlesOfTheMainMenuUnlessTheProgramWantsNone) {
    const Ref<MenuListener> listener = velt::make<MenuListener>();
    const id main = VELT_NSMENU_INIT(nil, "Main"), file = VELT_NSMENU_INIT(nil, "File");
    const id help = VELT_NSMENU_INIT(nil, "Help");
    VELT_NSMENU_APPEND(file, VELT_NSMENUITEM_INIT(listener, "save:", str("Save")));
    const id refused = VELT_NSMENUITEM_INIT(listener, "save:", str("Save As"));
    VELT_NSMENUITEM_ENABLED(refused, VELT_ID(BOOL{0}));
    VELT_NSMENU_APPEND(file, refused);
    VELT_NSMENU_APPEND(help, str("Manual"));
    VELT_NSMENU_APPEND(main, file);
    VELT_NSMENU_APPEND(main, help);
    const MainMenu scope(main);
    NSApplication& application = NSApplication::sharedApplication();
    const HelpMenu none(nil);
    QMenu& widget = opened(help);
    auto* field = widget.findChild<QLineEdit*>();
    ASSERT_TRUE(field);
    QTest::keyClicks(field, "sav");
    ASSERT_EQ(4, widget.actions().size());  // the field, the one item found, a line, the menu's own item
    EXPECT_EQ(QStringLiteral("File ▸ Save"), widget.actions()[1]->text());
    QTest::mouseClick(&widget, Qt::LeftButton, {}, widget.actionGeometry(widget.actions()[1]).center());
    EXPECT_EQ("save:Save ", listener->told());
    opened(help);
    EXPECT_EQ(2, widget.actions().size());
    widget.close();
    opened(file);
    EXPECT_FALSE(menuOf(file).widget().findChild<QLineEdit*>());
    menuOf(file).widget().close();
    VELT_NSAPPLICATION_HIDESPOTLIGHTFORHELP(id(static_cast<NSObject*>(&application)));
    EXPECT_EQ(VELT_mSuppressSpotlightForHelp, application.helpMenu());
    opened(help);
    EXPECT_EQ(1, widget.actions().size());
    EXPECT_FALSE(widget.findChild<QLineEdit*>());
    widget.close();
    application.setHelpMenu(file);
    opened(file);
    EXPECT_TRUE(menuOf(file).widget().findChild<QLineEdit*>());
    menuOf(file).widget().close();
}

TEST(HelpMenus, BearAMainMenuThatChangesWhileItIsSearched) {
    const Ref<MenuListener> listener = velt::make<MenuListener>();
    const id main = VELT_NSMENU_INIT(nil, "Main"), file = VELT_NSMENU_INIT(nil, "File");
    const id help = VELT_NSMENU_INIT(nil, "Help");
    menuOf(file).setAutoenablesItems(true);
    VELT_NSMENU_APPEND(file, VELT_NSMENUITEM_INIT(listener, "save:", str("Save")));
    VELT_NSMENU_APPEND(main, file);
    VELT_NSMENU_APPEND(main, help);
    const MainMenu scope(main);
    const HelpMenu chosen(help);
    QMenu& widget = opened(help);
    auto* field = widget.findChild<QLineEdit*>();
    ASSERT_TRUE(field);
    listener->onAsked = [&] {
        while (menuOf(main).numberOfItems() < 40) VELT_NSMENU_APPEND(main, str("More"));
    };
    QTest::keyClicks(field, "s");
    EXPECT_EQ(40, menuOf(main).numberOfItems());
    EXPECT_EQ(QStringLiteral("File ▸ Save"), widget.actions().at(1)->text());
    widget.close();
    listener->onAsked = nullptr;
}
