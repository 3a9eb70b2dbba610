// Combo boxes: a field to type into, with a list to choose from.
#pragma once

#include "VELTRuntime/platform/appkit/controls/text_field.h"
#include "VELTRuntime/platform/foundation/array.h"

#include <string>

class VELT_EXPORT NSComboBoxCell : public NSTextFieldCell {
    VELT_OBJECT(NSComboBoxCell, NSTextFieldCell)
public:
    using NSTextFieldCell::NSTextFieldCell;

    /// The combo box's own list. Indexes beyond it raise "NSRangeException".
    NSMutableArray& items() { return *items_; }
    const NSMutableArray& items() const { return *items_; }
    bool completes() const { return completes_; }
    void setCompletes(bool flag) { completes_ = flag; }
    long numberOfVisibleItems() const { return visibleItems_; }
    void setNumberOfVisibleItems(long count) { visibleItems_ = count; }
    bool hasVerticalScroller() const { return hasScroller_; }
    void setHasVerticalScroller(bool flag) { hasScroller_ = flag; }
    bool isButtonBordered() const { return buttonBordered_; }
    void setButtonBordered(bool flag);
    double itemHeight() const { return itemHeight_; }
    void setItemHeight(double height) { itemHeight_ = height; }
    NSSize intercellSpacing() const { return spacing_; }
    void setIntercellSpacing(NSSize spacing) { spacing_ = spacing; }
    bool usesDataSource() const { return usesDataSource_; }
    void setUsesDataSource(bool flag);
    id dataSource() const { return dataSource_; }
    void setDataSource(const id& source);
    static void describe(velt::ClassBuilder<NSComboBoxCell>& c);

protected:
    double roomBeside() const override;

private:
    friend class NSComboBox;
    velt::Ref<NSMutableArray> items_ = velt::make<NSMutableArray>();
    id dataSource_;
    long selected_ = -1, visibleItems_ = 5;
    double itemHeight_ = 20;
    NSSize spacing_{3, 2};
    bool completes_ = false, hasScroller_ = true, buttonBordered_ = true, usesDataSource_ = false;
};

class VELT_EXPORT NSComboBox : public NSTextField {
    VELT_OBJECT(NSComboBox, NSTextField)
public:
    NSComboBoxCell& comboCell() const { return static_cast<NSComboBoxCell&>(cellObject()); }

    // The list. Its own, or that of the data source, which answers "numberOfItemsInComboBox:" and
    // "comboBox:objectValueForItemAtIndex:"; then changing it by these raises "NSInternalInconsistencyException".
    void addItemWithObjectValue(const id& value);
    void addItemsWithObjectValues(const id& values);
    void insertItemWithObjectValue(const id& value, long index);
    void removeItemAtIndex(long index);
    void removeItemWithObjectValue(const id& value);
    void removeAllItems();
    id itemObjectValueAtIndex(long index) const;
    /// New array of the values in the list.
    id objectValues() const;
    long numberOfItems() const;
    /// Where a value stands; the platform's not-found value when nowhere.
    long indexOfItemWithObjectValue(const id& value) const;
    void reloadData();
    void noteNumberOfItemsChanged() { reloadData(); }

    /// -1 when none is selected.
    long indexOfSelectedItem() const;
    /// Selects an item and shows it in the field. Raises "NSRangeException" beyond the list.
    void selectItemAtIndex(long index);
    void deselectItemAtIndex(long index);
    /// Selects the item of that value; none when the list has it not.
    void selectItemWithObjectValue(const id& value);
    id objectValueOfSelectedItem() const;
    void scrollItemAtIndexToVisible(long index);
    /// The text of the first item that begins with a text, whatever its case; nil when there is none.
    id completedString(const id& text) const;
    /// What an item is shown as.
    id textOfItem(long index) const;

    // What the widget reports.
    void willPopUp() noexcept;
    void willDismiss() noexcept;
    /// Somebody chose an item from the list.
    void chose(long index) noexcept;

    static void describe(velt::ClassBuilder<NSComboBox>& c);

protected:
    velt::Ref<NSCell> makeCell() const override;
    std::unique_ptr<velt::FieldWidget> makeFieldWidget() override;
    bool perform(std::string_view selector) override;
    void takeTyped() override;

private:
    NSMutableArray& ownList(const char* operation);
    void select(long index);
    void complete();

    std::u16string completed_;  // what the last key was completed to, beginning with what was typed of it
    long completedFrom_ = 0;    // how many units were typed
};
