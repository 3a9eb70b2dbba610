#include "VELTRuntime/process/desktop_entry.h"

#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/foundation/url.h"
#include "VELTRuntime/platform/foundation/user.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_set>

namespace velt {

namespace {

std::string environmentText(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// Parts between separators; those that are no absolute paths are ignored, as the base directory rules say.
std::vector<std::string> folderList(const std::string& first, const std::string& rest) {
    std::vector<std::string> folders;
    for (std::size_t begin = 0; begin <= rest.size();) {
        const std::size_t end = std::min(rest.find(':', begin), rest.size());
        const std::string folder = rest.substr(begin, end - begin);
        if (folder.starts_with('/')) folders.push_back(folder);
        begin = end + 1;
    }
    folders.insert(folders.begin(), first);
    return folders;
}

std::vector<std::string> baseFolders(const char* ownVariable, const char* own, const char* variable,
                                     const char* usual) {
    std::string first = environmentText(ownVariable), rest = environmentText(variable);
    if (!first.starts_with('/')) first = homeFolder() + own;
    if (rest.empty()) rest = usual;
    return folderList(first, rest);
}

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t\r");
    if (begin == text.npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

/// \s \n \t \r and \\ in a value.
std::string unescaped(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        switch (value[++i]) {
        case 's': text += ' '; break;
        case 'n': text += '\n'; break;
        case 't': text += '\t'; break;
        case 'r': text += '\r'; break;
        case '\\': text += '\\'; break;
        default: text += {'\\', value[i]}; break;
        }
    }
    return text;
}

/// One word of a command; field codes count only outside quotes.
struct CommandWord {
    std::string text;
    bool quoted = false;
};

std::optional<std::vector<CommandWord>> wordsOf(std::string_view command) {
    std::vector<CommandWord> words;
    bool inWord = false, inQuotes = false;
    for (std::size_t i = 0; i < command.size(); ++i) {
        const char c = command[i];
        if (inQuotes) {
            if (c == '"') {
                inQuotes = false;
            } else if (c == '\\' && i + 1 < command.size()) {
                words.back().text += command[++i];
            } else {
                words.back().text += c;
            }
            continue;
        }
        if (c == ' ' || c == '\t') {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        if (c == '"') {
            inQuotes = words.back().quoted = true;
        } else {
            words.back().text += c;
        }
    }
    if (inQuotes || words.empty()) return std::nullopt;
    return words;
}

bool isAddress(const std::string& argument) {
    const auto parts = parseUrl(argument);
    return parts && !parts->scheme.empty() && !argument.starts_with('/');
}

/// A path for a program that takes addresses; what may stand in one is left as it is.
std::string addressOf(const std::string& argument) {
    if (isAddress(argument)) return argument;
    constexpr std::string_view kPlain = "/-._~!$&'()*+,;=:@";
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string address = "file://";
    for (const unsigned char c : argument) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                             kPlain.find(static_cast<char>(c)) != kPlain.npos;
        if (isPlain) {
            address += static_cast<char>(c);
        } else {
            address += {'%', kDigits[c >> 4], kDigits[c & 15]};
        }
    }
    return address;
}

std::optional<DesktopEntry> readEntry(const std::string& file, const std::string& identifier) {
    const KeyGroups groups = readKeyFile(file);
    const auto group = groups.find("Desktop Entry");
    if (group == groups.end()) return std::nullopt;
    const auto value = [&](const char* key) {
        const auto found = group->second.find(key);
        return found == group->second.end() ? std::string() : unescaped(found->second);
    };
    if (value("Type") != "Application" || value("Hidden") == "true" || value("Exec").empty()) return std::nullopt;
    if (const std::string needed = value("TryExec"); !needed.empty() && findExecutable(needed).empty()) {
        return std::nullopt;
    }
    DesktopEntry entry;
    entry.identifier = identifier;
    entry.file = file;
    entry.names = {value("Name")};
    entry.genericNames = {value("GenericName")};
    for (const auto& [key, text] : group->second) {
        if (key.starts_with("Name[")) entry.names.push_back(unescaped(text));
        if (key.starts_with("GenericName[")) entry.genericNames.push_back(unescaped(text));
    }
    entry.command = value("Exec");
    entry.folder = value("Path");
    entry.icon = value("Icon");
    entry.types = listOf(value("MimeType"));
    entry.inTerminal = value("Terminal") == "true";
    return entry;
}

}  // namespace

std::vector<std::string> dataFolders() {
    return baseFolders("XDG_DATA_HOME", "/.local/share", "XDG_DATA_DIRS", "/usr/local/share:/usr/share");
}

std::vector<std::string> configurationFolders() {
    return baseFolders("XDG_CONFIG_HOME", "/.config", "XDG_CONFIG_DIRS", "/etc/xdg");
}

KeyGroups readKeyFile(const std::string& path) {
    KeyGroups groups;
    const std::string content = readFile(path).value_or("");
    std::string group;
    for (std::size_t begin = 0; begin < content.size();) {
        const std::size_t end = std::min(content.find('\n', begin), content.size());
        const std::string_view line = trimmed(std::string_view(content).substr(begin, end - begin));
        begin = end + 1;
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[' && line.back() == ']') {
            group = line.substr(1, line.size() - 2);
            continue;
        }
        const std::size_t equals = line.find('=');
        if (equals == line.npos) continue;
        groups[group].emplace(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }
    return groups;
}

std::vector<std::string> listOf(std::string_view value) {
    std::vector<std::string> parts;
    for (std::size_t begin = 0; begin < value.size();) {
        const std::size_t end = std::min(value.find(';', begin), value.size());
        if (const auto part = trimmed(value.substr(begin, end - begin)); !part.empty()) parts.emplace_back(part);
        begin = end + 1;
    }
    return parts;
}

std::vector<std::string> DesktopEntry::commandFor(const std::optional<std::string>& argument) const {
    const auto words = wordsOf(command);
    if (!words) return {};
    std::vector<std::string> result;
    bool isTaken = false;
    for (const CommandWord& word : *words) {
        if (word.quoted || word.text.find('%') == word.text.npos) {
            result.push_back(word.text);
            continue;
        }
        if (word.text == "%i") {
            if (!icon.empty()) result.insert(result.end(), {"--icon", icon});
            continue;
        }
        std::string text;
        bool isDropped = false;  // a word that stands for a file alone, and there is none
        for (std::size_t i = 0; i < word.text.size(); ++i) {
            if (word.text[i] != '%' || i + 1 == word.text.size()) {
                text += word.text[i];
                continue;
            }
            switch (word.text[++i]) {
            case 'f':
            case 'F':
            case 'u':
            case 'U':
                if (argument) {
                    const bool asAddress = word.text[i] == 'u' || word.text[i] == 'U';
                    text += asAddress ? addressOf(*argument) : *argument;
                    isTaken = true;
                } else {
                    isDropped = word.text.size() == 2;
                }
                break;
            case 'c': text += names.front(); break;
            case 'k': text += file; break;
            case '%': text += '%'; break;
            default: isDropped = isDropped || word.text.size() == 2; break;  // codes that are no longer used
            }
        }
        if (!isDropped) result.push_back(text);
    }
    if (argument && !isTaken) result.push_back(*argument);
    return result;
}

std::string DesktopEntry::program() const {
    const auto words = wordsOf(command);
    return words ? std::filesystem::path(words->front().text).filename().string() : std::string();
}

std::vector<DesktopEntry> desktopEntries() {
    std::vector<DesktopEntry> entries;
    std::unordered_set<std::string> seen;
    for (const std::string& folder : dataFolders()) {
        const std::filesystem::path root = std::filesystem::path(folder) / "applications";
        std::error_code failure;
        std::vector<std::filesystem::path> files;
        constexpr auto kOptions = std::filesystem::directory_options::skip_permission_denied;
        for (std::filesystem::recursive_directory_iterator i(root, kOptions, failure), end; !failure && i != end;
             i.increment(failure)) {
            if (i->path().extension() == ".desktop") files.push_back(i->path());
        }
        std::sort(files.begin(), files.end());
        for (const auto& file : files) {
            std::string identifier = file.lexically_relative(root).string();
            std::replace(identifier.begin(), identifier.end(), '/', '-');
            if (!seen.insert(identifier).second) continue;
            if (auto entry = readEntry(file.string(), identifier)) entries.push_back(std::move(*entry));
        }
    }
    return entries;
}

std::string findExecutable(const std::string& program) {
    const auto isExecutable = [](const std::string& path) {
        struct stat status;
        return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::access(path.c_str(), X_OK) == 0;
    };
    if (program.empty()) return {};
    if (program.find('/') != program.npos) return isExecutable(program) ? program : std::string();
    std::string path = environmentText("PATH");
    if (path.empty()) path = "/usr/local/bin:/usr/bin:/bin";
    for (std::size_t begin = 0; begin <= path.size();) {
        const std::size_t end = std::min(path.find(':', begin), path.size());
        std::string candidate = (end > begin ? path.substr(begin, end - begin) : ".") + "/" + program;
        if (isExecutable(candidate)) return candidate;
        begin = end + 1;
    }
    return {};
}

}  // namespace velt
