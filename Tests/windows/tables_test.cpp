#include <VELTRuntime/VELTRuntimeUI.h>

#include "windows/tables_support.h"

#include "VELTRuntime/platform/object/cycles.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QTreeView>
#include <algorithm>
#include <map>

using namespace velt::test;
using velt::Ref;

TEST(Tables, AskOnlyForWhatIsSeen) {
    const Table shown(1'000'000);
    EXPECT_EQ(1'000'000, shown.table->numberOfRows());
    shown.view().grab();
    EXPECT_LT(shown.source->asked.size(), 40U);
    shown.source->asked.clear();
    shown.table->scrollRowToVisible(999'999);
    shown.view().grab();
    EXPECT_LT(shown.source->asked.size(), 40U);
    EXPECT_TRUE(shown.source->asked.contains(999'999));
    EXPECT_FALSE(shown.source->asked.contains(500'000));
}

TEST(Tables, SelectByClickAndTellTheirDelegate) {
    const Table shown;
    shown.click(1);
    EXPECT_EQ("selected q 1 click q 1 ", shown.source->told());
    shown.click(2);
    EXPECT_EQ("click q 2 ", shown.source->told());
    EXPECT_EQ(1, shown.table->selectedRow());
    shown.click(4);
    EXPECT_EQ("selected q 4 click q 4 ", shown.source->told());
    EXPECT_EQ(1, shown.table->numberOfSelectedRows());
    shown.table->setAllowsMultipleSelection(true);
    shown.click(1);
    shown.click(4, 0, Qt::ShiftModifier);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 1 3-4>", shown.table->selectedRowIndexes());
    shown.click(3, 0, Qt::ControlModifier);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 1 4>", shown.table->selectedRowIndexes());
    QTest::mouseClick(shown.view().viewport(), Qt::LeftButton, {}, QPoint(30, shown.view().viewport()->height() - 2));
    EXPECT_EQ(-1, shown.table->selectedRow());
    EXPECT_EQ(-1, shown.table->clickedRow());
}

TEST(Tables, AreSelectedByTheProgramWithoutAsking) {
    const Table shown;
    shown.table->selectRow(2, false);
    EXPECT_EQ("selected q 2 ", shown.source->told());
    EXPECT_EQ(2, shown.table->selectedRow());
    shown.table->selectRow(3, false);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 3>", shown.table->selectedRowIndexes());
    shown.table->selectRow(99, false);
    EXPECT_EQ(-1, shown.table->selectedRow());
    shown.table->setAllowsMultipleSelection(true);
    shown.table->selectAll(nil);
    EXPECT_EQ(7, shown.table->numberOfSelectedRows());
    shown.source->told();
    shown.source->rows = 3;
    shown.table->reloadData();
    EXPECT_EQ("selected q 1 ", shown.source->told());
    EXPECT_VALUE("NSIndexSet <NSIndexSet 0-1>", shown.table->selectedRowIndexes());
    shown.table->deselectAll(nil);
    EXPECT_EQ("selected q -1 ", shown.source->told());
}

TEST(Tables, EditTextInPlaceAndOpenWhatCannotBeEdited) {
    const Table shown;
    shown.doubleClick(1);
    auto* editor = shown.view().findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    EXPECT_EQ(QStringLiteral("row 1"), editor->text());
    shown.source->told();
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("first"));
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();  // the toolkit takes the text over after the key
    EXPECT_EQ("set 1='first' ", shown.source->told());
    shown.doubleClick(3);
    EXPECT_EQ("selected q 3 click q 3 open q 3 ", shown.source->told());
    shown.name->setEditable(false);
    shown.doubleClick(1);
    EXPECT_EQ("selected q 1 click q 1 open q 1 ", shown.source->told());
    QTest::keyClick(&shown.view(), Qt::Key_Down);
    shown.source->told();
    QTest::keyClick(&shown.view(), Qt::Key_Return);
    EXPECT_EQ("open q 2 ", shown.source->told());
}

TEST(Tables, WorkButtonsInTheirCells) {
    const Table shown;
    shown.click(1, 1);
    EXPECT_EQ(1, shown.source->states[1]);
    shown.click(1, 1);
    EXPECT_EQ(0, shown.source->states[1]);
    EXPECT_NE(std::string::npos, shown.source->told().find("set 1=q 1 "));
    shown.done->setEditable(false);
    shown.click(1, 1);
    EXPECT_EQ(0, shown.source->states[1]);
}

TEST(Tables, SortByClicksOnTheHeader) {
    const Table shown;
    shown.name->setSortDescriptorPrototype(velt::make<NSSortDescriptor>(str("name"), true));
    QHeaderView& header = *shown.view().horizontalHeader();
    EXPECT_EQ(header.viewport(), shown.view().childAt(header.geometry().topLeft() + QPoint(20, 8)));
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, QPoint(20, 8));
    EXPECT_EQ("sort NSMutableArray (<NSSortDescriptor name ascending>) ", shown.source->told());
    EXPECT_EQ(Qt::AscendingOrder, header.sortIndicatorOrder());
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, QPoint(20, 8));
    EXPECT_EQ("sort NSMutableArray (<NSSortDescriptor name descending>) ", shown.source->told());
    EXPECT_EQ(Qt::DescendingOrder, header.sortIndicatorOrder());
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, QPoint(200, 8));
    EXPECT_EQ("", shown.source->told());
}

TEST(Tables, KeepTheirColumnsAsThePersonLeavesThem) {
    const Table shown;
    QHeaderView& header = *shown.view().horizontalHeader();
    header.resizeSection(0, 93);
    EXPECT_EQ(90, shown.name->width());
    shown.name->setMinWidth(100);
    EXPECT_EQ(100, shown.name->width());
    header.resizeSection(0, 50);
    EXPECT_EQ(100, shown.name->width());
    EXPECT_EQ(103, header.sectionSize(0));
    header.moveSection(0, 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown.table->columnWithIdentifier(str("name")) == 1; }));
    EXPECT_EQ(QStringLiteral("Done"), header.model()->headerData(0, Qt::Horizontal).toString());
    EXPECT_EQ(0, header.logicalIndex(0));
    shown.done->setHidden(true);
    EXPECT_TRUE(header.isSectionHidden(0));
    shown.table->setHeaderView(nil);
    EXPECT_FALSE(header.isVisible());
}

