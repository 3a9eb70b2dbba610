#include "VELTRuntime/platform/appkit/tables/table_view.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/cells_view.h"
#include "VELTRuntime/platform/appkit/tables/table_model.h"
#include "VELTRuntime/platform/appkit/view_widget.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/object/exception.h"

#include <QFontMetricsF>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <QTreeView>
#include <algorithm>
#include <cmath>

using velt::Ref;
using velt::Selector;

namespace {

id object(const NSObject* pointer) { return id(const_cast<NSObject*>(pointer)); }

}  // namespace

NSTableView::NSTableView()
    : headerView_(velt::make<NSTableHeaderView>()), sortDescriptors_(velt::make<NSMutableArray>()) {
    setFocusRingType(0);
}

NSTableView::~NSTableView() { NSTableView::dissolve(); }

void NSTableView::dissolve() {
    for (const Ref<NSTableColumn>& column : columns_) {
        if (column) column->table_ = nullptr;
    }
    if (QAbstractItemView* view = existingItemView()) {
        velt::setViewOf(*view->viewport(), nullptr);
        if (auto* model = dynamic_cast<velt::TableModel*>(view->model())) model->forget();
    }
    NSControl::dissolve();
}

// The rows.

void NSTableView::setDataSource(const id& source) {
    dataSource_ = source;
    loaded_ = false;
    QAbstractItemView* view = existingItemView();
    if (!view || !view->isVisible()) return;
    // The program may still be at work on the source.
    QMetaObject::invokeMethod(
        view,
        [view] {
            NSTableView* table = velt::tableOf(view);
            if (!table) return;
            const Ref<NSTableView> kept(table);
            velt::runReported([&] { kept->requireLoaded(); });
        },
        Qt::QueuedConnection);
}

long NSTableView::askRowCount() {
    const id self = object(this);
    if (!velt::respondsTo(dataSource_, VELT_SELECTOR("numberOfRowsInTableView:"))) return 0;
    constexpr long kMost = 0x7FFFFFF0;
    return std::clamp(VELT_CINTEGER(velt::send(dataSource_, VELT_SELECTOR("numberOfRowsInTableView:"), self)), 0L,
                      kMost);
}

void NSTableView::requireLoaded() {
    if (!loaded_) reloadData();
}

