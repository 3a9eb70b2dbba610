// Outline views: tables whose rows are the items of a tree, which a person expands and collapses.
#pragma once

#include "VELTRuntime/platform/appkit/tables/table_view.h"

namespace velt {
class OutlineModel;
}

class VELT_EXPORT NSOutlineView : public NSTableView {
    VELT_OBJECT(NSOutlineView, NSTableView)
public:
    NSOutlineView();
    ~NSOutlineView() override;

    void reloadData() override;
    /// Asks anew for an item; nil is the root.
    void reloadItem(const id& item) { reloadItemWithChildren(item, false); }
    void reloadItemWithChildren(const id& item, bool children);

    // Expansion. nil stands for all items at the top.
    bool isExpandable(const id& item);
    bool isItemExpanded(const id& item);
    void expandItem(const id& item) { expandItemWithChildren(item, false); }
    void expandItemWithChildren(const id& item, bool children);
    void collapseItem(const id& item) { collapseItemWithChildren(item, false); }
    void collapseItemWithChildren(const id& item, bool children);

    // Rows and items. An item that is not shown has row -1 and level -1.
    id itemAtRow(long row);
    long rowForItem(const id& item);
    long levelForItem(const id& item);
    long levelForRow(long row);
    id parentForItem(const id& item);
    /// The column that shows the tree; the first one unless the program says otherwise.
    id outlineTableColumn() const;
    void setOutlineTableColumn(const id& column);
    double indentationPerLevel() const { return indentation_; }
    void setIndentationPerLevel(double width);

    const velt::RowMessages& rowMessages() const override;
    long rowOf(const QModelIndex& index) const override;
    // What the model and the toolkit's view ask.
    long askChildCount(const id& item);
    id askChild(long index, const id& item);
    bool mayChange(const QModelIndex& index, bool expand);
    void expansionChanged(const QModelIndex& index, bool expanded);

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSOutlineView>& c);

protected:
    std::unique_ptr<QAbstractItemView> makeItemView() override;
    std::unique_ptr<QAbstractItemModel> makeModel() override;
    QHeaderView& headerOf(QAbstractItemView& view) const override;
    QModelIndex indexOf(long row, int column) const override;
    QItemSelection rowsBetween(long begin, long end) const override;
    std::vector<NSRange> selectedRanges() override;
    void applyRowHeight(QAbstractItemView& view) override;
    void tellSelection(bool changing) override;
    id rowArgument(const QModelIndex& index) override;
    id columnCell(const id& column, const QModelIndex& index) override;
    void syncWidget(QWidget& widget) override;
    long shownRows() override;

private:
    /// An item that is open, and where it stood.
    struct Open {
        id item;
        int row;
        std::vector<Open> below;
    };
    /// An item that is selected, and what leads to it from the top.
    using Path = std::vector<std::pair<id, int>>;
    velt::OutlineModel& model();
    std::vector<Open> openBelow(const QModelIndex& parent) const;
    void openAgain(const QModelIndex& parent, const std::vector<Open>& open);
    Path pathOf(QModelIndex index) const;
    QModelIndex follow(const Path& path) const;

    velt::OutlineModel* model_ = nullptr;  // the toolkit's view owns it
    velt::Ref<NSTableColumn> outlineColumn_;
    double indentation_ = 16;
    bool opening_ = false;
};
