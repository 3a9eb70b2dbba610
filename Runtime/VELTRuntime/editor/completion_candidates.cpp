#include "VELTRuntime/editor/completion_candidates.h"

#include "VELTRuntime/values/text/search.h"

#include <algorithm>
#include <numeric>

namespace velt {

Candidates::Candidates(std::vector<std::u16string> names) : names_(std::move(names)) {
    lowered_.reserve(names_.size());
    for (const std::u16string& name : names_) lowered_.push_back(text::lowered(name));
}

Candidates Candidates::asGiven(std::vector<std::u16string> names) { return Candidates(std::move(names)); }

Candidates Candidates::sortedUnique(std::vector<std::u16string> names) {
    const auto order = [](const std::u16string& a, const std::u16string& b) {
        return text::compare(a, b, text::Case::Respected);
    };
    // Stable, so that of names that are canonically the same the first one stays.
    std::stable_sort(names.begin(), names.end(), [&](const auto& a, const auto& b) { return order(a, b) < 0; });
    names.erase(std::unique(names.begin(), names.end(), [&](const auto& a, const auto& b) { return order(a, b) == 0; }),
                names.end());
    return Candidates(std::move(names));
}

std::vector<std::size_t> Candidates::beginningWith(std::u16string_view prefix) const {
    const std::u16string wanted = text::lowered(prefix);
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < lowered_.size(); ++i) {
        if (std::u16string_view(lowered_[i]).starts_with(wanted)) found.push_back(i);
    }
    return found;
}

std::vector<std::size_t> Candidates::all() const {
    std::vector<std::size_t> indexes(names_.size());
    std::iota(indexes.begin(), indexes.end(), std::size_t{0});
    return indexes;
}

}  // namespace velt
