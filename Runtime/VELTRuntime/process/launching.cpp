#include "VELTRuntime/process/launching.h"

#include "VELTRuntime/builtins/string_arguments.h"
#include "VELTRuntime/platform/foundation/process/child_process.h"
#include "VELTRuntime/platform/foundation/url.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/process/desktop_entry.h"
#include "VELTRuntime/process/file_types.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

#include <algorithm>
#include <sys/stat.h>

using namespace velt;

namespace {

std::string lowerCase(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

bool holdsIgnoringCase(const std::vector<std::string>& list, const std::string& lowered) {
    return std::any_of(list.begin(), list.end(), [&](const std::string& text) { return lowerCase(text) == lowered; });
}

/// How well an application fits a name; 0 is best, kNone not at all.
constexpr int kNone = 5;
int distance(const DesktopEntry& entry, const std::string& name) {
    const std::string lowered = lowerCase(name);
    if (std::find(entry.names.begin(), entry.names.end(), name) != entry.names.end()) return 0;
    if (holdsIgnoringCase(entry.names, lowered)) return 1;
    if (entry.program() == name) return 2;
    if (lowerCase(entry.program()) == lowered) return 3;
    return holdsIgnoringCase(entry.genericNames, lowered) ? 4 : kNone;
}

std::optional<DesktopEntry> applicationNamed(const std::string& name) {
    if (name.empty()) return std::nullopt;
    std::optional<DesktopEntry> best;
    int bestDistance = kNone;
    for (const DesktopEntry& entry : desktopEntries()) {
        const int found = distance(entry, name);
        if (found >= bestDistance) continue;
        best = entry;
        bestDistance = found;
    }
    return best;
}

/// The application that a name stands for when it opens a file, or nothing.
std::optional<DesktopEntry> application(const std::string& name, const std::optional<std::string>& file) {
    if (name == "Preview") {
        const std::string type = file ? typeOfFile(*file) : std::string();
        std::vector<std::string> types{"image/png", "application/pdf"};
        if (!type.empty()) types.insert(types.begin(), type);
        return applicationForTypes(types);
    }
    if (name == "TextEdit") return applicationForType("text/plain");
    if (name == "Finder") return applicationForType("inode/directory");
    if (name == "Safari") {
        return applicationForTypes({"x-scheme-handler/http", "x-scheme-handler/https", "text/html"});
    }
    if (name == "Interface Builder") return applicationForType("application/x-designer");
    return applicationNamed(name);
}

/// The shell ends at once and leaves the program to the system, which collects it one day.
bool start(const DesktopEntry& entry, const std::optional<std::string>& argument) {
    std::vector<std::string> command = entry.commandFor(argument);
    if (command.empty()) return false;
    command.front() = findExecutable(command.front());
    if (command.front().empty()) return false;
    if (entry.inTerminal) {
        const std::string terminal = findExecutable("x-terminal-emulator");
        if (terminal.empty()) return false;
        command.insert(command.begin(), {terminal, "-e"});
    }
    struct stat status;
    SpawnRequest request;
    request.path = "/bin/sh";
    request.arguments = {"-c", "\"$@\" </dev/null >/dev/null 2>&1 &", "sh"};
    request.arguments.insert(request.arguments.end(), command.begin(), command.end());
    request.newSession = true;
    if (::stat(entry.folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) request.folder = entry.folder;
    ChildProcess child(request);
    child.wait();
    const auto end = child.end();
    return end && !end->bySignal && end->status == 0;
}

bool startFound(const std::optional<DesktopEntry>& entry, const std::optional<std::string>& argument) {
    return entry && start(*entry, argument);
}

bool openFile(const std::string& path, const std::string& applicationName) {
    struct stat status;
    if (::stat(path.c_str(), &status) != 0) return false;
    return startFound(application(applicationName, path), path);
}

id openFileWith(const id& path, const char* applicationName) {
    requireStrings(path);
    return boxResult(openFile(utf8(path), applicationName));
}

bool openAddress(const std::string& text, const UrlParts& parts) {
    if (parts.scheme.empty()) return false;
    if (parts.scheme != "file") return startFound(applicationForType("x-scheme-handler/" + parts.scheme), text);
    const std::string path = percentDecoded(parts.path);
    const std::string type = typeOfFile(path);
    return !type.empty() && startFound(applicationForType(type), path);
}

}  // namespace

id VELT_PREVIEW(const id& path) { return openFileWith(path, "Preview"); }
id VELT_TEXTEDIT(const id& path) { return openFileWith(path, "TextEdit"); }
id VELT_FINDER(const id& path) { return openFileWith(path, "Finder"); }
id VELT_VELTINTERFACEBUILDER(const id& path) { return openFileWith(path, "Interface Builder"); }

id VELT_SAFARI(const id& text) {
    requireStrings(text);
    const std::string address = utf8(text);
    if (!address.starts_with('/')) {
        if (const auto parts = parseUrl(address)) return boxResult(openAddress(address, *parts));
    }
    return boxResult(openFile(address, "Safari"));
}

id VELT_LAUNCH(const id& applicationName, const id& file, const id& deactivate) {
    VELT_CBOOL(deactivate);
    requireStrings(applicationName);
    if (file.isNil()) return boxResult(startFound(application(utf8(applicationName), std::nullopt), std::nullopt));
    requireStrings(file);
    return boxResult(openFile(utf8(file), utf8(applicationName)));
}
