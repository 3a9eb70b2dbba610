#include "VELTRuntime/builtins/location.h"

#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/foundation/url_loader.h"

namespace velt {

Location locationOf(std::string_view text) {
    Location location;
    if (!text.starts_with('/')) location.url = NSURL::withString(text);
    if (!location.url) location.path = text;
    return location;
}

std::optional<std::string> readLocation(const Location& location) {
    if (!location.url) return readFile(location.path);
    if (location.url->isFile()) return readFile(location.url->filePath());
    std::string failure;  // nobody is told: what cannot be read has one reason for programs
    return loadUrl(location.url->text(), failure);
}

bool writeLocation(const Location& location, std::string_view content) {
    if (!location.url) return writeFileAtomically(location.path, content);
    return location.url->isFile() && writeFileAtomically(location.url->filePath(), content);
}

}  // namespace velt
