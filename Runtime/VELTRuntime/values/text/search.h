// Searching and comparing texts by canonical equivalence, with or without case.
//
// A match of a needle N in a text H is a range of whole code points of H (a surrogate without its partner is one of its
// own) whose comparison form is N's comparison form, and which is not followed by a character that combines with it.
// The comparison form is the canonical decomposition, with case ignored also of the full case folding (casing.h).
// So "é" is found in either spelling, "e" is not found within it, and without case "STRASSE" matches "straße".
// An empty needle matches nowhere. Positions count UTF-16 code units of H.
#pragma once

#include "VELTRuntime/values/text/casing.h"

#include <memory>
#include <optional>

namespace velt::text {

struct Match {
    std::size_t position;
    std::size_t length;
    std::size_t end() const { return position + length; }
    friend bool operator==(const Match&, const Match&) = default;
};

/// The first match, or nothing.
VELT_EXPORT std::optional<Match> findFirst(std::u16string_view haystack, std::u16string_view needle, Case respect);
/// The match that begins last, or nothing.
VELT_EXPORT std::optional<Match> findLast(std::u16string_view haystack, std::u16string_view needle, Case respect);

/// Finds one needle in one text again and again; both must outlive it.
class VELT_EXPORT Finder {
public:
    Finder(std::u16string_view haystack, std::u16string_view needle, Case respect);
    ~Finder();
    Finder(const Finder&) = delete;
    Finder& operator=(const Finder&) = delete;

    /// The first match at or after `from`. The text from there on is taken as a text of its own, even when `from` lies
    /// within a character.
    std::optional<Match> next(std::size_t from);
    /// The match that begins last.
    std::optional<Match> last();

private:
    class Strategy;
    template <class Implementation> class By;
    std::unique_ptr<Strategy> strategy_;
};

/// The texts are canonically equivalent.
VELT_EXPORT bool equalCanonically(std::u16string_view a, std::u16string_view b);

/// -1, 0 or 1 as a comes before, is the same as or comes after b: the order of the code points of their comparison
/// forms.
VELT_EXPORT int compare(std::u16string_view a, std::u16string_view b, Case respect);

}  // namespace velt::text
