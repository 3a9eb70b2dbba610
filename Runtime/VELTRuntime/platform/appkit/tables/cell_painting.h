// Cells in item views: any cell drawn into a place of a table, worked and edited there.
#pragma once

#include "VELTRuntime/platform/appkit/controls/cell.h"

#include <QStyledItemDelegate>

class NSTableView;

namespace velt {

/// Draws a cell with its value into the option's rectangle, in the colours of a selected place or of another one.
void drawCell(QPainter& painter, const QStyleOptionViewItem& option, const NSCell& cell);

/// Draws the cells of a table's columns, and lets a person work them.
class CellDelegate final : public QStyledItemDelegate {
public:
    explicit CellDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    /// The height of every row, where the view asks for it.
    void setRowHeight(int height) { rowHeight_ = height; }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    int rowHeight_ = 0;
    QMetaObject::Connection choice_;  // of the pop-up cell that is open
};

/// The table that a toolkit's view shows; null when it has gone.
NSTableView* tableOf(const QWidget* view);

}  // namespace velt
