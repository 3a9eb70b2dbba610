// The toolkit's model of an outline: items that the data source gives, each asked for when its parent is opened.
#pragma once

#include "VELTRuntime/values/value.h"

#include <QAbstractItemModel>
#include <memory>
#include <unordered_map>
#include <vector>

class NSOutlineView;

namespace velt {

class OwnedVisitor;

/// One item, and as much of its children as was asked for.
struct OutlineNode {
    id item;
    OutlineNode* parent = nullptr;
    int row = 0;
    bool counted = false;
    std::vector<std::unique_ptr<OutlineNode>> children;  // null until a child is asked for
};

class OutlineModel final : public QAbstractItemModel {
public:
    explicit OutlineModel(NSOutlineView& outline) : outline_(&outline) {}
    /// The outline has gone; this model follows.
    void forget() { outline_ = nullptr; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The item at a place, asked for now when it was not before; nil for the root.
    id itemAt(const QModelIndex& index) const;
    /// The item at a place was asked for.
    bool isKnown(const QModelIndex& index) const;
    /// The place of an item that was asked for, invalid for others.
    QModelIndex indexOfItem(const id& item) const;
    /// The same; asks for the others among the children of what was opened until it is found.
    QModelIndex find(const id& item) const;
    /// The place of an item that stood at a row under a parent, or near to it.
    QModelIndex findNear(const QModelIndex& parent, int row, const id& item) const;
    /// Forgets everything.
    void reset();
    /// Forgets the children of a place.
    void resetChildren(const QModelIndex& parent);
    void itemChanged(const QModelIndex& index);
    void visitOwned(OwnedVisitor& visitor);

private:
    // An index carries the parent's node, so that nothing is made for a child that nobody asks for.
    OutlineNode& nodeAt(const QModelIndex& index) const;
    QModelIndex placeOf(const OutlineNode& node) const { return createIndex(node.row, 0, node.parent); }
    void count(OutlineNode& node) const;
    long askCount(const OutlineNode& node) const;
    OutlineNode& child(OutlineNode& node, int row) const;
    void forgetItems(OutlineNode& node) const;
    OutlineNode* findBelow(OutlineNode& node, const id& item) const;

    NSOutlineView* outline_;
    mutable OutlineNode root_;
    unsigned long loads_ = 0;                                    // how often nodes were forgotten
    mutable std::unordered_multimap<Word, OutlineNode*> nodes_;  // by item
};

}  // namespace velt
