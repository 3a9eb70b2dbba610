#include "VELTRuntime/platform/appkit/tables/table_view.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/cells_view.h"
#include "VELTRuntime/platform/appkit/tables/table_model.h"
#include "VELTRuntime/platform/appkit/view_widget.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/id_of.h"

#include <QCursor>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

using velt::Ref;
using velt::Selector;

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
    if (view) syncDragging(*view);
    if (!view || !view->isVisible()) return;
    // The program may still be at work on the source.
    QMetaObject::invokeMethod(
        view, [view] { velt::withTable(view, [](NSTableView& table) { table.requireLoaded(); }); },
        Qt::QueuedConnection);
}

long NSTableView::askRowCount() {
    const id self = velt::idOf(this);
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
    bool lost = false;
    {
        const velt::Setting quiet = reloading();
        static_cast<velt::TableModel*>(view.model())->setRows(static_cast<int>(rows));
        QItemSelection kept;
        for (const NSRange& range : selected) {
            const long end = std::min(static_cast<long>(range.location + range.length), rows);
            const long begin = static_cast<long>(range.location);
            lost = lost || end < static_cast<long>(range.location + range.length);
            if (begin < end) kept.append(rowsBetween(begin, end));
        }
        auto& selection = static_cast<velt::RowSelection&>(*view.selectionModel());
        selection.selectUnasked(kept, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        if (currentRow >= 0 && currentRow < rows) {
            selection.setCurrentIndex(indexOf(currentRow, currentColumn), QItemSelectionModel::NoUpdate);
        }
    }
    syncColumns(view);
    view.horizontalScrollBar()->setValue(x);
    view.verticalScrollBar()->setValue(y);
    if (lost) selectionChanged();
}

long NSTableView::numberOfRows() {
    requireLoaded();
    return shownRows();
}

long NSTableView::shownRows() { return itemView().model()->rowCount(); }

// Values.

const velt::RowMessages& NSTableView::rowMessages() const {
    static const velt::RowMessages messages{
        .value = Selector::named("tableView:objectValueForTableColumn:row:"),
        .setValue = Selector::named("tableView:setObjectValue:forTableColumn:row:"),
        .dataCell = Selector::named("tableView:dataCellForTableColumn:row:"),
        .willDisplay = Selector::named("tableView:willDisplayCell:forTableColumn:row:"),
        .toolTip = Selector::named("tableView:toolTipForTableColumn:row:"),
        .toolTipAtMouse = Selector::named("tableView:toolTipForCell:rect:tableColumn:row:mouseLocation:"),
        .shouldEdit = Selector::named("tableView:shouldEditTableColumn:row:"),
        .shouldSelect = Selector::named("tableView:shouldSelectRow:"),
        .typeSelectString = Selector::named("tableView:typeSelectStringForTableColumn:row:"),
    };
    return messages;
}

id NSTableView::rowArgument(const QModelIndex& index) { return VELT_ID(rowOf(index)); }

id NSTableView::valueAt(const QModelIndex& index) {
    const Selector asks = rowMessages().value;
    if (!velt::respondsTo(dataSource_, asks)) return nil;
    return velt::send(dataSource_, asks, velt::idOf(this), velt::idOf(columnAt(index)), rowArgument(index));
}

void NSTableView::setValueAt(const QModelIndex& index, const id& value) {
    const Selector asks = rowMessages().setValue;
    if (!velt::respondsTo(dataSource_, asks)) return;
    velt::send(dataSource_, asks, velt::idOf(this), value, velt::idOf(columnAt(index)), rowArgument(index));
    if (QAbstractItemView* view = existingItemView()) view->viewport()->update();
}

id NSTableView::columnCell(const id& column, const QModelIndex& index) {
    return velt::send(column, VELT_SELECTOR("dataCellForRow:"), VELT_ID(rowOf(index)));
}

id NSTableView::dataCellAt(const QModelIndex& index) {
    const id column = velt::idOf(columnAt(index));
    const Selector asks = rowMessages().dataCell;
    if (velt::respondsTo(delegate(), asks)) {
        id cell = velt::send(delegate(), asks, velt::idOf(this), column, rowArgument(index));
        if (velt::is<NSCell>(cell)) return cell;
    }
    return columnCell(column, index);
}

id NSTableView::preparedCell(const QModelIndex& index) {
    if (!columnAt(index)) return nil;
    id cell = dataCellAt(index);
    if (!velt::is<NSCell>(cell)) return cell;
    velt::send(cell, VELT_SELECTOR("setObjectValue:"), valueAt(index));
    const Selector tells = rowMessages().willDisplay;
    if (velt::respondsTo(delegate(), tells)) {
        velt::send(delegate(), tells, velt::idOf(this), cell, velt::idOf(columnAt(index)), rowArgument(index));
    }
    return cell;
}

id NSTableView::toolTipAt(const QModelIndex& index) {
    const Selector asksAtMouse = rowMessages().toolTipAtMouse;
    if (velt::respondsTo(delegate(), asksAtMouse)) {
        const QAbstractItemView& view = itemView();
        const QPoint corner = view.viewport()->pos(), mouse = view.mapFromGlobal(QCursor::pos());
        const QRect cell = view.visualRect(index).translated(corner);
        const NSRect rect{{double(cell.x()), double(cell.y())}, {double(cell.width()), double(cell.height())}};
        return velt::send(delegate(), asksAtMouse, velt::idOf(this), preparedCell(index), VELT_ID(rect),
                          velt::idOf(columnAt(index)), rowArgument(index),
                          VELT_ID(NSPoint{double(mouse.x()), double(mouse.y())}));
    }
    const Selector asks = rowMessages().toolTip;
    if (!velt::respondsTo(delegate(), asks)) return nil;
    return velt::send(delegate(), asks, velt::idOf(this), velt::idOf(columnAt(index)), rowArgument(index));
}

bool NSTableView::mayEdit(const QModelIndex& index) {
    const NSTableColumn* column = columnAt(index);
    if (!column || !column->isEditable()) return false;
    if (!velt::respondsTo(dataSource_, rowMessages().setValue)) return false;
    const id cell = dataCellAt(index);
    const bool isButton = velt::is<NSButtonCell>(cell);
    if (!velt::is<NSCell>(cell) || !(isButton || velt::as<NSCell>(cell)->isEditable())) return false;
    const Selector asks = rowMessages().shouldEdit;
    if (isButton || !velt::respondsTo(delegate(), asks)) return true;
    return VELT_CBOOL(velt::send(delegate(), asks, velt::idOf(this), velt::idOf(column), rowArgument(index)));
}

bool NSTableView::mayType(const QModelIndex& index) {
    return mayEdit(index) && !velt::is<NSButtonCell>(dataCellAt(index)) && !velt::is<NSImage>(valueAt(index));
}

// A person's work.

void NSTableView::tell(std::string_view selector, std::string_view notification, const id& userInfo) {
    velt::tellDelegateAndObservers(delegate(), selector, notification, velt::idOf(this), userInfo);
}

void NSTableView::selectionChanged() {
    if (reloading_) return;
    selectedMeanwhile_ = selecting_;
    tellSelection(selecting_);
}

void NSTableView::tellSelection(bool changing) {
    if (changing) {
        tell("tableViewSelectionIsChanging:", "NSTableViewSelectionIsChangingNotification");
    } else {
        tell("tableViewSelectionDidChange:", "NSTableViewSelectionDidChangeNotification");
    }
}

void NSTableView::beginSelecting() {
    selecting_ = true;
    selectedMeanwhile_ = false;
}

void NSTableView::endSelecting() {
    selecting_ = false;
    if (!std::exchange(selectedMeanwhile_, false)) return;
    const Ref<NSTableView> kept(this);
    velt::runReported([&] { kept->tellSelection(false); });
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

void NSTableView::setDoubleActionName(const id& name) { doubleAction_ = velt::actionNamed(name); }

void NSTableView::editColumn(long column, long row, const id&, bool) {
    if (row < 0 || row >= numberOfRows() || column < 0 || column >= numberOfColumns()) return;
    QAbstractItemView& view = itemView();
    const QPersistentModelIndex index = indexOf(row, static_cast<int>(column));
    view.setCurrentIndex(index);
    if (mayType(index)) view.edit(index);
}

void NSTableView::scrollRowToVisible(long row) {
    if (row >= 0 && row < numberOfRows()) itemView().scrollTo(indexOf(row, 0));
}
void NSTableView::scrollColumnToVisible(long column) {
    if (column >= 0 && column < numberOfColumns() && numberOfRows() > 0)
        itemView().scrollTo(indexOf(0, static_cast<int>(column)));
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
        .method("registerForDraggedTypes:", &Table::registerForDraggedTypes)
        .method("unregisterDraggedTypes", &Table::unregisterDraggedTypes)
        .property("registeredDraggedTypes", &Table::registeredDraggedTypes)
        .method("setDropRow:dropOperation:", &Table::setDropRow)
        .method("setDraggingSourceOperationMask:forLocal:", &Table::setDraggingSourceOperationMask)
        .method("rectOfRow:", &Table::rectOfRow)
        .method("rowAtPoint:", &Table::rowAtPoint)
        .method("columnAtPoint:", &Table::columnAtPoint)
        .owns(&Table::dataSource_)
        .owns(&Table::headerView_)
        .owns(&Table::sortDescriptors_)
        .owns(&Table::gridColor_)
        .owns(&Table::draggedTypes_);
}

void NSTableView::visitOwned(velt::OwnedVisitor& visitor) {
    for (Ref<NSTableColumn>& column : columns_) visitor.visit(column);
    NSControl::visitOwned(visitor);
}
