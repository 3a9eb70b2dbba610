// The location rule: what begins with "/" is a file path, anything else a URL if it can be read as one, and a file path
// if it cannot. Only the first character is looked at: "notes/a.txt" is a relative URL.
#pragma once

#include "VELTRuntime/platform/foundation/url.h"

#include <optional>
#include <string>
#include <string_view>

namespace velt {

/// Where a text or data lies.
struct Location {
    std::string path;  // of a file, in UTF-8, when there is no URL
    Ref<NSURL> url;
};

/// Reads a location string in UTF-8.
VELT_EXPORT Location locationOf(std::string_view text);

/// All bytes at a location, or nothing. URLs of the schemes http, https and file are read.
VELT_EXPORT std::optional<std::string> readLocation(const Location& location);

/// Writes all bytes to a file, or to the file of a file URL, atomically. False when that fails, and for other URLs.
VELT_EXPORT bool writeLocation(const Location& location, std::string_view content);

}  // namespace velt
