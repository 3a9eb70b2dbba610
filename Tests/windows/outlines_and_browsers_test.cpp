// Trees in a table, and trees in columns side by side.
#include "support/control_window.h"

#include <QListView>
#include <QTreeView>
#include <algorithm>
#include <map>

using namespace velt::test;
using velt::Ref;

namespace {

/// A tree whose items are texts: "a" has the children "a/0", "a/1" and so on, three levels deep.
class TreeSource : public NSObject {
    VELT_OBJECT(TreeSource, NSObject)
public:
    long count(const id&, const id& item) {
        heard += "count " + show(item) + " ";
        return level(item) < 3 ? 2 : 0;
    }
    id child(const id&, long index, const id& item) {
        const std::string name = (item.isNil() ? "" : velt::utf8(item) + "/") + std::to_string(index);
        return items.try_emplace(name, str(name)).first->second;
    }
    bool expandable(const id&, const id& item) { return level(item) < 3 && velt::utf8(item) != leaf; }
    id value(const id&, const id&, const id& item) { return item; }
    bool mayExpand(const id&, const id& item) { return velt::utf8(item) != "1"; }
    void expanded(const id& note) {
        const id item = velt::send(velt::send(note, "userInfo"), "objectForKey:", str("NSObject"));
        heard += "expanded " + show(item) + " ";
    }
    void selected(const id&) { heard += "selected "; }
    static void describe(velt::ClassBuilder<TreeSource>& c) {
        c.method("outlineView:numberOfChildrenOfItem:", &TreeSource::count)
            .method("outlineView:child:ofItem:", &TreeSource::child)
            .method("outlineView:isItemExpandable:", &TreeSource::expandable)
            .method("outlineView:objectValueForTableColumn:byItem:", &TreeSource::value)
            .method("outlineView:shouldExpandItem:", &TreeSource::mayExpand)
            .method("outlineViewItemDidExpand:", &TreeSource::expanded)
            .method("outlineViewSelectionDidChange:", &TreeSource::selected);
    }
    static long level(const id& item) {
        if (item.isNil()) return 0;
        const std::string name = velt::utf8(item);
        return 1 + std::count(name.begin(), name.end(), '/');
    }
    std::map<std::string, id> items;
    std::string heard, leaf;
};

/// An item that is like no other one, and may not say so.
class UnsureItem : public NSObject {
    VELT_OBJECT(UnsureItem, NSObject)
public:
    explicit UnsureItem(const bool& raises) : raises_(raises) {}
    bool isEqual(const id&) const override {
        if (raises_) velt::raise("CompareException", "who knows");
        return false;
    }
    static void describe(velt::ClassBuilder<UnsureItem>&) {}

private:
    const bool& raises_;
};

/// Two items, each with two more below; they are others whenever they are asked for.
class UnsureSource : public NSObject {
    VELT_OBJECT(UnsureSource, NSObject)
public:
    long count(const id&, const id&) { return 2; }
    id child(const id&, long, const id&) { return velt::make<UnsureItem>(raises); }
    bool expandable(const id&, const id&) { return true; }
    void selected(const id&) { heard += "selected "; }
    static void describe(velt::ClassBuilder<UnsureSource>& c) {
        c.method("outlineView:numberOfChildrenOfItem:", &UnsureSource::count)
            .method("outlineView:child:ofItem:", &UnsureSource::child)
            .method("outlineView:isItemExpandable:", &UnsureSource::expandable)
            .method("outlineViewSelectionDidChange:", &UnsureSource::selected);
    }
    std::string heard;
    bool raises = false;
};

/// Answers what an outline asks about its items.
class ItemDelegate : public NSObject {
    VELT_OBJECT(ItemDelegate, NSObject)
public:
    bool maySelect(const id&, const id& item) { return velt::utf8(item) != "1"; }
    void display(const id&, const id& cell, const id&, const id& item) {
        velt::send(cell, "setStringValue:", str("(" + velt::utf8(item) + ")"));
    }
    id toolTip(const id&, const id&, const id& item) { return str("tip " + velt::utf8(item)); }
    id searched(const id&, const id&, const id& item) { return str("item " + velt::utf8(item)); }
    static void describe(velt::ClassBuilder<ItemDelegate>& c) {
        c.method("outlineView:shouldSelectItem:", &ItemDelegate::maySelect)
            .method("outlineView:willDisplayCell:forTableColumn:item:", &ItemDelegate::display)
            .method("outlineView:toolTipForTableColumn:item:", &ItemDelegate::toolTip)
            .method("outlineView:typeSelectStringForTableColumn:item:", &ItemDelegate::searched);
    }
};

struct Outline {
    Outline() {
        velt::send(outline, "setFrame:", rect(10, 10, 300, 200));
        column->setTitle(str("Places"));
        view().addTableColumn(column.get());
        view().setDataSource(source);
        view().setDelegate(source);
        VELT_NSWINDOW_APPEND(window.window, outline);
        window.show();
        source->heard.clear();
    }
    ~Outline() { view().setDelegate(nil); }
    NSOutlineView& view() const { return *velt::as<NSOutlineView>(outline); }
    QTreeView& tree() const { return dynamic_cast<QTreeView&>(view().widget()); }
    /// An item of the program's, whether it was asked for or not.
    id item(const char* name) const { return source->items.try_emplace(name, str(name)).first->second; }

