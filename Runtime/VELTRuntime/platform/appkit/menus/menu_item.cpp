#include "VELTRuntime/platform/appkit/menus/menu_item.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/kept_text.h"
#include "VELTRuntime/platform/appkit/menus/key_equivalents.h"
#include "VELTRuntime/platform/appkit/menus/menu.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/object/exception.h"

#include <QAction>
#include <QApplication>
#include <QIcon>
#include <QMenu>
#include <QPainter>
#include <algorithm>

using velt::Ref;

namespace {

/// A title as the toolkit takes it: its own signs for mnemonics and shortcuts are text here.
QString shownTitle(const NSMenuItem& item) {
    QString title = velt::qtText(item.title());
    if (title.isEmpty() && item.hasSubmenu()) title = velt::qtText(item.submenuPointer()->title());
    title.replace(u'&', QStringLiteral("&&"));
    for (const QChar unit : {QChar(u'\t'), QChar(u'\n'), QChar(u'\r')}) title.replace(unit, u' ');
    constexpr int kSpacesPerLevel = 3;
    return QString(static_cast<qsizetype>(item.indentationLevel() * kSpacesPerLevel), u' ') + title;
}

/// The dash of what is partly on, over the item's own image where it has one.
QPixmap mixedMark(const QImage& below) {
    constexpr int kExtent = 16;
    const double ratio = qApp->devicePixelRatio();
    QPixmap mark(QSize(kExtent, kExtent) * ratio);
    mark.setDevicePixelRatio(ratio);
    mark.fill(Qt::transparent);
    QPainter painter(&mark);
    if (!below.isNull()) painter.drawImage(QRect(0, 0, kExtent, kExtent), below);
    const QColor color =
        QApplication::palette("QMenu").color(below.isNull() ? QPalette::WindowText : QPalette::Highlight);
    painter.fillRect(QRectF(3, below.isNull() ? 7 : 13, 10, 2), color);
    return mark;
}

QIcon iconOf(const NSMenuItem& item) {
    const id image = item.image();
    const QImage picture = velt::is<NSImage>(image) ? velt::as<NSImage>(image)->picture() : QImage();
    if (item.state() < 0) return QIcon(mixedMark(picture));
    return picture.isNull() ? QIcon() : QIcon(QPixmap::fromImage(picture));
}

}  // namespace

NSMenuItem::NSMenuItem() : NSMenuItem(nil) {}

NSMenuItem::NSMenuItem(const id& title)
    : title_(velt::textOrEmpty(title)), keyEquivalent_(velt::string(std::u16string_view())),
      keyMask_(NSEvent::kCommand) {}

NSMenuItem::~NSMenuItem() {
    NSMenuItem::dissolve();
    if (!shown_) return;
    shown_->disconnect();
    shown_->deleteLater();  // it may be the one whose choice is under way
}

void NSMenuItem::dissolve() {
    menu_ = nullptr;
    if (submenu_) submenu_->parentItem_ = nullptr;
    NSObject::dissolve();
}

Ref<NSMenuItem> NSMenuItem::separatorItem() {
    Ref<NSMenuItem> item = velt::make<NSMenuItem>();
    item->separator_ = true;
    item->enabled_ = false;
    return item;
}

id NSMenuItem::copy() const {
    Ref<NSMenuItem> made = velt::make<NSMenuItem>(title_);
    made->attributedTitle_ = attributedTitle_;
    made->image_ = image_;
    made->toolTip_ = toolTip_;
    made->keyEquivalent_ = keyEquivalent_;
    made->keyMask_ = keyMask_;
    made->representedObject_ = representedObject_;
    made->target_ = target_;
    made->action_ = action_;
    made->tag_ = tag_;
    made->state_ = state_;
    made->indentation_ = indentation_;
    made->hidden_ = hidden_;
    made->enabled_ = enabled_;
    made->separator_ = separator_;
    made->alternate_ = alternate_;
    if (submenu_) made->setSubmenu(velt::as<NSMenu>(submenu_->copy()));
    return made;
}

id NSMenuItem::description() const {
    return velt::string("<" + isa().name() + " " + (separator_ ? "-" : velt::utf8(title_)) + ">");
}

// What it shows.

