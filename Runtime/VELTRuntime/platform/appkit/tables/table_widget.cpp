// What a table shows itself with, and how its looks reach the toolkit.
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/cells_view.h"
#include "VELTRuntime/platform/appkit/tables/rows_view.h"
#include "VELTRuntime/platform/appkit/tables/table_model.h"
#include "VELTRuntime/platform/appkit/tables/table_view.h"
#include "VELTRuntime/platform/appkit/view_widget.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>
#include <cmath>

std::unique_ptr<QAbstractItemView> NSTableView::makeItemView() {
    auto view = std::make_unique<velt::CellsView<velt::RowsView>>();
    view->setWordWrap(false);
    return view;
}

std::unique_ptr<QAbstractItemModel> NSTableView::makeModel() { return std::make_unique<velt::TableModel>(*this); }

QHeaderView& NSTableView::headerOf(QAbstractItemView& view) const {
    return *static_cast<QTableView&>(view).horizontalHeader();
}

void NSTableView::applyRowHeight(QAbstractItemView& view) {
    static_cast<velt::RowsView&>(view).setRowHeight(static_cast<int>(std::lround(rowHeight_ + spacing_.height)));
}

std::unique_ptr<QWidget> NSTableView::makeWidget() {
    std::unique_ptr<QAbstractItemView> view = makeItemView();
    QAbstractItemView* shown = view.get();
    QAbstractItemModel* model = makeModel().release();
    model->setParent(shown);
    velt::setViewOf(*shown, this);
    shown->setModel(model);
    delete shown->selectionModel();
    shown->setSelectionModel(new velt::RowSelection(model, shown));
    shown->setItemDelegate(new velt::CellDelegate(shown));
    shown->setSelectionBehavior(QAbstractItemView::SelectRows);
    shown->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    shown->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    shown->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    shown->setTabKeyNavigation(false);
    velt::setViewOf(*shown->viewport(), this);
    watchEvents(*shown);
    watchEvents(*shown->viewport());
    QHeaderView& header = headerOf(*shown);
    header.setSectionsClickable(true);
    header.setHighlightSections(false);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header.setMinimumSectionSize(4);
    header.setStretchLastSection(true);
    QObject::connect(shown, &QAbstractItemView::clicked, shown, [shown](const QModelIndex& index) {
        velt::withTable(shown, [&](NSTableView& t) { t.clicked(index); });
    });
    QObject::connect(shown, &QAbstractItemView::doubleClicked, shown, [shown](const QModelIndex& index) {
        velt::withTable(shown, [&](NSTableView& t) { t.doubleClicked(index); });
    });
    QObject::connect(shown->selectionModel(), &QItemSelectionModel::selectionChanged, shown,
                     [shown] { velt::withTable(shown, [](NSTableView& t) { t.selectionChanged(); }); });
    QObject::connect(&header, &QHeaderView::sectionClicked, shown, [shown](int section) {
        velt::withTable(shown, [&](NSTableView& t) { t.headerClicked(section); });
    });
    QObject::connect(&header, &QHeaderView::sectionMoved, shown, [shown](int, int from, int to) {
        const NSTableView* table = velt::tableOf(shown);
        if (!table || table->syncing_) return;
        // The header is still at work on the move.
        const auto take = [shown, from, to] {
            velt::withTable(shown, [&](NSTableView& t) { t.columnMoved(from, to); });
        };
        QMetaObject::invokeMethod(shown, take, Qt::QueuedConnection);
    });
    QObject::connect(&header, &QHeaderView::sectionResized, shown, [shown](int section, int, int width) {
        velt::withTable(shown, [&](NSTableView& t) { t.columnResized(section, width); });
    });
    return view;
}

QAbstractItemView& NSTableView::itemView() { return static_cast<QAbstractItemView&>(widget()); }
QAbstractItemView* NSTableView::existingItemView() const { return static_cast<QAbstractItemView*>(existingWidget()); }

void NSTableView::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    auto& view = static_cast<QAbstractItemView&>(widget);
    view.setAlternatingRowColors(alternating_);
    view.setSelectionMode(multiple_ ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
    applyRowHeight(view);
    syncColumns(view);
    syncDragging(view);
    view.viewport()->update();
}

// Looks.

void NSTableView::setUsesAlternatingRowBackgroundColors(bool flag) {
    alternating_ = flag;
    changed();
}
void NSTableView::setGridStyleMask(unsigned long mask) {
    gridStyle_ = mask;
    changed();
}
void NSTableView::setGridColor(const id& color) {
    gridColor_ = color;
    changed();
}
void NSTableView::setRowHeight(double height) {
    rowHeight_ = std::max(1.0, height);
    changed();
}
void NSTableView::setIntercellSpacing(NSSize spacing) {
    spacing_ = spacing;
    changed();
}
void NSTableView::setHeaderView(const id& view) {
    headerView_ = view;
    changed();
}
void NSTableView::setAllowsColumnReordering(bool flag) {
    reordering_ = flag;
    changed();
}
void NSTableView::setAllowsColumnResizing(bool flag) {
    resizing_ = flag;
    changed();
}

// Places.

NSRect NSTableView::rectOfRow(long row) {
    if (row < 0 || row >= numberOfRows()) return {};
    QAbstractItemView& view = itemView();
    const QRect rect = view.visualRect(indexOf(row, 0));
    const QPoint top = view.viewport()->mapTo(&view, rect.topLeft());
    return {{0, static_cast<double>(top.y())}, {bounds().size.width, static_cast<double>(rect.height())}};
}

long NSTableView::rowAtPoint(NSPoint point) {
    requireLoaded();
    QAbstractItemView& view = itemView();
    const QPoint place(static_cast<int>(point.x), static_cast<int>(point.y));
    return rowOf(view.indexAt(view.viewport()->mapFrom(&view, place)));
}

long NSTableView::columnAtPoint(NSPoint point) {
    QAbstractItemView& view = itemView();
    const QPoint place(static_cast<int>(point.x), static_cast<int>(point.y));
    return headerOf(view).logicalIndexAt(view.viewport()->mapFrom(&view, place));
}
