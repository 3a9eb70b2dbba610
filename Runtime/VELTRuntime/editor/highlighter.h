// Colouring a source text: words, strings, comments, and the lines with breakpoints.
#pragma once

#include "VELTRuntime/editor/string_pairs.h"
#include "VELTRuntime/editor/vocabulary.h"

namespace velt {

/// Colours one text. A pass gives what clearing its range and colouring anew give, strings being laid over the whole
/// text each time; but it works only on its range and on what has changed elsewhere since the pass before.
class VELT_EXPORT Highlighter final : private SourceListener {
public:
    /// Both must outlive it, and belong together.
    Highlighter(SourceBuffer& buffer, DisplayAttributes& attributes);
    ~Highlighter() { buffer_.removeListener(*this); }
    Highlighter(const Highlighter&) = delete;
    Highlighter& operator=(const Highlighter&) = delete;

    /// Colours the lines that hold the visible range, or without one the whole text. Does nothing for a view without
    /// keywords. Breakpoints are positions; those of 0 or less are not shown.
    void highlight(const WordLists& lists, std::span<const std::int64_t> breakpoints,
                   std::optional<NSRange> visible = std::nullopt);
    /// The same with other words than those that all views share.
    void highlight(const Vocabulary& vocabulary, std::span<const std::int64_t> breakpoints,
                   std::optional<NSRange> visible = std::nullopt);

private:
    struct CommentStart {
        std::uint32_t position;
    };

    void textChanged(NSRange replaced, std::size_t inserted) override;
    NSRange linesOf(NSRange visible) const;
    std::vector<InkRun> wordRuns(const Vocabulary& vocabulary, NSRange range) const;
    std::vector<InkRun> stringRuns(NSRange range) const;
    std::vector<InkRun> commentRuns(NSRange range, std::span<const InkRun> strings);
    void layStringsOutside(NSRange range);
    void layStrings(NSRange range);
    void clearStringsOfBackground();
    void layBreakpoints(std::span<const std::int64_t> breakpoints);

    SourceBuffer& buffer_;
    DisplayAttributes& attributes_;
    StringPairs strings_;
    // Where strings may not be in their colour since the last pass: changed places, and comments laid over strings.
    ChangedRange changed_;
    MovingList<CommentStart> comments_;
    std::uint64_t attributesVersion_ = 0;
};

}  // namespace velt
