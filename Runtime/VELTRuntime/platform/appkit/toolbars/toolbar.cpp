#include "VELTRuntime/platform/appkit/toolbars/toolbar.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/toolbars/toolbar_widget.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/user_defaults.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/id_of.h"
#include "VELTRuntime/platform/object/setting.h"
#include "VELTRuntime/values/class_casts.h"
#include "VELTRuntime/values/string.h"

#include <QMainWindow>
#include <algorithm>

using velt::Ref;
using velt::ToolbarWidget;

namespace {

// Under what a configuration keeps what.
id displayKey() { return velt::string(u"TB Display Mode"); }
id sizeKey() { return velt::string(u"TB Size Mode"); }
id shownKey() { return velt::string(u"TB Is Shown"); }
id itemsKey() { return velt::string(u"TB Item Identifiers"); }

std::vector<id> textsOf(const id& value) {
    std::vector<id> texts;
    if (!velt::isArray(value)) return texts;
    for (const id& each : velt::arrayOf(value)->items()) {
        if (velt::isString(each)) texts.push_back(velt::copy(each));
    }
    return texts;
}

/// An item's view leaves that window, and the widget that held it.
void letGo(NSView& view, const NSWindow* window) {
    if (view.windowPointer() == window) view.moveToWindow(nullptr);
    QWidget* shown = view.existingWidget();
    if (!shown) return;
    shown->hide();
    shown->setParent(nullptr);
}

bool holds(const std::vector<id>& texts, const id& text) {
    return std::any_of(texts.begin(), texts.end(), [&](const id& each) { return velt::isEqual(each, text); });
}

}  // namespace

NSToolbar::NSToolbar() : NSToolbar(nil) {}

NSToolbar::NSToolbar(const id& identifier)
    : identifier_(identifier.isNil() ? velt::string(std::u16string_view()) : velt::copy(VELT_CSTRING(identifier))) {}

NSToolbar::~NSToolbar() { NSToolbar::dissolve(); }

void NSToolbar::dissolve() {
    for (const Ref<NSToolbarItem>& item : items_) {
        if (item && item->toolbar_ == this) item->toolbar_ = nullptr;
    }
    windowGone();
    NSObject::dissolve();
}

void NSToolbar::windowGone() {
    releaseViews();
    if (widget_) {
        widget_->forget();
        widget_->deleteLater();
    }
    widget_ = nullptr;
    window_ = nullptr;
}

void NSToolbar::releaseViews() {
    for (const Ref<NSToolbarItem>& item : items_) {
        NSView* view = item ? item->viewPointer() : nullptr;
        if (view && velt::isMainThread()) letGo(*view, window_);
    }
}

// Properties.

void NSToolbar::setDelegate(const id& delegate) {
    delegate_ = delegate;
    if (window_) load();
}

void NSToolbar::changed() {
    if (widget_ && !changing_) widget_->toolbarChanged();
}
void NSToolbar::itemChanged() { changed(); }
void NSToolbar::itemViewChanged(NSView* before, NSView* view) {
    if (before) letGo(*before, window_);
    if (view) view->moveToWindow(window_);
}
void NSToolbar::itemEnabledChanged(const NSToolbarItem& item) {
    if (widget_) widget_->strip().showEnabled(item);
}

void NSToolbar::setVisible(bool flag) {
    if (visible_ == flag) return;
    visible_ = flag;
    if (!window_ || !widget_) return;
    window_->changeBar([this](QMainWindow&) { widget_->setVisible(visible_); });
    customized();
}

void NSToolbar::setDisplayMode(unsigned long mode) {
    if (mode > static_cast<unsigned long>(velt::ToolbarDisplay::LabelOnly)) return;
    display_ = static_cast<velt::ToolbarDisplay>(mode);
    if (window_ && widget_) window_->changeBar([this](QMainWindow&) { changed(); });
}
void NSToolbar::setSizeMode(unsigned long mode) {
    if (mode > static_cast<unsigned long>(velt::ToolbarSize::Small)) return;
    size_ = static_cast<velt::ToolbarSize>(mode);
    if (window_ && widget_) window_->changeBar([this](QMainWindow&) { changed(); });
}
void NSToolbar::setShowsBaselineSeparator(bool flag) {
    baseline_ = flag;
    changed();
}
void NSToolbar::setSelectedItemIdentifier(const id& identifier) {
    selected_ = identifier.isNil() ? identifier : velt::copy(VELT_CSTRING(identifier));
    changed();
}

