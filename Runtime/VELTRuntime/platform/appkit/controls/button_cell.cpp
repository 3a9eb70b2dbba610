#include "VELTRuntime/platform/appkit/controls/button_cell.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/controls/button_look.h"
#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/kept_text.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/object/observing.h"

#include <QApplication>
#include <array>

using velt::ButtonType;
using velt::ImagePosition;
using velt::Ref;

namespace {

/// How a button of a type shows that it is pressed, and that it is on.
struct TypeRow {
    long highlightsBy, showsStateBy;
};

/// By the type's number.
constexpr std::array<TypeRow, 8> kTypes{{
    {velt::kChangesBackground, velt::kChangesNothing},
    {velt::kPushesIn | velt::kChangesGray, velt::kChangesBackground | velt::kChangesGray},
    {velt::kPushesIn | velt::kChangesContents, velt::kChangesContents},
    {velt::kChangesContents, velt::kChangesContents},
    {velt::kChangesContents, velt::kChangesContents},
    {velt::kChangesContents, velt::kChangesNothing},
    {velt::kChangesBackground | velt::kChangesGray, velt::kChangesBackground | velt::kChangesGray},
    {velt::kPushesIn | velt::kChangesGray | velt::kChangesBackground, velt::kChangesNothing},
}};

constexpr long kCentred = 2, kByDirection = 4;

bool hasIndicator(ButtonType type) { return type == ButtonType::Switch || type == ButtonType::Radio; }

id attributedOr(const id& attributed, const id& plain) {
    if (!attributed.isNil()) return attributed;
    return velt::make<NSAttributedString>(velt::textOf(plain));
}

/// Keys that make the same character for a person: Return and Enter, both ways to write the backward delete.
char16_t plainKey(char16_t unit) {
    if (unit == u'\n' || unit == u'\x3') return u'\r';
    if (unit == u'\b') return u'\x7F';
    return unit;
}

}  // namespace

NSButtonCell::NSButtonCell()
    : title_(velt::string(u"Button")), alternateTitle_(velt::string(std::u16string_view())),
      keyEquivalent_(velt::string(std::u16string_view())) {
    highlightsBy_ = kTypes[static_cast<std::size_t>(buttonType_)].highlightsBy;
    setAlignment(kCentred);
    setBordered(true);
    store(VELT_ID(long{kOff}));
}

// The value.

void NSButtonCell::setObjectValue(const id& value) {
    // A text counts as the number that it begins with, and what is no number at all as off.
    const double number = leadingNumber(value);
    setState(number < 0 ? long{kMixed} : long{number != 0});
}

void NSButtonCell::setState(long state) {
    const Ref<NSControl> shown(control());
    const auto change = [&] {
        NSCell::setState(state);
        store(VELT_ID(this->state()));
    };
    if (shown) {
        velt::changeValue(*shown, "state", change);
    } else {
        change();
    }
    changed();
}

long NSButtonCell::nextState() const {
    // A radio button is switched off by another one of its group only.
    return isRadio() ? long{kOn} : NSCell::nextState();
}

// Behaviour.

void NSButtonCell::setButtonType(long type) {
    if (type < 0 || type >= static_cast<long>(kTypes.size())) return;
    const bool before = hasIndicator(buttonType_);
    buttonType_ = static_cast<ButtonType>(type);
    highlightsBy_ = kTypes[static_cast<std::size_t>(type)].highlightsBy;
    showsStateBy_ = kTypes[static_cast<std::size_t>(type)].showsStateBy;
    if (const bool now = hasIndicator(buttonType_); now != before) {
        // The box or ring stands where a push button's image would.
        setAlignment(now ? kByDirection : kCentred);
        setBordered(!now);
        imagePosition_ = now ? ImagePosition::Left : image().isNil() ? ImagePosition::None : ImagePosition::Left;
    }
    changed();
}

void NSButtonCell::setHighlightsBy(long mask) {
    highlightsBy_ = mask;
    changed();
}
void NSButtonCell::setShowsStateBy(long mask) {
    showsStateBy_ = mask;
    changed();
}

bool NSButtonCell::isDisclosure() const {
    return isBordered() &&
           (bezelStyle_ == velt::BezelStyle::Disclosure || bezelStyle_ == velt::BezelStyle::RoundedDisclosure);
}

void NSButtonCell::pressed() {
    if (showsStateBy_ != velt::kChangesNothing || isDisclosure()) setNextState();
    if (velt::respondsTo(sound_, VELT_SELECTOR("play"))) velt::send(sound_, VELT_SELECTOR("play"));
}

void NSButtonCell::performClick(const id& sender) {
    if (!isEnabled()) return;
    if (!control()) pressed();
    NSActionCell::performClick(sender);
}

// Contents.

void NSButtonCell::setTitle(const id& title) {
    title_ = velt::textOrEmpty(title);
    attributedTitle_ = nil;
    changed();
}
void NSButtonCell::setAlternateTitle(const id& title) {
    alternateTitle_ = velt::textOrEmpty(title);
    attributedAlternateTitle_ = nil;
    changed();
}