TEST(Tables, ShowCellsOfEveryKind) {
    const Table shown;
    shown.table->setUsesAlternatingRowBackgroundColors(true);
    shown.table->setGridStyleMask(3);
    const Ref<NSTableColumn> choice = velt::make<NSTableColumn>(str("done"));
    const id cell = VELT_NSPOPUPBUTTONCELL_INIT(nil, "");
    for (const char* title : {"Low", "High"}) velt::send(cell, "addItemWithTitle:", str(title));
    choice->setTitle(str("Weight"));
    choice->setDataCell(cell);
    shown.table->addTableColumn(choice.get());
    shown.done->setWidth(50);
    shown.source->states[1] = 1;
    shown.table->selectRow(3, false);
    QImage with = shown.view().viewport()->grab().toImage();
    shown.source->states[1] = 0;
    shown.view().viewport()->update();
    EXPECT_NE(with, shown.view().viewport()->grab().toImage());
}

TEST(Tables, ForgetTheirColumnsAndSourcesWhenTheyGo) {
    const Ref<NSTableColumn> column = velt::make<NSTableColumn>(str("name"));
    {
        const Table shown;
        shown.table->addTableColumn(column.get());
        EXPECT_EQ(id(shown.table), column->tableView());
    }
    velt::collectCycles();
    EXPECT_TRUE(column->tableView().isNil());
}

