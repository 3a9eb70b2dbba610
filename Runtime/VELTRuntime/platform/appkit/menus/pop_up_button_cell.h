// Cells of pop-up buttons: a menu of which one item is selected, or whose first item is the title of a pull-down menu.
#pragma once

#include "VELTRuntime/platform/appkit/controls/button_cell.h"
#include "VELTRuntime/platform/appkit/menus/menu.h"

class QRect;

class VELT_EXPORT NSPopUpButtonCell : public NSButtonCell, private velt::MenuOwner {
    VELT_OBJECT(NSPopUpButtonCell, NSButtonCell)
public:
    /// A cell without items that pops up.
    NSPopUpButtonCell();
    ~NSPopUpButtonCell() override;

    // The value is the position of the selected item; -1 when there is none.
    id objectValue() const override { return VELT_ID(indexOfSelectedItem()); }
    void setObjectValue(const id& value) override;
    /// What the button shows: the selected item's title, or the first item's when it pulls down.
    id title() const override;
    /// Selects the item of that title, and makes one when there is none. Of a menu that pulls down it sets the title.
    void setTitle(const id& title) override;

    id menu() const { return menu_; }
    /// Takes another menu and selects its first item; a new one for null.
    void setMenu(NSMenu* menu);
    NSMenu& menuObject() const { return *menu_; }
    bool pullsDown() const { return pullsDown_; }
    void setPullsDown(bool flag);
    bool autoenablesItems() const { return menu_->autoenablesItems(); }
    void setAutoenablesItems(bool flag) { menu_->setAutoenablesItems(flag); }
    /// The selected item has a mark in the menu.
    bool altersStateOfSelectedItem() const { return altersState_; }
    void setAltersStateOfSelectedItem(bool flag);
    /// Kept for programs: the desktop opens its menus where they have room.
    unsigned long preferredEdge() const { return preferredEdge_; }
    void setPreferredEdge(unsigned long edge) { preferredEdge_ = edge; }
    /// 0 shows no arrow.
    unsigned long arrowPosition() const { return arrowPosition_; }
    void setArrowPosition(unsigned long position);

    // Items. Titles are unique: an item of the same title goes when one is added. Positions beyond the end raise
    // "NSRangeException".
    void addItemWithTitle(const id& title);
    void addItemsWithTitles(const id& titles);
    void insertItemWithTitle(const id& title, long index);
    void removeItemWithTitle(const id& title);
    void removeItemAtIndex(long index) { menu_->removeItemAtIndex(index); }
    void removeAllItems();
    id itemArray() const { return menu_->itemArray(); }
    id itemTitles() const;
    long numberOfItems() const { return menu_->numberOfItems(); }
    id itemAtIndex(long index) const { return menu_->itemAtIndex(index); }
    id itemTitleAtIndex(long index) const;
    id itemWithTitle(const id& title) const { return menu_->itemWithTitle(title); }
    id lastItem() const;
    long indexOfItem(const id& item) const { return menu_->indexOfItem(item); }
    long indexOfItemWithTitle(const id& title) const { return menu_->indexOfItemWithTitle(title); }
    long indexOfItemWithTag(long tag) const { return menu_->indexOfItemWithTag(tag); }
    long indexOfItemWithRepresentedObject(const id& object) const {
        return menu_->indexOfItemWithRepresentedObject(object);
    }

    // The selection.
    id selectedItem() const { return selected_; }
    long indexOfSelectedItem() const;
    id titleOfSelectedItem() const;
    long selectedTag() const;
    /// Selects an item of the menu; nil or an item of another menu leaves none selected.
    void selectItem(const id& item);
    /// -1 leaves none selected.
    void selectItemAtIndex(long index);
    /// A title that there is not leaves none selected.
    void selectItemWithTitle(const id& title);
    /// Whether there is one.
    bool selectItemWithTag(long tag);
    /// Selects the first item when none of the menu is selected.
    void synchronizeTitleAndSelectedItem();

    /// A person's click: the menu of the control that shows it opens.
    void performClick(const id& sender) override;
    /// Opens the menu over, or below, a place of a widget.
    void popUp(QWidget& within, const QRect& place);
    /// A person moves the selection by keys: an item is chosen when it can be.
    bool chooseItemAtIndex(long index);
    /// The item can be chosen: shown, enabled and no separator.
    bool canChoose(long index) const;

    NSSize cellSize() const override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSPopUpButtonCell>& c);

private:
    void itemChosen(NSMenuItem& item) override;
    void itemsChanged() override;
    void showSelection();

    velt::Ref<NSMenu> menu_;
    velt::Ref<NSMenuItem> selected_, marked_;
    long count_ = 0;  // of items, when they last changed
    unsigned long preferredEdge_ = 1, arrowPosition_ = 2;
    bool pullsDown_ = false, altersState_ = true, marking_ = false;
};
