// Where the lines of a text begin, kept while the text is edited.
//
// A line ends with "\n", "\r", "\r\n", U+0085, U+2028 or U+2029, which belongs to it; behind the last line end there is
// one more line, which may be empty. Lines are numbered from 0.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/values/text/moving_list.h"

#include <string_view>

namespace velt {

/// Whether a unit ends a line, alone or as the end of two.
constexpr bool endsLine(char16_t unit) {
    return unit == u'\n' || unit == u'\r' || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
}

/// Belongs to one thread. The text has at most 2^32-1 units.
class VELT_EXPORT LineIndex {
public:
    std::size_t textLength() const { return starts_.textLength(); }
    /// At least 1.
    std::size_t count() const { return starts_.size() + 1; }
    /// The line that holds a position; the text's end belongs to the last one.
    std::size_t lineAt(std::size_t position) const { return starts_.firstFrom(position + 1); }
    std::size_t start(std::size_t line) const { return line == 0 ? 0 : starts_.position(line - 1); }
    /// The position behind a line and its line end.
    std::size_t end(std::size_t line) const { return line + 1 < count() ? start(line + 1) : textLength(); }

    /// So many units at a position have been replaced by others. What stands before and behind them now counts, too: 0
    /// where the text begins and ends.
    void replace(std::size_t position, std::size_t removed, std::u16string_view inserted, char16_t before,
                 char16_t behind);

private:
    struct Start {
        std::uint32_t position;
    };
    MovingList<Start> starts_;  // without the first line's
};

}  // namespace velt