// Items.

id NSToolbar::items() const {
    Ref<NSMutableArray> all = velt::make<NSMutableArray>();
    for (const Ref<NSToolbarItem>& item : items_) all->append(item);
    return all;
}

id NSToolbar::visibleItems() const {
    Ref<NSMutableArray> all = velt::make<NSMutableArray>();
    if (!widget_ || !visible_) return all;
    for (const Ref<NSToolbarItem>& item : items_) {
        if (widget_->shows(*item)) all->append(item);
    }
    return all;
}

std::vector<id> NSToolbar::identifiersBy(std::string_view selector) const {
    const velt::Selector asks = velt::Selector::named(selector);
    if (!velt::respondsTo(delegate_, asks)) return {};
    return textsOf(velt::send(delegate_, asks, velt::idOf(this)));
}
std::vector<id> NSToolbar::defaultIdentifiers() const { return identifiersBy("toolbarDefaultItemIdentifiers:"); }
std::vector<id> NSToolbar::allowedIdentifiers() const {
    std::vector<id> allowed = identifiersBy("toolbarAllowedItemIdentifiers:");
    return allowed.empty() ? defaultIdentifiers() : allowed;
}
std::vector<id> NSToolbar::selectableIdentifiers() const { return identifiersBy("toolbarSelectableItemIdentifiers:"); }

Ref<NSToolbarItem> NSToolbar::itemFor(const id& identifier, bool inserted) {
    if (Ref<NSToolbarItem> item = NSToolbarItem::standard(identifier)) return item;
    const velt::Selector asks = velt::Selector::named("toolbar:itemForItemIdentifier:willBeInsertedIntoToolbar:");
    if (!velt::respondsTo(delegate_, asks)) return nullptr;
    const id made = velt::send(delegate_, asks, velt::idOf(this), identifier, VELT_ID(static_cast<BOOL>(inserted)));
    return velt::is<NSToolbarItem>(made) ? Ref<NSToolbarItem>(velt::as<NSToolbarItem>(made)) : nullptr;
}

void NSToolbar::tell(std::string_view selector, std::string_view notification, NSToolbarItem& item) {
    Ref<NSMutableDictionary> info = velt::make<NSMutableDictionary>();
    info->setObject(velt::idOf(&item), velt::string(u"item"));
    velt::tellDelegateAndObservers(delegate_, selector, notification, velt::idOf(this), info);
}

void NSToolbar::append(Ref<NSToolbarItem> item, std::size_t place) {
    tell("toolbarWillAddItem:", "NSToolbarWillAddItemNotification", *item);
    item->toolbar_ = this;
    if (item->viewPointer()) item->viewPointer()->moveToWindow(window_);
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(std::min(place, items_.size())), std::move(item));
}

void NSToolbar::insertItemWithItemIdentifier(const id& value, long index) {
    const Ref<NSToolbar> kept(this);
    const id identifier = VELT_CSTRING(value);
    if (index < 0 || index > static_cast<long>(items_.size())) {
        velt::raiseRange("'" + isa().name() + "' insertItemWithItemIdentifier:atIndex:", index, items_.size() + 1);
    }
    Ref<NSToolbarItem> item = itemFor(identifier, true);
    // An item that is here, or in another toolbar, is not to be in two places.
    if (!item || item->toolbar_) return;
    const bool again = std::any_of(items_.begin(), items_.end(), [&](const Ref<NSToolbarItem>& each) {
        return velt::isEqual(each->itemIdentifier(), item->itemIdentifier());
    });
    if (again && !item->allowsDuplicatesInToolbar()) return;
    append(std::move(item), static_cast<std::size_t>(index));
    changed();
}

