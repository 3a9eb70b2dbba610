// Matrices: cells in rows and columns that a person works as one control.
#pragma once

#include "VELTRuntime/platform/appkit/controls/cell_properties.h"

#include <functional>
#include <vector>

namespace velt {

/// What a press does to a matrix's cells; the numbers are the codes that programs use.
enum class MatrixMode : unsigned long {
    Radio = 0,      // one cell is on, and only one
    Highlight = 1,  // the cell under the pointer is pressed
    List = 2,       // rows of cells are selected, one or many
    Track = 3,      // each cell is worked for itself
};

/// A place of a matrix, from the upper row and the first column; (-1, -1) is none.
struct MatrixPlace {
    long row = -1, column = -1;
    bool isValid() const { return row >= 0 && column >= 0; }
    bool operator==(const MatrixPlace&) const = default;
};

}  // namespace velt

class VELT_EXPORT NSMatrix : public NSControl {
    VELT_OBJECT(NSMatrix, NSControl)
public:
    /// A radio matrix without cells, whose cells will be action cells.
    NSMatrix() = default;
    NSMatrix(NSRect frame, velt::MatrixMode mode, const id& prototype, long rows, long columns);
    ~NSMatrix() override;

    // What the cells are.
    unsigned long mode() const { return static_cast<unsigned long>(mode_); }
    /// Codes that there are not are ignored.
    void setMode(unsigned long mode);
    /// New cells are copies of it; nil for plain action cells. Raises "'NSCell' expected".
    id prototype() const { return prototype_; }
    void setPrototype(const id& cell);
    /// A new cell for a place, as the program's subclass makes it.
    id makeCellAt(long row, long column);

    // Rows and columns. Places beyond raise "NSRangeException", more than a million cells, rows or columns
    // "NSInvalidArgumentException".
    long numberOfRows() const { return rows_; }
    long numberOfColumns() const { return columns_; }
    /// Keeps the cells of the places that stay, and makes those that are new.
    void renew(long rows, long columns);
    void addRow() { insertRow(rows_, nil); }
    void addRowWithCells(const id& cells) { insertRow(rows_, cells); }
    /// Inserts a row of new cells, or of those of an array; the matrix gets as many columns as it needs for them.
    void insertRow(long row, const id& cells);
    void removeRow(long row);
    void addColumn() { insertColumn(columns_, nil); }
    void addColumnWithCells(const id& cells) { insertColumn(columns_, cells); }
    void insertColumn(long column, const id& cells);
    void removeColumn(long column);
    /// New array of all cells, row by row.
    id cells() const;
    /// nil where there is none.
    id cellAt(long row, long column) const;
    void putCell(NSCell* cell, long row, long column);
    id cellWithTag(long tag) const;
    velt::MatrixPlace placeOf(const NSCell* cell) const;
    velt::MatrixPlace placeOf(const id& cell) const {
        return placeOf(velt::is<NSCell>(cell) ? velt::as<NSCell>(cell) : nullptr);
    }

    // Geometry. y points down, from the upper row.
    bool isFlipped() const override { return true; }
    NSSize cellSize() const { return cellSize_; }
    void setCellSize(NSSize size);
    NSSize intercellSpacing() const { return spacing_; }
    void setIntercellSpacing(NSSize spacing);
    NSRect cellFrameAt(long row, long column) const;
    velt::MatrixPlace placeAt(NSPoint point) const;
    /// Makes the frame as large as the cells need it.
    void sizeToCells();
    /// Makes each cell as large as the largest needs it, then the frame.
    void fitCells();
    /// Cells grow and shrink with the frame.
    bool autosizesCells() const { return autosizes_; }
    void setAutosizesCells(bool flag) { autosizes_ = flag; }

