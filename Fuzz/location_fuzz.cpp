// Any text is a location: a URL whose parts can be taken apart, or a path.
#include "VELTRuntime/builtins/location.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
    const std::string_view text(reinterpret_cast<const char*>(data), count);
    const velt::Location location = velt::locationOf(text);
    if (location.url) {
        if (text.starts_with('/') || location.url->text() != text) std::abort();
        location.url->filePath();
    } else if (location.path != text) {
        std::abort();
    }
    velt::percentDecoded(text);
    return 0;
}
