#include "VELTRuntime/platform/appkit/toolbars/toolbar_item.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/kept_text.h"
#include "VELTRuntime/platform/appkit/toolbars/toolbar.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/class_casts.h"
#include "VELTRuntime/values/string.h"

#include <algorithm>
#include <array>

using velt::Ref;

namespace {

/// A value's text; the empty one for nil.
id convertedText(const id& value) { return velt::textOrEmpty(value.isNil() ? value : VELT_CSTRING(value)); }

/// What the items do that every toolbar has, beside the spaces.
struct StandardItem {
    std::string_view identifier;
    const char* label;
    const char* icon;  // the desktop's name
    const char* action;
};
constexpr std::array kStandardItems{
    StandardItem{velt::kShowColorsItem, "Colors", "preferences-desktop-color", "orderFrontColorPanel:"},
    StandardItem{velt::kShowFontsItem, "Fonts", "preferences-desktop-font", "orderFrontFontPanel:"},
    StandardItem{velt::kCustomizeItem, "Customize", "configure-toolbars", "runToolbarCustomizationPalette:"},
    StandardItem{velt::kPrintItem, "Print", "document-print", "printDocument:"},
};
struct Space {
    std::string_view identifier;
    const char* label;
};
constexpr std::array kSpaces{Space{velt::kSeparatorItem, "Separator"}, Space{velt::kSpaceItem, "Space"},
                             Space{velt::kFlexibleSpaceItem, "Flexible Space"}};

}  // namespace

NSToolbarItem::NSToolbarItem() : NSToolbarItem(nil) {}

NSToolbarItem::NSToolbarItem(const id& identifier)
    : identifier_(convertedText(identifier)), label_(convertedText(nil)), paletteLabel_(convertedText(nil)) {}

NSToolbarItem::~NSToolbarItem() { NSToolbarItem::dissolve(); }

void NSToolbarItem::dissolve() {
    toolbar_ = nullptr;
    NSObject::dissolve();
}

Ref<NSToolbarItem> NSToolbarItem::standard(const id& identifier) {
    const std::string name = velt::isString(identifier) ? velt::utf8(identifier) : std::string();
    for (const Space& space : kSpaces) {
        if (space.identifier != name) continue;
        Ref<NSToolbarItem> item = velt::make<NSToolbarItem>(identifier);
        item->setPaletteLabel(velt::string(std::string_view(space.label)));
        return item;
    }
    for (const StandardItem& known : kStandardItems) {
        if (known.identifier != name) continue;
        Ref<NSToolbarItem> item = velt::make<NSToolbarItem>(identifier);
        item->setLabel(velt::string(std::string_view(known.label)));
        item->setPaletteLabel(item->label());
        item->setImage(NSImage::named(known.icon));
        item->setActionName(velt::string(std::string_view(known.action)));
        return item;
    }
    return nullptr;
}

id NSToolbarItem::copy() const {
    Ref<NSToolbarItem> made = velt::make<NSToolbarItem>(identifier_);
    made->label_ = label_;
    made->paletteLabel_ = paletteLabel_;
    made->toolTip_ = toolTip_;
    made->image_ = image_;
    made->target_ = target_;
    made->action_ = action_;
    made->menuForm_ = menuForm_;
    made->minSize_ = minSize_;
    made->maxSize_ = maxSize_;
    made->tag_ = tag_;
    made->priority_ = priority_;
    made->enabled_ = enabled_;
    made->autovalidates_ = autovalidates_;
    return made;
}

id NSToolbarItem::description() const { return velt::string("<" + isa().name() + " " + velt::utf8(identifier_) + ">"); }

bool NSToolbarItem::isIdentifiedBy(std::string_view identifier) const { return velt::utf8(identifier_) == identifier; }

bool NSToolbarItem::isSpace() const {
    return std::any_of(kSpaces.begin(), kSpaces.end(),
                       [this](const Space& space) { return isIdentifiedBy(space.identifier); });
}

// What it shows.

void NSToolbarItem::changed() {
    if (toolbar_) toolbar_->itemChanged();
}

void NSToolbarItem::setLabel(const id& label) {
    const id before = std::exchange(label_, convertedText(label));
    // Programs set it whenever they are asked about the item.
    if (!velt::isEqual(before, label_)) changed();
}
void NSToolbarItem::setPaletteLabel(const id& label) {
    paletteLabel_ = convertedText(label);
    changed();
}
void NSToolbarItem::setToolTip(const id& text) {
    toolTip_ = text;
    changed();
}
void NSToolbarItem::setImage(const id& image) {
    image_ = image.isNil() ? image : VELT_CNSIMAGE(image);
    changed();
}

