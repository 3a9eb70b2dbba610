// The names that a completion offers, and those of them that what was typed leaves.
#pragma once

#include "VELTRuntime/export.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velt {

/// Different names in their order, searched without case.
class VELT_EXPORT Candidates {
public:
    Candidates() = default;
    /// The different ones of some names, in the plain order of texts: capitals before small letters.
    static Candidates sortedUnique(std::vector<std::u16string> names);
    /// The names as they are.
    static Candidates asGiven(std::vector<std::u16string> names);

    std::size_t count() const { return names_.size(); }
    const std::u16string& name(std::size_t index) const { return names_[index]; }
    /// The name in lower case.
    std::u16string_view lowered(std::size_t index) const { return lowered_[index]; }

    /// The indexes of the names that begin with a text, in any case.
    std::vector<std::size_t> beginningWith(std::u16string_view prefix) const;
    /// The indexes of all names.
    std::vector<std::size_t> all() const;

private:
    explicit Candidates(std::vector<std::u16string> names);

    std::vector<std::u16string> names_, lowered_;
};

}  // namespace velt
