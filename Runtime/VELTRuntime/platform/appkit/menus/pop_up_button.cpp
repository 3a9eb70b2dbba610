#include "VELTRuntime/platform/appkit/menus/pop_up_button.h"

#include "VELTRuntime/platform/appkit/menus/pop_up_widget.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

using velt::Ref;

Ref<NSCell> NSPopUpButton::makeCell() const { return velt::make<NSPopUpButtonCell>(); }

std::unique_ptr<QWidget> NSPopUpButton::makeWidget() {
    auto made = std::make_unique<velt::PopUpWidget>();
    watchEvents(*made);
    return made;
}

void NSPopUpButton::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);  // NOLINT(bugprone-parent-virtual-call): a button's own look is not a pop-up's
    const QString title = velt::qtText(popUpCell().title());
    // The choice is the value of a pop-up button, not its name.
    widget.setAccessibleName(pullsDown() ? title : velt::qtText(toolTip()));
    if (auto* shown = dynamic_cast<velt::PopUpWidget*>(&widget)) shown->titleShown(title);
}

void NSPopUpButton::describe(velt::ClassBuilder<NSPopUpButton>& c) {
    using Button = NSPopUpButton;
    c.property("menu", &Button::itemMenu, &Button::setItemMenu)
        .property("pullsDown", &Button::pullsDown, &Button::setPullsDown)
        .property("autoenablesItems", &Button::autoenablesItems, &Button::setAutoenablesItems)
        .property("preferredEdge", &Button::preferredEdge, &Button::setPreferredEdge)
        .property("itemArray", &Button::itemArray)
        .property("itemTitles", &Button::itemTitles)
        .property("numberOfItems", &Button::numberOfItems)
        .property("lastItem", &Button::lastItem)
        .property("selectedItem", &Button::selectedItem)
        .property("indexOfSelectedItem", &Button::indexOfSelectedItem)
        .property("titleOfSelectedItem", &Button::titleOfSelectedItem)
        .property("selectedTag", &Button::selectedTag)
        .method("addItemWithTitle:", &Button::addItemWithTitle)
        .method("addItemsWithTitles:", &Button::addItemsWithTitles)
        .method("removeItemWithTitle:", &Button::removeItemWithTitle)
        .method("removeItemAtIndex:", &Button::removeItemAtIndex)
        .method("itemAtIndex:", &Button::itemAtIndex)
        .method("itemTitleAtIndex:", &Button::itemTitleAtIndex)
        .method("itemWithTitle:", &Button::itemWithTitle)
        .method("indexOfItem:", &Button::indexOfItem)
        .method("indexOfItemWithTitle:", &Button::indexOfItemWithTitle)
        .method("indexOfItemWithTag:", &Button::indexOfItemWithTag)
        .method("indexOfItemWithRepresentedObject:", &Button::indexOfItemWithRepresentedObject)
        .method("selectItem:", &Button::selectItem)
        .method("selectItemAtIndex:", &Button::selectItemAtIndex)
        .method("selectItemWithTitle:", &Button::selectItemWithTitle)
        .method("selectItemWithTag:", &Button::selectItemWithTag)
        .method("insertItemWithTitle:atIndex:", &Button::insertItemWithTitle)
        .method("removeAllItems", &Button::removeAllItems)
        .method("synchronizeTitleAndSelectedItem", &Button::synchronizeTitleAndSelectedItem);
}
