// What a line of source does to the indentation of the lines around it: three tables.
#include "VELTRuntime/editor/line_roles.h"

#include "VELTRuntime/values/text/casing.h"
#include "VELTRuntime/values/text/reading.h"

#include <algorithm>
#include <iterator>

namespace velt {

namespace {

using std::u16string_view;

constexpr bool startsWithAny(u16string_view start, const u16string_view* begin, const u16string_view* end) {
    return std::any_of(begin, end, [&](u16string_view prefix) { return start.starts_with(prefix); });
}
template <std::size_t Count> constexpr bool startsWithAny(u16string_view start, const u16string_view (&rows)[Count]) {
    return startsWithAny(start, rows, rows + Count);
}

// "delegate " opens nothing and "end property" closes nothing while typing. Programs rely on it.
constexpr u16string_view kOpeners[] = {
    u"if ",       u"for ",    u"select ",   u"do ",       u"public ",   u"private ", u"sub ",
    u"function ", u"action ", u"ibaction ", u"iboutlet ", u"property ", u"event ",   u"case ",
};

constexpr u16string_view kClosers[] = {
    u"end if",       u"end sub",   u"end function", u"end action", u"end ibaction", u"end iboutlet",
    u"end delegate", u"end event", u"end select",   u"loop",       u"else",         u"case",
};

/// Beginnings that "public " and "private " do not stand for: fields and constants open nothing.
constexpr u16string_view kNoScopes[] = {u"public dim", u"public const", u"private dim", u"private const"};

constexpr u16string_view kDeclarations[] = {
    u"sub ",      u"public sub ",      u"private sub ",       //
    u"function ", u"public function ", u"private function ",  //
    u"property ", u"public property ", u"private property ",  //
    u"delegate ", u"public delegate ", u"private delegate ",  //
    u"action ",   u"public action ",   u"private action ",    //
    u"ibaction ", u"public ibaction ", u"private ibaction ",  //
    u"iboutlet ", u"public iboutlet ", u"private iboutlet ",  //
    u"event ",    u"public event ",    u"private event ",
};

enum class Step { Keep, Lower, LowerTwice, Clear, LowerOpenCase, CloseCase };

struct IndentationRule {
    u16string_view prefix;
    Step before;
    bool raises;  // the lines after it
};

// The first row whose prefix fits decides. A bare "loop", "next" or "else" fits none. Programs rely on it.
constexpr IndentationRule kIndentationRules[] = {
    {u"if ", Step::Keep, true},
    {u"for ", Step::Keep, true},
    {u"do ", Step::Keep, true},
    {u"public ", Step::Clear, true},
    {u"private ", Step::Clear, true},
    {u"sub ", Step::Clear, true},
    {u"function ", Step::Clear, true},
    {u"action ", Step::Clear, true},
    {u"ibaction ", Step::Clear, true},
    {u"iboutlet ", Step::Clear, true},
    {u"property ", Step::Clear, true},
    {u"delegate ", Step::Clear, true},
    {u"event ", Step::Clear, true},
    {u"case ", Step::LowerOpenCase, true},
    {u"select ", Step::CloseCase, true},
    {u"end sub", Step::Clear, false},
    {u"end function", Step::Clear, false},
    {u"end action", Step::Clear, false},
    {u"end ibaction", Step::Clear, false},
    {u"end iboutlet", Step::Clear, false},
    {u"end property", Step::Clear, false},
    {u"end delegate", Step::Clear, false},
    {u"end event", Step::Clear, false},
    {u"end if", Step::Lower, false},
    {u"loop ", Step::Lower, false},
    {u"loop'", Step::Lower, false},
    {u"next ", Step::Lower, false},
    {u"next'", Step::Lower, false},
    {u"else ", Step::Lower, true},
    {u"else'", Step::Lower, true},
    {u"end select", Step::LowerTwice, false},
};

constexpr std::size_t longestPrefix() {
    std::size_t longest = 0;
    for (const auto& prefix : kOpeners) longest = std::max(longest, prefix.size());
    for (const auto& prefix : kClosers) longest = std::max(longest, prefix.size());
    for (const auto& prefix : kNoScopes) longest = std::max(longest, prefix.size());
    for (const auto& prefix : kDeclarations) longest = std::max(longest, prefix.size());
    for (const auto& rule : kIndentationRules) longest = std::max(longest, rule.prefix.size());
    return longest;
}

}  // namespace

std::u16string lineStart(u16string_view line) {
    const auto isInk = [](char16_t unit) { return !text::isWhiteSpace(unit); };
    const auto begin = std::find_if(line.begin(), line.end(), isInk);
    const auto end = std::find_if(line.rbegin(), std::make_reverse_iterator(begin), isInk).base();
    // No character's lower case is shorter than half of it, so that twice the longest row is enough.
    const auto length = std::min<std::ptrdiff_t>(end - begin, 2 * longestPrefix());
    return text::lowered(u16string_view(begin, begin + length));
}

LineRole lineRole(u16string_view start) {
    if (startsWithAny(start, kOpeners) && !startsWithAny(start, kNoScopes)) return LineRole::Opener;
    return startsWithAny(start, kClosers) ? LineRole::Closer : LineRole::Plain;
}

bool isDeclaration(u16string_view start) { return startsWithAny(start, kDeclarations); }

bool applyIndentation(Indentation& indentation, u16string_view start, u16string_view classified) {
    const auto* rule = std::find_if(std::begin(kIndentationRules), std::end(kIndentationRules),
                                    [&](const IndentationRule& row) { return start.starts_with(row.prefix); });
    if (rule == std::end(kIndentationRules) || startsWithAny(classified, kNoScopes)) return false;
    switch (rule->before) {
    case Step::Keep: break;
    case Step::Lower: --indentation.level; break;
    case Step::LowerTwice: indentation.level -= 2; break;
    case Step::Clear: indentation.level = 0; break;
    case Step::LowerOpenCase:
        if (indentation.isCaseOpen) --indentation.level;
        indentation.isCaseOpen = true;
        break;
    case Step::CloseCase: indentation.isCaseOpen = false; break;
    }
    return rule->raises;
}

}  // namespace velt
