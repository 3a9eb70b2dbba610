// Tab views: pages of which one is seen, chosen by its tab.
#pragma once

#include "VELTRuntime/platform/appkit/containers/tab_view_item.h"

class QTabBar;

namespace velt {
/// Where a tab view has its tabs; the numbers are those that programs use.
enum TabViewType : unsigned long {
    kTopTabs = 0,
    kLeftTabs = 1,
    kBottomTabs = 2,
    kRightTabs = 3,
    kNoTabsBezelBorder = 4,
    kNoTabsLineBorder = 5,
    kNoTabsNoBorder = 6,
};
}  // namespace velt

/// The first item that is added is selected. The delegate is asked "tabView:shouldSelectTabViewItem:" when a person or
/// the program selects another, and told "tabView:willSelectTabViewItem:", "tabView:didSelectTabViewItem:" and
/// "tabViewDidChangeNumberOfTabViewItems:".
class VELT_EXPORT NSTabView : public NSView {
    VELT_OBJECT(NSTabView, NSView)
public:
    ~NSTabView() override;

    /// New array of the items.
    id tabViewItems() const;
    long numberOfTabViewItems() const { return static_cast<long>(items_.size()); }
    /// Raises "NSRangeException" beyond the end.
    id tabViewItemAtIndex(long index) const;
    /// -1 for an item of another tab view.
    long indexOfTabViewItem(const id& item) const;
    /// Of the item whose identifier is equal; -1 when there is none.
    long indexOfTabViewItemWithIdentifier(const id& identifier) const;
    void addTabViewItem(NSTabViewItem* item);
    /// Raises "NSRangeException" beyond the end.
    void insertTabViewItem(NSTabViewItem* item, long index);
    /// The next item is selected in the place of one that was, or else the one before.
    void removeTabViewItem(NSTabViewItem* item);

    /// nil when there are no items.
    id selectedTabViewItem() const { return selected_; }
    /// Nothing happens for an item of another tab view.
    void selectTabViewItem(NSTabViewItem* item);
    /// Raises "NSRangeException" beyond the end.
    void selectTabViewItemAtIndex(long index);
    /// Raises "NSRangeException" when no item has it.
    void selectTabViewItemWithIdentifier(const id& identifier);
    void selectNextTabViewItem(const id& sender);
    void selectPreviousTabViewItem(const id& sender);
    void selectFirstTabViewItem(const id& sender);
    void selectLastTabViewItem(const id& sender);

    unsigned long tabViewType() const { return type_; }
    void setTabViewType(unsigned long type);
    id delegate() const { return delegate_; }
    void setDelegate(const id& delegate) { delegate_ = delegate; }
    id font() const { return font_; }
    void setFont(const id& font);
    bool drawsBackground() const { return drawsBackground_; }
    void setDrawsBackground(bool flag);
    /// Where the selected item's view lies.
    NSRect contentRect() const;

    bool acceptsFirstResponder() const override;
    /// Control with Tab or a page key goes from page to page wherever in them the keyboard is.
    bool performKeyEquivalent(NSEvent* event);
    void keyDown(NSEvent* event);
    void drawRect(NSRect rect) override;
    /// A label or view of an item changed.
    void itemChanged(NSTabViewItem& item);

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSTabView>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
    void sizeChanged(NSSize before) override;

private:
    bool hasTabs() const { return type_ <= velt::kRightTabs; }
    QTabBar* bar() const;
    void chosen(int index);
    bool allows(const id& item);
    void show(NSTabViewItem* item);
    void step(long by);
    void tellCount();
    NSRect paneRect() const;

    std::vector<velt::Ref<NSTabViewItem>> items_;
    velt::Ref<NSTabViewItem> selected_;
    unsigned long type_ = velt::kTopTabs;
    bool drawsBackground_ = true, syncing_ = false;
    id delegate_, font_;
};
