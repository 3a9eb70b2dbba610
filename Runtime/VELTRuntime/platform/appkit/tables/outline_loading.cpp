// An outline that is loaded anew keeps open and selected what it still has; it asks for no more than that.
#include "VELTRuntime/platform/appkit/tables/cells_view.h"
#include "VELTRuntime/platform/appkit/tables/outline_model.h"
#include "VELTRuntime/platform/appkit/tables/outline_view.h"
#include "VELTRuntime/platform/object/setting.h"

#include <QTreeView>
#include <algorithm>

std::vector<NSOutlineView::Open> NSOutlineView::openBelow(const QModelIndex& parent) const {
    std::vector<Open> open;
    const auto& tree = static_cast<const QTreeView&>(*existingItemView());
    for (int row = 0; row < model_->rowCount(parent); ++row) {
        const QModelIndex index = model_->index(row, 0, parent);
        if (!model_->isKnown(index) || !tree.isExpanded(index)) continue;
        open.push_back({model_->itemAt(index), row, openBelow(index)});
    }
    return open;
}

void NSOutlineView::openAgain(const QModelIndex& parent, const std::vector<Open>& open) {
    for (const Open& one : open) {
        const QPersistentModelIndex index = model_->findNear(parent, one.row, one.item);
        if (!index.isValid()) continue;
        static_cast<QTreeView&>(itemView()).setExpanded(index, true);
        model_->rowCount(index);  // the toolkit may ask later
        openAgain(index, one.below);
    }
}

NSOutlineView::Path NSOutlineView::pathOf(QModelIndex index) const {
    Path path;
    for (; index.isValid(); index = index.parent()) path.emplace_back(model_->itemAt(index), index.row());
    std::reverse(path.begin(), path.end());
    return path;
}

QModelIndex NSOutlineView::follow(const Path& path) const {
    QModelIndex index;
    for (const auto& [item, row] : path) {
        index = model_->findNear(index, row, item);
        if (!index.isValid()) break;
    }
    return index;
}

void NSOutlineView::reloadData() {
    QAbstractItemView& view = itemView();
    std::vector<Open> open;
    std::vector<Path> selected;
    if (isLoaded()) {
        open = openBelow({});
        for (const QModelIndex& index : view.selectionModel()->selectedRows()) selected.push_back(pathOf(index));
    }
    QItemSelection kept;
    {
        const velt::Setting quiet = reloading();
        model_->reset();
        // What was open is open again, if it is still there.
        {
            const velt::Setting opening(opening_, true);
            openAgain({}, open);
        }
        for (const Path& path : selected) {
            const QModelIndex index = follow(path);
            if (index.isValid()) kept.select(index, index);
        }
        auto& selection = static_cast<velt::RowSelection&>(*view.selectionModel());
        selection.selectUnasked(kept, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    syncColumns(view);
    if (kept.size() < static_cast<qsizetype>(selected.size())) selectionChanged();
}
