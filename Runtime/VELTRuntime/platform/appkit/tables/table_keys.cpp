// How a table is worked with the keyboard: rows found by typing how they begin, cells edited one after the other.
#include "VELTRuntime/platform/appkit/controls/button_cell.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/table_view.h"

#include <QHeaderView>
#include <algorithm>

using velt::Ref;
using velt::Selector;

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

QString NSTableView::searchedText(const QModelIndex& index) {
    const id self(static_cast<NSObject*>(this)), column(static_cast<NSObject*>(columnAt(index)));
    const Selector asks = rowMessages().typeSelectString;
    const id value = velt::respondsTo(delegate(), asks) ? velt::send(delegate(), asks, self, column, rowArgument(index))
                                                        : valueAt(index);
    return velt::qtText(value.isNil() || velt::isString(value) ? value : velt::description(value));
}

std::optional<QModelIndex> NSTableView::delegatesMatch(const id& text, long from) {
    const Selector finds = VELT_SELECTOR("tableView:nextTypeSelectMatchFromRow:toRow:forString:");
    if (!velt::respondsTo(delegate(), finds)) return std::nullopt;
    const long rows = numberOfRows();
    if (rows == 0) return QModelIndex();
    from = from < 0 || from >= rows ? 0 : from;
    const id self(static_cast<NSObject*>(this));
    const long end = from == 0 ? rows - 1 : from - 1;
    const long row = VELT_CINTEGER(velt::send(delegate(), finds, self, VELT_ID(from), VELT_ID(end), text));
    return row >= 0 && row < numberOfRows() ? indexOf(row, std::max(0, searchedColumn())) : QModelIndex();
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
            if (mayType(index)) return indexOf(row, column);
        }
        place = forward ? 0 : columns - 1;
    }
    return {};
}
