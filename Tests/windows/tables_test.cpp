#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/patience.h"
#include "windows/tables_support.h"

#include "VELTRuntime/platform/appkit/controls/secure_text_field.h"
#include "VELTRuntime/platform/object/cycles.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>

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

namespace {

QStringList complaints;  // of the toolkit

void noteComplaint(QtMsgType, const QMessageLogContext&, const QString& text) { complaints.append(text); }

}  // namespace

TEST(Tables, EditForTheProgramOnlyWhatMayBeEdited) {
    const Table shown;
    complaints.clear();
    const QtMessageHandler before = qInstallMessageHandler(noteComplaint);
    shown.table->editColumn(0, 3, nil, true);  // the delegate refuses
    shown.table->editColumn(1, 1, nil, true);  // a button
    shown.name->setEditable(false);
    shown.table->editColumn(0, 1, nil, true);
    qInstallMessageHandler(before);
    EXPECT_TRUE(complaints.filter(QStringLiteral("editing failed")).isEmpty());
    EXPECT_FALSE(shown.view().findChild<QLineEdit*>());
    EXPECT_EQ(1, shown.table->selectedRow());
    shown.name->setEditable(true);
    shown.table->editColumn(0, 1, nil, true);
    ASSERT_TRUE(shown.view().findChild<QLineEdit*>());
    EXPECT_EQ(QStringLiteral("row 1"), shown.view().findChild<QLineEdit*>()->text());
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
    ASSERT_TRUE(comesTrue([&] { return shown.table->columnWithIdentifier(str("name")) == 1; }));
    EXPECT_EQ(QStringLiteral("Done"), header.model()->headerData(0, Qt::Horizontal).toString());
    EXPECT_EQ(0, header.logicalIndex(0));
    QTest::qWait(20);
    EXPECT_EQ(1, shown.table->columnWithIdentifier(str("name")));
    EXPECT_EQ("moved ", shown.source->told());
    shown.done->setHidden(true);
    EXPECT_TRUE(header.isSectionHidden(0));
    shown.table->setHeaderView(nil);
    EXPECT_FALSE(header.isVisible());
}

TEST(Tables, ScrollToARowWithoutMovingSideways) {
    const Table shown(1000);
    shown.name->setWidth(400);
    ASSERT_TRUE(comesTrue([&] { return shown.view().horizontalScrollBar()->maximum() > 0; }));
    const QModelIndex index = shown.view().model()->index(500, 0);
    shown.view().scrollTo(index, QAbstractItemView::PositionAtBottom);
    EXPECT_EQ(shown.view().viewport()->rect().bottom(), shown.view().visualRect(index).bottom());
    EXPECT_EQ(0, shown.view().horizontalScrollBar()->value());
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

TEST(Tables, ShowDotsForSecrets) {
    const Table shown;
    const Ref<NSSecureTextFieldCell> cell = velt::make<NSSecureTextFieldCell>(str(""));
    velt::send(cell, "setEditable:", VELT_ID(BOOL{1}));
    shown.name->setDataCell(cell);
    shown.source->texts = {{1, "iiii"}, {4, "WWWW"}, {5, "WW"}};
    const auto picture = [&](int row) {
        return shown.view().viewport()->grab(shown.view().visualRect(shown.view().model()->index(row, 0))).toImage();
    };
    EXPECT_EQ(picture(1), picture(4));
    EXPECT_NE(picture(4), picture(5));
    const QString said = shown.view().model()->index(4, 0).data().toString();
    EXPECT_EQ(4, said.size());
    EXPECT_FALSE(said.contains(QLatin1Char('W')));
    shown.doubleClick(4);
    auto* editor = shown.view().findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    EXPECT_EQ(QStringLiteral("WWWW"), editor->text());
    EXPECT_EQ(QLineEdit::Password, editor->echoMode());
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
        EXPECT_TRUE(comesTrue([&] { return !QApplication::activePopupWidget(); }));
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
