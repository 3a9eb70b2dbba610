// Browsers: a tree shown column by column; what is selected in one column fills the next.
#pragma once

#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/values/string.h"

#include <map>
#include <memory>
#include <vector>

namespace velt {
class BrowserColumn;
}

/// One row of a browser: a leaf, or what opens a further column.
class VELT_EXPORT NSBrowserCell : public NSCell {
    VELT_OBJECT(NSBrowserCell, NSCell)
public:
    using NSCell::NSCell;
    bool isLeaf() const { return leaf_; }
    void setLeaf(bool flag);
    /// The delegate has said what the cell shows.
    bool isLoaded() const { return loaded_; }
    void setLoaded(bool flag) { loaded_ = flag; }
    static void describe(velt::ClassBuilder<NSBrowserCell>& c);

private:
    bool leaf_ = false, loaded_ = false;
};

class VELT_EXPORT NSBrowser : public NSControl {
    VELT_OBJECT(NSBrowser, NSControl)
public:
    NSBrowser();
    ~NSBrowser() override;

    void setDelegate(const id& delegate) override;
    /// Asks the delegate for the first column and forgets the others.
    void loadColumnZero();
    bool isLoaded() const { return loaded_; }
    /// Asks the delegate for a column anew; what is selected there stays selected.
    void reloadColumn(long column);
    /// Adds a column for what is selected in the last one.
    void addColumn();

    // Columns and rows. There is no column -1.
    long lastColumn() const { return static_cast<long>(columns_.size()) - 1; }
    /// The last column with a selection; -1 when there is none.
    long selectedColumn() const;
    long selectedRowInColumn(long column) const;
    void selectRow(long row, long column);
    id selectedCellInColumn(long column);
    /// The cell that was selected last.
    id selectedBrowserCell();
    /// The cell at a place, as the delegate fills it.
    id loadedCell(long row, long column);

    // The way from the root to what is selected, as a text: every cell's behind a separator.
    id path();
    /// Selects along a path as far as it goes; whether it was found whole.
    bool setPath(const id& path);
    id pathToColumn(long column);
    id pathSeparator() const { return separator_; }
    void setPathSeparator(const id& separator) { separator_ = separator; }

    // Looks and behaviour.
    bool isTitled() const { return titled_; }
    void setTitled(bool flag);
    id titleOfColumn(long column);
    void setTitleOfColumn(const id& title, long column);
    double minColumnWidth() const { return minColumnWidth_; }
    void setMinColumnWidth(double width);
    long maxVisibleColumns() const { return maxVisibleColumns_; }
    void setMaxVisibleColumns(long count);
    /// A person may deselect the selected row of a column without selecting another one.
    bool allowsEmptySelection() const { return allowsEmpty_; }
    void setAllowsEmptySelection(bool flag) { allowsEmpty_ = flag; }
    /// Keys that choose a cell send the action, as the mouse does.
    bool sendsActionOnArrowKeys() const { return sendsOnArrows_; }
    void setSendsActionOnArrowKeys(bool flag) { sendsOnArrows_ = flag; }
    id doubleActionName() const { return velt::actionName(doubleAction_); }
    void setDoubleActionName(const id& name);
    void scrollColumnToVisible(long column);

    // Reports of the toolkit.
    void requireLoaded();
    void rowSelected(velt::BrowserColumn& column);
    void columnClicked();
    void columnDoubleClicked();
    /// A key that may select another row is handled, or was.
    void handlesKey(bool flag) { isKeyEvent_ = flag; }
    /// The browser got the keyboard: the column with the selection has it.
    void takeKeyboard();
    /// A new cell for a place, filled by the delegate.
    id newCell(long row, long column);
    void layOutColumns();
    /// The column beside another one gets the keyboard.
    bool moveToColumn(const velt::BrowserColumn& from, int step);

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSBrowser>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;

private:
    void openColumn();
    void syncTitles();
    void closeColumnsAfter(long column);
    long rowsOfColumn(long column);

    std::vector<velt::BrowserColumn*> columns_;  // the toolkit's widget owns them
    std::map<long, id> titles_;                  // by column
    id separator_;
    velt::Selector doubleAction_;
    double minColumnWidth_ = 120;
    long maxVisibleColumns_ = 3;
    bool loaded_ = false, titled_ = true, allowsEmpty_ = true, sendsOnArrows_ = true, choosing_ = false,
         isKeyEvent_ = false;
};
