#include "VELTRuntime/platform/appkit/containers/tab_view.h"

#include "VELTRuntime/platform/appkit/containers/frame_drawing.h"
#include "VELTRuntime/platform/appkit/containers/scroll_view.h"
#include "VELTRuntime/platform/appkit/containers/tab_bar.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/drop_elements.h"
#include "VELTRuntime/platform/object/exception.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionTabWidgetFrame>
#include <algorithm>
#include <cmath>

using velt::Ref;

NSTabView::~NSTabView() { NSTabView::dissolve(); }

void NSTabView::dissolve() {
    for (const Ref<NSTabViewItem>& item : items_) {
        if (item) item->setTabView(nullptr);
    }
    velt::dropAll(items_);
    selected_ = nullptr;
    NSView::dissolve();
}

void NSTabView::visitOwned(velt::OwnedVisitor& visitor) {
    for (Ref<NSTabViewItem>& item : items_) visitor.visit(item);
    NSView::visitOwned(visitor);
}

// The items.

id NSTabView::tabViewItems() const {
    Ref<NSMutableArray> items = velt::make<NSMutableArray>();
    for (const Ref<NSTabViewItem>& item : items_) items->append(item);
    return items;
}

id NSTabView::tabViewItemAtIndex(long index) const {
    if (index < 0 || index >= numberOfTabViewItems()) {
        velt::raiseRange("'" + isa().name() + "' tabViewItemAtIndex:", index, items_.size());
    }
    return items_[static_cast<std::size_t>(index)];
}

long NSTabView::indexOfTabViewItem(const id& item) const {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        if (id(items_[i]) == item) return static_cast<long>(i);
    }
    return -1;
}

long NSTabView::indexOfTabViewItemWithIdentifier(const id& identifier) const {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const id own = items_[i]->identifier();
        if (own == identifier || velt::isEqual(own, identifier)) return static_cast<long>(i);
    }
    return -1;
}

void NSTabView::addTabViewItem(NSTabViewItem* item) { insertTabViewItem(item, numberOfTabViewItems()); }

void NSTabView::insertTabViewItem(NSTabViewItem* item, long index) {
    if (index < 0 || index > numberOfTabViewItems()) {
        velt::raiseRange("'" + isa().name() + "' insertTabViewItem:atIndex:", index, items_.size() + 1);
    }
    if (!item || item->tabViewPointer() == this) return;
    const Ref<NSTabViewItem> kept(item);
    if (NSTabView* before = item->tabViewPointer()) before->removeTabViewItem(item);
    // The other one's delegate may have changed this one too.
    items_.insert(items_.begin() + std::min(index, numberOfTabViewItems()), kept);
    item->setTabView(this);
    if (!selected_) show(item);
    changed();
    tellCount();
}

void NSTabView::removeTabViewItem(NSTabViewItem* item) {
    const long index = indexOfTabViewItem(id(static_cast<NSObject*>(item)));
    if (index < 0) return;
    const Ref<NSTabViewItem> kept(item);
    items_.erase(items_.begin() + index);
    item->setTabView(nullptr);
    if (selected_.get() == item) {
        const long next = std::min(index, numberOfTabViewItems() - 1);
        show(next >= 0 ? items_[static_cast<std::size_t>(next)].get() : nullptr);
    }
    changed();
    tellCount();
}

void NSTabView::tellCount() {
    const velt::Selector told = velt::Selector::named("tabViewDidChangeNumberOfTabViewItems:");
    if (velt::respondsTo(delegate_, told)) velt::send(delegate_, told, id(static_cast<NSObject*>(this)));
}

void NSTabView::itemChanged(NSTabViewItem& item) {
    if (selected_.get() == &item) show(&item);
    changed();
}

// Selecting.

bool NSTabView::allows(const id& item) {
    const velt::Selector asks = velt::Selector::named("tabView:shouldSelectTabViewItem:");
    return !velt::respondsTo(delegate_, asks) ||
           VELT_CBOOL(velt::send(delegate_, asks, id(static_cast<NSObject*>(this)), item));
}

/// Puts an item's view in the place of the one that was shown.
void NSTabView::show(NSTabViewItem* item) {
    const Ref<NSTabViewItem> before = selected_, now(item);
    selected_ = now;
    NSView* view = item ? item->viewPointer() : nullptr;
    if (before && before->viewPointer() && before->viewPointer() != view &&
        before->viewPointer()->superviewPointer() == this) {
        before->viewPointer()->removeFromSuperview();
    }
    if (!view) return;
    view->setFrame(contentRect());
    if (view->superviewPointer() != this) addSubview(view);
}

