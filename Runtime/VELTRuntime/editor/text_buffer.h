// The text of the editor: quick to change anywhere near the last change, and knows its lines without walking them.
//
// Positions and lengths count UTF-16 code units.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/values/structures.h"
#include "VELTRuntime/values/text/line_index.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace velt {

/// The position behind a range.
inline std::size_t endOf(NSRange range) { return range.location + range.length; }
/// The range from a position to one not before it.
inline NSRange rangeBetween(std::size_t begin, std::size_t end) {
    assert(begin <= end);
    return {begin, end - begin};
}

/// Hears of the changes of a text.
class SourceListener {
public:
    /// A range of the text as it was before has been replaced by so many units.
    virtual void textChanged(NSRange replaced, std::size_t inserted) = 0;

protected:
    ~SourceListener() = default;
};

/// Belongs to one thread; even asking moves what it holds inside.
class VELT_EXPORT SourceBuffer {
public:
    SourceBuffer() : SourceBuffer(std::u16string_view()) {}
    explicit SourceBuffer(std::u16string_view text);
    SourceBuffer(const SourceBuffer&) = delete;
    SourceBuffer& operator=(const SourceBuffer&) = delete;

    std::size_t length() const { return capacity_ - gapLength_; }
    bool isEmpty() const { return length() == 0; }
    NSRange whole() const { return {0, length()}; }
    char16_t at(std::size_t position) const {
        assert(position < length());
        return units_[position < gap_ ? position : position + gapLength_];
    }
    std::u16string substring(NSRange range) const;
    std::u16string text() const { return substring(whole()); }
    /// A range without a copy; valid until the text is changed or another range is asked for that reaches beyond it.
    std::u16string_view view(NSRange range) const;
    /// The whole text in two pieces, one behind the other; valid until the text is changed or a view is asked for.
    std::array<std::u16string_view, 2> pieces() const;

    /// Puts a text, which is no view of this buffer, in the place of a range. Raises "NSRangeException" when the text
    /// would get longer than 2^32-1 units.
    void replace(NSRange range, std::u16string_view with);
    void setText(std::u16string_view text) { replace(whole(), text); }
    /// Grows with every change.
    std::uint64_t version() const { return version_; }

    /// Listeners are told in the order in which they came; each must be removed before it ends.
    void addListener(SourceListener& listener) { listeners_.push_back(&listener); }
    void removeListener(SourceListener& listener) { std::erase(listeners_, &listener); }

    /// The number of lines, at least 1. Lines are numbered from 0 here.
    std::size_t lineCount() const { return lines_.count(); }
    /// The line that holds a position; the text's end belongs to the last one.
    std::size_t lineAt(std::size_t position) const { return lines_.lineAt(position); }
    std::size_t lineStart(std::size_t line) const { return lines_.start(line); }
    /// A line with its line end.
    NSRange line(std::size_t index) const;
    /// The lines that hold the units of a range, or for an empty range its position.
    NSRange lineRange(NSRange range) const;
    /// The line that holds a position.
    NSRange lineRangeAt(std::size_t position) const { return line(lineAt(position)); }

    /// The first position of a unit within a range, or nothing.
    std::optional<std::size_t> find(char16_t unit, NSRange within) const;
    /// The last one.
    std::optional<std::size_t> findLast(char16_t unit, NSRange within) const;

private:
    void moveGap(std::size_t to) const;
    void reserveGap(std::size_t wanted);

    mutable std::unique_ptr<char16_t[]> units_;
    mutable std::size_t gap_ = 0;
    std::size_t gapLength_ = 0, capacity_ = 0;
    LineIndex lines_;
    std::uint64_t version_ = 0;
    std::vector<SourceListener*> listeners_;
};

}  // namespace velt
