// Bytes decode to a text or not at all, and a text that was decoded strictly encodes to the same bytes.
#include "VELTRuntime/values/text/utf.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), count);
    const auto strict = velt::text::fromUtf8(bytes);
    const std::u16string lenient = velt::text::fromUtf8Lenient(bytes);
    if (strict && (*strict != lenient || velt::text::toUtf8(*strict) != bytes)) std::abort();
    if (!strict && lenient.find(u'\uFFFD') == lenient.npos) std::abort();
    if (velt::text::fromAscii(bytes).size() != count) std::abort();
    return 0;
}
