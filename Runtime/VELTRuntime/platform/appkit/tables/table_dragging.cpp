// Rows that are dragged out of a table, and what is dropped on one.
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/pasteboard.h"
#include "VELTRuntime/platform/appkit/tables/cell_painting.h"
#include "VELTRuntime/platform/appkit/tables/rows_view.h"
#include "VELTRuntime/platform/appkit/tables/table_view.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/setting.h"
#include "VELTRuntime/values/class_casts.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>
#include <algorithm>

using velt::DropPlace;
using velt::Ref;
using velt::Selector;

// What the data source says.

bool NSTableView::mayDragRows() const {
    return velt::respondsTo(dataSource_, VELT_SELECTOR("tableView:writeRowsWithIndexes:toPasteboard:"));
}

bool NSTableView::writeRows(const id& indexes, const id& pasteboard) {
    const Selector asks = VELT_SELECTOR("tableView:writeRowsWithIndexes:toPasteboard:");
    const id self(static_cast<NSObject*>(this));
    return mayDragRows() && VELT_CBOOL(velt::send(dataSource_, asks, self, indexes, pasteboard));
}

void NSTableView::registerForDraggedTypes(const id& types) {
    draggedTypes_ = VELT_CARRAY(types);
    changed();
}

void NSTableView::setDropRow(long row, unsigned long operation) {
    if (validated_) *validated_ = {row, operation};
}

void NSTableView::setDraggingSourceOperationMask(unsigned long mask, bool local) {
    (local ? localDrags_ : foreignDrags_) = mask;
}

unsigned long NSTableView::validateDrop(const id& info, DropPlace& place) {
    const Selector asks = VELT_SELECTOR("tableView:validateDrop:proposedRow:proposedDropOperation:");
    if (!velt::respondsTo(dataSource_, asks)) return 0;
    const velt::Setting validated(validated_, &place);
    const DropPlace proposed = place;
    const id self(static_cast<NSObject*>(this));
    const long operations =
        VELT_CINTEGER(velt::send(dataSource_, asks, self, info, VELT_ID(proposed.row), VELT_ID(proposed.operation)));
    place.row = std::clamp(place.row, -1L, numberOfRows());
    return static_cast<unsigned long>(operations);
}

bool NSTableView::acceptDrop(const id& info, const DropPlace& place) {
    const Selector asks = VELT_SELECTOR("tableView:acceptDrop:row:dropOperation:");
    if (!velt::respondsTo(dataSource_, asks)) return false;
    const id self(static_cast<NSObject*>(this));
    return VELT_CBOOL(velt::send(dataSource_, asks, self, info, VELT_ID(place.row), VELT_ID(place.operation)));
}

void NSTableView::syncDragging(QAbstractItemView& view) {
    view.setDragEnabled(mayDragRows());
    view.setAcceptDrops(!draggedTypes_.isNil());
}

