// The colours of the desktop by the names that programs use for them.
#pragma once

#include "VELTRuntime/platform/appkit/color.h"

#include <QPalette>
#include <span>
#include <string_view>

namespace velt {

/// One row: its name, and where the palette has it.
struct SystemColor {
    std::string_view name;
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

inline constexpr std::size_t kSystemColorCount = 37;
VELT_EXPORT std::span<const SystemColor, kSystemColorCount> systemColors();
/// The row of that name, or null.
const SystemColor* systemColor(std::string_view name);
/// What the palette says at this moment; the toolkit's usual palette while there is no application object.
ColorComponents presentComponents(const SystemColor& color);

}  // namespace velt
