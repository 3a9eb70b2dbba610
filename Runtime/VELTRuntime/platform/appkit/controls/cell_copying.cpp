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
    "lineBreakMode",
    "usesSingleLineMode",
    "allowsEditingTextAttributes",
    "sendsActionOnEndEditing",
    "sendsWholeSearchString",
    "sendsSearchStringImmediately",
    "tokenizingCharacterSet",
    "completionDelay",
    "completes",
    "numberOfVisibleItems",
    "hasVerticalScroller",
    "buttonBordered",
    "itemHeight",
    "intercellSpacing",
    "imageScaling",
    "imageAlignment",
    "imageFrameStyle",
    "minValue",
    "maxValue",
    "numberOfTickMarks",
    "tickMarkPosition",
    "sliderType",
    "allowsTickMarkValuesOnly",
    "altIncrementValue",
    "increment",
    "valueWraps",
    "autorepeat",
    "levelIndicatorStyle",
    "numberOfMajorTickMarks",
    "warningValue",
    "criticalValue",
    "fillColor",
    "warningFillColor",
    "criticalFillColor",
    "datePickerStyle",
    "datePickerElements",
    "minDate",
    "maxDate",
    "pathStyle",
    "allowedTypes",
    "doubleAction",
    "objectValue",
    "formatter",
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
    const auto* button = dynamic_cast<const NSButtonCell*>(this);
    if (button) velt::as<NSButtonCell>(made)->setButtonType(static_cast<long>(button->buttonType()));
    for (const std::string_view key : kCopied) {
        const velt::Property* property = isa().property(key);
        if (!property || !property->get || !property->set) continue;
        if (key == "title" && !button) continue;  // the value's text
        const id value = property->get(*property, original), own = property->get(*property, made);
        // What a new cell has by itself may follow the desktop, or other properties.
        if (value != own && !velt::isEqual(value, own)) property->set(*property, made, value);
    }
    if (hasOwnFont()) velt::as<NSCell>(made)->setFont(font_);
    return made;
}
