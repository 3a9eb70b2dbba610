// Any text has a reading, and what a number is written as reads back.
#include "VELTRuntime/values/text/reading.h"
#include "VELTRuntime/values/text/writing.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    std::u16string text(count / 2, u'\0');
    std::memcpy(text.data(), bytes, text.size() * 2);
    const double value = velt::text::doubleReading(text);
    velt::text::floatReading(text);
    velt::text::integerReading(text);
    velt::text::booleanReading(text);
    if (std::isfinite(value)) {
        const velt::text::NumberText written = velt::text::shortestText(value);
        const std::u16string wide(written.view().begin(), written.view().end());
        if (velt::text::doubleReading(wide) != value) std::abort();
    }
    return 0;
}
