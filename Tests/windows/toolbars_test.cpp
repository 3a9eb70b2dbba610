#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/control_window.h"
#include "support/patience.h"

#include "VELTRuntime/platform/appkit/toolbars/toolbar_widget.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/user_defaults.h"

#include <QComboBox>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

using namespace velt::test;
using velt::Ref;

namespace {

id texts(std::initializer_list<const char*> all) {
    Ref<NSMutableArray> made = velt::make<NSMutableArray>();
    for (const char* text : all) made->append(str(text));
    return made;
}

/// Supplies the items "new", "open", "save" and "search", the last with a view; notes what it hears.
class BarOwner : public NSObject {
    VELT_OBJECT(BarOwner, NSObject)
public:
    id itemFor(const id&, const id& identifier, bool inserted) {
        const std::string name = velt::utf8(identifier);
        if (name == "unknown") return nil;
        heard += (inserted ? "+" : "?") + name + " ";
        const id made = velt::make<NSToolbarItem>(identifier);
        VELT_NSTOOLBARITEM_LABEL(made, identifier);
        velt::send(made, "setTarget:", id(this));
        velt::send(made, "setAction:", str("click:"));
        if (name == "search") {
            const id field = VELT_NSTEXTFIELD_INIT(nil, "");
            velt::as<NSView>(field)->setFrame({{0, 0}, {80, 22}});
            VELT_NSTOOLBARITEM_VIEW(made, field);
            VELT_NSTOOLBARITEM_MINSIZE(made, VELT_ID(NSSize{60, 22}));
            VELT_NSTOOLBARITEM_MAXSIZE(made, VELT_ID(NSSize{140, 22}));
        } else {
            QImage picture(32, 32, QImage::Format_ARGB32);
            picture.fill(name == "new" ? QColor(200, 60, 60) : QColor(60, 90, 200));
            VELT_NSTOOLBARITEM_IMAGE(made, velt::make<NSImage>(picture));
        }
        return made;
    }
    id defaults(const id&) { return texts({"new", "open", "NSToolbarFlexibleSpaceItem", "search"}); }
    id allowed(const id&) {
        return texts({"new", "open", "save", "search", "NSToolbarSpaceItem", "NSToolbarFlexibleSpaceItem",
                      "NSToolbarSeparatorItem"});
    }
    id selectable(const id& toolbar) {
        questions += 1;
        const std::string name = std::exchange(inserts, "");
        if (!name.empty()) velt::send(toolbar, "insertItemWithItemIdentifier:atIndex:", str(name.c_str()), VELT_ID(0L));
        return selects ? texts({"new", "open"}) : texts({});
    }
    void willAdd(const id& note) { added += nameIn(note); }
    void didRemove(const id& note) { removed += nameIn(note); }
    void click(const id& sender) { heard += "click " + velt::utf8(VELT_NSTOOLBARITEM_ITEMIDENTIFIER(sender)) + " "; }
    bool validate(const id& item) {
        validations += 1;
        if (relabels) VELT_NSTOOLBARITEM_LABEL(item, str("#" + std::to_string(validations)));
        return velt::utf8(VELT_NSTOOLBARITEM_ITEMIDENTIFIER(item)) != refuses;
    }
    static void describe(velt::ClassBuilder<BarOwner>& c) {
        c.method("toolbar:itemForItemIdentifier:willBeInsertedIntoToolbar:", &BarOwner::itemFor)
            .method("toolbarDefaultItemIdentifiers:", &BarOwner::defaults)
            .method("toolbarAllowedItemIdentifiers:", &BarOwner::allowed)
            .method("toolbarSelectableItemIdentifiers:", &BarOwner::selectable)
            .method("toolbarWillAddItem:", &BarOwner::willAdd)
            .method("toolbarDidRemoveItem:", &BarOwner::didRemove)
            .method("validateToolbarItem:", &BarOwner::validate)
            .method("click:", &BarOwner::click);
    }
    std::string told() { return std::exchange(heard, ""); }
    std::string heard, added, removed, refuses, inserts;
    bool selects = false, relabels = false;
    int validations = 0, questions = 0;

private:
    static std::string nameIn(const id& note) {
        const id info = velt::send(note, "userInfo");
        return velt::utf8(VELT_NSTOOLBARITEM_ITEMIDENTIFIER(velt::dictionaryOf(info)->objectForKey(str("item")))) + " ";
    }
};

struct Bar {
    explicit Bar(const ControlWindow& window, const char* name = "main") : toolbar(VELT_NSTOOLBAR_INIT(owner, name)) {
        VELT_NSWINDOW_SETTOOLBAR(window.window, toolbar);
    }
    velt::ToolbarWidget& widget() const { return *velt::as<NSToolbar>(toolbar)->existingWidget(); }
    static std::string namesOf(const id& items) {
        std::string all;
        for (const id& item : velt::arrayOf(items)->items()) {
            std::string name = velt::utf8(VELT_NSTOOLBARITEM_ITEMIDENTIFIER(item));
            if (name.starts_with("NSToolbar")) name = name.substr(9, name.size() - 13);
            all += name + " ";
        }
        return all;
    }
    std::string names() const { return namesOf(velt::send(toolbar, "items")); }
    std::string shown() const { return namesOf(velt::send(toolbar, "visibleItems")); }
    QToolButton* button(const char* label) const {
        for (QToolButton* each : widget().strip().findChildren<QToolButton*>(Qt::FindDirectChildrenOnly)) {
            if (each->text() == QLatin1String(label) && !each->isHidden()) return each;
        }
        return nullptr;
    }
    QPoint middleOf(std::size_t place) const { return widget().strip().places().at(place).rect.center(); }
    template <class T> T* named(const char* name) const {
        for (T* each : widget().window()->findChildren<T*>()) {
            if (each->accessibleName() == QLatin1String(name) && !each->isHidden()) return each;
        }
        return nullptr;
    }
    QWidget* sheet() const { return named<QWidget>("Customize Toolbar"); }
    QWidget& cover() const { return *named<QWidget>("Items of the toolbar"); }
    QAbstractButton& tile(const char* name) const {
        for (QAbstractButton* each : sheet()->findChildren<QAbstractButton*>()) {
            if (each->text() == QLatin1String(name)) return *each;
        }
        throw std::runtime_error("no such tile");
    }
    /// Drags within a widget's window, as the toolkit hands on what a mouse does while its button is down.
    static void drag(QWidget& from, QPoint start, const QWidget& to, QPoint end) {
        const QPoint there = from.mapFrom(from.window(), to.mapTo(to.window(), end));
        QTest::mousePress(&from, Qt::LeftButton, {}, start);
        for (const QPoint point : {(start + there) / 2, there}) {
            QMouseEvent event(QEvent::MouseMove, point, from.mapToGlobal(point), Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(&from, &event);
        }
        QMouseEvent release(QEvent::MouseButtonRelease, there, from.mapToGlobal(there), Qt::LeftButton, Qt::NoButton,
                            {});
        QApplication::sendEvent(&from, &release);
    }

    Ref<BarOwner> owner = velt::make<BarOwner>();
    id toolbar;
};

}  // namespace

TEST(Toolbars, AreMadeForTheirOwnerWithAnIdentifier) {
    const Ref<BarOwner> owner = velt::make<BarOwner>();
    const id toolbar = VELT_NSTOOLBAR_INIT(owner, "main");
    EXPECT_VALUE("'main'", velt::send(toolbar, "identifier"));
    EXPECT_EQ(id(owner), VELT_NSTOOLBAR_DELEGATE(toolbar));
    EXPECT_VALUE("c 1", VELT_NSTOOLBAR_VISIBLE(toolbar));
    EXPECT_VALUE("Q 0", VELT_NSTOOLBAR_DISPLAYMODE(toolbar));
    EXPECT_VALUE("Q 0", VELT_NSTOOLBAR_SIZEMODE(toolbar));
    EXPECT_VALUE("c 0", VELT_NSTOOLBAR_ALLOWSUSERCUSTOMIZATION(toolbar));
    EXPECT_VALUE("c 0", VELT_NSTOOLBAR_AUTOSAVESCONFIGURATION(toolbar));
    EXPECT_VALUE("c 1", VELT_NSTOOLBAR_SHOWSBASELINESEPARATOR(toolbar));
    VELT_NSTOOLBAR_DISPLAYMODE(toolbar, VELT_ID(7L));
    VELT_NSTOOLBAR_SIZEMODE(toolbar, VELT_ID(2L));
    EXPECT_VALUE("Q 0", VELT_NSTOOLBAR_DISPLAYMODE(toolbar));
    EXPECT_VALUE("Q 2", VELT_NSTOOLBAR_SIZEMODE(toolbar));
    EXPECT_EQ("", owner->told());  // nobody needs the items yet
}

TEST(ToolbarItems, KeepTheirIdentifierAndTakeAnActionOfTheOwner) {
    const Ref<BarOwner> owner = velt::make<BarOwner>();
    const id item = VELT_NSTOOLBARITEM_INIT(owner, "click:");
    EXPECT_VALUE("'click:'", VELT_NSTOOLBARITEM_ITEMIDENTIFIER(item));
    EXPECT_VALUE("'click:'", velt::send(item, "action"));
    EXPECT_EQ(id(owner), velt::send(item, "target"));
    EXPECT_TRUE(VELT_NSTOOLBARITEM_ITEMIDENTIFIER(item, array()).isNil());
    EXPECT_VALUE("'click:'", VELT_NSTOOLBARITEM_ITEMIDENTIFIER(item));
    const id idle = VELT_NSTOOLBARITEM_INIT(owner, "unknown");
    EXPECT_TRUE(velt::send(idle, "target").isNil());
    EXPECT_TRUE(velt::send(idle, "action").isNil());
    VELT_NSTOOLBARITEM_TAG(item, VELT_ID(5L));
    VELT_NSTOOLBARITEM_LABEL(item, VELT_ID(12L));
    VELT_NSTOOLBARITEM_TOOLTIP(item, str("tip"));
    VELT_NSTOOLBARITEM_MINSIZE(item, VELT_ID(NSSize{10, 20}));
    EXPECT_VALUE("q 5", VELT_NSTOOLBARITEM_TAG(item));
    EXPECT_VALUE("'12'", VELT_NSTOOLBARITEM_LABEL(item));
    EXPECT_VALUE("''", VELT_NSTOOLBARITEM_PALETTELABEL(item));
    EXPECT_VALUE("'tip'", VELT_NSTOOLBARITEM_TOOLTIP(item));
    EXPECT_VALUE("{CGSize=dd} {10, 20}", VELT_NSTOOLBARITEM_MINSIZE(item));
    EXPECT_CAST_FAILURE("'NSView' expected", VELT_NSTOOLBARITEM_VIEW(item, str("x")));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_NSTOOLBARITEM_IMAGE(item, VELT_ID(1L)));
    EXPECT_CAST_FAILURE("'NSToolbar' expected", VELT_NSWINDOW_SETTOOLBAR(VELT_NSWINDOW_INIT(nil, ""), item));
}

