// Parts of strings, and strings made from characters.
#include "VELTRuntime/builtins/string_arguments.h"
#include "VELTRuntime/builtins/strings.h"

using namespace velt;

id VELT_LEN(const id& s) {
    requireStrings(s);
    return VELT_ID(static_cast<unsigned long>(textOf(s).size()));
}

id VELT_AT(const id& s, const id& position) {
    requireStrings(s);
    const auto at = static_cast<std::size_t>(VELT_CBYTE(position));
    if (at >= textOf(s).size()) raise(kRuntimeException, "'At': Trying to read out of boundary");
    return piece(s, at, 1);
}

id VELT_UNICODE(const id& s, const id& position) {
    requireStrings(s);
    const long at = VELT_CBYTE(position);
    const std::u16string_view text = textOf(s);
    if (static_cast<std::size_t>(at) >= text.size()) raiseRange("'Unicode'", at, text.size());
    return VELT_ID(static_cast<long>(text[static_cast<std::size_t>(at)]));
}

id VELT_CHARACTER(const id& code) {
    const auto unit = static_cast<char16_t>(VELT_CLONG(code));
    return velt::string(std::u16string_view(&unit, 1));
}

id VELT_SPACE(const id& count, const id& fill) {
    requireStrings(fill);
    const long length = VELT_CBYTE(count);
    if (length < 1) return emptyString();
    const std::u16string_view pattern = textOf(fill);
    if (pattern.empty())
        raise(kInvalidArgumentException,
              "'Space': an empty string cannot fill " + std::to_string(length) + " characters");
    char16_t* units = nullptr;
    Ref<NSMutableString> result = make<NSMutableString>(static_cast<std::size_t>(length), units);
    for (std::size_t i = 0, j = 0; i < static_cast<std::size_t>(length); ++i) {
        units[i] = pattern[j];
        if (++j == pattern.size()) j = 0;
    }
    result->freeze();  // programs rely on it
    return result;
}

id VELT_LEFT(const id& s, const id& count) {
    requireStrings(s);
    const long wanted = VELT_CBYTE(count);
    if (wanted <= 0) return emptyString();
    return piece(s, 0, std::min(static_cast<std::size_t>(wanted), textOf(s).size()));
}

id VELT_MID(const id& s, const id& start, const id& length) {
    requireStrings(s);
    const long begin = VELT_CBYTE(start);
    const long wanted = VELT_CBYTE(length);
    const auto size = static_cast<long>(textOf(s).size());
    const bool toEnd = begin >= 0 && wanted == -1;
    if (begin < 0 || begin >= size || (wanted < 0 && !toEnd)) return emptyString();
    const long left = size - begin;
    return piece(s, static_cast<std::size_t>(begin), static_cast<std::size_t>(toEnd ? left : std::min(wanted, left)));
}

id VELT_RIGHT(const id& s, const id& count) {
    requireStrings(s);
    long wanted = VELT_CBYTE(count);
    const auto size = static_cast<long>(textOf(s).size());
    if (wanted >= size) wanted = size - 1;  // all but the first unit; programs rely on it
    if (wanted < 0) return emptyString();
    return piece(s, static_cast<std::size_t>(size - wanted), static_cast<std::size_t>(wanted));
}
