#include "VELTRuntime/platform/appkit/containers/tab_view_item.h"

#include "VELTRuntime/platform/appkit/containers/tab_view.h"
#include "VELTRuntime/values/string.h"

NSTabViewItem::NSTabViewItem(const id& identifier)
    : identifier_(identifier), label_(velt::string(u"")), view_(velt::make<NSView>()) {}

void NSTabViewItem::setLabel(const id& label) {
    label_ = label;
    if (tabView_) tabView_->itemChanged(*this);
}
void NSTabViewItem::setToolTip(const id& text) {
    toolTip_ = text;
    if (tabView_) tabView_->itemChanged(*this);
}
void NSTabViewItem::setView(NSView* view) {
    if (view == view_.get()) return;
    const velt::Ref<NSView> before = view_;
    view_ = velt::Ref<NSView>(view);
    if (before && tabView_ && before->superviewPointer() == tabView_) before->removeFromSuperview();
    if (tabView_) tabView_->itemChanged(*this);
}

id NSTabViewItem::tabView() const { return id(static_cast<NSObject*>(tabView_)); }
long NSTabViewItem::tabState() const {
    return tabView_ && tabView_->selectedTabViewItem() == id(const_cast<NSTabViewItem*>(this)) ? 0 : 1;
}

void NSTabViewItem::describe(velt::ClassBuilder<NSTabViewItem>& c) {
    c.property("identifier", &NSTabViewItem::identifier, &NSTabViewItem::setIdentifier)
        .property("label", &NSTabViewItem::label, &NSTabViewItem::setLabel)
        .property("toolTip", &NSTabViewItem::toolTip, &NSTabViewItem::setToolTip)
        .property("view", &NSTabViewItem::view, &NSTabViewItem::setView)
        .property("initialFirstResponder", &NSTabViewItem::initialFirstResponder,
                  &NSTabViewItem::setInitialFirstResponder)
        .property("tabView", &NSTabViewItem::tabView)
        .property("tabState", &NSTabViewItem::tabState)
        .classMethod("itemWithIdentifier:", [](const id&, const id* a) { return id(velt::make<NSTabViewItem>(a[0])); })
        .owns(&NSTabViewItem::identifier_)
        .owns(&NSTabViewItem::label_)
        .owns(&NSTabViewItem::toolTip_)
        .owns(&NSTabViewItem::initialFirstResponder_)
        .owns(&NSTabViewItem::view_);
}