TEST(Toolbars, StandAboveTheContentWhichKeepsItsSize) {
    const ControlWindow window;
    const Bar bar(window);
    EXPECT_EQ(bar.toolbar, VELT_NSWINDOW_TOOLBAR(window.window));
    window.show();
    EXPECT_EQ("new open FlexibleSpace search ", bar.names());
    EXPECT_EQ("+new +open +search ", bar.owner->told());
    EXPECT_EQ("new open NSToolbarFlexibleSpaceItem search ", bar.owner->added);
    EXPECT_EQ(QSize(240, 158), window.widget().centralWidget()->size());
    EXPECT_VALUE("d 180", VELT_NSWINDOW_HEIGHT(window.window));
    const int high = window.widget().height();
    VELT_NSTOOLBAR_HIDE(bar.toolbar);
    EXPECT_VALUE("c 0", VELT_NSTOOLBAR_VISIBLE(bar.toolbar));
    EXPECT_EQ("", bar.shown());
    EXPECT_EQ(QSize(240, 158), window.widget().centralWidget()->size());
    EXPECT_GT(high, window.widget().height());
    VELT_NSTOOLBAR_SHOW(bar.toolbar);
    EXPECT_EQ(high, window.widget().height());
    velt::send(window.window, "toggleToolbarShown:", nil);
    EXPECT_VALUE("c 0", VELT_NSTOOLBAR_VISIBLE(bar.toolbar));
    VELT_NSWINDOW_SETTOOLBAR(window.window, nil);
    EXPECT_TRUE(VELT_NSWINDOW_TOOLBAR(window.window).isNil());
    EXPECT_EQ(QSize(240, 158), window.widget().centralWidget()->size());
    const ControlWindow other({{320, 60}, {240, 180}});
    VELT_NSTOOLBAR_VISIBLE(bar.toolbar, VELT_ID(BOOL{1}));
    VELT_NSWINDOW_SETTOOLBAR(window.window, bar.toolbar);
    VELT_NSWINDOW_SETTOOLBAR(other.window, bar.toolbar);
    EXPECT_TRUE(VELT_NSWINDOW_TOOLBAR(window.window).isNil());
    EXPECT_EQ(bar.toolbar, VELT_NSWINDOW_TOOLBAR(other.window));
}

