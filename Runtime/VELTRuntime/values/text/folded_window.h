// A window of a text in comparison form, with a map back to the text's own positions.
#pragma once

#include "VELTRuntime/values/text/unit_forms.h"

#include <optional>
#include <vector>

namespace velt::text {

/// Part of a text in comparison form, divided into clusters: characters with all that combines with them. The base of
/// the window is where matches may begin; the window goes on far enough for them to end.
class FoldedWindow {
public:
    FoldedWindow(std::u16string_view text, Case respect) : text_(text), respect_(respect), forms_(unitForms(respect)) {}

    /// Fills the window from a position of the text on, for a needle of that many units in comparison form. The text
    /// from there on is taken as a text of its own. The base ends at or soon after a wanted position.
    void build(std::size_t begin, std::size_t wantedBaseEnd, std::size_t needleLength);

    bool covers(std::size_t position) const { return position >= begin_ && position < baseEnd_; }
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
        std::size_t text;  // from the window's begin
        std::size_t form;
    };

    std::size_t clusterEnd(std::size_t begin) const;
    void appendForm(std::u16string_view cluster);
    bool appendSimple(std::u16string_view cluster);

    std::u16string_view text_;
    Case respect_;
    const UnitForms& forms_;
    std::size_t begin_ = 0, baseEnd_ = 0, baseClusters_ = 0;
    std::u16string form_;
    std::vector<Start> starts_;
};

}  // namespace velt::text