namespace velt {

namespace {

/// What is dragged within this program at the moment.
struct OwnDrag {
    id pasteboard, source;
};
OwnDrag* ownDrag = nullptr;

Qt::DropActions actionsOf(unsigned long mask) {
    Qt::DropActions actions;
    actions.setFlag(Qt::CopyAction, mask & kDragCopy);
    actions.setFlag(Qt::LinkAction, mask & kDragLink);
    actions.setFlag(Qt::MoveAction, mask & (kDragMove | kDragGeneric));
    return actions;
}

unsigned long maskOf(Qt::DropActions actions) {
    return (actions & Qt::CopyAction ? kDragCopy | kDragGeneric : 0UL) | (actions & Qt::LinkAction ? kDragLink : 0UL) |
           (actions & Qt::MoveAction ? kDragMove | kDragGeneric : 0UL);
}

Ref<NSDraggingInfo> infoOf(NSTableView& table, const QDropEvent& event) {
    const id pasteboard = ownDrag ? ownDrag->pasteboard : id(pasteboardOf(*event.mimeData()));
    const unsigned long mask = maskOf(event.possibleActions());
    NSPoint location{event.position().x(), event.position().y()};
    if (NSWindow* window = table.windowPointer()) {
        const QAbstractItemView& view = static_cast<QAbstractItemView&>(table.widget());
        location = window->basePointOf(*view.viewport(), location);
    }
    return make<NSDraggingInfo>(pasteboard, ownDrag ? ownDrag->source : id(), location, mask);
}

bool isWanted(const NSTableView& table, const QDropEvent& event) {
    const id types = table.registeredDraggedTypes();
    if (types.isNil()) return false;
    const id pasteboard = ownDrag ? ownDrag->pasteboard : id(pasteboardOf(*event.mimeData()));
    return !as<NSPasteboard>(pasteboard)->availableTypeFromArray(types).isNil();
}

/// On the middle of a row, or between two at their edges.
DropPlace proposedPlace(const RowsView& view, long rows, int y) {
    const long row = view.rowAtHeight(y);
    if (row < 0 || row >= rows) return {rows, DropPlace::kAbove};
    const int within = y - view.topOfRow(row), edge = view.rowHeightOfAll() / 4;
    if (within < edge) return {row, DropPlace::kAbove};
    if (within >= view.rowHeightOfAll() - edge) return {row + 1, DropPlace::kAbove};
    return {row, DropPlace::kOn};
}

/// The rows' picture under the pointer: as many of them as are seen.
QPixmap pictureOf(RowsView& view, const QModelIndexList& rows) {
    QRect all;
    for (const QModelIndex& row : rows) {
        const QRect rect(0, view.topOfRow(row.row()), view.viewport()->width(), view.rowHeightOfAll());
        all |= rect & view.viewport()->rect();
    }
    return all.isEmpty() ? QPixmap() : view.viewport()->grab(all);
}

}  // namespace

void RowsView::startDrag(Qt::DropActions) {
    NSTableView* table = tableOf(this);
    if (!table) return;
    const Ref<NSTableView> kept(table);
    kept->endSelecting();  // the drag takes the mouse's going up
    OwnDrag own{make<NSPasteboard>(), id(kept)};
    bool written = false;
    runReported([&] { written = kept->writeRows(kept->selectedRowIndexes(), own.pasteboard); });
    if (!written || tableOf(this) != table) return;
    auto* drag = new QDrag(this);  // the toolkit frees it
    drag->setMimeData(mimeOf(*as<NSPasteboard>(own.pasteboard)).release());
    drag->setPixmap(pictureOf(*this, selectionModel()->selectedRows()));
    const Qt::DropActions actions =
        actionsOf(kept->draggingSourceOperationMask(true) | kept->draggingSourceOperationMask(false));
    const Setting dragging(ownDrag, &own);
    drag->exec(actions, actions & Qt::MoveAction ? Qt::MoveAction : Qt::CopyAction);
}

void RowsView::dragEnterEvent(QDragEnterEvent* event) { dragMoveEvent(event); }

void RowsView::dragMoveEvent(QDragMoveEvent* event) {
    NSTableView* table = tableOf(this);
    event->ignore();
    if (!table || !isWanted(*table, *event)) return;
    const Ref<NSTableView> kept(table);
    DropPlace place = proposedPlace(*this, rowCount(), event->position().toPoint().y());
    unsigned long operations = 0;
    runReported([&] { operations = kept->validateDrop(infoOf(*kept, *event), place); });
    const Qt::DropActions possible = actionsOf(operations) & event->possibleActions();
    if (!possible) {
        setDropMark(std::nullopt);
        return;
    }
    setDropMark(DropMark{place.row, place.operation == DropPlace::kOn});
    for (const Qt::DropAction action : {Qt::MoveAction, Qt::CopyAction, Qt::LinkAction}) {
        if (!(possible & action)) continue;
        event->setDropAction(action);
        break;
    }
    event->accept();
    if (hasAutoScroll()) startAutoScroll();
}

void RowsView::dragLeaveEvent(QDragLeaveEvent*) {
    setDropMark(std::nullopt);
    stopAutoScroll();
}

void RowsView::dropEvent(QDropEvent* event) {
    NSTableView* table = tableOf(this);
    stopAutoScroll();
    setDropMark(std::nullopt);
    event->ignore();
    if (!table || !isWanted(*table, *event)) return;
    const Ref<NSTableView> kept(table);
    runReported([&] {
        DropPlace place = proposedPlace(*this, rowCount(), event->position().toPoint().y());
        const id info = infoOf(*kept, *event);
        if (!actionsOf(kept->validateDrop(info, place))) return;
        if (kept->acceptDrop(info, place)) event->acceptProposedAction();
    });
    setState(NoState);
}

}  // namespace velt
