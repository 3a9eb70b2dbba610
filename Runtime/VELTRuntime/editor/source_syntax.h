// What the editor itself knows of the language's syntax; words come from the view's lists.
#pragma once

#include <string_view>

namespace velt {

/// Opens and closes a string.
inline constexpr char16_t kQuote = u'"';
/// Begins a comment, which goes on to the end of its line.
inline constexpr char16_t kCommentMarker = u'\'';
/// The unit of indentation.
inline constexpr std::u16string_view kIndentationUnit = u"  ";
/// What may stand before the first word of a line.
inline constexpr std::u16string_view kBlanks = u" \t";

}  // namespace velt
