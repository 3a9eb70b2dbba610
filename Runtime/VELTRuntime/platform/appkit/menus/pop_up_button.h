// Pop-up buttons: controls that show one of several choices, or pull down a menu of commands.
#pragma once

#include "VELTRuntime/platform/appkit/controls/button.h"
#include "VELTRuntime/platform/appkit/menus/pop_up_button_cell.h"

class VELT_EXPORT NSPopUpButton : public NSButton {
    VELT_OBJECT(NSPopUpButton, NSButton)
public:
    NSPopUpButtonCell& popUpCell() const { return *velt::as<NSPopUpButtonCell>(cell()); }
    /// Opens the menu.
    void performClick(const id& sender) override { popUpCell().performClick(sender); }

    // The cell's properties and operations.
    id itemMenu() const { return popUpCell().menu(); }
    void setItemMenu(NSMenu* menu) { popUpCell().setMenu(menu); }
    bool pullsDown() const { return popUpCell().pullsDown(); }
    void setPullsDown(bool value) { popUpCell().setPullsDown(value); }
    bool autoenablesItems() const { return popUpCell().autoenablesItems(); }
    void setAutoenablesItems(bool value) { popUpCell().setAutoenablesItems(value); }
    unsigned long preferredEdge() const { return popUpCell().preferredEdge(); }
    void setPreferredEdge(unsigned long value) { popUpCell().setPreferredEdge(value); }
    id itemArray() const { return popUpCell().itemArray(); }
    id itemTitles() const { return popUpCell().itemTitles(); }
    long numberOfItems() const { return popUpCell().numberOfItems(); }
    id lastItem() const { return popUpCell().lastItem(); }
    id selectedItem() const { return popUpCell().selectedItem(); }
    long indexOfSelectedItem() const { return popUpCell().indexOfSelectedItem(); }
    id titleOfSelectedItem() const { return popUpCell().titleOfSelectedItem(); }
    long selectedTag() const { return popUpCell().selectedTag(); }
    void addItemWithTitle(const id& title) { popUpCell().addItemWithTitle(title); }
    void addItemsWithTitles(const id& titles) { popUpCell().addItemsWithTitles(titles); }
    void removeItemWithTitle(const id& title) { popUpCell().removeItemWithTitle(title); }
    void removeItemAtIndex(long index) { popUpCell().removeItemAtIndex(index); }
    id itemAtIndex(long index) const { return popUpCell().itemAtIndex(index); }
    id itemTitleAtIndex(long index) const { return popUpCell().itemTitleAtIndex(index); }
    id itemWithTitle(const id& title) const { return popUpCell().itemWithTitle(title); }
    long indexOfItem(const id& item) const { return popUpCell().indexOfItem(item); }
    long indexOfItemWithTitle(const id& title) const { return popUpCell().indexOfItemWithTitle(title); }
    long indexOfItemWithTag(long tag) const { return popUpCell().indexOfItemWithTag(tag); }
    long indexOfItemWithRepresentedObject(const id& object) const {
        return popUpCell().indexOfItemWithRepresentedObject(object);
    }
    void selectItem(const id& item) { popUpCell().selectItem(item); }
    void selectItemAtIndex(long index) { popUpCell().selectItemAtIndex(index); }
    void selectItemWithTitle(const id& title) { popUpCell().selectItemWithTitle(title); }
    bool selectItemWithTag(long tag) { return popUpCell().selectItemWithTag(tag); }
    void insertItemWithTitle(const id& title, long index) { popUpCell().insertItemWithTitle(title, index); }
    void removeAllItems() { popUpCell().removeAllItems(); }
    void synchronizeTitleAndSelectedItem() { popUpCell().synchronizeTitleAndSelectedItem(); }

    static void describe(velt::ClassBuilder<NSPopUpButton>& c);

protected:
    velt::Ref<NSCell> makeCell() const override;
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
};
