// Source texts and edits that tests generate.
#pragma once

#include "VELTRuntime/editor/source_document.h"
#include "support/generated.h"

#include <span>

namespace velt::test {

class GeneratedText : public Generated {
protected:
    /// A text of so many of some pieces.
    std::u16string text(std::span<const std::u16string_view> pieces, std::size_t count) {
        std::u16string result;
        while (count-- > 0) result += pieces[below(pieces.size())];
        return result;
    }
    NSRange rangeIn(std::size_t length) {
        const std::size_t begin = below(length + 1);
        return {begin, below(length - begin + 1)};
    }
    /// A range that is short more often than not.
    NSRange shortRangeIn(std::size_t length) {
        NSRange range = rangeIn(length);
        if (below(4) > 0) range.length = std::min<std::size_t>(range.length, below(4));
        return range;
    }
};

}  // namespace velt::test