TEST(Toolbars, AreSeenAgainWhenTheyAreToldToShow) {
    const Ref<NSToolbar> bar = velt::make<NSToolbar>(str("tools"));
    bar->setVisible(false);
    velt::send(id(bar), "Show");
    EXPECT_TRUE(bar->isVisible());
}

TEST(Toolbars, SendTheActionOfAClickedItem) {
    const ControlWindow window({{50, 60}, {400, 180}});
    const Bar bar(window);
    window.show();
    bar.owner->told();
    QTest::mouseClick(bar.button("open"), Qt::LeftButton);
    EXPECT_EQ("click open ", bar.owner->told());
    const id item = velt::arrayOf(velt::send(bar.toolbar, "items"))->at(0);
    bar.owner->refuses = "new";
    velt::send(bar.toolbar, "validateVisibleItems");
    EXPECT_VALUE("c 0", VELT_NSTOOLBARITEM_ENABLED(item));
    QTest::mouseClick(bar.button("new"), Qt::LeftButton);
    EXPECT_EQ("", bar.owner->told());
    bar.owner->refuses = "";
    // What a person does lets the items be asked again.
    QTest::keyClick(&window.widget(), Qt::Key_Shift);
    EXPECT_TRUE(comesTrue([&] { return VELT_CBOOL(VELT_NSTOOLBARITEM_ENABLED(item)); }));
    velt::send(item, "setAction:", str("unknown:"));
    velt::send(bar.toolbar, "validateVisibleItems");
    EXPECT_VALUE("c 0", VELT_NSTOOLBARITEM_ENABLED(item));
}