void NSMenuItem::setTitle(const id& title) {
    title_ = velt::textOrEmpty(title);
    attributedTitle_ = nil;
    sync();
}
void NSMenuItem::setAttributedTitle(const id& title) {
    attributedTitle_ = velt::attributedStringOf(title) ? velt::copy(title) : id();
    if (!attributedTitle_.isNil()) title_ = velt::attributedStringOf(attributedTitle_)->string();
    sync();
}
void NSMenuItem::setImage(const id& image) {
    image_ = image;
    sync();
}
void NSMenuItem::setState(long state) {
    state_ = std::clamp(state, -1L, 1L);
    sync();
}
void NSMenuItem::setHidden(bool flag) {
    hidden_ = flag;
    sync();
}
bool NSMenuItem::isHiddenOrHasHiddenAncestor() const {
    for (const NSMenuItem* at = this; at; at = at->menu_ ? at->menu_->parentItem() : nullptr) {
        if (at->hidden_) return true;
    }
    return false;
}
void NSMenuItem::setIndentationLevel(long level) {
    indentation_ = std::clamp(level, 0L, 15L);
    sync();
}
void NSMenuItem::setToolTip(const id& text) {
    toolTip_ = text;
    sync();
}
void NSMenuItem::setAlternate(bool flag) {
    alternate_ = flag;
    sync();
}
bool NSMenuItem::isHighlighted() const {
    const QMenu* within = menu_ ? menu_->existingWidget() : nullptr;
    return shown_ && within && within->isVisible() && within->activeAction() == shown_;
}

// Keys.

void NSMenuItem::setKeyEquivalent(const id& key) {
    keyEquivalent_ = velt::textOrEmpty(key);
    sync();
}
void NSMenuItem::setKeyEquivalentModifierMask(unsigned long mask) {
    keyMask_ = mask;
    sync();
}

// Behaviour.

void NSMenuItem::setEnabled(bool flag) {
    enabled_ = flag;
    sync();
}

id NSMenuItem::actionName() const { return velt::actionName(action_); }
void NSMenuItem::setActionName(const id& name) { action_ = velt::actionNamed(name); }

void NSMenuItem::validate() {
    if (!menu_ || !menu_->autoenablesItems() || separator_) return;
    bool enabled = false;
    if (submenu_) {
        enabled = true;
    } else if (!action_) {
        enabled = menu_->owner() != nullptr;  // its owner acts in its place
    } else {
        const id self(this);
        const id answers = NSApplication::sharedApplication().targetForAction(action_, target_, self);
        enabled = !answers.isNil();
        if (enabled && velt::respondsTo(answers, VELT_SELECTOR("validateMenuItem:"))) {
            enabled = VELT_CBOOL(velt::send(answers, VELT_SELECTOR("validateMenuItem:"), self));
        }
    }
    setEnabled(enabled);
}

void NSMenuItem::perform() {
    const Ref<NSMenuItem> kept(this);
    const Ref<NSMenu> within(menu_);
    validate();
    if (!enabled_ || separator_ || submenu_) return;
    if (within && within->owner()) {
        within->owner()->itemChosen(*this);
    } else {
        NSApplication::sharedApplication().sendAction(action_, target_, id(static_cast<NSObject*>(this)));
    }
}

// The tree.

id NSMenuItem::submenu() const { return submenu_; }
id NSMenuItem::menu() const { return id(static_cast<NSObject*>(menu_)); }
id NSMenuItem::parentItem() const { return id(static_cast<NSObject*>(menu_ ? menu_->parentItem() : nullptr)); }

void NSMenuItem::setSubmenu(NSMenu* menu) {
    if (menu == submenu_.get()) return;
    if (menu && menu->parentItem_) {
        velt::raise(velt::kInvalidArgumentException,
                    "'" + isa().name() + "' setSubmenu:: the menu belongs to another item");
    }
    if (menu && menu->contains(menu_)) {
        velt::raise(velt::kInvalidArgumentException, "'" + isa().name() + "' setSubmenu:: the item lies in that menu");
    }
    if (submenu_) submenu_->parentItem_ = nullptr;
    submenu_ = Ref<NSMenu>(menu);
    if (menu) menu->parentItem_ = this;
    sync();
}

// The toolkit's.