    // Looks.
    bool drawsBackground() const { return drawsBackground_; }
    void setDrawsBackground(bool flag);
    bool drawsCellBackground() const { return drawsCellBackground_; }
    void setDrawsCellBackground(bool flag);
    id backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const id& color);
    id cellBackgroundColor() const { return cellBackgroundColor_; }
    void setCellBackgroundColor(const id& color);
    void setStateAt(long state, long row, long column);
    void setToolTipForCell(const id& text, const id& cell);
    id toolTipForCell(const id& cell) const;

    // Selection.
    bool allowsEmptySelection() const { return allowsEmpty_; }
    void setAllowsEmptySelection(bool flag);
    /// A drag selects a rectangle of cells; else those between the two ends, row by row.
    bool isSelectionByRect() const { return byRect_; }
    void setSelectionByRect(bool flag) { byRect_ = flag; }
    /// The cell that was selected last; nil when none is.
    id selectedCell() const;
    /// New array of all that are selected.
    id selectedCells() const;
    long selectedRow() const { return selected_.row; }
    long selectedColumn() const { return selected_.column; }
    bool isSelected(velt::MatrixPlace place) const;
    /// The selected cells are on, and drawn as selected.
    bool showsSelection() const { return mode_ == velt::MatrixMode::Radio || mode_ == velt::MatrixMode::List; }
    void selectCellAt(long row, long column);
    void selectCell(const id& cell);
    bool selectCellWithTag(long tag);
    void selectAll();
    void deselectAllCells();
    void deselectSelectedCell();
    /// The cell that the keyboard works.
    id keyCell() const { return cellAt(key_.row, key_.column); }
    void setKeyCell(const id& cell);

    // Work.
    id doubleActionName() const;
    void setDoubleActionName(const id& name);
    void performClick(const id& sender) override;
    /// The program clicks one of the cells.
    void clickCell(NSCell& cell);
    /// Sends the selected cell's action, or else the matrix's.
    bool sendOwnAction();
    void sendDoubleAction();
    /// Sends an action to a target for every cell, or every selected one, as its argument, until the target answers no.
    void sendActionForCells(velt::Selector action, const id& target, bool all);
    bool performKeyEquivalent(NSEvent* event);
    void setEnabled(bool flag);
    /// Edits a cell's text; nothing when it cannot be edited.
    void selectTextAt(long row, long column);

    // The value is that of the selected cell; for cellProperty.
    template <auto kGetter> auto cellGet() const { return ((*valueCell()).*kGetter)(); }
    template <auto kMember> auto cellCall(velt::ArgumentOf<kMember> value) { return ((*valueCell()).*kMember)(value); }

    // The widget's reports of what a person does.
    void pressed(velt::MatrixPlace place, bool extends, bool toggles);
    void dragged(velt::MatrixPlace place);
    void released(velt::MatrixPlace place, bool twice);
    /// True when the matrix took the key.
    bool keyPressed(int key, bool extends);
    velt::MatrixPlace keyPlace() const { return key_; }
    /// The edit of a text ended with that text.
    void edited(velt::MatrixPlace place, const id& text, bool sends);

    void cellChanged(NSCell& cell) override;
    /// Another control shows that cell from now on; a new one takes its place.
    void cellTaken(NSCell& cell);
    bool acceptsFirstResponder() const override;
    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSMatrix>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
    void sizeChanged(NSSize before) override;

private:
    struct Entry {
        velt::Ref<NSCell> cell;
        bool isSelected = false;
        id toolTip;
    };
    bool has(velt::MatrixPlace place) const { return place.isValid() && place.row < rows_ && place.column < columns_; }
    Entry& entryAt(velt::MatrixPlace place) {
        return entries_[static_cast<std::size_t>(place.row * columns_ + place.column)];
    }
    const Entry& entryAt(velt::MatrixPlace place) const { return const_cast<NSMatrix*>(this)->entryAt(place); }
    velt::Ref<NSCell> valueCell() const;
    Entry newEntry(long row, long column, const id& cell);
    std::vector<Entry> rebuilt(long rows, long columns, const std::function<Entry(long, long)>& make);
    void replace(std::vector<Entry> entries, long rows, long columns);
    long checkedPlace(const char* operation, long position, long count) const;
    void release(Entry& entry);
    void mark(velt::MatrixPlace place, bool selected);
    void clearSelection();
    void keepOneSelected();
    void selectBetween(velt::MatrixPlace from, velt::MatrixPlace to);
    bool canWork(velt::MatrixPlace place) const;
    void highlight(velt::MatrixPlace place);
    velt::MatrixPlace step(velt::MatrixPlace from, long rows, long columns) const;
    void work(velt::MatrixPlace place);
    velt::MatrixMode mode_ = velt::MatrixMode::Radio;
    std::vector<Entry> entries_;
    long rows_ = 0, columns_ = 0;
    NSSize cellSize_{100, 17}, spacing_{1, 1};
    id prototype_, backgroundColor_, cellBackgroundColor_;
    velt::Selector doubleAction_;
    bool drawsBackground_ = false, drawsCellBackground_ = false, allowsEmpty_ = false, byRect_ = true;
    bool autosizes_ = false;
    velt::MatrixPlace selected_, key_, anchor_, highlighted_, pressed_;
    bool selectedBefore_ = false;
};