TEST(Toolbars, ChooseOneOfTheItemsThatCanBeChosen) {
    const ControlWindow window({{50, 60}, {400, 180}});
    const Bar bar(window);
    bar.owner->selects = true;
    VELT_NSTOOLBAR_DISPLAYMODE(bar.toolbar, VELT_ID(1L));
    window.show();
    VELT_NSTOOLBAR_SETSELECTEDITEMIDENTIFIER(bar.toolbar, str("open"));
    bar.owner->told();
    EXPECT_TRUE(bar.button("open")->isChecked());
    EXPECT_FALSE(bar.button("new")->isChecked());
    QTest::mouseClick(bar.button("new"), Qt::LeftButton);
    EXPECT_EQ("click new ", bar.owner->told());
    EXPECT_VALUE("'new'", velt::send(bar.toolbar, "selectedItemIdentifier"));
    EXPECT_TRUE(bar.button("new")->isChecked());
    QTest::mouseClick(bar.button("new"), Qt::LeftButton);
    EXPECT_TRUE(bar.button("new")->isChecked());
}

TEST(Toolbars, BearADelegateThatChangesThemWhenItIsAskedWhatStaysChosen) {
    const ControlWindow window({{50, 60}, {600, 180}});
    const Bar bar(window);
    bar.owner->selects = true;
    window.show();
    bar.owner->inserts = "save";
    bar.owner->questions = 0;
    VELT_NSTOOLBAR_SETSELECTEDITEMIDENTIFIER(bar.toolbar, str("open"));
    EXPECT_EQ(1, bar.owner->questions);
    EXPECT_EQ("save new open FlexibleSpace search ", bar.names());
    EXPECT_EQ(bar.names(), bar.shown());
    EXPECT_EQ(5U, bar.widget().strip().places().size());
    ASSERT_TRUE(bar.button("open"));
    EXPECT_TRUE(bar.button("open")->isChecked());
    EXPECT_FALSE(bar.button("save")->isCheckable());
}

