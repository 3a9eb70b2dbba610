#include "VELTRuntime/platform/appkit/menus/menu.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/kept_text.h"
#include "VELTRuntime/platform/appkit/menus/context_menu.h"
#include "VELTRuntime/platform/appkit/menus/key_equivalents.h"
#include "VELTRuntime/platform/appkit/menus/menu_widget.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/exception.h"

#include <QPointer>
#include <algorithm>

using velt::MenuWidget;
using velt::Ref;

struct velt::MenuHosts {
    std::vector<QPointer<QWidget>> widgets;
};

NSMenu::NSMenu() : NSMenu(nil) {}
NSMenu::NSMenu(const id& title) : title_(velt::textOrEmpty(title)), hosts_(std::make_unique<velt::MenuHosts>()) {}

NSMenu::~NSMenu() {
    NSMenu::dissolve();
    if (!widget_) return;
    static_cast<MenuWidget*>(widget_)->forget();
    if (velt::isMainThread()) widget_->hide();
    widget_->deleteLater();
}

void NSMenu::dissolve() {
    for (const Ref<NSMenuItem>& item : items_) {
        if (item) item->menu_ = nullptr;
    }
    NSObject::dissolve();
}

id NSMenu::copy() const {
    Ref<NSMenu> made = velt::make<NSMenu>(title_);
    made->autoenables_ = autoenables_;
    made->delegate_ = delegate_;
    for (const Ref<NSMenuItem>& item : items_) made->addItem(velt::as<NSMenuItem>(item->copy()));
    return made;
}

id NSMenu::description() const { return velt::string("<" + isa().name() + " " + velt::utf8(title_) + ">"); }

void NSMenu::setTitle(const id& title) {
    title_ = velt::textOrEmpty(title);
    if (widget_) widget_->setTitle(velt::qtText(title_));
    if (parentItem_) parentItem_->sync();
}

void NSMenu::setAutoenablesItems(bool flag) {
    autoenables_ = flag;
    for (const Ref<NSMenuItem>& item : items_) item->sync();
}

// Items.

std::size_t NSMenu::checkedIndex(const char* operation, long index, std::size_t count) const {
    if (index < 0 || static_cast<std::size_t>(index) >= count) {
        velt::raiseRange("'" + isa().name() + "' " + operation, index, count);
    }
    return static_cast<std::size_t>(index);
}

id NSMenu::itemArray() const {
    Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    list->reserve(items_.size());
    for (const Ref<NSMenuItem>& item : items_) list->append(item);
    return list;
}

void NSMenu::insertItem(NSMenuItem* item, long index) {
    if (!item)
        velt::raise(velt::kInvalidArgumentException, "'" + isa().name() + "' insertItem:atIndex:: the item is nil");
    const std::size_t place = checkedIndex("insertItem:atIndex:", index, items_.size() + 1);
    if (item->menu_) {
        velt::raise(velt::kInvalidArgumentException,
                    "'" + isa().name() + "' insertItem:atIndex:: the item is in a menu already");
    }
    if (item->submenu_ && item->submenu_->contains(this)) {
        velt::raise(velt::kInvalidArgumentException,
                    "'" + isa().name() + "' insertItem:atIndex:: the menu lies in that item's submenu");
    }
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(place), Ref<NSMenuItem>(item));
    item->menu_ = this;
    std::erase_if(hosts_->widgets, [](const QPointer<QWidget>& host) { return host.isNull(); });
    if (!hosts_->widgets.empty()) {
        QAction& shown = item->toolkitAction();
        QAction* next = place + 1 < items_.size() ? items_[place + 1]->existingAction() : nullptr;
        for (const QPointer<QWidget>& host : hosts_->widgets) host->insertAction(next, &shown);
    }
    item->sync();
    if (firstIsTitle_ && place == 0 && items_.size() > 1) items_[1]->sync();  // it was the title
    if (owner_) owner_->itemsChanged();
}

id NSMenu::insertItemWithTitle(const id& title, const id& action, const id& key, long index) {
    Ref<NSMenuItem> item = velt::make<NSMenuItem>(title);
    item->setActionName(action);
    item->setKeyEquivalent(key);
    insertItem(item.get(), index);
    return item;
}
id NSMenu::addItemWithTitle(const id& title, const id& action, const id& key) {
    return insertItemWithTitle(title, action, key, numberOfItems());
}

void NSMenu::removeItemAtIndex(long index) {
    const std::size_t place = checkedIndex("removeItemAtIndex:", index, items_.size());
    const Ref<NSMenuItem> item = items_[place];
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(place));
    item->menu_ = nullptr;
    if (QAction* shown = item->existingAction()) {
        for (const QPointer<QWidget>& host : hosts_->widgets) {
            if (host) host->removeAction(shown);
        }
    }
    if (firstIsTitle_ && !items_.empty()) items_.front()->sync();
    if (owner_) owner_->itemsChanged();
}

