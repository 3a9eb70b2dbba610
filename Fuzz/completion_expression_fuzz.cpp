// The expression before the caret ends the text, and its parentheses are closed only as often as they are opened
// around.
#include "VELTRuntime/editor/completion_expression.h"
#include "VELTRuntime/values/text/utf.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    using namespace velt;
    const std::u16string line = text::fromUtf8Lenient({reinterpret_cast<const char*>(bytes), count});
    const std::u16string_view expression = expressionAtEnd(line);
    if (!std::u16string_view(line).ends_with(expression)) std::abort();
    if (expression.find_first_of(u" \n\"',+-=") != expression.npos) std::abort();
    std::ptrdiff_t closed = 0;
    for (std::size_t at = expression.size(); at-- > 0;) {
        if (expression[at] == u')') ++closed;
        if (expression[at] == u'(' && --closed < 0) std::abort();
    }
    return 0;
}