TEST(Toolbars, InsertAndRemoveItems) {
    const ControlWindow window({{50, 60}, {500, 180}});
    const Bar bar(window);
    const auto insert = [&](const char* name, long place) {
        velt::send(bar.toolbar, "insertItemWithItemIdentifier:atIndex:", str(name), VELT_ID(place));
    };
    insert("save", 1);
    insert("NSToolbarSeparatorItem", 0);
    insert("NSToolbarSeparatorItem", 0);
    EXPECT_EQ("Separator Separator new save open FlexibleSpace search ", bar.names());
    insert("save", 0);
    insert("unknown", 0);
    EXPECT_EQ("Separator Separator new save open FlexibleSpace search ", bar.names());
    velt::send(bar.toolbar, "removeItemAtIndex:", VELT_ID(6L));
    EXPECT_EQ("search ", bar.owner->removed);
    EXPECT_RAISES("NSRangeException: 'NSToolbar' removeItemAtIndex:: index 6 is out of range; the count is 6",
                  velt::send(bar.toolbar, "removeItemAtIndex:", VELT_ID(6L)));
    EXPECT_RAISES(
        "NSRangeException: 'NSToolbar' insertItemWithItemIdentifier:atIndex:: index -1 is out of range; the count is 7",
        insert("search", -1));
    for (const char* name : {"NSToolbarShowColorsItem", "NSToolbarShowFontsItem", "NSToolbarCustomizeToolbarItem",
                             "NSToolbarPrintItem", "NSToolbarSpaceItem"}) {
        insert(name, 0);
    }
    EXPECT_EQ("Space Print CustomizeToolbar ShowFonts ShowColors Separator Separator new save open FlexibleSpace ",
              bar.names());
}

TEST(Toolbars, ShowViewsBetweenTheirSizes) {
    const ControlWindow window({{50, 60}, {500, 180}});
    const Bar bar(window);
    velt::send(bar.toolbar, "removeItemAtIndex:", VELT_ID(2L));
    window.show();
    const id item = velt::arrayOf(velt::send(bar.toolbar, "items"))->at(2);
    const id view = VELT_NSTOOLBARITEM_VIEW(item);
    EXPECT_EQ(140, velt::as<NSView>(view)->frame().size.width);
    EXPECT_EQ(window.window, velt::send(view, "window"));
    EXPECT_TRUE(velt::as<NSView>(view)->widget().isVisible());
    velt::send(bar.toolbar, "insertItemWithItemIdentifier:atIndex:", str("NSToolbarFlexibleSpaceItem"), VELT_ID(0L));
    EXPECT_GE(140, velt::as<NSView>(view)->frame().size.width);
    velt::send(bar.toolbar, "removeItemAtIndex:", VELT_ID(3L));
    EXPECT_TRUE(velt::send(view, "window").isNil());
}

TEST(Toolbars, ShowTheViewThatAnItemIsGivenInPlaceOfAnother) {
    const ControlWindow window({{50, 60}, {500, 180}});
    const Bar bar(window);
    window.show();
    const id item = velt::arrayOf(velt::send(bar.toolbar, "items"))->at(3);
    const id before = VELT_NSTOOLBARITEM_VIEW(item), field = VELT_NSTEXTFIELD_INIT(nil, "");
    const QPointer<QWidget> widget = &velt::as<NSView>(before)->widget();
    VELT_NSTOOLBARITEM_VIEW(item, field);
    QTest::qWait(20);
    EXPECT_EQ(window.window, velt::send(field, "window"));
    EXPECT_TRUE(velt::as<NSView>(field)->widget().isVisible());
    EXPECT_TRUE(velt::send(before, "window").isNil());
    ASSERT_FALSE(widget.isNull());
    EXPECT_FALSE(widget->isVisible());
    VELT_NSTOOLBARITEM_VIEW(item, before);
    EXPECT_TRUE(widget->isVisible());
    EXPECT_FALSE(velt::as<NSView>(field)->widget().isVisible());
}

TEST(Toolbars, BearItemsThatAreChangedWhenTheyAreAskedAbout) {
    const ControlWindow window({{50, 60}, {400, 180}});
    const Bar bar(window);
    window.show();
    VELT_NSWINDOW_WIDTH(window.window, VELT_ID(100L));
    QTest::qWait(20);
    ASSERT_TRUE(bar.widget().strip().overflow().isVisible());
    bar.owner->relabels = true;
    QMenu* menu = bar.widget().strip().overflow().menu();
    Q_EMIT menu->aboutToShow();
    ASSERT_EQ(2, menu->actions().size());
    EXPECT_EQ(QLatin1Char('#'), menu->actions()[0]->text().at(0));
    EXPECT_EQ(QLatin1Char('#'), menu->actions()[1]->text().at(0));
    QTest::qWait(50);
    const int asked = bar.owner->validations;
    QTest::qWait(50);
    EXPECT_EQ(asked, bar.owner->validations);
}

