#include "VELTRuntime/platform/appkit/menus/pop_up_button_cell.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/menus/pop_up_look.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/object/setting.h"
#include "VELTRuntime/values/string.h"

#include <QApplication>
#include <QMenu>

using velt::Ref;

namespace {

id emptyText() { return velt::string(std::u16string_view()); }

}  // namespace

NSPopUpButtonCell::NSPopUpButtonCell() : menu_(velt::make<NSMenu>()) {
    menu_->setOwner(this);
    setBezelStyle(static_cast<unsigned long>(velt::BezelStyle::Rounded));
    setAlignment(4);  // by the text's direction
}

NSPopUpButtonCell::~NSPopUpButtonCell() { NSPopUpButtonCell::dissolve(); }

void NSPopUpButtonCell::dissolve() {
    if (menu_ && menu_->owner() == this) menu_->setOwner(nullptr);
    NSButtonCell::dissolve();
}

// The menu.

void NSPopUpButtonCell::setMenu(NSMenu* menu) {
    const Ref<NSMenu> next = menu ? Ref<NSMenu>(menu) : velt::make<NSMenu>();
    if (menu_->owner() == this) {
        menu_->setOwner(nullptr);
        menu_->setFirstIsTitle(false);
    }
    selected_ = nullptr;
    showSelection();
    menu_ = next;
    menu_->setOwner(this);
    menu_->setFirstIsTitle(pullsDown_);
    count_ = numberOfItems();
    selectItem(lastItem().isNil() ? id() : itemAtIndex(0));
}

void NSPopUpButtonCell::setPullsDown(bool flag) {
    pullsDown_ = flag;
    menu_->setFirstIsTitle(flag);
    showSelection();
}

void NSPopUpButtonCell::setAltersStateOfSelectedItem(bool flag) {
    altersState_ = flag;
    showSelection();
}

void NSPopUpButtonCell::setArrowPosition(unsigned long position) {
    arrowPosition_ = position;
    changed();
}

id NSPopUpButtonCell::title() const {
    if (pullsDown_) return menu_->items().empty() ? emptyText() : menu_->items().front()->title();
    return selected_ ? selected_->title() : emptyText();
}

void NSPopUpButtonCell::setTitle(const id& title) {
    if (!pullsDown_) {
        if (indexOfItemWithTitle(title) < 0) addItemWithTitle(title);
        selectItemWithTitle(title);
    } else if (menu_->items().empty()) {
        addItemWithTitle(title);
    } else {
        menu_->items().front()->setTitle(title);
    }
}

// Items.

void NSPopUpButtonCell::addItemWithTitle(const id& title) {
    removeItemWithTitle(title);
    menu_->addItem(velt::make<NSMenuItem>(title).get());
}

void NSPopUpButtonCell::addItemsWithTitles(const id& titles) {
    const NSArray* list = velt::arrayOf(titles);
    if (!list) velt::raiseClassExpected(NSArray::entry());
    for (const id& title : list->items()) addItemWithTitle(title);
}

void NSPopUpButtonCell::insertItemWithTitle(const id& title, long index) {
    const bool isEnd = index == numberOfItems();
    // A position that there is not changes nothing.
    if (!isEnd) itemAtIndex(index);
    removeItemWithTitle(title);
    menu_->insertItem(velt::make<NSMenuItem>(title).get(), std::min(index, numberOfItems()));
}

void NSPopUpButtonCell::removeItemWithTitle(const id& title) {
    if (const long index = indexOfItemWithTitle(title); index >= 0) removeItemAtIndex(index);
}

void NSPopUpButtonCell::removeAllItems() {
    selected_ = nullptr;
    menu_->removeAllItems();
}

id NSPopUpButtonCell::itemTitles() const {
    Ref<NSMutableArray> titles = velt::make<NSMutableArray>();
    for (const Ref<NSMenuItem>& item : menu_->items()) titles->append(item->title());
    return titles;
}

id NSPopUpButtonCell::itemTitleAtIndex(long index) const { return velt::as<NSMenuItem>(itemAtIndex(index))->title(); }
id NSPopUpButtonCell::lastItem() const { return menu_->items().empty() ? id() : id(menu_->items().back()); }

