#include "VELTRuntime/platform/appkit/tables/cells_view.h"

namespace velt {

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
        if (command & (Select | Toggle) && respondsTo(kept->delegate(), kept->shouldSelectSelector())) {
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
        const bool empties = (command & Clear) && taken.isEmpty();
        if (empties && !kept->allowsEmptySelection()) return;
        QItemSelectionModel::select(taken, command);
    });
}

}  // namespace velt
