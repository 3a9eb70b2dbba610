// Data sources that behave badly: they lie about their rows, lose them while they are drawn, and raise in the middle.
#include "windows/tables_support.h"

#include "support/streams.h"

#include "VELTRuntime/platform/object/callback_failure.h"

#include <QLineEdit>
#include <QScrollBar>

using namespace velt::test;
using velt::Ref;

namespace {

/// Draws the table now, as the screen does.
void draw(const Table& shown) { shown.view().grab(); }

/// Raises when it is asked for its rows, once it shall.
class Raiser : public RowSource {
    VELT_OBJECT(Raiser, RowSource)
public:
    long counted(const id&) {
        if (raises) velt::raise("CountException", "nobody knows");
        return rows;
    }
    static void describe(velt::ClassBuilder<Raiser>& c) { c.method("numberOfRowsInTableView:", &Raiser::counted); }
    bool raises = false;
};

}  // namespace

TEST(TableSources, MaySayMoreRowsThanThereCanBe) {
    constexpr long kRows = 2'000'000'000;
    const Table shown(kRows);
    EXPECT_EQ(kRows, shown.table->numberOfRows());
    shown.table->scrollRowToVisible(kRows - 1);
    shown.source->asked.clear();
    draw(shown);
    EXPECT_TRUE(shown.source->asked.contains(kRows - 1));
    EXPECT_LT(shown.source->asked.size(), 40U);
    shown.table->selectRow(kRows - 1, false);
    shown.view().setFocus();
    QTest::keyClick(&shown.view(), Qt::Key_Up);
    EXPECT_EQ(kRows - 2, shown.table->selectedRow());
    shown.table->scrollRowToVisible(0);
    EXPECT_EQ(0, shown.view().verticalScrollBar()->value());
    shown.click(1);
    EXPECT_EQ(1, shown.table->selectedRow());
    shown.source->rows = 3;
    shown.table->reloadData();
    EXPECT_EQ(3, shown.table->numberOfRows());
    EXPECT_EQ(0, shown.view().verticalScrollBar()->maximum());
}

TEST(TableSources, MaySayLessThanNone) {
    const Table shown(-5);
    EXPECT_EQ(0, shown.table->numberOfRows());
    draw(shown);
    EXPECT_TRUE(shown.source->asked.empty());
    shown.view().setFocus();
    QTest::keyClick(&shown.view(), Qt::Key_Down);
    QTest::keyClicks(&shown.view(), QStringLiteral("r"));
    EXPECT_EQ(-1, shown.table->selectedRow());
}

TEST(TableSources, MayLoseRowsWhileTheyAreScrolled) {
    const Table shown(10'000);
    shown.view().verticalScrollBar()->setValue(9'000 * 19);
    draw(shown);
    EXPECT_TRUE(shown.source->asked.contains(9'000));
    // At the next scroll it has lost most of them, and says so while it is asked.
    shown.source->onAsked = [&](long row) {
        if (row < 100 || shown.source->rows == 100) return;
        shown.source->rows = 100;
        shown.table->reloadData();
    };
    shown.view().verticalScrollBar()->setValue(9'100 * 19);
    draw(shown);
    EXPECT_EQ(100, shown.table->numberOfRows());
    shown.source->asked.clear();
    draw(shown);
    EXPECT_TRUE(shown.source->asked.contains(99));
    EXPECT_FALSE(shown.source->asked.contains(100));
    EXPECT_EQ(100 * 19 - shown.view().viewport()->height(), shown.view().verticalScrollBar()->value());
}

TEST(TableSources, MayTakeTheColumnsAwayWhileTheyAreDrawn) {
    const Table shown;
    shown.source->onAsked = [&](long row) {
        if (row == 2) shown.table->removeTableColumn(shown.name.get());
    };
    draw(shown);
    EXPECT_EQ(1, shown.table->numberOfColumns());
    draw(shown);
    shown.source->onAsked = [&](long) { shown.table->removeTableColumn(shown.done.get()); };
    draw(shown);
    EXPECT_EQ(0, shown.table->numberOfColumns());
    draw(shown);
}

TEST(TableSources, MayRaiseForOneRowAndTheOthersAreShown) {
    const Table shown;
    shown.source->onAsked = [](long row) {
        if (row == 2) velt::raise("RowException", "row 2 is broken");
    };
    shown.source->asked.clear();
    const std::string said = written([&] {
        const velt::CallbackShelter shelter;  // as while a dialog waits
        draw(shown);
    });
    EXPECT_NE(std::string::npos, said.find("RowException: row 2 is broken\n")) << said;
    EXPECT_TRUE(shown.source->asked.contains(7));
    shown.source->onAsked = nullptr;
    shown.click(2 + 2);
    EXPECT_EQ(4, shown.table->selectedRow());
}

TEST(TableSources, MayRaiseWhenACellIsAboutToBeEdited) {
    const Table shown;
    draw(shown);
    shown.source->onAsked = [](long) { velt::raise("RowException", "broken"); };
    const std::string said = written([&] {
        const velt::CallbackShelter shelter;
        shown.view().edit(shown.view().model()->index(4, 0));
    });
    EXPECT_NE(std::string::npos, said.find("RowException: broken\n")) << said;
    EXPECT_RAISES("RowException: broken", shown.table->editColumn(0, 4, nil, true));
    shown.source->onAsked = nullptr;
    EXPECT_TRUE(shown.view().viewport()->findChildren<QLineEdit*>().isEmpty());
    shown.table->editColumn(0, 4, nil, true);
    EXPECT_FALSE(shown.view().viewport()->findChildren<QLineEdit*>().isEmpty());
}

TEST(TableSources, ThatRaiseOutsideOfADialogEndTheProgram) {
    const auto drawOne = [] {
        const Table shown;
        shown.source->onAsked = [](long) { velt::raise("RowException", "broken"); };
        draw(shown);
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(drawOne(), testing::ExitedWithCode(1), "RowException: broken");
}

TEST(TableSources, ThatRaiseForTheirCountLeaveTheTableAsItWas) {
    const Ref<Raiser> raiser = velt::make<Raiser>();
    const Table shown(8, raiser);
    draw(shown);
    raiser->raises = true;
    EXPECT_RAISES("CountException: nobody knows", VELT_NSTABLEVIEW_RELOADDATA(shown.table));
    EXPECT_VALUE("q 8", VELT_NSTABLEVIEW_COUNT(shown.table));
    draw(shown);
    raiser->raises = false;
    raiser->rows = 4;
    VELT_NSTABLEVIEW_RELOADDATA(shown.table);
    EXPECT_VALUE("q 4", VELT_NSTABLEVIEW_COUNT(shown.table));
}

TEST(TableSources, MayTakeTheTableOutOfItsWindowWhileItIsWorked) {
    const Table shown;
    shown.source->onAsked = [&](long) { shown.table->removeFromSuperview(); };
    shown.click(1, 1);
    EXPECT_TRUE(VELT_NSVIEW_WINDOW(shown.table).isNil());
}