void NSTabView::selectTabViewItem(NSTabViewItem* item) {
    const id wanted = id(static_cast<NSObject*>(item));
    if (indexOfTabViewItem(wanted) < 0 || wanted == id(selected_) || !allows(wanted)) return;
    const id self = id(static_cast<NSObject*>(this));
    const auto tell = [&](const char* name) {
        const velt::Selector told = velt::Selector::named(name);
        if (velt::respondsTo(delegate_, told)) velt::send(delegate_, told, self, wanted);
    };
    const Ref<NSWindow> window(windowPointer());
    const id responder = window ? window->firstResponder() : nil;
    const bool wasWithin = selected_ && velt::is<NSView>(responder) && selected_->viewPointer() &&
                           velt::as<NSView>(responder)->isDescendantOf(selected_->viewPointer());
    tell("tabView:willSelectTabViewItem:");
    if (indexOfTabViewItem(wanted) < 0) return;  // the delegate took it out
    show(item);
    changed();
    // The keyboard does not stay with what is no longer seen.
    if (wasWithin && window) {
        const id initial = item->initialFirstResponder();
        if (initial.isNil() || !window->makeFirstResponder(initial)) window->makeFirstResponder(self);
    }
    tell("tabView:didSelectTabViewItem:");
}

void NSTabView::selectTabViewItemAtIndex(long index) {
    if (index < 0 || index >= numberOfTabViewItems()) {
        velt::raiseRange("'" + isa().name() + "' selectTabViewItemAtIndex:", index, items_.size());
    }
    selectTabViewItem(items_[static_cast<std::size_t>(index)].get());
}
void NSTabView::selectTabViewItemWithIdentifier(const id& identifier) {
    const long index = indexOfTabViewItemWithIdentifier(identifier);
    if (index < 0) {
        velt::raiseRange("'" + isa().name() + "' selectTabViewItemWithIdentifier:", index, items_.size());
    }
    selectTabViewItemAtIndex(index);
}
void NSTabView::step(long by) {
    const long index = indexOfTabViewItem(selected_) + by;
    if (index >= 0 && index < numberOfTabViewItems()) selectTabViewItemAtIndex(index);
}
void NSTabView::selectNextTabViewItem(const id&) { step(1); }
void NSTabView::selectPreviousTabViewItem(const id&) { step(-1); }
void NSTabView::selectFirstTabViewItem(const id&) {
    if (!items_.empty()) selectTabViewItemAtIndex(0);
}
void NSTabView::selectLastTabViewItem(const id&) {
    if (!items_.empty()) selectTabViewItemAtIndex(numberOfTabViewItems() - 1);
}

void NSTabView::chosen(int index) {
    if (syncing_ || index < 0 || index >= numberOfTabViewItems()) return;
    velt::runReported([&] {
        const Ref<NSTabView> kept(this);
        selectTabViewItemAtIndex(index);
        changed();  // back, when the delegate refused
    });
}

bool NSTabView::performKeyEquivalent(NSEvent* event) {
    if (!event || items_.size() < 2 || !(event->modifierFlags() & NSEvent::kCommand)) return false;
    const id characters = event->charactersIgnoringModifiers();
    if (!velt::isString(characters) || velt::textOf(characters).empty()) return false;
    // Among nested tab views the innermost that holds the keyboard takes it: subviews are asked first.
    const id responder = windowPointer() ? windowPointer()->firstResponder() : nil;
    if (!velt::is<NSView>(responder) || !velt::as<NSView>(responder)->isDescendantOf(this)) return false;
    const char16_t key = velt::textOf(characters).front();
    constexpr char16_t kTab = 0x09, kBackTab = 0x19;
    const auto count = numberOfTabViewItems(), now = indexOfTabViewItem(selected_);
    if (key == kTab || key == velt::functionUnit(Qt::Key_PageDown)) {
        selectTabViewItemAtIndex((now + 1) % count);
    } else if (key == kBackTab || key == velt::functionUnit(Qt::Key_PageUp)) {
        selectTabViewItemAtIndex((now + count - 1) % count);
    } else {
        return false;
    }
    return true;
}

