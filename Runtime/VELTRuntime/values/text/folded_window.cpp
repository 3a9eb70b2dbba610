#include "VELTRuntime/values/text/folded_window.h"

#include "VELTRuntime/values/text/plain_text.h"

#include <algorithm>
#include <array>
#include <atomic>

namespace velt::text {

namespace {

/// What the comparison form does with the units of one block of 256, worked out when the block is first met.
struct UnitBlock {
    enum class Kind : std::uint8_t { Single, Begins, Combines };
    std::array<char16_t, 256> mapped;  // the form of a Single
    std::array<Kind, 256> kinds;       // Begins: begins a cluster, with a form of its own; Combines: does not
};

class UnitTable {
public:
    explicit UnitTable(Case respect) : respect_(respect) {}
    const UnitBlock& blockOf(char16_t unit) {
        std::atomic<const UnitBlock*>& slot = blocks_[unit >> 8];
        const UnitBlock* block = slot.load(std::memory_order_acquire);
        if (!block) {
            const UnitBlock* made = make(static_cast<char16_t>(unit & 0xFF00));
            if (slot.compare_exchange_strong(block, made, std::memory_order_acq_rel)) return *made;
            delete made;
        }
        return *block;
    }

private:
    const UnitBlock* make(char16_t first) const {
        auto* block = new UnitBlock;
        for (unsigned i = 0; i < 256; ++i) {
            const auto unit = static_cast<char16_t>(first + i);
            const std::u16string form = comparisonForm(std::u16string_view(&unit, 1), respect_);
            const bool surrogate = unit >= 0xD800 && unit < 0xE000;
            block->mapped[i] = form[0];
            block->kinds[i] = surrogate                                      ? UnitBlock::Kind::Begins
                              : !beginsCharacter(unit)                       ? UnitBlock::Kind::Combines
                              : form.size() == 1 && beginsCharacter(form[0]) ? UnitBlock::Kind::Single
                                                                             : UnitBlock::Kind::Begins;
        }
        return block;
    }

    Case respect_;
    std::array<std::atomic<const UnitBlock*>, 256> blocks_{};
};

UnitTable& unitTable(Case respect) {
    static UnitTable& respecting = *new UnitTable(Case::Respected);
    static UnitTable& ignoring = *new UnitTable(Case::Ignored);
    return respect == Case::Respected ? respecting : ignoring;
}

}  // namespace

void FoldedWindow::build(std::u16string_view text, std::size_t begin, std::size_t needleLength, Case respect,
                         std::size_t baseLimit) {
    UnitTable& table = unitTable(respect);
    const std::size_t wantedEnd = std::min({text.size(), begin + kBase, std::max(baseLimit, begin + 1)});
    begin_ = begin;
    baseEnd_ = 0;
    form_.clear();
    starts_.clear();
    std::size_t formAtBaseEnd = 0;
    std::size_t at = begin;
    while (at < text.size()) {
        if (baseEnd_ == 0 && at >= wantedEnd) {
            baseEnd_ = at;
            baseClusters_ = starts_.size();
            formAtBaseEnd = form_.size();
        }
        // A match that begins in the base may be as long as the needle; one cluster more shows where it ends.
        if (baseEnd_ != 0 && form_.size() >= formAtBaseEnd + needleLength) break;
        starts_.push_back({static_cast<std::uint32_t>(at - begin), static_cast<std::uint32_t>(form_.size())});
        const char16_t unit = text[at];
        const UnitBlock& block = table.blockOf(unit);
        std::size_t end = at + codePointAt(text, at).length;
        bool single = block.kinds[unit & 0xFF] == UnitBlock::Kind::Single;
        while (end < text.size() && text[end] >= kFirstCombining) {
            const UnitBlock::Kind next = table.blockOf(text[end]).kinds[text[end] & 0xFF];
            const bool surrogate = text[end] >= 0xD800 && text[end] < 0xE000;
            if (surrogate ? beginsCharacter(codePointAt(text, end).value) : next != UnitBlock::Kind::Combines) break;
            end += codePointAt(text, end).length;
            single = false;
        }
        if (single) {
            form_ += block.mapped[unit & 0xFF];
        } else {
            form_ += comparisonForm(text.substr(at, end - at), respect);
        }
        at = end;
    }
    if (baseEnd_ == 0) {
        baseEnd_ = at;
        baseClusters_ = starts_.size();
    }
    starts_.push_back({static_cast<std::uint32_t>(at - begin), static_cast<std::uint32_t>(form_.size())});
}

std::size_t FoldedWindow::clusterAt(std::size_t position) const {
    const auto offset = static_cast<std::uint32_t>(position - begin_);
    const auto after = std::upper_bound(starts_.begin(), starts_.end(), offset,
                                        [](std::uint32_t at, const Start& start) { return at < start.text; });
    return static_cast<std::size_t>(after - starts_.begin()) - 1;
}

std::optional<std::size_t> FoldedWindow::clusterOfForm(std::size_t position) const {
    const auto found = std::lower_bound(starts_.begin(), starts_.end(), position,
                                        [](const Start& start, std::size_t at) { return start.form < at; });
    if (found == starts_.end() || found->form != position) return std::nullopt;
    return static_cast<std::size_t>(found - starts_.begin());
}

}  // namespace velt::text
