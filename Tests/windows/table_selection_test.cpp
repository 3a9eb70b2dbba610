// Selection by mouse and keys, beside a small model of what a person expects; and when the delegate hears of it.
#include "windows/tables_support.h"

#include "support/generated.h"

#include <algorithm>

using namespace velt::test;
using velt::Ref;

namespace {

/// Notes while the mouse is down, too.
class Watcher : public RowSource {
    VELT_OBJECT(Watcher, RowSource)
public:
    void changing(const id&) { heard += "changing "; }
    static void describe(velt::ClassBuilder<Watcher>& c) {
        c.method("tableViewSelectionIsChanging:", &Watcher::changing);
    }
};

constexpr long kRefused = 2;  // by the delegate

/// What a person expects of a list: a click selects, Control turns one row over, Shift selects from the anchor what it
/// selected to another row before.
struct ExpectedList {
    explicit ExpectedList(long count) : rows(count) {}

    void click(long row, bool control, bool shift) {
        current = row;
        if (shift) {
            extend();
            return;
        }
        anchor = row;
        if (row == kRefused && !(control && selected().contains(row))) return;
        kept = control ? selected() : std::set<long>();
        takesAway = kept.contains(row);
        part = {row};
    }
    void clickBeside() {
        kept.clear();
        part.clear();
        anchor = -1;
    }
    void move(long step, bool shift) {
        const long next = std::clamp(current + step, 0L, rows - 1);
        if (std::exchange(current, next) == next) return;
        if (shift) {
            extend();
        } else {
            click(next, false, false);
        }
    }
    void programSelects(long row) {
        take({row});
        anchor = current = row;
    }
    void reload() { take(selected()); }

    std::set<long> selected() const {
        std::set<long> all = kept;
        for (const long row : part) {
            if (takesAway) {
                all.erase(row);
            } else {
                all.insert(row);
            }
        }
        return all;
    }
    std::string shown() const {
        std::vector<NSRange> ranges;
        for (const long row : selected()) ranges.push_back({static_cast<unsigned long>(row), 1});
        return show(velt::make<NSIndexSet>(ranges));
    }

private:
    void take(const std::set<long>& all) {
        kept.clear();
        takesAway = false;
        part = all;
    }
    void extend() {
        if (anchor < 0) anchor = current;
        std::set<long> range;
        for (long row = std::min(anchor, current); row <= std::max(anchor, current); ++row) {
            if (row != kRefused) range.insert(row);
        }
        if (range.empty()) return;
        takesAway = false;
        part = range;
    }

    long rows, anchor = -1, current = 0;  // the keyboard stands on the first row
    std::set<long> kept, part;
    bool takesAway = false;
};

class TableSelections : public Generated {};

}  // namespace

TEST_F(TableSelections, AreWhatAPersonExpectsAfterAnySequence) {
    constexpr long kRows = 8;
    const Table shown(kRows);
    shown.table->setAllowsMultipleSelection(true);
    shown.view().setFocus();
    ExpectedList expected(kRows);
    std::string done;
    for (int step = 0; step < iterations(600); ++step) {
        const long row = static_cast<long>(below(kRows));
        switch (below(8)) {
        case 0:
        case 1:
            done += " click " + std::to_string(row);
            shown.click(static_cast<int>(row));
            expected.click(row, false, false);
            break;
        case 2:
            done += " control " + std::to_string(row);
            shown.click(static_cast<int>(row), 0, Qt::ControlModifier);
            expected.click(row, true, false);
            break;
        case 3:
            done += " shift " + std::to_string(row);
            shown.click(static_cast<int>(row), 0, Qt::ShiftModifier);
            expected.click(row, false, true);
            break;
        case 4:
        case 5: {
            const bool down = below(2) == 0, shift = below(2) == 0;
            done += std::string(down ? " down" : " up") + (shift ? "+" : "");
            QTest::keyClick(&shown.view(), down ? Qt::Key_Down : Qt::Key_Up,
                            shift ? Qt::ShiftModifier : Qt::NoModifier);
            expected.move(down ? 1 : -1, shift);
            break;
        }
        case 6:
            done += " beside";
            QTest::mouseClick(shown.view().viewport(), Qt::LeftButton, {},
                              QPoint(30, shown.view().viewport()->height() - 2));
            expected.clickBeside();
            break;
        default:
            done += " program " + std::to_string(row);
            shown.table->selectRow(row, false);
            expected.programSelects(row);
        }
        ASSERT_EQ(expected.shown(), show(shown.table->selectedRowIndexes())) << done;
        ASSERT_EQ(static_cast<long>(expected.selected().size()), shown.table->numberOfSelectedRows()) << done;
        if (step % 50 == 49) {
            done += " reload";
            shown.table->reloadData();
            expected.reload();
        }
        if (done.size() > 400) done.erase(0, 200);
    }
}

TEST(TableSelection, IsChangingWhileTheMouseIsDown) {
    const Table shown(8, velt::make<Watcher>());
    shown.table->setAllowsMultipleSelection(true);
    QWidget* rows = shown.view().viewport();
    QTest::mousePress(rows, Qt::LeftButton, {}, shown.at(3, 0));
    EXPECT_EQ("changing ", shown.source->told());
    QMouseEvent moved(QEvent::MouseMove, shown.at(5, 0), rows->mapToGlobal(QPointF(shown.at(5, 0))), Qt::NoButton,
                      Qt::LeftButton, {});
    QApplication::sendEvent(rows, &moved);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 3-5>", shown.table->selectedRowIndexes());
    EXPECT_EQ("changing ", shown.source->told());
    QTest::mouseRelease(rows, Qt::LeftButton, {}, shown.at(5, 0));
    EXPECT_EQ("selected q 5 ", shown.source->told().substr(0, 13));
    QTest::keyClick(&shown.view(), Qt::Key_Down);
    EXPECT_EQ("selected q 6 ", shown.source->told());
    shown.click(6);
    EXPECT_EQ("click q 6 ", shown.source->told());  // it was selected already
}

TEST(TableSelection, StaysWhereTheTableMustHaveOne) {
    const Table shown;
    shown.table->setAllowsEmptySelection(false);
    shown.click(1);
    shown.click(1, 0, Qt::ControlModifier);
    EXPECT_EQ(1, shown.table->selectedRow());
    QTest::mouseClick(shown.view().viewport(), Qt::LeftButton, {}, QPoint(30, shown.view().viewport()->height() - 2));
    EXPECT_EQ(1, shown.table->selectedRow());
    shown.table->setAllowsMultipleSelection(true);
    shown.click(4, 0, Qt::ControlModifier);
    shown.click(1, 0, Qt::ControlModifier);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 4>", shown.table->selectedRowIndexes());
    shown.click(4, 0, Qt::ControlModifier);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 4>", shown.table->selectedRowIndexes());
    shown.table->setAllowsEmptySelection(true);
    shown.click(4, 0, Qt::ControlModifier);
    EXPECT_EQ(-1, shown.table->selectedRow());
}

TEST(TableSelection, SelectsEveryRowOfAMillionAtOnce) {
    const Table shown(1'000'000, velt::make<RowSource>());
    shown.table->setDelegate(nil);  // which would be asked for each of them
    shown.table->setAllowsMultipleSelection(true);
    shown.view().setFocus();
    QTest::keyClick(&shown.view(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_VALUE("NSIndexSet <NSIndexSet 0-999999>", shown.table->selectedRowIndexes());
    EXPECT_EQ(1'000'000, shown.table->numberOfSelectedRows());
}
