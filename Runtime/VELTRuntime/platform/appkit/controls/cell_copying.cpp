// Copies of cells: what a matrix fills its places with.
#include "VELTRuntime/platform/appkit/controls/button_cell.h"

using velt::Ref;

namespace {

/// The properties that make a cell what it is, in an order in which each can be set.
constexpr std::string_view kCopied[] = {
    "type",
    "bordered",
    "bezeled",
    "bezelStyle",
    "title",
    "image",
    "attributedTitle",
    "alternateTitle",
    "attributedAlternateTitle",
    "alternateImage",
    "imagePosition",
    "highlightsBy",
    "showsStateBy",
    "transparent",
    "keyEquivalent",
    "keyEquivalentModifierMask",
    "sound",
    "alignment",
    "controlSize",
    "focusRingType",
    "wraps",
    "scrollable",
    "selectable",
    "editable",
    "enabled",
    "continuous",
    "refusesFirstResponder",
    "allowsMixedState",
    "placeholderString",
    "textColor",
    "backgroundColor",
    "drawsBackground",
    "imageScaling",
    "imageAlignment",
    "imageFrameStyle",
    "minValue",
    "maxValue",
    "objectValue",
    "state",
    "representedObject",
    "tag",
    "menu",
    "target",
    "action",
};

}  // namespace

id NSCell::copy() const {
    const id original(const_cast<NSCell*>(this));
    id made = isa().newObject();
    if (const auto* button = dynamic_cast<const NSButtonCell*>(this)) {
        velt::as<NSButtonCell>(made)->setButtonType(static_cast<long>(button->buttonType()));
    }
    for (const std::string_view key : kCopied) {
        const velt::Property* property = isa().property(key);
        if (!property || !property->get || !property->set) continue;
        // A plain title must not become one with attributes.
        const auto* button = dynamic_cast<const NSButtonCell*>(this);
        if (button && key == "attributedTitle" && !button->hasAttributedTitle()) continue;
        if (button && key == "attributedAlternateTitle" && !button->hasAttributedAlternateTitle()) continue;
        const id value = property->get(*property, original);
        if (value.isNil()) continue;
        property->set(*property, made, value);
    }
    if (hasOwnFont()) velt::as<NSCell>(made)->setFont(font_);
    return made;
}