void NSToolbar::removeItemAtIndex(long index) {
    const Ref<NSToolbar> kept(this);
    if (index < 0 || index >= static_cast<long>(items_.size())) {
        velt::raiseRange("'" + isa().name() + "' removeItemAtIndex:", index, items_.size());
    }
    const Ref<NSToolbarItem> item = items_[static_cast<std::size_t>(index)];
    items_.erase(items_.begin() + index);
    item->toolbar_ = nullptr;
    if (NSView* view = item->viewPointer()) letGo(*view, window_);
    changed();
    tell("toolbarDidRemoveItem:", "NSToolbarDidRemoveItemNotification", *item);
}

void NSToolbar::moveItem(long from, long to) {
    const auto count = static_cast<long>(items_.size());
    if (from < 0 || from >= count || to < 0 || to >= count || from == to) return;
    const Ref<NSToolbarItem> item = items_[static_cast<std::size_t>(from)];
    items_.erase(items_.begin() + from);
    items_.insert(items_.begin() + to, item);
    changed();
}

void NSToolbar::setIdentifiers(const std::vector<id>& identifiers) {
    const Ref<NSToolbar> kept(this);
    {
        const velt::Setting changing(changing_, true);
        while (!items_.empty()) removeItemAtIndex(static_cast<long>(items_.size()) - 1);
        for (const id& identifier : identifiers) {
            insertItemWithItemIdentifier(identifier, static_cast<long>(items_.size()));
        }
    }
    changed();
}

void NSToolbar::load() {
    if (loaded_ || delegate_.isNil()) return;
    loaded_ = true;
    const id stored = autosaves_ ? NSUserDefaults::standardUserDefaults().objectForKey(defaultsKey()) : id();
    if (velt::dictionaryOf(stored)) {
        setConfigurationFromDictionary(stored);
    } else {
        setIdentifiers(defaultIdentifiers());
    }
}

void NSToolbar::validateVisibleItems() {
    const Ref<NSToolbar> kept(this);
    const std::vector<Ref<NSToolbarItem>> asked = items_;
    for (const Ref<NSToolbarItem>& item : asked) {
        if (item->autovalidates() && widget_ && widget_->shows(*item)) velt::send(item, VELT_SELECTOR("validate"));
    }
}

void NSToolbar::clicked(NSToolbarItem& item) noexcept {
    const Ref<NSToolbar> kept(this);
    const Ref<NSToolbarItem> worked(&item);
    velt::runReported([&] {
        if (!worked->isEnabled()) return;
        if (holds(selectableIdentifiers(), worked->itemIdentifier()))
            setSelectedItemIdentifier(worked->itemIdentifier());
        worked->perform();
    });
}

// Customization.

void NSToolbar::runCustomizationPalette(const id&) {
    if (!widget_ || !visible_ || customizing_) return;
    customizing_ = true;
    widget_->startCustomizing();
}

void NSToolbar::customizationEnded() {
    customizing_ = false;
    customized();
}

void NSToolbar::restoreDefaults() {
    setIdentifiers(defaultIdentifiers());
    customized();
}

id NSToolbar::defaultsKey() const {
    return velt::string(u"NSToolbar Configuration " + std::u16string(velt::textOf(identifier_)));
}

id NSToolbar::configurationDictionary() const {
    Ref<NSMutableArray> identifiers = velt::make<NSMutableArray>();
    for (const Ref<NSToolbarItem>& item : items_) identifiers->append(item->itemIdentifier());
    Ref<NSMutableDictionary> kept = velt::make<NSMutableDictionary>();
    kept->setObject(VELT_ID(static_cast<long>(display_)), displayKey());
    kept->setObject(VELT_ID(static_cast<long>(size_)), sizeKey());
    kept->setObject(VELT_ID(static_cast<BOOL>(visible_)), shownKey());
    kept->setObject(identifiers, itemsKey());
    return kept;
}

