// The string literals of a source text: its quotes, paired from the text's begin on, kept from edit to edit.
#pragma once

#include "VELTRuntime/editor/changed_range.h"

namespace velt {

/// Outside a string a quote opens one; inside it closes it, unless it is escaped: behind one backslash that does not
/// itself stand behind a backslash, and not within the first three units of the text. A string without its closing
/// quote is none.
class VELT_EXPORT StringPairs final : private SourceListener {
public:
    /// The buffer must outlive it.
    explicit StringPairs(SourceBuffer& buffer);
    ~StringPairs() { buffer_.removeListener(*this); }
    StringPairs(const StringPairs&) = delete;
    StringPairs& operator=(const StringPairs&) = delete;

    /// Pairs the quotes anew where edits made it necessary. The range in which strings may have changed since the last
    /// time, or nothing.
    std::optional<NSRange> update();

    /// Calls a function with each string that overlaps a range or begins at its end, in order; update() was called
    /// since the last edit.
    template <class Function> void each(NSRange range, Function&& function) const {
        std::size_t i = quotes_.firstFrom(range.location);
        while (i > 0 && quotes_[i - 1].role != Role::Closes) --i;
        std::optional<std::size_t> begin;
        for (; i < quotes_.size(); ++i) {
            const Quote quote = quotes_[i];
            if (!begin && quote.position > endOf(range)) return;
            if (quote.role == Role::Opens) begin = quote.position;
            if (quote.role != Role::Closes || !begin) continue;
            function(rangeBetween(*begin, quote.position + 1));
            begin.reset();
        }
    }

private:
    enum class Role : std::uint32_t { Opens, Closes, Escaped };
    struct Quote {
        std::uint32_t position;
        Role role;
    };

    void textChanged(NSRange replaced, std::size_t inserted) override;
    bool isEscaped(std::size_t position) const;

    SourceBuffer& buffer_;
    MovingList<Quote> quotes_;
    ChangedRange stale_;  // roles from here on hold only from the first one behind it that comes out as it was
};

}  // namespace velt
