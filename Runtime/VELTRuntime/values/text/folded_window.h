// A window of a text in comparison form, with a map back to the text's own positions.
#pragma once

#include "VELTRuntime/values/text/casing.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace velt::text {

/// Part of a text in comparison form, divided into clusters: characters with all that combines with them. The base of
/// the window is where matches may begin; the window goes on far enough for them to end.
class FoldedWindow {
public:
    /// Units of text in a base.
    static constexpr std::size_t kBase = 32768;

    /// Fills the window from a position of the text, which begins a cluster, for a needle of that many units in
    /// comparison form. The base ends at or before baseLimit.
    void build(std::u16string_view text, std::size_t begin, std::size_t needleLength, Case respect,
               std::size_t baseLimit = static_cast<std::size_t>(-1));

    bool covers(std::size_t position) const { return position >= begin_ && position < baseEnd_; }
    std::size_t begin() const { return begin_; }
    std::size_t baseEnd() const { return baseEnd_; }
    std::size_t baseClusters() const { return baseClusters_; }
    const std::u16string& form() const { return form_; }

    /// The cluster that a position of the text lies in.
    std::size_t clusterAt(std::size_t position) const;
    /// Where a cluster begins in the text and in the form; the number after the last cluster gives the ends.
    std::size_t clusterBegin(std::size_t cluster) const { return begin_ + starts_[cluster].text; }
    std::size_t formBegin(std::size_t cluster) const { return starts_[cluster].form; }
    /// The cluster that begins at a position of the form, or nothing when none does.
    std::optional<std::size_t> clusterOfForm(std::size_t position) const;

private:
    struct Start {
        std::uint32_t text;  // from the window's begin
        std::uint32_t form;
    };

    std::size_t begin_ = 0, baseEnd_ = 0, baseClusters_ = 0;
    std::u16string form_;
    std::vector<Start> starts_;
};

}  // namespace velt::text
