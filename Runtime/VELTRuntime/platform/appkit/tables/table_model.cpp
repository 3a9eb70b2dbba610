#include "VELTRuntime/platform/appkit/tables/table_model.h"

#include "VELTRuntime/platform/appkit/controls/secret_text.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/menus/pop_up_button_cell.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/table_view.h"

#include <QApplication>

namespace velt {

QVariant cellData(NSTableView& table, const QModelIndex& index, int role) {
    const Ref<NSTableView> kept(&table);
    QVariant result;
    runReported([&] {
        if (role == Qt::ToolTipRole) {
            const QString text = qtText(table.toolTipAt(index));
            if (!text.isEmpty()) result = text;
        } else if (role == Qt::DisplayRole || role == Qt::EditRole) {
            const id cell = table.preparedCell(index);
            if (is<NSPopUpButtonCell>(cell)) {
                result = qtText(as<NSCell>(cell)->title());
            } else if (is<NSCell>(cell) && role == Qt::DisplayRole) {
                result = shownText(*as<NSCell>(cell), *QApplication::style());
            } else if (is<NSCell>(cell)) {
                result = qtText(as<NSCell>(cell)->stringValue());
            }
        }
    });
    return result;
}

bool setCellData(NSTableView& table, const QModelIndex& index, const QVariant& value) {
    const Ref<NSTableView> kept(&table);
    runReported([&] { table.setValueAt(index, textValue(value.toString())); });
    return true;
}

QVariant columnHeaderData(const NSTableView& table, int section, int role) {
    if (section < 0 || section >= table.numberOfColumns()) return {};
    const NSTableColumn& column = *table.columns()[static_cast<std::size_t>(section)];
    switch (role) {
    case Qt::DisplayRole: return qtText(column.title());
    case Qt::ToolTipRole: return column.headerToolTip().isNil() ? QVariant() : qtText(column.headerToolTip());
    case Qt::TextAlignmentRole: {
        const long alignment = as<NSCell>(column.headerCell())->alignment();
        return QVariant::fromValue(qtAlignment(alignment) | Qt::AlignVCenter);
    }
    default: return {};
    }
}

void TableModel::setRows(int rows) {
    beginResetModel();
    rows_ = rows;
    endResetModel();
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || !table_ ? 0 : static_cast<int>(table_->numberOfColumns());
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    return table_ && index.isValid() ? cellData(*table_, index, role) : QVariant();
}

bool TableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    return table_ && role == Qt::EditRole && setCellData(*table_, index, value);
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return table_ && orientation == Qt::Horizontal ? columnHeaderData(*table_, section, role) : QVariant();
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren;
}

}  // namespace velt
