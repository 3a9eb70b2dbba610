#include "VELTRuntime/platform/appkit/system_colors.h"

#include <QGuiApplication>
#include <algorithm>

namespace velt {

namespace {

constexpr SystemColor kColors[kSystemColorCount] = {
    {"controlColor", QPalette::Active, QPalette::Button},
    {"controlBackgroundColor", QPalette::Active, QPalette::Base},
    {"controlTextColor", QPalette::Active, QPalette::ButtonText},
    {"disabledControlTextColor", QPalette::Disabled, QPalette::ButtonText},
    {"selectedControlColor", QPalette::Active, QPalette::Highlight},
    {"selectedControlTextColor", QPalette::Active, QPalette::HighlightedText},
    {"alternateSelectedControlColor", QPalette::Active, QPalette::Highlight},
    {"alternateSelectedControlTextColor", QPalette::Active, QPalette::HighlightedText},
    {"secondarySelectedControlColor", QPalette::Inactive, QPalette::Highlight},
    {"controlHighlightColor", QPalette::Active, QPalette::Midlight},
    {"controlLightHighlightColor", QPalette::Active, QPalette::Light},
    {"controlShadowColor", QPalette::Active, QPalette::Mid},
    {"controlDarkShadowColor", QPalette::Active, QPalette::Dark},
    {"labelColor", QPalette::Active, QPalette::WindowText},
    {"secondaryLabelColor", QPalette::Disabled, QPalette::WindowText},
    {"linkColor", QPalette::Active, QPalette::Link},
    {"placeholderTextColor", QPalette::Active, QPalette::PlaceholderText},
    {"textColor", QPalette::Active, QPalette::Text},
    {"textBackgroundColor", QPalette::Active, QPalette::Base},
    {"selectedTextColor", QPalette::Active, QPalette::HighlightedText},
    {"selectedTextBackgroundColor", QPalette::Active, QPalette::Highlight},
    {"windowBackgroundColor", QPalette::Active, QPalette::Window},
    {"windowFrameColor", QPalette::Active, QPalette::Shadow},
    {"windowFrameTextColor", QPalette::Active, QPalette::WindowText},
    {"headerColor", QPalette::Active, QPalette::Button},
    {"headerTextColor", QPalette::Active, QPalette::ButtonText},
    {"gridColor", QPalette::Active, QPalette::Mid},
    {"highlightColor", QPalette::Active, QPalette::Light},
    {"shadowColor", QPalette::Active, QPalette::Shadow},
    {"scrollBarColor", QPalette::Active, QPalette::Button},
    {"knobColor", QPalette::Active, QPalette::Button},
    {"selectedKnobColor", QPalette::Active, QPalette::Highlight},
    {"keyboardFocusIndicatorColor", QPalette::Active, QPalette::Highlight},
    {"selectedMenuItemColor", QPalette::Active, QPalette::Highlight},
    {"selectedMenuItemTextColor", QPalette::Active, QPalette::HighlightedText},
    {"toolTipColor", QPalette::Active, QPalette::ToolTipBase},
    {"toolTipTextColor", QPalette::Active, QPalette::ToolTipText},
};

}  // namespace

std::span<const SystemColor, kSystemColorCount> systemColors() { return kColors; }

const SystemColor* systemColor(std::string_view name) {
    const auto* found = std::find_if(std::begin(kColors), std::end(kColors),
                                     [name](const SystemColor& color) { return color.name == name; });
    return found == std::end(kColors) ? nullptr : found;
}

ColorComponents presentComponents(const SystemColor& color) {
    const QColor shown = QGuiApplication::palette().color(color.group, color.role);
    return {shown.redF(), shown.greenF(), shown.blueF(), shown.alphaF()};
}

}  // namespace velt