// The selection.

void NSPopUpButtonCell::setObjectValue(const id& value) {
    if (velt::isNumber(value)) {
        selectItemAtIndex(VELT_CINTEGER(value));
    } else if (velt::isString(value)) {
        selectItemWithTitle(value);
    } else {
        selectItem(nil);
    }
}

long NSPopUpButtonCell::indexOfSelectedItem() const { return selected_ ? indexOfItem(selected_) : -1; }
id NSPopUpButtonCell::titleOfSelectedItem() const { return selected_ ? selected_->title() : nil; }
long NSPopUpButtonCell::selectedTag() const { return selected_ ? selected_->tag() : -1; }

void NSPopUpButtonCell::selectItem(const id& item) {
    const bool own = velt::is<NSMenuItem>(item) && indexOfItem(item) >= 0;
    selected_ = Ref<NSMenuItem>(own ? velt::as<NSMenuItem>(item) : nullptr);
    store(VELT_ID(indexOfSelectedItem()));
    showSelection();
}

void NSPopUpButtonCell::selectItemAtIndex(long index) { selectItem(index == -1 ? id() : itemAtIndex(index)); }
void NSPopUpButtonCell::selectItemWithTitle(const id& title) { selectItem(itemWithTitle(title)); }

bool NSPopUpButtonCell::selectItemWithTag(long tag) {
    const long index = indexOfItemWithTag(tag);
    if (index >= 0) selectItemAtIndex(index);
    return index >= 0;
}

void NSPopUpButtonCell::synchronizeTitleAndSelectedItem() {
    if (indexOfSelectedItem() >= 0 || numberOfItems() == 0) return;
    for (long i = 0; i < numberOfItems(); ++i) {
        const NSMenuItem& item = *menu_->items()[static_cast<std::size_t>(i)];
        if (item.isHidden() || item.isSeparatorItem()) continue;
        selectItemAtIndex(i);
        return;
    }
}

void NSPopUpButtonCell::showSelection() {
    const Ref<NSMenuItem> next = altersState_ && !pullsDown_ ? selected_ : nullptr;
    {
        const velt::Setting marking(marking_, true);
        if (const Ref<NSMenuItem> before = std::exchange(marked_, next); before && before.get() != next.get()) {
            before->setState(0);
        }
        if (next) next->setState(1);
    }
    changed();
}

void NSPopUpButtonCell::itemsChanged() {
    if (marking_) return;
    const bool lost = selected_ && indexOfItem(selected_) < 0;
    const bool first = !selected_ && numberOfItems() == 1 && count_ == 0;
    count_ = numberOfItems();
    if (lost || first) {
        selected_ = numberOfItems() > 0 ? menu_->items().front() : nullptr;
        store(VELT_ID(indexOfSelectedItem()));
        showSelection();
    } else {
        changed();
    }
}

// A person's work.

bool NSPopUpButtonCell::canChoose(long index) const {
    if (index < 0 || index >= numberOfItems()) return false;
    const NSMenuItem& item = *menu_->items()[static_cast<std::size_t>(index)];
    return !item.isHidden() && !item.isSeparatorItem() && item.isEnabled() && !item.hasSubmenu();
}

bool NSPopUpButtonCell::chooseItemAtIndex(long index) {
    menu_->update();
    if (!canChoose(index)) return false;
    const Ref<NSMenuItem> item = menu_->items()[static_cast<std::size_t>(index)];
    item->perform();
    return true;
}

void NSPopUpButtonCell::itemChosen(NSMenuItem& item) {
    const Ref<NSMenuItem> chosen(&item);
    const Ref<NSPopUpButtonCell> kept(this);
    selectItem(chosen);
    NSApplication& application = NSApplication::sharedApplication();
    if (item.action()) {
        application.sendAction(item.action(), item.target(), chosen);
    } else if (control()) {
        control()->worked();
    } else {
        application.sendAction(action(), target(), kept);
    }
}

void NSPopUpButtonCell::performClick(const id&) {
    if (!isEnabled() || !control()) return;
    QWidget* widget = control()->existingWidget();
    if (widget && widget->isVisible()) popUp(*widget, widget->rect());
}

