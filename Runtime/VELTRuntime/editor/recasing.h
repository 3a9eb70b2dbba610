// The spelling in which the language's own words are written.
#pragma once

#include "VELTRuntime/export.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace velt {

/// The words of the language by their lower case. Of a word in several lists the keyword counts before the built-in and
/// that before the type; of several spellings in one list the last.
class VELT_EXPORT Recasing {
public:
    using Words = std::span<const std::u16string>;

    Recasing() = default;
    Recasing(Words keywords, Words builtins, Words types);

    bool isKeyword(std::u16string_view word) const;

    /// Gives every word of a line that is in the lists the spelling that it has there. Without keywords nothing is
    /// done.
    void recase(std::u16string& line) const;

private:
    struct Entry {
        std::u16string spelling;
        int list;
    };
    struct Hash : std::hash<std::u16string_view> {
        using is_transparent = void;
    };
    void add(Words words, int list);
    const Entry* find(std::u16string_view word) const;

    std::unordered_map<std::u16string, Entry, Hash, std::equal_to<>> entries_;
    std::size_t longest_ = 0;  // in lower case
    bool hasKeywords_ = false;
};

}  // namespace velt
