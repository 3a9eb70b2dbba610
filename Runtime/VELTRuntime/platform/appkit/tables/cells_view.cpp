#include "VELTRuntime/platform/appkit/tables/cells_view.h"

namespace velt {

namespace {

/// A person works on one cell of the rows that are meant.
QItemSelection wholeRows(const QItemSelection& selection) {
    QItemSelection rows;
    for (const QItemSelectionRange& range : selection) {
        const QAbstractItemModel& model = *range.model();
        const int last = model.columnCount(range.parent()) - 1;
        rows.select(model.index(range.top(), 0, range.parent()), model.index(range.bottom(), last, range.parent()));
    }
    return rows;
}

}  // namespace

void RowSelection::select(const QItemSelection& selection, SelectionFlags command) {
    NSTableView* table = tableOf(view_);
    if (!table || !(command & (Select | Deselect | Toggle | Clear))) {
        QItemSelectionModel::select(selection, command);
        return;
    }
    const Ref<NSTableView> kept(table);
    runReported([&] {
        if (!kept->maySelectionChange()) return;
        QItemSelection taken = selection;
        if (command & (Select | Toggle) && respondsTo(kept->delegate(), kept->rowMessages().shouldSelect)) {
            taken.clear();
            for (const QItemSelectionRange& range : selection) {
                for (int row = range.top(); row <= range.bottom(); ++row) {
                    const QModelIndex index = range.model()->index(row, 0, range.parent());
                    if (kept->maySelect(index))
                        taken.select(index, range.model()->index(row, range.right(), range.parent()));
                }
            }
            // A click on a refused row leaves what is selected.
            if (taken.isEmpty() && !selection.isEmpty()) return;
        }
        if (!kept->allowsEmptySelection()) {
            QItemSelection left = command & Clear ? QItemSelection() : this->selection();
            left.merge(wholeRows(taken), command);
            if (left.isEmpty()) return;
        }
        QItemSelectionModel::select(taken, command);
    });
}

}  // namespace velt
