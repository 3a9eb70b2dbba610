// Points, sizes and rectangles as archives hold them: "{x, y}" and "{{x, y}, {width, height}}".
#pragma once

#include "VELTRuntime/values/structures.h"

#include <optional>
#include <string>
#include <string_view>

namespace velt {

/// The text of a structure; its numbers read back as they were.
std::string geometryText(const NSPoint& point);
std::string geometryText(const NSSize& size);
std::string geometryText(const NSRect& rect);

/// The structure of a text, or nothing when the text is none. Spaces between the parts do not matter.
std::optional<NSPoint> pointOf(std::u16string_view text);
std::optional<NSSize> sizeOf(std::u16string_view text);
std::optional<NSRect> rectOf(std::u16string_view text);

}  // namespace velt
