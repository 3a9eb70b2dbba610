// Menus: lists of items that drop from a menu bar, pop up from a button or appear where a person asks for them.
#pragma once

#include "VELTRuntime/platform/appkit/menus/menu_item.h"
#include "VELTRuntime/values/structures.h"

#include <memory>
#include <vector>

class NSEvent;
class NSMenu;
class NSView;
class QMenu;
class QWidget;

namespace velt {

/// Who shows a menu as part of itself, such as a pop-up button.
class MenuOwner {
public:
    /// A person chose an item; its action is the owner's matter.
    virtual void itemChosen(NSMenuItem& item) = 0;
    /// Items came, went or changed.
    virtual void itemsChanged() = 0;

protected:
    ~MenuOwner() = default;
};

/// The widgets of the toolkit that show a menu's items: its own, menu bars, windows that take their keys.
struct MenuHosts;

}  // namespace velt

class VELT_EXPORT NSMenu : public NSObject {
    VELT_OBJECT(NSMenu, NSObject)
public:
    /// A menu without items that enables its items itself.
    NSMenu();
    explicit NSMenu(const id& title);
    ~NSMenu() override;
    /// A new menu with copies of the items.
    id copy() const override;
    id description() const override;

    id title() const { return title_; }
    void setTitle(const id& title);
    id delegate() const { return delegate_; }
    void setDelegate(const id& delegate) { delegate_ = delegate; }
    /// The menu asks before it is shown whether somebody answers each item's action.
    bool autoenablesItems() const { return autoenables_; }
    void setAutoenablesItems(bool flag);

    // Items. Positions beyond the end raise "NSRangeException"; an item that is in a menu already raises
    // "NSInvalidArgumentException".
    const std::vector<velt::Ref<NSMenuItem>>& items() const { return items_; }
    /// New array of the items.
    id itemArray() const;
    long numberOfItems() const { return static_cast<long>(items_.size()); }
    void addItem(NSMenuItem* item) { insertItem(item, numberOfItems()); }
    void insertItem(NSMenuItem* item, long index);
    id addItemWithTitle(const id& title, const id& action, const id& key);
    id insertItemWithTitle(const id& title, const id& action, const id& key, long index);
    void removeItem(NSMenuItem* item);
    void removeItemAtIndex(long index);
    void removeAllItems();
    id itemAtIndex(long index) const;
    id itemWithTag(long tag) const { return itemOrNil(indexOfItemWithTag(tag)); }
    id itemWithTitle(const id& title) const { return itemOrNil(indexOfItemWithTitle(title)); }
    // Positions; -1 when there is none.
    long indexOfItem(const id& item) const;
    long indexOfItemWithTag(long tag) const;
    long indexOfItemWithTitle(const id& title) const;
    long indexOfItemWithRepresentedObject(const id& object) const;
    long indexOfItemWithSubmenu(const id& menu) const;
    void setSubmenuForItem(NSMenu* menu, NSMenuItem* item);
    id supermenu() const;
    NSMenuItem* parentItem() const { return parentItem_; }
    /// This menu is the other one, or one of the menus in which the other one lies.
    bool contains(const NSMenu* menu) const;

    // Work.
    /// Enables and disables the items, when that is the menu's own matter.
    void update();
    void performActionForItemAtIndex(long index);
    /// Chooses the item whose key equivalent a key event is; whether there was one.
    bool performKeyEquivalent(NSEvent* event);
    /// The item under the pointer or the keyboard, while the menu is open.
    id highlightedItem() const;
    /// Closes the menu without a choice.
    void cancelTracking();
    bool isOpen() const { return open_; }
    /// Shows the menu with an item (or nil: its upper left corner) at a point of a view (null: of the screen) until a
    /// person chose or closed it; whether something was chosen.
    bool popUpPositioningItem(const id& item, NSPoint location, NSView* view);
    /// Shows the menu at the place of an event in its view, until a person chose or closed it.
    static void popUpContextMenu(NSMenu* menu, NSEvent* event, NSView* view);

    // The toolkit's.
    QMenu& widget();
    QMenu* existingWidget() const { return widget_; }
    /// Shows the items in a further widget; they come and go with it.
    void addHost(QWidget& host);
    /// Takes the items out of all widgets but the menu's own.
    void removeHosts();
    bool isHostedBy(const QWidget& host) const;
    /// The owner hears of choices; null takes it away.
    void setOwner(velt::MenuOwner* owner) { owner_ = owner; }
    velt::MenuOwner* owner() const { return owner_; }
    /// A first item that is its owner's title is not shown in the menu.
    void setFirstIsTitle(bool flag);
    bool isTitle(const NSMenuItem& item) const;
    // Reports of the toolkit.
    void willOpen();
    void didClose();
    /// An item's looks have changed.
    void itemChanged(NSMenuItem& item);

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSMenu>& c);

private:
    friend class NSMenuItem;
    id itemOrNil(long index) const { return index < 0 ? id() : itemAtIndex(index); }
    std::size_t checkedIndex(const char* operation, long index, std::size_t count) const;
    void tellDelegate(const char* selector);

    id title_, delegate_;
    bool autoenables_ = true, open_ = false, firstIsTitle_ = false;
    std::vector<velt::Ref<NSMenuItem>> items_;
    NSMenuItem* parentItem_ = nullptr;  // owns this menu, and clears this when it lets it go
    velt::MenuOwner* owner_ = nullptr;  // clears this when it goes
    QMenu* widget_ = nullptr;
    std::unique_ptr<velt::MenuHosts> hosts_;
};
