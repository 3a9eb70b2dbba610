// Copying, moving, linking and removing of files and folders. A path that is a symbolic link stands for the link
// itself.
//
// Every function returns false when it fails, with the reason in `failure` if given. Nothing that exists is replaced,
// and what fails half way leaves nothing new behind.
#pragma once

#include "VELTRuntime/export.h"

#include <optional>
#include <string>
#include <vector>

namespace velt {

/// Copies a file or a folder with all that it holds: symbolic links stay links, permissions and times are kept. A
/// folder cannot be copied into itself.
VELT_EXPORT bool copyItem(const std::string& from, const std::string& to, std::string* failure = nullptr);
/// Gives a file a second name (a hard link); for a folder, makes one like it with hard links to its files.
VELT_EXPORT bool linkItem(const std::string& from, const std::string& to, std::string* failure = nullptr);
/// Moves or renames; to another file system by copying and removing.
VELT_EXPORT bool moveItem(const std::string& from, const std::string& to, std::string* failure = nullptr);
/// Removes a file, or a folder with all that it holds.
VELT_EXPORT bool removeItem(const std::string& path, std::string* failure = nullptr);
/// Makes one folder; its parent has to be there.
VELT_EXPORT bool makeFolder(const std::string& path, std::string* failure = nullptr);
/// Makes a folder and those above it that are missing. True when it is there already.
VELT_EXPORT bool makeFolders(const std::string& path, std::string* failure = nullptr);
/// The names in a folder, sorted by their bytes; nothing when it cannot be read.
VELT_EXPORT std::optional<std::vector<std::string>> namesInFolder(const std::string& path,
                                                                  std::string* failure = nullptr);

}  // namespace velt
