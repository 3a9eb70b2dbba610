// The words that the editor colours, and how.
#pragma once

#include "VELTRuntime/editor/display_attributes.h"
#include "VELTRuntime/values/text/hashing.h"
#include "VELTRuntime/values/value.h"

#include <unordered_map>

namespace velt {

/// A view's arrays of words, or nil.
struct WordLists {
    id keywords, builtins, types;
};

/// Words with their inks: exactly as they are written, a keyword before a built-in function before a type.
class VELT_EXPORT Vocabulary {
public:
    /// What in the lists is no string is left out.
    explicit Vocabulary(const WordLists& lists);

    /// Ink::None for a word that is in no list.
    Ink inkOf(std::u16string_view word) const;

    /// The one for all views, made from the lists of the view that asks first. What the lists hold later changes no
    /// colours: programs rely on it.
    static const Vocabulary& shared(const WordLists& lists);

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view word) const { return text::hashOf(word); }
    };

    void add(const id& list, Ink ink);

    std::unordered_map<std::u16string, Ink, Hash, std::equal_to<>> inks_;
    /// For the first units below so many: the lengths of words, one a bit, the highest for all longer ones.
    std::array<std::uint64_t, 128> lengths_{};
};

}  // namespace velt
