// Cells of tables that are read from the right.
#include "windows/tables_support.h"

#include "support/direction.h"
#include "support/layout.h"

using namespace velt::test;
using velt::Ref;

namespace {

/// Where the text of a cell is seen, from the left of the cell: 0 at its left edge, 1 at its right one.
double middleOfText(const Table& shown, int row) {
    const QRect cell = shown.view().visualRect(shown.view().model()->index(row, 0)).adjusted(2, 2, -2, -2);
    const QImage seen = shown.view().viewport()->grab().toImage();
    const QRect ink = inkIn(seen, cell, seen.pixel(seen.width() / 2, seen.height() - 2));
    EXPECT_FALSE(ink.isEmpty());
    return (ink.center().x() - cell.left()) / static_cast<double>(cell.width());
}

struct ShortTexts : Table {
    ShortTexts() : Table(3) {
        for (long row = 0; row < 3; ++row) source->texts[row] = "iii";
    }
    void align(long alignment) const {
        velt::send(velt::send(name, "dataCell"), "setAlignment:", integer(alignment));
        table->reloadData();
    }
};

}  // namespace

TEST(TableDirection, ByItselfATextStandsWhereItIsReadFrom) {
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        SCOPED_TRACE(direction);
        const Direction scope(direction);
        const ShortTexts shown;
        shown.align(4);
        if (direction == Qt::LeftToRight) {
            EXPECT_LT(middleOfText(shown, 1), 0.3);
        } else {
            EXPECT_GT(middleOfText(shown, 1), 0.7);
        }
        keepPicture(shown.view(), direction == Qt::LeftToRight ? "table-from-left" : "table-from-right");
    }
}

TEST(TableDirection, WhatTheProgramSaysHoldsInBoth) {
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        SCOPED_TRACE(direction);
        const Direction scope(direction);
        const ShortTexts shown;
        shown.align(0);
        EXPECT_LT(middleOfText(shown, 1), 0.3);
        shown.align(1);
        EXPECT_GT(middleOfText(shown, 1), 0.7);
        shown.align(2);
        EXPECT_NEAR(0.5, middleOfText(shown, 1), 0.15);
        // The same of a text that wraps.
        velt::send(velt::send(shown.name, "dataCell"), "setWraps:", boolean(true));
        shown.table->setRowHeight(50);
        shown.align(0);
        EXPECT_LT(middleOfText(shown, 1), 0.3);
        shown.align(1);
        EXPECT_GT(middleOfText(shown, 1), 0.7);
    }
}

TEST(TableDirection, ATextFromTheRightStandsAtTheRightOfEveryTable) {
    const Direction scope(Qt::LeftToRight);
    const ShortTexts shown;
    shown.source->texts[1] = "\u05e9\u05dc";
    shown.align(4);
    EXPECT_LT(middleOfText(shown, 2), 0.3);
    EXPECT_GT(middleOfText(shown, 1), 0.7);
}