void NSMenu::removeItem(NSMenuItem* item) {
    const long index = item ? indexOfItem(id(static_cast<NSObject*>(item))) : -1;
    if (index < 0) {
        velt::raise(velt::kInvalidArgumentException, "'" + isa().name() + "' removeItem:: the item is not in the menu");
    }
    removeItemAtIndex(index);
}

void NSMenu::removeAllItems() {
    while (!items_.empty()) removeItemAtIndex(numberOfItems() - 1);
}

id NSMenu::itemAtIndex(long index) const { return items_[checkedIndex("itemAtIndex:", index, items_.size())]; }

namespace {

template <class Test> long indexWhere(const std::vector<Ref<NSMenuItem>>& items, Test&& test) {
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const Ref<NSMenuItem>& item) { return test(*item); });
    return found == items.end() ? -1 : static_cast<long>(found - items.begin());
}

}  // namespace

long NSMenu::indexOfItem(const id& wanted) const {
    return indexWhere(items_, [&](NSMenuItem& item) { return &item == wanted.object(); });
}
long NSMenu::indexOfItemWithTag(long tag) const {
    return indexWhere(items_, [&](const NSMenuItem& item) { return item.tag() == tag; });
}
long NSMenu::indexOfItemWithTitle(const id& title) const {
    return indexWhere(
        items_, [&](const NSMenuItem& item) { return !item.isSeparatorItem() && velt::isEqual(item.title(), title); });
}
long NSMenu::indexOfItemWithRepresentedObject(const id& object) const {
    return indexWhere(items_, [&](const NSMenuItem& item) {
        const id own = item.representedObject();
        return own.isNil() ? object.isNil() : velt::isEqual(own, object);
    });
}
long NSMenu::indexOfItemWithSubmenu(const id& menu) const {
    return indexWhere(items_, [&](const NSMenuItem& item) { return item.submenu() == menu; });
}

void NSMenu::setSubmenuForItem(NSMenu* menu, NSMenuItem* item) {
    if (item) item->setSubmenu(menu);
}

id NSMenu::supermenu() const { return parentItem_ ? parentItem_->menu() : nil; }

bool NSMenu::contains(const NSMenu* menu) const {
    for (; menu; menu = menu->parentItem_ ? menu->parentItem_->menu_ : nullptr) {
        if (menu == this) return true;
    }
    return false;
}

// Work.

void NSMenu::update() {
    if (!autoenables_) return;
    const std::vector<Ref<NSMenuItem>> items = items_;  // who is asked may change the menu
    for (const Ref<NSMenuItem>& item : items) item->validate();
}

void NSMenu::performActionForItemAtIndex(long index) {
    const Ref<NSMenuItem> item = items_[checkedIndex("performActionForItemAtIndex:", index, items_.size())];
    item->perform();
}

bool NSMenu::performKeyEquivalent(NSEvent* event) {
    if (!event || event->eventType() != NSEvent::Type::KeyDown) return false;
    const QKeySequence pressed = velt::shortcutOf(event->charactersIgnoringModifiers(), event->modifierFlags());
    if (pressed.isEmpty()) return false;
    const std::vector<Ref<NSMenuItem>> items = items_;
    for (const Ref<NSMenuItem>& item : items) {
        if (item->submenu_ && item->enabled_ && !item->hidden_ && item->submenu_->performKeyEquivalent(event))
            return true;
        if (item->submenu_ || item->separator_ || item->hidden_) continue;
        if (velt::shortcutOf(item->keyEquivalent(), item->keyEquivalentModifierMask()) != pressed) continue;
        item->validate();
        if (!item->isEnabled()) continue;
        item->perform();
        return true;
    }
    return false;
}

id NSMenu::highlightedItem() const {
    const long index = indexWhere(items_, [](const NSMenuItem& item) { return item.isHighlighted(); });
    return itemOrNil(index);
}

void NSMenu::cancelTracking() {
    if (widget_) widget_->close();
}

bool NSMenu::popUpPositioningItem(const id& item, NSPoint location, NSView* view) {
    const Ref<NSMenu> kept(this);
    QAction* at = indexOfItem(item) >= 0 ? &velt::as<NSMenuItem>(item)->toolkitAction() : nullptr;
    return widget().exec(velt::globalPoint(location, view), at) != nullptr;
}

void NSMenu::popUpContextMenu(NSMenu* menu, NSEvent* event, NSView* view) {
    if (!menu || !event) return;
    const Ref<NSMenu> kept(menu);
    const NSPoint base = event->locationInWindow();
    menu->popUpPositioningItem(nil, view ? view->convertPointFromView(base, nullptr) : base, view);
}

void NSMenu::tellDelegate(const char* name) {
    const velt::Selector selector = velt::Selector::named(name);
    if (velt::respondsTo(delegate_, selector)) velt::send(delegate_, selector, id(static_cast<NSObject*>(this)));
}

void NSMenu::willOpen() {
    tellDelegate("menuNeedsUpdate:");
    open_ = true;
    update();
    tellDelegate("menuWillOpen:");
}

