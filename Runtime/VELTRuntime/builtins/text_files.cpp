#include "VELTRuntime/builtins/text_files.h"

#include "VELTRuntime/builtins/location.h"
#include "VELTRuntime/builtins/string_arguments.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/text/utf.h"

using namespace velt;

id VELT_READSTRING(const id& location) {
    requireStrings(location);
    const auto bytes = readLocation(locationOf(utf8(location)));
    const auto text = bytes ? text::fromUtf8(*bytes) : std::nullopt;
    if (!text) raise(kRuntimeException, "ReadString failed");
    return velt::string(std::u16string_view(*text));
}

id VELT_WRITESTRING(const id& text, const id& location) {
    requireStrings(text, location);
    return boxResult(writeLocation(locationOf(utf8(location)), utf8(text)));
}
