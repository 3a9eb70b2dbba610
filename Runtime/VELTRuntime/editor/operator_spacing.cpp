// The house style of operators, as a table of replacements.
#include "VELTRuntime/editor/operator_spacing.h"

#include "VELTRuntime/editor/word_characters.h"
#include "VELTRuntime/values/text/utf.h"

#include <algorithm>
#include <bitset>
#include <iterator>

namespace velt {

namespace {

using std::u16string_view;

constexpr bool kOnce = false, kUntilNoneIsLeft = true;

// An operator of two characters is torn apart by the rows of its characters and mended further below.
constexpr SpacingRule kRules[] = {
    {u"\r", u"", kOnce},
    {u"\t", u" ", kOnce},
    {u"+", u" + ", kOnce},
    {u"-", u" - ", kOnce},
    {u"/", u" / ", kOnce},
    {u"\\", u" \\ ", kOnce},
    {u"*", u" * ", kOnce},
    {u"&", u" & ", kOnce},
    {u",", u" , ", kOnce},
    {u":=", u" := ", kOnce},
    {u"<>", u" <> ", kOnce},
    {u">=", u" >= ", kOnce},
    {u"<=", u" <= ", kOnce},
    {u"=", u" = ", kOnce},
    {u">", u" > ", kOnce},
    {u"<", u" < ", kOnce},
    {u"  ", u" ", kUntilNoneIsLeft},
    {u" .", u".", kUntilNoneIsLeft},
    {u". ", u".", kUntilNoneIsLeft},
    // An exclamation mark with a blank beside it becomes a dot. Programs rely on it.
    {u" !", u".", kUntilNoneIsLeft},
    {u"! ", u".", kUntilNoneIsLeft},
    {u" ,", u",", kUntilNoneIsLeft},
    {u"( ", u"(", kUntilNoneIsLeft},
    {u" )", u")", kUntilNoneIsLeft},
    {u" - - ", u" - -", kUntilNoneIsLeft},
    {u" + + ", u" + +", kUntilNoneIsLeft},
    {u" + - ", u" + -", kUntilNoneIsLeft},
    {u" - + ", u" - +", kUntilNoneIsLeft},
    {u" < > ", u" <> ", kUntilNoneIsLeft},
    {u" < = ", u" <= ", kUntilNoneIsLeft},
    {u" > = ", u" >= ", kUntilNoneIsLeft},
    {u" : = ", u" := ", kUntilNoneIsLeft},
    {u" < objc > ", u"<objc>", kOnce},
    {u" < / objc > ", u"</objc>", kOnce},
    {u" < string > ", u"<string>", kOnce},
    {u" < / string > ", u"</string>", kOnce},
};
/// Calls are joined when only blanks are left, but before operators get theirs: those do not count.
constexpr std::size_t kRulesBeforeCalls = 2;
static_assert(kRules[kRulesBeforeCalls - 1].from == u"\t");

/// Which characters a text has: most rules look for one that a line has not.
class Characters {
public:
    void add(u16string_view text) {
        for (const char16_t unit : text) seen_.set(unit < kOther ? unit : kOther);
    }
    bool hold(u16string_view text) const {
        return std::all_of(text.begin(), text.end(), [this](char16_t unit) { return seen_[unit]; });
    }

private:
    static constexpr char16_t kOther = 128;
    std::bitset<kOther + 1> seen_;
};

/// Replaces every occurrence; false when there is none.
bool replaceAll(std::u16string& text, const SpacingRule& rule, std::u16string& scratch) {
    std::size_t found = text.find(rule.from);
    if (found == text.npos) return false;
    scratch.clear();
    std::size_t from = 0;
    for (; found != text.npos; found = text.find(rule.from, from)) {
        scratch.append(text, from, found - from).append(rule.to);
        from = found + rule.from.size();
    }
    scratch.append(text, from);
    text.swap(scratch);
    return true;
}

/// The word that ends at a position is there, begins with a letter and is no keyword.
bool isCalledAt(u16string_view code, std::size_t end, const Recasing& words) {
    std::size_t begin = end;
    // A unit of a pair is looked at by itself: it neither ends a word nor begins one.
    while (begin > 0 && !endsWord(code[begin - 1])) --begin;
    const u16string_view word = code.substr(begin, end - begin);
    return !word.empty() && startsWord(text::codePointAt(word, 0).value) && !words.isKeyword(word);
}

void joinCalls(std::u16string& code, const Recasing& words, std::u16string& scratch) {
    scratch.clear();
    std::size_t from = 0;
    for (std::size_t at = code.find(u"( "); at != code.npos; at = code.find(u"( ", at + 1)) {
        std::size_t begin = at;
        while (begin > from && code[begin - 1] == u' ') --begin;
        if (begin == at || !isCalledAt(code, begin, words)) continue;
        scratch.append(code, from, begin - from);
        from = at;
    }
    if (from == 0) return;
    scratch.append(code, from);
    code.swap(scratch);
}

}  // namespace

std::span<const SpacingRule> spacingRules() { return kRules; }

void spaceOperators(std::u16string& code, const Recasing& words) {
    std::u16string scratch;
    Characters present;
    present.add(code);
    const auto apply = [&](const SpacingRule& rule) {
        if (!present.hold(rule.from)) return;
        bool changed = replaceAll(code, rule, scratch);
        if (!changed) return;
        present.add(rule.to);
        while (rule.repeats && changed) changed = replaceAll(code, rule, scratch);
    };
    const auto calls = std::begin(kRules) + kRulesBeforeCalls;
    std::for_each(std::begin(kRules), calls, apply);
    joinCalls(code, words, scratch);
    std::for_each(calls, std::end(kRules), apply);
}

}  // namespace velt