void NSToolbar::setConfigurationFromDictionary(const id& value) {
    const NSDictionary* given = velt::dictionaryOf(value);
    if (!given) return;
    const Ref<NSToolbar> kept(this);
    const Ref<NSDictionary> configuration(const_cast<NSDictionary*>(given));
    // It comes from a file: what is of another kind is left out.
    const id display = configuration->objectForKey(displayKey()), size = configuration->objectForKey(sizeKey());
    const id shown = configuration->objectForKey(shownKey()), items = configuration->objectForKey(itemsKey());
    if (velt::isNumber(display)) setDisplayMode(static_cast<unsigned long>(VELT_CINTEGER(display)));
    if (velt::isNumber(size)) setSizeMode(static_cast<unsigned long>(VELT_CINTEGER(size)));
    if (velt::isArray(items)) setIdentifiers(textsOf(items));
    if (velt::isNumber(shown)) setVisible(VELT_CBOOL(shown));
}

void NSToolbar::customized() {
    if (!autosaves_ || !loaded_) return;
    NSUserDefaults::standardUserDefaults().setObject(configurationDictionary(), defaultsKey());
}

// The window.

void NSToolbar::moveToWindow(NSWindow* window) {
    if (window == window_) return;
    const Ref<NSToolbar> kept(this);
    if (NSWindow* before = window_) {
        if (customizing_ && widget_) widget_->endCustomizing();
        releaseViews();
        ToolbarWidget* widget = std::exchange(widget_, nullptr);
        window_ = nullptr;
        if (widget) {
            widget->forget();
            before->changeBar([widget](QMainWindow& shown) { shown.removeToolBar(widget); });
            widget->deleteLater();
        }
    }
    window_ = window;
    if (!window) return;
    for (const Ref<NSToolbarItem>& item : items_) {
        if (item->viewPointer()) item->viewPointer()->moveToWindow(window);
    }
    load();
    window->changeBar([this](QMainWindow& shown) {
        widget_ = new ToolbarWidget(*this);
        shown.addToolBar(Qt::TopToolBarArea, widget_);
        widget_->setVisible(visible_);
        widget_->toolbarChanged();
    });
}

void NSToolbar::visitOwned(velt::OwnedVisitor& visitor) {
    for (Ref<NSToolbarItem>& item : items_) visitor.visit(item);
    NSObject::visitOwned(visitor);
}

void NSToolbar::describe(velt::ClassBuilder<NSToolbar>& c) {
    c.property("identifier", &NSToolbar::identifier)
        .property("delegate", &NSToolbar::delegate, &NSToolbar::setDelegate)
        .flag("visible", &NSToolbar::isVisible, &NSToolbar::setVisible)
        .property("displayMode", &NSToolbar::displayMode, &NSToolbar::setDisplayMode)
        .property("sizeMode", &NSToolbar::sizeMode, &NSToolbar::setSizeMode)
        .property("showsBaselineSeparator", &NSToolbar::showsBaselineSeparator, &NSToolbar::setShowsBaselineSeparator)
        .property("allowsUserCustomization", &NSToolbar::allowsUserCustomization,
                  &NSToolbar::setAllowsUserCustomization)
        .property("autosavesConfiguration", &NSToolbar::autosavesConfiguration, &NSToolbar::setAutosavesConfiguration)
        .property("selectedItemIdentifier", &NSToolbar::selectedItemIdentifier, &NSToolbar::setSelectedItemIdentifier)
        .property("items", &NSToolbar::items)
        .property("visibleItems", &NSToolbar::visibleItems)
        .property("configurationDictionary", &NSToolbar::configurationDictionary)
        .method("setConfigurationFromDictionary:", &NSToolbar::setConfigurationFromDictionary)
        .method("insertItemWithItemIdentifier:atIndex:", &NSToolbar::insertItemWithItemIdentifier)
        .method("removeItemAtIndex:", &NSToolbar::removeItemAtIndex)
        .method("validateVisibleItems", &NSToolbar::validateVisibleItems)
        .method("Show",
                [](const id& self, const id*) {
                    velt::as<NSToolbar>(self)->setVisible(true);
                    return id();
                })
        .method("runCustomizationPalette:", &NSToolbar::runCustomizationPalette)
        .method("customizationPaletteIsRunning", &NSToolbar::customizationPaletteIsRunning)
        .owns(&NSToolbar::identifier_)
        .owns(&NSToolbar::delegate_)
        .owns(&NSToolbar::selected_);
}
