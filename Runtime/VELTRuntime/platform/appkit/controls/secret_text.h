// Cells for secrets: dots stand for their text wherever it is shown.
#pragma once

#include <QString>

class NSCell;
class QStyle;

namespace velt {

/// Dots stand for the cell's text.
bool isSecret(const NSCell& cell);
/// A dot for each unit of a text, in the way of a style.
QString dotsFor(const QString& text, const QStyle& style);
/// A cell's text as it is shown to people: dots for a secret one.
QString shownText(const NSCell& cell, const QStyle& style);

}  // namespace velt
