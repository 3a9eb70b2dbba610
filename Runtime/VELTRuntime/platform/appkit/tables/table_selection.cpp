// The selection of a table: its rows, and who may refuse a change.
#include "VELTRuntime/platform/appkit/tables/cells_view.h"
#include "VELTRuntime/platform/appkit/tables/rows_view.h"
#include "VELTRuntime/platform/appkit/tables/table_view.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/id_of.h"

#include <QAbstractItemView>
#include <algorithm>

using velt::Ref;
using velt::Selector;

long NSTableView::rowOf(const QModelIndex& index) const { return index.isValid() ? index.row() : -1; }
QModelIndex NSTableView::indexOf(long row, int column) const {
    const QAbstractItemView* view = existingItemView();
    return view ? view->model()->index(static_cast<int>(row), column) : QModelIndex();
}

QItemSelection NSTableView::rowsBetween(long begin, long end) const {
    return QItemSelection(indexOf(begin, 0), indexOf(end - 1, std::max(0, static_cast<int>(columns_.size()) - 1)));
}

std::vector<NSRange> NSTableView::selectedRanges() {
    std::vector<NSRange> ranges;
    const QAbstractItemView* view = existingItemView();
    if (!view) return ranges;
    for (const QItemSelectionRange& range : view->selectionModel()->selection()) {
        const long first = rowOf(range.topLeft());
        if (first >= 0)
            ranges.push_back({static_cast<unsigned long>(first), static_cast<unsigned long>(range.height())});
    }
    return ranges;
}

id NSTableView::selectedRowIndexes() { return velt::make<NSIndexSet>(selectedRanges()); }

long NSTableView::selectedRow() {
    QAbstractItemView* view = existingItemView();
    if (!view) return -1;
    const QModelIndex current = view->currentIndex();
    if (current.isValid() && view->selectionModel()->isRowSelected(current.row(), current.parent()))
        return rowOf(current);
    const Ref<NSIndexSet> set = velt::make<NSIndexSet>(selectedRanges());
    return set->count() ? set->lastIndex() : -1;
}

long NSTableView::numberOfSelectedRows() { return velt::make<NSIndexSet>(selectedRanges())->count(); }
bool NSTableView::isRowSelected(long row) { return velt::make<NSIndexSet>(selectedRanges())->containsIndex(row); }

void NSTableView::selectRowIndexes(const id& indexes, bool extending) {
    if (!velt::is<NSIndexSet>(indexes)) velt::raiseClassExpected(NSIndexSet::entry());
    const auto rows = static_cast<unsigned long>(numberOfRows());
    auto& selection = static_cast<velt::RowSelection&>(*itemView().selectionModel());
    QItemSelection taken;
    QModelIndex current;
    for (const NSRange& range : velt::as<NSIndexSet>(indexes)->ranges()) {
        if (range.location >= rows) continue;
        const auto begin = static_cast<long>(range.location);
        const long end = begin + static_cast<long>(std::min(range.length, rows - range.location));
        taken.append(rowsBetween(begin, end));
        current = indexOf(end - 1, 0);
    }
    const auto command = extending && multiple_ ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect;
    selection.selectUnasked(taken, command | QItemSelectionModel::Rows);
    if (current.isValid()) selection.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (auto* view = dynamic_cast<velt::RowsView*>(&itemView())) view->setAnchor(current.row());
}

void NSTableView::selectRow(long row, bool extending) { selectRowIndexes(velt::make<NSIndexSet>(row), extending); }

void NSTableView::deselectRow(long row) {
    if (row < 0 || row >= numberOfRows()) return;
    auto& selection = static_cast<velt::RowSelection&>(*itemView().selectionModel());
    const QModelIndex index = indexOf(row, 0);
    selection.selectUnasked(QItemSelection(index, index), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
}

void NSTableView::selectAll(const id&) {
    requireLoaded();
    if (multiple_) itemView().selectAll();
}
void NSTableView::deselectAll(const id&) {
    if (allowsEmpty_ && existingItemView()) itemView().clearSelection();
}

void NSTableView::setAllowsMultipleSelection(bool flag) {
    multiple_ = flag;
    changed();
}

bool NSTableView::maySelectionChange() {
    const Selector asks = VELT_SELECTOR("selectionShouldChangeInTableView:");
    return !velt::respondsTo(delegate(), asks) || VELT_CBOOL(velt::send(delegate(), asks, velt::idOf(this)));
}

bool NSTableView::maySelect(const QModelIndex& index) {
    const Selector asks = rowMessages().shouldSelect;
    return !velt::respondsTo(delegate(), asks) ||
           VELT_CBOOL(velt::send(delegate(), asks, velt::idOf(this), rowArgument(index)));
}
