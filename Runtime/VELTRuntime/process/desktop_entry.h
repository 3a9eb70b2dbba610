// Applications as the desktop knows them: the entry files below "applications" in the user's and the system's data
// folders, as the freedesktop desktop entry rules have them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velt {

/// The groups of an entry file or of a list of the same form: values by key, by group.
using KeyGroups = std::unordered_map<std::string, std::unordered_map<std::string, std::string>>;
/// Empty when the file cannot be read. Values are as written.
KeyGroups readKeyFile(const std::string& path);
/// The parts of a value between semicolons, empty ones left out.
std::vector<std::string> listOf(std::string_view value);

/// $XDG_DATA_HOME and $XDG_DATA_DIRS, $XDG_CONFIG_HOME and $XDG_CONFIG_DIRS, or what stands for them; the user's first.
std::vector<std::string> dataFolders();
std::vector<std::string> configurationFolders();

/// One application.
struct DesktopEntry {
    std::string identifier;  // the file's path below "applications", "-" for "/"
    std::string file;
    std::vector<std::string> names;  // in all languages, the plain one first
    std::vector<std::string> genericNames;
    std::string command;
    std::string folder;
    std::string icon;
    std::vector<std::string> types;
    bool inTerminal = false;

    /// The command's words for a file's path or an address, or for neither. Empty when the command is malformed.
    std::vector<std::string> commandFor(const std::optional<std::string>& argument) const;
    /// The file name of the command's program.
    std::string program() const;
};

/// All that are installed and not hidden. One in an earlier folder stands for those of its identifier in later ones.
std::vector<DesktopEntry> desktopEntries();

/// The path of a program that may be executed, looked for in $PATH unless it holds a slash; empty when there is none.
std::string findExecutable(const std::string& program);

}  // namespace velt
