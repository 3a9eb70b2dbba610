#include "VELTRuntime/process/file_types.h"

#include "VELTRuntime/platform/foundation/file_contents.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fnmatch.h>
#include <fstream>
#include <string_view>
#include <sys/stat.h>

namespace velt {

namespace {

/// The best pattern for a file name in the databases' lists "weight:type:pattern[:flags]"; empty when none fits.
std::string typeByName(const std::string& name) {
    std::string best;
    int bestWeight = -1;
    std::size_t bestLength = 0;
    for (const std::string& folder : dataFolders()) {
        std::ifstream lines(folder + "/mime/globs2");
        std::string line;
        while (std::getline(lines, line)) {
            const std::size_t first = line.find(':');
            const std::size_t second = first == line.npos ? line.npos : line.find(':', first + 1);
            if (second == line.npos || line.front() == '#') continue;
            const std::size_t third = std::min(line.find(':', second + 1), line.size());
            const std::string pattern = line.substr(second + 1, third - second - 1);
            const bool respectsCase = line.substr(third).find("cs") != line.npos;
            const int weight = std::atoi(line.c_str());
            if (weight < bestWeight || (weight == bestWeight && pattern.size() <= bestLength)) continue;
            if (::fnmatch(pattern.c_str(), name.c_str(), respectsCase ? 0 : FNM_CASEFOLD) != 0) continue;
            best = line.substr(first + 1, second - first - 1);
            bestWeight = weight;
            bestLength = pattern.size();
        }
    }
    return best;
}

std::string typeByContent(const std::string& path) {
    char bytes[512];
    std::ifstream file(path, std::ios::binary);
    file.read(bytes, sizeof bytes);
    const std::string_view head(bytes, static_cast<std::size_t>(file.gcount()));
    struct Mark {
        std::string_view bytes;
        const char* type;
    };
    constexpr Mark kMarks[] = {{"%PDF-", "application/pdf"},      {"\x89PNG\r\n", "image/png"},
                               {"\xff\xd8\xff", "image/jpeg"},    {"GIF8", "image/gif"},
                               {"<!DOCTYPE html", "text/html"},   {"<html", "text/html"},
                               {"<ui ", "application/x-designer"}};
    for (const Mark& mark : kMarks) {
        if (head.starts_with(mark.bytes)) return mark.type;
    }
    return head.find('\0') == head.npos ? "text/plain" : "application/octet-stream";
}

/// The lists of the user's and the system's choices, the most particular first.
std::vector<KeyGroups> choiceLists() {
    std::vector<std::string> names;
    const char* desktops = std::getenv("XDG_CURRENT_DESKTOP");
    std::string desktop;
    for (const char* c = desktops ? desktops : "";; ++c) {
        if (*c && *c != ':') {
            desktop += static_cast<char>(std::tolower(static_cast<unsigned char>(*c)));
            continue;
        }
        if (!desktop.empty()) names.push_back(desktop + "-mimeapps.list");
        desktop.clear();
        if (!*c) break;
    }
    names.push_back("mimeapps.list");
    std::vector<KeyGroups> lists;
    const auto add = [&](const std::string& folder) {
        for (const std::string& name : names) {
            std::string path = folder;
            path.append("/").append(name);
            if (KeyGroups groups = readKeyFile(path); !groups.empty()) lists.push_back(std::move(groups));
        }
    };
    for (const std::string& folder : configurationFolders()) add(folder);
    for (const std::string& folder : dataFolders()) add(folder + "/applications");
    return lists;
}

std::vector<std::string> chosen(const KeyGroups& list, const char* group, const std::string& type) {
    const auto found = list.find(group);
    if (found == list.end()) return {};
    const auto value = found->second.find(type);
    return value == found->second.end() ? std::vector<std::string>() : listOf(value->second);
}

bool contains(const std::vector<std::string>& list, const std::string& text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

}  // namespace

std::string typeOfFile(const std::string& path) {
    struct stat status;
    if (::stat(path.c_str(), &status) != 0) return {};
    if (S_ISDIR(status.st_mode)) return "inode/directory";
    std::string type = typeByName(std::filesystem::path(path).filename().string());
    if (!type.empty()) return type;
    return S_ISREG(status.st_mode) ? typeByContent(path) : "application/octet-stream";
}

std::optional<DesktopEntry> applicationForType(const std::string& type) {
    const std::vector<DesktopEntry> entries = desktopEntries();
    const std::vector<KeyGroups> lists = choiceLists();
    const auto find = [&](const std::vector<std::string>& identifiers) -> const DesktopEntry* {
        for (const std::string& identifier : identifiers) {
            for (const DesktopEntry& entry : entries) {
                if (entry.identifier == identifier) return &entry;
            }
        }
        return nullptr;
    };
    for (const KeyGroups& list : lists) {
        if (const DesktopEntry* entry = find(chosen(list, "Default Applications", type))) return *entry;
    }
    std::vector<std::string> removed;
    for (const KeyGroups& list : lists) {
        std::vector<std::string> added = chosen(list, "Added Associations", type);
        std::erase_if(added, [&](const std::string& identifier) { return contains(removed, identifier); });
        if (const DesktopEntry* entry = find(added)) return *entry;
        for (const std::string& identifier : chosen(list, "Removed Associations", type)) removed.push_back(identifier);
    }
    for (const DesktopEntry& entry : entries) {
        if (contains(entry.types, type) && !contains(removed, entry.identifier)) return entry;
    }
    if (type.starts_with("text/") && type != "text/plain") return applicationForType("text/plain");
    return std::nullopt;
}

std::optional<DesktopEntry> applicationForTypes(const std::vector<std::string>& types) {
    for (const std::string& type : types) {
        if (auto entry = applicationForType(type)) return entry;
    }
    return std::nullopt;
}

}  // namespace velt