    ControlWindow window{{{50, 60}, {340, 260}}};
    Ref<TreeSource> source = velt::make<TreeSource>();
    id outline = VELT_NSOUTLINEVIEW_INIT(nil, "");
    Ref<NSTableColumn> column = velt::make<NSTableColumn>(str("place"));
};

}  // namespace

TEST(OutlineViews, AskForChildrenWhenTheyAreOpened) {
    const Outline shown;
    EXPECT_EQ(2, shown.view().numberOfRows());
    shown.view().expandItem(shown.item("0"));
    EXPECT_EQ("count '0' expanded '0' ", shown.source->heard);
    EXPECT_EQ(4, shown.view().numberOfRows());
    EXPECT_EQ(2, shown.view().rowForItem(shown.item("0/1")));
    EXPECT_VALUE("'0/1'", shown.view().itemAtRow(2));
    EXPECT_EQ(1, shown.view().levelForRow(2));
    EXPECT_EQ(shown.item("0"), shown.view().parentForItem(shown.item("0/1")));
    EXPECT_EQ(-1, shown.view().rowForItem(str("elsewhere")));
    shown.view().collapseItem(shown.item("0"));
    EXPECT_EQ(2, shown.view().numberOfRows());
    EXPECT_FALSE(shown.view().isItemExpanded(shown.item("0")));
}

TEST(OutlineViews, StayClosedWhenTheDelegateRefuses) {
    const Outline shown;
    shown.view().expandItem(shown.item("1"));
    EXPECT_FALSE(shown.view().isItemExpanded(shown.item("1")));
    EXPECT_EQ(2, shown.view().numberOfRows());
    shown.view().expandItemWithChildren(nil, true);
    EXPECT_TRUE(shown.view().isItemExpanded(shown.item("0/0")));
    EXPECT_EQ(8, shown.view().numberOfRows());
}

TEST(OutlineViews, KeepWhatIsOpenAndSelectedWhenTheyAreLoadedAnew) {
    const Outline shown;
    shown.view().expandItem(shown.item("0"));
    shown.view().selectRow(2, false);
    EXPECT_EQ(2, shown.view().selectedRow());
    shown.view().reloadData();
    EXPECT_TRUE(shown.view().isItemExpanded(shown.item("0")));
    EXPECT_EQ(2, shown.view().selectedRow());
    shown.view().reloadItemWithChildren(shown.item("0"), true);
    EXPECT_EQ(4, shown.view().numberOfRows());
}

TEST(OutlineViews, TellOfSelectionsAfterAnItemHasRaised) {
    const Outline shown;
    const Ref<UnsureSource> source = velt::make<UnsureSource>();
    shown.view().setDataSource(source);
    shown.view().setDelegate(source);
    shown.view().expandItem(shown.view().itemAtRow(0));
    ASSERT_EQ(4, shown.view().numberOfRows());
    source->raises = true;
    EXPECT_RAISES("CompareException: who knows", shown.view().reloadData());
    source->raises = false;
    shown.view().selectRow(1, false);
    EXPECT_EQ("selected ", source->heard);
    shown.view().reloadData();
    EXPECT_EQ(2, shown.view().numberOfRows());
}

TEST(OutlineViews, LoseTheChildrenOfAnItemThatCanNoLongerBeOpened) {
    const Outline shown;
    shown.view().expandItem(shown.item("0"));
    EXPECT_EQ(4, shown.view().numberOfRows());
    shown.source->leaf = "0";
    shown.view().reloadItemWithChildren(shown.item("0"), true);
    EXPECT_EQ(2, shown.view().numberOfRows());
}

