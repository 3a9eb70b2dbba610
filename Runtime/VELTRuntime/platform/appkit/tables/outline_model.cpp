#include "VELTRuntime/platform/appkit/tables/outline_model.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/tables/outline_view.h"
#include "VELTRuntime/platform/appkit/tables/table_model.h"
#include "VELTRuntime/platform/object/drop_elements.h"

namespace velt {

OutlineNode& OutlineModel::nodeAt(const QModelIndex& index) const {
    return index.isValid() ? child(*static_cast<OutlineNode*>(index.internalPointer()), index.row()) : root_;
}

void OutlineModel::count(OutlineNode& node) const {
    if (node.counted || !outline_) return;
    node.counted = true;
    const unsigned long loads = loads_;
    const long children = askCount(node);
    if (loads == loads_) node.children.resize(static_cast<std::size_t>(children));
}

long OutlineModel::askCount(const OutlineNode& node) const {
    const Ref<NSOutlineView> kept(outline_);
    const id item = node.item;  // the node may go while the program is asked
    long children = 0;
    runReported([&] {
        // The tree's view takes what it has not seen for something that can be opened.
        if (item.isNil() || kept->isExpandable(item)) children = kept->askChildCount(item);
    });
    return children;
}

OutlineNode& OutlineModel::child(OutlineNode& node, int row) const {
    const auto place = static_cast<std::size_t>(row);
    if (place < node.children.size() && node.children[place]) return *node.children[place];
    if (place >= node.children.size() || !outline_) return root_;
    const Ref<NSOutlineView> kept(outline_);
    const id parent = node.item;
    const unsigned long loads = loads_;
    id item;
    runReported([&] { item = kept->askChild(row, parent); });
    // The program may have loaded everything anew while it was asked: then there is no such place.
    if (loads != loads_) return root_;
    std::unique_ptr<OutlineNode>& made = node.children[place];
    if (!made) {
        made = std::make_unique<OutlineNode>();
        made->parent = &node;
        made->row = row;
        made->item = item;
        if (!item.isNil()) nodes_.emplace(item.word(), made.get());
    }
    return *made;
}

bool OutlineModel::isKnown(const QModelIndex& index) const {
    if (!index.isValid()) return true;
    const auto& among = static_cast<OutlineNode*>(index.internalPointer())->children;
    const auto row = static_cast<std::size_t>(index.row());
    return row < among.size() && among[row];
}

QModelIndex OutlineModel::index(int row, int column, const QModelIndex& parent) const {
    OutlineNode& node = nodeAt(parent);
    count(node);
    if (!outline_ || row < 0 || static_cast<std::size_t>(row) >= node.children.size()) return {};
    if (column < 0 || column >= columnCount()) return {};
    return createIndex(row, column, &node);
}

QModelIndex OutlineModel::parent(const QModelIndex& index) const {
    const OutlineNode* above = index.isValid() ? static_cast<OutlineNode*>(index.internalPointer()) : nullptr;
    return above && above != &root_ ? placeOf(*above) : QModelIndex();
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
    if (!isKnown(parent)) return true;  // it is asked when it is seen
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
    if (found != nodes_.end()) return placeOf(*found->second);
    // A program may give equal items anew at every question.
    for (const auto& [word, node] : nodes_) {
        if (isEqual(node->item, item)) return placeOf(*node);
    }
    return {};
}

OutlineNode* OutlineModel::findBelow(OutlineNode& node, const id& item) const {
    const unsigned long loads = loads_;
    for (std::size_t row = 0; row < node.children.size(); ++row) {
        const bool isNew = !node.children[row];
        OutlineNode& below = child(node, static_cast<int>(row));
        if (loads != loads_) return nullptr;
        if (isNew && isEqual(below.item, item)) return &below;
        OutlineNode* found = findBelow(below, item);
        if (found || loads != loads_) return found;
    }
    return nullptr;
}

QModelIndex OutlineModel::find(const id& item) const {
    const QModelIndex known = indexOfItem(item);
    if (known.isValid() || item.isNil() || columnCount() == 0) return known;
    count(root_);
    const OutlineNode* found = findBelow(root_, item);
    return found ? placeOf(*found) : QModelIndex();
}

QModelIndex OutlineModel::findNear(const QModelIndex& parent, int row, const id& item) const {
    // Nobody is asked for all items because one has gone.
    constexpr int kFarthest = 500;
    const int rows = rowCount(parent);
    for (int away = 0; away <= kFarthest; ++away) {
        for (const int at : {row - away, row + away}) {
            if (at < 0 || at >= rows) continue;
            const QModelIndex place = index(at, 0, parent);
            if (place.isValid() && isEqual(itemAt(place), item)) return place;
        }
    }
    return {};
}

void OutlineModel::reset() {
    beginResetModel();
    ++loads_;
    nodes_.clear();
    dropAll(root_.children);
    root_.counted = false;
    endResetModel();
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
        ++loads_;
        forgetItems(node);
        dropAll(node.children);
        endRemoveRows();
    }
    node.counted = false;
    const unsigned long loads = loads_;
    const long now = askCount(node);
    if (loads != loads_) return;
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
