// One line of source brought into the house style: pure functions from a line's text to a line's text.
//
// String literals and the comment come back as they were, whatever is around them. An apostrophe inside a literal
// counts as a comment's begin, so that the literal up to it is spaced like code. Programs rely on it.
#pragma once

#include "VELTRuntime/editor/line_roles.h"
#include "VELTRuntime/editor/recasing.h"

namespace velt {

/// Lines of less units, their line end among them, are not formatted.
inline constexpr std::size_t kShortestLine = 2;

/// Number of spaces and tabs at the begin of a line.
VELT_EXPORT std::size_t leadingBlanks(std::u16string_view line);

/// Number of units with which the line after a finished one is indented: as the finished one, whose odd blank is
/// dropped, and one more after an opener.
VELT_EXPORT std::size_t unitsAfter(std::u16string_view finishedLine, LineRole role);

/// A line with its line end, as it stands after Return was typed at its end. It keeps its indentation; a closer moves
/// one unit left, a declaration to column 0. A line of less than two units comes back as it is.
VELT_EXPORT std::u16string formatTypedLine(std::u16string_view line, LineRole role, const Recasing& words);

/// A line with its line end, as it stands in a pass over many lines, whose indentation is carried along. `classified`
/// is what the line's role is read from. A line that was indented gets two blanks a level, any other one less; programs
/// rely on it. A line of less than two units comes back as it is and changes nothing.
VELT_EXPORT std::u16string formatPassLine(std::u16string_view line, std::u16string_view classified,
                                          Indentation& indentation, const Recasing& words);

}  // namespace velt
