// The spelling in which the language's own words are written.
#include "VELTRuntime/editor/recasing.h"

#include "VELTRuntime/editor/word_characters.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/casing.h"

#include <algorithm>
#include <array>

namespace velt {

Recasing::Recasing(const WordLists& lists) {
    add(lists.keywords, Ink::Keyword);
    hasKeywords_ = !entries_.empty();
    add(lists.builtins, Ink::Builtin);
    add(lists.types, Ink::Type);
}

void Recasing::add(const id& words, Ink list) {
    const NSArray* array = arrayOf(words);
    if (!array) return;
    for (const id& word : array->items()) {
        if (!isString(word)) continue;
        const std::u16string_view spelling = textOf(word);
        std::u16string key = text::lowered(spelling);
        longest_ = std::max(longest_, key.size());
        const auto [entry, isNew] = entries_.try_emplace(std::move(key), std::u16string(spelling), list);
        if (!isNew && entry->second.list == list) entry->second.spelling = spelling;
    }
}

const Recasing::Entry* Recasing::find(std::u16string_view word) const {
    const auto entryOf = [this](std::u16string_view key) -> const Entry* {
        const auto found = entries_.find(key);
        return found == entries_.end() ? nullptr : &found->second;
    };
    std::array<char16_t, 64> ascii;
    const bool isAscii = std::all_of(word.begin(), word.end(), [](char16_t unit) { return unit < 0x80; });
    if (!isAscii) return entryOf(text::lowered(word));
    if (word.size() > longest_) return nullptr;
    if (word.size() > ascii.size()) return entryOf(text::lowered(word));
    std::transform(word.begin(), word.end(), ascii.begin(), [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
    });
    return entryOf({ascii.data(), word.size()});
}

bool Recasing::isKeyword(std::u16string_view word) const {
    const Entry* entry = find(word);
    return entry && entry->list == Ink::Keyword;
}

void Recasing::recase(std::u16string& line) const {
    if (!hasKeywords_) return;
    for (SourceWord word = nextWord(line, 0); !word.isEmpty(); word = nextWord(line, word.end)) {
        const Entry* entry = find(std::u16string_view(line).substr(word.begin, word.end - word.begin));
        if (!entry) continue;
        line.replace(word.begin, word.end - word.begin, entry->spelling);
        word.end = word.begin + entry->spelling.size();
    }
}

}  // namespace velt
