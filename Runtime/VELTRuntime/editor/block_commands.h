// The commands that work on every line that the selections touch.
//
// Each range is worked on from the line of its start to the line of its end; a range that ends at the start of a line
// leaves that line alone. Each line is a change of its own in the target's edit protocol, and a refused one is left
// out; all of a command is undone in one step.
#pragma once

#include "VELTRuntime/editor/edit_target.h"

namespace velt {

/// Two spaces at the start of each line. Each range begins at the start of its first line then, and is longer by what
/// came in. Nothing happens to an empty text, here and for shiftLeft.
VELT_EXPORT void shiftRight(EditTarget& target);
/// Up to two blanks are taken from the start of each line, a tab counting as one. Each range begins one unit earlier
/// then, but not before its first line, and is shorter by what was taken.
VELT_EXPORT void shiftLeft(EditTarget& target);
/// The comment marker at the start of each line; the lines are selected then. An empty text gives a beep, here and for
/// uncomment.
VELT_EXPORT void comment(EditTarget& target);
/// Takes the comment marker behind the blanks of each line.
VELT_EXPORT void uncomment(EditTarget& target);

/// Puts each selected range's text in other case in its place, as typing does.
VELT_EXPORT void lowercase(EditTarget& target);
VELT_EXPORT void uppercase(EditTarget& target);
/// The text of the primary selection.
VELT_EXPORT std::u16string selectedText(const EditTarget& target);

/// The Tab key: a selection that begins within the blanks of its line first shifts its lines to the right. Then, in any
/// case, two spaces are typed, which take the place of the selection.
VELT_EXPORT void insertTab(EditTarget& target);

}  // namespace velt