void NSTabView::keyDown(NSEvent* event) {
    if (!performKeyEquivalent(event)) passOn(VELT_SELECTOR("keyDown:"), id(static_cast<NSObject*>(event)));
}

// Looks.

void NSTabView::setTabViewType(unsigned long type) {
    type_ = type;
    changed();
    if (selected_) show(selected_.get());
}
void NSTabView::setFont(const id& font) {
    font_ = font;
    changed();
    if (selected_) show(selected_.get());
}
void NSTabView::setDrawsBackground(bool flag) {
    drawsBackground_ = flag;
    changed();
}

bool NSTabView::acceptsFirstResponder() const { return hasTabs() && !items_.empty(); }

QTabBar* NSTabView::bar() const {
    QWidget* shown = existingWidget();
    if (!shown) return nullptr;
    for (QObject* child : shown->children()) {
        if (auto* bar = dynamic_cast<velt::TabBar*>(child)) return bar;
    }
    return nullptr;
}

std::unique_ptr<QWidget> NSTabView::makeWidget() {
    std::unique_ptr<QWidget> made = NSView::makeWidget();
    QWidget* shown = made.get();
    auto* bar = new velt::TabBar(shown);
    QObject::connect(bar, &QTabBar::currentChanged, shown, [shown](int index) {
        if (NSView* view = velt::viewOf(shown)) static_cast<NSTabView*>(view)->chosen(index);
    });
    shown->setFocusProxy(bar);
    return made;
}

namespace {

QTabBar::Shape shapeOf(unsigned long type) {
    switch (type) {
    case velt::kLeftTabs: return QTabBar::RoundedWest;
    case velt::kBottomTabs: return QTabBar::RoundedSouth;
    case velt::kRightTabs: return QTabBar::RoundedEast;
    default: return QTabBar::RoundedNorth;
    }
}

}  // namespace

void NSTabView::syncWidget(QWidget& widget) {
    NSView::syncWidget(widget);
    widget.setFocusPolicy(Qt::NoFocus);  // the tabs have it
    QTabBar* tabs = bar();
    if (!tabs) return;
    syncing_ = true;
    tabs->setShape(shapeOf(type_));
    tabs->setFont(velt::is<NSFont>(font_) ? velt::as<NSFont>(font_)->font() : QFont());
    while (tabs->count() > numberOfTabViewItems()) tabs->removeTab(tabs->count() - 1);
    for (int i = 0; i < numberOfTabViewItems(); ++i) {
        const NSTabViewItem& item = *items_[static_cast<std::size_t>(i)];
        // An ampersand is a letter of the label, not the mark of a key.
        const QString label = velt::qtText(item.label()).replace(QLatin1Char('&'), QLatin1String("&&"));
        if (i >= tabs->count()) tabs->addTab(label);
        if (tabs->tabText(i) != label) tabs->setTabText(i, label);
        tabs->setTabToolTip(i, velt::qtText(item.toolTip()));
    }
    tabs->setCurrentIndex(static_cast<int>(indexOfTabViewItem(selected_)));
    syncing_ = false;
    tabs->setVisible(hasTabs());
    const int width = static_cast<int>(std::lround(frame().size.width)),
              height = static_cast<int>(std::lround(frame().size.height));
    const QSize wanted = tabs->sizeHint();
    switch (type_) {
    case velt::kLeftTabs: tabs->setGeometry(0, 0, wanted.width(), height); break;
    case velt::kRightTabs: tabs->setGeometry(width - wanted.width(), 0, wanted.width(), height); break;
    case velt::kBottomTabs: tabs->setGeometry(0, height - wanted.height(), width, wanted.height()); break;
    default: tabs->setGeometry(0, 0, width, wanted.height()); break;
    }
}

/// The frame of the pages, in the view's own coordinates.
NSRect NSTabView::paneRect() const {
    NSRect rect{{0, 0}, frame().size};
    if (!hasTabs()) return rect;
    const_cast<NSTabView*>(this)->widget();
    const QSize tabs = bar()->sizeHint();
    // The selected tab and the frame share their edge.
    const int overlap = bar()->style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, bar());
    const double high = std::max(tabs.height() - overlap, 0), wide = std::max(tabs.width() - overlap, 0);
    switch (type_) {
    case velt::kLeftTabs: rect = {{wide, 0}, {rect.size.width - wide, rect.size.height}}; break;
    case velt::kRightTabs: rect.size.width -= wide; break;
    case velt::kBottomTabs: rect = {{0, high}, {rect.size.width, rect.size.height - high}}; break;
    default: rect.size.height -= high; break;
    }
    rect.size = {std::max(rect.size.width, 0.0), std::max(rect.size.height, 0.0)};
    return rect;
}

