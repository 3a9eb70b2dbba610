// One page of a tab view: its label, and the view that it shows.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

class NSTabView;

class VELT_EXPORT NSTabViewItem final : public NSObject {
    VELT_OBJECT(NSTabViewItem, NSObject)
public:
    NSTabViewItem() : NSTabViewItem(nil) {}
    explicit NSTabViewItem(const id& identifier);

    /// Any value by which the program finds the item again.
    id identifier() const { return identifier_; }
    void setIdentifier(const id& identifier) { identifier_ = identifier; }
    id label() const { return label_; }
    void setLabel(const id& label);
    id toolTip() const { return toolTip_; }
    void setToolTip(const id& text);
    id view() const { return view_; }
    void setView(NSView* view);
    NSView* viewPointer() const { return view_.get(); }
    id initialFirstResponder() const { return initialFirstResponder_; }
    void setInitialFirstResponder(NSView* view) { initialFirstResponder_ = id(static_cast<NSObject*>(view)); }
    /// nil while it is in none.
    id tabView() const;
    NSTabView* tabViewPointer() const { return tabView_; }
    void setTabView(NSTabView* tabView) { tabView_ = tabView; }
    /// 0 selected, 1 not.
    long tabState() const;
    static void describe(velt::ClassBuilder<NSTabViewItem>& c);

private:
    id identifier_, label_, toolTip_, initialFirstResponder_;
    velt::Ref<NSView> view_;
    NSTabView* tabView_ = nullptr;  // owns this item, and clears this when it goes
};
