#include "VELTRuntime/platform/appkit/tables/outline_view.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/cells_view.h"
#include "VELTRuntime/platform/appkit/tables/outline_model.h"
#include "VELTRuntime/platform/appkit/tables/outline_tree.h"
#include "VELTRuntime/platform/foundation/dictionary.h"

#include <QHeaderView>
#include <QTreeView>
#include <algorithm>
#include <cmath>

using velt::OutlineModel;
using velt::Ref;
using velt::Selector;

namespace {

id object(const NSObject* pointer) { return id(const_cast<NSObject*>(pointer)); }

QTreeView& treeOf(QAbstractItemView& view) { return static_cast<QTreeView&>(view); }

}  // namespace

NSOutlineView::NSOutlineView() = default;
NSOutlineView::~NSOutlineView() { NSOutlineView::dissolve(); }

void NSOutlineView::dissolve() {
    if (model_) {
        // The tree's view lets go of the items before they go; nobody is asked for new ones.
        model_->forget();
        model_->reset();
        model_ = nullptr;
    }
    NSTableView::dissolve();
}

OutlineModel& NSOutlineView::model() {
    itemView();
    return *model_;
}

// The data source.

long NSOutlineView::askChildCount(const id& item) {
    const Selector asks = VELT_SELECTOR("outlineView:numberOfChildrenOfItem:");
    if (!velt::respondsTo(dataSource(), asks)) return 0;
    constexpr long kMost = 0x7FFFFFF0;
    return std::clamp(VELT_CINTEGER(velt::send(dataSource(), asks, object(this), item)), 0L, kMost);
}

id NSOutlineView::askChild(long index, const id& item) {
    const Selector asks = VELT_SELECTOR("outlineView:child:ofItem:");
    if (!velt::respondsTo(dataSource(), asks)) return nil;
    return velt::send(dataSource(), asks, object(this), VELT_ID(index), item);
}

bool NSOutlineView::isExpandable(const id& item) {
    const Selector asks = VELT_SELECTOR("outlineView:isItemExpandable:");
    return velt::respondsTo(dataSource(), asks) && VELT_CBOOL(velt::send(dataSource(), asks, object(this), item));
}

id NSOutlineView::valueAt(const QModelIndex& index) {
    const Selector asks = VELT_SELECTOR("outlineView:objectValueForTableColumn:byItem:");
    if (!velt::respondsTo(dataSource(), asks)) return nil;
    return velt::send(dataSource(), asks, object(this), object(columnAt(index)), model().itemAt(index));
}

void NSOutlineView::setValueAt(const QModelIndex& index, const id& value) {
    const Selector asks = VELT_SELECTOR("outlineView:setObjectValue:forTableColumn:byItem:");
    if (!velt::respondsTo(dataSource(), asks)) return;
    velt::send(dataSource(), asks, object(this), value, object(columnAt(index)), model().itemAt(index));
    itemView().viewport()->update();
}

id NSOutlineView::dataCellAt(const QModelIndex& index) {
    const id column = object(columnAt(index));
    const Selector asks = VELT_SELECTOR("outlineView:dataCellForTableColumn:item:");
    if (velt::respondsTo(delegate(), asks)) {
        id cell = velt::send(delegate(), asks, object(this), column, model().itemAt(index));
        if (velt::is<NSCell>(cell)) return cell;
    }
    return velt::send(column, VELT_SELECTOR("dataCell"));
}

void NSOutlineView::tellWillDisplay(const id& cell, const QModelIndex& index) {
    const Selector tells = VELT_SELECTOR("outlineView:willDisplayCell:forTableColumn:item:");
    if (!velt::respondsTo(delegate(), tells)) return;
    velt::send(delegate(), tells, object(this), cell, object(columnAt(index)), model().itemAt(index));
}

id NSOutlineView::toolTipAt(const QModelIndex& index) {
    const Selector asks = VELT_SELECTOR("outlineView:toolTipForTableColumn:item:");
    if (!velt::respondsTo(delegate(), asks)) return nil;
    return velt::send(delegate(), asks, object(this), object(columnAt(index)), model().itemAt(index));
}

bool NSOutlineView::mayEdit(const QModelIndex& index) {
    const NSTableColumn* column = columnAt(index);
    if (!column || !column->isEditable()) return false;
    if (!velt::respondsTo(dataSource(), VELT_SELECTOR("outlineView:setObjectValue:forTableColumn:byItem:")))
        return false;
    const id cell = dataCellAt(index);
    const bool isButton = velt::is<NSButtonCell>(cell);
    if (!velt::is<NSCell>(cell) || !(isButton || velt::as<NSCell>(cell)->isEditable())) return false;
    const Selector asks = VELT_SELECTOR("outlineView:shouldEditTableColumn:item:");
    if (isButton || !velt::respondsTo(delegate(), asks)) return true;
    return VELT_CBOOL(velt::send(delegate(), asks, object(this), object(column), model().itemAt(index)));
}