TEST(Toolbars, PutWhatHasNoRoomIntoAMenu) {
    const ControlWindow window({{50, 60}, {400, 180}});
    const Bar bar(window);
    window.show();
    EXPECT_FALSE(bar.widget().strip().overflow().isVisible());
    EXPECT_EQ("new open FlexibleSpace search ", bar.shown());
    VELT_NSWINDOW_WIDTH(window.window, VELT_ID(100L));
    EXPECT_TRUE(comesTrue([&] { return bar.widget().strip().overflow().isVisible() && bar.shown() == "new "; }))
        << bar.shown();
    bar.owner->told();
    QMenu* menu = bar.widget().strip().overflow().menu();
    menu->popup(QPoint(100, 100));
    ASSERT_TRUE(comesIntoView(menu));
    ASSERT_EQ(2, menu->actions().size());
    EXPECT_EQ(QStringLiteral("open"), menu->actions()[0]->text());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions()[0]).center());
    EXPECT_EQ("click open ", bar.owner->told());
    const id first = velt::arrayOf(velt::send(bar.toolbar, "items"))->at(1);
    velt::send(first, "setVisibilityPriority:", VELT_ID(1000L));
    EXPECT_EQ("open ", bar.shown());
}

TEST(Toolbars, AreCustomizedByDrags) {
    const ControlWindow window({{50, 60}, {600, 400}});
    const Bar bar(window);
    window.show();
    VELT_NSTOOLBAR_RUNCUSTOMIZATIONPALETTE(bar.toolbar);
    EXPECT_VALUE("c 1", velt::send(bar.toolbar, "customizationPaletteIsRunning"));
    ASSERT_TRUE(bar.sheet());
    QTest::qWait(20);
    velt::ToolbarStrip& strip = bar.widget().strip();
    keepPicture(window.widget(), "toolbar-customized");
    bar.drag(bar.tile("save"), QPoint(20, 20), strip,
             bar.middleOf(0) - QPoint(2, 0) * (QApplication::isRightToLeft() ? -1 : 1));
    EXPECT_EQ("save new open FlexibleSpace search ", bar.names());
    bar.drag(bar.cover(), bar.middleOf(0), strip,
             bar.middleOf(2) + QPoint(3, 0) * (QApplication::isRightToLeft() ? -1 : 1));
    EXPECT_EQ("new open save FlexibleSpace search ", bar.names());
    bar.drag(bar.cover(), bar.middleOf(1), window.widget(), QPoint(200, 200));
    EXPECT_EQ("new save FlexibleSpace search ", bar.names());
    EXPECT_EQ("open ", bar.owner->removed);
    bar.owner->told();
    QTest::mouseClick(&bar.cover(), Qt::LeftButton, {}, bar.middleOf(0));
    EXPECT_EQ("", bar.owner->told());  // nothing works while it is arranged
    bar.drag(bar.tile("Default Set"), QPoint(20, 20), strip, bar.middleOf(0));
    EXPECT_EQ("new open FlexibleSpace search ", bar.names());
    auto* done = bar.sheet()->findChild<QPushButton*>();
    ASSERT_TRUE(done);
    QTest::mouseClick(done, Qt::LeftButton);
    EXPECT_VALUE("c 0", velt::send(bar.toolbar, "customizationPaletteIsRunning"));
    EXPECT_FALSE(bar.sheet());
    EXPECT_TRUE(window.widget().centralWidget()->isEnabled());
}

TEST(Toolbars, AreCustomizedByKeys) {
    const ControlWindow window({{50, 60}, {600, 400}});
    const Bar bar(window);
    window.show();
    VELT_NSWINDOW_RUNTOOLBARCUSTOMIZATIONPALETTE(window.window);
    ASSERT_TRUE(bar.sheet());
    QTest::keyClick(&bar.tile("save"), Qt::Key_Space);
    EXPECT_EQ("new open FlexibleSpace search save ", bar.names());
    const Qt::Key forward = QApplication::isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    QTest::keyClick(&bar.cover(), forward);
    QTest::keyClick(&bar.cover(), forward, Qt::ControlModifier);
    EXPECT_EQ("open new FlexibleSpace search save ", bar.names());
    QTest::keyClick(&bar.cover(), Qt::Key_Delete);
    EXPECT_EQ("open FlexibleSpace search save ", bar.names());
    auto* modes = bar.sheet()->findChild<QComboBox*>();
    QTest::keyClick(modes, Qt::Key_Down);
    EXPECT_VALUE("Q 2", VELT_NSTOOLBAR_DISPLAYMODE(bar.toolbar));
    QTest::keyClick(bar.sheet(), Qt::Key_Escape);
    EXPECT_VALUE("c 0", velt::send(bar.toolbar, "customizationPaletteIsRunning"));
}

