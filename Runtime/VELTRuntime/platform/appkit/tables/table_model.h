// The toolkit's model of a table: a number of rows, and values that are asked of the table when they are needed.
#pragma once

#include <QAbstractTableModel>

class NSTableView;

namespace velt {

class TableModel final : public QAbstractTableModel {
public:
    explicit TableModel(NSTableView& table) : table_(&table) {}
    /// The table has gone; this model follows.
    void forget() { table_ = nullptr; }
    /// Takes another number of rows.
    void setRows(int rows);

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    NSTableView* table_;
    int rows_ = 0;
};

/// What a table's cell at a place is to the toolkit: its text, its tool tip.
QVariant cellData(NSTableView& table, const QModelIndex& index, int role);
/// Takes what a person typed.
bool setCellData(NSTableView& table, const QModelIndex& index, const QVariant& value);
/// What a column's header is to the toolkit.
QVariant columnHeaderData(const NSTableView& table, int section, int role);

}  // namespace velt
