// The columns of a table: their order, their widths, and how a click on one's title sorts the rows.
#include "VELTRuntime/platform/appkit/tables/table_view.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/id_of.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <algorithm>
#include <cmath>

using velt::Ref;
using velt::Selector;

void NSTableView::addTableColumn(NSTableColumn* column) {
    if (!column) return;
    const Ref<NSTableColumn> kept(column);
    if (column->table_) column->table_->removeTableColumn(column);
    columns_.push_back(kept);
    column->table_ = this;
    columnsChanged();
}

void NSTableView::removeTableColumn(NSTableColumn* column) {
    if (!column || column->table_ != this) return;
    const Ref<NSTableColumn> kept(column);
    columns_.erase(std::find_if(columns_.begin(), columns_.end(),
                                [&](const Ref<NSTableColumn>& own) { return own.get() == column; }));
    column->table_ = nullptr;
    columnsChanged();
}

void NSTableView::moveColumnToColumn(long from, long to) {
    const std::size_t count = columns_.size();
    for (const long index : {from, to}) {
        if (index < 0 || static_cast<std::size_t>(index) >= count)
            velt::raiseRange("'" + isa().name() + "' moveColumn:toColumn:", index, count);
    }
    const Ref<NSTableColumn> column = columns_[static_cast<std::size_t>(from)];
    columns_.erase(columns_.begin() + from);
    columns_.insert(columns_.begin() + to, column);
    columnsChanged();
    tell("tableViewColumnDidMove:", "NSTableViewColumnDidMoveNotification");
}

id NSTableView::tableColumns() const {
    Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (const Ref<NSTableColumn>& column : columns_) list->append(column);
    return list;
}

long NSTableView::columnWithIdentifier(const id& identifier) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (velt::isEqual(columns_[i]->identifier(), identifier)) return static_cast<long>(i);
    }
    return -1;
}
id NSTableView::tableColumnWithIdentifier(const id& identifier) const {
    const long index = columnWithIdentifier(identifier);
    return index < 0 ? id() : id(columns_[static_cast<std::size_t>(index)]);
}

void NSTableView::columnsChanged() {
    QAbstractItemView* view = existingItemView();
    if (!view) return;
    loaded_ = false;
    if (view->isVisible()) {
        reloadData();
    } else {
        syncColumns(*view);
    }
}

void NSTableView::columnChanged(NSTableColumn& column) {
    QAbstractItemView* view = existingItemView();
    if (!view || syncing_) return;
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](const Ref<NSTableColumn>& own) { return own.get() == &column; });
    if (found == columns_.end()) return;
    const int section = static_cast<int>(found - columns_.begin());
    syncColumns(*view);
    // The header and the visible cells are read anew.
    view->model()->headerDataChanged(Qt::Horizontal, section, section);
    view->viewport()->update();
}

void NSTableView::syncColumns(QAbstractItemView& view) {
    QHeaderView& header = headerOf(view);
    syncing_ = true;
    const int count = std::min(header.count(), static_cast<int>(columns_.size()));
    for (int i = 0; i < count; ++i) {
        const NSTableColumn& column = *columns_[static_cast<std::size_t>(i)];
        header.setSectionHidden(i, column.isHidden());
        header.resizeSection(i, static_cast<int>(std::lround(column.width() + spacing_.width)));
        const bool byHand = resizing_ && (column.resizingMask() & 2);
        header.setSectionResizeMode(i, byHand ? QHeaderView::Interactive : QHeaderView::Fixed);
    }
    header.setSectionsMovable(reordering_);
    header.setVisible(!headerView_.isNil());
    syncing_ = false;
    syncSortIndicator();
}

NSTableColumn* NSTableView::columnAt(const QModelIndex& index) const {
    const auto column = static_cast<std::size_t>(index.column());
    return index.isValid() && column < columns_.size() ? columns_[column].get() : nullptr;
}

// Sorting.

