// What a line of source does to the indentation of the lines around it, read from its first words.
#pragma once

#include "VELTRuntime/export.h"

#include <string>
#include <string_view>

namespace velt {

/// The beginning of a line as the tables read it: trimmed of white space at both ends, in lower case, and cut where no
/// table looks any more.
VELT_EXPORT std::u16string lineStart(std::u16string_view line);

/// What a finished line does while typing.
enum class LineRole {
    Plain,
    Opener,  ///< the next line stands one unit further right
    Closer,  ///< the line itself moves one unit left
};

/// The role by a line's beginning.
VELT_EXPORT LineRole lineRole(std::u16string_view start);

/// The line is a declaration, which stands at column 0.
VELT_EXPORT bool isDeclaration(std::u16string_view start);

/// What is carried from line to line in a pass over many lines.
struct Indentation {
    int level = 0;            ///< in units of two blanks; falls below 0 in a text with too many ends
    bool isCaseOpen = false;  ///< a branch of the current select is open
};

/// Changes the indentation before a line by its beginning; true when the lines after it stand one unit further right.
/// `classified` is the beginning that the role was read from, which is empty for a line that stands at the very start
/// of the text.
VELT_EXPORT bool applyIndentation(Indentation& indentation, std::u16string_view start, std::u16string_view classified);

}  // namespace velt
