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

std::optional<std::string> readLocation(const Location& location, std::string& failure) {
    if (!location.url) return readFile(location.path, &failure);
    if (location.url->isFile()) return readFile(location.url->filePath(), &failure);
    return loadUrl(location.url->text(), failure);
}

bool writeLocation(const Location& location, std::string_view content, std::string& failure) {
    if (!location.url) return writeFileAtomically(location.path, content, &failure);
    if (location.url->isFile()) return writeFileAtomically(location.url->filePath(), content, &failure);
    failure = location.url->text() + ": only files can be written";
    return false;
}

}  // namespace velt
