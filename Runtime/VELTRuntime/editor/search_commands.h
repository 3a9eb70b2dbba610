// Finding, replacing and going to a line, as functions over a document.
#pragma once

#include "VELTRuntime/editor/edit_target.h"

namespace velt {

struct FindOptions {
    bool ignoresCase = false;
    bool selectedTextOnly = false;  // only while something is selected
    bool wholeWordsOnly = false;    // kept, but without effect: programs rely on it
};

/// Selects and shows the next match behind the caret's position. The search begins one unit behind it, goes on to the
/// text's end, and then once more from the second unit of the text: a match at the very start is not found, and
/// programs rely on it. In the selection alone it begins at its start and ends at its end. Whether there was a match;
/// nothing when the text or the needle is empty.
VELT_EXPORT std::optional<bool> findNext(EditTarget& target, std::u16string_view needle, const FindOptions& options);
/// The same backwards: in the text up to the unit before the caret, and then once more in the whole text without its
/// last unit, or in the selection alone.
VELT_EXPORT std::optional<bool> findPrevious(EditTarget& target, std::u16string_view needle,
                                             const FindOptions& options);
/// Puts a text in the place of the primary selection and selects it. False when nothing is selected or the change is
/// refused.
VELT_EXPORT bool replaceSelection(EditTarget& target, std::u16string_view with);
/// The same, then finds the next match; false when nothing was replaced.
VELT_EXPORT std::optional<bool> replaceAndFind(EditTarget& target, std::u16string_view needle, std::u16string_view with,
                                               const FindOptions& options);
/// Replaces what findNext finds from the text's start on, again and again, in one step for the undo history; but no
/// match reaches into or over what was put in. Colours the whole text then. The number of replacements.
VELT_EXPORT std::size_t replaceAll(EditTarget& target, std::u16string_view needle, std::u16string_view with,
                                   const FindOptions& options);
/// Selects and shows a line, counted from 1; one behind the last line is the text's empty end, and everything below 1
/// is the first line. Further on there is only a beep, and the result is false.
VELT_EXPORT bool goToLine(EditTarget& target, std::int64_t line);

}  // namespace velt