TEST(Toolbars, KeepTheirConfigurationInTheDefaults) {
    NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
    const id key = str("NSToolbar Configuration kept");
    defaults.removeObject(key);
    {
        const ControlWindow window({{50, 60}, {600, 400}});
        const Ref<BarOwner> owner = velt::make<BarOwner>();
        const id toolbar = VELT_NSTOOLBAR_INIT(owner, "kept");
        VELT_NSTOOLBAR_AUTOSAVESCONFIGURATION(toolbar, VELT_ID(BOOL{1}));
        VELT_NSWINDOW_SETTOOLBAR(window.window, toolbar);
        EXPECT_TRUE(defaults.objectForKey(key).isNil());
        window.show();
        VELT_NSTOOLBAR_RUNCUSTOMIZATIONPALETTE(toolbar);
        velt::send(toolbar, "removeItemAtIndex:", VELT_ID(0L));
        VELT_NSTOOLBAR_DISPLAYMODE(toolbar, VELT_ID(3L));
        for (QPushButton* done : window.widget().findChildren<QPushButton*>()) {
            if (done->text() == QLatin1String("Done")) QTest::mouseClick(done, Qt::LeftButton);
        }
        EXPECT_VALUE("c 0", velt::send(toolbar, "customizationPaletteIsRunning"));
    }
    const ControlWindow window({{50, 60}, {600, 400}});
    const Ref<BarOwner> owner = velt::make<BarOwner>();
    const id toolbar = VELT_NSTOOLBAR_INIT(owner, "kept");
    VELT_NSTOOLBAR_AUTOSAVESCONFIGURATION(toolbar, VELT_ID(BOOL{1}));
    VELT_NSWINDOW_SETTOOLBAR(window.window, toolbar);
    EXPECT_EQ("open FlexibleSpace search ", Bar::namesOf(velt::send(toolbar, "items")));
    EXPECT_VALUE("Q 3", VELT_NSTOOLBAR_DISPLAYMODE(toolbar));
    // What somebody wrote into the file that is of another kind is left out.
    const Ref<NSMutableDictionary> wrong = velt::make<NSMutableDictionary>();
    wrong->setObject(str("x"), str("TB Display Mode"));
    wrong->setObject(array(VELT_ID(1L), str("save")), str("TB Item Identifiers"));
    velt::send(toolbar, "setConfigurationFromDictionary:", wrong);
    EXPECT_EQ("save ", Bar::namesOf(velt::send(toolbar, "items")));
    EXPECT_VALUE("Q 3", VELT_NSTOOLBAR_DISPLAYMODE(toolbar));
    defaults.removeObject(key);
}

TEST(Toolbars, LookLikeTheDesktop) {
    const ControlWindow window({{50, 60}, {420, 160}});
    const Bar bar(window);
    bar.owner->selects = true;
    velt::send(bar.toolbar, "insertItemWithItemIdentifier:atIndex:", str("NSToolbarSeparatorItem"), VELT_ID(1L));
    window.show();
    VELT_NSTOOLBAR_SETSELECTEDITEMIDENTIFIER(bar.toolbar, str("open"));
    keepPicture(window.widget(), "toolbar");
    EXPECT_EQ(Qt::ToolButtonTextUnderIcon, bar.button("new")->toolButtonStyle());
    const int high = bar.widget().height();
    VELT_NSTOOLBAR_DISPLAYMODE(bar.toolbar, VELT_ID(2L));
    EXPECT_EQ(Qt::ToolButtonIconOnly, bar.button("new")->toolButtonStyle());
    EXPECT_GT(high, bar.widget().height());
    VELT_NSTOOLBAR_DISPLAYMODE(bar.toolbar, VELT_ID(3L));
    EXPECT_EQ(Qt::ToolButtonTextOnly, bar.button("new")->toolButtonStyle());
    keepPicture(window.widget(), "toolbar-labels");
    EXPECT_EQ(QSize(420, 138), window.widget().centralWidget()->size());
    VELT_NSTOOLBAR_DISPLAYMODE(bar.toolbar, VELT_ID(1L));
    VELT_NSTOOLBAR_SIZEMODE(bar.toolbar, VELT_ID(2L));
    VELT_NSWINDOW_WIDTH(window.window, VELT_ID(120L));
    QTest::qWait(20);
    keepPicture(window.widget(), "toolbar-narrow");
    window.widget().setPalette(darkPalette());
    keepPicture(window.widget(), "toolbar-dark");
}

