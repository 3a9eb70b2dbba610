// Menu items: what a person chooses from a menu, with its action, key equivalent and submenu.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/message.h"

class NSMenu;
class QAction;

class VELT_EXPORT NSMenuItem : public NSObject {
    VELT_OBJECT(NSMenuItem, NSObject)
public:
    /// An item with an empty title, no action and no key equivalent.
    NSMenuItem();
    /// An item of that title.
    explicit NSMenuItem(const id& title);
    ~NSMenuItem() override;
    /// A line between items, which cannot be chosen.
    static velt::Ref<NSMenuItem> separatorItem();
    /// A new item of the same properties, with a copy of the submenu, in no menu.
    id copy() const override;
    /// "<NSMenuItem Open>", with the title.
    id description() const override;

    // What it shows.
    id title() const { return title_; }
    void setTitle(const id& title);
    /// The title with its attributes as the program gave it; nil when it was plain. Menus show its text.
    id attributedTitle() const { return attributedTitle_; }
    void setAttributedTitle(const id& title);
    id image() const { return image_; }
    void setImage(const id& image);
    /// 1 has a mark, 0 has none, -1 has the mark of what is partly on.
    long state() const { return state_; }
    void setState(long state);
    bool isHidden() const { return hidden_; }
    void setHidden(bool flag);
    /// The item or a submenu in which it lies is hidden.
    bool isHiddenOrHasHiddenAncestor() const;
    /// Steps to the right, from 0 to 15.
    long indentationLevel() const { return indentation_; }
    void setIndentationLevel(long level);
    id toolTip() const { return toolTip_; }
    void setToolTip(const id& text);
    bool isSeparatorItem() const { return separator_; }
    /// The item takes the place of the one before it, which has the same key, while the modifiers of its own key
    /// equivalent are held.
    bool isAlternate() const { return alternate_; }
    void setAlternate(bool flag);
    /// The pointer or the keyboard is on it, in a menu that is open.
    bool isHighlighted() const;

    // Keys.
    id keyEquivalent() const { return keyEquivalent_; }
    void setKeyEquivalent(const id& key);
    unsigned long keyEquivalentModifierMask() const { return keyMask_; }
    void setKeyEquivalentModifierMask(unsigned long mask);

    // Behaviour.
    /// A person may choose it. A menu that enables its items itself overwrites it whenever it is about to be shown.
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool flag);
    long tag() const { return tag_; }
    void setTag(long tag) { tag_ = tag; }
    id representedObject() const { return representedObject_; }
    void setRepresentedObject(const id& object) { representedObject_ = object; }
    id target() const { return target_; }
    void setTarget(const id& target) { target_ = target; }
    velt::Selector action() const { return action_; }
    id actionName() const;
    void setActionName(const id& name);

    // The tree.
    id submenu() const;
    /// Attaches a menu, or none. Raises "NSInvalidArgumentException" when it belongs to another item already, or when
    /// this item lies within it.
    void setSubmenu(NSMenu* menu);
    bool hasSubmenu() const { return static_cast<bool>(submenu_); }
    NSMenu* submenuPointer() const { return submenu_.get(); }
    id menu() const;
    NSMenu* menuPointer() const { return menu_; }
    id parentItem() const;

    /// Sends the action as if a person had chosen the item; nothing when it is not enabled.
    void perform();
    /// Works out whether it can be chosen, in a menu that enables its items itself.
    void validate();

    // The toolkit's.
    QAction& toolkitAction();
    QAction* existingAction() const { return shown_; }
    /// Tells the toolkit's action all that the item knows.
    void sync();

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSMenuItem>& c);

private:
    friend class NSMenu;
    id title_, attributedTitle_, image_, toolTip_, keyEquivalent_, representedObject_, target_;
    velt::Ref<NSMenu> submenu_;
    velt::Selector action_;
    unsigned long keyMask_;
    long tag_ = 0, state_ = 0, indentation_ = 0;
    bool hidden_ = false, enabled_ = true, separator_ = false, alternate_ = false;
    NSMenu* menu_ = nullptr;  // owns the item, and clears this when it lets it go
    QAction* shown_ = nullptr;
};