id NSButtonCell::attributedTitle() const { return attributedOr(attributedTitle_, title_); }
void NSButtonCell::setAttributedTitle(const id& title) {
    attributedTitle_ = velt::attributedStringOf(title) ? velt::copy(title) : nil;
    title_ = attributedTitle_.isNil() ? velt::textOrEmpty(title) : velt::attributedStringOf(attributedTitle_)->string();
    changed();
}
id NSButtonCell::attributedAlternateTitle() const { return attributedOr(attributedAlternateTitle_, alternateTitle_); }
void NSButtonCell::setAttributedAlternateTitle(const id& title) {
    attributedAlternateTitle_ = velt::attributedStringOf(title) ? velt::copy(title) : nil;
    alternateTitle_ = attributedAlternateTitle_.isNil() ? velt::textOrEmpty(title)
                                                        : velt::attributedStringOf(attributedAlternateTitle_)->string();
    changed();
}

void NSButtonCell::setImage(const id& image) {
    if (!image.isNil() && imagePosition_ == ImagePosition::None) {
        imagePosition_ = velt::textOf(title_).empty() ? ImagePosition::Only : ImagePosition::Left;
    }
    NSActionCell::setImage(image);
}
void NSButtonCell::setAlternateImage(const id& image) {
    alternateImage_ = image;
    changed();
}
void NSButtonCell::setImagePosition(unsigned long position) {
    // Later codes for the leading and the trailing side are the two that already follow the text's direction.
    constexpr unsigned long kLeading = 7, kTrailing = 8;
    if (position == kLeading) position = static_cast<unsigned long>(ImagePosition::Left);
    if (position == kTrailing) position = static_cast<unsigned long>(ImagePosition::Right);
    if (position > static_cast<unsigned long>(ImagePosition::Overlaps)) return;
    imagePosition_ = static_cast<ImagePosition>(position);
    changed();
}

// Looks.

void NSButtonCell::setBezelStyle(unsigned long style) {
    bezelStyle_ = static_cast<velt::BezelStyle>(style);
    changed();
}
void NSButtonCell::setTransparent(bool flag) {
    transparent_ = flag;
    changed();
}

NSSize NSButtonCell::cellSize() const {
    velt::requireApplicationObject("a button");
    const QSize size = velt::buttonSize(velt::lookOf(*this, false), *QApplication::style());
    return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

// Keys.

void NSButtonCell::setKeyEquivalent(const id& key) {
    keyEquivalent_ = velt::textOrEmpty(key);
    changed();
}
void NSButtonCell::setKeyEquivalentModifierMask(unsigned long mask) {
    keyMask_ = mask;
    changed();
}

namespace {

constexpr unsigned long kKeyModifiers = NSEvent::kShift | NSEvent::kControl | NSEvent::kAlternate | NSEvent::kCommand;

}  // namespace

bool NSButtonCell::isReturnButton() const {
    const std::u16string_view key = velt::textOf(keyEquivalent_);
    return key.size() == 1 && plainKey(key[0]) == u'\r' && !(keyMask_ & kKeyModifiers);
}

bool NSButtonCell::answersKey(const NSEvent& event) const {
    const QString wanted = velt::qtText(keyEquivalent_), pressed = velt::qtText(event.charactersIgnoringModifiers());
    if (wanted.size() != 1 || pressed.size() != 1) return false;
    const QChar wantedKey(plainKey(wanted[0].unicode())), pressedKey(plainKey(pressed[0].unicode()));
    if (wantedKey.toLower() != pressedKey.toLower()) return false;
    unsigned long mask = keyMask_ & kKeyModifiers, held = event.modifierFlags() & kKeyModifiers;
    const bool hasCase = wantedKey.toLower() != wantedKey.toUpper();
    if (hasCase && wantedKey.isUpper()) mask |= NSEvent::kShift;
    // What needs Shift to be typed says so itself, unless it is a letter.
    if (!hasCase && !(mask & NSEvent::kShift)) held &= ~NSEvent::kShift;
    return mask == held;
}

void NSButtonCell::describe(velt::ClassBuilder<NSButtonCell>& c) {
    c.method("setButtonType:", &NSButtonCell::setButtonType)
        .property("highlightsBy", &NSButtonCell::highlightsBy, &NSButtonCell::setHighlightsBy)
        .property("showsStateBy", &NSButtonCell::showsStateBy, &NSButtonCell::setShowsStateBy)
        .property("alternateTitle", &NSButtonCell::alternateTitle, &NSButtonCell::setAlternateTitle)
        .property("attributedTitle", &NSButtonCell::attributedTitle, &NSButtonCell::setAttributedTitle)
        .property("attributedAlternateTitle", &NSButtonCell::attributedAlternateTitle,
                  &NSButtonCell::setAttributedAlternateTitle)
        .property("alternateImage", &NSButtonCell::alternateImage, &NSButtonCell::setAlternateImage)
        .property("imagePosition", &NSButtonCell::imagePosition, &NSButtonCell::setImagePosition)
        .property("bezelStyle", &NSButtonCell::bezelStyle, &NSButtonCell::setBezelStyle)
        .flag("transparent", &NSButtonCell::isTransparent, &NSButtonCell::setTransparent)
        .property("keyEquivalent", &NSButtonCell::keyEquivalent, &NSButtonCell::setKeyEquivalent)
        .property("keyEquivalentModifierMask", &NSButtonCell::keyEquivalentModifierMask,
                  &NSButtonCell::setKeyEquivalentModifierMask)
        .property("sound", &NSButtonCell::sound, &NSButtonCell::setSound)
        .owns(&NSButtonCell::title_)
        .owns(&NSButtonCell::alternateTitle_)
        .owns(&NSButtonCell::attributedTitle_)
        .owns(&NSButtonCell::attributedAlternateTitle_)
        .owns(&NSButtonCell::alternateImage_)
        .owns(&NSButtonCell::keyEquivalent_)
        .owns(&NSButtonCell::sound_);
}
