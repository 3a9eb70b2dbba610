// The text of a program as the toolkit's document shows it, unit by unit.
//
// A document knows one end of a paragraph; a program's text may have several. Each unit of the text is one unit of the
// document, so that positions are the same in both: the line ends of a text stay its own, and come back as they were.
#pragma once

#include <QString>
#include <string_view>

namespace velt {

/// The units of a part of a text as the document shows them. What stands for a carriage return depends on the unit
/// behind it.
QString shownText(std::u16string_view text, std::size_t begin, std::size_t length);

/// Text that was put into a document by the toolkit itself, as a program sees it.
std::u16string programText(const QString& shown);

/// The position lies between a carriage return and its line feed.
bool splitsLineEnd(std::u16string_view text, std::size_t position);

/// The position before or behind one character: a line end of two units and a surrogate pair count as one, with
/// `whole` also all that combines.
std::size_t positionBefore(std::u16string_view text, std::size_t position);
std::size_t positionAfter(std::u16string_view text, std::size_t position);

}  // namespace velt