TEST(IndexSets, JoinWhatTouches) {
    const Ref<NSIndexSet> set = velt::make<NSIndexSet>(std::vector<NSRange>{{5, 2}, {1, 1}, {2, 2}, {9, 0}, {4, 1}});
    EXPECT_VALUE("NSIndexSet <NSIndexSet 1-6>", set);
    EXPECT_EQ(6, set->count());
    EXPECT_EQ(6, set->indexGreaterThan(5));
    EXPECT_EQ(NSIndexSet::kNotFound, set->indexGreaterThan(6));
    EXPECT_EQ(6, set->indexLessThan(100));
    EXPECT_EQ(NSIndexSet::kNotFound, set->indexLessThan(1));
    EXPECT_EQ(NSIndexSet::kNotFound, velt::make<NSIndexSet>()->firstIndex());
}

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
    bool expandable(const id&, const id& item) { return level(item) < 3; }
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
    std::string heard;
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
    id item(const char* name) const { return source->items.at(name); }

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
    long count(const id&, long column) { return column < 3 ? 10 : 0; }
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
    void click(int column, int row) const {
        QListView& shown = list(column);
        QTest::mouseClick(shown.viewport(), Qt::LeftButton, {},
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

namespace {

/// Says how its cells look, and what is told about them.
class Dresser : public RowSource {
    VELT_OBJECT(Dresser, RowSource)
public:
    void willDisplay(const id&, const id& cell, const id& column, long row) {
        if (row == 1 && velt::is<NSButtonCell>(cell)) velt::send(cell, "setEnabled:", boolean(false));
        if (row != 1 && velt::is<NSButtonCell>(cell)) velt::send(cell, "setEnabled:", boolean(true));
        if (row == 2)
            velt::send(cell, "setStringValue:", str("dressed " + velt::utf8(velt::send(column, "identifier"))));
    }
    id cellFor(const id&, const id& column, long row) { return row == 4 ? other : velt::send(column, "dataCell"); }
    id tip(const id&, const id& column, long row) {
        return row == 0 ? nil : str(velt::utf8(velt::send(column, "title")) + " of " + std::to_string(row));
    }
    static void describe(velt::ClassBuilder<Dresser>& c) {
        c.method("tableView:willDisplayCell:forTableColumn:row:", &Dresser::willDisplay)
            .method("tableView:dataCellForTableColumn:row:", &Dresser::cellFor)
            .method("tableView:toolTipForTableColumn:row:", &Dresser::tip)
            .owns(&Dresser::other);
    }
    id other = VELT_NSCELL_INIT(nil, "");
};

/// Tells about a cell by where it is.
class Placer : public RowSource {
    VELT_OBJECT(Placer, RowSource)
public:
    id tip(const id&, const id& cell, const id& place, const id&, long row, const id& mouse) {
        return str(std::to_string(row) + " " + velt::utf8(velt::send(cell, "stringValue")) + " " + show(place) + " " +
                   velt::typeCodeOrNull(mouse));
    }
    static void describe(velt::ClassBuilder<Placer>& c) {
        c.method("tableView:toolTipForCell:rect:tableColumn:row:mouseLocation:", &Placer::tip);
    }
};

}  // namespace

TEST(Tables, LetTheirDelegateDressTheirCells) {
    const Table shown(8, velt::make<Dresser>());
    const auto text = [&](int row, int column) {
        return shown.view().model()->index(row, column).data().toString().toStdString();
    };
    EXPECT_EQ("row 1", text(1, 0));
    EXPECT_EQ("dressed name", text(2, 0));
    EXPECT_EQ("1", [&] {
        shown.source->states[4] = 1;
        return text(4, 1);
    }());  // another cell than the check box
    shown.click(1, 1);
    EXPECT_EQ(0, shown.source->states[1]);
    shown.click(3, 1);
    EXPECT_EQ(1, shown.source->states[3]);
}

TEST(Tables, TellAboutTheirCells) {
    const Table shown(8, velt::make<Dresser>());
    const auto tip = [](const Table& table, int row, int column) {
        return table.view().model()->index(row, column).data(Qt::ToolTipRole).toString().toStdString();
    };
    EXPECT_EQ("Name of 3", tip(shown, 3, 0));
    EXPECT_EQ("", tip(shown, 0, 0));
    const Table placed(8, velt::make<Placer>());
    const QRect cell = placed.view().visualRect(placed.view().model()->index(3, 0));
    const QPoint corner = placed.view().viewport()->pos();
    const NSRect expected{{double(corner.x() + cell.x()), double(corner.y() + cell.y())},
                          {double(cell.width()), double(cell.height())}};
    EXPECT_EQ("3 row 3 " + show(VELT_ID(expected)) + " {CGPoint=dd}", tip(placed, 3, 0));
}

TEST(Tables, ChooseInPopUpCells) {
    const Table shown;
    const Ref<NSTableColumn> choice = velt::make<NSTableColumn>(str("done"));
    const id cell = VELT_NSPOPUPBUTTONCELL_INIT(nil, "");
    for (const char* title : {"Low", "Normal", "High"}) velt::send(cell, "addItemWithTitle:", str(title));
    choice->setDataCell(cell);
    shown.table->addTableColumn(choice.get());
    shown.done->setWidth(40);
    shown.source->states[2] = 1;
    shown.source->told();
    const auto open = [&](int row) {
        QTest::mousePress(shown.view().viewport(), Qt::LeftButton, {}, shown.at(row, 2));
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());  // which has the mouse from then on
    };
    const auto choose = [&](QMenu& menu, int item) {
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions()[item]).center());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !QApplication::activePopupWidget(); }));
        QApplication::processEvents();
        return shown.source->told();
    };
    QMenu* menu = open(2);
    ASSERT_TRUE(menu);
    EXPECT_EQ("set 2=q 2 ", choose(*menu, 2));
    EXPECT_EQ(2, shown.source->states[2]);
    EXPECT_EQ(0, shown.source->states[1]);
    menu = open(2);
    ASSERT_TRUE(menu);
    EXPECT_EQ("", choose(*menu, 2));  // it was that already
    menu = open(2);
    ASSERT_TRUE(menu);
    QTest::keyClick(menu, Qt::Key_Escape);
    menu = open(5);
    ASSERT_TRUE(menu);
    EXPECT_EQ("set 5=q 1 ", choose(*menu, 1));
}

