// Columns of tables: a header, a width, and the cell that shows every row's value.
#pragma once

#include "VELTRuntime/platform/appkit/controls/cell.h"
#include "VELTRuntime/values/string.h"

class NSTableView;

/// How a column is sorted by: a key and a direction. It does not change.
class VELT_EXPORT NSSortDescriptor final : public NSObject {
    VELT_OBJECT(NSSortDescriptor, NSObject)
public:
    NSSortDescriptor() = default;
    NSSortDescriptor(const id& key, bool ascending) : key_(key), ascending_(ascending) {}
    id description() const override;
    bool isEqual(const id& other) const override;
    std::size_t hash() const override { return velt::hash(key_); }
    id copy() const override { return id(const_cast<NSSortDescriptor*>(this)); }
    id key() const { return key_; }
    bool ascending() const { return ascending_; }
    id reversed() const { return velt::make<NSSortDescriptor>(key_, !ascending_); }
    static void describe(velt::ClassBuilder<NSSortDescriptor>& c);

private:
    id key_;
    bool ascending_ = true;
};

class VELT_EXPORT NSTableColumn : public NSObject {
    VELT_OBJECT(NSTableColumn, NSObject)
public:
    NSTableColumn();
    explicit NSTableColumn(const id& identifier);
    ~NSTableColumn() override;

    id identifier() const { return identifier_; }
    void setIdentifier(const id& identifier) { identifier_ = identifier; }
    /// The cell of the header; its string value is the column's title.
    id headerCell() const { return headerCell_; }
    void setHeaderCell(const id& cell);
    id title() const { return headerCell_->stringValue(); }
    void setTitle(const id& title);
    id headerToolTip() const { return headerToolTip_; }
    void setHeaderToolTip(const id& text);
    /// The cell that shows the values of the rows, one after the other.
    id dataCell() const { return dataCell_; }
    void setDataCell(const id& cell);
    /// The cell for a row: the column's own, unless a subclass says otherwise.
    id dataCellForRow(long) const { return dataCell_; }

    // In the program's units.
    double width() const { return width_; }
    void setWidth(double width);
    double minWidth() const { return minWidth_; }
    void setMinWidth(double width);
    double maxWidth() const { return maxWidth_; }
    void setMaxWidth(double width);
    /// Whether the width changes with the table's (1), by a person's hand (2), or both.
    unsigned long resizingMask() const { return resizingMask_; }
    void setResizingMask(unsigned long mask);
    bool isEditable() const { return editable_; }
    void setEditable(bool flag) { editable_ = flag; }
    bool isHidden() const { return hidden_; }
    void setHidden(bool flag);
    /// What a click on the header sorts by; nil when it does not sort.
    id sortDescriptorPrototype() const { return sortDescriptor_; }
    void setSortDescriptorPrototype(const id& descriptor);

    id tableView() const;
    NSTableView* table() const { return table_; }
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSTableColumn>& c);

private:
    friend class NSTableView;
    void changed();

    id identifier_, headerToolTip_, dataCell_, sortDescriptor_;
    velt::Ref<NSCell> headerCell_;
    double width_ = 100, minWidth_ = 10, maxWidth_ = 1e6;
    unsigned long resizingMask_ = 3;
    bool editable_ = true, hidden_ = false;
    NSTableView* table_ = nullptr;  // owns the column, and clears this when it lets it go
};
