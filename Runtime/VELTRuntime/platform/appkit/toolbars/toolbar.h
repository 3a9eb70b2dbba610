// Toolbars: rows of items below a window's title, which the program supplies and a person may rearrange.
#pragma once

#include "VELTRuntime/platform/appkit/toolbars/toolbar_item.h"

#include <string_view>
#include <vector>

class NSWindow;

namespace velt {

class ToolbarWidget;

/// How items are shown; the numbers are the codes that programs use.
enum class ToolbarDisplay : unsigned long { Default = 0, IconAndLabel = 1, IconOnly = 2, LabelOnly = 3 };
enum class ToolbarSize : unsigned long { Default = 0, Regular = 1, Small = 2 };

}  // namespace velt

/// Its items come from the delegate, when the toolbar is shown in a window: which ones at first by
/// "toolbarDefaultItemIdentifiers:", which ones a person may choose from by "toolbarAllowedItemIdentifiers:", which
/// stay chosen when clicked by "toolbarSelectableItemIdentifiers:", each one by
/// "toolbar:itemForItemIdentifier:willBeInsertedIntoToolbar:". The delegate hears "toolbarWillAddItem:" and
/// "toolbarDidRemoveItem:", notifications with the item under "item".
class VELT_EXPORT NSToolbar : public NSObject {
    VELT_OBJECT(NSToolbar, NSObject)
public:
    NSToolbar();
    explicit NSToolbar(const id& identifier);
    ~NSToolbar() override;

    id identifier() const { return identifier_; }
    id delegate() const { return delegate_; }
    void setDelegate(const id& delegate);
    bool isVisible() const { return visible_; }
    void setVisible(bool flag);
    /// Codes that there are not are ignored.
    unsigned long displayMode() const { return static_cast<unsigned long>(display_); }
    void setDisplayMode(unsigned long mode);
    unsigned long sizeMode() const { return static_cast<unsigned long>(size_); }
    void setSizeMode(unsigned long mode);
    /// A line between the toolbar and the content.
    bool showsBaselineSeparator() const { return baseline_; }
    void setShowsBaselineSeparator(bool flag);
    bool allowsUserCustomization() const { return customizable_; }
    void setAllowsUserCustomization(bool flag) { customizable_ = flag; }
    /// What a person changes is kept in the defaults, under "NSToolbar Configuration IDENTIFIER", and read from there.
    bool autosavesConfiguration() const { return autosaves_; }
    void setAutosavesConfiguration(bool flag) { autosaves_ = flag; }
    /// The item that is shown as chosen; nil for none. Items are chosen by this without their action.
    id selectedItemIdentifier() const { return selected_; }
    void setSelectedItemIdentifier(const id& identifier);

    // Items.
    /// New array of the items; those in sight only.
    id items() const;
    id visibleItems() const;
    const std::vector<velt::Ref<NSToolbarItem>>& itemList() const { return items_; }
    /// Positions beyond the end raise "NSRangeException". Nothing happens when nobody supplies such an item.
    void insertItemWithItemIdentifier(const id& identifier, long index);
    void removeItemAtIndex(long index);
    void moveItem(long from, long to);
    /// Identifiers that the delegate names, as strings; those of its default set when it names none to be allowed. The
    /// last are of the items that stay chosen when clicked.
    std::vector<id> defaultIdentifiers() const;
    std::vector<id> allowedIdentifiers() const;
    std::vector<id> selectableIdentifiers() const;
    /// A new item of an identifier for the toolbar or for the palette; null when nobody supplies one.
    velt::Ref<NSToolbarItem> itemFor(const id& identifier, bool inserted);
    /// Asks again whether the items in sight may be used.
    void validateVisibleItems();

    // Customization by a person.
    void runCustomizationPalette(const id& sender);
    bool customizationPaletteIsRunning() const { return customizing_; }
    void customizationEnded();
    /// The items become those of the default set.
    void restoreDefaults();
    id configurationDictionary() const;
    void setConfigurationFromDictionary(const id& configuration);
    /// A person changed something.
    void customized();

    // The window's.
    NSWindow* windowPointer() const { return window_; }
    /// The toolbar is shown in that window from now on; null ends that.
    void moveToWindow(NSWindow* window);
    velt::ToolbarWidget* existingWidget() const { return widget_; }
    /// The window goes, and its widgets with it.
    void windowGone();
    void itemChanged();
    /// One of the items shows another view from now on; null stands for none.
    void itemViewChanged(NSView* before, NSView* view);
    void itemEnabledChanged(const NSToolbarItem& item);
    /// A person clicked an item.
    void clicked(NSToolbarItem& item) noexcept;

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSToolbar>& c);

private:
    std::vector<id> identifiersBy(std::string_view selector) const;
    void load();
    void setIdentifiers(const std::vector<id>& identifiers);
    void tell(std::string_view selector, std::string_view notification, NSToolbarItem& item);
    void changed();
    id defaultsKey() const;
    void append(velt::Ref<NSToolbarItem> item, std::size_t place);
    void releaseViews();

    id identifier_, delegate_, selected_;
    velt::ToolbarDisplay display_ = velt::ToolbarDisplay::Default;
    velt::ToolbarSize size_ = velt::ToolbarSize::Default;
    bool visible_ = true, baseline_ = true, customizable_ = false, autosaves_ = false, loaded_ = false;
    bool customizing_ = false, changing_ = false;
    std::vector<velt::Ref<NSToolbarItem>> items_;
    NSWindow* window_ = nullptr;             // clears this when it goes
    velt::ToolbarWidget* widget_ = nullptr;  // the window's; it clears this when it goes
};