void NSTableView::reloadData() {
    QAbstractItemView& view = itemView();
    const long rows = askRowCount();
    std::vector<NSRange> selected = selectedRanges();
    const int x = view.horizontalScrollBar()->value(), y = view.verticalScrollBar()->value();
    const QPersistentModelIndex current = view.currentIndex();
    const int currentRow = current.row(), currentColumn = current.column();
    beginReloading();
    static_cast<velt::TableModel*>(view.model())->setRows(static_cast<int>(rows));
    auto& selection = static_cast<velt::RowSelection&>(*view.selectionModel());
    bool lost = false;
    QItemSelection kept;
    for (const NSRange& range : selected) {
        const long end = std::min(static_cast<long>(range.location + range.length), rows);
        const long begin = static_cast<long>(range.location);
        lost = lost || end < static_cast<long>(range.location + range.length);
        if (begin < end)
            kept.select(indexOf(begin, 0), indexOf(end - 1, std::max(0, static_cast<int>(columns_.size()) - 1)));
    }
    selection.selectUnasked(kept, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (currentRow >= 0 && currentRow < rows) {
        selection.setCurrentIndex(indexOf(currentRow, currentColumn), QItemSelectionModel::NoUpdate);
    }
    endReloading();
    view.horizontalScrollBar()->setValue(x);
    view.verticalScrollBar()->setValue(y);
    if (lost) selectionChanged();
}

long NSTableView::numberOfRows() {
    requireLoaded();
    return shownRows();
}

long NSTableView::shownRows() { return itemView().model()->rowCount(); }

void NSTableView::endReloading() {
    reloading_ = false;
    syncColumns(itemView());
}

// Columns.

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
    std::erase_if(columns_, [&](const Ref<NSTableColumn>& own) { return own.get() == column; });
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
    tellDelegate("tableViewColumnDidMove:", "NSTableViewColumnDidMoveNotification");
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

// Selection.

long NSTableView::rowOf(const QModelIndex& index) const { return index.isValid() ? index.row() : -1; }
QModelIndex NSTableView::indexOf(long row, int column) const {
    const QAbstractItemView* view = existingItemView();
    return view ? view->model()->index(static_cast<int>(row), column) : QModelIndex();
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
    const long rows = numberOfRows();
    const int last = std::max(0, static_cast<int>(columns_.size()) - 1);
    auto& selection = static_cast<velt::RowSelection&>(*itemView().selectionModel());
    QItemSelection taken;
    QModelIndex current;
    for (const NSRange& range : velt::as<NSIndexSet>(indexes)->ranges()) {
        const long begin = static_cast<long>(range.location),
                   end = std::min(begin + static_cast<long>(range.length), rows);
        for (long at = begin; at < end;) {
            const QModelIndex first = indexOf(at, 0);
            // Rows of a table are neighbours in its model; those of an outline may have other parents.
            const long run = first.parent().isValid() || first.row() != at ? 1 : end - at;
            const QModelIndex corner = indexOf(at + run - 1, last);
            if (first.parent() == corner.parent()) taken.select(first, corner);
            current = indexOf(at + run - 1, 0);
            at += run;
        }
    }
    const auto command = extending && multiple_ ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect;
    selection.selectUnasked(taken, command | QItemSelectionModel::Rows);
    if (current.isValid()) selection.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
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
    return !velt::respondsTo(delegate(), asks) || VELT_CBOOL(velt::send(delegate(), asks, object(this)));
}

velt::Selector NSTableView::shouldSelectSelector() const { return VELT_SELECTOR("tableView:shouldSelectRow:"); }

bool NSTableView::maySelect(const QModelIndex& index) {
    const Selector asks = shouldSelectSelector();
    return !velt::respondsTo(delegate(), asks) ||
           VELT_CBOOL(velt::send(delegate(), asks, object(this), VELT_ID(rowOf(index))));
}

// Values.

id NSTableView::valueAt(const QModelIndex& index) {
    const Selector asks = VELT_SELECTOR("tableView:objectValueForTableColumn:row:");
    if (!velt::respondsTo(dataSource_, asks)) return nil;
    return velt::send(dataSource_, asks, object(this), object(columnAt(index)), VELT_ID(rowOf(index)));
}

void NSTableView::setValueAt(const QModelIndex& index, const id& value) {
    const Selector asks = VELT_SELECTOR("tableView:setObjectValue:forTableColumn:row:");
    if (!velt::respondsTo(dataSource_, asks)) return;
    velt::send(dataSource_, asks, object(this), value, object(columnAt(index)), VELT_ID(rowOf(index)));
    if (QAbstractItemView* view = existingItemView()) view->viewport()->update();
}

id NSTableView::dataCellAt(const QModelIndex& index) {
    const id column = object(columnAt(index)), row = VELT_ID(rowOf(index));
    const Selector asks = VELT_SELECTOR("tableView:dataCellForTableColumn:row:");
    if (velt::respondsTo(delegate(), asks)) {
        id cell = velt::send(delegate(), asks, object(this), column, row);
        if (velt::is<NSCell>(cell)) return cell;
    }
    return velt::send(column, VELT_SELECTOR("dataCellForRow:"), row);
}

void NSTableView::tellWillDisplay(const id& cell, const QModelIndex& index) {
    const Selector tells = VELT_SELECTOR("tableView:willDisplayCell:forTableColumn:row:");
    if (!velt::respondsTo(delegate(), tells)) return;
    velt::send(delegate(), tells, object(this), cell, object(columnAt(index)), VELT_ID(rowOf(index)));
}

id NSTableView::preparedCell(const QModelIndex& index) {
    if (!columnAt(index)) return nil;
    id cell = dataCellAt(index);
    if (!velt::is<NSCell>(cell)) return cell;
    velt::send(cell, VELT_SELECTOR("setObjectValue:"), valueAt(index));
    tellWillDisplay(cell, index);
    return cell;
}

id NSTableView::toolTipAt(const QModelIndex& index) {
    const Selector asks = VELT_SELECTOR("tableView:toolTipForTableColumn:row:");
    if (!velt::respondsTo(delegate(), asks)) return nil;
    return velt::send(delegate(), asks, object(this), object(columnAt(index)), VELT_ID(rowOf(index)));
}

bool NSTableView::mayEdit(const QModelIndex& index) {
    const NSTableColumn* column = columnAt(index);
    if (!column || !column->isEditable()) return false;
    if (!velt::respondsTo(dataSource_, VELT_SELECTOR("tableView:setObjectValue:forTableColumn:row:"))) return false;
    const id cell = dataCellAt(index);
    const bool isButton = velt::is<NSButtonCell>(cell);
    if (!velt::is<NSCell>(cell) || !(isButton || velt::as<NSCell>(cell)->isEditable())) return false;
    const Selector asks = VELT_SELECTOR("tableView:shouldEditTableColumn:row:");
    if (isButton || !velt::respondsTo(delegate(), asks)) return true;
    return VELT_CBOOL(velt::send(delegate(), asks, object(this), object(column), VELT_ID(rowOf(index))));
}

// A person's work.

bool NSTableView::tellDelegate(const char* selector, const char* notification, const id& userInfo) {
    const Ref<NSNotification> told =
        velt::make<NSNotification>(velt::string(std::string_view(notification)), object(this), userInfo);
    const Selector tells = Selector::named(selector);
    const bool answers = velt::respondsTo(delegate(), tells);
    if (answers) velt::send(delegate(), tells, told);
    NSNotificationCenter::defaultCenter().post(*told);
    return answers;
}

void NSTableView::selectionChanged() {
    if (!reloading_) tellDelegate("tableViewSelectionDidChange:", "NSTableViewSelectionDidChangeNotification");
}

void NSTableView::clicked(const QModelIndex& index) {
    clickedRow_ = rowOf(index);
    clickedColumn_ = index.isValid() ? index.column() : -1;
    worked();
}

void NSTableView::doubleClicked(const QModelIndex& index) {
    const Ref<NSTableView> kept(this);
    velt::runReported([&] {
        // A cell that can be edited is edited instead.
        if (!kept->mayEdit(index)) kept->openRow(index);
    });
}

void NSTableView::openRow(const QModelIndex& index) {
    const Ref<NSTableView> kept(this);
    clickedRow_ = rowOf(index);
    clickedColumn_ = index.column();
    velt::runReported([&] { kept->sendAction(kept->doubleAction_, kept->target()); });
}

void NSTableView::setDoubleActionName(const id& name) {
    doubleAction_ = name.isNil() ? Selector() : Selector::named(velt::utf8(VELT_CSTRING(name)));
}

void NSTableView::editColumn(long column, long row, const id&, bool) {
    if (row < 0 || row >= numberOfRows() || column < 0 || column >= numberOfColumns()) return;
    QAbstractItemView& view = itemView();
    const QModelIndex index = indexOf(row, static_cast<int>(column));
    view.setCurrentIndex(index);
    view.edit(index);
}

void NSTableView::scrollRowToVisible(long row) {
    if (row >= 0 && row < numberOfRows()) itemView().scrollTo(indexOf(row, 0));
}
void NSTableView::scrollColumnToVisible(long column) {
    if (column >= 0 && column < numberOfColumns() && numberOfRows() > 0)
        itemView().scrollTo(indexOf(0, static_cast<int>(column)));
}

// Sorting.

void NSTableView::setSortDescriptors(const id& descriptors) {
    const id before = std::exchange(sortDescriptors_, descriptors);
    syncSortIndicator();
    if (velt::isEqual(before, descriptors)) return;
    const Selector tells = VELT_SELECTOR("tableView:sortDescriptorsDidChange:");
    if (velt::respondsTo(dataSource_, tells)) velt::send(dataSource_, tells, object(this), before);
}

void NSTableView::headerClicked(int section) {
    if (section < 0 || static_cast<std::size_t>(section) >= columns_.size()) return;
    const Ref<NSTableColumn> column = columns_[static_cast<std::size_t>(section)];
    const Selector tells = VELT_SELECTOR("tableView:didClickTableColumn:");
    if (velt::respondsTo(delegate(), tells)) velt::send(delegate(), tells, object(this), id(column));
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
    tellDelegate("tableViewColumnDidResize:", "NSTableViewColumnDidResizeNotification");
}

void NSTableView::columnMoved(int from, int to) {
    if (syncing_ || from == to) return;
    QHeaderView& header = headerOf(itemView());
    // The columns take their new order themselves, and the header's sections go back to where they were.
    syncing_ = true;
    header.moveSection(to, from);
    syncing_ = false;
    moveColumnToColumn(from, to);
}

void NSTableView::describe(velt::ClassBuilder<NSTableView>& c) {
    using Table = NSTableView;
    c.property("dataSource", &Table::dataSource, &Table::setDataSource)
        .property("numberOfRows", &Table::numberOfRows)
        .property("numberOfColumns", &Table::numberOfColumns)
        .method("reloadData", &Table::reloadData)
        .method("noteNumberOfRowsChanged", &Table::noteNumberOfRowsChanged)
        .method("addTableColumn:", &Table::addTableColumn)
        .method("removeTableColumn:", &Table::removeTableColumn)
        .method("moveColumn:toColumn:", &Table::moveColumnToColumn)
        .property("tableColumns", &Table::tableColumns)
        .method("tableColumnWithIdentifier:", &Table::tableColumnWithIdentifier)
        .method("columnWithIdentifier:", &Table::columnWithIdentifier)
        .property("selectedRow", &Table::selectedRow)
        .property("selectedRowIndexes", &Table::selectedRowIndexes)
        .property("numberOfSelectedRows", &Table::numberOfSelectedRows)
        .method("isRowSelected:", &Table::isRowSelected)
        .method("selectRowIndexes:byExtendingSelection:", &Table::selectRowIndexes)
        .method("selectRow:byExtendingSelection:", &Table::selectRow)
        .method("deselectRow:", &Table::deselectRow)
        .method("selectAll:", &Table::selectAll)
        .method("deselectAll:", &Table::deselectAll)
        .property("clickedRow", &Table::clickedRow)
        .property("clickedColumn", &Table::clickedColumn)
        .property("allowsMultipleSelection", &Table::allowsMultipleSelection, &Table::setAllowsMultipleSelection)
        .property("allowsEmptySelection", &Table::allowsEmptySelection, &Table::setAllowsEmptySelection)
        .property("doubleAction", &Table::doubleActionName, &Table::setDoubleActionName)
        .method("editColumn:row:withEvent:select:", &Table::editColumn)
        .method("scrollRowToVisible:", &Table::scrollRowToVisible)
        .method("scrollColumnToVisible:", &Table::scrollColumnToVisible)
        .property("sortDescriptors", &Table::sortDescriptors, &Table::setSortDescriptors)
        .property("usesAlternatingRowBackgroundColors", &Table::usesAlternatingRowBackgroundColors,
                  &Table::setUsesAlternatingRowBackgroundColors)
        .property("gridStyleMask", &Table::gridStyleMask, &Table::setGridStyleMask)
        .property("gridColor", &Table::gridColor, &Table::setGridColor)
        .property("rowHeight", &Table::rowHeight, &Table::setRowHeight)
        .property("intercellSpacing", &Table::intercellSpacing, &Table::setIntercellSpacing)
        .property("headerView", &Table::headerView, &Table::setHeaderView)
        .property("allowsColumnReordering", &Table::allowsColumnReordering, &Table::setAllowsColumnReordering)
        .property("allowsColumnResizing", &Table::allowsColumnResizing, &Table::setAllowsColumnResizing)
        .method("rectOfRow:", &Table::rectOfRow)
        .method("rowAtPoint:", &Table::rowAtPoint)
        .method("columnAtPoint:", &Table::columnAtPoint)
        .owns(&Table::dataSource_)
        .owns(&Table::headerView_)
        .owns(&Table::sortDescriptors_)
        .owns(&Table::gridColor_);
}

void NSTableView::visitOwned(velt::OwnedVisitor& visitor) {
    for (Ref<NSTableColumn>& column : columns_) visitor.visit(column);
    NSControl::visitOwned(visitor);
}
