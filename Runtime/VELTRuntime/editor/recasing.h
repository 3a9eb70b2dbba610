// The spelling in which the language's own words are written.
#pragma once

#include "VELTRuntime/editor/vocabulary.h"

namespace velt {

/// The words of the language by their lower case. Of a word in several lists the keyword counts before the built-in and
/// that before the type; of several spellings in one list the last.
class VELT_EXPORT Recasing {
public:
    Recasing() = default;
    /// What in the lists is no string is left out.
    explicit Recasing(const WordLists& lists);

    bool isKeyword(std::u16string_view word) const;

    /// Gives every word of a line that is in the lists the spelling that it has there. Without keywords nothing is
    /// done.
    void recase(std::u16string& line) const;

private:
    struct Entry {
        std::u16string spelling;
        Ink list;
    };
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view word) const { return text::hashOf(word); }
    };
    void add(const id& words, Ink list);
    const Entry* find(std::u16string_view word) const;

    std::unordered_map<std::u16string, Entry, Hash, std::equal_to<>> entries_;
    std::size_t longest_ = 0;  // in lower case
    bool hasKeywords_ = false;
};

}  // namespace velt
