// The toolkit's table with rows of one height, whose places are reckoned: the toolkit's own header of the rows keeps
// eight bytes for each of them, and a table of a million rows should cost what a table of ten does.
#pragma once

#include "VELTRuntime/platform/appkit/tables/type_select.h"

#include <QTableView>
#include <optional>

namespace velt {

/// A place between two rows, or a row, that is marked while something is dragged over it.
struct DropMark {
    long row = -1;  // -1 is the whole table
    bool onRow = false;
    bool operator==(const DropMark&) const = default;
};

class RowsView : public QTableView {
public:
    explicit RowsView(QWidget* parent = nullptr);

    /// The height of every row, at least one dot.
    void setRowHeight(int height);
    int rowHeightOfAll() const { return rowHeight_; }
    /// The row from which Shift selects; -1 for none.
    void setAnchor(long row) { anchor_ = row; }
    void setDropMark(std::optional<DropMark> mark);
    /// The row at a height of the viewport; beyond the last one where none is.
    long rowAtHeight(int y) const;
    /// Where a row begins in the viewport; the nearest number where that is too far away for one.
    int topOfRow(long row) const;

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& point) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void reset() override;
    void keyboardSearch(const QString& typed) override { typing_.typed(typed); }

protected:
    int sizeHintForColumn(int column) const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex& index) const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    long rowCount() const;
    long long offset() const;
    void paintRow(QPainter& painter, const QStyleOptionViewItem& option, long row, const QRect& dirty) const;
    void paintDropMark(QPainter& painter) const;
    void arrange();
    int seenColumn(int from, int step) const;

    int rowHeight_ = 20;
    long anchor_ = -1;
    long long scale_ = 1;  // dots that a step of the scroll bar stands for: it counts no further than an int
    bool arranging_ = false, outdated_ = false;
    std::optional<DropMark> dropMark_;
    TypeSelect typing_{*this};
};

}  // namespace velt
