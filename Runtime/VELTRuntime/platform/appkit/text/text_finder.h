// Finding and replacing in a text, apart from where it is shown.
#pragma once

#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <optional>
#include <string>

namespace velt {

/// What is looked for, and how.
struct FindRequest {
    std::u16string text;
    std::u16string replacement;
    bool ignoresCase = true;
    bool wholeWords = false;
    bool wraps = true;
};

/// The next match at or after a position within a range of the text, or before it; nothing is found for nothing.
std::optional<NSRange> findMatch(std::u16string_view text, const FindRequest& request, std::size_t from, bool backward,
                                 NSRange within);
/// That range of the text is itself a match.
bool isMatch(std::u16string_view text, const FindRequest& request, NSRange range);
/// All matches within a range, which do not overlap, in order.
std::vector<NSRange> findAll(std::u16string_view text, const FindRequest& request, NSRange within);
/// The text from the first of some matches to the last one, with each replaced; attributes stay where they were.
Ref<NSAttributedString> replacedMatches(const NSAttributedString& text, const std::vector<NSRange>& matches,
                                        std::u16string_view replacement);

}  // namespace velt
