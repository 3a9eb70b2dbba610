// Whole files: reading them, and writing them so that either the old or the new content is there at any moment.
#pragma once

#include "VELTRuntime/export.h"

#include <optional>
#include <string>
#include <string_view>

namespace velt {

/// The whole content of a file, pipe or device; nothing when it cannot be read, with the reason in `errno`, and as text
/// in `failure` if given.
VELT_EXPORT std::optional<std::string> readFile(const std::string& path, std::string* failure = nullptr);

/// Writes a file as a whole: a new file in the same folder is filled, brought to the disk and put in the place of the
/// old one, with its permissions. A symbolic link stays and its target is replaced or made. On failure the old file is
/// untouched and nothing new is left behind; returns false, with the reason in `failure` if given.
VELT_EXPORT bool writeFileAtomically(const std::string& path, std::string_view content, std::string* failure = nullptr);

}  // namespace velt
