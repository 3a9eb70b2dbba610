#include "VELTRuntime/platform/appkit/tables/outline_view.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/cells_view.h"
#include "VELTRuntime/platform/appkit/tables/outline_model.h"
#include "VELTRuntime/platform/appkit/tables/outline_tree.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/id_of.h"
#include "VELTRuntime/platform/object/setting.h"

#include <QHeaderView>
#include <QTreeView>
#include <algorithm>
#include <cmath>

using velt::OutlineModel;
using velt::Ref;
using velt::Selector;

namespace {

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
    return std::clamp(VELT_CINTEGER(velt::send(dataSource(), asks, velt::idOf(this), item)), 0L, kMost);
}

id NSOutlineView::askChild(long index, const id& item) {
    const Selector asks = VELT_SELECTOR("outlineView:child:ofItem:");
    if (!velt::respondsTo(dataSource(), asks)) return nil;
    return velt::send(dataSource(), asks, velt::idOf(this), VELT_ID(index), item);
}

bool NSOutlineView::isExpandable(const id& item) {
    const Selector asks = VELT_SELECTOR("outlineView:isItemExpandable:");
    return velt::respondsTo(dataSource(), asks) && VELT_CBOOL(velt::send(dataSource(), asks, velt::idOf(this), item));
}

const velt::RowMessages& NSOutlineView::rowMessages() const {
    static const velt::RowMessages messages{
        .value = Selector::named("outlineView:objectValueForTableColumn:byItem:"),
        .setValue = Selector::named("outlineView:setObjectValue:forTableColumn:byItem:"),
        .dataCell = Selector::named("outlineView:dataCellForTableColumn:item:"),
        .willDisplay = Selector::named("outlineView:willDisplayCell:forTableColumn:item:"),
        .toolTip = Selector::named("outlineView:toolTipForTableColumn:item:"),
        .toolTipAtMouse = Selector::named("outlineView:toolTipForCell:rect:tableColumn:item:mouseLocation:"),
        .shouldEdit = Selector::named("outlineView:shouldEditTableColumn:item:"),
        .shouldSelect = Selector::named("outlineView:shouldSelectItem:"),
        .typeSelectString = Selector::named("outlineView:typeSelectStringForTableColumn:item:"),
    };
    return messages;
}

id NSOutlineView::rowArgument(const QModelIndex& index) { return model().itemAt(index); }

/// By the column alone: the number of the row would have to be counted from the top.
id NSOutlineView::columnCell(const id& column, const QModelIndex&) {
    return velt::send(column, VELT_SELECTOR("dataCell"));
}

void NSOutlineView::tellSelection(bool changing) {
    if (changing) {
        tell("outlineViewSelectionIsChanging:", "NSOutlineViewSelectionIsChangingNotification");
    } else {
        tell("outlineViewSelectionDidChange:", "NSOutlineViewSelectionDidChangeNotification");
    }
}

// Loading one item anew.

void NSOutlineView::reloadItemWithChildren(const id& item, bool children) {
    if (item.isNil()) {
        reloadData();
        return;
    }
    requireLoaded();
    const QPersistentModelIndex index = model().indexOfItem(item);
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
           VELT_CBOOL(velt::send(delegate(), asks, velt::idOf(this), model().itemAt(index)));
}

void NSOutlineView::expansionChanged(const QModelIndex& index, bool expanded) {
    if (opening_) return;
    if (!mayChange(index, expanded)) {
        const velt::Setting opening(opening_, true);
        treeOf(itemView()).setExpanded(index, !expanded);
        return;
    }
    Ref<NSMutableDictionary> info = velt::make<NSMutableDictionary>();
    info->setObject(model().itemAt(index), velt::string(u"NSObject"));
    if (expanded) {
        tell("outlineViewItemDidExpand:", "NSOutlineViewItemDidExpandNotification", info);
    } else {
        tell("outlineViewItemDidCollapse:", "NSOutlineViewItemDidCollapseNotification", info);
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

/// The rows of open items lie between those of their siblings.
QItemSelection NSOutlineView::rowsBetween(long begin, long end) const {
    QItemSelection rows;
    const int last = std::max(0, static_cast<int>(columns().size()) - 1);
    const auto& tree = static_cast<const QTreeView&>(*existingItemView());
    QModelIndex first = indexOf(begin, 0);
    for (long at = begin; at < end && first.isValid();) {
        // Siblings one under the other are one range.
        QModelIndex corner = first, next = tree.indexBelow(first);
        for (++at; at < end && next.parent() == first.parent() && next.row() == corner.row() + 1; ++at) {
            corner = next;
            next = tree.indexBelow(next);
        }
        rows.select(first, corner.siblingAtColumn(last));
        first = next;
    }
    return rows;
}

std::vector<NSRange> NSOutlineView::selectedRanges() {
    std::vector<NSRange> ranges;
    if (!model_) return ranges;
    const auto& tree = static_cast<const QTreeView&>(*existingItemView());
    const QItemSelectionModel& selection = *tree.selectionModel();
    if (!selection.hasSelection()) return ranges;
    unsigned long row = 0;
    for (QModelIndex at = model_->index(0, 0); at.isValid(); at = tree.indexBelow(at), ++row) {
        if (!selection.isSelected(at)) continue;
        if (!ranges.empty() && ranges.back().location + ranges.back().length == row) {
            ++ranges.back().length;
        } else {
            ranges.push_back({row, 1});
        }
    }
    return ranges;
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