TEST(OutlineViews, SelectTheRowsOfOpenItemsAmongTheOthers) {
    const Outline shown;
    const auto rows = [](std::vector<NSRange> ranges) { return id(velt::make<NSIndexSet>(ranges)); };
    shown.view().setAllowsMultipleSelection(true);
    shown.view().expandItem(shown.item("0"));  // its children are the rows 1 and 2
    shown.view().selectRowIndexes(rows({{0, 4}}), false);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 0-3>", shown.view().selectedRowIndexes());
    EXPECT_EQ(4, shown.view().numberOfSelectedRows());
    shown.view().selectRowIndexes(rows({{0, 2}}), false);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 0-1>", shown.view().selectedRowIndexes());
    shown.view().selectRowIndexes(rows({{3, 5}}), true);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 0-1 3>", shown.view().selectedRowIndexes());
    shown.view().selectRowIndexes(rows({{0, 1}, {3, 1}}), false);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 0 3>", shown.view().selectedRowIndexes());
    shown.view().selectAll(nil);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 0-3>", shown.view().selectedRowIndexes());
}

TEST(OutlineViews, AskTheirDelegateAboutItems) {
    const Outline shown;
    const Ref<ItemDelegate> delegate = velt::make<ItemDelegate>();
    shown.view().setDelegate(delegate);
    const QModelIndex first = shown.tree().model()->index(0, 0), second = first.siblingAtRow(1);
    EXPECT_VALUE("'1'", shown.view().valueAt(second));
    EXPECT_TRUE(shown.view().maySelect(first));
    EXPECT_FALSE(shown.view().maySelect(second));
    EXPECT_FALSE(shown.view().mayEdit(second));
    EXPECT_VALUE("'(1)'", velt::send(shown.view().preparedCell(second), "stringValue"));
    EXPECT_VALUE("'tip 1'", shown.view().toolTipAt(second));
    EXPECT_EQ(QStringLiteral("item 1"), shown.view().searchedText(second));
}

TEST(OutlineViews, AreWorkedByKeys) {
    const Outline shown;
    shown.view().selectRow(0, false);
    shown.tree().setFocus();
    QTest::keyClick(&shown.tree(), Qt::Key_Right);
    EXPECT_TRUE(shown.view().isItemExpanded(shown.item("0")));
    QTest::keyClick(&shown.tree(), Qt::Key_Down);
    EXPECT_EQ(1, shown.view().selectedRow());
    QTest::keyClick(&shown.tree(), Qt::Key_Left);
    QTest::keyClick(&shown.tree(), Qt::Key_Left);
    EXPECT_FALSE(shown.view().isItemExpanded(shown.item("0")));
}

namespace {

/// The numbers below 1000, digit by digit.
class DigitSource : public NSObject {
    VELT_OBJECT(DigitSource, NSObject)
public:
    long count(const id&, long column) {
        if (raises) velt::raise("CountException", "nobody knows");
        return column < 3 ? 10 : 0;
    }
    void display(const id&, const id& cell, long row, long column) {
        asked += 1;
        velt::send(cell, "setStringValue:", str(std::to_string(row)));
        velt::send(cell, "setLeaf:", VELT_ID(static_cast<BOOL>(column == 2)));
    }
    void chosen(const id& browser) { heard += velt::utf8(velt::send(browser, "path")) + " "; }
    void opened(const id& browser) { heard += "open " + velt::utf8(velt::send(browser, "path")) + " "; }
    static void describe(velt::ClassBuilder<DigitSource>& c) {
        c.method("browser:numberOfRowsInColumn:", &DigitSource::count)
            .method("browser:willDisplayCell:atRow:column:", &DigitSource::display)
            .method("chosen:", &DigitSource::chosen)
            .method("opened:", &DigitSource::opened);
    }
    int asked = 0;
    bool raises = false;
    std::string heard;
    std::string told() { return std::exchange(heard, ""); }
};

struct Browser {
    Browser() {
        velt::send(value, "setFrame:", rect(10, 10, 380, 160));
        velt::send(value, "setDelegate:", source);
        velt::send(value, "setDoubleAction:", str("opened:"));
        VELT_NSWINDOW_APPEND(window.window, value);
        window.show();
    }
    ~Browser() { velt::send(value, "setDelegate:", nil); }
    NSBrowser& browser() const { return *velt::as<NSBrowser>(value); }
    QListView& list(int column) const {
        QList<QListView*> all;
        for (QListView* list : browser().widget().findChildren<QListView*>()) {
            if (list->isVisible()) all.append(list);
        }
        return *all.at(column);
    }
    void click(int column, int row, Qt::KeyboardModifiers held = {}) const {
        QListView& shown = list(column);
        QTest::mouseClick(shown.viewport(), Qt::LeftButton, held,
                          shown.visualRect(shown.model()->index(row, 0)).center());
    }

    ControlWindow window{{{50, 60}, {400, 220}}};
    Ref<DigitSource> source = velt::make<DigitSource>();
    id value = VELT_NSBROWSER_INIT(source, "chosen:");
};

}  // namespace

