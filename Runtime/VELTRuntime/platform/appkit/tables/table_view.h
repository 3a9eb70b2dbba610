// Table views: rows of values that a data source gives, one cell a column.
//
// Nothing of the data is kept: the model asks the data source for a value at the moment when it is drawn, so a table of
// a million rows costs what is seen of it. The outline view is a table whose rows are the items of a tree.
#pragma once

#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/platform/appkit/tables/table_column.h"
#include "VELTRuntime/platform/foundation/index_set.h"
#include "VELTRuntime/platform/object/setting.h"

#include <optional>
#include <vector>

class QAbstractItemModel;
class QAbstractItemView;
class QHeaderView;
class QItemSelection;
class QModelIndex;
class QString;

namespace velt {

/// Where something would be dropped on a table.
struct DropPlace {
    enum Operation : unsigned long { kOn = 0, kAbove = 1 };
    long row = -1;
    unsigned long operation = kOn;
};

/// The messages by which a table asks its data source (the first two) and its delegate about a row and a column.
struct RowMessages {
    Selector value, setValue;
    Selector dataCell, willDisplay, toolTip, toolTipAtMouse, shouldEdit, shouldSelect, typeSelectString;
};

}  // namespace velt

/// The header of a table; a table without one shows no titles.
class VELT_EXPORT NSTableHeaderView : public NSView {
    VELT_OBJECT(NSTableHeaderView, NSView)
};

class VELT_EXPORT NSTableView : public NSControl {
    VELT_OBJECT(NSTableView, NSControl)
public:
    NSTableView();
    ~NSTableView() override;

    // Where the values come from.
    id dataSource() const { return dataSource_; }
    void setDataSource(const id& source);
    /// The number of rows that the data source gave when it was last asked.
    long numberOfRows();
    long numberOfColumns() const { return static_cast<long>(columns_.size()); }
    /// Asks the data source for everything anew; the selection stays where the rows are.
    virtual void reloadData();
    /// Asks the data source how many rows there are now.
    void noteNumberOfRowsChanged() { reloadData(); }

    // Columns, in the order in which they are seen.
    void addTableColumn(NSTableColumn* column);
    void removeTableColumn(NSTableColumn* column);
    void moveColumnToColumn(long from, long to);
    id tableColumns() const;
    id tableColumnWithIdentifier(const id& identifier) const;
    long columnWithIdentifier(const id& identifier) const;
    const std::vector<velt::Ref<NSTableColumn>>& columns() const { return columns_; }
    void columnChanged(NSTableColumn& column);

    // Selection.
    long selectedRow();
    id selectedRowIndexes();
    long numberOfSelectedRows();
    bool isRowSelected(long row);
    /// Selects the rows of an index set, with what is selected already or in place of it.
    void selectRowIndexes(const id& indexes, bool extending);
    void selectRow(long row, bool extending);
    void deselectRow(long row);
    void selectAll(const id& sender);
    void deselectAll(const id& sender);
    /// Where a person clicked last; -1 beside the rows, and before any click.
    long clickedRow() const { return clickedRow_; }
    long clickedColumn() const { return clickedColumn_; }
    bool allowsMultipleSelection() const { return multiple_; }
    void setAllowsMultipleSelection(bool flag);
    bool allowsEmptySelection() const { return allowsEmpty_; }
    void setAllowsEmptySelection(bool flag) { allowsEmpty_ = flag; }

    // Work.
    id doubleActionName() const { return velt::actionName(doubleAction_); }
    void setDoubleActionName(const id& name);
    /// Begins the editing of a cell.
    void editColumn(long column, long row, const id& event, bool select);
    void scrollRowToVisible(long row);
    void scrollColumnToVisible(long column);
    id sortDescriptors() const { return sortDescriptors_; }
    void setSortDescriptors(const id& descriptors);

    // Looks.
    bool usesAlternatingRowBackgroundColors() const { return alternating_; }
    void setUsesAlternatingRowBackgroundColors(bool flag);
    /// Lines: 1 between columns, 2 between rows.
    unsigned long gridStyleMask() const { return gridStyle_; }
    void setGridStyleMask(unsigned long mask);
    id gridColor() const { return gridColor_; }
    void setGridColor(const id& color);
    double rowHeight() const { return rowHeight_; }
    void setRowHeight(double height);
    NSSize intercellSpacing() const { return spacing_; }
    void setIntercellSpacing(NSSize spacing);
    id headerView() const { return headerView_; }
    void setHeaderView(const id& view);
    bool allowsColumnReordering() const { return reordering_; }
    void setAllowsColumnReordering(bool flag);
    bool allowsColumnResizing() const { return resizing_; }
    void setAllowsColumnResizing(bool flag);
    NSRect rectOfRow(long row);
    long rowAtPoint(NSPoint point);
    long columnAtPoint(NSPoint point);