void NSMenu::didClose() {
    open_ = false;
    tellDelegate("menuDidClose:");
    // What the toolkit is about to send may be a choice: the keys are let free again when it is over.
    if (!autoenables_) return;
    QMetaObject::invokeMethod(
        widget_,
        [widget = QPointer<QMenu>(widget_), kept = Ref<NSMenu>(this)] {
            if (!widget || kept->open_) return;
            for (const Ref<NSMenuItem>& item : kept->items_) item->sync();
        },
        Qt::QueuedConnection);
}

// The toolkit's.

QMenu& NSMenu::widget() {
    if (widget_) return *widget_;
    velt::requireApplicationObject("a menu");
    widget_ = new MenuWidget(*this);
    widget_->setTitle(velt::qtText(title_));
    addHost(*widget_);
    return *widget_;
}

void NSMenu::addHost(QWidget& host) {
    if (isHostedBy(host)) return;
    hosts_->widgets.emplace_back(&host);
    for (const Ref<NSMenuItem>& item : items_) host.addAction(&item->toolkitAction());
}

void NSMenu::removeHosts() {
    for (const QPointer<QWidget>& host : std::exchange(hosts_->widgets, {})) {
        if (host == widget_ && widget_) {
            hosts_->widgets.push_back(host);
        } else if (host) {
            for (const Ref<NSMenuItem>& item : items_) host->removeAction(&item->toolkitAction());
        }
    }
}

bool NSMenu::isHostedBy(const QWidget& host) const {
    return std::any_of(hosts_->widgets.begin(), hosts_->widgets.end(),
                       [&](const QPointer<QWidget>& widget) { return widget == &host; });
}

void NSMenu::setFirstIsTitle(bool flag) {
    firstIsTitle_ = flag;
    if (!items_.empty()) items_.front()->sync();
}
bool NSMenu::isTitle(const NSMenuItem& item) const {
    return firstIsTitle_ && !items_.empty() && items_.front().get() == &item;
}

void NSMenu::itemChanged(NSMenuItem&) {
    if (owner_) owner_->itemsChanged();
}

void NSMenu::visitOwned(velt::OwnedVisitor& visitor) {
    for (Ref<NSMenuItem>& item : items_) visitor.visit(item);
    NSObject::visitOwned(visitor);
}

void NSMenu::describe(velt::ClassBuilder<NSMenu>& c) {
    c.property("title", &NSMenu::title, &NSMenu::setTitle)
        .property("delegate", &NSMenu::delegate, &NSMenu::setDelegate)
        .property("autoenablesItems", &NSMenu::autoenablesItems, &NSMenu::setAutoenablesItems)
        .property("itemArray", &NSMenu::itemArray)
        .property("numberOfItems", &NSMenu::numberOfItems)
        .method("addItem:", &NSMenu::addItem)
        .method("insertItem:atIndex:", &NSMenu::insertItem)
        .method("addItemWithTitle:action:keyEquivalent:", &NSMenu::addItemWithTitle)
        .method("insertItemWithTitle:action:keyEquivalent:atIndex:", &NSMenu::insertItemWithTitle)
        .method("removeItem:", &NSMenu::removeItem)
        .method("removeItemAtIndex:", &NSMenu::removeItemAtIndex)
        .method("removeAllItems", &NSMenu::removeAllItems)
        .method("itemAtIndex:", &NSMenu::itemAtIndex)
        .method("itemWithTag:", &NSMenu::itemWithTag)
        .method("itemWithTitle:", &NSMenu::itemWithTitle)
        .method("indexOfItem:", &NSMenu::indexOfItem)
        .method("indexOfItemWithTag:", &NSMenu::indexOfItemWithTag)
        .method("indexOfItemWithTitle:", &NSMenu::indexOfItemWithTitle)
        .method("indexOfItemWithRepresentedObject:", &NSMenu::indexOfItemWithRepresentedObject)
        .method("indexOfItemWithSubmenu:", &NSMenu::indexOfItemWithSubmenu)
        .method("setSubmenu:forItem:", &NSMenu::setSubmenuForItem)
        .property("supermenu", &NSMenu::supermenu)
        .method("update", &NSMenu::update)
        .method("performActionForItemAtIndex:", &NSMenu::performActionForItemAtIndex)
        .method("performKeyEquivalent:", &NSMenu::performKeyEquivalent)
        .property("highlightedItem", &NSMenu::highlightedItem)
        .method("cancelTracking", &NSMenu::cancelTracking)
        .method("popUpMenuPositioningItem:atLocation:inView:", &NSMenu::popUpPositioningItem)
        .classMethod("popUpContextMenu:withEvent:forView:",
                     [](const id&, const id* a) {
                         popUpContextMenu(velt::to<NSMenu>(a[0]), velt::to<NSEvent>(a[1]), velt::to<NSView>(a[2]));
                         return id();
                     })
        .owns(&NSMenu::title_)
        .owns(&NSMenu::delegate_);
}
