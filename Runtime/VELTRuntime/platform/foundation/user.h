// The user and the user's folders, by the rules of the freedesktop.
#pragma once

#include "VELTRuntime/export.h"

#include <optional>
#include <string>

namespace velt {

/// The name to log in with, as the system's user table has it; the variables LOGNAME and USER where it has none.
VELT_EXPORT std::string userName();
/// The full name in the user table; the login name where it has none.
VELT_EXPORT std::string fullUserName();
/// The variable HOME when it is an absolute path, else what the user table says. No slash at the end.
VELT_EXPORT std::string homeFolder();
/// The home folder of a user, or nothing when there is no such user.
VELT_EXPORT std::optional<std::string> homeFolderOf(const std::string& user);
/// The variable TMPDIR when it is an absolute path, else "/tmp"; with a slash at the end.
VELT_EXPORT std::string temporaryFolder();
/// Where programs keep their settings: the variable XDG_CONFIG_HOME when it is an absolute path, else ".config" in the
/// home folder. No slash at the end.
VELT_EXPORT std::string configurationFolder();

}  // namespace velt
