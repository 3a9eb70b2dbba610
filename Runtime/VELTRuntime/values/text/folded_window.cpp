#include "VELTRuntime/values/text/folded_window.h"

#include "VELTRuntime/values/text/plain_text.h"
#include "VELTRuntime/values/text/utf.h"

#include <algorithm>

namespace velt::text {

void FoldedWindow::build(std::size_t begin, std::size_t wantedBaseEnd, std::size_t needleLength) {
    begin_ = begin;
    baseEnd_ = 0;
    form_.clear();
    starts_.clear();
    std::size_t formAtBaseEnd = 0;
    std::size_t at = begin;
    while (at < text_.size()) {
        if (baseEnd_ == 0 && at > begin && at >= wantedBaseEnd) {
            baseEnd_ = at;
            baseClusters_ = starts_.size();
            formAtBaseEnd = form_.size();
        }
        // A match that begins in the base may be as long as the needle.
        if (baseEnd_ != 0 && form_.size() >= formAtBaseEnd + needleLength) break;
        starts_.push_back({at - begin, form_.size()});
        const std::size_t end = clusterEnd(at);
        appendForm(text_.substr(at, end - at));
        at = end;
    }
    if (baseEnd_ == 0) {
        baseEnd_ = at;
        baseClusters_ = starts_.size();
    }
    starts_.push_back({at - begin, form_.size()});
}

std::size_t FoldedWindow::clusterEnd(std::size_t begin) const {
    std::size_t at = begin + codePointAt(text_, begin).length;
    while (at < text_.size() && text_[at] >= kFirstCombining) {
        const CodePoint next = codePointAt(text_, at);
        if (next.length == 2 ? beginsCharacter(next.value) : forms_.blockOf(text_[at]).begins(text_[at])) break;
        at += next.length;
    }
    return at;
}

void FoldedWindow::appendForm(std::u16string_view cluster) {
    const char16_t first = cluster[0];
    if (cluster.size() == 1) {
        form_ += forms_.blockOf(first).form(first);
    } else if (!appendSimple(cluster)) {
        form_ += comparisonForm(cluster, respect_);
    }
}

/// Appends the form of a character with its marks if each has a form of one unit and they are in canonical order.
bool FoldedWindow::appendSimple(std::u16string_view cluster) {
    const std::size_t before = form_.size();
    std::uint8_t lastClass = 0;
    for (const char16_t unit : cluster) {
        const UnitBlock& block = forms_.blockOf(unit);
        const std::uint8_t combiningClass = block.combiningClass(unit);
        if (!block.isSimple(unit) || (combiningClass > 0 && combiningClass < lastClass)) {
            form_.resize(before);
            return false;
        }
        lastClass = combiningClass;
        form_ += block.form(unit);
    }
    return true;
}

std::size_t FoldedWindow::clusterAt(std::size_t position) const {
    const std::size_t offset = position - begin_;
    const auto after = std::upper_bound(starts_.begin(), starts_.end(), offset,
                                        [](std::size_t at, const Start& start) { return at < start.text; });
    return static_cast<std::size_t>(after - starts_.begin()) - 1;
}

std::optional<std::size_t> FoldedWindow::clusterOfForm(std::size_t position) const {
    const auto found = std::lower_bound(starts_.begin(), starts_.end(), position,
                                        [](const Start& start, std::size_t at) { return start.form < at; });
    if (found == starts_.end() || found->form != position) return std::nullopt;
    return static_cast<std::size_t>(found - starts_.begin());
}

}  // namespace velt::text