id NSToolbarItem::view() const { return view_; }
void NSToolbarItem::setView(NSView* view) {
    const Ref<NSView> before = std::exchange(view_, Ref<NSView>(view));
    if (toolbar_ && before.get() != view) toolbar_->itemViewChanged(before.get(), view);
    if (view && minSize_.width == 0 && minSize_.height == 0) minSize_ = view->frame().size;
    if (view && maxSize_.width == 0 && maxSize_.height == 0) maxSize_ = view->frame().size;
    changed();
}
void NSToolbarItem::setMinSize(NSSize size) {
    minSize_ = {std::max(size.width, 0.0), std::max(size.height, 0.0)};
    changed();
}
void NSToolbarItem::setMaxSize(NSSize size) {
    maxSize_ = {std::max(size.width, 0.0), std::max(size.height, 0.0)};
    changed();
}
void NSToolbarItem::setVisibilityPriority(long priority) {
    priority_ = priority;
    changed();
}

// Work.

void NSToolbarItem::setEnabled(bool flag) {
    enabled_ = flag;
    refused_ = false;
    if (view_ && velt::respondsTo(view_, VELT_SELECTOR("setEnabled:"))) {
        velt::send(view_, VELT_SELECTOR("setEnabled:"), VELT_ID(static_cast<BOOL>(flag)));
    }
    if (toolbar_) toolbar_->itemEnabledChanged(*this);
}

id NSToolbarItem::actionName() const { return velt::actionName(action_); }
void NSToolbarItem::setActionName(const id& name) { action_ = velt::actionNamed(name); }

id NSToolbarItem::toolbar() const { return id(static_cast<NSObject*>(toolbar_)); }

void NSToolbarItem::validate() {
    const Ref<NSToolbarItem> kept(this);
    if (!action_ || isSpace()) return;
    const id self(static_cast<NSObject*>(this));
    const id answers = NSApplication::sharedApplication().targetForAction(action_, target_, self);
    if (velt::respondsTo(answers, VELT_SELECTOR("validateToolbarItem:"))) {
        const bool may = VELT_CBOOL(velt::send(answers, VELT_SELECTOR("validateToolbarItem:"), self));
        if (may != enabled_) setEnabled(may);
    } else if (answers.isNil() && enabled_) {
        setEnabled(false);
        refused_ = true;
    } else if (!answers.isNil() && refused_) {
        // What the program disabled itself stays so.
        setEnabled(true);
    }
}

void NSToolbarItem::perform() {
    const Ref<NSToolbarItem> kept(this);
    if (autovalidates_) validate();
    if (enabled_) NSApplication::sharedApplication().sendAction(action_, target_, id(static_cast<NSObject*>(this)));
}

void NSToolbarItem::visitOwned(velt::OwnedVisitor& visitor) {
    visitor.visit(view_);
    NSObject::visitOwned(visitor);
}

void NSToolbarItem::describe(velt::ClassBuilder<NSToolbarItem>& c) {
    c.property("itemIdentifier", &NSToolbarItem::itemIdentifier)
        .property("label", &NSToolbarItem::label, &NSToolbarItem::setLabel)
        .property("paletteLabel", &NSToolbarItem::paletteLabel, &NSToolbarItem::setPaletteLabel)
        .property("toolTip", &NSToolbarItem::toolTip, &NSToolbarItem::setToolTip)
        .property("tag", &NSToolbarItem::tag, &NSToolbarItem::setTag)
        .property("image", &NSToolbarItem::image, &NSToolbarItem::setImage)
        .property("view", &NSToolbarItem::view, &NSToolbarItem::setView)
        .property("minSize", &NSToolbarItem::minSize, &NSToolbarItem::setMinSize)
        .property("maxSize", &NSToolbarItem::maxSize, &NSToolbarItem::setMaxSize)
        .property("visibilityPriority", &NSToolbarItem::visibilityPriority, &NSToolbarItem::setVisibilityPriority)
        .property("menuFormRepresentation", &NSToolbarItem::menuFormRepresentation,
                  &NSToolbarItem::setMenuFormRepresentation)
        .flag("enabled", &NSToolbarItem::isEnabled, &NSToolbarItem::setEnabled)
        .property("autovalidates", &NSToolbarItem::autovalidates, &NSToolbarItem::setAutovalidates)
        .property("target", &NSToolbarItem::target, &NSToolbarItem::setTarget)
        .property("action", &NSToolbarItem::actionName, &NSToolbarItem::setActionName)
        .property("allowsDuplicatesInToolbar", &NSToolbarItem::allowsDuplicatesInToolbar)
        .property("toolbar", &NSToolbarItem::toolbar)
        .method("validate", &NSToolbarItem::validate)
        .owns(&NSToolbarItem::identifier_)
        .owns(&NSToolbarItem::label_)
        .owns(&NSToolbarItem::paletteLabel_)
        .owns(&NSToolbarItem::toolTip_)
        .owns(&NSToolbarItem::image_)
        .owns(&NSToolbarItem::target_)
        .owns(&NSToolbarItem::menuForm_);
}
