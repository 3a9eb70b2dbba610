// Texts as items, cells and menus keep them.
#pragma once

#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

namespace velt {

/// A copy of a string, the empty one for any other value.
inline id textOrEmpty(const id& text) { return isString(text) ? copy(text) : string(std::u16string_view()); }

}  // namespace velt