NSRect NSTabView::contentRect() const {
    NSRect rect = paneRect();
    const double border = type_ == velt::kNoTabsNoBorder     ? 0
                          : type_ == velt::kNoTabsLineBorder ? 1
                                                             : velt::frameWidth(velt::kBezelBorder);
    rect.origin = {rect.origin.x + border, rect.origin.y + border};
    rect.size = {std::max(rect.size.width - 2 * border, 0.0), std::max(rect.size.height - 2 * border, 0.0)};
    return rect;
}

void NSTabView::sizeChanged(NSSize before) {
    NSView::sizeChanged(before);
    if (selected_) show(selected_.get());
    changed();
}

void NSTabView::drawRect(NSRect) {
    velt::GraphicsContext* context = velt::GraphicsContext::current();
    if (!context || type_ == velt::kNoTabsNoBorder) return;
    const NSRect pane = paneRect();
    const QRectF inWidget(pane.origin.x, frame().size.height - pane.origin.y - pane.size.height, pane.size.width,
                          pane.size.height);
    const velt::WidgetCoordinates scope(context->painter(), *this);
    if (type_ == velt::kNoTabsLineBorder) {
        velt::drawFrame(context->painter(), *this, velt::kLineBorder, inWidget);
        return;
    }
    QWidget& shown = widget();
    QStyleOptionTabWidgetFrame option;
    option.initFrom(&shown);
    option.shape = shapeOf(type_);
    option.lineWidth = shown.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &shown);
    option.rect = inWidget.toRect();
    if (hasTabs()) {
        option.tabBarSize = bar()->size();
        option.tabBarRect = bar()->geometry();
        if (bar()->currentIndex() >= 0) {
            option.selectedTabRect = bar()->tabRect(bar()->currentIndex()).translated(bar()->pos());
        }
    }
    shown.style()->drawPrimitive(QStyle::PE_FrameTabWidget, &option, &context->painter(), &shown);
}

void NSTabView::describe(velt::ClassBuilder<NSTabView>& c) {
    c.property("tabViewItems", &NSTabView::tabViewItems)
        .property("numberOfTabViewItems", &NSTabView::numberOfTabViewItems)
        .property("selectedTabViewItem", &NSTabView::selectedTabViewItem)
        .property("tabViewType", &NSTabView::tabViewType, &NSTabView::setTabViewType)
        .property("delegate", &NSTabView::delegate, &NSTabView::setDelegate)
        .property("font", &NSTabView::font, &NSTabView::setFont)
        .property("drawsBackground", &NSTabView::drawsBackground, &NSTabView::setDrawsBackground)
        .property("contentRect", &NSTabView::contentRect)
        .method("tabViewItemAtIndex:", &NSTabView::tabViewItemAtIndex)
        .method("indexOfTabViewItem:", &NSTabView::indexOfTabViewItem)
        .method("indexOfTabViewItemWithIdentifier:", &NSTabView::indexOfTabViewItemWithIdentifier)
        .method("addTabViewItem:", &NSTabView::addTabViewItem)
        .method("insertTabViewItem:atIndex:", &NSTabView::insertTabViewItem)
        .method("removeTabViewItem:", &NSTabView::removeTabViewItem)
        .method("selectTabViewItem:", &NSTabView::selectTabViewItem)
        .method("selectTabViewItemAtIndex:", &NSTabView::selectTabViewItemAtIndex)
        .method("selectTabViewItemWithIdentifier:", &NSTabView::selectTabViewItemWithIdentifier)
        .method("selectNextTabViewItem:", &NSTabView::selectNextTabViewItem)
        .method("selectPreviousTabViewItem:", &NSTabView::selectPreviousTabViewItem)
        .method("selectFirstTabViewItem:", &NSTabView::selectFirstTabViewItem)
        .method("selectLastTabViewItem:", &NSTabView::selectLastTabViewItem)
        .method("performKeyEquivalent:", &NSTabView::performKeyEquivalent)
        .method("keyDown:", &NSTabView::keyDown)
        .owns(&NSTabView::selected_)
        .owns(&NSTabView::delegate_)
        .owns(&NSTabView::font_);
}
