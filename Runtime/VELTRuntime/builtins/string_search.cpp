// Searching and comparing strings.
#include "VELTRuntime/builtins/string_arguments.h"
#include "VELTRuntime/builtins/strings.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/text/search.h"

using namespace velt;

namespace {

id position(std::size_t at) { return VELT_ID(static_cast<long>(at)); }
id notFound() { return VELT_ID(-1L); }

}  // namespace

id VELT_INSTR(const id& s, const id& find, const id& start, const id& respectCase) {
    requireStrings(s, find);
    const auto from = static_cast<std::size_t>(VELT_CBYTE(start));
    const text::Case rule = caseRule(respectCase);
    const std::u16string_view text = textOf(s);
    if (from >= text.size()) return notFound();
    const auto match = text::findFirst(text.substr(from), textOf(find), rule);
    return match ? position(from + match->position) : notFound();
}

id VELT_INSTRREV(const id& s, const id& find, const id& start, const id& respectCase) {
    requireStrings(s, find);
    const long offset = VELT_CBYTE(start);
    const text::Case rule = caseRule(respectCase);
    if (offset > 0) return notFound();
    const std::u16string_view text = textOf(s);
    const auto size = static_cast<long>(text.size());
    long end = offset < -size - 1 ? size : size + offset + 1;
    if (end < 0) end = size;
    if (end > size) raiseRange("'InStrRev'", end, text.size());  // start 0; programs rely on it
    const auto match = text::findLast(text.substr(0, static_cast<std::size_t>(end)), textOf(find), rule);
    return match ? position(match->position) : notFound();
}

id VELT_CONTAINS(const id& s, const id& find, const id& respectCase) {
    requireStrings(s, find);
    return boxResult(text::findFirst(textOf(s), textOf(find), caseRule(respectCase)).has_value());
}

id VELT_COUNT(const id& s, const id& find, const id& respectCase) {
    requireStrings(s, find);
    text::Finder finder(textOf(s), textOf(find), caseRule(respectCase));
    long count = 0;
    // The next search begins one unit after the last match began, so that overlapping occurrences count.
    for (auto match = finder.next(0); match; match = finder.next(match->position + 1)) ++count;
    return VELT_ID(count);
}

id VELT_STARTSWITH(const id& s, const id& prefix, const id& respectCase) {
    requireStrings(s, prefix);
    const text::Case rule = caseRule(respectCase);
    const std::u16string_view text = textOf(s), wanted = textOf(prefix);
    if (text.size() < wanted.size()) return boxResult(false);
    return boxResult(text::findFirst(text.substr(0, wanted.size()), wanted, rule).has_value());
}

id VELT_ENDSWITH(const id& s, const id& suffix, const id& respectCase) {
    requireStrings(s, suffix);
    const text::Case rule = caseRule(respectCase);
    const std::u16string_view text = textOf(s), wanted = textOf(suffix);
    if (text.size() < wanted.size()) return boxResult(false);
    const auto match = text::findLast(text.substr(text.size() - wanted.size()), wanted, rule);
    return boxResult(match && match->position == 0);
}

id VELT_COMPARE(const id& a, const id& b, const id& respectCase) {
    requireStrings(a, b);
    return VELT_ID(static_cast<long>(text::compare(textOf(a), textOf(b), caseRule(respectCase))));
}
