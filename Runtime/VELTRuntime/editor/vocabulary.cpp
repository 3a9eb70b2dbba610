#include "VELTRuntime/editor/vocabulary.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {

std::uint64_t bitOf(std::size_t length) { return std::uint64_t{1} << std::min<std::size_t>(length, 63); }

}  // namespace

Vocabulary::Vocabulary(const WordLists& lists) {
    add(lists.keywords, Ink::Keyword);
    add(lists.builtins, Ink::Builtin);
    add(lists.types, Ink::Type);
}

void Vocabulary::add(const id& list, Ink ink) {
    const NSArray* words = arrayOf(list);
    if (!words) return;
    for (const id& word : words->items()) {
        if (!isString(word)) continue;
        const std::u16string_view text = textOf(word);
        if (text.empty() || !inks_.try_emplace(std::u16string(text), ink).second) continue;
        if (text[0] < lengths_.size()) lengths_[text[0]] |= bitOf(text.size());
    }
}

Ink Vocabulary::inkOf(std::u16string_view word) const {
    if (word.empty()) return Ink::None;
    if (word[0] < lengths_.size() && !(lengths_[word[0]] & bitOf(word.size()))) return Ink::None;
    const auto found = inks_.find(word);
    return found == inks_.end() ? Ink::None : found->second;
}

const Vocabulary& Vocabulary::shared(const WordLists& lists) {
    static const Vocabulary vocabulary(lists);
    return vocabulary;
}

}  // namespace velt
