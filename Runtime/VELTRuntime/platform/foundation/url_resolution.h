// Relative references made whole, as RFC 3986, section 5.2, does it.
#pragma once

#include "VELTRuntime/export.h"

#include <string>
#include <string_view>

namespace velt {

/// The URL that a reference means beside a base URL, both in UTF-8 and well formed.
VELT_EXPORT std::string resolveUrl(std::string_view base, std::string_view reference);

}  // namespace velt
