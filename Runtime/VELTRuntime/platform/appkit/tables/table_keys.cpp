// How a table is worked with the keyboard: rows found by typing how they begin, cells edited one after the other.
#include "VELTRuntime/platform/appkit/controls/button_cell.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/cell_painting.h"
#include "VELTRuntime/platform/appkit/tables/rows_view.h"
#include "VELTRuntime/platform/appkit/tables/table_view.h"

#include <QApplication>
#include <QHeaderView>
#include <algorithm>

using velt::Ref;
using velt::Selector;

namespace {

QString textAt(NSTableView& table, const QModelIndex& index) {
    const id self(static_cast<NSObject*>(&table)), column(static_cast<NSObject*>(table.columnAt(index)));
    const Selector asks = VELT_SELECTOR("tableView:typeSelectStringForTableColumn:row:");
    const id row = VELT_ID(table.rowOf(index));
    const id value = velt::respondsTo(table.delegate(), asks) ? velt::send(table.delegate(), asks, self, column, row)
                                                              : table.valueAt(index);
    return velt::qtText(value.isNil() || velt::isString(value) ? value : velt::description(value));
}

}  // namespace

/// The first column that shows texts, as they stand on the screen.
int NSTableView::searchedColumn() {
    const QHeaderView& titles = headerOf(itemView());
    for (int at = 0; at < titles.count(); ++at) {
        const int column = titles.logicalIndex(at);
        const id cell = columns_[static_cast<std::size_t>(column)]->dataCell();
        if (!titles.isSectionHidden(column) && velt::is<NSCell>(cell) && !velt::is<NSButtonCell>(cell)) return column;
    }
    return -1;
}

long NSTableView::rowThatBegins(const id& text, long from) {
    const long rows = numberOfRows();
    if (rows == 0) return -1;
    from = from < 0 || from >= rows ? 0 : from;
    const Selector finds = VELT_SELECTOR("tableView:nextTypeSelectMatchFromRow:toRow:forString:");
    if (velt::respondsTo(delegate(), finds)) {
        const id self(static_cast<NSObject*>(this));
        const long end = from == 0 ? rows - 1 : from - 1;
        const long row = VELT_CINTEGER(velt::send(delegate(), finds, self, VELT_ID(from), VELT_ID(end), text));
        return row >= 0 && row < rows ? row : -1;
    }
    const int column = searchedColumn();
    const QString begin = velt::qtText(text);
    for (long i = 0; i < rows && column >= 0; ++i) {
        const QModelIndex index = indexOf((from + i) % rows, column);
        // Whoever is asked may have taken rows away.
        if (index.isValid() && textAt(*this, index).startsWith(begin, Qt::CaseInsensitive)) return rowOf(index);
    }
    return -1;
}

QModelIndex NSTableView::editableAfter(const QModelIndex& edited, bool forward) {
    // Nobody wants to end a thousand rows further on because nothing between may be edited.
    constexpr long kMostRows = 50;
    if (!edited.isValid()) return {};
    const QHeaderView& titles = headerOf(itemView());
    const int columns = titles.count(), step = forward ? 1 : -1;
    const long rows = numberOfRows(), first = rowOf(edited);
    int place = titles.visualIndex(edited.column()) + step;
    for (long row = first; row >= 0 && row < rows && std::abs(row - first) <= kMostRows; row += step) {
        for (; place >= 0 && place < columns; place += step) {
            const int column = titles.logicalIndex(place);
            if (titles.isSectionHidden(column)) continue;
            const QModelIndex index = indexOf(row, column);
            // Buttons are worked, not edited.
            if (!velt::is<NSButtonCell>(dataCellAt(index)) && mayEdit(index)) return indexOf(row, column);
        }
        place = forward ? 0 : columns - 1;
    }
    return {};
}

namespace velt {

void RowsView::keyboardSearch(const QString& typed) {
    NSTableView* table = tableOf(this);
    if (!table || typed.isEmpty()) return;
    // A pause begins anew. One letter again and again goes from row to row.
    const bool isAnew = !sinceTyped_.isValid() || sinceTyped_.elapsed() > QApplication::keyboardInputInterval();
    sinceTyped_.start();
    if (isAnew) typed_.clear();
    const bool repeats = !typed_.isEmpty() && typed_.count(typed[0]) == typed_.size() && typed == QString(typed[0]);
    typed_ += typed;
    const QString sought = repeats ? typed : typed_;
    const long from = currentIndex().isValid() ? currentIndex().row() + (isAnew || repeats ? 1 : 0) : 0;
    const Ref<NSTableView> kept(table);
    long row = -1;
    runReported([&] { row = kept->rowThatBegins(textValue(sought), from); });
    if (row < 0 || tableOf(this) != table || !model()) return;
    const int column = std::max(0, currentIndex().isValid() ? currentIndex().column() : seenColumn(0, 1));
    setCurrentIndex(model()->index(static_cast<int>(row), column, rootIndex()));
}

}  // namespace velt