TEST(Toolbars, SurviveTheirWindowAndGoWithIt) {
    id view, toolbar;
    {
        const id window = VELT_NSWINDOW_INIT(nil, "");
        const Ref<BarOwner> owner = velt::make<BarOwner>();
        toolbar = VELT_NSTOOLBAR_INIT(owner, "short");
        VELT_NSWINDOW_SETTOOLBAR(window, toolbar);
        view = VELT_NSTOOLBARITEM_VIEW(velt::arrayOf(velt::send(toolbar, "items"))->at(3));
        EXPECT_FALSE(velt::send(view, "window").isNil());
        VELT_NSWINDOW_DELEGATE(window, nil);  // else it keeps itself
    }
    EXPECT_TRUE(velt::send(view, "window").isNil());
    EXPECT_VALUE("Q 4", velt::send(velt::send(toolbar, "items"), "count"));
    VELT_NSTOOLBAR_HIDE(toolbar);
    VELT_NSTOOLBAR_RUNCUSTOMIZATIONPALETTE(toolbar);
    EXPECT_VALUE("c 0", velt::send(toolbar, "customizationPaletteIsRunning"));
}

TEST(Toolbars, KeepTheKeyboardOfAViewWhileTheirItemsChange) {
    const ControlWindow window({{50, 60}, {480, 180}});
    const Bar bar(window);
    window.show();
    const id items = velt::send(bar.toolbar, "items");
    const id first = velt::arrayOf(items)->at(0), search = velt::arrayOf(items)->at(3);
    const id field = VELT_NSTOOLBARITEM_VIEW(search);
    ASSERT_TRUE(VELT_CBOOL(VELT_NSWINDOW_MAKEFIRSTRESPONDER(window.window, field)));
    QTest::keyClicks(QApplication::focusWidget(), "ab");
    QToolButton* button = bar.button("new");
    VELT_NSTOOLBARITEM_ENABLED(first, VELT_ID(BOOL{0}));
    EXPECT_EQ(button, bar.button("new"));
    EXPECT_FALSE(button->isEnabled());
    QTest::keyClicks(QApplication::focusWidget(), "c");
    VELT_NSTOOLBARITEM_LABEL(first, "first"_v);
    EXPECT_NE(nullptr, bar.button("first"));
    VELT_NSTOOLBARITEM_LABEL(search, "Find"_v);
    VELT_NSTOOLBAR_DISPLAYMODE(bar.toolbar, VELT_ID(2L));
    VELT_NSTOOLBAR_DISPLAYMODE(bar.toolbar, VELT_ID(1L));
    velt::send(bar.toolbar, "removeItemAtIndex:", VELT_ID(1L));
    ASSERT_NE(nullptr, QApplication::focusWidget());
    QTest::keyClicks(QApplication::focusWidget(), "d");
    EXPECT_VALUE("'abcd'", VELT_NSCONTROL_STRINGVALUE(field));
    EXPECT_EQ(field, VELT_NSWINDOW_FIRSTRESPONDER(window.window));
}

TEST(Toolbars, HaveTheirViewsInTheWindowsKeyLoop) {
    const ControlWindow window({{50, 60}, {480, 180}});
    const Bar bar(window);
    const id below = VELT_NSTEXTFIELD_INIT(nil, "");
    VELT_NSVIEW_FRAME(below, rect(10, 10, 80, 24));
    VELT_NSWINDOW_APPEND(window.window, below);
    window.show();
    EXPECT_EQ(below, VELT_NSWINDOW_INITIALFIRSTRESPONDER(window.window));
    const id items = velt::send(bar.toolbar, "items");
    const id field = VELT_NSTOOLBARITEM_VIEW(velt::arrayOf(items)->at(3));
    VELT_NSWINDOW_SELECTPREVIOUSKEYVIEW(window.window);
    EXPECT_EQ(field, VELT_NSWINDOW_FIRSTRESPONDER(window.window));
    VELT_NSWINDOW_SELECTNEXTKEYVIEW(window.window);
    EXPECT_EQ(below, VELT_NSWINDOW_FIRSTRESPONDER(window.window));
}