QString NSOutlineView::searchedText(const QModelIndex& index) {
    const Selector asks = VELT_SELECTOR("outlineView:typeSelectStringForTableColumn:item:");
    const id value = velt::respondsTo(delegate(), asks)
                         ? velt::send(delegate(), asks, object(this), object(columnAt(index)), model().itemAt(index))
                         : valueAt(index);
    return velt::qtText(value.isNil() || velt::isString(value) ? value : velt::description(value));
}

Selector NSOutlineView::shouldSelectSelector() const { return VELT_SELECTOR("outlineView:shouldSelectItem:"); }

bool NSOutlineView::maySelect(const QModelIndex& index) {
    const Selector asks = shouldSelectSelector();
    return !velt::respondsTo(delegate(), asks) ||
           VELT_CBOOL(velt::send(delegate(), asks, object(this), model().itemAt(index)));
}

void NSOutlineView::tellSelection(bool changing) {
    if (changing) {
        tellDelegate("outlineViewSelectionIsChanging:", "NSOutlineViewSelectionIsChangingNotification");
    } else {
        tellDelegate("outlineViewSelectionDidChange:", "NSOutlineViewSelectionDidChangeNotification");
    }
}

// Loading one item anew.

void NSOutlineView::reloadItemWithChildren(const id& item, bool children) {
    if (item.isNil()) {
        reloadData();
        return;
    }
    requireLoaded();
    const QModelIndex index = model().indexOfItem(item);
    if (!index.isValid()) return;
    if (children) model().resetChildren(index);
    model().itemChanged(index);
}

// Expansion.

bool NSOutlineView::isItemExpanded(const id& item) {
    const QModelIndex index = model().indexOfItem(item);
    return index.isValid() && treeOf(itemView()).isExpanded(index);
}

bool NSOutlineView::mayChange(const QModelIndex& index, bool expand) {
    const Selector asks = expand ? Selector(VELT_SELECTOR("outlineView:shouldExpandItem:"))
                                 : Selector(VELT_SELECTOR("outlineView:shouldCollapseItem:"));
    return opening_ || !velt::respondsTo(delegate(), asks) ||
           VELT_CBOOL(velt::send(delegate(), asks, object(this), model().itemAt(index)));
}

void NSOutlineView::expansionChanged(const QModelIndex& index, bool expanded) {
    if (opening_) return;
    if (!mayChange(index, expanded)) {
        opening_ = true;
        treeOf(itemView()).setExpanded(index, !expanded);
        opening_ = false;
        return;
    }
    Ref<NSMutableDictionary> info = velt::make<NSMutableDictionary>();
    info->setObject(model().itemAt(index), velt::string(u"NSObject"));
    if (expanded) {
        tellDelegate("outlineViewItemDidExpand:", "NSOutlineViewItemDidExpandNotification", info);
    } else {
        tellDelegate("outlineViewItemDidCollapse:", "NSOutlineViewItemDidCollapseNotification", info);
    }
}

void NSOutlineView::expandItemWithChildren(const id& item, bool children) {
    requireLoaded();
    const auto expand = [&](const auto& self, const QModelIndex& index) -> void {
        if (index.isValid()) {
            if (!isExpandable(model().itemAt(index))) return;
            treeOf(itemView()).setExpanded(index, true);
            if (treeOf(itemView()).isExpanded(index)) model().rowCount(index);  // the toolkit may ask later
        }
        if (!children && index.isValid()) return;
        for (int row = 0; row < model().rowCount(index); ++row) {
            const QModelIndex below = model().index(row, 0, index);
            if (children) {
                self(self, below);
            } else if (isExpandable(model().itemAt(below))) {
                treeOf(itemView()).setExpanded(below, true);
            }
        }
    };
    const QModelIndex index = model().find(item);
    if (item.isNil() || index.isValid()) expand(expand, index);
}

void NSOutlineView::collapseItemWithChildren(const id& item, bool children) {
    requireLoaded();
    const auto collapse = [&](const auto& self, const QModelIndex& index) -> void {
        if (children || !index.isValid()) {
            for (int row = 0; row < model().rowCount(index); ++row) {
                const QModelIndex below = model().index(row, 0, index);
                if (model().isKnown(below) && treeOf(itemView()).isExpanded(below)) self(self, below);
            }
        }
        if (index.isValid()) treeOf(itemView()).setExpanded(index, false);
    };
    const QModelIndex index = model().indexOfItem(item);
    if (item.isNil() || index.isValid()) collapse(collapse, index);
}

// Rows and items.

QModelIndex NSOutlineView::indexOf(long row, int column) const {
    if (!model_ || row < 0) return {};
    const auto& tree = static_cast<const QTreeView&>(*existingItemView());
    QModelIndex index = model_->index(0, 0);
    for (long at = 0; index.isValid() && at < row; ++at) index = tree.indexBelow(index);
    return index.siblingAtColumn(column);
}

long NSOutlineView::rowOf(const QModelIndex& index) const {
    if (!model_ || !index.isValid()) return -1;
    const auto& tree = static_cast<const QTreeView&>(*existingItemView());
    const QModelIndex wanted = index.siblingAtColumn(0);
    long row = 0;
    for (QModelIndex at = model_->index(0, 0); at.isValid(); at = tree.indexBelow(at), ++row) {
        if (at == wanted) return row;
    }
    return -1;
}

