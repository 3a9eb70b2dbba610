// The breakpoints and the line separators of a source file: arrays of numbers that are positions in its text.
//
// A position is stored in 16 bits, so that one above 32767 becomes negative and is not shown: programs rely on it.
// Entries are read as the language's integers; one that is none raises "VLCastException".
#pragma once

#include "VELTRuntime/editor/text_buffer.h"
#include "VELTRuntime/platform/foundation/array.h"

namespace velt {

/// The number of the line that holds a caret, from 1 on; the empty line behind the last line end has none of its own.
/// 0 for an empty text.
VELT_EXPORT std::size_t currentLine(const SourceBuffer& buffer, std::size_t caret);

/// The entries as numbers.
VELT_EXPORT std::vector<std::int64_t> positionsIn(const NSArray& entries);

/// Removes the breakpoint of the caret's line, or adds one. The first line's is stored as 1, where it is not found
/// again, so that another one is added: programs rely on it. False when the text is empty; otherwise the whole text has
/// to be coloured anew.
VELT_EXPORT bool toggleBreakpoint(const SourceBuffer& buffer, std::size_t caret, NSMutableArray& breakpoints);

/// The same for a line, counted from 1, as a person sees it: whatever entries lie in it are removed, or else one is
/// added. False when nothing changed: for a line that there is not, and the empty one behind the last line end.
VELT_EXPORT bool toggleBreakpointOfLine(const SourceBuffer& buffer, std::size_t line, NSMutableArray& breakpoints);

/// Moves all entries from a position on by a number of units. Whether there were any. None has moved when one
/// of them is no integer.
VELT_EXPORT bool moveEntries(NSMutableArray& entries, std::size_t from, int by);

/// Keeps entries in step with Backspace, when its key is released: before a line feed that stands behind the unit at
/// the caret all entries from the caret on go back by one. Whether there were any.
VELT_EXPORT bool backspaceReleased(const SourceBuffer& buffer, std::size_t caret, NSMutableArray& entries);

}  // namespace velt