TEST(Browsers, OpenAColumnForWhatIsChosen) {
    const Browser shown;
    EXPECT_EQ(0, shown.browser().lastColumn());
    EXPECT_EQ(-1, shown.browser().selectedColumn());
    EXPECT_VALUE("'/'", shown.browser().path());
    shown.click(0, 4);
    EXPECT_EQ("/4 ", shown.source->told());
    EXPECT_EQ(1, shown.browser().lastColumn());
    shown.click(1, 2);
    EXPECT_EQ("/4/2 ", shown.source->told());
    shown.click(2, 1);
    EXPECT_EQ("/4/2/1 ", shown.source->told());
    EXPECT_EQ(2, shown.browser().lastColumn());
    EXPECT_VALUE("'1'", velt::send(velt::send(shown.value, "selectedCell"), "stringValue"));
    shown.click(0, 3);
    EXPECT_EQ("/3 ", shown.source->told());
    EXPECT_EQ(1, shown.browser().lastColumn());
}

TEST(Browsers, KeepARowSelectedUnlessNoneIsAllowed) {
    const Browser shown;
    shown.click(0, 4);
    shown.browser().setAllowsEmptySelection(false);
    shown.click(0, 4, Qt::ControlModifier);
    EXPECT_VALUE("'/4'", shown.browser().path());
    shown.list(0).clearSelection();
    EXPECT_EQ(1, shown.browser().lastColumn());
    shown.click(0, 3);
    EXPECT_VALUE("'/3'", shown.browser().path());
    shown.browser().reloadColumn(0);
    EXPECT_VALUE("'/3'", shown.browser().path());
    shown.browser().loadColumnZero();
    EXPECT_VALUE("'/'", shown.browser().path());
    shown.browser().setAllowsEmptySelection(true);
    shown.click(0, 4);
    shown.click(0, 4, Qt::ControlModifier);
    EXPECT_VALUE("'/'", shown.browser().path());
    EXPECT_EQ(0, shown.browser().lastColumn());
}

TEST(Browsers, FollowAPath) {
    const Browser shown;
    EXPECT_TRUE(shown.browser().setPath(str("/1/2/3")));
    EXPECT_VALUE("'/1/2/3'", shown.browser().path());
    EXPECT_EQ(3, shown.browser().selectedRowInColumn(2));
    EXPECT_VALUE("'/1/2'", shown.browser().pathToColumn(2));
    EXPECT_FALSE(shown.browser().setPath(str("/1/x")));
    EXPECT_VALUE("'/1'", shown.browser().path());
    EXPECT_EQ("", shown.source->told());
}

TEST(Browsers, AreWorkedByKeys) {
    const Browser shown;
    shown.list(0).setFocus();
    QTest::keyClick(&shown.list(0), Qt::Key_Down);
    shown.source->told();
    QTest::keyClick(&shown.list(0), Qt::Key_Down);
    EXPECT_VALUE("'/2'", shown.browser().path());
    EXPECT_EQ("/2 ", shown.source->told());
    QTest::keyClick(&shown.list(0), Qt::Key_Right);
    EXPECT_VALUE("'/2/0'", shown.browser().path());
    EXPECT_TRUE(shown.list(1).hasFocus());
    shown.source->told();
    QTest::keyClick(&shown.list(1), Qt::Key_Return);
    EXPECT_EQ("open /2/0 ", shown.source->told());
    QTest::keyClick(&shown.list(1), Qt::Key_Left);
    EXPECT_TRUE(shown.list(0).hasFocus());
}

TEST(Browsers, AreWorkedAfterTheirDelegateHasRaised) {
    const Browser shown;
    shown.source->raises = true;
    EXPECT_RAISES("CountException: nobody knows", shown.browser().reloadColumn(0));
    EXPECT_RAISES("CountException: nobody knows", shown.browser().addColumn());
    EXPECT_EQ(0, shown.browser().lastColumn());
    shown.source->raises = false;
    shown.click(0, 4);
    EXPECT_EQ(1, shown.browser().lastColumn());
    shown.browser().reloadColumn(0);
    EXPECT_VALUE("'/4'", shown.browser().path());
}

TEST(Browsers, KeepATitleForAColumnThatIsNotThereYet) {
    const Browser shown;
    shown.browser().setTitleOfColumn(str("Tens"), 1);
    shown.browser().setTitleOfColumn(str("Far"), 1L << 60);
    shown.click(0, 4);
    EXPECT_VALUE("'Tens'", shown.browser().titleOfColumn(1));
    EXPECT_VALUE("'Far'", shown.browser().titleOfColumn(1L << 60));
    shown.browser().setTitleOfColumn(nil, 1);
    EXPECT_VALUE("'4'", shown.browser().titleOfColumn(1));
}