long NSOutlineView::shownRows() {
    long rows = 0;
    const auto& tree = treeOf(itemView());
    for (QModelIndex at = model_->index(0, 0); at.isValid(); at = tree.indexBelow(at)) ++rows;
    return rows;
}

id NSOutlineView::itemAtRow(long row) {
    requireLoaded();
    const QModelIndex index = indexOf(row, 0);
    return index.isValid() ? model().itemAt(index) : nil;
}

long NSOutlineView::rowForItem(const id& item) {
    requireLoaded();
    return rowOf(model().find(item));
}

long NSOutlineView::levelForItem(const id& item) {
    requireLoaded();
    QModelIndex index = model().find(item);
    long level = -1;
    for (; index.isValid(); index = index.parent()) ++level;
    return level;
}
long NSOutlineView::levelForRow(long row) {
    const id item = itemAtRow(row);
    return item.isNil() ? -1 : levelForItem(item);
}

id NSOutlineView::parentForItem(const id& item) {
    const QModelIndex index = model().find(item);
    return index.isValid() && index.parent().isValid() ? model().itemAt(index.parent()) : nil;
}

id NSOutlineView::outlineTableColumn() const {
    if (outlineColumn_) return outlineColumn_;
    return columns().empty() ? id() : id(columns().front());
}
void NSOutlineView::setOutlineTableColumn(const id& column) {
    outlineColumn_ = Ref<NSTableColumn>(velt::to<NSTableColumn>(column));
    changed();
}
void NSOutlineView::setIndentationPerLevel(double width) {
    indentation_ = width;
    changed();
}

// The toolkit's.

std::unique_ptr<QAbstractItemView> NSOutlineView::makeItemView() {
    auto view = std::make_unique<velt::CellsView<velt::OutlineTree>>();
    view->setUniformRowHeights(true);
    view->setExpandsOnDoubleClick(false);
    view->setAllColumnsShowFocus(true);
    QTreeView* shown = view.get();
    const auto tell = [shown](const QModelIndex& index, bool expanded) {
        auto* outline = dynamic_cast<NSOutlineView*>(velt::tableOf(shown));
        if (!outline) return;
        const Ref<NSOutlineView> kept(outline);
        velt::runReported([&] { kept->expansionChanged(index, expanded); });
    };
    QObject::connect(shown, &QTreeView::expanded, shown, [tell](const QModelIndex& index) { tell(index, true); });
    QObject::connect(shown, &QTreeView::collapsed, shown, [tell](const QModelIndex& index) { tell(index, false); });
    return view;
}

std::unique_ptr<QAbstractItemModel> NSOutlineView::makeModel() {
    auto made = std::make_unique<OutlineModel>(*this);
    model_ = made.get();
    return made;
}

QHeaderView& NSOutlineView::headerOf(QAbstractItemView& view) const { return *treeOf(view).header(); }

void NSOutlineView::applyRowHeight(QAbstractItemView& view) {
    auto* delegate = static_cast<velt::CellDelegate*>(view.itemDelegate());
    delegate->setRowHeight(static_cast<int>(std::lround(rowHeight() + intercellSpacing().height)));
}

void NSOutlineView::syncWidget(QWidget& widget) {
    NSTableView::syncWidget(widget);
    auto& tree = static_cast<QTreeView&>(widget);
    tree.setIndentation(static_cast<int>(std::lround(indentation_)));
    const auto& all = columns();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const Ref<NSTableColumn>& own) { return own.get() == outlineColumn_.get(); });
    tree.setTreePosition(found == all.end() ? 0 : static_cast<int>(found - all.begin()));
}

void NSOutlineView::visitOwned(velt::OwnedVisitor& visitor) {
    if (model_) model_->visitOwned(visitor);
    NSTableView::visitOwned(visitor);
}

void NSOutlineView::describe(velt::ClassBuilder<NSOutlineView>& c) {
    using Outline = NSOutlineView;
    c.method("reloadItem:", &Outline::reloadItem)
        .method("reloadItem:reloadChildren:", &Outline::reloadItemWithChildren)
        .method("isExpandable:", &Outline::isExpandable)
        .method("isItemExpanded:", &Outline::isItemExpanded)
        .method("expandItem:", &Outline::expandItem)
        .method("expandItem:expandChildren:", &Outline::expandItemWithChildren)
        .method("collapseItem:", &Outline::collapseItem)
        .method("collapseItem:collapseChildren:", &Outline::collapseItemWithChildren)
        .method("itemAtRow:", &Outline::itemAtRow)
        .method("rowForItem:", &Outline::rowForItem)
        .method("levelForItem:", &Outline::levelForItem)
        .method("levelForRow:", &Outline::levelForRow)
        .method("parentForItem:", &Outline::parentForItem)
        .property("outlineTableColumn", &Outline::outlineTableColumn, &Outline::setOutlineTableColumn)
        .property("indentationPerLevel", &Outline::indentationPerLevel, &Outline::setIndentationPerLevel)
        .owns(&Outline::outlineColumn_);
}
