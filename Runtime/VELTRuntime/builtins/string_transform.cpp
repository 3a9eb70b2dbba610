// Strings made from other strings: replaced, split, joined, trimmed, in another case.
#include "VELTRuntime/builtins/string_arguments.h"
#include "VELTRuntime/builtins/strings.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/text/search.h"

#include <unicode/uchar.h>

using namespace velt;

namespace {

/// All matches that do not overlap, from left to right.
std::vector<text::Match> allMatches(std::u16string_view text, std::u16string_view find, text::Case rule) {
    std::vector<text::Match> matches;
    text::Finder finder(text, find, rule);
    for (auto match = finder.next(0); match; match = finder.next(match->end())) matches.push_back(*match);
    return matches;
}

char16_t* put(char16_t* to, std::u16string_view units) {
    text::copyUnits(to, units);
    return to + units.size();
}

bool isTrimmed(char16_t unit) {
    return unit == u'\t' || unit == u' ' || (unit >= 0xA0 && u_charType(unit) == U_SPACE_SEPARATOR);
}

}  // namespace

id VELT_REPLACE(const id& s, const id& find, const id& with, const id& respectCase) {
    requireStrings(s, find, with);
    const std::u16string_view text = textOf(s), replacement = textOf(with);
    const std::vector<text::Match> matches = allMatches(text, textOf(find), caseRule(respectCase));
    if (matches.empty()) return freshCopy(asString(s));
    std::size_t length = text.size() + matches.size() * replacement.size();
    for (const text::Match& match : matches) length -= match.length;
    char16_t* units = nullptr;
    Ref<NSMutableString> result = make<NSMutableString>(length, units);
    std::size_t from = 0;
    for (const text::Match& match : matches) {
        units = put(units, text.substr(from, match.position - from));
        units = put(units, replacement);
        from = match.end();
    }
    put(units, text.substr(from));
    return result;
}

id VELT_SPLIT(const id& s, const id& separator) {
    requireStrings(s, separator);
    Ref<NSMutableArray> pieces = make<NSMutableArray>();
    const std::u16string_view text = textOf(s);
    text::Finder finder(text, textOf(separator), text::Case::Respected);
    std::size_t from = 0;
    for (auto match = finder.next(0); match; match = finder.next(from)) {
        pieces->append(piece(s, from, match->position - from));
        from = match->end();
    }
    pieces->append(piece(s, from, text.size() - from));
    return pieces;
}

id VELT_JOIN(const id& array, const id& separator) {
    const NSArray* elements = arrayOf(array);
    if (!elements) raiseCast("'Array' expected");
    requireStrings(separator);
    // Descriptions are kept until their text is copied; strings are their own text.
    const std::u16string_view between = textOf(separator);
    std::vector<id> described;
    std::size_t length = elements->count() > 0 ? (elements->count() - 1) * between.size() : 0;
    for (const id& element : elements->items()) {
        if (isString(element)) {
            length += textOf(element).size();
        } else {
            described.push_back(description(element));
            length += textOf(described.back()).size();
        }
    }
    char16_t* units = nullptr;
    Ref<NSMutableString> result = make<NSMutableString>(length, units);
    std::size_t nextDescribed = 0;
    bool first = true;
    for (const id& element : elements->items()) {
        if (!std::exchange(first, false)) units = put(units, between);
        units = put(units, textOf(isString(element) ? element : described[nextDescribed++]));
    }
    return result;
}

id VELT_TRIM(const id& s) {
    requireStrings(s);
    const std::u16string_view text = textOf(s);
    std::size_t begin = 0, end = text.size();
    while (begin < end && isTrimmed(text[begin])) ++begin;
    while (end > begin && isTrimmed(text[end - 1])) --end;
    return piece(s, begin, end - begin);
}

id VELT_LCASE(const id& s) {
    requireStrings(s);
    return velt::string(text::lowered(textOf(s)));
}

id VELT_UCASE(const id& s) {
    requireStrings(s);
    return velt::string(text::uppered(textOf(s)));
}

id VELT_APPEND(const id& s, const id& tail) {
    requireStrings(s, tail);
    return make<NSMutableString>(asString(s), textOf(tail));
}

id VELT_PREPEND(const id& s, const id& head) {
    requireStrings(s, head);
    return make<NSMutableString>(asString(head), textOf(s));
}