QAction& NSMenuItem::toolkitAction() {
    if (shown_) return *shown_;
    velt::requireApplicationObject("a menu");
    shown_ = new QAction;
    shown_->setMenuRole(QAction::NoRole);
    shown_->setIconVisibleInMenu(true);
    QObject::connect(shown_, &QAction::triggered, shown_, [this] {
        const Ref<NSMenuItem> kept(this);
        velt::runReported([&] { kept->perform(); });
        kept->sync();  // the toolkit changes a mark itself; it is the program's
    });
    sync();
    return *shown_;
}

void NSMenuItem::sync() {
    if (menu_) menu_->itemChanged(*this);
    if (!shown_) return;
    QAction& action = *shown_;
    if (separator_) {
        action.setSeparator(true);
        action.setVisible(!hidden_);
        return;
    }
    if (QMenu* menu = submenu_ ? &submenu_->widget() : nullptr; action.menu() != menu) action.setMenu(menu);
    action.setText(shownTitle(*this));
    action.setIcon(iconOf(*this));
    action.setToolTip(velt::qtText(toolTip_));
    action.setCheckable(state_ > 0);
    action.setChecked(state_ > 0);
    action.setShortcut(submenu_ ? QKeySequence() : velt::shortcutOf(keyEquivalent_, keyMask_));
    const bool isTitle = menu_ && menu_->isTitle(*this);
    action.setVisible(!hidden_ && !isTitle && !alternate_);
    // The keys of a menu that enables its items itself are asked about when they are pressed.
    const bool asksLater = menu_ && menu_->autoenablesItems() && !menu_->isOpen();
    action.setEnabled(enabled_ || asksLater);
}

void NSMenuItem::visitOwned(velt::OwnedVisitor& visitor) {
    visitor.visit(submenu_);
    NSObject::visitOwned(visitor);
}

void NSMenuItem::describe(velt::ClassBuilder<NSMenuItem>& c) {
    c.property("title", &NSMenuItem::title, &NSMenuItem::setTitle)
        .property("attributedTitle", &NSMenuItem::attributedTitle, &NSMenuItem::setAttributedTitle)
        .property("image", &NSMenuItem::image, &NSMenuItem::setImage)
        .property("state", &NSMenuItem::state, &NSMenuItem::setState)
        .flag("hidden", &NSMenuItem::isHidden, &NSMenuItem::setHidden)
        .method("isHiddenOrHasHiddenAncestor", &NSMenuItem::isHiddenOrHasHiddenAncestor)
        .property("indentationLevel", &NSMenuItem::indentationLevel, &NSMenuItem::setIndentationLevel)
        .property("toolTip", &NSMenuItem::toolTip, &NSMenuItem::setToolTip)
        .method("isSeparatorItem", &NSMenuItem::isSeparatorItem)
        .flag("alternate", &NSMenuItem::isAlternate, &NSMenuItem::setAlternate)
        .method("isHighlighted", &NSMenuItem::isHighlighted)
        .property("keyEquivalent", &NSMenuItem::keyEquivalent, &NSMenuItem::setKeyEquivalent)
        .property("keyEquivalentModifierMask", &NSMenuItem::keyEquivalentModifierMask,
                  &NSMenuItem::setKeyEquivalentModifierMask)
        .flag("enabled", &NSMenuItem::isEnabled, &NSMenuItem::setEnabled)
        .property("tag", &NSMenuItem::tag, &NSMenuItem::setTag)
        .property("representedObject", &NSMenuItem::representedObject, &NSMenuItem::setRepresentedObject)
        .property("target", &NSMenuItem::target, &NSMenuItem::setTarget)
        .property("action", &NSMenuItem::actionName, &NSMenuItem::setActionName)
        .property("submenu", &NSMenuItem::submenu, &NSMenuItem::setSubmenu)
        .method("hasSubmenu", &NSMenuItem::hasSubmenu)
        .property("menu", &NSMenuItem::menu)
        .property("parentItem", &NSMenuItem::parentItem)
        .classMethod("separatorItem", [](const id&, const id*) { return id(separatorItem()); })
        .owns(&NSMenuItem::title_)
        .owns(&NSMenuItem::attributedTitle_)
        .owns(&NSMenuItem::image_)
        .owns(&NSMenuItem::toolTip_)
        .owns(&NSMenuItem::representedObject_)
        .owns(&NSMenuItem::target_);
}