void NSPopUpButtonCell::popUp(QWidget& within, const QRect& place) {
    const Ref<NSPopUpButtonCell> kept(this);
    const auto tell = [](const char* name, const id& sender) {
        NSNotificationCenter::defaultCenter().post(velt::string(std::string_view(name)), sender);
    };
    tell("NSPopUpButtonCellWillPopUpNotification", kept);
    if (control()) tell("NSPopUpButtonWillPopUpNotification", controlView());
    QMenu& menu = menu_->widget();
    menu.setFont(velt::as<NSFont>(font())->font());
    menu.setMinimumWidth(place.width());
    if (pullsDown_ || !selected_ || selected_->isHidden()) {
        const bool fromRight = within.isRightToLeft();
        QPoint corner = within.mapToGlobal(fromRight ? place.bottomRight() : place.bottomLeft()) + QPoint(0, 1);
        if (fromRight) corner.rx() -= std::max(place.width(), menu.sizeHint().width()) - 1;
        menu.popup(corner);
        return;
    }
    // The selected item lies over the button.
    QAction& action = selected_->toolkitAction();
    const int lower = (place.height() - menu.actionGeometry(&action).height()) / 2;
    menu.popup(within.mapToGlobal(place.topLeft() + QPoint(0, lower)), &action);
}

NSSize NSPopUpButtonCell::cellSize() const {
    const QSize size = velt::popUpSize(*this, *QApplication::style());
    return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

void NSPopUpButtonCell::describe(velt::ClassBuilder<NSPopUpButtonCell>& c) {
    using Cell = NSPopUpButtonCell;
    c.property("menu", &Cell::menu, &Cell::setMenu)
        .property("pullsDown", &Cell::pullsDown, &Cell::setPullsDown)
        .property("autoenablesItems", &Cell::autoenablesItems, &Cell::setAutoenablesItems)
        .property("altersStateOfSelectedItem", &Cell::altersStateOfSelectedItem, &Cell::setAltersStateOfSelectedItem)
        .property("preferredEdge", &Cell::preferredEdge, &Cell::setPreferredEdge)
        .property("arrowPosition", &Cell::arrowPosition, &Cell::setArrowPosition)
        .method("addItemWithTitle:", &Cell::addItemWithTitle)
        .method("addItemsWithTitles:", &Cell::addItemsWithTitles)
        .method("insertItemWithTitle:atIndex:", &Cell::insertItemWithTitle)
        .method("removeItemWithTitle:", &Cell::removeItemWithTitle)
        .method("removeItemAtIndex:", &Cell::removeItemAtIndex)
        .method("removeAllItems", &Cell::removeAllItems)
        .property("itemArray", &Cell::itemArray)
        .property("itemTitles", &Cell::itemTitles)
        .property("numberOfItems", &Cell::numberOfItems)
        .method("itemAtIndex:", &Cell::itemAtIndex)
        .method("itemTitleAtIndex:", &Cell::itemTitleAtIndex)
        .method("itemWithTitle:", &Cell::itemWithTitle)
        .property("lastItem", &Cell::lastItem)
        .method("indexOfItem:", &Cell::indexOfItem)
        .method("indexOfItemWithTitle:", &Cell::indexOfItemWithTitle)
        .method("indexOfItemWithTag:", &Cell::indexOfItemWithTag)
        .method("indexOfItemWithRepresentedObject:", &Cell::indexOfItemWithRepresentedObject)
        .property("selectedItem", &Cell::selectedItem)
        .property("indexOfSelectedItem", &Cell::indexOfSelectedItem)
        .property("titleOfSelectedItem", &Cell::titleOfSelectedItem)
        .property("selectedTag", &Cell::selectedTag)
        .method("selectItem:", &Cell::selectItem)
        .method("selectItemAtIndex:", &Cell::selectItemAtIndex)
        .method("selectItemWithTitle:", &Cell::selectItemWithTitle)
        .method("selectItemWithTag:", &Cell::selectItemWithTag)
        .method("synchronizeTitleAndSelectedItem", &Cell::synchronizeTitleAndSelectedItem)
        .owns(&Cell::menu_)
        .owns(&Cell::selected_)
        .owns(&Cell::marked_);
}
