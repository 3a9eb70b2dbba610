// Toolbar items: what a toolbar shows side by side, a button with a picture and a label or a view of the program.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

class NSToolbar;

namespace velt {

// The items that every toolbar has, by their identifiers.
inline constexpr std::string_view kSeparatorItem = "NSToolbarSeparatorItem";
inline constexpr std::string_view kSpaceItem = "NSToolbarSpaceItem";
inline constexpr std::string_view kFlexibleSpaceItem = "NSToolbarFlexibleSpaceItem";
inline constexpr std::string_view kShowColorsItem = "NSToolbarShowColorsItem";
inline constexpr std::string_view kShowFontsItem = "NSToolbarShowFontsItem";
inline constexpr std::string_view kCustomizeItem = "NSToolbarCustomizeToolbarItem";
inline constexpr std::string_view kPrintItem = "NSToolbarPrintItem";

}  // namespace velt

class VELT_EXPORT NSToolbarItem : public NSObject {
    VELT_OBJECT(NSToolbarItem, NSObject)
public:
    NSToolbarItem();
    /// An item of that identifier (a string), without a label or a picture.
    explicit NSToolbarItem(const id& identifier);
    ~NSToolbarItem() override;
    /// One of the items that every toolbar has; null for other identifiers.
    static velt::Ref<NSToolbarItem> standard(const id& identifier);
    /// A new item of the same properties, in no toolbar; nobody can copy the view.
    id copy() const override;
    /// "<NSToolbarItem save>", with the identifier.
    id description() const override;

    id itemIdentifier() const { return identifier_; }
    bool isIdentifiedBy(std::string_view identifier) const;
    bool isSpace() const;
    id label() const { return label_; }
    void setLabel(const id& label);
    /// The label in the customization palette; the label itself when it is empty.
    id paletteLabel() const { return paletteLabel_; }
    void setPaletteLabel(const id& label);
    id toolTip() const { return toolTip_; }
    void setToolTip(const id& text);
    long tag() const { return tag_; }
    void setTag(long tag) { tag_ = tag; }
    id image() const { return image_; }
    void setImage(const id& image);
    /// The program's view in place of a button. Its size lies between the least and the largest one; a least size of
    /// zero stands for the view's own.
    id view() const;
    void setView(NSView* view);
    NSView* viewPointer() const { return view_.get(); }
    NSSize minSize() const { return minSize_; }
    void setMinSize(NSSize size);
    NSSize maxSize() const { return maxSize_; }
    void setMaxSize(NSSize size);
    /// Items of a lower priority go into the overflow menu first.
    long visibilityPriority() const { return priority_; }
    void setVisibilityPriority(long priority);
    /// The menu item that stands for it in the overflow menu; nil for one of the label.
    id menuFormRepresentation() const { return menuForm_; }
    void setMenuFormRepresentation(const id& item) { menuForm_ = item; }

    bool isEnabled() const { return enabled_; }
    void setEnabled(bool flag);
    /// The toolbar asks who answers the action whenever something may have changed.
    bool autovalidates() const { return autovalidates_; }
    void setAutovalidates(bool flag) { autovalidates_ = flag; }
    id target() const { return target_; }
    void setTarget(const id& target) { target_ = target; }
    velt::Selector action() const { return action_; }
    id actionName() const;
    void setActionName(const id& name);
    bool allowsDuplicatesInToolbar() const { return isSpace(); }
    id toolbar() const;

    /// Asks who answers the action whether the item may be used now ("validateToolbarItem:"). An item with an action
    /// that nobody answers may not.
    void validate();
    /// Sends the action as if a person had clicked it; nothing when it is not enabled.
    void perform();

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSToolbarItem>& c);

private:
    friend class NSToolbar;
    void changed();

    id identifier_, label_, paletteLabel_, toolTip_, image_, target_, menuForm_;
    velt::Ref<NSView> view_;
    velt::Selector action_;
    NSSize minSize_{}, maxSize_{};
    long tag_ = 0, priority_ = 0;
    bool enabled_ = true, autovalidates_ = true, refused_ = false;
    NSToolbar* toolbar_ = nullptr;  // owns the item, and clears this when it lets it go
};