void NSTableView::setSortDescriptors(const id& descriptors) {
    const id before = std::exchange(sortDescriptors_, descriptors);
    syncSortIndicator();
    if (velt::isEqual(before, descriptors)) return;
    const Selector tells = VELT_SELECTOR("tableView:sortDescriptorsDidChange:");
    if (velt::respondsTo(dataSource_, tells)) velt::send(dataSource_, tells, velt::idOf(this), before);
}

void NSTableView::headerClicked(int section) {
    if (section < 0 || static_cast<std::size_t>(section) >= columns_.size()) return;
    const Ref<NSTableColumn> column = columns_[static_cast<std::size_t>(section)];
    const Selector tells = VELT_SELECTOR("tableView:didClickTableColumn:");
    if (velt::respondsTo(delegate(), tells)) velt::send(delegate(), tells, velt::idOf(this), id(column));
    const id prototype = column->sortDescriptorPrototype();
    if (!velt::is<NSSortDescriptor>(prototype)) {
        syncSortIndicator();
        return;
    }
    id first = prototype;
    const id key = velt::as<NSSortDescriptor>(prototype)->key();
    Ref<NSMutableArray> next = velt::make<NSMutableArray>();
    const NSArray* before = velt::arrayOf(sortDescriptors_);
    const auto hasKey = [&](const id& descriptor) {
        return velt::is<NSSortDescriptor>(descriptor) &&
               velt::isEqual(velt::as<NSSortDescriptor>(descriptor)->key(), key);
    };
    // A second click on the column turns the order round.
    if (before && before->count() > 0 && hasKey(before->items()[0]))
        first = velt::as<NSSortDescriptor>(before->items()[0])->reversed();
    next->append(first);
    for (std::size_t i = 0; before && i < before->count(); ++i) {
        if (!hasKey(before->items()[i])) next->append(before->items()[i]);
    }
    setSortDescriptors(next);
}

void NSTableView::syncSortIndicator() {
    QAbstractItemView* view = existingItemView();
    if (!view) return;
    QHeaderView& header = headerOf(*view);
    const NSArray* descriptors = velt::arrayOf(sortDescriptors_);
    int section = -1;
    Qt::SortOrder order = Qt::AscendingOrder;
    if (descriptors && descriptors->count() > 0 && velt::is<NSSortDescriptor>(descriptors->items()[0])) {
        const auto* sorted = velt::as<NSSortDescriptor>(descriptors->items()[0]);
        order = sorted->ascending() ? Qt::AscendingOrder : Qt::DescendingOrder;
        for (std::size_t i = 0; i < columns_.size() && section < 0; ++i) {
            const id own = columns_[i]->sortDescriptorPrototype();
            if (velt::is<NSSortDescriptor>(own) && velt::isEqual(velt::as<NSSortDescriptor>(own)->key(), sorted->key()))
                section = static_cast<int>(i);
        }
    }
    header.setSortIndicatorShown(section >= 0);
    if (section >= 0) header.setSortIndicator(section, order);
}

void NSTableView::columnResized(int section, int width) {
    if (syncing_ || section < 0 || static_cast<std::size_t>(section) >= columns_.size() || width == 0) return;
    // The last column fills what is left of the table, whatever its width is.
    const QHeaderView& header = headerOf(itemView());
    if (header.visualIndex(section) == header.count() - 1) return;
    NSTableColumn& column = *columns_[static_cast<std::size_t>(section)];
    column.setWidth(width - spacing_.width);  // keeps its limits
    tell("tableViewColumnDidResize:", "NSTableViewColumnDidResizeNotification");
}

void NSTableView::columnMoved(int from, int to) {
    if (std::max(from, to) >= numberOfColumns()) return;  // the program has taken some away since
    QHeaderView& header = headerOf(itemView());
    // The columns take their new order themselves, and the header's sections go back to where they were.
    syncing_ = true;
    header.moveSection(to, from);
    syncing_ = false;
    moveColumnToColumn(from, to);
}
