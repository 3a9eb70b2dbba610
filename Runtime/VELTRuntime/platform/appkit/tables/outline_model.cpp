#include "VELTRuntime/platform/appkit/tables/outline_model.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/tables/outline_view.h"
#include "VELTRuntime/platform/appkit/tables/table_model.h"

namespace velt {

OutlineNode& OutlineModel::nodeAt(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<OutlineNode*>(index.internalPointer()) : root_;
}

void OutlineModel::count(OutlineNode& node) const {
    if (node.counted || !outline_) return;
    node.counted = true;
    const Ref<NSOutlineView> kept(outline_);
    runReported([&] { node.children.resize(static_cast<std::size_t>(kept->askChildCount(node.item))); });
}

OutlineNode& OutlineModel::child(OutlineNode& node, int row) const {
    std::unique_ptr<OutlineNode>& place = node.children[static_cast<std::size_t>(row)];
    if (!place) {
        place = std::make_unique<OutlineNode>();
        place->parent = &node;
        place->row = row;
        const Ref<NSOutlineView> kept(outline_);
        runReported([&] { place->item = kept->askChild(row, node.item); });
        if (!place->item.isNil()) nodes_.emplace(place->item.word(), place.get());
    }
    return *place;
}

QModelIndex OutlineModel::index(int row, int column, const QModelIndex& parent) const {
    OutlineNode& node = nodeAt(parent);
    count(node);
    if (!outline_ || row < 0 || static_cast<std::size_t>(row) >= node.children.size()) return {};
    if (column < 0 || column >= columnCount()) return {};
    return createIndex(row, column, &child(node, row));
}

QModelIndex OutlineModel::parent(const QModelIndex& index) const {
    OutlineNode* above = index.isValid() ? nodeAt(index).parent : nullptr;
    return above && above != &root_ ? createIndex(above->row, 0, above) : QModelIndex();
}

int OutlineModel::rowCount(const QModelIndex& parent) const {
    if (parent.column() > 0) return 0;
    OutlineNode& node = nodeAt(parent);
    count(node);
    return static_cast<int>(node.children.size());
}

int OutlineModel::columnCount(const QModelIndex&) const {
    return outline_ ? static_cast<int>(outline_->numberOfColumns()) : 0;
}

bool OutlineModel::hasChildren(const QModelIndex& parent) const {
    if (!parent.isValid()) return rowCount() > 0;
    if (!outline_ || parent.column() > 0) return false;
    const Ref<NSOutlineView> kept(outline_);
    bool has = false;
    runReported([&] { has = kept->isExpandable(itemAt(parent)); });
    return has;
}

QVariant OutlineModel::data(const QModelIndex& index, int role) const {
    return outline_ && index.isValid() ? cellData(*outline_, index, role) : QVariant();
}

bool OutlineModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    return outline_ && role == Qt::EditRole && setCellData(*outline_, index, value);
}

QVariant OutlineModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return outline_ && orientation == Qt::Horizontal ? columnHeaderData(*outline_, section, role) : QVariant();
}

Qt::ItemFlags OutlineModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable : Qt::NoItemFlags;
}

id OutlineModel::itemAt(const QModelIndex& index) const { return nodeAt(index).item; }

QModelIndex OutlineModel::indexOfItem(const id& item) const {
    if (item.isNil() || columnCount() == 0) return {};
    const auto found = nodes_.find(item.word());
    if (found != nodes_.end()) return createIndex(found->second->row, 0, found->second);
    // A program may give equal items anew at every question.
    for (const auto& [word, node] : nodes_) {
        if (isEqual(node->item, item)) return createIndex(node->row, 0, node);
    }
    return {};
}

void OutlineModel::reset() {
    beginResetModel();
    clear();
    endResetModel();
}

void OutlineModel::clear() {
    nodes_.clear();
    root_.children.clear();
    root_.counted = false;
}

void OutlineModel::forgetItems(OutlineNode& node) const {
    for (const std::unique_ptr<OutlineNode>& below : node.children) {
        if (!below) continue;
        forgetItems(*below);
        const auto [first, last] = nodes_.equal_range(below->item.word());
        for (auto at = first; at != last; ++at) {
            if (at->second != below.get()) continue;
            nodes_.erase(at);
            break;
        }
    }
}

void OutlineModel::resetChildren(const QModelIndex& parent) {
    OutlineNode& node = nodeAt(parent);
    if (!node.counted) return;
    if (!node.children.empty()) {
        beginRemoveRows(parent, 0, static_cast<int>(node.children.size()) - 1);
        forgetItems(node);
        node.children.clear();
        endRemoveRows();
    }
    node.counted = false;
    long now = 0;
    const Ref<NSOutlineView> kept(outline_);
    runReported([&] { now = kept->askChildCount(node.item); });
    if (now > 0) {
        beginInsertRows(parent, 0, static_cast<int>(now) - 1);
        node.children.resize(static_cast<std::size_t>(now));
        node.counted = true;
        endInsertRows();
    } else {
        node.counted = true;
    }
}

void OutlineModel::itemChanged(const QModelIndex& index) {
    if (index.isValid()) Q_EMIT dataChanged(index, index.siblingAtColumn(columnCount() - 1));
}

void OutlineModel::visitOwned(OwnedVisitor& visitor) {
    const auto visit = [&](const auto& self, OutlineNode& node) -> void {
        visitor.visit(node.item);
        for (const std::unique_ptr<OutlineNode>& below : node.children) {
            if (below) self(self, *below);
        }
    };
    visit(visit, root_);
}

}  // namespace velt
