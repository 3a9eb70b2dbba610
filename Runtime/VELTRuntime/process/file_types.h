// The type of a file, and the application that the user opens a type with.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/process/desktop_entry.h"

#include <optional>
#include <string>
#include <vector>

namespace velt {

/// A file's type, such as "text/plain" or "inode/directory": by its name as the shared database says, else by its first
/// bytes. Empty when there is no such file.
VELT_EXPORT std::string typeOfFile(const std::string& path);

/// The application that opens a type by the user's and the system's choice; without one, any that says it can. Text of
/// every kind is opened as plain text at last.
std::optional<DesktopEntry> applicationForType(const std::string& type);

/// The first that is found for some types.
std::optional<DesktopEntry> applicationForTypes(const std::vector<std::string>& types);

}  // namespace velt