TEST(Tables, ShowImages) {
    const Table shown;
    QImage red(12, 12, QImage::Format_RGB32);
    red.fill(Qt::red);
    const id picture = velt::make<NSImage>(red);
    const Ref<NSTableColumn> column = velt::make<NSTableColumn>(str("picture"));
    column->setDataCell(VELT_NSIMAGECELL_INIT(nil, "", picture));
    const auto isRed = [&] {
        const QImage seen = shown.view().viewport()->grab().toImage();
        return seen.pixelColor(shown.at(1, 2) * seen.devicePixelRatio()) == QColor(Qt::red);
    };
    shown.table->addTableColumn(column.get());
    shown.source->pictures[1] = picture;
    EXPECT_TRUE(isRed());
    shown.source->pictures.clear();
    EXPECT_FALSE(isRed());
}

TEST(Tables, FitAColumnToWhatIsSeenByADoubleClickOnItsEdge) {
    const Table shown(1'000'000);
    QHeaderView& header = *shown.view().horizontalHeader();
    shown.source->texts[2] = "a text that needs a good deal of room";
    shown.source->asked.clear();
    const QPoint edge(header.sectionSize(0) - 1, header.height() / 2);
    QTest::mouseDClick(header.viewport(), Qt::LeftButton, {}, edge);
    EXPECT_LT(shown.source->asked.size(), 40U);
    const int needed =
        shown.view().fontMetrics().horizontalAdvance(QStringLiteral("a text that needs a good deal of room"));
    EXPECT_LE(needed, shown.name->width());
    EXPECT_GT(needed + 40, shown.name->width());
}