    // Dragging rows: those of this table by its data source's "tableView:writeRowsWithIndexes:toPasteboard:", what is
    // dropped on it by "tableView:validateDrop:proposedRow:proposedDropOperation:" and
    // "tableView:acceptDrop:row:dropOperation:".
    /// The types of what may be dropped, an array of texts; nothing may until there are some.
    void registerForDraggedTypes(const id& types);
    id registeredDraggedTypes() const { return draggedTypes_; }
    void unregisterDraggedTypes() { registerForDraggedTypes(nil); }
    /// Another place for a drop than the proposed one: on (0) or above (1) a row; -1 is the whole table.
    void setDropRow(long row, unsigned long operation);
    /// What may be done with the rows within the program and elsewhere, a mask of drag operations.
    void setDraggingSourceOperationMask(unsigned long mask, bool local);
    unsigned long draggingSourceOperationMask(bool local) const { return local ? localDrags_ : foreignDrags_; }
    bool mayDragRows() const;
    /// Fills a pasteboard with rows that are about to be dragged; false when the data source refuses.
    bool writeRows(const id& indexes, const id& pasteboard);
    /// Asks what a drop would do, a mask of drag operations; the place is the data source's afterwards.
    unsigned long validateDrop(const id& info, velt::DropPlace& place);
    bool acceptDrop(const id& info, const velt::DropPlace& place);

    // The keyboard.
    /// The row from one on, around the end, which the delegate says to begin with a text; invalid when it knows none,
    /// nothing when it answers no such question.
    std::optional<QModelIndex> delegatesMatch(const id& text, long from);
    /// The column whose texts are searched by typing; -1 when none shows texts.
    int searchedColumn();
    /// What a row of that column is found by.
    QString searchedText(const QModelIndex& index);
    /// The next place after one, or before it, that a person may edit; invalid when none is near.
    QModelIndex editableAfter(const QModelIndex& index, bool forward);

    // What the toolkit's model, delegate and view ask.
    /// An outline view has messages of its own, which name a row by its item.
    virtual const velt::RowMessages& rowMessages() const;
    /// Loads the rows when that has not happened yet.
    void requireLoaded();
    long askRowCount();
    id valueAt(const QModelIndex& index);
    void setValueAt(const QModelIndex& index, const id& value);
    /// The cell for a place, with its value, as the delegate wants it to be displayed.
    id preparedCell(const QModelIndex& index);
    id toolTipAt(const QModelIndex& index);
    bool mayEdit(const QModelIndex& index);
    /// A person may type a text there: buttons are worked and images shown, not edited.
    bool mayType(const QModelIndex& index);
    bool maySelect(const QModelIndex& index);
    bool maySelectionChange();
    NSTableColumn* columnAt(const QModelIndex& index) const;
    virtual long rowOf(const QModelIndex& index) const;
    // Reports of the toolkit.
    void clicked(const QModelIndex& index);
    void doubleClicked(const QModelIndex& index);
    /// Return was pressed on a row.
    void openRow(const QModelIndex& index);
    void selectionChanged();
    /// The mouse goes down to select: until it comes up, the selection is changing.
    void beginSelecting();
    void endSelecting();
    void headerClicked(int column);
    void columnMoved(int from, int to);
    void columnResized(int column, int width);

    bool isFlipped() const override { return true; }
    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSTableView>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
    /// The toolkit's view and model, without a connection yet.
    virtual std::unique_ptr<QAbstractItemView> makeItemView();
    virtual std::unique_ptr<QAbstractItemModel> makeModel();
    virtual QHeaderView& headerOf(QAbstractItemView& view) const;
    virtual QModelIndex indexOf(long row, int column) const;
    /// The toolkit's selection of the rows from one on and before another one; both bounds are rows that there are.
    virtual QItemSelection rowsBetween(long begin, long end) const;
    virtual std::vector<NSRange> selectedRanges();
    virtual void applyRowHeight(QAbstractItemView& view);
    /// What the messages about rows name a row by: its number, or an outline's item.
    virtual id rowArgument(const QModelIndex& index);
    /// The cell that a column has for a row of which the delegate says nothing.
    virtual id columnCell(const id& column, const QModelIndex& index);
    QAbstractItemView& itemView();
    QAbstractItemView* existingItemView() const;
    virtual void tellSelection(bool changing);
    void tell(std::string_view selector, std::string_view notification, const id& userInfo = nil);
    void columnsChanged();
    virtual long shownRows();
    bool isLoaded() const { return loaded_; }
    /// The rows are loaded anew: nothing is told of the selection as long as the result exists.
    [[nodiscard]] velt::Setting<bool> reloading() {
        loaded_ = true;
        return {reloading_, true};
    }
    /// Tells the header of the columns, which it forgets with the rows.
    void syncColumns(QAbstractItemView& view);

private:
    id dataCellAt(const QModelIndex& index);
    void syncSortIndicator();
    void syncDragging(QAbstractItemView& view);

    id dataSource_, headerView_, sortDescriptors_, gridColor_, draggedTypes_;
    std::vector<velt::Ref<NSTableColumn>> columns_;  // in the order of the toolkit's model
    velt::Selector doubleAction_;
    double rowHeight_ = 17;
    NSSize spacing_{3, 2};
    unsigned long gridStyle_ = 0;
    long clickedRow_ = -1, clickedColumn_ = -1;
    velt::DropPlace* validated_ = nullptr;  // while the data source is asked
    unsigned long localDrags_ = ~0UL, foreignDrags_ = 0;
    bool selecting_ = false, selectedMeanwhile_ = false;
    bool multiple_ = false, allowsEmpty_ = true, alternating_ = false, reordering_ = true, resizing_ = true;
    bool loaded_ = false, reloading_ = false, syncing_ = false;
};
